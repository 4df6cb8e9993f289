#include "other_bill_fixture.h"

namespace arap::testing {
namespace {

class OtherBars : public OtherBillTest {
 protected:
  void SetUp() override {
    bill->bar = TestBar::of_bill_window();
    trace().clear();
  }
  void build_menu() { bill->fire(Event::MenuBarInitialize, {bill->bar}); }
  /// Caption, description, category, style, enabled, visible and group of a tool of the bar.
  std::string tool(const char* sName) const {
    const TestTool& oTool = bill->bar->tool(sName);
    std::string sText;
    for (const Member member : {Member::Caption, Member::Description, Member::Category, Member::Style, Member::Enabled,
                                Member::Visible, Member::BeginGroup}) {
      sText += (sText.empty() ? "" : " ") + show(oTool.property(member));
    }
    return sText;
  }
};
INSTANTIATE_OTHER_SIDES(OtherBars);

TEST_P(OtherBars, TheMenuIsSetUpStepByStep) {
  build_menu();
  expect_golden("menu_setup");
}

TEST_P(OtherBars, NewToolsAreSetAsTheMenuWantsThem) {
  build_menu();
  EXPECT_EQ(tool("mnuViewVch"), "\"调阅凭证\" \"调阅凭证\" \"凭证\" 0 True True True");
  EXPECT_EQ(tool("mnuEditUnCheck"), "\"反审核\" \"对单据进行取消审核操作\" \"反审核\" 1 True True False");
  EXPECT_EQ(tool("mnuHelpFile"), "\"帮助目录\" \"帮助目录\" \"帮助目录\" 27 True True True");
}

TEST_P(OtherBars, TheVoucherCommandTakesThePlaceOfTheLookUp) {
  build_menu();
  const auto aNames = bill->bar->names("mnuData");
  const auto voucher = std::find(aNames.begin(), aNames.end(), "mnuViewVch");
  ASSERT_NE(voucher, aNames.end());
  EXPECT_EQ(*(voucher + 1), "mnuDataLookUp");
}

TEST_P(OtherBars, UncheckAndHelpAreInTheirMenus) {
  build_menu();
  EXPECT_TRUE(bill->bar->has("mnuEdit", "mnuEditUnCheck"));
  EXPECT_EQ(bill->bar->names("mnuOption").back(), "mnuHelpFile");
  EXPECT_TRUE(bill->bar->band_state("mnuOption", Member::Enabled));
}

TEST_P(OtherBars, TheReceivableMenuTakesBothRowCommandsAwayThePayableMenuDisablesTheCopy) {
  build_menu();
  const auto copy = [this](auto member) { return (bill->bar->tool("mnuEdit", "mnuCopyRow").*member)(); };
  const auto fill = [this](auto member) { return (bill->bar->tool("mnuEdit", "mnuBatchFillField").*member)(); };
  EXPECT_FALSE(copy(&TestTool::enabled));
  EXPECT_EQ(copy(&TestTool::visible), !receivable_side());
  EXPECT_EQ(fill(&TestTool::enabled), !receivable_side());
  EXPECT_EQ(fill(&TestTool::visible), !receivable_side());
}

TEST_P(OtherBars, CommandsThatTheseBillsLackAreDisabledAndStayVisible) {
  build_menu();
  for (const auto& [sBand, sTool] :
       std::vector<std::pair<const char*, const char*>>{{"mnuData", "mnuDataAccessory"},
                                                        {"mnuData", "mnuStockQuery"},
                                                        {"mnuFormat", "mnuFormatBack"},
                                                        {"mnuOption", "mnuOptionLinkBill"},
                                                        {"mnuOption", "mnuFormatIndentity"},
                                                        {"mnuOption", "mnuOptionBatchFull"}}) {
    EXPECT_FALSE(bill->bar->tool(sBand, sTool).enabled()) << sTool;
    EXPECT_TRUE(bill->bar->tool(sBand, sTool).visible()) << sTool;
  }
}

TEST_P(OtherBars, TheLayoutIsComputedAfterEachOfTheThreeInsertions) {
  build_menu();
  EXPECT_EQ(trace().count("RecalcLayout"), 3u);
  EXPECT_GT(trace().position("RecalcLayout"), trace().position("mnuViewVch"));
  EXPECT_EQ(trace().lines().back(), "Bar.RecalcLayout()");
}

TEST_P(OtherBars, ABandThatTheMenuLacksIsAnErrorForTheHost) {
  bill->bar = TestBar::with_tools({{"mnuEdit", {"mnuCopyRow", "mnuBatchFillField"}}});
  EXPECT_THROW(build_menu(), AutomationError);
}

TEST_P(OtherBars, ALackingToolRaisesTheBarsErrorAndNothingBehindItRuns) {
  build_menu();
  const Lines aFull = trace().lines();
  for (const auto& [sBand, sTool] :
       std::vector<std::pair<std::string, std::string>>{{"mnuEdit", "mnuCopyRow"},
                                                        {"mnuEdit", pick("mnuBatchFillField", "mnuCopyRow")},
                                                        {"mnuData", "mnuDataAccessory"},
                                                        {"mnuData", "mnuStockQuery"},
                                                        {"mnuFormat", "mnuFormatBack"},
                                                        {"mnuOption", "mnuOptionLinkBill"},
                                                        {"mnuOption", "mnuFormatIndentity"},
                                                        {"mnuOption", "mnuOptionBatchFull"}}) {
    bill->bar = TestBar::of_bill_window();
    bill->bar->remove(sBand, sTool);
    trace().clear();
    EXPECT_THROW(build_menu(), AutomationError) << sTool;
    const Lines aHere = trace().lines();
    ASSERT_LT(aHere.size(), aFull.size()) << sTool;
    EXPECT_TRUE(std::equal(aHere.begin(), aHere.end(), aFull.begin())) << sTool;
    EXPECT_TRUE(aFull[aHere.size()].starts_with(sBand + "." + sTool + ".Enabled")) << sTool;
  }
}

TEST_P(OtherBars, TheToolbarIsSetUpStepByStep) {
  bill->fire(Event::BarInitialize, {bill->bar});
  expect_golden("toolbar_setup");
}

}  // namespace
}  // namespace arap::testing
