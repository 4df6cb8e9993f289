#include "plugin/settlement/settlement_fixture.h"

namespace arap::testing {
namespace {

class AutoApportion : public BothSides {
 protected:
  void SetUp() override {
    bill->head(side.sType, side.nOrdinaryType).head("FCurrencyId", 1).head("FExchangeRate", 1.0);
  }
  void add_source(std::int32_t nCurrency, double dRate, double dOpen, double dSettled = 0) {
    bill->add_row({{"FInterId", 11},
                   {side.sSourceNo, "X-1"},
                   {"FBillCurrencyID", nCurrency},
                   {"FEntryExchangeRate", dRate},
                   {side.sOpenFor, dOpen},
                   {"FBillSettleAmountFor", dSettled},
                   {"FBillSettleAmount", dSettled}});
  }
  void apportion(double dAmount) {
    bill->head("FAmountFor", dAmount);
    EXPECT_FALSE(bill->click("mnuDataAutoPartAmt"));
  }
  /// Write-off amounts of the rows, in row currency and in base currency.
  std::vector<std::pair<double, double>> settled() const {
    std::vector<std::pair<double, double>> aSettled;
    for (int nRow = 1; nRow <= bill->row_count(); ++nRow) {
      aSettled.emplace_back(bill->number("FBillSettleAmountFor", nRow), bill->number("FBillSettleAmount", nRow));
    }
    return aSettled;
  }
  using Settled = std::vector<std::pair<double, double>>;
  std::string remainder(const std::string& sRest) const {
    return pick("收款金额还余下" + sRest + "未被分摊完,请调整收款金额或添加收款发票!",
                "付款金额还余下" + sRest + "未被分摊完,请调整付款金额或者添加付款发票!");
  }
};
INSTANTIATE_BOTH_SIDES(AutoApportion);

TEST_P(AutoApportion, AnAdvanceDoesNothingAndShowsNothing) {
  bill->head(side.sType, side.nAdvanceType);
  add_source(1, 1, 60, 7);
  trace().clear();
  apportion(0);
  EXPECT_TRUE(boxes().empty());
  EXPECT_EQ(settled(), (Settled{{7, 7}}));
}

TEST_P(AutoApportion, WithoutAHeadAmountItAsksForOneAndTheRowsKeepTheirs) {
  add_source(1, 1, 60, 7);
  apportion(0);
  EXPECT_EQ(boxes(), notice(pick("请输入收款单的收款金额后再使用自动分摊功能!",  //
                                 "请输入付款单的付款金额后再使用自动分摊功能!")));
  EXPECT_EQ(settled(), (Settled{{7, 7}}));
}

TEST_P(AutoApportion, TheFirstRowIsServedInFullAndTheLastTakesTheRest) {
  add_source(1, 1, 60);
  add_source(1, 1, 60);
  apportion(100);
  EXPECT_EQ(settled(), (Settled{{60, 60}, {40, 40}}));
  EXPECT_TRUE(boxes().empty());
}

TEST_P(AutoApportion, AtATieTheRowTakesTheRestAndFurtherRowsAreWrittenZero) {
  add_source(1, 1, 60);
  add_source(1, 1, 40);
  add_source(1, 1, 30, 30);
  apportion(100);
  EXPECT_EQ(settled(), (Settled{{60, 60}, {40, 40}, {0, 0}}));
  EXPECT_TRUE(boxes().empty());
}

TEST_P(AutoApportion, WhatIsLeftIsToldUnroundedAndTheRowsKeepWhatTheyGot) {
  add_source(1, 1, 30);
  add_source(1, 1, 30);
  apportion(100);
  EXPECT_EQ(settled(), (Settled{{30, 30}, {30, 30}}));
  EXPECT_EQ(boxes(), notice(remainder("40")));
  EXPECT_EQ(bill->number("FAmountFor", -1), 100);
}

TEST_P(AutoApportion, ARemainderBelowACentIsToldToo) {
  add_source(1, 1, 1);
  apportion(1.00390625);
  EXPECT_EQ(boxes(), notice(remainder("0.00390625")));
}

TEST_P(AutoApportion, ARemainderHasTheDefaultTextOfADouble) {
  add_source(1, 1, 99.9);
  apportion(100.0625);
  EXPECT_EQ(boxes(), notice(remainder("0.162499999999994")));
}

TEST_P(AutoApportion, InOneForeignCurrencyTheRowsOwnRateGivesTheBaseAmount) {
  bill->head("FCurrencyId", 2).head("FExchangeRate", 6.5);
  add_source(2, 6, 60);
  add_source(2, 7, 60);
  apportion(100);
  EXPECT_EQ(settled(), (Settled{{60, 360}, {40, 280}}));
}

TEST_P(AutoApportion, ABaseHeadServesForeignRowsAtTheirRate) {
  add_source(2, 6, 10);
  add_source(2, 8, 10);
  apportion(100);
  EXPECT_EQ(settled(), (Settled{{10, 60}, {5, 40}}));
  EXPECT_TRUE(boxes().empty());
}

TEST_P(AutoApportion, AForeignHeadServesBaseRowsAtItsRate) {
  bill->head("FCurrencyId", 2).head("FExchangeRate", 8.0);
  add_source(1, 1, 400);
  add_source(1, 1, 600);
  apportion(100);
  EXPECT_EQ(settled(), (Settled{{400, 400}, {400, 400}}));
  EXPECT_TRUE(boxes().empty());
}

TEST_P(AutoApportion, ANegativeBillRunsDownTowardsZero) {
  add_source(1, 1, -60);
  add_source(1, 1, -60);
  apportion(-100);
  EXPECT_EQ(settled(), (Settled{{-60, -60}, {-40, -40}}));
  EXPECT_TRUE(boxes().empty());
}

TEST_P(AutoApportion, ARowOfTheOppositeSignMovesTheRestAwayFromZero) {
  add_source(1, 1, -60);
  apportion(100);
  EXPECT_EQ(settled(), (Settled{{-60, -60}}));
  EXPECT_EQ(boxes(), notice(remainder("160")));
}

TEST_P(AutoApportion, RowsWithoutASourceAreSkippedAndGapsHideTheLastRows) {
  add_source(1, 1, 10);
  bill->add_row({{"FInterId", ""}});
  add_source(1, 1, 10);
  apportion(100);
  // Two used rows: the third row of the body isn't reached.
  EXPECT_EQ(settled(), (Settled{{10, 10}, {0, 0}, {0, 0}}));
  EXPECT_EQ(boxes(), notice(remainder("90")));
}

TEST_P(AutoApportion, AmountsRoundHalfAwayFromZeroByTheDecimalsOfTheirCurrency) {
  add_source(2, 0.5, 1.125);
  session.add_currency(2, "X", 7, "*", 2);
  apportion(1000);
  EXPECT_EQ(settled(), (Settled{{1.13, 0.56}}));
}

TEST_P(AutoApportion, EachAmountHasTheDecimalsOfItsOwnCurrency) {
  session.add_currency(2, "X", 7, "*", 3);
  add_source(2, 0.5, 1.1254);
  add_source(2, 0.5, 1.1254);
  apportion(1);
  EXPECT_EQ(settled(), (Settled{{1.125, 0.56}, {0.875, 0.44}}));
}

TEST_P(AutoApportion, AtATieNothingIsLeftWhateverTheRateDividesTo) {
  bill->head("FCurrencyId", 2).head("FExchangeRate", 0.2);
  // 0.09 times 0.2 is 0.018, and 0.018 by 0.2 isn't 0.09 in a double.
  add_source(1, 1, 0.018);
  apportion(0.09);
  EXPECT_TRUE(boxes().empty());
}

TEST_P(AutoApportion, AForeignRowUnderAnotherForeignHeadStopsTheCommandFirst) {
  bill->head("FCurrencyId", 2).head("FExchangeRate", 6.0);
  add_source(3, 7, 10, 5);
  apportion(100);
  EXPECT_EQ(settled(), (Settled{{5, 5}}));
  EXPECT_EQ(boxes(), notice(pick("收款单币别与表体币别不能同时是不同种类的外币,请重新设置!",
                                 "付款单币别与表体币别不能同时是不同种类的外币,请重新设置!")));
}

TEST_P(AutoApportion, OnAReceiptALaterRowInAnotherForeignCurrencyIsLeftAsItIs) {
  bill->head("FCurrencyId", 2).head("FExchangeRate", 6.0);
  add_source(2, 6, 100);
  add_source(3, 7, 10, 5);
  apportion(100);
  EXPECT_EQ(settled(), pick(Settled{{100, 600}, {5, 5}}, Settled{{0, 0}, {5, 5}}));
  EXPECT_EQ(boxes().size(), pick<std::size_t>(0, 1));
}

TEST_P(AutoApportion, ARateOfZeroIsToldAsAnErrorAndWrittenRowsStay) {
  add_source(2, 6, 10);
  add_source(2, 0, 10, 4);
  apportion(100);
  EXPECT_EQ(settled(), (Settled{{10, 60}, {4, 4}}));
  EXPECT_EQ(boxes(), notice(AutomationError(ErrorNumber::DivisionByZero).description()));
}

TEST_P(AutoApportion, TheBatchFlagIsRaisedForEachSourceRowAndNeverLowered) {
  add_source(1, 1, 60);
  bill->add_row({{"FInterId", 0}, {side.sSourceNo, "X-2"}});
  add_source(1, 1, 60);
  trace().clear();
  apportion(100);
  EXPECT_EQ(trace().lines_with("SetBatchFlag"),
            (std::vector<std::string>{"BillEvent.SetBatchFlag(True)", "BillEvent.SetBatchFlag(True)"}));
}

TEST_P(AutoApportion, TheBatchFlagIsRaisedAheadOfTheRowsRateAndOnThePaymentBehindIt) {
  add_source(1, 1, 60);
  trace().set_detail(Trace::Detail::All);
  apportion(60);
  const auto nFlag = trace().position("SetBatchFlag(True)");
  const auto nRate = trace().position("GetDataFld(FEntryExchangeRate, 1)");
  ASSERT_GE(nFlag, 0);
  ASSERT_GE(nRate, 0);
  EXPECT_EQ(nFlag < nRate, pick(true, false));
}

TEST_P(AutoApportion, AmountsReachTheCellsInTheOrderOfTheirCase) {
  add_source(1, 1, 60);
  add_source(1, 1, 60);
  trace().clear();
  apportion(100);
  EXPECT_EQ(trace().lines_with("SetText(FBillSettle"), (std::vector<std::string>{
                                                           "BillEvent.SetText(FBillSettleAmountFor, 60, 1)",
                                                           "BillEvent.SetText(FBillSettleAmount, 60, 1)",
                                                           "BillEvent.SetText(FBillSettleAmount, 40, 2)",
                                                           "BillEvent.SetText(FBillSettleAmountFor, 40, 2)",
                                                       }));
  EXPECT_TRUE(bill->modified("FBillSettleAmount", 2));
}

TEST_P(AutoApportion, ForeignRowsUnderABaseHeadReachTheCellsForeignFirstThenBaseFirstFromATieOn) {
  add_source(2, 6, 10);
  add_source(2, 8, 5);
  trace().clear();
  apportion(100);
  EXPECT_EQ(trace().lines_with("SetText(FBillSettle"), (Lines{
                                                           "BillEvent.SetText(FBillSettleAmountFor, 10, 1)",
                                                           "BillEvent.SetText(FBillSettleAmount, 60, 1)",
                                                           "BillEvent.SetText(FBillSettleAmount, 40, 2)",
                                                           "BillEvent.SetText(FBillSettleAmountFor, 5, 2)",
                                                       }));
}

TEST_P(AutoApportion, BaseRowsUnderAForeignHeadReachTheCellsBaseFirst) {
  bill->head("FCurrencyId", 2).head("FExchangeRate", 8.0);
  add_source(1, 1, 400);
  add_source(1, 1, 600);
  trace().clear();
  apportion(100);
  EXPECT_EQ(trace().lines_with("SetText(FBillSettle"), (Lines{
                                                           "BillEvent.SetText(FBillSettleAmount, 400, 1)",
                                                           "BillEvent.SetText(FBillSettleAmountFor, 400, 1)",
                                                           "BillEvent.SetText(FBillSettleAmount, 400, 2)",
                                                           "BillEvent.SetText(FBillSettleAmountFor, 400, 2)",
                                                       }));
}

TEST_P(AutoApportion, ANegativeIdIsNoSource) {
  add_source(1, 1, 60, 7);
  bill->set_value("FInterId", 1, std::int32_t{-3});
  apportion(100);
  EXPECT_EQ(settled(), (Settled{{7, 7}}));
}

TEST_P(AutoApportion, WithNothingLeftOnlyThePaymentSetsTheLockOfTheDiscountAccount) {
  bill->head("FDiscount", 100.0).head("FDiscountAcctId", 55);
  add_source(1, 1, 100);
  trace().clear();
  apportion(100);
  EXPECT_EQ(trace().lines_with("LockCell"),
            pick(std::vector<std::string>{}, std::vector<std::string>{"BillCtl.LockCell(FDiscountAcctId, -1, True)"}));
}

TEST_P(AutoApportion, WithADiscountThePaymentFreesTheDiscountAccount) {
  bill->head("FDiscount", 95.0).head("FDiscountAcctId", 55);
  add_source(1, 1, 100);
  trace().clear();
  apportion(100);
  EXPECT_EQ(trace().lines_with("LockCell"),
            pick(std::vector<std::string>{}, std::vector<std::string>{"BillCtl.LockCell(FDiscountAcctId, -1, False)"}));
  EXPECT_EQ(bill->number("FDiscountAcctId", -1), 55);
}

TEST_P(AutoApportion, WithARemainderTheLockOfTheDiscountAccountIsNotTouched) {
  bill->head("FDiscount", 100.0);
  add_source(1, 1, 60);
  trace().clear();
  apportion(100);
  EXPECT_FALSE(trace().has("LockCell"));
}

}  // namespace
}  // namespace arap::testing
