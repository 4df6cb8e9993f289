#include <memory>
#include "frame/conversions.h"

#include "frame/open_choices.h"
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

TEST_P(CheckUncheck, TheServiceOfACommandIsReleasedAtItsEnd) {
  std::weak_ptr<bool> service;
  session.server(open_choices::kObjectFactory).on(Member::CreateServerObject, [&](Arguments args) -> Variant {
    const std::string sProgID = plain_text(args[0]);
    if (sProgID != side.sService) return Ref<Object>(&session.server(sProgID));
    auto alive = std::make_shared<bool>(true);
    service = alive;
    return Ref<Object>(
        make_object<PartObject>(sProgID, [alive](Member, Access, Arguments) -> Variant { return kSuccess; }));
  });
  bool bAliveAtReload = false;
  bill->on_reload = [&] { bAliveAtReload = !service.expired(); };
  for (const char* sTool : {"mnuEditCheck", "mnuEditUnCheck"}) {
    bAliveAtReload = false;
    bill->click(sTool);
    EXPECT_TRUE(bAliveAtReload) << sTool;
    EXPECT_TRUE(service.expired()) << sTool;
  }
}

TEST_P(CheckUncheck, AnyAnswerButOneIsASuccess) {
  for (const int nResult : {2, -1}) {
    session.check_result = nResult;
    trace().clear();
    bill->click("mnuEditCheck");
    EXPECT_TRUE(trace().has("LockCell(FAmountFor, -1, True)")) << nResult;
  }
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

TEST_P(CheckUncheck, AnUncheckReadsTheBillsDateAheadOfThePeriod) {
  trace().set_detail(Trace::Detail::All);
  bill->click("mnuEditUnCheck");
  const std::vector<std::string> aLines = trace().lines_with_any({"FDate", "ExecuteSQL("});
  ASSERT_GE(aLines.size(), 2u);
  EXPECT_NE(aLines.front().find("FDate"), std::string::npos) << aLines.front();
  EXPECT_NE(aLines.back().find("ExecuteSQL("), std::string::npos) << aLines.back();
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

}  // namespace
}  // namespace arap::testing
