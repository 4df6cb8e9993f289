#include <gtest/gtest.h>

#include "bridge/bridge.h"
#include "com/scenarios/message_boxes.h"
#include "com/server/client.h"
#include "support/settlement_host.h"
#include "support/test_session.h"
#include "support/test_windows.h"

/// The real boxes of the server, read off the screen while they are open.
namespace arap::testing {
namespace {

class RealBoxes : public ::testing::Test {
 protected:
  RealBoxes() {
    session.platform.while_open = [this](const TestPlatform::Message&) {
      const HWND box = open_box();
      shown.push_back(read_box(box));
      EXPECT_TRUE(IsWindowVisible(box));
    };
  }
  /// Shows a class its source.
  com::ComPtr<IDispatch> plugin(const char* sClass, const Ref<Object>& oSource) {
    const auto oClass = create(sClass);
    Outcome outcome;
    invoke(outcome, oClass.get(), L"Show", DISPATCH_METHOD, {object_value(com::dispatch_of(oSource).get())});
    EXPECT_EQ(outcome.code, S_OK);
    return oClass;
  }

  TestSession session;
  std::vector<BoxOnScreen> shown;
};

TEST_F(RealBoxes, ARefusalStandsOnTheScreenWithItsChineseTextAndTitle) {
  const auto oBill = make_settlement_bill(Side::Receive);
  const auto oClass = plugin("clsReceiveBill", oBill);
  EXPECT_TRUE(oBill->save());
  ASSERT_EQ(shown.size(), 1u);
  EXPECT_EQ(shown[0].sText, "收款单的收款金额为零，不允许保存。");
  EXPECT_EQ(shown[0].sTitle, "青柚提示");
  EXPECT_EQ(shown[0].nButtons, 48);
}

TEST_F(RealBoxes, TheAnswerToAQuestionReachesTheRule) {
  const auto oList = make_object<TestList>(1000206);
  const auto oClass = plugin("clsPOtherBill", oList);
  session.system_data.answer("declare @Per", recordset({"FStartDate", "FEndDate"}, {{"2024-01-01", "2024-01-31"}}));
  oList->details[31] = recordset({"FStatus", "FDate", "FVoucherId"}, {{0, "2024-01-15", 0}});
  oList->select({{"FBillID", 31}, {"FClassTypeID", 1000206}});
  for (const int nAnswer : {IDNO, IDYES}) {
    shown.clear();
    session.platform.answer(nAnswer);
    oList->click("mnuEditDelete");
    ASSERT_FALSE(shown.empty());
    EXPECT_EQ(shown[0].sText, "是否删除数据 ?");
    EXPECT_EQ(shown[0].sTitle, "青柚提示");
    EXPECT_EQ(shown[0].nButtons, 36);
    EXPECT_EQ(shown.size(), nAnswer == IDYES ? 2u : 1u) << "the result of the delete is told in a second box";
  }
}

}  // namespace
}  // namespace arap::testing
