#include "desk/services/type_book.h"

namespace desk::testing {
namespace {

using TypeKeeping = TypeBook;

TEST_F(TypeKeeping, ATypeWithoutAPointLiesOnTheTopOfItsBranch) {
  begin(kExpense, "203", "运杂费");
  ASSERT_TRUE(save());
  EXPECT_EQ(place("203"), "203 < 2, level 1, leaf");
}

TEST_F(TypeKeeping, EachPointOfTheNumberIsALevel) {
  begin(kIncome, "101.02", "安装");
  ASSERT_TRUE(window->bill());
  session.platform().queue_answer(kButtonYes);  // the parent has children, which counts as use
  ASSERT_TRUE(save());
  begin(kIncome, "101.02.001", "室内安装");
  ASSERT_TRUE(save());
  EXPECT_EQ(place("101.02"), "101.02 < 101, level 2, parent");
  EXPECT_EQ(place("101.02.001"), "101.02.001 < 101.02, level 3, leaf");
}

TEST_F(TypeKeeping, TheFirstChildTakesOverTheBusinessOfItsParentOnBothSides) {
  EXPECT_EQ(lines("102"), 2);
  begin(kIncome, "102.01", "废品");
  session.platform().queue_answer(kButtonYes);
  ASSERT_TRUE(save());
  EXPECT_EQ(lines("102"), 0);
  EXPECT_EQ(lines("102.01"), 2);
  begin(kIncome, "102.02", "赔款");
  session.platform().queue_answer(kButtonYes);
  ASSERT_TRUE(save());
  EXPECT_EQ(lines("102.01"), 2) << "the second child gets nothing";
  EXPECT_EQ(place("102"), "102 < 1, level 1, parent");
}

TEST_F(TypeKeeping, WithoutTheUsersYesTheBusinessStaysWhereItIs) {
  begin(kIncome, "102.01", "废品");
  session.platform().queue_answer(kButtonNo);
  EXPECT_FALSE(save());
  EXPECT_EQ(lines("102"), 2);
  EXPECT_EQ(place("102.01"), "gone");
  EXPECT_EQ(place("102"), "102 < 1, level 1, leaf");
}

TEST_F(TypeKeeping, ATypeThatMovesLeavesAFormerParentThatIsALeafAgain) {
  point_at("101.01");
  ASSERT_TRUE(window->press("mnuEditModify"));
  fill("201.01", "运费");
  // The bill stays in the branch in which it was opened, and there is no 201 in it.
  EXPECT_FALSE(save());
  EXPECT_EQ(told().back(), "上级类别代码201 不存在！");
  fill("102.05", "运费");
  session.platform().queue_answer(kButtonYes);
  ASSERT_TRUE(save());
  EXPECT_EQ(place("102.05"), "102.05 < 102, level 2, leaf");
  EXPECT_EQ(place("101"), "101 < 1, level 1, leaf");
  EXPECT_EQ(place("102"), "102 < 1, level 1, parent");
  EXPECT_EQ(lines("102.05"), 3) << "its own lines and those of the new parent";
}

TEST_F(TypeKeeping, WhatTheStoreRefusesLeavesNothingBehind) {
  const struct {
    const char* sNumber;
    const char* sName;
    const char* sReason;
  } kCases[] = {{"", "无号", "类别代码不能为空。"}, {"203", " ", "类别名称不能为空。"}};
  for (const auto& row : kCases) {
    begin(kExpense, row.sNumber, row.sName);
    const Outcome outcome = save();
    EXPECT_FALSE(outcome);
    EXPECT_EQ(outcome.sReason.find(row.sReason), 0u) << outcome.sReason;
  }
  EXPECT_EQ(window->nodes().size(), 7u);
}

// The tests of the plug-in are asked before; these keep a book sound that they never saw.
TEST_F(TypeKeeping, TheStoreRefusesByItselfWhatWouldBreakTheTree) {
  const auto bill = BillTemplate::shipped("type");
  TypeStore store(book.database(), *bill, kIncome);
  const auto head = arap::make_object<DataRow>(bill, 1);
  const auto body = arap::make_object<BodyPage>(bill, 2);
  const auto save_as = [&](const char* sNumber, std::int32_t nID) {
    head->put(bill->field(bill->find_key("FNumber")).nPosition, sNumber);
    head->put(bill->field(bill->find_key("FName")).nPosition, "名称");
    try {
      store.save(*head, *body, nID);
    } catch (const DeskError& error) {
      return error.problem();
    }
    return std::string("stored");
  };
  EXPECT_EQ(save_as("102", 0), "类别代码“102”已存在。");
  EXPECT_EQ(save_as("201", 0), "类别代码“201”已存在。") << "numbers are unique over both branches";
  EXPECT_EQ(save_as("201.01", 0), "上级类别“201”不存在。") << "the parent lies in the other branch";
  EXPECT_EQ(save_as("103.01", 0), "上级类别“103”不存在。");
  EXPECT_EQ(save_as("111", 11), "该类别有下级类别，代码不能修改。");
  EXPECT_EQ(save_as("101", 11), "stored");
  EXPECT_EQ(save_as("3", 1), "“收入”是固定的分支，不能修改或删除。");
  EXPECT_EQ(save_as("104", 99), "该类别已被其他用户删除，不能保存。");
  EXPECT_EQ(window->nodes().size(), 7u);
}

TEST_F(TypeKeeping, TheLastChildThatGoesLeavesALeaf) {
  book.database().exec("UPDATE t_RP_ROtherBillEntry SET FInOutTypeID = 21 WHERE FInOutTypeID = 12");
  TypeKeeper keeper(session);
  keeper.remove(12);
  EXPECT_EQ(place("101.01"), "gone");
  EXPECT_EQ(place("101"), "101 < 1, level 1, leaf");
  keeper.remove(11);
  EXPECT_EQ(place("1"), "1 < , level 1, parent") << "a branch never becomes a detail type";
  EXPECT_EQ(tasks(), 0);
}

TEST_F(TypeKeeping, ATypeInUseOrABranchCantBeRemoved) {
  TypeKeeper keeper(session);
  for (const std::int32_t nID : {1, 11, 12, 13}) EXPECT_THROW(keeper.remove(nID), DeskError) << nID;
  EXPECT_THROW(keeper.set_discontinued(kIncome, true), DeskError);
  EXPECT_EQ(keeper.items().size(), 7u);
  EXPECT_EQ(tasks(), 0);
}

TEST_F(TypeKeeping, ANewTypeIsFoundByItsNumberAndComesBackAsItWasStored) {
  begin(kExpense, "202.01", "机票");
  ASSERT_TRUE(window->bill()->type_field("FAcctID", -1, "6603"));
  ASSERT_TRUE(window->bill()->type_field("FNote", -1, "国内"));
  ASSERT_TRUE(save());
  ASSERT_TRUE(window->bill()->load_number("202.01"));
  EXPECT_EQ(shown("FName"), "机票");
  EXPECT_EQ(shown("FPreNumber"), "202");
  EXPECT_EQ(window->bill()->code("FAcctID"), "6603");
  EXPECT_EQ(shown("FNote"), "国内");
  EXPECT_FALSE(window->bill()->load_number("999"));
}

}  // namespace
}  // namespace desk::testing
