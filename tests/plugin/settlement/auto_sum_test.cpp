#include "plugin/settlement/settlement_fixture.h"

namespace arap::testing {
namespace {

class AutoSum : public BothSides {
 protected:
  void SetUp() override {
    bill->head(side.sType, side.nOrdinaryType).head("FCurrencyId", 1).head("FExchangeRate", 1.0);
    bill->head("FDiscount", 100.0);
  }
  void add_source(std::int32_t nCurrency, double dSettledFor, double dSettled) {
    bill->add_row({{"FInterId", 11},
                   {side.sSourceNo, "X-1"},
                   {"FBillCurrencyId", nCurrency},
                   {"FBillSettleAmountFor", dSettledFor},
                   {"FBillSettleAmount", dSettled}});
  }
  void sum() { EXPECT_FALSE(bill->click("mnuDataAutoSumAmt")); }
  /// Settled and received, each in head currency and in base currency, then the discount in both.
  std::vector<double> head() const {
    return {bill->number("FAmountFor", -1),         bill->number("FAmount", -1),
            bill->number(side.sReceivedFor, -1),    bill->number(side.sReceived, -1),
            bill->number("FDiscountAmountFor", -1), bill->number("FDiscountAmount", -1)};
  }
  using Amounts = std::vector<double>;
};
INSTANTIATE_BOTH_SIDES(AutoSum);

TEST_P(AutoSum, TheReceiptsAdvanceTypeEndsItSilentlyOnBothSides) {
  bill->head(side.sType, 1002).head("FAmountFor", 9.0);
  add_source(1, 60, 60);
  sum();
  EXPECT_TRUE(boxes().empty());
  EXPECT_EQ(bill->number("FAmountFor", -1), 9);
}

TEST_P(AutoSum, AnAdvancePaymentIsSummed) {
  bill->head(side.sType, 1004).head("FAmountFor", 9.0);
  add_source(1, 60, 60);
  sum();
  EXPECT_EQ(bill->number("FAmountFor", -1), 60);
}

TEST_P(AutoSum, TheRowsAreCountedBeforeTheDecimalsAreAskedFor) {
  add_source(1, 60, 60);
  session.ledger().fails(Member::GetCurrency, -5, "no");
  trace().clear();
  trace().set_detail(Trace::Detail::All);
  sum();
  const auto aLines = trace().lines_with_any({"GetDataFld(FExchangeRate", "BillEntrys(1)", "GetCurrency("});
  ASSERT_GE(aLines.size(), 3u);
  EXPECT_NE(aLines[aLines.size() - 3].find("FExchangeRate"), std::string::npos);
  EXPECT_NE(aLines[aLines.size() - 2].find("BillEntrys"), std::string::npos);
  EXPECT_NE(aLines.back().find("GetCurrency"), std::string::npos);
}

TEST_P(AutoSum, WithoutASourceRowItAsksForOne) {
  bill->add_row({{"FInterId", 0}, {side.sSourceNo, "X"}, {"FBillSettleAmount", 5.0}});
  sum();
  EXPECT_EQ(boxes(), notice(pick("请至少选择一张需要收款的源单!", "请至少选择一张需要付款的源单!")));
}

TEST_P(AutoSum, WriteOffsThatComeToZeroAreToldEvenIfTheHeadHasAnAmount) {
  bill->head("FAmountFor", 9.0);
  add_source(1, 60, 60);
  add_source(1, -60, -60);
  sum();
  EXPECT_EQ(boxes(), notice(pick("收款单据的本次核销金额总和为零,请先输入本次核销金额!",
                                 "付款单据的本次核销金额总和为零,请先输入本次核销金额!")));
  EXPECT_EQ(bill->number("FAmountFor", -1), 9);
}

TEST_P(AutoSum, RowsWithoutAWriteOffAreToldEvenIfTheHeadHasAnAmount) {
  for (const std::int32_t nCurrency : {1, 2}) {
    session.platform.messages.clear();
    bill->head("FCurrencyId", nCurrency).head("FAmountFor", 9.0);
    add_source(nCurrency, 0, 0);
    sum();
    EXPECT_EQ(boxes(), notice(pick("收款单据的本次核销金额总和为零,请先输入本次核销金额!",
                                   "付款单据的本次核销金额总和为零,请先输入本次核销金额!")));
    EXPECT_EQ(bill->number("FAmountFor", -1), 9);
    bill->remove_rows();
  }
}

TEST_P(AutoSum, ASumBelowACentIsASum) {
  bill->head("FAmountFor", 9.0);
  add_source(1, 0.004, 0.004);
  sum();
  EXPECT_TRUE(boxes().empty());
  EXPECT_EQ(bill->number("FAmountFor", -1), 0);
}

TEST_P(AutoSum, AFullPercentageReceivesEverythingAndGivesNothingAway) {
  add_source(1, 60, 60);
  add_source(1, 40.5, 40.5);
  sum();
  EXPECT_EQ(head(), (Amounts{100.5, 100.5, 100.5, 100.5, 0, 0}));
}

TEST_P(AutoSum, ADiscountIsTheDifferenceOfSettledAndReceived) {
  bill->head("FDiscount", 95.0);
  add_source(1, 1000, 1000);
  sum();
  EXPECT_EQ(head(), (Amounts{1000, 1000, 950, 950, 50, 50}));
}

TEST_P(AutoSum, AForeignBillSumsBothCurrencies) {
  bill->head("FCurrencyId", 2).head("FExchangeRate", 6.5).head("FDiscount", 50.0);
  add_source(2, 10, 60);
  add_source(2, 20, 140);
  sum();
  EXPECT_EQ(head(), (Amounts{30, 200, 15, 100, 15, 100}));
}

TEST_P(AutoSum, ABaseHeadOverForeignRowsTakesTheBaseAmounts) {
  add_source(2, 10, 60.25);
  sum();
  EXPECT_EQ(head(), (Amounts{60.25, 60.25, 60.25, 60.25, 0, 0}));
}

TEST_P(AutoSum, AForeignHeadOverBaseRowsDividesByItsRate) {
  bill->head("FCurrencyId", 2).head("FExchangeRate", 8.0);
  add_source(1, 400, 400);
  sum();
  EXPECT_EQ(head(), (Amounts{50, 400, 50, 400, 0, 0}));
}

TEST_P(AutoSum, OverBaseRowsOnlyTheReceiptLeavesTheReceivedBaseAmountUnrounded) {
  bill->head("FCurrencyId", 2).head("FExchangeRate", 8.0).head("FDiscount", 33.333);
  add_source(1, 100.01, 100.01);
  sum();
  EXPECT_DOUBLE_EQ(bill->number(side.sReceived, -1), pick(33.333 * 100.01 / 100, 33.34));
}

TEST_P(AutoSum, ForeignRowsAreRoundedToBaseDecimalsOneByOneOnTheReceiptOnly) {
  session.add_currency(2, "X", 7, "*", 3);
  bill->head("FCurrencyId", 2).head("FExchangeRate", 6.0);
  add_source(2, 1.234, 7);
  add_source(2, 1.234, 7);
  sum();
  EXPECT_DOUBLE_EQ(bill->number("FAmountFor", -1), pick(2.46, 2.468));
}

TEST_P(AutoSum, BaseAmountsUnderAForeignHeadAreRoundedRowByRow) {
  bill->head("FCurrencyId", 2).head("FExchangeRate", 6.0);
  add_source(2, 1, 7.005);
  add_source(2, 1, 7.005);
  sum();
  EXPECT_EQ(bill->number("FAmount", -1), 14.02);
}

TEST_P(AutoSum, EachAmountHasTheDecimalsOfItsCurrency) {
  session.add_currency(3, "X", 8, "*", 0);
  bill->head("FCurrencyId", 3).head("FExchangeRate", 8.0).head("FDiscount", 50.0);
  add_source(3, 25, 200.25);
  sum();
  // 12.5 and 100.125 are halves, and the payment's discount amounts have two decimals in both currencies.
  EXPECT_EQ(head(), (Amounts{25, 200.25, 13, 100.13, 12, 100.12}));
}

TEST_P(AutoSum, OverBaseRowsTheSumIsDividedUnroundedAndRoundedToTheHeadsDecimals) {
  session.add_currency(2, "X", 8, "*", 3);
  bill->head("FCurrencyId", 2).head("FExchangeRate", 16.0).head("FDiscount", 50.0);
  add_source(1, 1.16, 1.16);
  sum();
  EXPECT_EQ(bill->number("FAmountFor", -1), 0.073);       // 0.0725
  EXPECT_EQ(bill->number(side.sReceivedFor, -1), 0.036);  // 0.03625, not the half of 0.073
}

TEST_P(AutoSum, ANegativeIdIsNoSource) {
  add_source(1, 60, 60);
  bill->set_value("FInterId", 1, std::int32_t{-3});
  sum();
  EXPECT_EQ(boxes(), notice(pick("请至少选择一张需要收款的源单!", "请至少选择一张需要付款的源单!")));
}

TEST_P(AutoSum, TheRowCurrencyIsTheLastSourceRowsOrThePaymentsFirstRow) {
  // Rows in the head's currency and in base currency pass on the receipt; the payment refuses the mix, so a first row
  // without a source shows which row is read.
  bill->head("FCurrencyId", 2).head("FExchangeRate", 8.0);
  bill->add_row({{"FInterId", 0}, {side.sSourceNo, "X-0"}, {"FBillCurrencyId", 2}});
  add_source(1, 400, 480);
  sum();
  EXPECT_EQ(bill->number("FAmountFor", -1), pick(50.0, 400.0));
  EXPECT_EQ(bill->number("FAmount", -1), pick(400.0, 480.0));
}

TEST_P(AutoSum, DiscountAmountsHaveTheCurrencysDecimalsOrThePaymentsTwo) {
  session.add_currency(2, "X", 7, "*", 3);
  bill->head("FCurrencyId", 2).head("FExchangeRate", 6.0).head("FDiscount", 99.0);
  add_source(2, 1.25, 7.5);
  sum();
  // 1.25 less 1.238 (1.2375 rounded half away from zero at three decimals).
  EXPECT_DOUBLE_EQ(bill->number("FDiscountAmountFor", -1), pick(0.012, 0.01));
}

TEST_P(AutoSum, AHeadRateOfZeroIsToldAsAnError) {
  bill->head("FCurrencyId", 2).head("FExchangeRate", 0.0).head("FAmountFor", 9.0);
  add_source(1, 400, 400);
  sum();
  ASSERT_EQ(boxes().size(), 1u);
  EXPECT_EQ(boxes()[0].sText, AutomationError(ErrorNumber::DivisionByZero).description());
  EXPECT_EQ(bill->number("FAmountFor", -1), 9);
}

TEST_P(AutoSum, TheHeadIsWrittenAndShownInOrder) {
  add_source(1, 60, 60);
  trace().clear();
  sum();
  const std::string sFor = side.sReceivedFor;
  const std::string sBase = side.sReceived;
  EXPECT_EQ(trace().lines_with("SetText"), (std::vector<std::string>{
                                               "BillEvent.SetText(FAmountFor, 60, -1)",
                                               "BillEvent.SetText(FAmount, 60, -1)",
                                               "BillEvent.SetText(" + sFor + ", 60, -1)",
                                               "BillEvent.SetText(" + sBase + ", 60, -1)",
                                               "BillEvent.SetText(FDiscountAmountFor, 0, -1)",
                                               "BillEvent.SetText(FDiscountAmount, 0, -1)",
                                           }));
}

TEST_P(AutoSum, RowsBehindAGapAreNotReached) {
  add_source(1, 10, 10);
  bill->add_row({{"FInterId", ""}});
  add_source(1, 20, 20);
  sum();
  EXPECT_EQ(bill->number("FAmountFor", -1), 10);
}

}  // namespace
}  // namespace arap::testing
