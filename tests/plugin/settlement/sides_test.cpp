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
