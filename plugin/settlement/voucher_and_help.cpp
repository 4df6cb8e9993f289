#include "frame/server_objects.h"
#include "frame/voucher_access.h"
#include "settlement/settlement_bill.h"

namespace arap {

void SettlementBill::ShowBillHelp() const {
  const Ref<Object> oHelp = CreateLocalObject("NUVCHMResTool.ClsCHMHelp");
  oHelp->call(Member::ShowHelp, "NUVV11.chm"_key, side_.sHelpTopic, std::int32_t{0});
}

void SettlementBill::ShowBillVoucher() const {
  ShowVoucherOfBill(Bill(), side_.sBillTable, EditorArgument::PropsString);
}

}  // namespace arap
