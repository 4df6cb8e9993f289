#include "plugin/settlement/settlement_fixture.h"

namespace arap::testing {
namespace {

class LoadBill : public SettlementTest {
 protected:
  LoadBill() {
    bill->head("FBillID", std::int32_t{31});
    bill->edit_mode = 2;
    trace().clear();
  }
  /// The fields of the templates whose bills come from another module.
  void make_external(std::int32_t nSource, std::int32_t nTypeInfo) {
    for (const char* sKey :
         {"FSettleAmountfor_3", "FDiscountFor_3", "FSettleAmountFor", "FSettleAmount_3", "FItemClassID", "FCustomer"}) {
      bill->head(sKey, 0.0);
    }
    bill->head("FSource", nSource);
    bill->bill_type_info->set("FID", nTypeInfo);
  }
  void load() {
    bill->fire(Event::BeforeLoadBill, {std::int32_t{0}});
    bill->fire(Event::BeforLoadBillFillData);
    trace().clear();
    bill->fire(Event::AfterLoadBill);
  }
  std::optional<bool> enabled(const char* sTool) const { return bill->bar_status(sTool, "Enabled"); }
  std::optional<bool> visible(const char* sTool) const { return bill->bar_status(sTool, "Visible"); }
};
INSTANTIATE_BOTH_SIDES(LoadBill);

TEST_P(LoadBill, TheTraceOfAnUncheckedBillIsApproved) {
  load();
  expect_golden("after_load_bill");
}

TEST_P(LoadBill, TheTraceOfACheckedBillIsApproved) {
  bill->head("FStatus", std::int32_t{1});
  load();
  expect_golden("after_load_checked_bill");
}

TEST_P(LoadBill, TheTraceOfABillOfAnotherUserIsApproved) {
  bill->mutex_success = false;
  load();
  expect_golden("after_load_read_only_bill");
}

TEST_P(LoadBill, ThePercentageComesBackForTheStoredFraction) {
  bill->head("FDiscount", 0.95).head("FDiscountDsp", 95.0);
  load();
  EXPECT_EQ(bill->number("FDiscount"), 95);
}

TEST_P(LoadBill, ThePercentageHasSixDecimalsBeforeItIsOnScreen) {
  bill->fire(Event::BeforeLoadBill, {std::int32_t{0}});
  EXPECT_EQ(trace().lines(), Lines{});
  bill->fire(Event::BeforLoadBillFillData);
  EXPECT_EQ(trace().lines_with("Decimals("), (Lines{"BillEvent.SetFieldDecimals(FDiscount, -1, 6)"}));
}

TEST_P(LoadBill, AnUncheckedBillCanBeCheckedAndKeepsItsType) {
  load();
  EXPECT_EQ(enabled("mnuEditCheck"), true);
  EXPECT_EQ(enabled("mnuEditUnCheck"), false);
  EXPECT_EQ(visible("mnuEditChange"), false);
  EXPECT_EQ(enabled("mnuViewVch"), false);
  EXPECT_EQ(visible("mnuViewVch"), true);
  EXPECT_EQ(enabled(side.sSelectTool), true);
  EXPECT_EQ(enabled("mnuCaculate"), true);
  EXPECT_TRUE(locked(side.sType));
  EXPECT_FALSE(locked(side.sPartner));
  EXPECT_TRUE(bill->screen_field_locked(side.sType));
}

TEST_P(LoadBill, ACheckedBillIsLockedPageByPageAndShowsItsVoucherCommand) {
  bill->head("FStatus", std::int32_t{1});
  load();
  EXPECT_TRUE(trace().has("SetLockProperty("));
  EXPECT_EQ(enabled("mnuEditCheck"), false);
  EXPECT_EQ(enabled("mnuEditUnCheck"), true);
  EXPECT_EQ(enabled("mnuViewVch"), true);
  EXPECT_EQ(enabled(side.sSelectTool), false);
  EXPECT_EQ(visible("mnuEditAddRow"), false);
  EXPECT_FALSE(locked("FSettleId"));
  EXPECT_TRUE(locked("FExchangeRate"));
}

TEST_P(LoadBill, OnlyTheStatusOneIsChecked) {
  for (const std::int32_t nStatus : {2, -1}) {
    bill->head("FStatus", nStatus);
    load();
    EXPECT_FALSE(trace().has("SetLockProperty(")) << nStatus;
    EXPECT_FALSE(locked("FAmountFor")) << nStatus;
    EXPECT_EQ(enabled("mnuViewVch"), false) << nStatus;
  }
}

TEST_P(LoadBill, ABillOfAnotherUserHasItsCommandsOffButItsFieldsFree) {
  bill->mutex_success = false;
  load();
  for (const char* sTool : {"mnuEditCheck", "mnuEditUnCheck", "mnuFileNew", "mnuCaculate", side.sSelectTool}) {
    EXPECT_EQ(enabled(sTool), false) << sTool;
  }
  EXPECT_FALSE(bill->bar->tool("mnuData", "mnuDataAutoSumAmt").enabled());
  EXPECT_FALSE(bill->bar->tool("BandToolBar", "mnuDataPre").visible());
  EXPECT_FALSE(bill->bar->tool("BandToolBar", "mnuDataNext").visible());
  EXPECT_FALSE(locked("FAmountFor"));
  // Only the payment switches the colour commands off.
  EXPECT_EQ(enabled("mnuEditBlueBill"), receive() ? std::nullopt : std::optional(false));
  EXPECT_EQ(enabled("mnuEditRedBill"), receive() ? std::nullopt : std::optional(false));
}

TEST_P(LoadBill, ABillOpenedToBeReadIsReadOnlyToo) {
  bill->edit_mode = 0;
  load();
  EXPECT_EQ(enabled("mnuFileNew"), false);
  // The locks by status switch the two commands on only where the bill is edited.
  EXPECT_FALSE(trace().has("mnuDataAutoSumAmt.Enabled = True"));
  EXPECT_FALSE(trace().has("mnuDataAutoPartAmt.Enabled = True"));
}

TEST_P(LoadBill, AnAdvanceHasNoSourcesAndNoDiscount) {
  use_type(side.nAdvanceType);
  load();
  EXPECT_EQ(enabled(side.sSelectTool), false);
  EXPECT_FALSE(bill->bar->tool("mnuDataAutoSumAmt").enabled());
  EXPECT_FALSE(bill->bar->tool("mnuDataAutoPartAmt").enabled());
  for (const char* sKey : {side.sSourceNo, "FBillSettleAmountFor", side.sReceivedFor, "FDiscount"}) {
    EXPECT_TRUE(locked(sKey)) << sKey;
  }
}

TEST_P(LoadBill, AnAdvanceThatCanBeEditedIsLockedBeforeAndAfterItsHeadIsFreed) {
  use_type(side.nAdvanceType);
  for (const bool bHeld : {true, false}) {
    bill->mutex_success = bHeld;
    load();
    for (const char* sKey : {side.sSourceNo, "FBillSettleAmountFor", side.sReceivedFor, "FDiscount"}) {
      EXPECT_EQ(trace().count("LockCell(" + std::string(sKey) + ", -1, True)"), bHeld ? 2u : 1u) << sKey;
    }
  }
}

TEST_P(LoadBill, FormulasRunAgainOnceTheBillIsLoaded) {
  load();
  bill->change("FCurrencyID", -1, std::int32_t{2});
  EXPECT_EQ(trace().lines_with("DoAction(").size(), 3u);
}

TEST_P(LoadBill, ALoadRunsNoFormula) {
  use_currency(2);
  bill->head("FExchangeRate", 7.0);
  load();
  EXPECT_FALSE(trace().has("DoAction("));
}

TEST_P(LoadBill, ACompleteDiscountEmptiesTheAccountAndHidesTheChange) {
  bill->head("FDiscountAcctId", std::int32_t{55}).head("FDiscount", 1.0).head("FDiscountDsp", 100.0);
  load();
  EXPECT_EQ(bill->number("FDiscountAcctId"), 0);
  EXPECT_EQ(bill->modified("FDiscountAcctId"), 0);
}

TEST_P(LoadBill, APushedBillCannotBeCheckedHereAndKeepsItsPartner) {
  session.server("NUVMARAPPush.clsPush").answers(Member::GetBillTypeID, std::int32_t{3});
  load();
  EXPECT_TRUE(bill->screen_field_locked(side.sPartner));
  EXPECT_FALSE(bill->screen_field_locked(side.sType));
  for (const char* sTool : {"mnuEditCheck", "mnuEditUnCheck"}) {
    EXPECT_EQ(enabled(sTool), false) << sTool;
    EXPECT_EQ(visible(sTool), false) << sTool;
  }
  const std::vector<Variant> args = session.server("NUVMARAPPush.clsPush").last(Member::GetBillTypeID);
  ASSERT_EQ(args.size(), 3u);
  EXPECT_EQ(plain_text(args[1]), side.sBillTable);
  EXPECT_EQ(args[2].as<std::int32_t>(), 31);
}

TEST_P(LoadBill, WithoutAnIdNobodyAsksWhetherItWasPushed) {
  bill->head("FBillID", "");
  load();
  EXPECT_EQ(session.server("NUVMARAPPush.clsPush").count(Member::GetBillTypeID), 0u);
  EXPECT_FALSE(bill->screen_field_locked(side.sType));
}

TEST_P(LoadBill, ACurrentRowOffersTheRowCommands) {
  bill->set_active_cell("FBillSettleAmountFor", 2);
  load();
  EXPECT_EQ(enabled("mnuEditDelRow"), true);
  EXPECT_EQ(enabled("mnuEditAddRow"), true);
  EXPECT_TRUE(bill->data().at("AddModel").as<bool>());
}

TEST_P(LoadBill, TheCreditOfThePartnerStandsInTheStatusBar) {
  session.server("NUVBills.clsCredit").answers(Member::GetStatusMoneyAndCredit, "额度 500");
  load();
  EXPECT_EQ(bill->panel(5), "额度 500");
  bill->trans_type_id = 5;
  load();
  EXPECT_EQ(bill->panel(5), "");
}

TEST_P(LoadBill, OnlyAPaymentOfAnotherModuleIsLocked) {
  for (const std::int32_t nTypeInfo : {1000018, 1000014}) {
    make_external(8, nTypeInfo);
    load();
    EXPECT_EQ(locked("FSettleAmountFor"), !receive());
    EXPECT_EQ(locked("FCustomer"), !receive());
  }
}

TEST_P(LoadBill, ThePaymentsExternalFieldsAreLockedInOrderBeforeTheStatus) {
  make_external(8, 1000018);
  load();
  if (receive()) {
    EXPECT_FALSE(trace().has("LockCell(FItemClassID"));
    return;
  }
  std::ptrdiff_t nLast = trace().position("Fcheck");
  for (const char* sKey : {"FSettleAmountfor_3", "FDiscountFor_3", "FSettleAmount_3", "FItemClassID", "FCustomer"}) {
    const std::ptrdiff_t nLock = trace().position("LockCell(" + std::string(sKey));
    EXPECT_LT(nLast, nLock) << sKey;
    nLast = nLock;
  }
  EXPECT_LT(nLast, lock_position("FAcctId", false));
}

TEST_P(LoadBill, APaymentOfAnotherTypeOrSourceIsNot) {
  make_external(7, 1000014);
  load();
  EXPECT_FALSE(locked("FSettleAmountFor"));
  make_external(8, 1000015);
  load();
  EXPECT_FALSE(locked("FSettleAmountFor"));
}

TEST_P(LoadBill, TheRowsPartnerIsLockedWhileTheHeadHasNone) {
  add_source_row(*bill, GetParam());
  bill->head(side.sPartner, std::int32_t{0});
  load();
  EXPECT_TRUE(bill->cell_locked(side.sRowPartner, 1));
}

TEST_P(LoadBill, TheRowsPartnerIsLockedInUnusedRowsToo) {
  add_source_row(*bill, GetParam(), {.sNumber = ""});
  add_source_row(*bill, GetParam());
  bill->head(side.sPartner, std::int32_t{0});
  load();
  const std::string sLock = "BillEvent.LockRowCell(" + std::string(side.sRowPartner);
  EXPECT_EQ(trace().lines_with("LockRowCell("), (Lines{sLock + ", 1, True)", sLock + ", 2, True)"}));
}

TEST_P(LoadBill, TheRowsPartnerIsFreeOnceTheHeadHasOne) {
  add_source_row(*bill, GetParam());
  load();
  EXPECT_FALSE(trace().has("LockRowCell("));
}

TEST_P(LoadBill, TheTypeIsReadBehindTheRowsOfAReceiptAndAheadOfThoseOfAPayment) {
  add_source_row(*bill, GetParam());
  trace().set_detail(Trace::Detail::All);
  load();
  const Lines& aLines = trace().lines();
  const auto bar = aLines.begin() + trace().position("(\"mnuCaculate\", \"Enabled\"");
  const auto row = aLines.begin() + trace().position("GetDataFld(" + std::string(side.sPartner) + ", 1)");
  ASSERT_LT(bar, row);
  const auto type = std::find_if(bar, aLines.end(), [this](const std::string& sLine) {
    return sLine.find("GetDataFld(" + std::string(side.sType) + ", -1)") != std::string::npos;
  });
  EXPECT_EQ(type < row, !receive());
}

TEST_P(LoadBill, ABillThatCanNotBeEditedNowLosesItsBodyCommands) {
  bill->bill_status = 0;
  bill->set_active_cell("FBillSettleAmountFor", 2);
  load();
  for (const char* sTool : {"mnuEditDelRow", "mnuEditAddRow", "mnuBatchFillField", "mnuDataLookUp"}) {
    EXPECT_EQ(enabled(sTool), false) << sTool;
  }
}

TEST_P(LoadBill, TheEditTasksOfTheLoadedBillAreGivenBackAtTheEnd) {
  load();
  auto& mutex = session.server("NUVNetControl.Mutex");
  plugin = nullptr;
  const std::vector<Variant> args = mutex.last(Member::GetTaskIdByUserInfo);
  ASSERT_EQ(args.size(), 3u);
  EXPECT_EQ(plain_text(args[1]), pick("AR0224", "AP0224"));
  EXPECT_EQ(args[2].as<std::int32_t>(), 31);
  EXPECT_LT(trace().position("GetTaskIdByUserInfo"), trace().position("DeleteOptions"));
  EXPECT_LT(trace().position("DeleteOptions"), trace().position("Refresh("));
  EXPECT_EQ(bill->events.size(), 0u);
}

TEST_P(LoadBill, AClassWithoutALoadedBillGivesNoTasksBack) {
  plugin = nullptr;
  EXPECT_EQ(session.server("NUVNetControl.Mutex").count(Member::GetTaskIdByUserInfo), 0u);
}

}  // namespace
}  // namespace arap::testing
