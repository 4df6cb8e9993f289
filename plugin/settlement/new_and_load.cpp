#include "frame/bar_state.h"
#include "frame/server_objects.h"
#include "settlement/settlement_classes.h"

/// What a new and a loaded bill start with. Which fields are locked and which commands are on depends on the edit mode,
/// on this user's edit lock, on the status and on the type.
namespace arap {

void SettlementBill::m_BillInterface_BeforeLoadBill() { InitDiscountScale(); }

void SettlementBill::m_BillInterface_BeforLoadBillFillData() {
  SetAmountScale("FDiscount"_key, static_cast<std::int16_t>(m_nDiscountScale), false);
  // The stored fraction goes, the percentage comes back.
  SetBillField(Bill(), "FDiscount"_key, kHead, HeadNumber("FDiscountDsp"_key));
}

// --- new bill -----------------------------------------------------------------------------------------------------

void SettlementBill::m_BillInterface_AfterNewBill() {
  InitDiscountScale();
  const BillEvent oBill = Bill();
  if (oBill.EditMode() == 1 && oBill.Form().MutexSuccess()) {
    for (const Key sTool : {"mnuEditCheck"_key, "mnuEditUnCheck"_key, "mnuEditChange"_key, "mnuCopyRow"_key}) {
      oBill.ShowTool(sTool, false);
    }
    oBill.EnableTool(side_.sSelectTool, true);
    oBill.EnableTool("mnuCaculate"_key, true);  // spelled so; required
  }
  SetNewBillDecimals();
  LockBillField(oBill, "FExchangeRate"_key, true, false);
  SetNewBillDiscountAccount();
  SetBaseCurrencyInHead();
  ResetTypeDependents(true);
  ShowSourceColumns();
  ClearModifyFlags(oBill);
}

void SettlementBill::SetNewBillDecimals() {
  const std::int16_t nScale = GetGLData().GetCurrency(kBaseCurrency).ScaleX();
  const std::int32_t nRow = Bill().EditMode();  // the edit mode as row number; required
  SetAmountScale("FAmountFor"_key, nScale, false, nRow);
  SetAmountScale("FAmount"_key, nScale, true, nRow);
  SetAmountScale(side_.sReceivedFor, nScale, true, nRow);
  SetAmountScale(side_.sReceived, nScale, true, nRow);
  SetAmountScale("FDiscountAmountFor"_key, nScale, false, nRow);
  SetAmountScale("FDiscountAmountr"_key, nScale, false, nRow);  // no such field; required
  SetAmountScale("FDiscount"_key, static_cast<std::int16_t>(m_nDiscountScale), false, nRow);
}

void SettlementBill::SetNewBillDiscountAccount() {
  switch (side_.newBillDiscount) {
    case NewBillDiscount::AccountLocked: LockBillField(Bill(), "FDiscountAcctId"_key, true, false); return;
    case NewBillDiscount::AccountEmptiedAndPercentageSet:
      LockBillField(Bill(), "FDiscountAcctId"_key, true, true);
      SetBillField(Bill(), "FDiscount"_key, kHead, kNoDiscount);
      return;
  }
}

void SettlementBill::SetBaseCurrencyInHead() {
  WriteText("FCurrencyId"_key, GetGLData().GetCurrency(kBaseCurrency).Name(), 0);
  SetBillField(Bill(), "FCurrencyId"_key, kHead, kBaseCurrency);
}

// --- loaded bill --------------------------------------------------------------------------------------------------

void SettlementBill::m_BillInterface_AfterLoadBill() {
  const BillEvent oBill = Bill();
  if (side_.typeOnLoad == TypeOnLoad::LockedFirstAndReadBeforeRows) LockBillField(oBill, side_.sType, true, false);
  m_lBillId = HeadLong("FBillId"_key);
  if (oBill.GetActiveCell().nRow > 0) {
    oBill.EnableTool("mnuEditDelRow"_key, true);
    oBill.EnableTool("mnuEditAddRow"_key, true);
  }
  oBill.BillData().SetValue("AddModel"_key, true);
  const std::int32_t nStatus = HeadLong("FStatus"_key);
  if (oBill.EditMode() != 0 && oBill.Form().MutexSuccess()) {
    ShowEditableBar();
  } else {
    ShowReadOnlyBar();
  }
  ShowVoucherTool();
  DisableBodyCommands(oBill);
  ShowCheckTools();
  LockExternalPayment();
  LockAsLoaded(nStatus);
  ApplyPushOnLoad();
  ShowCreditStatus();
  ShowSourceColumns();
  ClearModifyFlags(oBill);
}

void SettlementBill::ShowEditableBar() {
  const BillEvent oBill = Bill();
  oBill.ShowTool("mnuEditCheck"_key, true);
  oBill.ShowTool("mnuEditUnCheck"_key, true);
  oBill.EnableTool("mnuEditCheck"_key, true);
  oBill.EnableTool("mnuEditUnCheck"_key, true);
  oBill.ShowTool("mnuCopyRow"_key, false);
  ShowEditableBarByStatus();

  std::int32_t nType = 0;
  switch (side_.typeOnLoad) {
    case TypeOnLoad::ReadAfterRows:
      LockRowPartners();
      nType = HeadType();
      break;
    case TypeOnLoad::LockedFirstAndReadBeforeRows:
      nType = HeadType();
      LockRowPartners();
      break;
  }
  if (nType == side_.nAdvanceType) LockAdvanceFields();
}

void SettlementBill::ShowEditableBarByStatus() {
  const BillEvent oBill = Bill();
  if (IsChecked()) {
    LockBillPages(oBill, true);
    oBill.EnableTool("mnuEditCheck"_key, false);
    SetEditBarState(oBill, "DisableEdit");
    oBill.EnableTool("mnuViewVch"_key, true);
    oBill.ShowTool("mnuViewVch"_key, true);
    oBill.EnableTool(side_.sSelectTool, false);
    oBill.EnableTool("mnuCaculate"_key, false);  // spelled so; required
    return;
  }
  oBill.EnableTool("mnuEditUnCheck"_key, false);
  oBill.ShowTool("mnuEditChange"_key, false);
  oBill.EnableTool("mnuViewVch"_key, false);
  oBill.ShowTool("mnuViewVch"_key, true);
  SetEditBarState(oBill, "EnableEdit");
  oBill.EnableTool(side_.sSelectTool, HeadType() != side_.nAdvanceType);
  oBill.EnableTool("mnuCaculate"_key, true);  // spelled so; required
}

void SettlementBill::LockRowPartners() {
  const BillEvent oBill = Bill();
  const std::int32_t nRows = GetEntryRowCount(oBill, 1, true);
  for (std::int32_t nRow = 1; nRow <= nRows; ++nRow) {
    if (GetBillLong(oBill, side_.sPartner, nRow) != 0) continue;
    oBill.LockRowCell(oBill.GetFieldInfoByKey(side_.sRowPartner), nRow, true);
  }
}

void SettlementBill::ShowReadOnlyBar() {
  const BillEvent oBill = Bill();
  const auto disable = [&oBill](Key sTool) { oBill.SetBarStatus(sTool, "ENABLED"_key, false); };
  oBill.ShowTool("mnuEditCheck"_key, true);
  oBill.ShowTool("mnuEditUnCheck"_key, true);
  disable("mnuEditCheck"_key);
  disable("mnuEditUnCheck"_key);
  disable("mnuFileNew"_key);
  switch (side_.colourCommands) {
    case ColourCommands::Handled: break;
    case ColourCommands::SwitchedOffWhenReadOnly:
      disable("mnuEditBlueBill"_key);
      disable("mnuEditRedBill"_key);
      break;
  }
  const Band oData = oBill.BarControl().Bands("mnuData"_key);
  oData.Tools("mnuDataAutoSumAmt"_key).SetEnabled(false);
  oData.Tools("mnuDataAutoPartAmt"_key).SetEnabled(false);
  const Band oTools = oBill.BarControl().Bands("BandToolBar"_key);
  oTools.Tools("mnuDataPre"_key).SwitchOff();
  oTools.Tools("mnuDataNext"_key).SwitchOff();
  disable(side_.sSelectTool);
  disable("mnuCaculate"_key);  // spelled so; required
}

void SettlementBill::ShowVoucherTool() {
  Bill().EnableTool("mnuViewVch"_key, IsChecked());
  Bill().ShowTool("mnuViewVch"_key, true);
}

void SettlementBill::LockAsLoaded(std::int32_t nStatus) {
  // A load must change no figure: while the flag is false, LockExchangeRate runs no formula.
  m_bLoaded = false;
  ApplyStatusLocks(nStatus);
  LockBillField(Bill(), side_.sType, true, false);
  if (IsChecked()) LockExchangeRate(true);
  m_bLoaded = true;
}

void SettlementBill::ApplyPushOnLoad() {
  const std::int32_t nBillId = HeadLong("FBillId"_key);
  if (nBillId == 0) return;
  if (GetBillTypeID(nBillId) == 0) {
    Bill().HeadScreenField(side_.sType).SetLockFlag(true);
    return;
  }
  SetLockFlags(true, false);
  for (const Key sTool : {"mnuEditCheck"_key, "mnuEditUnCheck"_key}) {
    Bill().EnableTool(sTool, false);
    Bill().ShowTool(sTool, false);
  }
}

void clsPayBill::LockExternalPayment() {
  constexpr std::int32_t kOtherModule = 8;
  const BillEvent oBill = Bill();
  const std::int32_t nTypeInfo = LongOf(oBill.BillTypeInfo().Value("FID"_key));
  if (!Inside(nTypeInfo, 1000018, 1000014)) return;
  if (GetBillLong(oBill, "FSource"_key, 0) != kOtherModule) return;
  for (const Key sKey :
       {"FCurrencyID"_key, "fExchangeRate"_key, "FSettleAmountfor_3"_key, "FDiscountFor_3"_key, "FSettleAmountFor"_key,
        "FSettleAmount_3"_key, "FDiscount"_key, "FDate"_key, "FItemClassID"_key, "FCustomer"_key}) {
    LockBillField(oBill, sKey, true, false);
  }
}

}  // namespace arap
