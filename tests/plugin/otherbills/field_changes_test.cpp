#include "other_bill_fixture.h"

namespace arap::testing {
namespace {

class OtherFieldChanges : public OtherBillTest {
 protected:
  OtherFieldChanges() {
    add_other_row(*bill, {.dAmountFor = 60});
    add_other_row(*bill, {.nType = kOtherDetailType, .dAmountFor = 0});
    add_other_row(*bill, {.nType = 0, .dAmountFor = 5});
    add_other_row(*bill, {.nType = kDetailType, .dAmountFor = 0.1});
    trace().clear();
  }
  bool change(const char* sKey, Variant vValue, int nRow = -1) { return bill->change(sKey, nRow, std::move(vValue)); }
  bool ran_action(int nRow) const {
    return trace().has("BillCtl.DoAction(FBillAmountFor, FBillAmountFor[" + std::to_string(nRow) + "], " +
                       std::to_string(nRow) + ")");
  }
};
INSTANTIATE_OTHER_SIDES(OtherFieldChanges);

TEST_P(OtherFieldChanges, ARowAmountIsSummedIntoTheHeadWithoutRounding) {
  EXPECT_FALSE(change("FBillAmountFor", 0.2, 1));
  EXPECT_EQ(bill->number("FAmountFor"), 0.2 + 0.1);
  EXPECT_EQ(bill->shown("FAmountFor"), plain_text(0.2 + 0.1));
}

TEST_P(OtherFieldChanges, AnAmountWithoutATypeAddsNothing) {
  change("FBillAmountFor", 1000.0, 3);
  EXPECT_EQ(bill->number("FAmountFor"), 60.1);
}

TEST_P(OtherFieldChanges, TheTypeOfTheBillIsReadBeforeASumIsWritten) {
  trace().set_detail(Trace::Detail::All);
  change("FBillAmountFor", 60.0, 1);
  const std::vector<std::string> aLines = trace().lines_with_any({"FBillTypeId", "SetText(FAmountFor"});
  ASSERT_GE(aLines.size(), 2u);
  EXPECT_NE(aLines.front().find("FBillTypeId"), std::string::npos) << aLines.front();
}

TEST_P(OtherFieldChanges, ANegativeTypeAddsNothing) {
  bill->set_value("FInOutTypeId", 1, -1);
  change("FBillAmountFor", 60.0, 1);
  EXPECT_EQ(bill->number("FAmountFor"), 0.1);
}

TEST_P(OtherFieldChanges, AnImmediateBillIsSettledWholeACreditBillNot) {
  change("FBillAmountFor", 40.0, 1);
  EXPECT_EQ(bill->number("FCheckAmountFor"), 40.1);
  use_credit();
  change("FBillAmountFor", 50.0, 1);
  EXPECT_EQ(bill->number("FCheckAmountFor"), 0);
  EXPECT_EQ(bill->number("FAmountFor"), 50.1);
}

TEST_P(OtherFieldChanges, ABillWithoutATypeIsOpenLikeACreditBill) {
  bill->head("FBillTypeId", "").head("FCheckAmountFor", 9.0);
  change("FBillAmountFor", 40.0, 1);
  EXPECT_EQ(bill->number("FCheckAmountFor"), 0);
}

TEST_P(OtherFieldChanges, TheTypesOfTheOtherSideAreNoTypesHere) {
  const OtherNames& other = other_names_of(receivable_side() ? Side::Pay : Side::Receive);
  answer_credit("额度 500");
  change("FBillTypeId", other.nCreditType);
  EXPECT_EQ(bill->panel(5), "");
  change("FBillTypeId", other.nImmediateType);
  EXPECT_EQ(bill->number("FCheckAmountFor"), 0);
}

TEST_P(OtherFieldChanges, SwitchingToACreditBillEmptiesTheSettlementAndOpensTheWholeAmount) {
  bill->head("FSettleId", 4).head("FSettleIdNo", "1001").head("FCheckAmountFor", 60.1);
  EXPECT_FALSE(change("FBillTypeId", side.nCreditType));
  EXPECT_EQ(bill->text("FSettleId"), "");
  EXPECT_EQ(bill->text("FSettleIdNo"), "");
  EXPECT_EQ(bill->modified("FSettleId"), 1);
  EXPECT_EQ(bill->number("FCheckAmountFor"), 0);
  EXPECT_TRUE(locked("FSettleId"));
  EXPECT_FALSE(locked("FLimitDate"));
}

TEST_P(OtherFieldChanges, SwitchingToAnImmediateBillFreesTheSettlement) {
  use_credit();
  bill->fire(Event::AfterNewBill);
  EXPECT_FALSE(change("FBillTypeId", side.nImmediateType));
  EXPECT_FALSE(locked("FSettleId"));
  EXPECT_FALSE(locked("FSettleIdNo"));
  EXPECT_TRUE(locked("FLimitDate"));
  EXPECT_EQ(bill->number("FCheckAmountFor"), 60.1);
}

TEST_P(OtherFieldChanges, TheKindOfTheBillDecidesOnTheCreditText) {
  answer_credit("额度 500");
  bill->info("FBillTypeId")->set("FClassTypeID", side.nBillClass);
  change("FBillTypeId", side.nCreditType);
  EXPECT_EQ(bill->panel(5), "额度 500");
  EXPECT_EQ(credit_asked(), "01.007");
  change("FBillTypeId", side.nImmediateType);
  EXPECT_EQ(bill->panel(5), "");
}

TEST_P(OtherFieldChanges, TheCreditTextGoesByTheClassOfTheTypeField) {
  answer_credit("额度 500");
  bill->info("FBillTypeId")->set("FClassTypeID", 3);
  change("FBillTypeId", side.nCreditType);
  EXPECT_EQ(bill->panel(5), "");
  EXPECT_EQ(credit_asked(), "");
}

TEST_P(OtherFieldChanges, ACurrencyBringsItsRateAsAMultiplier) {
  EXPECT_FALSE(change("FCurrencyId", 2));
  EXPECT_EQ(bill->number("FExchangeRate"), 7);
  EXPECT_EQ(bill->shown("FExchangeRate"), "7");
  EXPECT_FALSE(locked("FExchangeRate"));
  change("FCurrencyId", 3);
  EXPECT_EQ(bill->number("FExchangeRate"), 0.125);
  change("FCurrencyId", 1);
  EXPECT_EQ(bill->number("FExchangeRate"), 1);
  EXPECT_TRUE(locked("FExchangeRate"));
}

TEST_P(OtherFieldChanges, AnUnknownOperatorWritesARateOfZero) {
  session.add_currency(4, "点数", 9, "^", 2);
  EXPECT_FALSE(change("FCurrencyId", 4));
  EXPECT_EQ(bill->number("FExchangeRate"), 0);
}

TEST_P(OtherFieldChanges, ADividingRateOfZeroRefusesTheEdit) {
  session.add_currency(4, "空", 0, "/", 2);
  try {
    change("FCurrencyId", 4);
    FAIL() << "no error";
  } catch (const AutomationError& error) {
    EXPECT_EQ(error.number(), 11);
  }
}

TEST_P(OtherFieldChanges, WithoutACurrencyNothingHappens) {
  EXPECT_FALSE(change("FCurrencyId", ""));
  EXPECT_FALSE(trace().has("SetText"));
  EXPECT_FALSE(trace().has("LockCell"));
  EXPECT_FALSE(trace().has("Decimals"));
}

TEST_P(OtherFieldChanges, ACurrencyChangesTheDecimalsOfItsOwnAmountsOnly) {
  change("FCurrencyId", 3);
  EXPECT_EQ(
      trace().lines_with("Decimals("),
      (std::vector<std::string>{
          "BillEvent.SetFieldDecimals(FAmountFor, -1, 0)", "BillEvent.SetFieldDecimals(FCheckAmountFor, -1, 0)",
          "BillEvent.SetFieldDecimals(FBillAmountFor, -1, 0)", "BillEvent.SetColumnDecimals(FBillAmountFor, 0)"}));
}

TEST_P(OtherFieldChanges, TheRowsWithAnAmountFollowCurrencyAndRate) {
  change("FCurrencyId", 2);
  EXPECT_TRUE(ran_action(1));
  EXPECT_FALSE(ran_action(2));
  EXPECT_TRUE(ran_action(3));
  EXPECT_EQ(bill->number("FBillAmount", 1), 420);
  trace().clear();
  EXPECT_FALSE(change("FExchangeRate", 6.0));
  EXPECT_TRUE(ran_action(1));
  EXPECT_FALSE(ran_action(2));
  EXPECT_EQ(bill->number("FBillAmount", 1), 360);
  EXPECT_FALSE(trace().has("FBillAmountFor[1].FModify"));
}

TEST_P(OtherFieldChanges, AParentTypeIsRefusedAtOnce) {
  EXPECT_TRUE(change("FInOutTypeId", kParentType, 1));
  EXPECT_EQ(boxes(), notice(pick("请选择收入类别的明细类别", "请选择支出类别的明细类别")));
}

TEST_P(OtherFieldChanges, ADetailAnEmptyAndAnUnknownTypePass) {
  for (const Variant& vType : {Variant(kDetailType), Variant(""), Variant(0), Variant(99)}) {
    EXPECT_FALSE(change("FInOutTypeId", vType, 1));
  }
  EXPECT_EQ(boxes().size(), 0u);
}

TEST_P(OtherFieldChanges, TheLeafTestLooksThroughAnEarlierFilter) {
  change("FInOutTypeId", kDetailType, 1);
  EXPECT_TRUE(change("FInOutTypeId", kParentType, 1));
  EXPECT_FALSE(change("FInOutTypeId", kOtherDetailType, 1));
}

TEST_P(OtherFieldChanges, AnyOtherFieldChangesNothing) {
  EXPECT_FALSE(change("FBillNote", "x", 1));
  EXPECT_FALSE(change("FBillNo", "QT9"));
  EXPECT_EQ(trace().text(), "");
}

TEST_P(OtherFieldChanges, KeysCompareWithoutRegardToCase) {
  bill->info("FBillAmountFor")->set("FKey", "fbillamountFOR");
  change("FBillAmountFor", 40.0, 1);
  EXPECT_EQ(bill->number("FAmountFor"), 40.1);
}

TEST_P(OtherFieldChanges, AnErrorRefusesTheEditAndReachesTheHost) {
  session.ledger().fails(Member::GetCurrency, -77, "ledger gone");
  std::array<Variant, 5> args{Ref<Object>(bill->info("FCurrencyId")), Ref<Object>(&bill->record("FCurrencyId")), 1, -1,
                              false};
  try {
    bill->events.fire(Event::Change, args);
    FAIL() << "no error";
  } catch (const AutomationError& error) {
    EXPECT_EQ(error.number(), -77);
    EXPECT_EQ(error.description(), "ledger gone");
  }
  EXPECT_TRUE(args[4].as<bool>());
}

}  // namespace
}  // namespace arap::testing
