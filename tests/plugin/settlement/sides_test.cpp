#include "settlement/settlement_sides.h"

#include <set>

#include "plugin/settlement/settlement_fixture.h"

namespace arap::testing {
namespace {

class Sides : public SettlementTest {};
INSTANTIATE_BOTH_SIDES(Sides);

TEST_P(Sides, TheTableHoldsTheNamesOfItsSide) {
  const SettlementSide& table = receive() ? kReceiveSide : kPaySide;
  EXPECT_EQ(table.sPartner.view(), side.sPartner);
  EXPECT_EQ(table.sRowPartner.view(), side.sRowPartner);
  EXPECT_EQ(table.sType.view(), side.sType);
  EXPECT_EQ(table.sReceivedFor.view(), side.sReceivedFor);
  EXPECT_EQ(table.sReceived.view(), side.sReceived);
  EXPECT_EQ(table.sSourceNo.view(), side.sSourceNo);
  EXPECT_EQ(table.sRowReceivedFor.view(), side.sRowReceivedFor);
  EXPECT_EQ(table.sRowReceived.view(), side.sRowReceived);
  EXPECT_EQ(table.sOpenFor.view(), side.sOpenFor);
  EXPECT_EQ(table.sOpen.view(), side.sOpen);
  EXPECT_EQ(table.sDiscountAction.view(), side.sDiscountAction);
  EXPECT_EQ(table.sBillTable.view(), side.sBillTable);
  EXPECT_EQ(table.sPartnerTable.view(), side.sPartnerTable);
  EXPECT_EQ(table.sBillService.view(), side.sService);
  EXPECT_EQ(table.nBillClass, side.nBillClass);
}

TEST_P(Sides, TheTableHoldsTheNumbersOfItsSide) {
  const SettlementSide& table = receive() ? kReceiveSide : kPaySide;
  EXPECT_EQ(table.nOrdinaryType, pick(1001, 1003));
  EXPECT_EQ(table.nAdvanceType, pick(1002, 1004));
  EXPECT_EQ(table.nRefundType, pick(1009, 1010));
  EXPECT_EQ(table.nOpenKind, pick(2000001, 2000002));
  EXPECT_EQ(table.nRefundKind, pick(2000003, 2000004));
  EXPECT_EQ(table.nInvoiceClass, pick(1000000, 1000003));
  EXPECT_EQ(table.nOtherInvoiceClass, pick(1000002, 1000004));
  EXPECT_EQ(table.nOtherBillClass, pick(1000205, 1000206));
}

TEST_P(Sides, TheTableHoldsTheToolsViewsAndCodesOfItsSide) {
  const SettlementSide& table = receive() ? kReceiveSide : kPaySide;
  EXPECT_EQ(table.sPartnerText.view(), pick("FCustomerID", "FSupplyId"));
  EXPECT_EQ(table.sSelectTool.view(), pick("mnuSelectBill_2000001", "mnuSelectBill_2000002"));
  EXPECT_EQ(table.sOlderTool1.view(), pick("mnuSelectBill_1000000", "mnuSelectBill_1000003"));
  EXPECT_EQ(table.sOlderTool2.view(), pick("mnuSelectBill_1000002", "mnuSelectBill_1000004"));
  EXPECT_EQ(table.sOlderTool3.view(), pick("mnuSelectBill_1000005", "mnuSelectBill_1000006"));
  EXPECT_EQ(table.sOpenView.view(), pick("vw_arap_RBillList", "vw_arap_PBillList"));
  EXPECT_EQ(table.sRefundView.view(), pick("vw_arap_RBackBillList", "vw_arap_PBackBillList"));
  EXPECT_EQ(table.sOpenViewPartner.view(), pick("FOriCustID", "FOriSupplyID"));
  EXPECT_EQ(table.sRefundViewPartner.view(), pick("FCustID", "FSupplyID"));
  EXPECT_EQ(table.sInvoiceTable.view(), pick("icsale", "ICPurchase"));
  EXPECT_EQ(table.sOtherBillTable.view(), pick("t_rp_rotherbill", "t_rp_potherbill"));
  EXPECT_EQ(table.sHelpTopic.view(), pick("RP1000201", "RP1000202"));
  EXPECT_EQ(table.sLogCode.view(), pick("RP1000201A", "RP1000202A"));
}

TEST_P(Sides, TheClassAnswersToItsName) { EXPECT_EQ(plugin->type_name(), pick("clsReceiveBill", "clsPayBill")); }

TEST_P(Sides, AnUnknownSourceLeavesTheClassSilent) {
  const Ref<TestBill> otherBill = make_settlement_bill(GetParam());
  plugin->call(Member::Show, dictionary());
  EXPECT_EQ(otherBill->events.size(), 0u);
  EXPECT_EQ(bill->events.size(), 1u);
}

TEST_P(Sides, InsideFindsOneOfSeveralValues) {
  EXPECT_TRUE(plugin->call(Member::Inside, 3, 1, 2, 3).as<bool>());
  EXPECT_FALSE(plugin->call(Member::Inside, 3, 1, 2).as<bool>());
  EXPECT_FALSE(plugin->call(Member::Inside, 3).as<bool>());
}

}  // namespace
}  // namespace arap::testing
