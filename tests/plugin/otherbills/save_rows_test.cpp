#include "save_fixture.h"

namespace arap::testing {
namespace {

class OtherSaveRows : public OtherSaveTest {
 protected:
  static constexpr const char* kNoEntry = "单据体要求至少有一条分录，请输入单据体信息！";
  int add_empty_row(const char* sNote = "") {
    return add_other_row(*bill, {.nType = 0, .dAmountFor = 0, .sNote = sNote});
  }
};
INSTANTIATE_OTHER_SIDES(OtherSaveRows);

TEST_P(OtherSaveRows, ABillWhoseOnlyRowIsEmptyHasNoEntry) {
  bill->remove_rows();
  add_empty_row();
  expect_refused(kNoEntry);
  EXPECT_EQ(bill->row_count(), 1);
}

TEST_P(OtherSaveRows, ABillWithoutARowHasNoEntry) {
  bill->remove_rows();
  expect_refused(kNoEntry);
}

TEST_P(OtherSaveRows, AnEmptyThirdRowIsDroppedAndTheBillSaved) {
  add_empty_row();
  EXPECT_FALSE(bill->save());
  EXPECT_EQ(bill->row_count(), 2);
  EXPECT_EQ(bill->number("FAmountFor"), 100);
}

TEST_P(OtherSaveRows, AnEmptyRowBetweenOthersIsRefused) {
  bill->remove_rows();
  add_other_row(*bill);
  add_empty_row();
  add_other_row(*bill);
  expect_refused(type_missing(2));
  EXPECT_EQ(bill->row_count(), 3);
}

TEST_P(OtherSaveRows, OnlyTheLastOfTwoEmptyRowsWouldPass) {
  add_empty_row();
  add_empty_row();
  expect_refused(type_missing(3));
}

TEST_P(OtherSaveRows, AnEmptyLastRowWithANoteIsARowWithoutAType) {
  add_empty_row("押金");
  expect_refused(type_missing(3));
  EXPECT_EQ(bill->row_count(), 3);
}

TEST_P(OtherSaveRows, ALastRowWithAnAmountIsARowWithoutAType) {
  add_other_row(*bill, {.nType = 0, .dAmountFor = 5});
  expect_refused(type_missing(3));
}

TEST_P(OtherSaveRows, ADroppedRowStaysDroppedWhenTheSaveIsRefusedLater) {
  add_empty_row();
  types().answers(Member::IsSameAcctId, true);
  expect_refused(pick("收入类别科目同结算账户科目相同，请修改。", "支出类别科目同结算账户科目相同，请修改。"));
  EXPECT_EQ(bill->row_count(), 2);
}

TEST_P(OtherSaveRows, ARowWithoutAnAmountIsRefusedBeforeItsTypeIsLookedAt) {
  bill->set_value("FInOutTypeId", 2, kParentType);
  bill->set_value("FBillAmountFor", 2, 0.0);
  expect_refused(amount_missing(2));
  bill->set_value("FBillAmountFor", 2, 40.0);
  expect_refused(not_detail(2));
}

TEST_P(OtherSaveRows, TheLowestRowWithAFaultIsNamed) {
  bill->set_value("FInOutTypeId", 1, kParentType);
  bill->set_value("FBillAmountFor", 2, 0.0);
  expect_refused(not_detail(1));
}

TEST_P(OtherSaveRows, ATypeThatIsMissingFromTheTypesPasses) {
  bill->set_value("FInOutTypeId", 1, 99);
  EXPECT_FALSE(bill->save());
  EXPECT_EQ(plain_text(types().last(Member::IsSameAcctId)[1]), "99,12");
}

TEST_P(OtherSaveRows, ARowWithANegativeTypeIsPassedOverOnTheReceivableBillAlone) {
  add_other_row(*bill, {.nType = -1, .dAmountFor = 7, .sNote = "x"});
  if (receivable_side()) {
    EXPECT_FALSE(bill->save());
    EXPECT_EQ(bill->row_count(), 3);
    EXPECT_EQ(bill->number("FAmountFor"), 100);
  } else {
    expect_refused(type_missing(3));
  }
}

TEST_P(OtherSaveRows, AnEmptyLastRowWithANegativeTypeIsDroppedOnThePayableBillAlone) {
  add_other_row(*bill, {.nType = -1, .dAmountFor = 0});
  EXPECT_FALSE(bill->save());
  EXPECT_EQ(bill->row_count(), pick(3, 2));
}

TEST_P(OtherSaveRows, ANegativeAmountIsAnAmount) {
  bill->set_value("FBillAmountFor", 2, -10.0);
  EXPECT_FALSE(bill->save());
  EXPECT_EQ(bill->number("FAmountFor"), 50);
}

TEST_P(OtherSaveRows, AnEmptyFirstRowIsRefusedWhereOthersFollow) {
  bill->set_value("FInOutTypeId", 1, 0);
  bill->set_value("FBillAmountFor", 1, 0.0);
  expect_refused(type_missing(1));
}

}  // namespace
}  // namespace arap::testing
