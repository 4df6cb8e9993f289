#include "frame/partner_credit.h"
#include "frame/server_objects.h"
#include "settlement/settlement_bill.h"

/// The partner's credit in the status bar, and the question whether the bill was pushed from another module.
namespace arap {

void SettlementBill::ShowCreditStatus() {
  const Variant vCode = Bill().HeadScreenField(side_.sPartner).Text();
  Bill().SetStatusPanel(kCreditPanel, GetCreditText(vCode, Bill().TransTypeID()));
}

std::int32_t SettlementBill::GetBillTypeID(std::int32_t nBillId) {
  const Ref<Object> oPush = CreateServerObject("NUVMARAPPush.clsPush");
  return LongOf(oPush->call(Member::GetBillTypeID, GetPropsString(), side_.sBillTable, nBillId));
}

void SettlementBill::SetLockFlags(bool bLockPartner, bool bLockType) {
  Bill().HeadScreenField(side_.sPartner).SetLockFlag(bLockPartner);
  Bill().HeadScreenField(side_.sType).SetLockFlag(bLockType);
}

}  // namespace arap
