#include "plugin/settlement/settlement_fixture.h"

namespace arap::testing {
namespace {

class MenuSetup : public BothSides {
 protected:
  void SetUp() override {
    trace().clear();
    bill->fire(Event::MenuBarInitialize, {bill->bar});
  }
  /// Caption, description, short text, style, visible, enabled, group and picture of a tool of the bar.
  std::string tool(const char* sName) const {
    const TestTool& oTool = bill->bar->tool(sName);
    std::string sText;
    for (const Member member : {Member::Caption, Member::Description, Member::ToolTipText, Member::Style,
                                Member::Visible, Member::Enabled, Member::BeginGroup}) {
      sText += show(oTool.property(member)) + " ";
    }
    return sText + show(oTool.picture);
  }
};
INSTANTIATE_BOTH_SIDES(MenuSetup);

TEST_P(MenuSetup, TheTraceOfTheStepsIsApproved) { expect_golden("menu_setup"); }

TEST_P(MenuSetup, NewToolsAreSetAsTheMenuWantsThem) {
  EXPECT_EQ(tool("mnuEditUnCheck"), "\"反审核\" \"对单据进行取消审核操作\" \"反审核\" 1 True True False Empty");
  EXPECT_EQ(tool("mnuDataAutoSumAmt"),
            pick("\"自动合计\" \"应收单据自动合计收款金额\" \"合计\" 0 True True True \"SUM\"",
                 "\"自动合计\" \"应付单据自动合计付款金额\" \"合计\" 0 True True True \"SUM\""));
  EXPECT_EQ(tool("mnuViewVch"), "\"调阅凭证\" \"调阅凭证\" \"凭证\" 0 False True True Empty");
  EXPECT_EQ(tool("mnuDataAutoPartAmt"),
            pick("\"自动分摊金额\" \"应收单据自动分摊收款金额\" \"分摊\" 0 True True False \"PART\"",
                 "\"自动分摊金额\" \"应付单据自动分摊付款金额\" \"分摊\" 0 True True False \"PART\""));
  EXPECT_EQ(tool("mnuHelpFile"), "\"帮助目录\" \"帮助目录\" \"帮助目录\" 27 True True True Empty");
  EXPECT_EQ(tool(side.sSelectTool), "\"选源单\" \"选源单\" \"选源单\" 0 True True False \"VIEW\"");
  EXPECT_EQ(plain_number(bill->bar->tool("mnuDataAutoSumAmt").colour_key), 0xFF00FF);
}

TEST_P(MenuSetup, CommandsThatTheseBillsLackAreHidden) {
  for (const auto& [sBand, sTool] :
       std::vector<std::pair<const char*, const char*>>{{"mnuFile", "mnuEditCopy"},
                                                        {"mnuEdit", "mnuCopyRow"},
                                                        {"mnuEdit", "mnuBatchFillField"},
                                                        {"mnuData", "mnuSelectBill"},
                                                        {"BandToolBar", "mnuSelectBill"},
                                                        {"mnuData", "mnuDataAccessory"},
                                                        {"mnuData", "mnuStockQuery"},
                                                        {"mnuFormat", "mnuFormatBack"},
                                                        {"mnuOption", "mnuOptionLinkBill"},
                                                        {"mnuOption", "mnuFormatIndentity"},
                                                        {"mnuOption", "mnuOptionBatchFull"}}) {
    EXPECT_FALSE(bill->bar->tool(sBand, sTool).visible()) << sBand << " " << sTool;
  }
  EXPECT_FALSE(bill->bar->tool("mnuFile", "mnuEditCopy").enabled());
  EXPECT_TRUE(bill->bar->tool("mnuEdit", "mnuEditAddRow").visible());
}

TEST_P(MenuSetup, TheLayoutIsComputedAtTheEnd) {
  EXPECT_EQ(trace().count("RecalcLayout"), 1u);
  EXPECT_GT(trace().position("RecalcLayout"), trace().position("mnuOptionBatchFull"));
}

}  // namespace
}  // namespace arap::testing
