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
  void refuse_right(std::int32_t nRight) {
    session.access = [nRight](std::int32_t, std::int32_t, std::int32_t nAsked) { return nAsked != nRight; };
  }
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

TEST_P(OtherCheck, ACheckWithoutTheRightEndsBeforeEverything) {
  refuse_right(1);
  EXPECT_TRUE(bill->click("mnuEditCheck"));
  EXPECT_EQ(boxes(), notice("没有权限,请与系统管理员联系"));
  EXPECT_FALSE(trace().has("SaveBill"));
}

TEST_P(OtherCheck, TheRightsAreAskedForTheSidesOwnClass) {
  std::vector<std::int32_t> aObjects;
  std::vector<std::int32_t> aRights;
  session.access = [&](std::int32_t, std::int32_t nObject, std::int32_t nRight) {
    aObjects.push_back(nObject);
    aRights.push_back(nRight);
    return true;
  };
  bill->click("mnuEditCheck");
  bill->click("mnuEditUnCheck");
  EXPECT_EQ(aObjects, (std::vector<std::int32_t>{side.nBillClass, side.nBillClass}));
  EXPECT_EQ(aRights, (std::vector<std::int32_t>{1, 4096}));
}

TEST_P(OtherCheck, ABillThatFailsItsValidationShowsOnlyThatMessageAndNoServerIsAsked) {
  bill->on_save = [this] {
    session.platform.MsgBox("单据体要求至少有一条分录，请输入单据体信息！", 48, "青柚提示");
    return false;
  };
  EXPECT_TRUE(bill->click("mnuEditCheck"));
  EXPECT_EQ(boxes(), warning("单据体要求至少有一条分录，请输入单据体信息！"));
  EXPECT_EQ(service().count(Member::CheckBill), 0u);
  EXPECT_TRUE(session.log.empty());
}

TEST_P(OtherCheck, ABillWithoutAnIdIsSavedButNotChecked) {
  for (const std::int32_t nInterID : {0, -3}) {
    bill->inter_id = nInterID;
    EXPECT_TRUE(bill->click("mnuEditCheck"));
  }
  EXPECT_EQ(service().count(Member::CheckBill), 0u);
  EXPECT_TRUE(boxes().empty());
}

TEST_P(OtherCheck, AnUncheckIsLoggedUnderTheReceivablesCodeOnBothSides) {
  session.check_result = kSuccess;
  EXPECT_TRUE(bill->click("mnuEditUnCheck"));
  expect_golden("uncheck");
  EXPECT_EQ(session.log, (std::vector<Log>{{"RP1000205A", 1, "反审核单据[QT0009]成功!"}}));
  EXPECT_EQ(bill->shown_bills, std::vector<std::int32_t>{9});
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

TEST_P(OtherCheck, AnUncheckWithoutTheRightIsCancelled) {
  refuse_right(4096);
  EXPECT_TRUE(bill->click("mnuEditUnCheck"));
  EXPECT_EQ(boxes(), notice("没有权限,请与系统管理员联系"));
  EXPECT_EQ(service().count(Member::CheckBill), 0u);
}

TEST_P(OtherCheck, ABillOfAnEarlierPeriodStaysCheckedAndTheNoticeSaysSo) {
  bill->head("FDate", "2023-12-31");
  EXPECT_TRUE(bill->click("mnuEditUnCheck"));
  EXPECT_EQ(boxes(), notice("不能反审核以前期间的单据，反审核失败。"));
  EXPECT_EQ(service().count(Member::CheckBill), 0u);
  bill->head("FDate", "2024-1-1");
  EXPECT_TRUE(bill->click("mnuEditUnCheck"));
  EXPECT_EQ(service().count(Member::CheckBill), 1u);
}

TEST_P(OtherCheck, AnErrorOfTheServiceGoesToTheHostWithCancelTrue) {
  service().fails(Member::CheckBill, 5001, "连接中断");
  std::vector<Variant> aArgs{make_object<TestTool>("mnuEditCheck"), false};
  try {
    bill->events.fire(Event::MenuBarClick, aArgs);
    FAIL() << "the error has to reach the host";
  } catch (const AutomationError& error) {
    EXPECT_EQ(error.number(), 5001);
    EXPECT_EQ(error.description(), "连接中断");
  }
  EXPECT_TRUE(aArgs[1].as<bool>());
  EXPECT_TRUE(session.log.empty());
}

TEST_P(OtherCheck, TheCommandIsFoundWithoutRegardToCase) {
  EXPECT_TRUE(bill->click("MNUEDITCHECK"));
  EXPECT_EQ(service().count(Member::CheckBill), 1u);
}

}  // namespace
}  // namespace arap::testing
