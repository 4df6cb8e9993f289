#include "plugin/settlement/settlement_fixture.h"

namespace arap::testing {
namespace {

class FieldChanges : public SettlementTest {
 protected:
  FieldChanges() {
    add_source_row(*bill, GetParam(), {.nInterID = 1, .dSettleFor = 10.006, .nCurrencyID = 2, .dRate = 7});
    add_source_row(*bill, GetParam(), {.nInterID = 2, .dSettleFor = 20});
    trace().clear();
  }
  bool change(const char* sKey, Variant vValue) { return bill->change(sKey, -1, vValue); }
  void begin_edit(const char* sKey) { bill->fire(Event::BeginEdit, {Ref<Object>(bill->info(sKey)), 0, 0}); }
};
INSTANTIATE_BOTH_SIDES(FieldChanges);

TEST_P(FieldChanges, AFirstChoiceOfPartnerKeepsTheBody) {
  change(side.sPartner, std::int32_t{8});
  EXPECT_EQ(bill->row_count(), 2);
}

TEST_P(FieldChanges, TheSamePartnerAgainKeepsTheBody) {
  begin_edit(side.sPartner);
  change(side.sPartner, std::int32_t{7});
  EXPECT_EQ(bill->row_count(), 2);
}

TEST_P(FieldChanges, AnotherPartnerEmptiesTheBodyAndOnThePaymentTheAmountsToo) {
  set_amounts(*bill, GetParam(), 50, 50);
  begin_edit(side.sPartner);
  change(side.sPartner, std::int32_t{8});
  EXPECT_EQ(bill->row_count(), 0);
  EXPECT_EQ(trace().lines_with(".Visible = ").size(), 2u);  // the refund columns follow the type
  EXPECT_EQ(bill->number("FAmountFor"), receive() ? 50 : 0);
}

TEST_P(FieldChanges, ThePartnersDepartmentAndEmployeeAreEnteredByTheirCodes) {
  const std::string sTail = std::string(" From ") + side.sPartnerTable + " Where FItemID=8)";
  bill->sql.answer("Select FNumber From t_Department Where FItemID=(Select FDepartment" + sTail,
                   recordset({"FNumber"}, {{" 02 "}}));
  bill->sql.answer("Select FNumber From t_Emp Where FItemID=(Select FEmployee" + sTail,
                   recordset({"FNumber"}, {{"E9"}}));
  change(side.sPartner, std::int32_t{8});
  EXPECT_TRUE(trace().has("SetFieldValue(\"FDepartmentId\", \"02\", -1)"));
  EXPECT_TRUE(trace().has("SetFieldValue(\"FEmployeeId\", \"E9\", -1)"));
}

TEST_P(FieldChanges, APartnerWithoutADepartmentEntersNone) {
  change(side.sPartner, std::int32_t{8});
  EXPECT_FALSE(trace().has("SetFieldValue("));
  EXPECT_EQ(bill->sql.texts.size(), 2u);
  change(side.sPartner, std::int32_t{0});
  EXPECT_EQ(bill->sql.texts.size(), 2u);
}

TEST_P(FieldChanges, ABlankSourceNumberRemovesItsRow) {
  EXPECT_FALSE(bill->change(side.sSourceNo, 1, "  "));
  ASSERT_EQ(bill->row_count(), 1);
  EXPECT_EQ(bill->number("FInterID", 1), 2);
  EXPECT_EQ(box_count(), 0);
}

TEST_P(FieldChanges, ATypedSourceNumberIsUndoneWithAMessage) {
  EXPECT_FALSE(bill->change(side.sSourceNo, 1, "other"));
  EXPECT_EQ(message(), "不允许修改源单编号，请通过选单操作更改被选发票！");
  EXPECT_EQ(style(), 64);
  EXPECT_EQ(bill->text(side.sSourceNo, 1), "XS001");
  EXPECT_EQ(bill->row_count(), 2);
}

TEST_P(FieldChanges, ATypedSourceNumberWithoutAnOldValueBecomesBlank) {
  TestDictionary& record = bill->record(side.sSourceNo, 1);
  record.set("FFLD", "other").erase("FOLD");
  EXPECT_FALSE(
      bill->fire_cancelable(Event::Change, {Ref<Object>(bill->info(side.sSourceNo)), Ref<Object>(&record), 1, 1}));
  EXPECT_EQ(bill->text(side.sSourceNo, 1), "");
  EXPECT_EQ(box_count(), 1);
}

TEST_P(FieldChanges, ATypedSourceNumberIsUndoneWithAMessageAlsoWhereTheFieldWasEmpty) {
  bill->set_value(side.sSourceNo, 1, "");
  EXPECT_FALSE(bill->change(side.sSourceNo, 1, "other"));
  EXPECT_EQ(message(), "不允许修改源单编号，请通过选单操作更改被选发票！");
  EXPECT_EQ(bill->text(side.sSourceNo, 1), "");
  EXPECT_EQ(bill->row_count(), 2);
}

TEST_P(FieldChanges, TheFormerSourceNumberIsTypedIntoRowZero) {
  bill->change(side.sSourceNo, 1, "other");
  EXPECT_EQ(trace().lines_with("SetText("),
            (Lines{"BillEvent.SetText(" + std::string(side.sSourceNo) + ", \"XS001\", 0)"}));
}

TEST_P(FieldChanges, AnotherTypeEmptiesTheBodyAndTheHead) {
  set_amounts(*bill, GetParam(), 50, 40);
  change(side.sType, side.nRefundType);
  EXPECT_EQ(bill->row_count(), 0);
  EXPECT_EQ(bill->number("FAmountFor"), 0);
  EXPECT_EQ(bill->number("FDiscount"), 100);
  EXPECT_TRUE(bill->visible("FFKDBillNo"));
}

TEST_P(FieldChanges, AnotherTypeSetsTheSourceCommandsAndTheRateByItselfAndWithWhatDependsOnIt) {
  change(side.sType, side.nRefundType);
  EXPECT_EQ(trace().count("mnuFileNeedFilter.Enabled = True"), 2u);
  EXPECT_EQ(trace().count("LockCell(FExchangeRate, -1, True)"), 2u);
}

TEST_P(FieldChanges, TheTypeOfABillThatIsntStoredAsksForNoPush) {
  change(side.sType, side.nRefundType);
  EXPECT_EQ(session.server("NUVMARAPPush.clsPush").count(Member::GetBillTypeID), 0u);
}

TEST_P(FieldChanges, TheTypeOfAStoredBillAsksForThePush) {
  bill->head("FBillID", std::int32_t{5});
  change(side.sType, side.nRefundType);
  EXPECT_FALSE(bill->screen_field_locked(side.sPartner));
  EXPECT_TRUE(bill->screen_field_locked(side.sType));
  session.server("NUVMARAPPush.clsPush").answers(Member::GetBillTypeID, std::int32_t{1});
  change(side.sType, side.nOrdinaryType);
  EXPECT_TRUE(bill->screen_field_locked(side.sPartner));
  EXPECT_FALSE(bill->screen_field_locked(side.sType));
}

TEST_P(FieldChanges, ADividingCurrencyStoresTheReciprocalRate) {
  change("FCurrencyID", std::int32_t{3});
  EXPECT_EQ(bill->number("FExchangeRate"), 0.125);
  EXPECT_FALSE(locked("FExchangeRate"));
}

TEST_P(FieldChanges, ACurrencyWithAnotherOperatorHasNoRate) {
  session.add_currency(9, "X", 5, "+", 2);
  change("FCurrencyID", std::int32_t{9});
  EXPECT_EQ(bill->number("FExchangeRate"), 0);
}

TEST_P(FieldChanges, RowsInTheNewCurrencyTakeItsRate) {
  session.add_currency(2, "美元", 6.5, "*", 2);
  change("FCurrencyID", std::int32_t{2});
  EXPECT_EQ(bill->number("FEntryExchangeRate", 1), 6.5);
  EXPECT_DOUBLE_EQ(bill->number("FBillSettleAmount", 1), 6.5 * (receive() ? 10.01 : 10.006));
  EXPECT_EQ(bill->number("FEntryExchangeRate", 2), 1);
  EXPECT_EQ(trace().count("RefreshFieldRow("), 1u);
  EXPECT_EQ(trace().has("SetFieldValue(\"FExchangeRate\", 6.5, -1)"), !receive());
}

TEST_P(FieldChanges, ANewCurrencyWritesItsRateThenItsDecimalsThenTheRows) {
  session.add_currency(2, "美元", 6.5, "*", 3);
  bill->set_value("FBillSettleAmountFor", 1, 10.0);
  trace().clear();
  change("FCurrencyID", std::int32_t{2});
  const std::string sFor = side.sReceivedFor;
  Lines aExpected{"BillEvent.SetText(FExchangeRate, \"6.5\", 0)"};
  if (!receive()) aExpected.emplace_back("BillEvent.SetFieldValue(\"FExchangeRate\", 6.5, -1)");
  aExpected.insert(
      aExpected.end(),
      {"BillCtl.LockCell(FExchangeRate, -1, False)", "BillEvent.SetFieldDecimals(FAmountFor, -1, 3)",
       "BillEvent.SetFieldDecimals(" + sFor + ", -1, 3)", "BillEvent.SetColumnDecimals(" + sFor + ", 3)",
       "BillEvent.SetFieldDecimals(FDiscountAmountFor, -1, 3)", "BillEvent.SetText(FEntryExchangeRate, \"6.5\", 1)",
       "BillEvent.SetText(FBillSettleAmount, \"65\", 1)", "BillEvent.RefreshFieldRow(FBillSettleAmount)"});
  EXPECT_EQ(trace().lines_with_any({"SetText(", "SetFieldValue(", "LockCell(", "Decimals(", "RefreshFieldRow("}),
            aExpected);
}

TEST_P(FieldChanges, RatesAndRowAmountsAreStoredAndNotOnlyShown) {
  bill->runs_actions = false;
  bill->set_text_stores = false;
  bill->set_value("FBillSettleAmountFor", 1, 10.0);
  change("FCurrencyID", std::int32_t{2});
  EXPECT_EQ(bill->number("FExchangeRate"), 7);
  EXPECT_EQ(bill->number("FEntryExchangeRate", 1), 7);
  bill->set_value("FBillSettleAmount", 1, 0.0);
  change("FExchangeRate", 6.5);
  EXPECT_EQ(bill->number("FEntryExchangeRate", 1), 6.5);
  EXPECT_EQ(bill->number("FBillSettleAmount", 1), 65);
}

TEST_P(FieldChanges, OnlyTheReceiptReadsTheNameOfTheNewCurrency) {
  trace().set_detail(Trace::Detail::All);
  change("FCurrencyID", std::int32_t{2});
  EXPECT_EQ(trace().has("Currency.Name"), receive());
}

TEST_P(FieldChanges, ACurrencyOfZeroChangesNothingAndTheBaseCurrencyNoRow) {
  change("FCurrencyID", std::int32_t{0});
  EXPECT_FALSE(trace().has("SetText("));
  change("FCurrencyID", std::int32_t{1});
  EXPECT_TRUE(locked("FExchangeRate"));
  EXPECT_EQ(bill->number("FEntryExchangeRate", 1), 7);
  EXPECT_FALSE(trace().has("RefreshFieldRow("));
}

TEST_P(FieldChanges, ACompleteDiscountEmptiesTheAccountAndAnyOtherFreesIt) {
  bill->head("FDiscountAcctId", std::int32_t{55});
  change("FDiscount", 100.0);
  EXPECT_TRUE(locked("FDiscountAcctId"));
  EXPECT_EQ(bill->number("FDiscountAcctId"), 0);
  for (const double dDiscount : {99.0, 0.0, 101.0}) {
    change("FDiscount", 100.0);
    change("FDiscount", dDiscount);
    EXPECT_FALSE(locked("FDiscountAcctId")) << dDiscount;
  }
}

TEST_P(FieldChanges, EqualAmountsLockTheDiscountAccountFromEitherField) {
  set_amounts(*bill, GetParam(), 50, 40);
  change(side.sReceivedFor, 50.0);
  EXPECT_TRUE(locked("FDiscountAcctId"));
  change("FAmountFor", 60.0);
  EXPECT_FALSE(locked("FDiscountAcctId"));
  change("FAmountFor", 50.0);
  EXPECT_TRUE(locked("FDiscountAcctId"));
  EXPECT_TRUE(trace().has("DoAction(" + std::string(side.sReceivedFor)));
  EXPECT_TRUE(trace().has("DoAction(FAmountFor"));
}

TEST_P(FieldChanges, EqualAmountsEmptyTheDiscountAccountAsOneHundredPerCentDoes) {
  for (const char* sKey : {side.sReceivedFor, "FAmountFor"}) {
    set_amounts(*bill, GetParam(), 50, 50);
    bill->head("FDiscountAcctId", std::int32_t{55});
    change(sKey, 50.0);
    EXPECT_EQ(bill->number("FDiscountAcctId"), 0) << sKey;
    bill->head("FDiscountAcctId", std::int32_t{55});
    for (const double dOther : {40.0, 60.0}) {
      change(sKey, dOther);
      EXPECT_FALSE(locked("FDiscountAcctId")) << sKey << dOther;
      EXPECT_EQ(bill->number("FDiscountAcctId"), 55) << sKey << dOther;
    }
  }
}

TEST_P(FieldChanges, TheActionOfAChangedAmountDoesNotMarkIt) {
  for (const char* sKey : {side.sReceivedFor, "FAmountFor"}) {
    bill->runs_actions = false;
    TestDictionary& record = bill->record(sKey);
    record.set("FModify", 0);
    bill->fire_cancelable(Event::Change, {Ref<Object>(bill->info(sKey)), Ref<Object>(&record), 1, -1});
    EXPECT_TRUE(trace().has("DoAction(" + std::string(sKey))) << sKey;
    EXPECT_EQ(bill->modified(sKey), 0) << sKey;
  }
}

TEST_P(FieldChanges, AnAdvanceNeverHasADiscountAccount) {
  use_type(side.nAdvanceType);
  set_amounts(*bill, GetParam(), 50, 40);
  change("FAmountFor", 60.0);
  EXPECT_TRUE(locked("FDiscountAcctId"));
}

TEST_P(FieldChanges, TheTemplatesPercentageIsRoundedToSixDecimals) {
  bill->fire(Event::BeforeLoadBill, {0});
  set_amounts(*bill, GetParam(), 3, 3);
  change(side.sReceivedFor, 1.0);
  EXPECT_EQ(bill->number("FDiscount"), 33.333333);
}

TEST_P(FieldChanges, ATypedRateGoesToTheRowsOfTheHeadCurrencyUnrounded) {
  use_currency(2);
  change("FExchangeRate", 6.5);
  EXPECT_EQ(bill->number("FEntryExchangeRate", 1), 6.5);
  EXPECT_DOUBLE_EQ(bill->number("FBillSettleAmount", 1), 6.5 * 10.006);
  EXPECT_EQ(bill->number("FEntryExchangeRate", 2), 1);
  EXPECT_EQ(trace().count("RefreshFieldRow("), 1u);
}

TEST_P(FieldChanges, AnAccountInAForeignCurrencyDecidesTheHeads) {
  bill->sql.answer(
      "Select  a.FCurrencyID,isnull(b.FNumber,'') from t_account a left join t_currency b on "
      "a.FCurrencyID=b.FCurrencyID where FAccountID=77",
      recordset({"FCurrencyID", "FNumber"}, {{std::int32_t{3}, "JPY"}}));
  change("FAcctID", std::int32_t{77});
  EXPECT_TRUE(trace().has("\"JPY\", -1)"));
  EXPECT_EQ(bill->number("FExchangeRate"), 0.125);
  EXPECT_FALSE(locked("FExchangeRate"));
}

TEST_P(FieldChanges, AnAccountEntersItsCurrencyThenSetsDecimalsAndRate) {
  bill->sql.answer("Select  a.FCurrencyID", recordset({"FCurrencyID", "FNumber"}, {{std::int32_t{3}, "JPY"}}));
  change("FAcctID", std::int32_t{77});
  const std::string sFor = side.sReceivedFor;
  EXPECT_EQ(
      trace().lines_with_any({"SetText(", "SetFieldValue(", "LockCell(", "Decimals("}),
      (Lines{"BillEvent.SetFieldValue(\"FCurrencyId\", \"JPY\", -1)", "BillEvent.SetFieldDecimals(FAmountFor, -1, 0)",
             "BillEvent.SetFieldDecimals(" + sFor + ", -1, 0)", "BillEvent.SetColumnDecimals(" + sFor + ", 0)",
             "BillEvent.SetFieldDecimals(FDiscountAmountFor, -1, 0)", "BillEvent.SetText(FExchangeRate, \"0.125\", 0)",
             "BillEvent.SetFieldValue(\"FExchangeRate\", 0.125, -1)", "BillCtl.LockCell(FExchangeRate, -1, False)"}));
}

TEST_P(FieldChanges, AnAccountWithoutACurrencySetsTheHeadToBase) {
  bill->sql.answer("Select  a.FCurrencyID", recordset({"a", "b"}, {{std::int32_t{0}, ""}}));
  bill->sql.answer("Select  b.FNumber from t_currency b where b.FCurrencyID=1", recordset({"FNumber"}, {{"RMB"}}));
  use_currency(2, "USD");
  change("FAcctID", std::int32_t{78});
  EXPECT_TRUE(trace().has("\"RMB\", -1)"));
  EXPECT_TRUE(locked("FExchangeRate"));
}

TEST_P(FieldChanges, AnAccountInTheHeadsCurrencyOrAnUnknownOneChangesNothing) {
  change("FAcctID", std::int32_t{79});
  EXPECT_FALSE(trace().has("SetFieldValue("));
  bill->sql.answer("Select  a.FCurrencyID", recordset({"a", "b"}, {{std::int32_t{2}, "USD"}}));
  use_currency(2, "USD");
  change("FAcctID", std::int32_t{80});
  EXPECT_FALSE(trace().has("SetFieldValue("));
}

TEST_P(FieldChanges, AnAccountInBaseCurrencyEntersTheBaseCurrencysCodeUnlessTheHeadHasIt) {
  bill->sql.answer("Select  a.FCurrencyID", recordset({"a", "b"}, {{std::int32_t{1}, "CNY"}}));
  bill->sql.answer("Select  b.FNumber from t_currency b where b.FCurrencyID=1", recordset({"FNumber"}, {{"RMB"}}));
  use_currency(1, "RMB");
  change("FAcctID", std::int32_t{78});
  EXPECT_FALSE(trace().has("SetFieldValue("));
  use_currency(2, "USD");
  change("FAcctID", std::int32_t{79});
  EXPECT_TRUE(trace().has("SetFieldValue(\"FCurrencyId\", \"RMB\", -1)"));
}

TEST_P(FieldChanges, TheAccountsCurrencyIsComparedByItsCode) {
  bill->sql.answer("Select  a.FCurrencyID", recordset({"a", "b"}, {{std::int32_t{2}, "US"}}));
  use_currency(2, "USD");
  change("FAcctID", std::int32_t{80});
  EXPECT_TRUE(trace().has("SetFieldValue(\"FCurrencyId\", \"US\", -1)"));
}

TEST_P(FieldChanges, AnotherFieldChangesNothing) {
  change("FExplanation", "x");
  EXPECT_FALSE(trace().has("LockCell("));
  EXPECT_FALSE(trace().has("SetText("));
}

TEST_P(FieldChanges, AnErrorCancelsAndReachesTheHost) {
  bill->sql.fail("Select FNumber", -9, "gone");
  std::array<Variant, 5> args{Ref<Object>(bill->info(side.sPartner)), Ref<Object>(&bill->record(side.sPartner)), 1, -1,
                              false};
  EXPECT_THROW(bill->events.fire(Event::Change, args), AutomationError);
  EXPECT_TRUE(args[4].as<bool>());
}

}  // namespace
}  // namespace arap::testing
