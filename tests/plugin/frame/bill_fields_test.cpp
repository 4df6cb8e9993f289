#include "frame/bill_fields.h"

#include <gtest/gtest.h>

#include "support/test_bill.h"
#include "support/test_session.h"

/// Reading, counting, locking and the small helpers; SetBillField has a file of its own.
namespace arap::testing {
namespace {

class BillFieldsTest : public ::testing::Test {
 protected:
  BillFieldsTest() {
    oBill->head("FAmountFor", "12.5元");
    oBill->define("FAmount", 2, 0.0);
    oBill->define("FBillID", 2, "");
    oBill->set_key_field("FBillID");
  }
  void AddKeyedRows(std::initializer_list<const char*> aKeys) {
    for (const char* sKey : aKeys) oBill->add_row({{"FBillID", sKey}});
  }

  TestSession session;
  Ref<TestBill> oBill = make_object<TestBill>(2);
  BillEvent bill{Ref<Object>(oBill)};
};

TEST_F(BillFieldsTest, ReadsHeadAndRowsWithoutConversion) {
  oBill->add_row({{"FAmount", 7.5}});
  oBill->add_row({{"FAmount", Null{}}});
  EXPECT_EQ(GetBillField(bill, "famountfor", kHead).text(), "12.5元");
  EXPECT_EQ(GetBillField(bill, "FAmount", 1).as<double>(), 7.5);
  EXPECT_TRUE(GetBillField(bill, "FAmount", 2).is_null());
}

TEST_F(BillFieldsTest, ReadsAnotherPropertyOfTheRecord) {
  oBill->head("FCurrencyID", 2, "美元", "02");
  EXPECT_EQ(GetBillField(bill, "FCurrencyID", kHead, "FFND").text(), "02");
  EXPECT_EQ(GetBillField(bill, "FCurrencyID", kHead, "FNone", 9).as<std::int32_t>(), 9);
}

TEST_F(BillFieldsTest, AbsentFieldOrRowIsTheDefault) {
  EXPECT_EQ(GetBillField(bill, "FNone", kHead).text(), "");
  EXPECT_EQ(GetBillField(bill, "FNone", kHead, "FFLD", -5).as<std::int32_t>(), -5);
  EXPECT_EQ(GetBillField(bill, "FAmount", 1, "FFLD", "none").text(), "none");
}

TEST_F(BillFieldsTest, NumberIsTheNumericPrefixAndNullIsZero) {
  oBill->add_row({{"FAmount", Null{}}});
  EXPECT_EQ(GetBillNumber(bill, "FAmountFor", kHead), 12.5);
  EXPECT_EQ(GetBillLong(bill, "FAmountFor", kHead), 12);
  EXPECT_EQ(GetBillNumber(bill, "FAmount", 1), 0);
  EXPECT_EQ(GetBillNumber(bill, "FNone", kHead), 0);
}

TEST_F(BillFieldsTest, LockFreesOrLocksTheWholeColumn) {
  LockBillField(bill, "FAmount", true, false);
  EXPECT_TRUE(oBill->cell_locked("FAmount"));
  LockBillField(bill, "FAmount", false, false);
  EXPECT_FALSE(oBill->cell_locked("FAmount"));
}

TEST_F(BillFieldsTest, LockWithClearEmptiesTheFieldShowsItAndMarksIt) {
  LockBillField(bill, "FAmountFor", true, true, 0);
  EXPECT_EQ(oBill->number("FAmountFor"), 0);
  EXPECT_EQ(oBill->modified("FAmountFor"), 0);
  EXPECT_EQ(oBill->shown("FAmountFor"), "0");
  EXPECT_TRUE(oBill->cell_locked("FAmountFor"));
  LockBillField(bill, "FAmountFor", true, true);
  EXPECT_EQ(oBill->modified("FAmountFor"), 1);
}

TEST_F(BillFieldsTest, ActionRunsOnTheRecordOfTheRow) {
  oBill->add_row({{"FAmount", 3.0}});
  oBill->add_row({{"FAmount", 4.0}});
  int nRowRun = 0;
  oBill->add_action("FAmount", "FX=1", [&](TestBill&, int nRow) { nRowRun = nRow; });
  RunFieldAction(bill, "FAmount", 2, false);
  EXPECT_EQ(nRowRun, 2);
  EXPECT_EQ(oBill->modified("FAmount", 2), 0);
  RunFieldAction(bill, "FAmount", 2, true);
  EXPECT_EQ(oBill->modified("FAmount", 2), 1);
  EXPECT_EQ(oBill->modified("FAmount", 1), 0);
}

TEST_F(BillFieldsTest, FieldThatTheTemplateLacksHasNoAction) {
  RunFieldAction(bill, "FNone", kHead, true);
  EXPECT_FALSE(trace().has("DoAction"));
}

TEST_F(BillFieldsTest, CountsRowsWhoseKeyIsNotBlank) {
  AddKeyedRows({"11", "", "12", "  ", ""});
  EXPECT_EQ(GetEntryRowCount(bill, 1, false), 2);
  EXPECT_EQ(GetEntryRowCount(bill, 1, true), 5);
}

TEST_F(BillFieldsTest, UsedRowsNeedNotBeContiguous) {
  AddKeyedRows({"11", "", "13", "", "", "", "", "", "", ""});
  EXPECT_EQ(GetEntryRowCount(bill, 1, false), 2);
}

TEST_F(BillFieldsTest, WithoutAKeyFieldEveryRowCounts) {
  oBill->set_key_field("");
  AddKeyedRows({"", ""});
  EXPECT_EQ(GetEntryRowCount(bill, 1, false), 2);
}

TEST_F(BillFieldsTest, SecondBodyIsCountedByItself) {
  AddKeyedRows({"1"});
  oBill->add_row({{"FNote", "x"}}, 2);
  oBill->add_row({{"FNote", "y"}}, 2);
  EXPECT_EQ(GetEntryRowCount(bill, 2, true), 2);
}

TEST_F(BillFieldsTest, EveryPageIsLockedByItsIdField) {
  LockBillPages(bill, true);
  for (const char* sKey : {"FID", "FID2", "FID3"}) EXPECT_TRUE(oBill->column_locked(sKey)) << sKey;
  LockBillPages(bill, false);
  for (const char* sKey : {"FID", "FID2", "FID3"}) EXPECT_FALSE(oBill->column_locked(sKey)) << sKey;
}

TEST_F(BillFieldsTest, LockingPagesSkipsWhateverFails) {
  const int nFaults = FailEachCall([&](const auto& arm) {
    arm();
    EXPECT_NO_THROW(LockBillPages(bill, true));
  });
  EXPECT_GT(nFaults, 3);
}

TEST_F(BillFieldsTest, ClearModifyReachesEveryRecordOfEveryPage) {
  oBill->add_row({{"FAmount", 1.0}});
  oBill->add_row({{"FNote", "x"}}, 2);
  oBill->record("FAmountFor").set("FModify", 1);
  oBill->record("FAmount", 1).set("FModify", 1);
  oBill->define("FNote2", 3);
  oBill->record("FNote", 1).set("FModify", 1);
  ClearModifyFlags(bill);
  EXPECT_EQ(oBill->modified("FAmountFor"), 0);
  EXPECT_EQ(oBill->modified("FAmount", 1), 0);
  EXPECT_EQ(oBill->modified("FNote", 1), 0);
}

TEST_F(BillFieldsTest, ClearModifyPassesOverAbsentPagesAndPlainValues) {
  const auto oSmall = make_object<TestBill>(1);
  oSmall->head("FDate", "2024-01-01");
  oSmall->record("FDate").set("FModify", 1);
  static_cast<TestDictionary&>(*oSmall->data().at("Page1").object()).set("Count", 3).set("None", Ref<Object>());
  EXPECT_NO_THROW(ClearModifyFlags(BillEvent(Ref<Object>(oSmall))));
  EXPECT_EQ(oSmall->modified("FDate"), 0);
}

TEST_F(BillFieldsTest, FieldsOfABodyAreShownAndHiddenByAList) {
  SetFieldsVisible(bill, "FAmount,FBillID", 1, false);
  EXPECT_FALSE(oBill->visible("FAmount"));
  EXPECT_FALSE(oBill->visible("FBillID"));
  SetFieldsVisible(bill, "FBillID", 1, true);
  EXPECT_FALSE(oBill->visible("FAmount"));
  EXPECT_TRUE(oBill->visible("FBillID"));
  SetFieldsVisible(bill, "", 1, true);
  EXPECT_FALSE(oBill->visible("FAmount"));
}

TEST_F(BillFieldsTest, GridBlockIsLockedAsOneBlock) {
  const auto oGrid = make_object<ServerStub>("Grid");
  for (const Member member : {Member::BlockMode, Member::Row, Member::Col, Member::Row2, Member::Col2, Member::Lock}) {
    oGrid->property(member);
  }
  LockGridBlock(oGrid, 1, 2, 3, 4, true);
  EXPECT_EQ(trace().lines(),
            (std::vector<std::string>{"Grid.BlockMode = True", "Grid.Row = 1", "Grid.Col = 2", "Grid.Row2 = 3",
                                      "Grid.Col2 = 4", "Grid.Lock = True", "Grid.BlockMode = False"}));
}

TEST_F(BillFieldsTest, TheJoinsOfTheOtherBillsReachTheirViewOfMoney) {
  EXPECT_EQ(T_RP_ROTHERBILL,
            " LEFT JOIN vw_BillRPMoney vrp ON t_RP_ROtherBill.FBillID=vrp.FInterID AND vrp.FTranType=1000205 ");
  EXPECT_EQ(T_RP_POTHERBILL,
            " LEFT JOIN vw_BillRPMoney vrp ON t_RP_POtherBill.FBillID=vrp.FInterID AND vrp.FTranType=1000206 ");
}

TEST_F(BillFieldsTest, VectorIsSearchedFromItsFirstItem) {
  const Vector oVector(Ref<Object>(make_object<TestVector>(std::vector<Variant>{"a", 7, 7, "b"})));
  std::int32_t nIndex = -1;
  EXPECT_TRUE(FindInVector(7.0, oVector, nIndex));
  EXPECT_EQ(nIndex, 2);
  nIndex = -1;
  EXPECT_FALSE(FindInVector("7", oVector, nIndex));
  EXPECT_EQ(nIndex, -1);
}

TEST_F(BillFieldsTest, OnlyNullIsReplaced) {
  EXPECT_EQ(NullToValue(Null{}, "x").text(), "x");
  EXPECT_EQ(NullToValue("", "x").text(), "");
  EXPECT_TRUE(NullToValue(Empty{}, "x").is_empty());
}

TEST_F(BillFieldsTest, PositiveIsAboveZero) {
  EXPECT_TRUE(IsPositive(0.001));
  EXPECT_FALSE(IsPositive(0));
  EXPECT_FALSE(IsPositive(-1));
}

}  // namespace
}  // namespace arap::testing
