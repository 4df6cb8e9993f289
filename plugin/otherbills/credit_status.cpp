#include "frame/partner_credit.h"
#include "otherbills/other_bill.h"

/// The partner's credit in the status bar.
namespace arap {

void OtherBill::ShowCreditStatus() {
  const std::string sPartner = Concat(Bill().HeadScreenField(side_.sPartner).Text());
  ShowCreditOf(sPartner, Bill().TransTypeID());
}

void OtherBill::ClearCreditStatus() { Bill().SetStatusPanel(kCreditPanel, ""_key); }

void OtherBill::ShowCreditOf(const std::string& sPartner, std::int32_t nClassType) {
  if (sPartner.empty()) return ClearCreditStatus();
  Bill().SetStatusPanel(kCreditPanel, GetCreditText(sPartner, nClassType));
}

}  // namespace arap
