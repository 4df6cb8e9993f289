#include "frame/bar_state.h"

#include <gtest/gtest.h>

#include <optional>

#include "support/test_bill.h"
#include "support/test_session.h"

namespace arap::testing {
namespace {

class BarStateTest : public ::testing::Test {
 protected:
  TestSession session;
  Ref<TestBill> oBill = make_object<TestBill>();
  BillEvent bill{Ref<Object>(oBill)};
};

struct ActionCase {
  const char* sAction;
  std::optional<bool> bEnabled;
  std::optional<bool> bVisible;
};

class EditActionTest : public BarStateTest, public ::testing::WithParamInterface<ActionCase> {};

TEST_P(EditActionTest, SetsTheRowCommandsAndHidesCopyAndFill) {
  const ActionCase& expected = GetParam();
  SetEditBarState(bill, expected.sAction);
  for (const char* sTool : {"mnuEditDelRow", "mnuEditAddRow"}) {
    EXPECT_EQ(oBill->bar_status(sTool, "Enabled"), expected.bEnabled) << sTool;
    EXPECT_EQ(oBill->bar_status(sTool, "Visible"), expected.bVisible) << sTool;
  }
  // The look-up of base data is used as the row commands are shown.
  EXPECT_EQ(oBill->bar_status("mnuDataLookUp", "Enabled"), expected.bVisible);
  EXPECT_EQ(oBill->bar_status("mnuCopyRow", "Visible"), false);
  EXPECT_EQ(oBill->bar_status("mnuBatchFillField", "Visible"), false);
}

INSTANTIATE_TEST_SUITE_P(Actions, EditActionTest,
                         ::testing::Values(ActionCase{"mnuEditCheck", false, {}},
                                           ActionCase{"mnuEditUnCheck", true, {}}, ActionCase{"miAffirm", false, {}},
                                           ActionCase{"miUnAffirm", true, {}}, ActionCase{"miEnable", true, {}},
                                           ActionCase{"miDisable", false, {}}, ActionCase{"DisableEdit", {}, false},
                                           ActionCase{"EnableEdit", {}, true}, ActionCase{"EnableSel", {}, {}},
                                           ActionCase{"DisableSel", {}, {}}, ActionCase{"unknown", {}, {}},
                                           ActionCase{"", {}, {}}),
                         [](const auto& test) {
                           return *test.param.sAction == '\0' ? "NoAction" : std::string(test.param.sAction);
                         });

TEST_F(BarStateTest, ActionIsComparedWithoutRegardToCase) {
  SetEditBarState(bill, "DISABLEEDIT");
  EXPECT_EQ(oBill->bar_status("mnuEditDelRow", "Visible"), false);
}

TEST_F(BarStateTest, FailingStatementIsSkippedAndTheOthersRun) {
  for (int nCall = 1; nCall <= 5; ++nCall) {
    trace().clear();
    trace().fail_at(nCall);
    EXPECT_NO_THROW(SetEditBarState(bill, "DisableEdit"));
    EXPECT_TRUE(trace().faulted());
    EXPECT_EQ(trace().count("SetBarStatus"), 5u);
    EXPECT_EQ(trace().count("-> error"), 1u);
  }
}

TEST_F(BarStateTest, KeyThatTheBarLacksChangesNothingAndRaisesNothing) {
  oBill->bar = TestBar::with_tools({{"BandToolBar", {"mnuFileNew"}}});
  oBill->bill_status = 0;
  for (const char* sAction : {"mnuEditCheck", "DisableEdit", "EnableEdit"}) {
    EXPECT_NO_THROW(SetEditBarState(bill, sAction)) << sAction;
  }
  EXPECT_NO_THROW(DisableBodyCommands(bill));
  const ActiveBar bar{Ref<Object>(oBill->bar)};
  EXPECT_NO_THROW(HideTools(bar, {"mnuCopyRow"_key}));
  EXPECT_NO_THROW(HideBandTools(bar, "mnuEdit"_key, {"mnuFileNew"_key}));
  EXPECT_NO_THROW(HideBandTools(bar, "BandToolBar"_key, {"mnuCopyRow"_key}));
  EXPECT_NO_THROW(SwitchOffTools(bar, {"mnuCopyRow"_key}));
  EXPECT_EQ(oBill->bar->tools().names(), std::vector<std::string>{"mnuFileNew"});
  EXPECT_TRUE(oBill->bar->tool("BandToolBar", "mnuFileNew").visible());
  EXPECT_TRUE(oBill->bar->tool("BandToolBar", "mnuFileNew").enabled());
}

TEST_F(BarStateTest, BillThatCanNotBeEditedLosesItsBodyCommands) {
  oBill->bill_status = 0;
  DisableBodyCommands(bill);
  for (const char* sTool : {"mnuEditDelRow", "mnuEditAddRow", "mnuBatchFillField", "mnuDataLookUp"}) {
    EXPECT_EQ(oBill->bar_status(sTool, "Enabled"), false) << sTool;
  }
  EXPECT_EQ(trace().count("SetBarStatus"), 4u);
}

TEST_F(BarStateTest, BillThatCanBeEditedKeepsItsBodyCommands) {
  oBill->bill_status = 2;
  DisableBodyCommands(bill);
  EXPECT_EQ(trace().count("SetBarStatus"), 0u);
}

class FindToolTest : public ::testing::Test {
 protected:
  std::int32_t Find(const char* sTool) { return FindToolIndex(ActiveBar(Ref<Object>(oBar)), "BandToolBar", sTool); }
  TestSession session;
  Ref<TestBar> oBar = TestBar::with_tools({{"BandToolBar", {"mnuFileNew", "mnuFileSave", "mnuViewVch"}}});
};

TEST_F(FindToolTest, AnswersTheZeroBasedPosition) {
  EXPECT_EQ(Find("mnuFileNew"), 0);
  EXPECT_EQ(Find("mnuFileSave"), 1);
  EXPECT_EQ(Find("mnuViewVch"), 2);
}

TEST_F(FindToolTest, ComparesWithoutRegardToCase) { EXPECT_EQ(Find("MNUVIEWVCH"), 2); }

TEST_F(FindToolTest, ToolThatIsNotThereIsLikeTheFirstOne) { EXPECT_EQ(Find("mnuDataNext"), 0); }

TEST_F(FindToolTest, BandThatIsNotThereRaisesTheErrorOfTheBar) {
  EXPECT_THROW(FindToolIndex(ActiveBar(Ref<Object>(oBar)), "none", "mnuFileNew"), AutomationError);
}

}  // namespace
}  // namespace arap::testing
