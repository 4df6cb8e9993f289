#include "plugin/settlement/settlement_fixture.h"

namespace arap::testing {
namespace {

class AfterSelection : public BothSides {
 protected:
  void rows_are_on_screen() {
    trace().clear();
    bill->fire(Event::AfterSelBill, {Variant()});
  }
};
INSTANTIATE_BOTH_SIDES(AfterSelection);

TEST_P(AfterSelection, WithoutDiscountTheDiscountAccountIsLockedAndEmptied) {
  bill->head("FDiscount", 100.0).head("FDiscountAcctId", 55);
  rows_are_on_screen();
  EXPECT_TRUE(bill->cell_locked("FDiscountAcctId"));
  EXPECT_EQ(bill->number("FDiscountAcctId"), 0);
}

TEST_P(AfterSelection, WithADiscountTheDiscountAccountIsFreeAndKept) {
  bill->head("FDiscount", 95.0).head("FDiscountAcctId", 55);
  rows_are_on_screen();
  EXPECT_FALSE(bill->cell_locked("FDiscountAcctId"));
  EXPECT_EQ(bill->number("FDiscountAcctId"), 55);
}

TEST_P(AfterSelection, TheRateIsLockedInBaseCurrencyAndFreeInAForeignOne) {
  bill->head("FCurrencyId", 1);
  rows_are_on_screen();
  EXPECT_TRUE(bill->cell_locked("FExchangeRate"));
  bill->head("FCurrencyId", 2);
  rows_are_on_screen();
  EXPECT_FALSE(bill->cell_locked("FExchangeRate"));
}

TEST_P(AfterSelection, LocksComeInOrder) {
  bill->head("FDiscount", 95.0).head("FCurrencyId", 2);
  rows_are_on_screen();
  EXPECT_EQ(trace().lines_with("LockCell"), (Lines{"BillCtl.LockCell(FDiscountAcctId, -1, False)",  //
                                                   "BillCtl.LockCell(FExchangeRate, -1, False)"}));
}

TEST_P(AfterSelection, OnlyTheReceiptSetsTheRefundColumns) {
  bill->head(side.sType, side.nRefundType);
  rows_are_on_screen();
  EXPECT_EQ(trace().lines_with(".Visible = ").size(), pick<std::size_t>(2, 0));
  bill->head(side.sType, side.nOrdinaryType);
  rows_are_on_screen();
  EXPECT_EQ(bill->visible("FFKDBillNo"), pick(false, true));
  EXPECT_EQ(bill->visible("FEntryAmount_SRC"), pick(false, true));
}

}  // namespace
}  // namespace arap::testing
