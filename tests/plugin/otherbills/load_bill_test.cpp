#include "other_bill_fixture.h"

namespace arap::testing {
namespace {

class OtherLoadBill : public OtherBillTest {
 protected:
  OtherLoadBill() {
    bill->head("FBillId", 31).head("FSettleId", 4).head("FSettleIdNo", "1001");
    bill->edit_mode = 2;
    trace().clear();
  }
  void load() { bill->fire(Event::AfterLoadBill); }
  void load_checked() {
    bill->head("FStatus", 1);
    load();
  }
  bool tool_enabled(const char* sBand, const char* sTool) const { return bill->bar->tool(sBand, sTool).enabled(); }
};
INSTANTIATE_OTHER_SIDES(OtherLoadBill);

TEST_P(OtherLoadBill, TheTraceOfAnUncheckedImmediateBillIsApproved) {
  load();
  expect_golden("after_load_immediate_bill");
}

TEST_P(OtherLoadBill, TheTraceOfAnUncheckedCreditBillIsApproved) {
  use_credit();
  load();
  expect_golden("after_load_credit_bill");
}

TEST_P(OtherLoadBill, TheTraceOfACheckedBillIsApproved) {
  use_credit();
  load_checked();
  expect_golden("after_load_checked_bill");
}

TEST_P(OtherLoadBill, TheTraceOfABillOfAnotherUserIsApproved) {
  bill->mutex_success = false;
  load();
  expect_golden("after_load_read_only_bill");
}

TEST_P(OtherLoadBill, ACheckedBillIsLockedAndOffersUncheckAndVoucher) {
  use_currency(2);
  load_checked();
  EXPECT_TRUE(bill->column_locked("FID"));
  EXPECT_TRUE(bill->column_locked("FID2"));
  EXPECT_EQ(enabled("mnuEditCheck"), false);
  EXPECT_EQ(enabled("mnuFileSave"), false);
  EXPECT_EQ(enabled("mnuEditUnCheck"), true);
  EXPECT_EQ(enabled("mnuViewVch"), true);
  EXPECT_EQ(visible("mnuViewVch"), true);
  EXPECT_EQ(visible("mnuEditAddRow"), false);
  EXPECT_TRUE(locked("FExchangeRate"));
  EXPECT_TRUE(bill->bill_locked);
}

TEST_P(OtherLoadBill, ACheckedBillKeepsItsSettlementBehindLocks) {
  load_checked();
  for (const char* sKey : {"FSettleId", "FSettleIdNo", "FLimitDate"}) EXPECT_TRUE(locked(sKey)) << sKey;
  EXPECT_EQ(bill->number("FSettleId"), 4);
  EXPECT_EQ(bill->text("FSettleIdNo"), "1001");
}

TEST_P(OtherLoadBill, AnUncheckedBillInAnotherCurrencyHasItsRateFreeAndItsVoucherCommandOff) {
  use_currency(2);
  load();
  EXPECT_FALSE(locked("FExchangeRate"));
  EXPECT_EQ(visible("mnuViewVch"), true);
  EXPECT_EQ(enabled("mnuViewVch"), false);
  EXPECT_EQ(enabled("mnuEditCheck"), true);
  EXPECT_EQ(visible("mnuEditAddRow"), true);
  EXPECT_FALSE(bill->bill_locked);
}

TEST_P(OtherLoadBill, ABillInBaseCurrencyHasItsRateLocked) {
  load();
  EXPECT_TRUE(locked("FExchangeRate"));
}

TEST_P(OtherLoadBill, ABillWithoutTheEditLockHasItsCommandsOffThoughItIsUnchecked) {
  bill->mutex_success = false;
  load();
  for (const char* sTool : {"mnuEditCheck", "mnuEditUnCheck", "mnuFileNew", "mnuViewVch"}) {
    EXPECT_EQ(enabled(sTool), false) << sTool;
  }
  for (const char* sTool : {"mnuEditCheck", "mnuEditUnCheck"}) EXPECT_EQ(visible(sTool), true) << sTool;
  EXPECT_FALSE(tool_enabled("BandToolBar", "mnuDataPre"));
  EXPECT_FALSE(tool_enabled("BandToolBar", "mnuDataNext"));
}

TEST_P(OtherLoadBill, ABillOpenedToBeReadIsReadOnlyThoughThisUserHoldsItsLock) {
  bill->edit_mode = 0;
  load();
  EXPECT_EQ(enabled("mnuFileNew"), false);
  EXPECT_EQ(visible("mnuEditChange"), std::nullopt);
}

TEST_P(OtherLoadBill, ACheckedBillOpenedToBeReadShowsItsVoucher) {
  bill->edit_mode = 0;
  load_checked();
  EXPECT_EQ(enabled("mnuViewVch"), true);
  EXPECT_FALSE(bill->column_locked("FID"));
  EXPECT_FALSE(bill->bill_locked);
}

TEST_P(OtherLoadBill, OnlyThePayableBillHidesTheChangeCommandAndOnlyForItsOwner) {
  load();
  EXPECT_EQ(visible("mnuEditChange"), pick<std::optional<bool>>(std::nullopt, false));
  if (receivable_side()) return;
  EXPECT_LT(trace().position("mnuEditChange"), trace().position("mnuViewVch"));
}

TEST_P(OtherLoadBill, ACheckedBillKeepsTheChangeCommand) {
  load_checked();
  EXPECT_EQ(visible("mnuEditChange"), std::nullopt);
}

TEST_P(OtherLoadBill, AStatusBeyondCheckedLocksTheSettlementButLeavesThePagesFree) {
  bill->head("FStatus", 2);
  load();
  for (const char* sKey : {"FSettleId", "FSettleIdNo", "FLimitDate", "FExchangeRate"}) {
    EXPECT_TRUE(locked(sKey)) << sKey;
  }
  EXPECT_FALSE(bill->column_locked("FID"));
  EXPECT_EQ(enabled("mnuEditCheck"), true);
  EXPECT_EQ(enabled("mnuViewVch"), false);
  EXPECT_TRUE(bill->bill_locked);
}

TEST_P(OtherLoadBill, ANewBillIsNotLockedThoughItIsChecked) {
  bill->edit_mode = 1;
  load_checked();
  EXPECT_TRUE(bill->column_locked("FID"));
  EXPECT_FALSE(bill->bill_locked);
}

TEST_P(OtherLoadBill, AnImmediateBillShowsNoCreditText) {
  answer_credit("额度 500");
  load();
  EXPECT_TRUE(trace().has("SetStatusPanel(5, \"\")"));
  EXPECT_EQ(credit_asked(), "");
}

TEST_P(OtherLoadBill, ACreditBillShowsTheCreditOfItsPartner) {
  use_credit();
  answer_credit("额度 500");
  load();
  EXPECT_EQ(bill->panel(5), "额度 500");
  EXPECT_EQ(credit_asked(), "青柚商贸");
  EXPECT_EQ(session.server("NUVBills.clsCredit").last(Member::GetStatusMoneyAndCredit)[1].as<std::int32_t>(),
            side.nBillClass);
}

TEST_P(OtherLoadBill, ACreditBillWithoutAPartnerShowsAnEmptyPanel) {
  use_credit();
  bill->head(side.sPartner, 0, "", "");
  answer_credit("额度 500");
  load();
  EXPECT_EQ(bill->panel(5), "");
  EXPECT_EQ(credit_asked(), "");
}

TEST_P(OtherLoadBill, AWindowOfAnotherClassShowsNoCredit) {
  use_credit();
  answer_credit("额度 500");
  for (const std::int32_t nClass : {1000201, 1000202, 1000205, 1000206}) {
    bill->trans_type_id = nClass;
    load();
    EXPECT_EQ(bill->panel(5), "额度 500") << nClass;
  }
  bill->trans_type_id = 1000207;
  load();
  EXPECT_EQ(bill->panel(5), "");
}

TEST_P(OtherLoadBill, ACurrentRowOffersTheRowCommands) {
  load();
  EXPECT_EQ(enabled("mnuEditDelRow"), std::nullopt);
  bill->set_active_cell("FBillAmountFor", 2);
  load();
  EXPECT_EQ(enabled("mnuEditDelRow"), true);
  EXPECT_EQ(enabled("mnuEditAddRow"), true);
}

TEST_P(OtherLoadBill, ABodyThatCannotBeEditedHasItsCommandsOff) {
  bill->set_active_cell("FBillAmountFor", 2);
  bill->bill_status = 0;
  load();
  EXPECT_EQ(enabled("mnuEditDelRow"), false);
}

TEST_P(OtherLoadBill, NoFieldIsMarkedAsChanged) {
  use_credit();
  load();
  for (const char* sKey : {"FExchangeRate", "FSettleId", "FSettleIdNo"}) EXPECT_EQ(bill->modified(sKey), 0) << sKey;
}

TEST_P(OtherLoadBill, AHostErrorPassesToTheHostAsItIs) {
  use_credit();
  session.server("NUVBills.clsCredit").fails(Member::GetStatusMoneyAndCredit, -77, "server gone");
  try {
    bill->events.fire(Event::AfterLoadBill, {});
    FAIL() << "no error";
  } catch (const AutomationError& error) {
    EXPECT_EQ(error.number(), -77);
    EXPECT_EQ(error.description(), "server gone");
  }
}

TEST_P(OtherLoadBill, TheEditTasksOfTheLoadedBillAreGivenBackAtTheEnd) {
  load();
  auto& mutex = session.server("NUVNetControl.Mutex");
  plugin = nullptr;
  const std::vector<Variant> args = mutex.last(Member::GetTaskIdByUserInfo);
  ASSERT_EQ(args.size(), 3u);
  EXPECT_EQ(plain_text(args[1]), pick("AR0302", "AP0302"));
  EXPECT_EQ(args[2].as<std::int32_t>(), 31);
  EXPECT_EQ(bill->events.size(), 0u);
}

}  // namespace
}  // namespace arap::testing
