#include "other_bill_fixture.h"

namespace arap::testing {
namespace {

class OtherCommands : public OtherBillTest {
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
INSTANTIATE_OTHER_SIDES(OtherCommands);

TEST_P(OtherCommands, ADeleteOfAnUncheckedBillIsTheHosts) {
  EXPECT_FALSE(bill->click("mnuEditDelete"));
  EXPECT_TRUE(boxes().empty());
}

TEST_P(OtherCommands, ADeleteOfABillWithAnyStatusIsRefused) {
  for (const int nStatus : {1, 2, -1}) {
    session.platform.messages.clear();
    bill->head("FStatus", nStatus);
    EXPECT_TRUE(bill->click("mnuEditDelete")) << nStatus;
    EXPECT_EQ(boxes(), notice("单据已经被审核，不允许删除！")) << nStatus;
  }
}

TEST_P(OtherCommands, HelpOpensTheTopicOfTheBillAndCaptionsItsBandOnBothSides) {
  EXPECT_FALSE(bill->click("mnuHelpFile"));
  EXPECT_EQ(trace().lines_with("ShowHelp"),
            (std::vector<std::string>{pick("NUVCHMResTool.ClsCHMHelp.ShowHelp(\"NUVV11.chm\", \"RP1000205\", 0)",
                                           "NUVCHMResTool.ClsCHMHelp.ShowHelp(\"NUVV11.chm\", \"RP1000206\", 0)")}));
  EXPECT_EQ(bill->bar->band_caption("mnuCust"), "帮助");
}

TEST_P(OtherCommands, TheStockQueryNeverReachesTheHost) {
  EXPECT_TRUE(bill->click("mnuStockQuery"));
  EXPECT_TRUE(boxes().empty());
}

TEST_P(OtherCommands, OnlyThePayableBillsNewCommandEmptiesTheCreditPanel) {
  EXPECT_FALSE(bill->click("mnuFileNew"));
  EXPECT_EQ(trace().lines_with("SetStatusPanel"),
            pick(std::vector<std::string>{}, std::vector<std::string>{"BillEvent.SetStatusPanel(5, \"\")"}));
}

TEST_P(OtherCommands, OtherCommandsAreTheHosts) {
  for (const char* sTool : {"mnuEditCopy", "mnuDataLookUp", "mnuFileSave", "mnuFileExit", "mnuEditAddRow", ""}) {
    EXPECT_FALSE(bill->click(sTool)) << sTool;
  }
  EXPECT_EQ(trace().text(), "");
}

TEST_P(OtherCommands, AnUnreadableBillNumberReachesTheHostWhateverTheCommand) {
  std::vector<Variant> aArgs{make_object<TestTool>("mnuEditCopy"), false};
  trace().fail_at(1);
  EXPECT_THROW(bill->events.fire(Event::MenuBarClick, aArgs), AutomationError);
  EXPECT_TRUE(aArgs[1].as<bool>());
}

TEST_P(OtherCommands, AVoucherOpensInTheEditorWithTheOptionsOfABill) {
  voucher_is(77);
  EXPECT_FALSE(bill->click("mnuViewVch"));
  EXPECT_EQ(session.commands.texts,
            (std::vector<std::string>{pick("select FVoucherID from t_RP_ROtherBill where FBillID=9",
                                           "select FVoucherID from t_RP_POtherBill where FBillID=9")}));
  const auto aArgs = editor().last(Member::LoadVoucher);
  ASSERT_EQ(aArgs.size(), 4u);
  EXPECT_EQ(plain_number(aArgs[0]), 1);
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

TEST_P(OtherCommands, ABillWithoutAVoucherSaysSo) {
  for (const Variant& vNone : {Variant(Null{}), Variant(0)}) {
    session.platform.messages.clear();
    voucher_is(vNone);
    bill->click("mnuViewVch");
    EXPECT_EQ(boxes(), notice("单据未记账。"));
  }
  session.platform.messages.clear();
  session.commands.answer("select FVoucherID", recordset({"FVoucherID"}));
  bill->click("mnuViewVch");
  EXPECT_EQ(boxes(), notice("单据未记账。"));
  EXPECT_EQ(editor().count(Member::LoadVoucher), 0u);
}

TEST_P(OtherCommands, WithoutTheRightToTheVoucherOnlyThatMessageIsShown) {
  voucher_is(77);
  session.server("NUVLPSGLVoucher.VoucherInfo").answers(Member::CheckVoucherRight, false);
  bill->click("mnuViewVch");
  EXPECT_EQ(boxes(), notice("存在您无科目权限的会计科目，请系统管理员授权后再进入！"));
  EXPECT_EQ(editor().count(Member::LoadVoucher), 0u);
}

TEST_P(OtherCommands, AnErrorOnTheWayToTheVoucherIsToldAsOneOfTheEditorAndDoesntReachTheHost) {
  voucher_is(77);
  editor().fails(Member::LoadVoucher, 5001, "没有安装");
  EXPECT_NO_THROW(EXPECT_FALSE(bill->click("mnuViewVch")));
  session.commands.fail("select FVoucherID", 5002, "连接中断");
  EXPECT_NO_THROW(EXPECT_FALSE(bill->click("mnuViewVch")));
  EXPECT_EQ(boxes(), (std::vector<Box>{{"加载凭证编辑组建失败：没有安装", 64, "青柚提示"},
                                       {"加载凭证编辑组建失败：连接中断", 64, "青柚提示"}}));
}

}  // namespace
}  // namespace arap::testing
