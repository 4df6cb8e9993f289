#include <gtest/gtest.h>

#include <array>

#include "data/recordset.h"
#include "desk/services/small_book.h"
#include "frame/contract_containers.h"
#include "frame/contract_services.h"
#include "frame/messages.h"
#include "frame/module_state.h"
#include "frame/open_choices.h"
#include "frame/server_objects.h"
#include "frame/session.h"
#include "services/vouchers.h"

namespace desk::testing {
namespace {

using arap::Member;
using arap::Variant;

// The components as the plug-in reaches them.
class Components : public ::testing::Test {
 protected:
  Variant property(const char* sName) {
    return session.registry().create("NUVPropsMgr.ShareProps")->call(Member::GetProperty, std::int32_t{1}, sName);
  }

  SmallBook book;
  Session session{book.database(), "li"};
  arap::ModuleUse module;
};

TEST_F(Components, ThePropsStringNamesUserAndConnection) {
  EXPECT_EQ(property("PropsString").text(),
            "UserName=li;UserID=1;ConnectString={Provider=desk;Data Source=" + book.path() + "};Language=chs");
  EXPECT_EQ(property("UserName").text(), "li");
}

TEST_F(Components, ABoxEndsTheViewOfTheBook) {
  const auto second = Database::open(book.path());
  const ReadView view(book.database());
  EXPECT_EQ(book.database().query("SELECT * FROM t_Settle").size(), 0u);
  second->exec("INSERT INTO t_Settle VALUES (1, '01', 'x')");
  session.platform().MsgBox("sure?", arap::kQuestion, "t");
  EXPECT_EQ(book.database().query("SELECT * FROM t_Settle").size(), 1u) << "the answer may have taken an hour";
}

TEST_F(Components, AnUnknownUserCantLogIn) { EXPECT_THROW(Session(book.database(), "nobody"), DeskError); }

TEST_F(Components, ProgIDsAreComparedWithoutRegardToCase) {
  EXPECT_EQ(arap::CreateServerObject("NUVlpsArAPBill.clsApBill")->type_name(), "clsApBill");
}

TEST_F(Components, AnUnknownProgIDRaises429) {
  try {
    arap::CreateServerObject("NUVNothing.Here");
    FAIL();
  } catch (const arap::AutomationError& error) {
    EXPECT_EQ(error.number(), 429);
  }
}

TEST_F(Components, ATaskHeldElsewhereRaisesTheConflict) {
  session.platform().set_computer_name("HERE");
  Session other(book.database(), "wang");
  other.platform().set_computer_name("THERE");
  const std::array<std::int32_t, 1> aBills{7};
  ASSERT_GT(other.tasks().take(21, "AR0226", aBills), 0);
  session.activate();
  try {
    arap::ExecFunc(21, "AR0226", 0, 0, std::int32_t{7});
    FAIL();
  } catch (const arap::AutomationError& error) {
    EXPECT_EQ(error.number(), 16390);
    EXPECT_EQ(error.description(), "当前使用的功能与其他用户有冲突,目前无法使用!");
  }
  other.tasks().release_all();
  std::int32_t nTask = arap::ExecFunc(21, "AR0226", 0, 0, std::int32_t{7});
  EXPECT_TRUE(arap::CommitTask(nTask));
}

TEST_F(Components, TheMutexAnswersNothingWithoutTasksAndCommitsABatch) {
  const auto oMutex = arap::CreateServerObject("NUVNetControl.Mutex");
  EXPECT_TRUE(oMutex->call(Member::GetTaskIdByUserInfo, "", "AR0224", std::int32_t{7}).is_nothing());
  arap::ExecFunc(21, "AR0224", 0, 0, std::int32_t{7});
  const Variant vTasks = oMutex->call(Member::GetTaskIdByUserInfo, "", "AR0224", std::int32_t{7});
  ASSERT_EQ(arap::Vector(vTasks).Size(), 1);
  oMutex->call(Member::BatchCommitTask, "", vTasks);
  EXPECT_TRUE(book.database().query("SELECT FTaskID FROM t_Task").empty());
}

TEST_F(Components, RightsAreTheBitsOfTheUser) {
  EXPECT_TRUE(arap::CheckAccess(1010, 1000201, 65536));
  Session other(book.database(), "wang");
  const auto oGLData = other.registry().create("NUVLPCGLView.GLData");
  EXPECT_TRUE(arap::GLData(oGLData).AccessCheck(1010, 1000201, 1));
  EXPECT_FALSE(arap::GLData(oGLData).AccessCheck(1010, 1000201, 4096));
  EXPECT_FALSE(arap::GLData(oGLData).AccessCheck(1010, 1000202, 1));
}

TEST_F(Components, TheActionLogKeepsUserCodeAndText) {
  arap::WriteActionLog("RP1000201A", 1, "审核[编号:SK1]单据成功!");
  const Rows rows = book.database().query("SELECT * FROM t_Log");
  ASSERT_EQ(rows.size(), 1u);
  EXPECT_EQ(rows.text(0, "FUser"), "li");
  EXPECT_EQ(rows.text(0, "FCode"), "RP1000201A");
  EXPECT_EQ(rows.integer(0, "FResult"), 1);
  EXPECT_EQ(rows.text(0, "FText"), "审核[编号:SK1]单据成功!");
}

TEST_F(Components, CurrenciesAreKeptUntilRefresh) {
  const arap::GLData oGLData = arap::GetGLData();
  EXPECT_EQ(oGLData.GetCurrency(2).Operator(), "/");
  EXPECT_EQ(oGLData.GetCurrency(2).ScaleX(), 4);
  book.database().exec("UPDATE t_Currency SET FScale = 3 WHERE FCurrencyID = 2");
  EXPECT_EQ(oGLData.GetCurrency(2).ScaleX(), 4);
  oGLData.RefreshCurrencySet();
  EXPECT_EQ(oGLData.GetCurrency(2).ScaleX(), 3);
}

TEST_F(Components, ThePeriodComesBackByReference) {
  std::array<Variant, 5> args;
  arap::CreateServerObject("NUVMCaculate.CommonSearch")->invoke(Member::GetDateExt, arap::Access::Call, args);
  EXPECT_EQ(arap::LongOf(args[1]), 2026);
  EXPECT_EQ(args[3].text(), "2026-11-01");
  EXPECT_EQ(args[4].text(), "2026-11-30");
}

TEST_F(Components, TheCurrentPeriodStartPassesTheOriginalBatch) {
  EXPECT_EQ(arap::GetCurrentPeriodStart(), "2026-11-01");
}

TEST_F(Components, ASystemValueThatIsMissingIsEmpty) {
  EXPECT_EQ(arap::GetSysParam("IC", "CurrentYear", "?"), "2026");
  EXPECT_EQ(arap::GetSysParam("IC", "RefreshAfterAdd", "?"), "");
}

TEST_F(Components, CheckBillAnswersTheRefusalByReference) {
  book.add_invoice(kReceiptTables, 1, "X1", 10'00);
  book.add_simple_bill(kReceiptTables, 7, 1, 11'00);
  const auto oService = arap::CreateServerObject("NUVlpsArApBill.clsArBill");
  std::array<Variant, 4> args{Variant(""), Variant(std::int32_t{7}), Variant(std::int32_t{1}), Variant("")};
  EXPECT_EQ(arap::LongOf(oService->invoke(Member::CheckBill, arap::Access::Call, args)), 1);
  EXPECT_EQ(args[3].text(), "源单[X1]未核销余额只剩 10.00,不能核销 11.00,审核失败。");
  book.database().exec("UPDATE t_RP_RBillEntry SET FBillSettleAmountFor = 100000, FBillSettleAmount = 100000");
  EXPECT_EQ(arap::LongOf(oService->invoke(Member::CheckBill, arap::Access::Call, args)), 0);
  EXPECT_EQ(args[3].text(), "收款单[SK7]审核成功。");
}

TEST_F(Components, CheckBillSimpleAnswersCodeDescriptionAndNumber) {
  book.add_invoice(kPaymentTables, 1, "X1", 10'00);
  book.add_simple_bill(kPaymentTables, 7, 1, 10'00);
  const auto oService = arap::CreateServerObject("NUVlpsArApBill.clsApBill");
  const arap::Dictionary oData = arap::NewDictionary();
  oData.SetValue("InterID", std::int32_t{7});
  const auto operate = [&](std::int32_t nOperation) {
    oData.SetValue("CheckType", nOperation);
    return arap::Dictionary(oService->call(Member::CheckBillSimple, oData));
  };
  EXPECT_EQ(arap::IntegerOf(operate(1).Value("Code")), 0);
  EXPECT_EQ(operate(0).Value("Description").text(), "付款单[SK7]已经审核,删除失败。");
  EXPECT_EQ(arap::IntegerOf(operate(0).Value("Code")), -1);
  const arap::Dictionary oUnchecked = operate(2);
  EXPECT_EQ(oUnchecked.Value("BillNo").text(), "SK7");
  EXPECT_EQ(oUnchecked.Value("Description").text(), "");
  EXPECT_EQ(arap::IntegerOf(operate(0).Value("Code")), 0);
  EXPECT_EQ(book.status(kPaymentTables, 7), "gone");
}

TEST_F(Components, BothOrdersOfThePushQuestionAnswerTheSame) {
  book.add_bill(kReceiptTables, 7, 10'00, 1001);
  book.database().exec("UPDATE t_RP_RBill SET FPushTypeID = 3");
  const auto oPush = arap::CreateServerObject("NUVMARAPPush.clsPush");
  EXPECT_EQ(arap::LongOf(oPush->call(Member::GetBillTypeID, "", "t_RP_RBill", std::int32_t{7})), 3);
  EXPECT_EQ(arap::LongOf(oPush->call(Member::GetBillTypeID, "", std::int32_t{7}, "t_RP_RBill")), 3);
  EXPECT_EQ(arap::LongOf(oPush->call(Member::GetBillTypeID, "", std::int32_t{8}, "t_RP_RBill")), 0);
}

TEST_F(Components, TheCreditTextTellsTheOpenBalance) {
  book.add_invoice(kReceiptTables, 1, "X1", 12'34);
  const auto oCredit = session.registry().create("NUVBills.clsCredit");
  EXPECT_EQ(oCredit->call(Member::GetStatusMoneyAndCredit, "C01", std::int32_t{1000201}).text(),
            "应收余额 12.34  信用额度 500.00");
  EXPECT_EQ(oCredit->call(Member::GetStatusMoneyAndCredit, "C99", std::int32_t{1000201}).text(), "");
}

TEST_F(Components, AHelpTopicIsTakenThoughTheDeskHasNone) {
  const auto oHelp = session.registry().create("NUVCHMResTool.ClsCHMHelp");
  EXPECT_TRUE(oHelp->call(Member::ShowHelp, "NUVV11.chm", "RP1000201", 0).is_empty());
  EXPECT_TRUE(session.platform().help_files().back().ends_with("\\NUVV11.chm"));
}

TEST_F(Components, SourceDataOfAPaymentTellsWhatWasGivenBack) {
  book.add_invoice(kPaymentTables, 1, "X1", 100'00);
  book.add_simple_bill(kPaymentTables, 7, 1, 80'00);
  book.database().exec("UPDATE t_RP_PBillEntry SET FBackAmountFor = 50000");
  const arap::Recordset rs(
      arap::CreateServerObject("NUVlpsArAPBill.clsApBill")->call(Member::GetSourceBillData, "", "7"));
  ASSERT_EQ(rs.RecordCount(), 1);
  EXPECT_EQ(arap::NumberOf(rs.Value("FBillSettleAmountFor")), 80.0);
  EXPECT_EQ(arap::NumberOf(rs.Value("FAllBackAmountFor")), 5.0);
  EXPECT_EQ(rs.Value("FCurrencyName").text(), "人民币");
}

TEST_F(Components, AVoucherBalancesWithTheDiscount) {
  book.add_invoice(kReceiptTables, 1, "X1", 100'00);
  book.add_simple_bill(kReceiptTables, 7, 1, 100'00);
  book.database().exec(
      "UPDATE t_RP_RBill SET FReceiveAmountFor = 950000, FReceiveAmount = 950000,"
      " FDiscountAcctID = 104");
  EXPECT_THROW(make_voucher(session, kReceiptTables, 7), DeskError);
  ASSERT_TRUE(SettlementPosting(book.database(), kReceiptTables).check(7, "li").bDone);
  const std::int32_t nVoucher = make_voucher(session, kReceiptTables, 7);
  EXPECT_EQ(voucher_text(book.database(), nVoucher),
            "凭证 1  2026-11-05  收款单 SK7\n借 1002 银行存款  95.00\n借 6603 财务费用  5.00\n"
            "贷 1122 应收账款  100.00\n合计 借 100.00  贷 100.00");
  EXPECT_THROW(make_voucher(session, kReceiptTables, 7), DeskError);
}

TEST_F(Components, AVoucherOpensOnlyWithRightsToItsAccounts) {
  book.add_bill(kPaymentTables, 7, 10'00, 1004);
  ASSERT_TRUE(SettlementPosting(book.database(), kPaymentTables).check(7, "li").bDone);
  const std::int32_t nVoucher = make_voucher(session, kPaymentTables, 7);
  const auto oInfo = arap::CreateServerObject("NUVLPSGLVoucher.VoucherInfo");
  EXPECT_TRUE(arap::ToBoolean(oInfo->call(Member::CheckVoucherRight, "", nVoucher)));
  book.database().exec("UPDATE t_Account SET FRightUserID = '2' WHERE FAccountID = 103");
  EXPECT_FALSE(arap::ToBoolean(oInfo->call(Member::CheckVoucherRight, "", nVoucher)));
  session.registry().create("NUVMVEdit.MVoucherEdit")->call(Member::LoadVoucher, "", nVoucher);
  EXPECT_EQ(session.shown_vouchers, std::vector<std::int32_t>{nVoucher});
  EXPECT_THROW(session.registry().create("NUVMVEdit.MVoucherEdit")->call(Member::LoadVoucher, "", std::int32_t{99}),
               arap::AutomationError);
}

}  // namespace
}  // namespace desk::testing
