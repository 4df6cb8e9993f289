#include "desk/engine/other_bill_world.h"
#include "services/type_keeper.h"

namespace desk::testing {
namespace {

/// A saved bill of a detail type stands open while that type gets its first child.
class TypeTransfer : public OtherBillWorld {
 protected:
  void SetUp() override {
    OtherBillWorld::SetUp();
    fill_credit(GetParam().sFirst, "75");
    ASSERT_TRUE(window->save());
    bill = window->bill_id();
  }
  std::string child() const { return GetParam().sType + std::string(".01"); }
  void give_first_child() {
    const OpenBaseWindow types = open_type_window(*session, "2026-11-10");
    ASSERT_TRUE(types->select_node(types->find_number(GetParam().sType)->nParent));
    ASSERT_TRUE(types->press("mnuFileNewItem"));
    ASSERT_TRUE(types->bill()->type_field("FNumber", -1, child()));
    ASSERT_TRUE(types->bill()->type_field("FName", -1, "下级"));
    session->platform().queue_answer(kButtonYes);
    ASSERT_TRUE(types->bill()->save());
  }

  std::int32_t bill = 0;
};
INSTANTIATE_TEST_SUITE_P(Sides, TypeTransfer, ::testing::ValuesIn(kOtherSides), other_side_name);

TEST_P(TypeTransfer, ABillThatStandsOpenWithTheFormerTypeIsRefusedOnSave) {
  give_first_child();
  ASSERT_TRUE(window->type_field("FExplanation", -1, "stale"));
  const Outcome outcome = window->save();
  EXPECT_FALSE(outcome);
  EXPECT_EQ(outcome.sReason, "单据已被其他用户修改、审核或删除，不能保存。 请重新打开单据。");
}

TEST_P(TypeTransfer, ReadAnewTheBillHasTheChildAndCanBeSaved) {
  give_first_child();
  ASSERT_TRUE(window->load_bill(bill));
  EXPECT_EQ(window->code("FInOutTypeID", 1), child());
  ASSERT_TRUE(window->type_field("FExplanation", -1, "fresh"));
  EXPECT_TRUE(window->save()) << last_message();
}

TEST_P(TypeTransfer, ABillOfAnotherTypeIsSavedAsBefore) {
  const char* sOther = GetParam().sType == std::string("1.01") ? "1.02" : "2.02";
  ASSERT_TRUE(window->type_field("FInOutTypeID", 1, sOther));
  ASSERT_TRUE(window->save());
  give_first_child();
  ASSERT_TRUE(window->type_field("FExplanation", -1, "mine"));
  EXPECT_TRUE(window->save()) << last_message();
  EXPECT_EQ(window->code("FInOutTypeID", 1), sOther);
}

}  // namespace
}  // namespace desk::testing
