#include "frame/bar_state.h"
#include "frame/server_objects.h"
#include "otherbills/other_bill.h"

/// What a new and a loaded bill start with. Which commands are on depends on the edit mode, on this user's edit lock
/// and on the status.
namespace arap {

// --- new bill -----------------------------------------------------------------------------------------------------

void OtherBill::m_BillInterface_AfterNewBill() {
  const BillEvent oBill = Bill();
  oBill.ShowTool("mnuFileNeedFilter"_key, false);
  SetNewBillDecimals();
  const Band oEdit = oBill.BarControl().Bands("mnuEdit"_key);
  oEdit.Tools("mnuBatchFillField"_key).SetEnabled(false);
  oEdit.Tools("mnuEditUnCheck"_key).SetEnabled(false);
  oBill.Form().RefreshToolbar();
  SetBaseCurrencyInHead();
  LockExchangeRate(true);
  ApplyBillTypeRules();
  DisableCopyCommand();
  ClearModifyFlags(oBill);
}

void OtherBill::SetNewBillDecimals() {
  const std::int16_t nDec = GetGLData().GetCurrency(kBaseCurrency).ScaleX();
  for (const Key sKey : {"FAmountFor"_key, "FAmount"_key, "FCheckAmountFor"_key, "FCheckAmount"_key}) {
    SetAmountScale(sKey, nDec, false);
  }
  SetAmountScale("FBillAmountFor"_key, nDec, true);
  SetAmountScale("FBillAmount"_key, nDec, true);
}

void OtherBill::SetBaseCurrencyInHead() {
  WriteText("FCurrencyId"_key, GetGLData().GetCurrency(kBaseCurrency).Name());
  SetBillField(Bill(), "FCurrencyId"_key, kHead, kBaseCurrency);
}

void OtherBill::DisableCopyCommand() {
  Bill().BarControl().Bands("mnuFile"_key).Tools("mnuEditCopy"_key).SetEnabled(false);
}

// --- loaded bill --------------------------------------------------------------------------------------------------

void OtherBill::m_BillInterface_AfterLoadBill() {
  const BillEvent oBill = Bill();
  m_lBillId = HeadLong("FBillId"_key);
  const double dStatus = HeadNumber("FStatus"_key);
  if (oBill.GetActiveCell().nRow > 0) {
    oBill.EnableTool("mnuEditDelRow"_key, true);
    oBill.EnableTool("mnuEditAddRow"_key, true);
  }
  oBill.ShowTool("mnuFileNeedFilter"_key, false);
  if (oBill.Form().MutexSuccess() && oBill.EditMode() != 0) {
    ShowOwnersBar(dStatus);
  } else {
    ShowReadersBar();
  }
  ShowVoucherTool(IsChecked());
  DisableCopyCommand();
  LockExchangeRate(dStatus != 0 || HeadNumber("FCurrencyId"_key) == kBaseCurrency);
  DisableBodyCommands(oBill);
  if (IsCreditBill()) {
    ShowCreditStatus();
  } else {
    ClearCreditStatus();
  }
  ApplyBillTypeRules();
  ClearModifyFlags(oBill);
}

void OtherBill::ShowOwnersBar(double dStatus) {
  const BillEvent oBill = Bill();
  oBill.ShowTool("mnuEditCheck"_key, true);
  oBill.ShowTool("mnuEditUnCheck"_key, true);
  oBill.EnableTool("mnuEditCheck"_key, true);
  oBill.EnableTool("mnuEditUnCheck"_key, true);
  oBill.ShowTool("mnuCopyRow"_key, false);
  if (IsChecked()) {
    LockBillPages(oBill, true);
    oBill.EnableTool("mnuEditCheck"_key, false);
    oBill.EnableTool("mnuFileSave"_key, false);
    ShowVoucherTool(true);
    SetEditBarState(oBill, "DisableEdit");
  } else {
    HideChangeCommand();
    ShowVoucherTool(false);
    SetEditBarState(oBill, "EnableEdit");
  }
  if (oBill.EditMode() == 2 && dStatus >= 1) oBill.Form().LockBill();
}

void OtherBill::HideChangeCommand() {
  switch (side_.changeCommandOnLoad) {
    case ChangeCommandOnLoad::LeftAlone: return;
    case ChangeCommandOnLoad::Hidden: return Bill().ShowTool("mnuEditChange"_key, false);
  }
}

void OtherBill::ShowReadersBar() {
  const BillEvent oBill = Bill();
  oBill.ShowTool("mnuEditCheck"_key, true);
  oBill.ShowTool("mnuEditUnCheck"_key, true);
  oBill.EnableTool("mnuEditCheck"_key, false);
  oBill.EnableTool("mnuEditUnCheck"_key, false);
  oBill.EnableTool("mnuFileNew"_key, false);
  const Band oTools = oBill.BarControl().Bands("BandToolBar"_key);
  oTools.Tools("mnuDataPre"_key).SetEnabled(false);
  oTools.Tools("mnuDataNext"_key).SetEnabled(false);
}

void OtherBill::ShowVoucherTool(bool bEnabled) {
  Bill().ShowTool("mnuViewVch"_key, true);
  Bill().EnableTool("mnuViewVch"_key, bEnabled);
}

}  // namespace arap
