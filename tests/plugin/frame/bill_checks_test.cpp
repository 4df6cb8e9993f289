#include "frame/conversions.h"
#include "plugin/frame/bill_class_fixture.h"

/// Check and uncheck in the bill window: what refuses them, the same in all four bill classes.
namespace arap::testing {
namespace {

class BillChecks : public BillClassTest {
 protected:
  BillChecks() {
    session.system_data.answer("declare @Per", recordset({"FStartDate", "FEndDate"}, {{"2024-01-01", "2024-01-31"}}));
  }
  void refuse_right(std::int32_t nRight) {
    session.access = [nRight](std::int32_t, std::int32_t, std::int32_t nAsked) { return nAsked != nRight; };
  }
  std::size_t asked() { return service().count(Member::CheckBill); }
};
INSTANTIATE_BILL_CLASSES(BillChecks);

TEST_P(BillChecks, TheRightsAreAskedForTheClassOfTheBill) {
  std::vector<std::vector<std::int32_t>> aAsked;
  session.access = [&](std::int32_t nSubSystem, std::int32_t nObject, std::int32_t nRight) {
    aAsked.push_back({nSubSystem, nObject, nRight});
    return true;
  };
  bill->click("mnuEditCheck");
  bill->click("mnuEditUnCheck");
  EXPECT_EQ(aAsked,
            (std::vector<std::vector<std::int32_t>>{{1010, names.nBillClass, 1}, {1010, names.nBillClass, 4096}}));
}

TEST_P(BillChecks, ACheckWithoutTheRightEndsBeforeEverything) {
  refuse_right(1);
  EXPECT_TRUE(bill->click("mnuEditCheck"));
  EXPECT_EQ(boxes(), notice("没有权限,请与系统管理员联系"));
  EXPECT_FALSE(trace().has("SaveBill"));
}

TEST_P(BillChecks, AnUncheckWithoutTheRightIsCancelled) {
  refuse_right(4096);
  EXPECT_TRUE(bill->click("mnuEditUnCheck"));
  EXPECT_EQ(boxes(), notice("没有权限,请与系统管理员联系"));
  EXPECT_EQ(asked(), 0u);
}

TEST_P(BillChecks, ACheckWhoseSaveIsRefusedEndsThere) {
  bill->save_succeeds = false;
  EXPECT_TRUE(bill->click("mnuEditCheck"));
  EXPECT_TRUE(trace().has("BillForm.SaveBill() -> False"));
  EXPECT_TRUE(boxes().empty());
  EXPECT_EQ(asked(), 0u);
}

TEST_P(BillChecks, ASavedBillWithoutAnIdIsntChecked) {
  for (const std::int32_t nInterID : {0, -3}) {
    bill->inter_id = nInterID;
    EXPECT_TRUE(bill->click("mnuEditCheck"));
  }
  EXPECT_EQ(asked(), 0u);
  EXPECT_TRUE(boxes().empty());
}

TEST_P(BillChecks, TheServiceGetsThePropsStringTheIdAndWhatToDo) {
  for (const auto& [sTool, nFlag] : {std::pair{"mnuEditCheck", 1}, {"mnuEditUnCheck", 0}}) {
    bill->click(sTool);
    const auto aArgs = service().last(Member::CheckBill);
    ASSERT_EQ(aArgs.size(), 4u) << sTool;
    EXPECT_EQ(plain_text(aArgs[0]), plain_text(session.shared().at("PropsString")));
    EXPECT_EQ(plain_number(aArgs[1]), 9);
    EXPECT_EQ(plain_number(aArgs[2]), nFlag);
  }
}

TEST_P(BillChecks, ABillOfAnEarlierPeriodStaysCheckedAndTheNoticeSaysSo) {
  bill->head("FDate", "2023-12-31");
  EXPECT_TRUE(bill->click("mnuEditUnCheck"));
  EXPECT_EQ(boxes(), notice("不能反审核以前期间的单据，反审核失败。"));
  EXPECT_EQ(asked(), 0u);
}

TEST_P(BillChecks, TheFirstDayOfTheCurrentPeriodPasses) {
  bill->head("FDate", "2024-1-1");
  bill->click("mnuEditUnCheck");
  EXPECT_EQ(asked(), 1u);
}

TEST_P(BillChecks, DatesAreComparedInOneForm) {
  session.system_data.answer("declare @Per", recordset({"FStartDate", "FEndDate"}, {{"2024-10-01", "2024-10-31"}}));
  bill->head("FDate", "2024-2-1");
  bill->click("mnuEditUnCheck");
  EXPECT_EQ(asked(), 0u);
}

TEST_P(BillChecks, ADateValueIsComparedByItsDay) {
  bill->head("FDate", DateSerial(2023, 12, 31));
  bill->click("mnuEditUnCheck");
  EXPECT_EQ(asked(), 0u);
  bill->head("FDate", DateSerial(2024, 1, 1));
  bill->click("mnuEditUnCheck");
  EXPECT_EQ(asked(), 1u);
}

TEST_P(BillChecks, WithoutACurrentPeriodEveryDatePasses) {
  session.system_data.answer("declare @Per", recordset({"FStartDate", "FEndDate"}));
  bill->head("FDate", "1999-01-01");
  bill->click("mnuEditUnCheck");
  EXPECT_EQ(asked(), 1u);
}

TEST_P(BillChecks, AnErrorOfTheServiceGoesToTheHostWithCancelTrue) {
  service().fails(Member::CheckBill, 5001, "连接中断");
  for (const char* sTool : {"mnuEditCheck", "mnuEditUnCheck"}) {
    std::vector<Variant> aArgs{make_object<TestTool>(sTool), false};
    try {
      bill->events.fire(Event::MenuBarClick, aArgs);
      FAIL() << sTool << ": the error has to reach the host";
    } catch (const AutomationError& error) {
      EXPECT_EQ(error.number(), 5001);
      EXPECT_EQ(error.description(), "连接中断");
    }
    EXPECT_TRUE(aArgs[1].as<bool>()) << sTool;
  }
  EXPECT_TRUE(bill->shown_bills.empty());
  EXPECT_TRUE(session.log.empty());
}

}  // namespace
}  // namespace arap::testing
