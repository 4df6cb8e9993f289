#include "plugin/settlement/settlement_fixture.h"

namespace arap::testing {
namespace {

class NewBill : public SettlementTest {
 protected:
  void open() { bill->fire(Event::AfterNewBill); }
};
INSTANTIATE_BOTH_SIDES(NewBill);

TEST_P(NewBill, TheTraceOfANewBillIsApproved) {
  open();
  expect_golden("after_new_bill");
}

TEST_P(NewBill, HidesTheCheckCommandsAndOffersTheSources) {
  open();
  for (const char* sTool : {"mnuEditCheck", "mnuEditUnCheck", "mnuEditChange", "mnuCopyRow"}) {
    EXPECT_EQ(bill->bar_status(sTool, "Visible"), false) << sTool;
  }
  EXPECT_EQ(bill->bar_status(side.sSelectTool, "Enabled"), true);
  EXPECT_EQ(bill->bar_status("mnuCaculate", "Enabled"), true);
}

TEST_P(NewBill, WithoutTheEditLockTheBarStaysAsItIs) {
  bill->mutex_success = false;
  open();
  EXPECT_EQ(bill->bar_status("mnuEditCheck", "Visible"), std::nullopt);
  EXPECT_EQ(bill->bar_status("mnuCaculate", "Enabled"), std::nullopt);
}

TEST_P(NewBill, OnlyTheModeOfANewBillSetsTheBar) {
  for (const std::int32_t nMode : {0, 2}) {
    bill->edit_mode = nMode;
    open();
    EXPECT_EQ(bill->bar_status("mnuEditCheck", "Visible"), std::nullopt) << nMode;
    EXPECT_EQ(bill->bar_status("mnuCaculate", "Enabled"), std::nullopt) << nMode;
  }
}

TEST_P(NewBill, StartsInBaseCurrencyWithAmountsOfZeroAndNoDiscount) {
  use_currency(2);
  set_amounts(*bill, GetParam(), 50, 40);
  bill->head("FDiscountAmountFor", 10.0);
  open();
  EXPECT_EQ(bill->number("FCurrencyID"), 1);
  for (const char* sKey : {"FAmountFor", "FAmount", side.sReceivedFor, side.sReceived, "FDiscountAmount"}) {
    EXPECT_EQ(bill->number(sKey), 0) << sKey;
  }
  EXPECT_EQ(bill->number("FDiscount"), 100);
}

TEST_P(NewBill, LocksTheRateAndTheDiscountAccount) {
  open();
  EXPECT_TRUE(locked("FExchangeRate"));
  EXPECT_TRUE(locked("FDiscountAcctId"));
  EXPECT_FALSE(locked(side.sType));
  EXPECT_FALSE(locked(side.sPartner));
}

TEST_P(NewBill, TheDecimalsAreSetInTheRowOfTheEditMode) {
  open();
  EXPECT_TRUE(trace().has("SetFieldDecimals(FDiscount, 1, 6)"));
  EXPECT_TRUE(trace().has("SetFieldDecimals(FAmountFor, 1, 2)"));
  EXPECT_EQ(trace().count("SetColumnDecimals("), 3u);  // FAmount and the two received amounts
  EXPECT_FALSE(trace().has("FDiscountAmountr"));
}

TEST_P(NewBill, AKeyOutsideTheSourceMapGetsNoDecimals) {
  bill->bill_map->erase("FAmount");
  open();
  EXPECT_FALSE(trace().has("SetColumnDecimals(FAmount,"));
  EXPECT_TRUE(trace().has("SetColumnDecimals(" + std::string(side.sReceived) + ","));
}

TEST_P(NewBill, NoFieldIsMarkedAsChanged) {
  open();
  for (const char* sKey : {"FAmountFor", "FCurrencyID", "FDiscount", "FDiscountAcctId", side.sType}) {
    EXPECT_EQ(bill->modified(sKey), 0) << sKey;
  }
}

TEST_P(NewBill, TheRefundColumnsShowForTheRefundTypeOnly) {
  open();
  EXPECT_FALSE(bill->visible("FFKDBillNo"));
  EXPECT_FALSE(bill->visible("FEntryAmount_SRC"));
  use_type(side.nRefundType);
  open();
  EXPECT_TRUE(bill->visible("FFKDBillNo"));
  EXPECT_TRUE(bill->visible("FEntryAmount_SRC"));
}

TEST_P(NewBill, ThePaymentEmptiesTheDiscountAccountAtOnce) {
  bill->head("FDiscountAcctId", std::int32_t{55}).head("FDiscount", 90.0);
  open();
  // Both sides end without an account: 100 per cent empties it. Only the payment does so before the type is reset.
  const auto nReset = trace().position("SetText(" + std::string(side.sType));
  const auto nEmptied = trace().position("FDiscountAcctId.FFLD = 0");
  ASSERT_GE(nEmptied, 0);
  EXPECT_EQ(nEmptied < nReset, !receive());
  const auto nPercentage = trace().position("FDiscount.FFLD = 100");
  EXPECT_EQ(nPercentage >= 0 && nPercentage < nReset, !receive());
  EXPECT_EQ(bill->number("FDiscountAcctId"), 0);
}

}  // namespace
}  // namespace arap::testing
