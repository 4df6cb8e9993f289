#include <array>
#include <string>

#include "frame/bill_fields.h"
#include "frame/messages.h"
#include "frame/server_objects.h"
#include "frame/session.h"
#include "frame/text_utils.h"
#include "settlement/settlement_bill.h"

namespace arap {
namespace {

/// What CheckBill of the bill service is asked to do.
enum class CheckFlag : std::int32_t { Uncheck = 0, Check = 1 };
/// Its only answer that means failure.
constexpr std::int32_t kServiceFailed = 1;

/// Asks the service and shows its text, whether it failed or not. Answers the service's number.
std::int32_t AskService(Key sService, std::int32_t nInterID, CheckFlag flag) {
  const Ref<Object> oService = CreateServerObject(sService);
  std::array<Variant, 4> args{GetPropsString(), nInterID, static_cast<std::int32_t>(flag), ""_key};
  const std::int32_t nResult = LongOf(oService->invoke(Member::CheckBill, Access::Call, args));
  ShowMessage(Concat(args[3]), kNotice, kTitle);
  return nResult;
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
  const std::int32_t nResult = AskService(side_.sBillService, nInterID, CheckFlag::Check);
  oBill.ReloadAfterCheck();
  if (nResult != kServiceFailed) ApplyStatusLocks(kChecked);
  oBill.ShowBillByID(nInterID);
}

/// A bill of an earlier period stays checked; the first day of the current one passes.
bool SettlementBill::IsBeforeCurrentPeriod() const {
  const std::string sDate = Format(Concat(GetBillField(Bill(), "FDate"_key, kHead)), "YYYY-MM-DD");
  const std::string sStart = Format(GetCurrentPeriodStart(), "YYYY-MM-DD");
  return sDate < sStart;
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
  AskService(side_.sBillService, nInterID, CheckFlag::Uncheck);
  oBill.ReloadAfterCheck();
  oBill.ShowBillByID(nInterID);
}

}  // namespace arap
