#include "plugin/frame/bill_class_fixture.h"

/// The voucher of an open bill: the same in all four bill classes, but for the table and the editor's first argument.
namespace arap::testing {
namespace {

class BillVoucher : public BillClassTest {
 protected:
  void voucher_is(Variant vVoucherID) {
    session.commands.answer("select FVoucherID", recordset({"FVoucherID"}, {{std::move(vVoucherID)}}));
  }
  ServerStub& editor() { return session.server("NUVMVEdit.MVoucherEdit"); }
};
INSTANTIATE_BILL_CLASSES(BillVoucher);

TEST_P(BillVoucher, OpensInTheEditorWithTheOptionsOfABill) {
  voucher_is(77);
  EXPECT_FALSE(bill->click("mnuViewVch"));
  EXPECT_EQ(session.commands.texts,
            (std::vector<std::string>{"select FVoucherID from " + std::string(names.sBillTable) + " where FBillID=9"}));
  const auto aArgs = editor().last(Member::LoadVoucher);
  ASSERT_EQ(aArgs.size(), 4u);
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

TEST_P(BillVoucher, IsOpenedByThePropsStringOnSettlementBillsByAOneOnOtherBills) {
  voucher_is(77);
  bill->click("mnuViewVch");
  const bool bSettlement = names.make_bill == make_settlement_bill;
  EXPECT_EQ(plain_text(editor().last(Member::LoadVoucher).at(0)),
            bSettlement ? plain_text(session.shared().at("PropsString")) : "1");
}

TEST_P(BillVoucher, ABillWithoutOneSaysSo) {
  for (const Variant& vNone : {Variant(Null{}), Variant(0)}) {
    session.platform.messages.clear();
    voucher_is(vNone);
    bill->click("mnuViewVch");
    EXPECT_EQ(boxes(), notice("单据未记账。"));
  }
  EXPECT_EQ(editor().count(Member::LoadVoucher), 0u);
}

TEST_P(BillVoucher, ABillThatIsntStoredHasNone) {
  session.commands.answer("select FVoucherID", recordset({"FVoucherID"}));
  bill->click("mnuViewVch");
  EXPECT_EQ(boxes(), notice("单据未记账。"));
  EXPECT_EQ(editor().count(Member::LoadVoucher), 0u);
}

TEST_P(BillVoucher, OnlyAnIdOfZeroIsNoVoucher) {
  voucher_is(-1);
  bill->click("mnuViewVch");
  EXPECT_TRUE(boxes().empty());
  EXPECT_EQ(editor().last(Member::LoadVoucher)[1].text(), "-1");
}

TEST_P(BillVoucher, IsAskedForOverTheConnectionThatTheSessionHasNow) {
  voucher_is(77);
  bill->click("mnuViewVch");
  session.set_props("ConnectString={Data Source=other};UserName=li;UserID=7;");
  bill->click("mnuViewVch");
  EXPECT_EQ(plain_text(session.server("NUVConnection.AppConnection").last(Member::Execute)[0]), "Data Source=other");
}

TEST_P(BillVoucher, WithoutTheRightOnlyTheMessageOfTheRightIsShown) {
  voucher_is(77);
  session.server("NUVLPSGLVoucher.VoucherInfo").answers(Member::CheckVoucherRight, false);
  bill->click("mnuViewVch");
  EXPECT_EQ(boxes(), notice("存在您无科目权限的会计科目，请系统管理员授权后再进入！"));
  EXPECT_EQ(editor().count(Member::LoadVoucher), 0u);
}

TEST_P(BillVoucher, AnyErrorIsToldAsOneOfTheEditorAndDoesntReachTheHost) {
  voucher_is(77);
  editor().fails(Member::LoadVoucher, 5001, "没有安装");
  EXPECT_NO_THROW(EXPECT_FALSE(bill->click("mnuViewVch")));
  session.commands.fail("select FVoucherID", 5002, "连接中断");
  EXPECT_NO_THROW(EXPECT_FALSE(bill->click("mnuViewVch")));
  EXPECT_EQ(boxes(), (std::vector<Box>{{"加载凭证编辑组建失败：没有安装"}, {"加载凭证编辑组建失败：连接中断"}}));
}

}  // namespace
}  // namespace arap::testing
