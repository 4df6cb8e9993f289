#include "frame/bill_fields.h"
#include "settlement/settlement_bill.h"

namespace arap {

/// True, or the command is cancelled, when the sub-menu of the older source kinds is in use.
bool SettlementBill::OlderSourcesEnabled(Variant& vCancel) const {
  if (Bill().BarControl().Tools("mnuSelectBill"_key).Enabled()) return true;
  vCancel = true;
  return false;
}

/// An advance has no sources.
bool SettlementBill::TakesSources(Variant& vCancel) const {
  if (GetBillLong(Bill(), side_.sType, kHead) != side_.nAdvanceType) return true;
  vCancel = true;
  return false;
}

/// The three items act as radio buttons.
void SettlementBill::CheckOlderSource(const Tool& oTool, Key sChecked) {
  const Band oBand = Bill().BarControl().Bands("mnuSelectBill"_key);
  oTool.SetChecked(true);
  for (const Key sItem : {side_.sOlderTool1, side_.sOlderTool2, side_.sOlderTool3}) {
    oBand.Tools(sItem).SetChecked(sItem == sChecked);
  }
}

void SettlementBill::ChooseFirstOlderSource(const Tool& oTool, Variant& vCancel) {
  if (!OlderSourcesEnabled(vCancel) || !TakesSources(vCancel)) return;
  CheckOlderSource(oTool, side_.sOlderTool1);
  m_SelBillType = 1000000;
}

void SettlementBill::ChooseSecondOlderSource(const Tool& oTool, Variant& vCancel) {
  if (!OlderSourcesEnabled(vCancel) || !TakesSources(vCancel)) return;
  if (!Bill().BarControl().Bands("mnuSelectBill"_key).Tools(side_.sOlderTool2).Enabled()) return;
  CheckOlderSource(oTool, side_.sOlderTool2);
  m_SelBillType = 1000002;
}

/// No test of the type here.
void SettlementBill::ChooseThirdOlderSource(const Tool& oTool, Variant& vCancel) {
  if (!OlderSourcesEnabled(vCancel)) return;
  CheckOlderSource(oTool, side_.sOlderTool3);
  m_SelBillType = side_.nOpenKind;
  oTool.SetToolId(side_.nOpenKind);
}

}  // namespace arap
