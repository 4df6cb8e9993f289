#include "plugin/settlement/settlement_fixture.h"
#include "support/line_differences.h"

/// The payment's approved traces are the receipt's, told in the payment's names, but for the differences that are named
/// here.
namespace arap::testing {
namespace {

std::string in_names_of_the_payment(std::string sText) {
  const std::vector<std::pair<const char*, const char*>> aNames = {
      {"FCustomerID", "FSupplyID"},
      {"FReceiveTypeId", "FPayTypeId"},
      {"FReceiveAmount", "FPayAmount"},
      {"t_RP_RBill", "t_RP_PBill"},
      {"icsale", "ICPurchase"},
      {"clsArBill", "clsApBill"},
      {"1000201", "1000202"},
      {"AR022", "AP022"},
      {"mnuSelectBill_2000001", "mnuSelectBill_2000002"},
      {"应收单据自动合计收款金额", "应付单据自动合计付款金额"},
      {"应收单据自动分摊收款金额", "应付单据自动分摊付款金额"}};
  return in_other_names(std::move(sText), aNames);
}

Lines differences_of(const std::string& sName) {
  const Lines aReceive = lines_of(in_names_of_the_payment(ReadGolden(sName, Side::Receive)));
  const Lines aPay = lines_of(ReadGolden(sName, Side::Pay));
  EXPECT_FALSE(aReceive.empty()) << sName;
  return line_differences(aReceive, aPay);
}

const Lines kTypeLockedFirst = {"+ BillCtl.LockCell(FPayTypeId, -1, True)"};
const Lines kTypeAndSourceFreed = {"+ BillCtl.LockCell(FPayTypeId, -1, False)",
                                   "+ BillCtl.LockCell(FPurchaseBillNo, -1, False)",
                                   "+ BillCtl.LockCell(FBillSettleAmountFor, -1, False)"};

Lines joined(std::initializer_list<Lines> aParts) {
  Lines aAll;
  for (const Lines& aPart : aParts) aAll.insert(aAll.end(), aPart.begin(), aPart.end());
  return aAll;
}

TEST(TwinTraces, SaveCheckUncheckMenuAndListCommandsDifferInNamesAlone) {
  for (const char* sName : {"before_save", "check", "check_refused", "uncheck", "menu_setup", "list_delete",
                            "list_check", "list_uncheck", "list_voucher"}) {
    EXPECT_EQ(differences_of(sName), Lines()) << sName;
  }
}

TEST(TwinTraces, ThePaymentLocksItsTypeFirstOnLoadAndFreesTypeAndSourceWithTheHead) {
  EXPECT_EQ(differences_of("after_load_bill"), joined({kTypeLockedFirst, kTypeAndSourceFreed}));
}

TEST(TwinTraces, ACheckedPaymentLocksItsTypeFirstOnLoad) {
  EXPECT_EQ(differences_of("after_load_checked_bill"), kTypeLockedFirst);
}

TEST(TwinTraces, AReadOnlyPaymentAlsoSwitchesTheColourCommandsOff) {
  const Lines aColours = {"+ BillEvent.SetBarStatus(\"mnuEditBlueBill\", \"ENABLED\", False)",
                          "+ BillEvent.SetBarStatus(\"mnuEditRedBill\", \"ENABLED\", False)"};
  EXPECT_EQ(differences_of("after_load_read_only_bill"), joined({kTypeLockedFirst, aColours, kTypeAndSourceFreed}));
}

TEST(TwinTraces, ANewPaymentEmptiesTheDiscountAccountResetsItsTypeLastAndLeavesTheRateActionUnmarked) {
  const Lines aExpected = {"+ BillEvent.SetText(FDiscountAcctId, \"\", 0)",
                           "+ FDiscountAcctId.FModify = 1",
                           "- BillCtl.LockCell(FPayTypeId, -1, False)",
                           "- BillEvent.SetText(FPayTypeId, \"1001\", 0)",
                           "+ BillEvent.SetText(FPayTypeId, \"1003\", 0)",
                           "- Bar.mnuSelectBill_2000002.Enabled = True",
                           "- Bar.mnuDataAutoPartAmt.Enabled = True",
                           "- Bar.mnuDataAutoSumAmt.Enabled = True",
                           "- Bar.mnuFileNeedFilter.Enabled = True",
                           "+ BillCtl.LockCell(FPayTypeId, -1, False)",
                           "+ BillCtl.LockCell(FPurchaseBillNo, -1, False)",
                           "+ BillCtl.LockCell(FBillSettleAmountFor, -1, False)",
                           "- FExchangeRate.FModify = 1",
                           "- FAmountFor.FModify = 1",
                           "- FPayAmountFor.FModify = 1",
                           "+ Bar.mnuSelectBill_2000002.Enabled = True",
                           "+ Bar.mnuDataAutoPartAmt.Enabled = True",
                           "+ Bar.mnuDataAutoSumAmt.Enabled = True",
                           "+ Bar.mnuFileNeedFilter.Enabled = True",
                           "+ BillCtl.LockCell(FPayTypeId, -1, False)"};
  EXPECT_EQ(differences_of("after_new_bill"), aExpected);
}

}  // namespace
}  // namespace arap::testing
