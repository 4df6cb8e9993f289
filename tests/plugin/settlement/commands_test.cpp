#include "frame/conversions.h"
#include "plugin/settlement/settlement_fixture.h"

namespace arap::testing {
namespace {

class Commands : public BothSides {
 protected:
  void SetUp() override {
    bill->fire(Event::MenuBarInitialize, {bill->bar});
    trace().clear();
  }
  std::int32_t tool_id() const {
    return static_cast<std::int32_t>(plain_number(bill->bar->tool(side.sSelectTool).property(Member::ToolId)));
  }
};
INSTANTIATE_BOTH_SIDES(Commands);

TEST_P(Commands, TheSelectionTakesTheKindOfTheType) {
  EXPECT_FALSE(bill->click(side.sSelectTool));
  EXPECT_EQ(tool_id(), side.nOpenKind);
  for (const std::int32_t nType : {side.nRefundType, side.nAdvanceType, 5}) {
    bill->head(side.sType, nType);
    EXPECT_FALSE(bill->click(side.sSelectTool));
    EXPECT_EQ(tool_id(), side.nRefundKind) << nType;
  }
  EXPECT_TRUE(boxes().empty());
}

TEST_P(Commands, WithoutAPartnerTheSelectionWarnsAndIsCancelled) {
  bill->head(side.sPartner, 0, "", "");
  EXPECT_TRUE(bill->click(side.sSelectTool));
  EXPECT_EQ(boxes(), warning(pick("请选择客户", "请选择供应商")));
  EXPECT_FALSE(trace().has("ToolId"));
}

TEST_P(Commands, TheLookUpOnTheSourceNumberOpensTheSelection) {
  for (const std::int32_t nType : {side.nOrdinaryType, side.nRefundType}) {
    bill->head(side.sType, nType);
    bill->set_active_cell(side.sSourceNo, 1);
    std::string sName;
    std::string sTag;
    bill->on_select = [&](const Ref<Object>& oTool) {
      sName = plain_text(oTool->get(Member::Name));
      sTag = plain_text(oTool->get(Member::Tag));
    };
    EXPECT_FALSE(bill->click("mnuDataLookUp"));
    EXPECT_EQ(sName, side.sSelectTool) << "whatever the type";
    EXPECT_EQ(sTag, std::to_string(nType == side.nOrdinaryType ? side.nOpenKind : side.nRefundKind));
    EXPECT_EQ(plain_text(bill->bar->tool("mnuDataLookUp").property(Member::ToolId)), sTag);
  }
}

TEST_P(Commands, TheLookUpOnAnotherCellOrOnNoneIsTheHosts) {
  for (const char* sKey : {"FBillSettleAmountFor", ""}) {
    bill->set_active_cell(sKey, 1);
    EXPECT_FALSE(bill->click("mnuDataLookUp"));
  }
  EXPECT_FALSE(trace().has("DoSelBillExt"));
  EXPECT_FALSE(trace().has("ToolId"));
}

TEST_P(Commands, TheLookUpKnowsTheSourceNumberInAnySpelling) {
  bill->info(side.sSourceNo)->set("FKey", UpperCase(side.sSourceNo));
  bill->set_active_cell(side.sSourceNo, 1);
  EXPECT_FALSE(bill->click("mnuDataLookUp"));
  EXPECT_EQ(trace().count("DoSelBillExt"), 1u);
}

TEST_P(Commands, WithoutAPartnerTheLookUpWarnsAndIsCancelled) {
  bill->head(side.sPartner, 0, "", "");
  bill->set_active_cell(side.sSourceNo, 1);
  EXPECT_TRUE(bill->click("mnuDataLookUp"));
  EXPECT_EQ(boxes(), warning(pick("请选择客户", "请选择供应商")));
  EXPECT_FALSE(trace().has("DoSelBillExt"));
  // The kind is chosen before the partner is asked for, unlike with the selection's own command.
  EXPECT_EQ(plain_number(bill->bar->tool("mnuDataLookUp").property(Member::ToolId)), side.nOpenKind);
}

TEST_P(Commands, TheStockQueryNeverReachesTheHost) {
  EXPECT_TRUE(bill->click("mnuStockQuery"));
  EXPECT_EQ(trace().lines(), Lines{});
}

TEST_P(Commands, EveryOtherKeyIsTheHostsAlone) {
  for (const char* sTool : {"mnuEditAddRow", "mnuEditDelRow", "mnuFilePrint", ""}) {
    trace().clear();
    EXPECT_FALSE(bill->click(sTool)) << sTool;
    EXPECT_EQ(trace().lines(), Lines{}) << sTool;
  }
}

TEST_P(Commands, ToolNamesAreComparedExactly) {
  for (const char* sTool : {"MNUSTOCKQUERY", "mnustockquery", "mnuStockquery"}) {
    EXPECT_FALSE(bill->fire_cancelable(Event::MenuBarClick, {make_object<TestTool>(sTool)})) << sTool;
  }
}

TEST_P(Commands, TheOtherSidesSelectionIsUnknown) {
  EXPECT_FALSE(bill->click(other.sSelectTool));
  EXPECT_EQ(trace().lines(), Lines{});
}

TEST_P(Commands, ThePaymentHasNoColoursAndNoOlderSources) {
  if (GetParam() == Side::Receive) return;
  for (const char* sTool : {"mnuEditRedBill", "mnuEditBlueBill", "mnuSelectBill_1000000", "mnuSelectBill_1000003",
                            "mnuSelectBill_1000004", "mnuSelectBill_1000006"}) {
    trace().clear();
    EXPECT_FALSE(bill->click(sTool)) << sTool;
    EXPECT_EQ(trace().lines(), Lines{}) << sTool;
  }
}

class OlderSources : public Commands {
 protected:
  /// Which of the three items is checked.
  Lines checked() const {
    Lines aChecked;
    for (const char* sItem : {"mnuSelectBill_1000000", "mnuSelectBill_1000002", "mnuSelectBill_1000005"}) {
      if (bill->bar->tool("mnuSelectBill", sItem).checked()) aChecked.emplace_back(sItem);
    }
    return aChecked;
  }
};
INSTANTIATE_RECEIPT(OlderSources);

TEST_P(OlderSources, ActAsRadioButtons) {
  for (const char* sItem : {"mnuSelectBill_1000000", "mnuSelectBill_1000002", "mnuSelectBill_1000005"}) {
    EXPECT_FALSE(bill->click(sItem)) << sItem;
    EXPECT_EQ(checked(), (Lines{sItem}));
    EXPECT_TRUE(bill->bar->tool(sItem).checked());
  }
}

TEST_P(OlderSources, OnlyTheThirdSetsTheToolId) {
  bill->click("mnuSelectBill_1000000");
  bill->click("mnuSelectBill_1000002");
  EXPECT_FALSE(trace().has("ToolId"));
  bill->click("mnuSelectBill_1000005");
  EXPECT_EQ(plain_number(bill->bar->tool("mnuSelectBill_1000005").property(Member::ToolId)), 2000001);
}

TEST_P(OlderSources, WithTheSubMenuDisabledEachIsCancelledAndNothingChanges) {
  bill->bar->tool("mnuSelectBill").set(Member::Enabled, false);
  for (const char* sItem : {"mnuSelectBill_1000000", "mnuSelectBill_1000002", "mnuSelectBill_1000005"}) {
    EXPECT_TRUE(bill->click(sItem)) << sItem;
  }
  EXPECT_EQ(checked(), Lines{});
}

TEST_P(OlderSources, AnAdvanceCancelsTheFirstTwo) {
  bill->head(side.sType, side.nAdvanceType);
  EXPECT_TRUE(bill->click("mnuSelectBill_1000000"));
  EXPECT_TRUE(bill->click("mnuSelectBill_1000002"));
  EXPECT_EQ(checked(), Lines{});
  EXPECT_FALSE(bill->click("mnuSelectBill_1000005"));
  EXPECT_EQ(checked(), (Lines{"mnuSelectBill_1000005"}));
}

TEST_P(OlderSources, ADisabledSecondItemChangesNothingAndCancelsNothing) {
  bill->bar->tool("mnuSelectBill", "mnuSelectBill_1000002").set(Member::Enabled, false);
  EXPECT_FALSE(bill->click("mnuSelectBill_1000002"));
  EXPECT_EQ(checked(), Lines{});
}

}  // namespace
}  // namespace arap::testing
