#include "frame/bill_fields.h"
#include "frame/bill_operation.h"
#include "frame/messages.h"
#include "frame/session.h"
#include "frame/text_utils.h"
#include "settlement/settlement_bill.h"

namespace arap {
namespace {

/// Asks the service and shows its text, whether it failed or not.
CheckAnswer AskService(Key sService, std::int32_t nInterID, CheckFlag flag) {
  CheckAnswer answer = AskCheckBill(sService, nInterID, flag);
  ShowMessage(answer.sMessage, kNotice, kTitle);
  return answer;
}

}  // namespace

/// The bill is saved first, with all its tests. The window shows afterwards what the database holds.
void SettlementBill::CheckBillCommand(const Tool&, Variant& vCancel) {
  const BillEvent oBill = Bill();
  vCancel = true;
  if (!CheckAccess(kRightsSubSystem, side_.nBillClass, kRightCheck)) return;
  if (GetBillLong(oBill, "FBillId"_key, kHead) == 0) return;
  if (!oBill.Form().SaveBill()) return;
  const std::int32_t nInterID = oBill.InterID();
  if (nInterID < 1) return;
  const CheckAnswer answer = AskService(side_.sBillService, nInterID, CheckFlag::Check);
  oBill.ReloadAfterCheck();
  if (!answer.Failed()) ApplyStatusLocks(kChecked);
  oBill.ShowBillByID(nInterID);
}

/// A bill of an earlier period stays checked; the first day of the current one passes.
bool SettlementBill::IsBeforeCurrentPeriod() const {
  const Variant vDate = GetBillField(Bill(), "FDate"_key, kHead);
  return IsBeforePeriod(vDate, GetCurrentPeriodStart());
}

/// Nothing is saved first, and status and write-offs are the service's to judge. The reload brings the locks back.
void SettlementBill::UncheckBillCommand(const Tool&, Variant& vCancel) {
  const BillEvent oBill = Bill();
  if (!CheckAccess(kRightsSubSystem, side_.nBillClass, kRightUncheck)) {
    vCancel = true;
    return;
  }
  if (IsBeforeCurrentPeriod()) {
    ShowMessage(LoadText("不能反审核以前期间的单据，反审核失败。"), kNotice, kTitle);
    vCancel = true;
    return;
  }
  const std::int32_t nInterID = oBill.InterID();
  const CheckAnswer answer = AskService(side_.sBillService, nInterID, CheckFlag::Uncheck);
  oBill.ReloadAfterCheck();
  oBill.ShowBillByID(nInterID);
}

}  // namespace arap
