#include "other_bill_fixture.h"

namespace arap::testing {
namespace {

constexpr int kSuccess = 0;
constexpr int kFailure = 1;

class OtherCheck : public OtherBillTest {
 protected:
  using Log = TestSession::LogLine;

  void SetUp() override {
    bill->head("FBillId", 9).head("FBillNo", "  QT0009 ");
    bill->inter_id = 9;
    session.check_message = "服务的答复";
    session.system_data.answer("declare @Per", recordset({"FStartDate", "FEndDate"}, {{"2024-01-01", "2024-01-31"}}));
    trace().clear();
  }
  ServerStub& service() { return session.server(side.sService); }
};
INSTANTIATE_OTHER_SIDES(OtherCheck);

TEST_P(OtherCheck, ACheckSavesAsksLogsTellsReloadsAndShowsTheBillAgain) {
  session.check_result = kSuccess;
  EXPECT_TRUE(bill->click("mnuEditCheck"));
  expect_golden("check");
  EXPECT_EQ(session.log, (std::vector<Log>{{pick("RP1000205A", "RP1000206A"), 1, "审核单据[QT0009]成功!"}}));
  EXPECT_EQ(boxes(), notice("服务的答复"));
  EXPECT_EQ(bill->shown_bills, std::vector<std::int32_t>{9});
}

TEST_P(OtherCheck, ACheckedBillIsReloadedAndStandsLocked) {
  bill->edit_mode = 2;
  service().on(Member::CheckBill, [this](Arguments) {
    bill->head("FStatus", 1);
    return Variant(kSuccess);
  });
  bill->on_reload = [this] { bill->fire(Event::AfterLoadBill); };
  EXPECT_TRUE(bill->click("mnuEditCheck"));
  EXPECT_TRUE(bill->column_locked("FID") && bill->column_locked("FID2"));
  EXPECT_EQ(enabled("mnuFileSave"), false);
  EXPECT_TRUE(bill->bill_locked);
}

TEST_P(OtherCheck, AFailedCheckIsLoggedWithTheWordOfTheSideAndLeavesTheBill) {
  session.check_result = kFailure;
  EXPECT_TRUE(bill->click("mnuEditCheck"));
  expect_golden("check_failed");
  EXPECT_EQ(session.log, (std::vector<Log>{pick(Log{"RP1000205A", 2, "审核单据[QT0009]失败!"},
                                                Log{"RP1000206A", 2, "反审核单据[QT0009]失败!"})}));
  EXPECT_EQ(boxes(), notice("服务的答复"));
  EXPECT_TRUE(bill->shown_bills.empty());
}

TEST_P(OtherCheck, AnAnswerOtherThanOneIsASuccess) {
  for (const int nResult : {2, -1, 0}) {
    session.check_result = nResult;
    bill->click("mnuEditCheck");
    EXPECT_EQ(session.log.back().nResult, 1) << nResult;
  }
}

TEST_P(OtherCheck, ABillThatFailsItsValidationShowsOnlyThatMessageAndNoServerIsAsked) {
  bill->remove_rows();
  bill->on_save = [this] { return !bill->save(); };
  EXPECT_TRUE(bill->click("mnuEditCheck"));
  EXPECT_EQ(boxes(), warning("单据体要求至少有一条分录，请输入单据体信息！"));
  EXPECT_EQ(service().count(Member::CheckBill), 0u);
  EXPECT_TRUE(session.log.empty());
}

TEST_P(OtherCheck, AnUncheckIsLoggedUnderTheReceivablesCodeOnBothSides) {
  session.check_result = kSuccess;
  EXPECT_TRUE(bill->click("mnuEditUnCheck"));
  expect_golden("uncheck");
  EXPECT_EQ(session.log, (std::vector<Log>{{"RP1000205A", 1, "反审核单据[QT0009]成功!"}}));
  EXPECT_EQ(bill->shown_bills, std::vector<std::int32_t>{9});
}

TEST_P(OtherCheck, AnUncheckReadsTheBillsDateAheadOfThePeriod) {
  trace().set_detail(Trace::Detail::All);
  EXPECT_TRUE(bill->click("mnuEditUnCheck"));
  const std::vector<std::string> aLines = trace().lines_with_any({"FDate", "ExecuteSQL("});
  ASSERT_GE(aLines.size(), 2u);
  EXPECT_NE(aLines.front().find("FDate"), std::string::npos) << aLines.front();
  EXPECT_NE(aLines.back().find("ExecuteSQL("), std::string::npos) << aLines.back();
}

TEST_P(OtherCheck, AFailedUncheckIsLoggedAndLeavesTheBill) {
  session.check_result = kFailure;
  EXPECT_TRUE(bill->click("mnuEditUnCheck"));
  EXPECT_EQ(session.log, (std::vector<Log>{{"RP1000205A", 2, "反审核单据[QT0009]失败!"}}));
  EXPECT_EQ(boxes(), notice("服务的答复"));
  EXPECT_TRUE(trace().has("ReloadAfterCheck"));
  EXPECT_TRUE(bill->shown_bills.empty());
}

TEST_P(OtherCheck, AnUncheckIsNeitherSavedNorHeldBackByAMissingId) {
  bill->inter_id = 0;
  EXPECT_TRUE(bill->click("mnuEditUnCheck"));
  EXPECT_FALSE(trace().has("SaveBill"));
  EXPECT_EQ(service().count(Member::CheckBill), 1u);
}

TEST_P(OtherCheck, TheCommandIsFoundWithoutRegardToCase) {
  EXPECT_TRUE(bill->click("MNUEDITCHECK"));
  EXPECT_EQ(service().count(Member::CheckBill), 1u);
}

}  // namespace
}  // namespace arap::testing
