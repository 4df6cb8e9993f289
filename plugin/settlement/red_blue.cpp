#include "frame/bill_fields.h"
#include "settlement/settlement_bill.h"

namespace arap {

/// Answers false when the bill has that colour already. The body is emptied at once, with no question.
bool SettlementBill::TurnColour(const Tool& oTool, Key sColour, Key sOther) {
  const BillEvent oBill = Bill();
  const Band oBand = oBill.BarControl().Bands("mnuEdit"_key);
  if (oBand.Tools(sColour).Checked()) return false;
  oBand.Tools(sOther).SetChecked(false);
  oBand.Tools(sColour).SetChecked(true);
  oTool.SetChecked(true);
  oBill.DeleteEntryRows(2);
  LockRateByCurrency();
  return true;
}

void SettlementBill::RedBillCommand(const Tool& oTool, Variant&) {
  if (!TurnColour(oTool, "mnuEditRedBill"_key, "mnuEditBlueBill"_key)) return;
  ResetForRedBlue();
  // What was just written counts as unchanged.
  ClearModifyFlags(Bill());
}

void SettlementBill::BlueBillCommand(const Tool& oTool, Variant&) {
  if (!TurnColour(oTool, "mnuEditBlueBill"_key, "mnuEditRedBill"_key)) return;
  ResetTypeDependents(true);
  ClearModifyFlags(Bill());
}

}  // namespace arap
