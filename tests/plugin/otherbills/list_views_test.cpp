#include "frame/open_choices.h"
#include "other_list_fixture.h"

/// The voucher and the related bills of the selected lines.
namespace arap::testing {
namespace {

class OtherListViews : public OtherListTest {
 protected:
  ServerStub& editor() { return session.server("NUVMVEdit.MVoucherEdit"); }
  ServerStub& viewer() { return session.server("NUVClassLookUp.RelateBilllookUp"); }
};
INSTANTIATE_OTHER_SIDES(OtherListViews);

TEST_P(OtherListViews, TheFirstBillWithAVoucherOpensIt) {
  select(5, 1, "2024-01-15", Null{});
  select(6, 1, "2024-01-15", 77);
  select(7, 1, "2024-01-15", 78);
  EXPECT_FALSE(list->click("Voucher"));
  const auto aArgs = editor().last(Member::LoadVoucher);
  ASSERT_EQ(aArgs.size(), 4u);
  EXPECT_EQ(plain_number(aArgs[0]), 1);
  EXPECT_EQ(plain_number(aArgs[1]), 77);
  EXPECT_TRUE(boxes().empty());
}

TEST_P(OtherListViews, BillsWithoutAVoucherSaySo) {
  select(5, 1, "2024-01-15", Null{});
  select(6, 0, "2024-01-15", 0);
  EXPECT_FALSE(list->click("Voucher"));
  EXPECT_EQ(boxes(), notice("单据未记账。"));
}

TEST_P(OtherListViews, TheLastVoucherReadDecidesWhatIsSaid) {
  select(5, 1, "2024-01-15", 0);
  select(6, 1, "2024-01-15", -1);
  list->click("Voucher");
  EXPECT_EQ(boxes(), notice("关联的凭证不在当前系统中"));
  select(7, 1, "2024-01-15", 0);
  list->click("Voucher");
  EXPECT_EQ(boxes().back(), notice("单据未记账。").back());
}

TEST_P(OtherListViews, WithoutARowOrAtASubtotalLineNothingIsSaid) {
  EXPECT_FALSE(list->click("Voucher"));
  select(5, 1, "2024-01-15", 0);
  select_subtotal();
  EXPECT_FALSE(list->click("Voucher"));
  EXPECT_TRUE(boxes().empty());
}

TEST_P(OtherListViews, AnAccountOutsideTheUsersRightsRefusesTheVoucher) {
  select(5, 1, "2024-01-15", 77);
  const auto right = dictionary();
  right->set(open_choices::kRightUserText, "U").set(open_choices::kRightInUse, true);
  session.server("NUVLPSGLItem.ItemInfo").answers(Member::GetDataRight, right);
  session.commands.answer("select FVoucherID from t_VoucherEntry", recordset({"FVoucherID"}, {{77}}));
  EXPECT_TRUE(list->click("Voucher"));
  EXPECT_EQ(boxes(), notice("存在您无科目权限的会计科目，请系统管理员授权后再进入。"));
  EXPECT_EQ(editor().count(Member::LoadVoucher), 0u);
}

TEST_P(OtherListViews, TheRelatedBillsOfASingleRowAreShown) {
  select(5, 0);
  EXPECT_TRUE(list->click("mnuDataViewNextBill"));
  EXPECT_EQ(plain_number(viewer().value(Member::BillTypeID)), side.nBillClass);
  EXPECT_EQ(plain_number(viewer().value(Member::BillInterID)), 5);
  EXPECT_EQ(viewer().count(Member::ShowList), 1u);
}

TEST_P(OtherListViews, NoneSeveralOrUnnamedRowsHaveNoRelatedBillsAndTheCommandIsTakenAllTheSame) {
  EXPECT_TRUE(list->click("mnuDataViewNextBill"));
  list->select({{"FBillID", 5}});
  EXPECT_TRUE(list->click("mnuDataViewNextBill"));
  list->selection->items.clear();
  list->select({{"FClassTypeID", side.nBillClass}});
  EXPECT_TRUE(list->click("mnuDataViewNextBill"));
  list->selection->items.clear();
  select(5, 0);
  select(6, 0);
  EXPECT_TRUE(list->click("mnuDataViewNextBill"));
  EXPECT_EQ(viewer().count(Member::ShowList), 0u);
}

}  // namespace
}  // namespace arap::testing
