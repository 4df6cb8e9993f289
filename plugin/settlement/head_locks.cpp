#include "frame/server_objects.h"
#include "settlement/settlement_bill.h"

/// Locks and commands by status, type and currency, shared by the load, by changes and by the colour commands.
namespace arap {

// --- by status ----------------------------------------------------------------------------------------------------

void SettlementBill::ApplyStatusLocks(std::int32_t nStatus) {
  if (nStatus == kChecked) {
    LockCheckedHead();
    EnableAutoTools(false);
    Bill().BarRefresh();
    return;
  }
  FreeUncheckedHead();
  if (StoredType() == side_.nAdvanceType) {
    LockAdvanceFields();
    EnableAutoTools(false);
  } else if (Bill().EditMode() != 0) {
    EnableAutoTools(true);
  }
  LockDiscountAccount(HeadNumber("FDiscount"_key) == kNoDiscount);
  LockRateByCurrency();
}

// FSettleId and FSettleIdNo stay free on a checked bill: the save writes them alone.
void SettlementBill::LockCheckedHead() {
  for (const Key sKey : {side_.sPartner, side_.sType, "FAcctId"_key, "FAmountFor"_key, "FDate"_key, "FCurrencyID"_key,
                         side_.sReceivedFor, "FExchangeRate"_key, "FDiscount"_key, "FDiscountAcctId"_key,
                         "FExplanation"_key, "FDiscountAcctId"_key, "FExchangeRate"_key}) {
    LockBillField(Bill(), sKey, true, false);
  }
}

void SettlementBill::FreeUncheckedHead() {
  const auto free = [this](Key sKey) { LockBillField(Bill(), sKey, false, false); };
  for (const Key sKey :
       {side_.sPartner, "FAcctId"_key, "FAmountFor"_key, "FDate"_key, "FCurrencyID"_key, "FSettleId"_key,
        side_.sReceivedFor, "FSettleIdNo"_key, "FDiscount"_key, "FDiscountAcctId"_key, "FExplanation"_key}) {
    free(sKey);
  }
  switch (side_.freedFields) {
    case FreedFields::Head: return;
    case FreedFields::HeadTypeAndSource:
      free(side_.sType);
      free(side_.sSourceNo);
      free("FBillSettleAmountFor"_key);
      return;
  }
}

void SettlementBill::LockAdvanceFields() {
  for (const Key sKey :
       {side_.sSourceNo, "FBillSettleAmountFor"_key, side_.sReceivedFor, "FDiscount"_key, "FDiscountAcctId"_key}) {
    LockBillField(Bill(), sKey, true, false);
  }
}

void SettlementBill::EnableAutoTools(bool bEnabled) {
  const ActiveBar oBar = Bill().BarControl();
  oBar.Tools("mnuDataAutoSumAmt"_key).SetEnabled(bEnabled);
  oBar.Tools("mnuDataAutoPartAmt"_key).SetEnabled(bEnabled);
}

// --- rate and discount account ------------------------------------------------------------------------------------

void SettlementBill::LockExchangeRate(bool bLock) {
  LockBillField(Bill(), "FExchangeRate"_key, bLock, false);
  if (!m_bLoaded) return;
  bool bMarkModified = false;
  switch (side_.rateActionMark) {
    case RateActionMark::Changed: bMarkModified = true; break;
    case RateActionMark::AsItStands: break;
  }
  for (const Key sKey : {"FExchangeRate"_key, "FAmountFor"_key, side_.sReceivedFor}) {
    RunFieldAction(Bill(), sKey, kHead, bMarkModified);
  }
}

void SettlementBill::LockRateByCurrency() { LockExchangeRate(HeadLong("FCurrencyId"_key) == kBaseCurrency); }

void SettlementBill::LockDiscountAccount(bool bNoDiscount) {
  LockBillField(Bill(), "FDiscountAcctId"_key, bNoDiscount, bNoDiscount);
}

// --- by type ------------------------------------------------------------------------------------------------------

void SettlementBill::ResetTypeDependents(bool bClear) {
  switch (side_.typeReset) {
    case TypeReset::FreesTypeFirstAndClearsOnRequest:
      LockBillField(Bill(), side_.sType, false, false);
      RewriteType();
      if (bClear) ClearHeadAmounts();
      DisableRowCommands();
      SetSourceCommands(HeadType());
      ApplyStatusLocks(0);
      return;
    case TypeReset::FreesTypeLastAndAlwaysClears:
      RewriteType();
      ClearHeadAmounts();
      DisableRowCommands();
      ApplyStatusLocks(0);
      SetSourceCommands(HeadType());
      LockBillField(Bill(), side_.sType, false, false);
      return;
  }
}

void SettlementBill::RewriteType() {
  const double dType = HeadNumber(side_.sType);
  WriteText(side_.sType, TextOf(dType), 0);
  SetBillField(Bill(), side_.sType, kHead, dType);
  RunFieldAction(Bill(), side_.sType, kHead, true);
}

void SettlementBill::ResetForRedBlue() {
  switch (side_.colourResetRate) {
    case ColourResetRate::FollowsCurrency: LockRateByCurrency(); break;
    case ColourResetRate::LeftAlone: break;
  }
  ClearHeadAmounts();
  DisableRowCommands();
  SetSourceCommands(HeadType());
  ApplyStatusLocks(0);
  const Band oSources = Bill().BarControl().Bands("mnuSelectBill"_key);
  oSources.Tools(side_.sOlderTool3).SetEnabled(false);
  oSources.Tools(side_.sOlderTool3).SetChecked(false);
  oSources.Tools(side_.sOlderTool1).SetChecked(true);
  oSources.Tools(side_.sOlderTool2).SetChecked(false);
}

void SettlementBill::ClearHeadAmounts() {
  // FDiscountAmount twice, and FDiscountAmountFor not at all: required.
  for (const Key sKey : {"FAmountFor"_key, "FAmount"_key, side_.sReceivedFor, side_.sReceived, "FDiscountAmount"_key,
                         "FDiscountAmount"_key}) {
    WriteText(sKey, "0"_key, 0);
    SetBillField(Bill(), sKey, kHead, std::int32_t{0});
  }
  WriteText("FDiscount"_key, "100"_key, 0);
  SetBillField(Bill(), "FDiscount"_key, kHead, std::int32_t{100});
}

void SettlementBill::SetSourceCommands(std::int32_t nType) {
  const bool bAdvance = nType == side_.nAdvanceType;
  switch (side_.otherTypeCommands) {
    case OtherTypeCommands::LeftAlone:
      if (!bAdvance && nType != side_.nOrdinaryType && nType != side_.nRefundType) return;
      break;
    case OtherTypeCommands::SwitchedOn: break;
  }
  const ActiveBar oBar = Bill().BarControl();
  for (const Key sTool :
       {side_.sSelectTool, "mnuDataAutoPartAmt"_key, "mnuDataAutoSumAmt"_key, "mnuFileNeedFilter"_key}) {
    oBar.Tools(sTool).SetEnabled(!bAdvance);
  }
}

void SettlementBill::DisableRowCommands() {
  Bill().EnableTool("mnuEditDelRow"_key, false);
  Bill().EnableTool("mnuEditAddRow"_key, false);
}

void SettlementBill::ShowCheckTools() {
  Bill().SetBarStatus("UnCheck"_key, "VISIBLE"_key, true);
  Bill().SetBarStatus("Fcheck"_key, "VISIBLE"_key, true);  // spelled so; required
}

// --- decimals and columns -----------------------------------------------------------------------------------------

void SettlementBill::SetAmountScale(Key sKey, std::int16_t nDecimals, bool bColumn, std::int32_t nRow) {
  const BillEvent oBill = Bill();
  if (!Dictionary(oBill.BillMapInfo().Value("Map"_key)).Lookup(sKey)) return;
  const FieldInfo oInfo = oBill.GetFieldInfoByKey(sKey);
  oBill.SetFieldDecimals(oInfo, nRow, nDecimals);
  if (bColumn) oBill.SetColumnDecimals(oInfo, nDecimals);
}

void SettlementBill::SetHeadAmountScales(std::int16_t nDecimals) {
  SetAmountScale("FAmountFor"_key, nDecimals, false);
  SetAmountScale(side_.sReceivedFor, nDecimals, true);
  SetAmountScale("FDiscountAmountFor"_key, nDecimals, false);
}

void SettlementBill::ShowSourceColumns() {
  const bool bRefund = HeadType() == side_.nRefundType;
  SetFieldsVisible(Bill(), "FFKDBillNo", 1, bRefund);
  SetFieldsVisible(Bill(), "FEntryAmount_SRC", 1, bRefund);
}

}  // namespace arap
