#include "frame/server_objects.h"
#include "otherbills/other_bill.h"

/// The partner's credit in the status bar.
namespace arap {

void OtherBill::ShowCreditStatus() {
  const std::string sPartner = Concat(Bill().HeadScreenField(side_.sPartner).Text());
  Bill().SetStatusPanel(kCreditPanel, GetCreditText(sPartner, Bill().TransTypeID()));
}

void OtherBill::ClearCreditStatus() { Bill().SetStatusPanel(kCreditPanel, ""_key); }

std::string OtherBill::GetCreditText(std::string_view sPartner, std::int32_t nClassType) {
  if (!Inside(nClassType, 1000201, 1000202, 1000205, 1000206)) return "";
  if (sPartner.empty()) return "";
  const Ref<Object> oCredit = CreateLocalObject("NUVBills.clsCredit");
  return Concat(oCredit->call(Member::GetStatusMoneyAndCredit, sPartner, nClassType));
}

}  // namespace arap
