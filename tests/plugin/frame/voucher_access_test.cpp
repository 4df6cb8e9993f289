#include "frame/voucher_access.h"

#include <gtest/gtest.h>

#include "frame/open_choices.h"
#include "support/test_session.h"

namespace arap::testing {
namespace {

class VoucherAccessTest : public ::testing::Test {
 protected:
  VoucherAccessTest() { session.set_props("ConnectString={Data Source=books};UserName=li;UserID=7;"); }

  void SwitchDataRights(bool bOn) {
    session.server("NUVLPSGLItem.ItemInfo")
        .answers(Member::GetDataRight,
                 dictionary({{open_choices::kRightInUse, bOn}, {open_choices::kRightUserText, "|7|"}}));
  }

  TestSession session;
};

TEST_F(VoucherAccessTest, VoucherWithinTheRightsPassesSilently) {
  EXPECT_TRUE(CheckVoucherRight(33));
  EXPECT_EQ(session.server("NUVLPSGLVoucher.VoucherInfo").last(Member::CheckVoucherRight)[1].as<std::int32_t>(), 33);
  EXPECT_TRUE(session.platform.messages.empty());
}

TEST_F(VoucherAccessTest, VoucherOutsideTheRightsShowsTheNotice) {
  session.server("NUVLPSGLVoucher.VoucherInfo").answers(Member::CheckVoucherRight, false);
  EXPECT_FALSE(CheckVoucherRight(33));
  ASSERT_EQ(session.platform.messages.size(), 1u);
  EXPECT_EQ(session.platform.messages[0].sText, "存在您无科目权限的会计科目，请系统管理员授权后再进入！");
  EXPECT_EQ(session.platform.messages[0].nButtons, 64);
}

TEST_F(VoucherAccessTest, WithoutDataRightsInUseNothingIsQueried) {
  SwitchDataRights(false);
  EXPECT_FALSE(CheckVoucherAccountRight(33));
  EXPECT_TRUE(session.commands.texts.empty());
}

TEST_F(VoucherAccessTest, DataRightIsAskedWithTheConnectionTheUserAndTheAccounts) {
  SwitchDataRights(false);
  CheckVoucherAccountRight(33);
  const std::vector<Variant> args = session.server("NUVLPSGLItem.ItemInfo").last(Member::GetDataRight);
  ASSERT_EQ(args.size(), 3u);
  EXPECT_EQ(args[0].object().get(), &session.server("NUVConnection.AppConnection"));
  EXPECT_EQ(args[1].as<std::int16_t>(), 7);
  EXPECT_EQ(args[2].as<std::int32_t>(), open_choices::kAccountClass);
}

TEST_F(VoucherAccessTest, AccountOutsideTheRightsIsFoundByOneQuery) {
  SwitchDataRights(true);
  session.commands.answer("select FVoucherID", recordset({"FVoucherID"}, {{33}}));
  EXPECT_TRUE(CheckVoucherAccountRight(33));
  const std::vector<Variant> args = session.server("NUVConnection.AppConnection").last(Member::Execute);
  ASSERT_EQ(args.size(), 2u);
  EXPECT_EQ(args[0].text(), "Data Source=books");
  EXPECT_EQ(
      args[1].text(),
      "select FVoucherID from t_VoucherEntry e left join (select case when CharIndex('|7|',FRightUserID)>0 then 1 "
      "else 0 end as FHaveRight,FAccountID from t_Account) a on e.FAccountID=a.FAccountID where a.FHaveRight = 0 "
      "and  e.FVoucherID = 33");
}

TEST_F(VoucherAccessTest, VoucherWithinTheDataRightsIsNotRefused) {
  SwitchDataRights(true);
  EXPECT_FALSE(CheckVoucherAccountRight(33));
  EXPECT_EQ(session.commands.texts.size(), 1u);
}

TEST_F(VoucherAccessTest, EditorOptionsAllowNothingButReading) {
  const Dictionary oOptions = VoucherEditOptions();
  EXPECT_EQ(oOptions.Size(), 6);
  EXPECT_TRUE(oOptions.Value("DisableAddNew").as<bool>());
  for (const char* sOption : {"AddAfterSave", "DetailMode", "CheckCell", "CheckEntry", "HotTrace"}) {
    EXPECT_FALSE(oOptions.Value(sOption).as<bool>()) << sOption;
  }
}

TEST_F(VoucherAccessTest, EditorOpensTheVoucherUnderTheHourglass) {
  ShowVoucherEdit(33, 1);
  const std::vector<Variant> args = session.server("NUVMVEdit.MVoucherEdit").last(Member::LoadVoucher);
  ASSERT_EQ(args.size(), 4u);
  EXPECT_EQ(args[0].as<std::int32_t>(), 1);
  EXPECT_EQ(args[1].as<std::int32_t>(), 33);
  EXPECT_TRUE(args[2].is_missing());
  EXPECT_TRUE(Dictionary(args[3]).Value("DisableAddNew").as<bool>());
  EXPECT_LT(trace().position("MousePointer = 11"), trace().position("LoadVoucher"));
  EXPECT_GT(trace().position("MousePointer = 0"), trace().position("LoadVoucher"));
}

TEST_F(VoucherAccessTest, EditorThatFailsTellsWhy) {
  session.server("NUVMVEdit.MVoucherEdit").fails(Member::LoadVoucher, 1004, "没有此凭证");
  EXPECT_NO_THROW(ShowVoucherEdit(33, 1));
  ASSERT_EQ(session.platform.messages.size(), 1u);
  EXPECT_EQ(session.platform.messages[0].sText, "加载凭证编辑组建失败：没有此凭证");
  EXPECT_EQ(session.platform.messages[0].nButtons, 64);
  EXPECT_EQ(session.platform.pointers, (std::vector<int>{11, 0}));
}

TEST_F(VoucherAccessTest, MachineWithoutTheEditorIsToldSo) {
  session.remove_server("NUVMVEdit.MVoucherEdit");
  EXPECT_NO_THROW(ShowVoucherEdit(33, 1));
  EXPECT_EQ(session.platform.last_message().find("加载凭证编辑组建失败："), 0u);
}

}  // namespace
}  // namespace arap::testing
