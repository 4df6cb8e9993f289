#include "other_list_fixture.h"

namespace arap::testing {
namespace {

class OtherListBar : public OtherListTest {
 protected:
  void build_bar() { list->fire(Event::BarInitialize, {list->bar}); }
  const TestBar& bar() const { return *list->bar; }
};
INSTANTIATE_OTHER_SIDES(OtherListBar);

TEST_P(OtherListBar, TheBarIsBuiltStepByStep) {
  build_bar();
  expect_golden("list_bar");
}

TEST_P(OtherListBar, TheTemplateToolsAreCaptionedAndPlaced) {
  build_bar();
  const auto words = [this](const char* sTool) {
    return bar().tool(sTool).caption() + " " + plain_text(bar().tool(sTool).property(Member::Description));
  };
  EXPECT_EQ(words("Check"), "审核 审核");
  EXPECT_EQ(words("UnCheck"), "反审核 反审");
  EXPECT_EQ(words("Voucher"), "凭证 凭证");
  for (const char* sTool : {"Check", "UnCheck", "Voucher"}) EXPECT_TRUE(bar().has("BandToolBar", sTool)) << sTool;
  for (const char* sBand : {"mnuEdit", "mnuPop"}) {
    EXPECT_EQ(bar().names(sBand)[4], "Check") << sBand;
    EXPECT_EQ(bar().names(sBand)[5], "UnCheck") << sBand;
    EXPECT_FALSE(bar().has(sBand, "Voucher")) << sBand;
    EXPECT_TRUE(bar().tool(sBand, "Check").property(Member::BeginGroup).as<bool>()) << sBand;
    EXPECT_FALSE(bar().tool(sBand, "mnuEditCopyEntry").visible()) << sBand;
  }
}

TEST_P(OtherListBar, CommandsThatTheseListsLackAreHidden) {
  build_bar();
  for (const char* sTool : {"mnuDataViewPrvBill", "mnuDataViewNextBill"}) {
    EXPECT_FALSE(bar().tool(sTool).visible()) << sTool;
    EXPECT_FALSE(bar().tool("mnuData", sTool).visible()) << sTool;
  }
  EXPECT_FALSE(bar().tool("mnuView", "mnuViewToolBar").visible());
  EXPECT_FALSE(bar().tool("mnuView", "mnuViewToolCaption").visible());
  EXPECT_FALSE(bar().tool("menu", "mnuPushBill").visible());
  EXPECT_FALSE(bar().tool("mnuFile", "mnuExportData").visible());
  for (const char* sTool : {"mnuFormatRowHeight", "mnuFormatFont", "mnuFormatOpt", "mnuDataAccessory", "mnuPreHeadFoot",
                            "mnuFileSeriesPrintAll", "mnuFileSeriesPrintViewAll"}) {
    EXPECT_FALSE(bar().tool(sTool).visible()) << sTool;
    EXPECT_FALSE(bar().tool(sTool).enabled()) << sTool;
  }
  EXPECT_FALSE(bar().tool("mnuEdit", "mnuEditCopy").enabled());
  EXPECT_FALSE(bar().tool("mnuFile", "mnuEditCopy").enabled());
}

TEST_P(OtherListBar, CheckingByLevelsTakesBothCommandsAwayOnlyWhenItExistsAndRuns) {
  for (const auto& [bExists, bRuns] : {std::pair{true, true}, {true, false}, {false, true}, {false, false}}) {
    list->bar = TestBar::of_list_window();
    list->form->property(Member::ExistMultiCheck, bExists).property(Member::IsRun, bRuns);
    build_bar();
    for (const char* sTool : {"Check", "UnCheck"}) {
      EXPECT_EQ(bar().tool(sTool).visible(), !(bExists && bRuns)) << sTool;
      EXPECT_EQ(bar().tool(sTool).enabled(), !(bExists && bRuns)) << sTool;
    }
    EXPECT_TRUE(bar().tool("Voucher").visible());
  }
}

TEST_P(OtherListBar, ASelectionWindowLosesItsCommandsAndGetsNone) {
  list->form->property(Member::ShowMode, 3);
  build_bar();
  expect_golden("list_bar_of_a_selection");
  for (const char* sTool : {"mnuFileNew", "mnuEditModify", "mnuEditDelete", "mnuEditCopy", "mnuDataFilter",
                            "mnuDataAccessory", "mnuCaculate", "mnuEdit"}) {
    EXPECT_FALSE(bar().tool(sTool).visible()) << sTool;
  }
  EXPECT_FALSE(bar().has("Check"));
  EXPECT_TRUE(bar().tool("mnuFormatFont").enabled());
  EXPECT_FALSE(bar().tool("mnuEdit", "mnuEditCopy").enabled());
}

TEST_P(OtherListBar, ABarThatLacksNearlyEverythingStopsNothing) {
  list->bar = TestBar::with_tools({{"mnuFile", {"mnuEditCopy", "mnuExportData"}}});
  EXPECT_NO_THROW(build_bar());
  EXPECT_TRUE(bar().has("Check"));
  EXPECT_FALSE(bar().tool("mnuFile", "mnuExportData").visible());
  EXPECT_FALSE(bar().tool("mnuFile", "mnuEditCopy").enabled());
}

TEST_P(OtherListBar, TheMenuGetsTheRelatedBillsBack) {
  build_bar();
  list->bar->tool("mnuView", "mnuDataViewNextBill").set(Member::Enabled, false);
  list->fire(Event::MenuBarInitialize, {list->bar});
  EXPECT_TRUE(bar().tool("mnuView", "mnuDataViewNextBill").visible());
  EXPECT_TRUE(bar().tool("mnuView", "mnuDataViewNextBill").enabled());
}

TEST_P(OtherListBar, AMenuWithoutTheToolIsAnErrorForTheHost) {
  EXPECT_THROW(list->fire(Event::MenuBarInitialize, {make_object<TestBar>()}), AutomationError);
}

}  // namespace
}  // namespace arap::testing
