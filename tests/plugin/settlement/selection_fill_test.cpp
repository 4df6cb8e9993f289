#include "plugin/settlement/settlement_fixture.h"

namespace arap::testing {
namespace {

class SelectionFill : public BothSides {
 protected:
  void SetUp() override {
    bill->head("FCurrencyID", 1).head("FExchangeRate", 1.0);
    bill->head("FDepartmentID", 5).head("FEmployeeID", 6);
  }
  void fill(const Variant& vRows = Ref<Object>()) {
    oSel = dictionary({{"rsSrc", vRows}});
    bill->fire(Event::AfterSelBillBeforeFillData, {oSel, Ref<Object>()});
  }
  void add_source(std::int32_t nCurrency, double dRate, double dOpen) {
    bill->add_row({{"FInterID", 11},
                   {side.sSourceNo, "X-1"},
                   {"FBillCurrencyID", nCurrency},
                   {"FEntryExchangeRate", dRate},
                   {side.sOpenFor, dOpen}});
  }
  static Ref<TestRecordset> chosen(std::vector<std::vector<Variant>> aRows) {
    return recordset({"FDeptID", "FEmpID"}, std::move(aRows));
  }

  Ref<TestDictionary> oSel;
};
INSTANTIATE_BOTH_SIDES(SelectionFill);

TEST_P(SelectionFill, RowsAreAddedToTheBody) {
  fill();
  EXPECT_TRUE(oSel->at("AddModel").as<bool>());
}

TEST_P(SelectionFill, TheWholeOpenAmountIsOfferedAtTwoDecimalsToTheEvenDigit) {
  add_source(1, 1, 10.125);
  add_source(1, 1, 10.135);
  fill();
  EXPECT_EQ(bill->number("FBillSettleAmountFor", 1), 10.12);
  EXPECT_EQ(bill->number("FBillSettleAmount", 1), 10.12);
  EXPECT_EQ(bill->number("FBillSettleAmountFor", 2), 10.14);
}

TEST_P(SelectionFill, TheBaseAmountIsOfTheOpenAmountAsItStandsUnrounded) {
  add_source(2, 8, 0.125);
  fill();
  EXPECT_EQ(bill->number("FBillSettleAmountFor", 1), 0.12);
  EXPECT_EQ(bill->number("FBillSettleAmount", 1), 1);
}

TEST_P(SelectionFill, ARowInTheHeadsCurrencyTakesTheHeadsRate) {
  bill->head("FCurrencyID", 2).head("FExchangeRate", 6.5);
  add_source(2, 6.1, 100);
  fill();
  EXPECT_EQ(bill->number("FEntryExchangeRate", 1), 6.5);
  EXPECT_EQ(bill->number("FBillSettleAmount", 1), 650);
}

TEST_P(SelectionFill, ABillInBaseCurrencyDrawsAForeignBillAtTheRowsOwnRate) {
  add_source(2, 6.1, 100);
  fill();
  EXPECT_EQ(bill->number("FEntryExchangeRate", 1), 6.1);
  EXPECT_EQ(bill->number("FBillSettleAmountFor", 1), 100);
  EXPECT_EQ(bill->number("FBillSettleAmount", 1), 610);
}

TEST_P(SelectionFill, ABillInAForeignCurrencyDrawsABaseBillAtTheRowsOwnRate) {
  bill->head("FCurrencyID", 2).head("FExchangeRate", 6.5);
  add_source(1, 1, 100);
  fill();
  EXPECT_EQ(bill->number("FEntryExchangeRate", 1), 1);
  EXPECT_EQ(bill->number("FBillSettleAmount", 1), 100);
}

TEST_P(SelectionFill, ACurrencyThatDividesIsMultipliedAllTheSame) {
  session.add_currency(3, "X", 7, "/", 2);
  add_source(3, 8, 100);
  fill();
  EXPECT_EQ(bill->number("FBillSettleAmount", 1), 800);
}

TEST_P(SelectionFill, UnderAnotherOperatorTheRateOfTheRowBeforeIsKept) {
  session.add_currency(4, "X", 7, "", 2);
  add_source(4, 9, 100);
  add_source(2, 6, 100);
  add_source(4, 9, 100);
  fill();
  EXPECT_EQ(bill->number("FEntryExchangeRate", 1), 0);
  EXPECT_EQ(bill->number("FEntryExchangeRate", 3), 6);
  EXPECT_EQ(bill->number("FBillSettleAmount", 3), 600);
}

TEST_P(SelectionFill, ARowWithoutASourceIsPassedOver) {
  bill->add_row({{"FInterID", 0}, {side.sSourceNo, ""}, {side.sOpenFor, 50.0}});
  add_source(1, 1, 20);
  fill();
  EXPECT_EQ(bill->number("FBillSettleAmountFor", 1), 0);
  EXPECT_EQ(bill->text(side.sSourceNo, 1), "");
  EXPECT_EQ(bill->number("FBillSettleAmountFor", 2), 20);
}

TEST_P(SelectionFill, OnlyAnIdOfZeroIsNoSource) {
  add_source(1, 1, 20);
  bill->set_value("FInterID", 1, std::int32_t{-3});
  fill();
  EXPECT_EQ(bill->number("FBillSettleAmountFor", 1), 20);
}

TEST_P(SelectionFill, RowsBehindAGapAreFilledToo) {
  bill->add_row();
  add_source(1, 1, 20);
  fill();
  EXPECT_EQ(bill->number("FBillSettleAmountFor", 2), 20);
}

TEST_P(SelectionFill, ASourceWithoutANumberIsNamedAnOpeningBalanceWhateverTheType) {
  for (const std::int32_t nType : {side.nOrdinaryType, side.nRefundType}) {
    bill->head(side.sType, nType);
    bill->add_row({{"FInterID", 11}, {side.sSourceNo, ""}, {"FBillCurrencyID", 1}});
  }
  fill();
  EXPECT_EQ(bill->text(side.sSourceNo, 1), pick("期初应收", "期初应付"));
  EXPECT_EQ(bill->text(side.sSourceNo, 2), pick("期初应收", "期初应付"));
}

TEST_P(SelectionFill, AmountsTakeTheDecimalsOfTheirCurrency) {
  session.add_currency(2, "X", 7, "*", 3);
  for (const char* sKey : {"FBillAmountFor", "FBillAmount", side.sRowReceivedFor, side.sRowReceived, side.sOpenFor,
                           side.sOpen, "FBillSettleAmountFor", "FBillSettleAmount"}) {
    bill->bill_map->set(sKey, sKey);
  }
  add_source(2, 6, 1);
  trace().clear();
  fill();
  std::vector<std::string> aExpected;
  const auto expect = [&](const std::string& sKey, const char* sDecimals, bool bColumn) {
    aExpected.push_back("BillEvent.SetFieldDecimals(" + sKey + ", -1, " + sDecimals + ")");
    if (bColumn) aExpected.push_back("BillEvent.SetColumnDecimals(" + sKey + ", " + sDecimals + ")");
  };
  expect("FBillAmountFor", "3", true);
  expect("FBillAmount", "2", true);
  expect(side.sRowReceivedFor, "3", false);
  expect(side.sRowReceived, "2", false);
  expect(side.sOpenFor, "3", false);
  expect(side.sOpen, "2", false);
  expect("FBillSettleAmountFor", "3", false);
  expect("FBillSettleAmount", "2", false);
  EXPECT_EQ(trace().lines_with("Decimals("), aExpected);
}

TEST_P(SelectionFill, WrittenRowsAreMarkedAndNotShown) {
  add_source(1, 1, 20);
  trace().clear();
  fill();
  EXPECT_TRUE(bill->modified("FBillSettleAmountFor", 1));
  EXPECT_FALSE(trace().has("SetText"));
}

TEST_P(SelectionFill, DepartmentAndEmployeeFollowRowsThatAgree) {
  fill(chosen({{8, 9}, {8, 9}}));
  EXPECT_EQ(bill->number("FDepartmentID", -1), 8);
  EXPECT_EQ(bill->number("FEmployeeID", -1), 9);
}

TEST_P(SelectionFill, ASingleRowAlwaysWins) {
  fill(chosen({{8, Null{}}}));
  EXPECT_EQ(bill->number("FDepartmentID", -1), 8);
  EXPECT_EQ(bill->number("FEmployeeID", -1), 6);
}

TEST_P(SelectionFill, DifferentDepartmentsLeaveTheHeadsThoughEmployeesAgree) {
  fill(chosen({{7, 9}, {8, 9}, {8, 9}}));
  EXPECT_EQ(bill->number("FDepartmentID", -1), 5);
  EXPECT_EQ(bill->number("FEmployeeID", -1), 9);
}

TEST_P(SelectionFill, AZeroOnTheLastRecordWritesNothing) {
  fill(chosen({{0, 0}}));
  EXPECT_EQ(bill->number("FDepartmentID", -1), 5);
  EXPECT_EQ(bill->number("FEmployeeID", -1), 6);
}

TEST_P(SelectionFill, NoRecordsetOrAnEmptyOneLeavesTheHead) {
  fill();
  fill(chosen({}));
  EXPECT_EQ(bill->number("FDepartmentID", -1), 5);
  EXPECT_EQ(bill->number("FEmployeeID", -1), 6);
}

TEST_P(SelectionFill, ARecordsetThatCannotCountItsRecordsLeavesTheHead) {
  const auto oRows = make_object<ServerStub>("Recordset");
  oRows->property(Member::RecordCount, std::int32_t{-1});
  EXPECT_NO_THROW(fill(Ref<Object>(oRows)));
  EXPECT_EQ(bill->number("FDepartmentID", -1), 5);
}

TEST_P(SelectionFill, AnErrorPassesToTheHostAndWrittenRowsStay) {
  add_source(1, 1, 20);
  add_source(77, 1, 30);
  // The session has no currency 77.
  EXPECT_THROW(fill(), AutomationError);
  EXPECT_EQ(bill->number("FBillSettleAmountFor", 1), 20);
  EXPECT_EQ(bill->number("FBillSettleAmountFor", 2), 0);
  EXPECT_TRUE(boxes().empty());
}

}  // namespace
}  // namespace arap::testing
