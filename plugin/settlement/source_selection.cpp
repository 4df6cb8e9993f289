#include "frame/bill_fields.h"
#include "frame/messages.h"
#include "frame/server_objects.h"
#include "frame/text_utils.h"
#include "settlement/settlement_bill.h"

namespace arap {

/// The ordinary type settles open items; every other type selects from the bills open for refund.
std::int32_t SettlementBill::SelectionKind() const {
  const bool bOrdinary = GetBillLong(Bill(), side_.sType, kHead) == side_.nOrdinaryType;
  return bOrdinary ? side_.nOpenKind : side_.nRefundKind;
}

/// False, with a warning shown and the command cancelled, while the head has no partner.
bool SettlementBill::HasPartnerForSelection(Variant& vCancel) const {
  if (!Concat(Bill().HeadScreenField(side_.sPartnerText).Text()).empty()) return true;
  ShowMessage(LoadText(side_.sChoosePartner), kWarning, kTitle);
  vCancel = true;
  return false;
}

/// The host goes on and opens its selection on the kind that the tool now has.
void SettlementBill::SelectSourceBills(const Tool& oTool, Variant& vCancel) {
  if (!HasPartnerForSelection(vCancel)) return;
  m_SelBillType = SelectionKind();
  oTool.SetToolId(m_SelBillType);
}

/// The look-up key on the source number opens the same selection.
void SettlementBill::LookUpSourceBill(const Tool& oTool, Variant& vCancel) {
  const BillEvent oBill = Bill();
  const ActiveCell cell = oBill.GetActiveCell();
  if (cell.oField.IsNothing()) return;
  if (!EqualsNoCase(Concat(cell.oField.Value("FKey"_key)), side_.sSourceNo)) return;
  const Tool oNewTool(CreateLocalObject(open_choices::kTool));
  oNewTool.SetName(side_.sSelectTool);
  m_SelBillType = SelectionKind();
  oTool.SetToolId(m_SelBillType);
  oNewTool.SetTag(TextOf(Variant(m_SelBillType)));
  if (!HasPartnerForSelection(vCancel)) return;
  oBill.Form().DoSelBillExt(oNewTool);
}

}  // namespace arap
