#include "frame/conversions.h"
#include "plugin/settlement/settlement_fixture.h"

namespace arap::testing {
namespace {

constexpr int kSuccess = 0;
constexpr int kFailure = 1;

class CheckUncheck : public BothSides {
 protected:
  void SetUp() override {
    bill->fire(Event::MenuBarInitialize, {bill->bar});
    bill->head("FBillId", 9);
    bill->inter_id = 9;
    session.check_message = "服务的答复";
    session.system_data.answer("declare @Per", recordset({"FStartDate", "FEndDate"}, {{"2024-01-01", "2024-01-31"}}));
    trace().clear();
  }
  ServerStub& service() { return session.server(side.sService); }
  /// The calls that make up the command, without the locks that follow a status.
  Lines calls() const {
    return trace().lines_with_any(
        {"AccessCheck", "SaveBill", ".CheckBill(", "MsgBox", "ReloadAfterCheck", "BarRefresh", "ShowBillByID"});
  }
  std::string props() const { return "\"" + plain_text(service_args().at(0)) + "\""; }
  std::vector<Variant> service_args() const {
    return const_cast<CheckUncheck*>(this)->service().last(Member::CheckBill);
  }
  std::string access_line(const char* sRight, const char* sAnswer) const {
    return "NUVLPCGLView.GLData.AccessCheck(1010, " + std::to_string(side.nBillClass) + ", " + sRight + ") -> " +
           sAnswer;
  }
  std::string service_line(const char* sFlag, const char* sAnswer) const {
    return std::string(side.sService) + ".CheckBill(" + props() + ", 9, " + sFlag + ", \"\") -> " + sAnswer;
  }
  static std::string box_line() { return "MsgBox(\"服务的答复\", 64, \"青柚提示\") -> 1"; }
};
INSTANTIATE_BOTH_SIDES(CheckUncheck);

TEST_P(CheckUncheck, ACheckSavesAsksTheServiceLocksAndShowsTheBillAgain) {
  session.check_result = kSuccess;
  EXPECT_TRUE(bill->click("mnuEditCheck"));
  EXPECT_EQ(calls(), (Lines{access_line("1", "True"), "BillForm.SaveBill() -> True", service_line("1", "0"), box_line(),
                            "BillEvent.ReloadAfterCheck()", "BillEvent.BarRefresh()", "BillEvent.ShowBillByID(9)"}));
  EXPECT_TRUE(bill->cell_locked("FAmountFor"));
}

TEST_P(CheckUncheck, ACheckThatTheServiceRefusesLocksNothingAndShowsTheBillAgain) {
  session.check_result = kFailure;
  EXPECT_TRUE(bill->click("mnuEditCheck"));
  EXPECT_EQ(calls(), (Lines{access_line("1", "True"), "BillForm.SaveBill() -> True", service_line("1", "1"), box_line(),
                            "BillEvent.ReloadAfterCheck()", "BillEvent.ShowBillByID(9)"}));
  EXPECT_FALSE(bill->cell_locked("FAmountFor"));
}

TEST_P(CheckUncheck, TheTraceOfACheckIsApproved) {
  bill->click("mnuEditCheck");
  expect_golden("check");
}

TEST_P(CheckUncheck, TheTraceOfARefusedCheckIsApproved) {
  session.check_result = kFailure;
  bill->click("mnuEditCheck");
  expect_golden("check_refused");
}

TEST_P(CheckUncheck, TheTraceOfAnUncheckIsApproved) {
  bill->click("mnuEditUnCheck");
  expect_golden("uncheck");
}

TEST_P(CheckUncheck, TheServiceGetsThePropsString) {
  bill->click("mnuEditCheck");
  EXPECT_EQ(plain_text(service_args().at(0)), plain_text(session.shared().at("PropsString")));
}

TEST_P(CheckUncheck, ACheckWithoutTheRightEndsBeforeEverything) {
  session.access = [](std::int32_t, std::int32_t, std::int32_t) { return false; };
  EXPECT_TRUE(bill->click("mnuEditCheck"));
  EXPECT_EQ(boxes(), notice("没有权限,请与系统管理员联系"));
  EXPECT_FALSE(trace().has("SaveBill"));
}

TEST_P(CheckUncheck, ABillThatWasNeverSavedIsntChecked) {
  bill->head("FBillId", 0);
  EXPECT_TRUE(bill->click("mnuEditCheck"));
  EXPECT_EQ(calls(), (Lines{access_line("1", "True")}));
}

TEST_P(CheckUncheck, ARefusedSaveEndsTheCheckAndLeavesTheBillAsItWas) {
  bill->save_succeeds = false;
  EXPECT_TRUE(bill->click("mnuEditCheck"));
  EXPECT_EQ(calls(), (Lines{access_line("1", "True"), "BillForm.SaveBill() -> False"}));
  EXPECT_TRUE(boxes().empty());
}

TEST_P(CheckUncheck, ASavedBillWithoutAnIdIsntChecked) {
  for (const std::int32_t nInterID : {0, -1}) {
    bill->inter_id = nInterID;
    EXPECT_TRUE(bill->click("mnuEditCheck"));
    EXPECT_EQ(service().count(Member::CheckBill), 0u) << nInterID;
  }
}

TEST_P(CheckUncheck, AnUncheckAsksTheServiceAndShowsTheBillAgainWhateverItAnswers) {
  for (const int nResult : {kSuccess, kFailure}) {
    trace().clear();
    session.check_result = nResult;
    EXPECT_FALSE(bill->click("mnuEditUnCheck"));
    EXPECT_EQ(calls(), (Lines{access_line("4096", "True"), service_line("0", nResult == kSuccess ? "0" : "1"),
                              box_line(), "BillEvent.ReloadAfterCheck()", "BillEvent.ShowBillByID(9)"}));
    EXPECT_FALSE(trace().has("LockCell"));
  }
}

TEST_P(CheckUncheck, AnUncheckOfAWrittenOffBillIsLeftToTheServiceAndTheBillIsShownAgain) {
  bill->head("FStatus", 1).head("FCheckAmountFor", 5.0);
  session.check_result = kFailure;
  EXPECT_FALSE(bill->click("mnuEditUnCheck"));
  EXPECT_EQ(boxes(), notice("服务的答复"));
  EXPECT_EQ(service().count(Member::CheckBill), 1u);
  EXPECT_EQ(bill->shown_bills, std::vector<std::int32_t>{9});
}

TEST_P(CheckUncheck, AnUncheckWithoutTheRightIsCancelled) {
  session.access = [](std::int32_t, std::int32_t, std::int32_t nRight) { return nRight != 4096; };
  EXPECT_TRUE(bill->click("mnuEditUnCheck"));
  EXPECT_EQ(boxes(), notice("没有权限,请与系统管理员联系"));
  EXPECT_EQ(service().count(Member::CheckBill), 0u);
}

TEST_P(CheckUncheck, ABillOfAnEarlierPeriodStaysChecked) {
  bill->head("FDate", "2023-12-31");
  EXPECT_TRUE(bill->click("mnuEditUnCheck"));
  EXPECT_EQ(boxes(), notice("不能反审核以前期间的单据，反审核失败。"));
  EXPECT_EQ(service().count(Member::CheckBill), 0u);
}

TEST_P(CheckUncheck, TheFirstDayOfTheCurrentPeriodPasses) {
  bill->head("FDate", "2024-1-1");
  EXPECT_FALSE(bill->click("mnuEditUnCheck"));
  EXPECT_EQ(service().count(Member::CheckBill), 1u);
}

TEST_P(CheckUncheck, ADateValueIsComparedByItsDay) {
  bill->head("FDate", DateSerial(2023, 12, 31));
  EXPECT_TRUE(bill->click("mnuEditUnCheck"));
  bill->head("FDate", DateSerial(2024, 1, 1));
  EXPECT_FALSE(bill->click("mnuEditUnCheck"));
}

TEST_P(CheckUncheck, WithoutACurrentPeriodEveryDatePasses) {
  session.system_data.answer("declare @Per", recordset({"FStartDate", "FEndDate"}));
  bill->head("FDate", "1999-01-01");
  EXPECT_FALSE(bill->click("mnuEditUnCheck"));
  EXPECT_EQ(service().count(Member::CheckBill), 1u);
}

TEST_P(CheckUncheck, AnErrorOfTheServiceGoesToTheHostWithCancelTrue) {
  service().fails(Member::CheckBill, 5001, "连接中断");
  std::vector<Variant> aArgs{make_object<TestTool>("mnuEditUnCheck"), false};
  try {
    bill->events.fire(Event::MenuBarClick, aArgs);
    FAIL() << "the error has to reach the host";
  } catch (const AutomationError& error) {
    EXPECT_EQ(error.number(), 5001);
    EXPECT_EQ(error.description(), "连接中断");
  }
  EXPECT_TRUE(aArgs[1].as<bool>());
  EXPECT_TRUE(bill->shown_bills.empty());
}

}  // namespace
}  // namespace arap::testing
