#include "plugin/settlement/settlement_fixture.h"

namespace arap::testing {
namespace {

class SaveRows : public SettlementTest {
 protected:
  SaveRows() { session.commands.answer("select 1 from", recordset({"1"}, {{std::int32_t{1}}})); }

  void add(const SourceRow& row) { add_source_row(*bill, GetParam(), row); }
  void expect_refusal(const std::string& sText) {
    session.platform.messages.clear();
    EXPECT_TRUE(bill->save());
    EXPECT_EQ(message(), sText);
    EXPECT_EQ(style(), 48);
    EXPECT_EQ(box_count(), 1);
  }
  void expect_saved() {
    EXPECT_FALSE(bill->save());
    EXPECT_EQ(box_count(), 0) << message();
  }
};
INSTANTIATE_BOTH_SIDES(SaveRows);

TEST_P(SaveRows, EverySourceIsLookedForInTheTableOfItsClass) {
  const std::int32_t aClasses[] = {pick(1000000, 1000003), pick(1000002, 1000004), pick(1000205, 1000206), 999,
                                   pick(1000003, 1000000), pick(1000206, 1000205)};
  for (std::int32_t nClassID : aClasses) add({.nInterID = 5, .dOpenFor = 1, .dSettleFor = 1, .nClassID = nClassID});
  set_amounts(*bill, GetParam(), 6, 6);
  expect_saved();
  const std::string sInvoice = std::string("select 1 from ") + pick("icsale", "ICPurchase") + " where finterid= 5";
  const std::string sOther =
      std::string("select 1 from ") + pick("t_rp_rotherbill", "t_rp_potherbill") + " where fbillid= 5";
  EXPECT_EQ(session.commands.texts, (std::vector<std::string>{sInvoice, sInvoice, sOther}));
}

TEST_P(SaveRows, ADeletedSourceIsToldBeforeAllElseOfItsRow) {
  add({.nInterID = 1});
  add({.nInterID = 2, .dSettleFor = 0});
  session.commands.answer(pick("select 1 from icsale where finterid= 2", "select 1 from ICPurchase where finterid= 2"),
                          recordset({"1"}));
  set_amounts(*bill, GetParam(), 100, 100);
  expect_refusal("第2行源单已被删除，不允许保存。");
}

TEST_P(SaveRows, ARowWithoutASourceIsSkippedWhole) {
  add({.nInterID = 1, .dOpenFor = 60, .dSettleFor = 60});
  add({.nInterID = 0, .dOpenFor = 1, .dSettleFor = 999});
  add({.nInterID = -2, .dOpenFor = 1, .dSettleFor = 999});
  set_amounts(*bill, GetParam(), 60, 60);
  expect_saved();
}

TEST_P(SaveRows, RowsBehindAGapAreTestedAndSummed) {
  add({.sNumber = "", .nInterID = 0});
  add({.nInterID = 1, .dOpenFor = 60, .dSettleFor = 60});
  set_amounts(*bill, GetParam(), 60, 60);
  expect_saved();
}

TEST_P(SaveRows, ASourceStandsTwiceOnlyInARefund) {
  add({.nInterID = 1, .dOpenFor = 50, .dSettleFor = 50});
  add({.nInterID = 1, .dOpenFor = 50, .dSettleFor = 50});
  set_amounts(*bill, GetParam(), 100, 100);
  expect_refusal(pick("第2行源单和第1行源单重复，不允许保存。", "第2行源单和第1行源单编号重复，不允许保存。"));
  use_type(pick(1010, 1009));  // the other side's refund
  expect_refusal(pick("第2行源单和第1行源单重复，不允许保存。", "第2行源单和第1行源单编号重复，不允许保存。"));
  use_type(side.nRefundType);
  session.platform.messages.clear();
  expect_saved();
}

TEST_P(SaveRows, TheSecondNumberOfADuplicateCountsTheRowsThatWereAdded) {
  add({.nInterID = 0});
  add({.nInterID = 4, .dOpenFor = 1, .dSettleFor = 1});
  add({.nInterID = 0});
  add({.nInterID = 5, .dOpenFor = 1, .dSettleFor = 1});
  add({.nInterID = 5, .dOpenFor = 1, .dSettleFor = 1});
  set_amounts(*bill, GetParam(), 3, 3);
  expect_refusal(pick("第5行源单和第2行源单重复，不允许保存。", "第5行源单和第2行源单编号重复，不允许保存。"));
}

TEST_P(SaveRows, AnotherEntryOrClassIsAnotherSource) {
  add({.nInterID = 1, .nEntryID = 1, .dOpenFor = 1, .dSettleFor = 1});
  add({.nInterID = 1, .nEntryID = 2, .dOpenFor = 1, .dSettleFor = 1});
  add({.nInterID = 1, .nEntryID = 1, .dOpenFor = 1, .dSettleFor = 1, .nClassID = 999});
  set_amounts(*bill, GetParam(), 3, 3);
  expect_saved();
}

TEST_P(SaveRows, TheDirectionsMustAgree) {
  add({.nInterID = 1, .dOpenFor = -100, .dSettleFor = 100});
  set_amounts(*bill, GetParam(), 100, 100);
  expect_refusal("第1行本次核销金额和未核销金额方向不一致。");
  bill->set_value(side.sOpenFor, 1, 100.0);
  bill->set_value("FBillSettleAmountFor", 1, -100.0);
  expect_refusal("第1行本次核销金额和未核销金额方向不一致。");
}

TEST_P(SaveRows, ANegativeRowSettlesUpToItsOpenAmount) {
  add({.nInterID = 1, .dOpenFor = -100, .dSettleFor = -100});
  set_amounts(*bill, GetParam(), -100, -100);
  expect_saved();
  bill->head("FDiscount", 100.0);
  bill->set_value("FBillSettleAmountFor", 1, -100.01);
  expect_refusal("第1行本次核销金额不能大于未核销金额。");
}

TEST_P(SaveRows, AWriteOffAboveTheOpenAmountByLessThanACentIsTooLarge) {
  add({.nInterID = 1, .dOpenFor = 60, .dSettleFor = 60.001});
  set_amounts(*bill, GetParam(), 60, 60);
  expect_refusal("第1行本次核销金额不能大于未核销金额。");
}

TEST_P(SaveRows, ARowClosedInItsCurrencyIsComparedInBaseCurrency) {
  add({.nInterID = 1, .dOpenFor = 0, .dSettleFor = -5});
  set_amounts(*bill, GetParam(), -5, -5);
  bill->set_value(side.sOpen, 1, -4.0);
  expect_refusal("第1行本次核销金额不能大于未核销金额。");
  bill->set_value(side.sOpen, 1, -5.0);
  session.platform.messages.clear();
  expect_saved();
  bill->head("FDiscount", 100.0);
  bill->set_value(side.sOpen, 1, 0.0);  // nothing is compared
  expect_saved();
}

TEST_P(SaveRows, AnOpenAmountOfNothingRefusesAPositiveWriteOff) {
  add({.nInterID = 1, .dOpenFor = 0, .dSettleFor = 5});
  set_amounts(*bill, GetParam(), 5, 5);
  expect_refusal("第1行本次核销金额和未核销金额方向不一致。");
}

TEST_P(SaveRows, OnlyTheReceiptRoundsTheOpenAmount) {
  add({.nInterID = 1, .dOpenFor = 0.004, .dSettleFor = 0.003});
  set_amounts(*bill, GetParam(), 0.003, 0.003);
  // Rounded to 0 it is closed, so that a positive write-off goes the other way; unrounded the row's sum is 0.
  expect_refusal(receive() ? "第1行本次核销金额和未核销金额方向不一致。"
                           : "付款单单据头的付款金额与单据体的本次核销金额总和不相等，不允许保存。");
}

TEST_P(SaveRows, AnOpenAmountBelowHalfACentIsClosedInItsCurrencyOnTheReceipt) {
  add({.nInterID = 1, .dOpenFor = 0.004, .dSettleFor = -5});
  set_amounts(*bill, GetParam(), -5, -5);
  bill->set_value(side.sOpen, 1, -4.0);
  // Closed, its base amounts are compared; on the payment it is still open in the other direction.
  expect_refusal(receive() ? "第1行本次核销金额不能大于未核销金额。" : "第1行本次核销金额和未核销金额方向不一致。");
  bill->set_value(side.sOpen, 1, -5.0);
  session.platform.messages.clear();
  EXPECT_EQ(bill->save(), !receive());
}

TEST_P(SaveRows, UnderAForeignHeadARowIsInItsCurrencyOrInBaseCurrency) {
  use_currency(2);
  bill->head("FExchangeRate", 7.0);
  add({.nInterID = 1, .dOpenFor = 700, .dSettleFor = 700});
  set_amounts(*bill, GetParam(), 100, 100);
  expect_saved();
}

TEST_P(SaveRows, RowsOfTwoCurrenciesAreRefused) {
  use_currency(2);
  bill->head("FExchangeRate", 7.0);
  add({.nInterID = 1, .dOpenFor = 100, .dSettleFor = 100, .nCurrencyID = 2, .dRate = 7});
  add({.nInterID = 2, .dOpenFor = 700, .dSettleFor = 700});
  set_amounts(*bill, GetParam(), 200, 200);
  EXPECT_TRUE(bill->save());
  EXPECT_EQ(message(), pick("收款单不支持对多币别应收款单据收款,第2行币别与第一行不是同币别，不允许保存。",
                            "只能对同一种币别付款,请重新设置!"));
}

TEST_P(SaveRows, AMixWithinABaseHeadIsFoundByTheRowTestOfTheReceipt) {
  add({.nInterID = 1, .dOpenFor = 10, .dSettleFor = 10, .nCurrencyID = 2, .dRate = 7});
  add({.nInterID = 2, .dOpenFor = 10, .dSettleFor = 10, .nCurrencyID = 3, .dRate = 0.125});
  set_amounts(*bill, GetParam(), 71.25, 71.25);
  EXPECT_TRUE(bill->save());
  EXPECT_EQ(message(), pick("收款单不支持对多币别应收款单据收款,第2行币别与第一行不是同币别，不允许保存。",
                            "只能对同一种币别付款,请重新设置!"));
}

TEST_P(SaveRows, TheFirstRowsCurrencyCountsEvenWithoutASource) {
  add({.nInterID = 0, .nCurrencyID = 2, .dRate = 7});
  add({.nInterID = 2, .dOpenFor = 10, .dSettleFor = 10});
  set_amounts(*bill, GetParam(), 10, 10);
  expect_refusal(pick("收款单不支持对多币别应收款单据收款,第2行币别与第一行不是同币别，不允许保存。",
                      "付款单不支持对多币别应付款单据付款,第2行币别与第一行不是同币别，不允许保存。"));
}

TEST_P(SaveRows, AForeignRowOfAThirdCurrencyIsRefusedWhereTheFirstTestLetItPass) {
  use_currency(2);
  add({.nInterID = 1, .dOpenFor = 10, .dSettleFor = 10, .nCurrencyID = 2, .dRate = 7});
  add({.nInterID = 2, .dOpenFor = 10, .dSettleFor = 10, .nCurrencyID = 3, .dRate = 0.125});
  set_amounts(*bill, GetParam(), 20, 20);
  EXPECT_TRUE(bill->save());
  EXPECT_EQ(message(), pick("收款单不支持多币别核算,第2行币别与收款单不是同一外币币别，不允许保存。",
                            "只能对同一种币别付款,请重新设置!"));
}

TEST_P(SaveRows, ARowWithoutACurrencyMixesWithAny) {
  for (const std::int32_t nFirst : {0, 2}) {
    bill->remove_rows();
    add({.nInterID = 1, .dOpenFor = 10, .dSettleFor = 10, .nCurrencyID = nFirst, .dRate = 7});
    add({.nInterID = 2, .dOpenFor = 10, .dSettleFor = 10, .nCurrencyID = 2 - nFirst, .dRate = 7});
    set_amounts(*bill, GetParam(), 140, 140);
    expect_saved();
  }
}

TEST_P(SaveRows, EachSideTellsARowOfAThirdCurrencyInItsOwnWords) {
  // The test of the body's currencies is passed over under the receipt's advance type, also on the payment.
  use_type(pick(side.nOrdinaryType, std::int32_t{1002}));
  use_currency(2);
  add({.nInterID = 1, .dOpenFor = 10, .dSettleFor = 10, .nCurrencyID = 2, .dRate = 7});
  add({.nInterID = 2, .dOpenFor = 10, .dSettleFor = 10, .nCurrencyID = 3, .dRate = 0.125});
  set_amounts(*bill, GetParam(), 20, 20);
  expect_refusal(pick("收款单不支持多币别核算,第2行币别与收款单不是同一外币币别，不允许保存。",
                      "付款单不支持多币别核算,第2行币别与付款单不是同一币别，不允许保存。"));
  use_currency(1);
  expect_refusal(pick("收款单不支持对多币别应收款单据收款,第2行币别与第一行不是同币别，不允许保存。",
                      "付款单不支持对多币别应付款单据付款,第2行币别与第一行不是同币别，不允许保存。"));
}

TEST_P(SaveRows, AnAdvancePaymentIsTestedByItsOwnNumberOnly) {
  use_type(pick(1004, 1002));  // the other side's advance: an ordinary bill here
  set_amounts(*bill, GetParam(), 10, 10);
  EXPECT_TRUE(bill->save());
}

TEST_P(SaveRows, ForeignRowsUnderABaseHeadAreSummedInBaseCurrency) {
  add({.nInterID = 1, .dOpenFor = 10, .dSettleFor = 10, .nCurrencyID = 2, .dRate = 7});
  add({.nInterID = 2, .dOpenFor = 5, .dSettleFor = 5, .nCurrencyID = 2, .dRate = 7});
  set_amounts(*bill, GetParam(), 105, 105);
  bill->head("FAmountFor", 1.0);  // the head counts in FAmount
  expect_saved();
}

TEST_P(SaveRows, ADifferenceBeyondTheTenthDecimalIsNone) {
  add({.nInterID = 1, .dOpenFor = 60, .dSettleFor = 60});
  set_amounts(*bill, GetParam(), 60.00000000001, 60.00000000001);
  expect_saved();
}

TEST_P(SaveRows, ADifferenceInTheTenthDecimalIsOne) {
  add({.nInterID = 1, .dOpenFor = 60, .dSettleFor = 60});
  set_amounts(*bill, GetParam(), 60.0000000001, 60.0000000001);
  expect_refusal(pick("收款单单据头的收款金额与单据体的本次核销金额总和不相等，不允许保存。",
                      "付款单单据头的付款金额与单据体的本次核销金额总和不相等，不允许保存。"));
}

TEST_P(SaveRows, RowsAreRoundedToTwoDecimalsBeforeTheyAreSummed) {
  add({.nInterID = 1, .dOpenFor = 1, .dSettleFor = 0.125});
  add({.nInterID = 2, .dOpenFor = 1, .dSettleFor = 0.125});
  set_amounts(*bill, GetParam(), 0.26, 0.26);
  expect_saved();
}

}  // namespace
}  // namespace arap::testing
