#include "plugin/settlement/settlement_fixture.h"

namespace arap::testing {
namespace {

class Voucher : public BothSides {
 protected:
  void SetUp() override {
    bill->inter_id = 9;
    trace().clear();
  }
  void voucher_is(Variant vVoucherID) {
    session.commands.answer("select FVoucherID", recordset({"FVoucherID"}, {{std::move(vVoucherID)}}));
  }
  ServerStub& editor() { return session.server("NUVMVEdit.MVoucherEdit"); }
};
INSTANTIATE_BOTH_SIDES(Voucher);

TEST_P(Voucher, OpensInTheEditorWithTheOptionsOfABill) {
  voucher_is(77);
  EXPECT_FALSE(bill->click("mnuViewVch"));
  EXPECT_EQ(session.commands.texts, (Lines{pick("select FVoucherID from t_RP_RBill where FBillID=9",  //
                                                "select FVoucherID from t_RP_PBill where FBillID=9")}));
  const auto aArgs = editor().last(Member::LoadVoucher);
  ASSERT_EQ(aArgs.size(), 4u);
  EXPECT_EQ(plain_text(aArgs[0]), plain_text(session.shared().at("PropsString")));
  ASSERT_TRUE(aArgs[1].is_text());
  EXPECT_EQ(aArgs[1].text(), "77");
  EXPECT_TRUE(aArgs[2].is_missing());
  const auto& oOptions = static_cast<const TestDictionary&>(*aArgs[3].object());
  EXPECT_EQ(oOptions.size(), 6u);
  for (const char* sKey : {"AddAfterSave", "DetailMode", "CheckCell", "CheckEntry", "HotTrace"}) {
    EXPECT_FALSE(oOptions.at(sKey).as<bool>()) << sKey;
  }
  EXPECT_TRUE(oOptions.at("DisableAddNew").as<bool>());
  EXPECT_TRUE(boxes().empty());
}

TEST_P(Voucher, ABillWithoutOneSaysSo) {
  for (const Variant& vNone : {Variant(Null{}), Variant(0)}) {
    session.platform.messages.clear();
    voucher_is(vNone);
    bill->click("mnuViewVch");
    EXPECT_EQ(boxes(), notice("单据未记账。"));
  }
  EXPECT_EQ(editor().count(Member::LoadVoucher), 0u);
}

TEST_P(Voucher, ABillThatIsntStoredHasNone) {
  bill->click("mnuViewVch");
  EXPECT_EQ(boxes(), notice("单据未记账。"));
}

TEST_P(Voucher, WithoutTheRightOnlyTheMessageOfTheRightIsShown) {
  voucher_is(77);
  session.server("NUVLPSGLVoucher.VoucherInfo").answers(Member::CheckVoucherRight, false);
  bill->click("mnuViewVch");
  EXPECT_EQ(boxes(), notice("存在您无科目权限的会计科目，请系统管理员授权后再进入！"));
  EXPECT_EQ(editor().count(Member::LoadVoucher), 0u);
}

TEST_P(Voucher, AnyErrorIsToldAsOneOfTheEditorAndDoesntReachTheHost) {
  voucher_is(77);
  editor().fails(Member::LoadVoucher, 5001, "没有安装");
  EXPECT_NO_THROW(EXPECT_FALSE(bill->click("mnuViewVch")));
  session.commands.fail("select FVoucherID", 5002, "连接中断");
  EXPECT_NO_THROW(EXPECT_FALSE(bill->click("mnuViewVch")));
  EXPECT_EQ(boxes(), (std::vector<Box>{{"加载凭证编辑组建失败：没有安装", 64, "青柚提示"},
                                       {"加载凭证编辑组建失败：连接中断", 64, "青柚提示"}}));
}

TEST_P(Voucher, HelpOpensTheTopicOfTheBill) {
  EXPECT_FALSE(bill->click("mnuHelpFile"));
  EXPECT_EQ(trace().lines_with("ShowHelp"),
            (Lines{pick("NUVCHMResTool.ClsCHMHelp.ShowHelp(\"NUVV11.chm\", \"RP1000201\", 0)",
                        "NUVCHMResTool.ClsCHMHelp.ShowHelp(\"NUVV11.chm\", \"RP1000202\", 0)")}));
}

TEST_P(Voucher, OnlyTheReceiptsHelpCaptionsItsBand) {
  bill->click("mnuHelpFile");
  EXPECT_EQ(bill->bar->band_caption("mnuCust"), pick("帮助", ""));
}

}  // namespace
}  // namespace arap::testing
