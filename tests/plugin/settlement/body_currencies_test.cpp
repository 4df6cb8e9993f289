#include "plugin/settlement/settlement_fixture.h"

namespace arap::testing {
namespace {

/// Told by both commands that test the currencies first.
class BodyCurrencies : public BothSides {
 protected:
  void add(std::int32_t nCurrency, std::int32_t nInterID = 1) {
    add_source_row(*bill, GetParam(), {.nInterID = nInterID, .nCurrencyID = nCurrency, .dRate = 2});
  }
  /// The boxes of the test alone: the sum has a source row and write-offs, so that it shows none of its own.
  std::vector<Box> test(std::int32_t nHeadCurrency) {
    session.platform.messages.clear();
    bill->head("FCurrencyId", nHeadCurrency).head("FExchangeRate", 6.0);
    EXPECT_FALSE(bill->click("mnuDataAutoSumAmt"));
    return boxes();
  }
  const std::string sTwoForeign = pick("收款单币别与表体币别不能同时是不同种类的外币,请重新设置!",
                                       "付款单币别与表体币别不能同时是不同种类的外币,请重新设置!");
};
INSTANTIATE_BOTH_SIDES(BodyCurrencies);

TEST_P(BodyCurrencies, OneCurrencyInHeadAndBodyPasses) {
  add(2);
  add(2);
  EXPECT_TRUE(test(2).empty());
}

TEST_P(BodyCurrencies, AHeadInBaseCurrencyPassesAnyForeignRow) {
  add(3);
  EXPECT_TRUE(test(1).empty());
}

TEST_P(BodyCurrencies, AForeignHeadPassesRowsInBaseCurrencyAndRowsWithoutACurrency) {
  add(1);
  EXPECT_TRUE(test(2).empty());
  bill->set_value("FBillCurrencyID", 1, 0);
  EXPECT_TRUE(test(2).empty());
}

TEST_P(BodyCurrencies, AForeignHeadRefusesAnotherForeignRow) {
  add(3);
  EXPECT_EQ(test(2), notice(sTwoForeign));
  EXPECT_EQ(bill->number("FAmountFor"), 0);
}

TEST_P(BodyCurrencies, AMixOfRowCurrenciesIsRefusedOnThePaymentOnly) {
  add(2);
  add(1);
  EXPECT_EQ(test(2), pick(std::vector<Box>{}, notice("只能对同一种币别付款,请重新设置!")));
  EXPECT_EQ(bill->number("FAmountFor") == 0, pick(false, true));
}

TEST_P(BodyCurrencies, AMixWithAForeignRowBesideTheHeadsIsPassedOverByTheReceipt) {
  add(2);
  add(3);
  EXPECT_EQ(test(2), pick(std::vector<Box>{}, notice("只能对同一种币别付款,请重新设置!")));
}

TEST_P(BodyCurrencies, ARowWithoutASourceKeepsTheCurrencyOfTheRowBefore) {
  add(2);
  add(3, 0);
  EXPECT_TRUE(test(2).empty());
}

TEST_P(BodyCurrencies, ARowBehindAGapIsNotReached) {
  add(2);
  bill->add_row();
  add(3);
  EXPECT_TRUE(test(2).empty());
}

TEST_P(BodyCurrencies, AFirstRowWithoutASourceLeavesNoFirstCurrency) {
  add(2, 0);
  add(2);
  add(3);
  EXPECT_EQ(test(2), notice(sTwoForeign));
}

TEST_P(BodyCurrencies, TheReceiptsAdvanceTypeSkipsTheTestOnBothSides) {
  add(3);
  bill->head(side.sType, 1002);
  EXPECT_TRUE(test(2).empty());
}

TEST_P(BodyCurrencies, AnAdvancePaymentRunsTheTest) {
  add(3);
  bill->head(side.sType, 1004);
  EXPECT_EQ(test(2), notice(sTwoForeign));
}

TEST_P(BodyCurrencies, TheApportioningAsksTheSameTest) {
  add(3);
  bill->head("FCurrencyId", 2).head("FAmountFor", 50.0);
  bill->click("mnuDataAutoPartAmt");
  EXPECT_EQ(boxes(), notice(sTwoForeign));
}

}  // namespace
}  // namespace arap::testing
