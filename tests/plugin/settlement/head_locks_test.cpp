#include "plugin/settlement/settlement_fixture.h"

namespace arap::testing {
namespace {

/// Locks and commands that depend on status, type and currency, seen through the events that set them.
class HeadLocks : public SettlementTest {
 protected:
  bool source_command(const char* sTool) const { return bill->bar->tool(sTool).enabled(); }
  std::vector<const char*> source_commands() const {
    return {side.sSelectTool, "mnuDataAutoPartAmt", "mnuDataAutoSumAmt", "mnuFileNeedFilter"};
  }
  void choose_type(std::int32_t nType) { bill->change(side.sType, -1, nType); }
};
INSTANTIATE_BOTH_SIDES(HeadLocks);

TEST_P(HeadLocks, AnAdvanceSwitchesTheFourSourceCommandsOffAndTheOthersOn) {
  choose_type(side.nAdvanceType);
  for (const char* sTool : source_commands()) EXPECT_FALSE(source_command(sTool)) << sTool;
  for (const std::int32_t nType : {side.nOrdinaryType, side.nRefundType}) {
    choose_type(side.nAdvanceType);
    choose_type(nType);
    for (const char* sTool : source_commands()) EXPECT_TRUE(source_command(sTool)) << sTool;
  }
}

TEST_P(HeadLocks, AnotherTypeLeavesTheReceiptsCommandsAsTheyStood) {
  choose_type(side.nAdvanceType);
  choose_type(1077);
  EXPECT_EQ(source_command(side.sSelectTool), !receive());
  EXPECT_EQ(source_command("mnuFileNeedFilter"), !receive());
  choose_type(side.nOrdinaryType);
  choose_type(1077);
  for (const char* sTool : source_commands()) EXPECT_TRUE(source_command(sTool)) << sTool;
}

TEST_P(HeadLocks, OnlyThePaymentFreesTheRowFieldsAfterAnAdvance) {
  choose_type(side.nAdvanceType);
  EXPECT_TRUE(locked(side.sSourceNo));
  EXPECT_TRUE(locked("FBillSettleAmountFor"));
  EXPECT_TRUE(locked(side.sReceivedFor));
  choose_type(side.nOrdinaryType);
  EXPECT_EQ(locked(side.sSourceNo), receive());
  EXPECT_EQ(locked("FBillSettleAmountFor"), receive());
  EXPECT_FALSE(locked(side.sReceivedFor));
  EXPECT_FALSE(locked("FDiscount"));
}

TEST_P(HeadLocks, TheTwoSidesResetTheTypeInTheirOwnOrder) {
  choose_type(side.nRefundType);
  const auto nFirstFree = lock_position(side.sType, false);
  const auto nRewritten = trace().position("SetText(" + std::string(side.sType));
  ASSERT_GE(nFirstFree, 0);
  ASSERT_GE(nRewritten, 0);
  EXPECT_EQ(nFirstFree < nRewritten, receive());
  const std::string sLastFree = "LockCell(" + std::string(side.sType) + ", -1, False)";
  // The payment frees it among the other fields and once more at the end.
  EXPECT_EQ(trace().count(sLastFree), receive() ? 1u : 2u);
}

TEST_P(HeadLocks, ACheckedBillLocksItsFieldsInTheGivenOrder) {
  bill->head("FStatus", std::int32_t{1});
  bill->mutex_success = false;
  bill->fire(Event::AfterLoadBill);
  std::vector<std::string> aExpected;
  for (const char* sKey :
       {side.sPartner, side.sType, "FAcctId", "FAmountFor", "FDate", "FCurrencyID", side.sReceivedFor, "FExchangeRate",
        "FDiscount", "FDiscountAcctId", "FExplanation", "FDiscountAcctId", "FExchangeRate"}) {
    aExpected.push_back("LockCell(" + std::string(sKey) + ", -1, True)");
  }
  std::vector<std::string> aLocks;
  for (const std::string& sLine : trace().lines_with("LockCell(")) aLocks.push_back(sLine.substr(sLine.find("LockC")));
  const std::size_t nSkip = receive() ? 0 : 1;  // the payment locks its type before anything else
  ASSERT_GE(aLocks.size(), nSkip + aExpected.size());
  EXPECT_EQ(std::vector<std::string>(aLocks.begin() + nSkip, aLocks.begin() + nSkip + aExpected.size()), aExpected);
}

TEST_P(HeadLocks, TheRateOfABaseBillIsLockedAndOfAForeignBillFree) {
  choose_type(side.nOrdinaryType);
  EXPECT_TRUE(locked("FExchangeRate"));
  use_currency(2);
  choose_type(side.nOrdinaryType);
  EXPECT_FALSE(locked("FExchangeRate"));
}

TEST_P(HeadLocks, LockingTheRateRunsTheFormulasOfItsThreeFieldsInOrder) {
  choose_type(side.nOrdinaryType);
  const auto nRate = trace().position("DoAction(FExchangeRate");
  const auto nAmount = trace().position("DoAction(FAmountFor");
  const auto nReceived = trace().position("DoAction(" + std::string(side.sReceivedFor));
  ASSERT_GE(nRate, 0);
  EXPECT_LT(nRate, nAmount);
  EXPECT_LT(nAmount, nReceived);
}

TEST_P(HeadLocks, OnlyTheReceiptMarksTheRateAsChangedWhenItsFormulasRun) {
  bill->runs_actions = false;
  bill->fire(Event::AfterNewBill);
  ASSERT_EQ(bill->modified("FExchangeRate"), 0);
  bill->fire(Event::AfterSelBill, {std::int32_t{0}});
  EXPECT_EQ(bill->modified("FExchangeRate"), receive() ? 1 : 0);
}

TEST_P(HeadLocks, ClearingTheHeadKeepsTheDiscountInHeadCurrency) {
  bill->runs_actions = false;
  bill->head("FDiscountAmountFor", 12.0).head("FDiscountAmount", 12.0);
  choose_type(side.nOrdinaryType);
  EXPECT_EQ(bill->number("FDiscountAmount"), 0);
  EXPECT_EQ(bill->number("FDiscountAmountFor"), 12);
  EXPECT_EQ(trace().count("SetText(FDiscountAmount,"), 2u);
}

TEST_P(HeadLocks, ClearedAmountsAreStoredAndNotOnlyShown) {
  bill->runs_actions = false;
  bill->set_text_stores = false;
  set_amounts(*bill, GetParam(), 50, 40);
  choose_type(side.nOrdinaryType);
  for (const char* sKey : {"FAmountFor", "FAmount", side.sReceivedFor, side.sReceived, "FDiscountAmount"}) {
    EXPECT_EQ(bill->number(sKey), 0) << sKey;
    EXPECT_EQ(bill->shown(sKey), "0") << sKey;
  }
  EXPECT_EQ(bill->number("FDiscount"), 100);
  EXPECT_EQ(bill->shown("FDiscount"), "100");
}

TEST_P(HeadLocks, OnlyTheReceiptStartsOverByColour) {
  bill->bar->tool("mnuEdit", "mnuEditBlueBill").set(Member::Checked, true);
  bill->bar->tool("mnuEdit", "mnuEditRedBill").set(Member::Checked, false);
  add_source_row(*bill, GetParam());
  bill->click("mnuEditRedBill");
  EXPECT_EQ(bill->row_count(), receive() ? 0 : 1);
  if (!receive()) return;
  EXPECT_TRUE(bill->bar->tool("mnuSelectBill", "mnuSelectBill_1000000").checked());
  EXPECT_FALSE(bill->bar->tool("mnuSelectBill", "mnuSelectBill_1000005").checked());
  EXPECT_FALSE(bill->bar->tool("mnuSelectBill", "mnuSelectBill_1000005").enabled());
}

}  // namespace
}  // namespace arap::testing
