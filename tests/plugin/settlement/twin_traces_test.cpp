#include <algorithm>

#include "plugin/settlement/settlement_fixture.h"

/// The payment's approved traces are the receipt's, told in the payment's names, but for the differences that are named
/// here.
namespace arap::testing {
namespace {

using Lines = std::vector<std::string>;

Lines lines_of(const std::string& sText) {
  Lines aLines;
  std::istringstream text(sText);
  for (std::string sLine; std::getline(text, sLine);) aLines.push_back(sLine);
  return aLines;
}

std::string in_names_of_the_payment(std::string sText) {
  const std::vector<std::pair<const char*, const char*>> aNames = {
      {"FCustomerID", "FSupplyID"},
      {"FReceiveTypeId", "FPayTypeId"},
      {"FReceiveAmount", "FPayAmount"},
      {"t_RP_RBill", "t_RP_PBill"},
      {"icsale", "ICPurchase"},
      {"clsArBill", "clsApBill"},
      {"1000201", "1000202"},
      {"mnuSelectBill_2000001", "mnuSelectBill_2000002"},
      {"应收单据自动合计收款金额", "应付单据自动合计付款金额"},
      {"应收单据自动分摊收款金额", "应付单据自动分摊付款金额"}};
  for (const auto& [sReceive, sPay] : aNames) {
    for (auto n = sText.find(sReceive); n != std::string::npos; n = sText.find(sReceive, n)) {
      sText.replace(n, std::string(sReceive).size(), sPay);
    }
  }
  return sText;
}

/// "- line" for what only the first has, "+ line" for what only the second has, by the longest common sequence.
Lines differences(const Lines& aFirst, const Lines& aSecond) {
  const std::size_t nFirst = aFirst.size();
  const std::size_t nSecond = aSecond.size();
  std::vector<std::vector<int>> common(nFirst + 1, std::vector<int>(nSecond + 1, 0));
  for (std::size_t i = nFirst; i-- > 0;) {
    for (std::size_t j = nSecond; j-- > 0;) {
      common[i][j] = aFirst[i] == aSecond[j] ? common[i + 1][j + 1] + 1 : std::max(common[i + 1][j], common[i][j + 1]);
    }
  }
  Lines aDifferences;
  for (std::size_t i = 0, j = 0; i < nFirst || j < nSecond;) {
    if (i < nFirst && j < nSecond && aFirst[i] == aSecond[j]) {
      ++i, ++j;
    } else if (j == nSecond || (i < nFirst && common[i + 1][j] >= common[i][j + 1])) {
      aDifferences.push_back("- " + aFirst[i++]);
    } else {
      aDifferences.push_back("+ " + aSecond[j++]);
    }
  }
  return aDifferences;
}

Lines differences_of(const std::string& sName) {
  const Lines aReceive = lines_of(in_names_of_the_payment(ReadGolden(sName, Side::Receive)));
  const Lines aPay = lines_of(ReadGolden(sName, Side::Pay));
  EXPECT_FALSE(aReceive.empty()) << sName;
  return differences(aReceive, aPay);
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

TEST(TwinTraces, SaveCheckUncheckAndMenuDifferInNamesAlone) {
  for (const char* sName : {"before_save", "check", "check_refused", "uncheck", "menu_setup"}) {
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
