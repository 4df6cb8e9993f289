#include "frame/bill_operation.h"
#include "frame/messages.h"
#include "frame/session.h"
#include "frame/text_utils.h"
#include "otherbills/other_bill.h"

namespace arap {

/// The log line, the service's text and the reload; after a success the window shows the bill again.
void OtherBill::FinishCheck(const CheckAnswer& answer, std::int32_t nInterID, const CheckWords& words,
                            const std::string& sBillNo) {
  if (answer.Failed()) {
    WriteActionLog(words.sLogCode, 2, LoadText(words.sFailureVerb) + FormatText("单据[%1]失败!", {sBillNo}));
  } else {
    WriteActionLog(words.sLogCode, 1, LoadText(words.sSuccessVerb) + FormatText("单据[%1]成功!", {sBillNo}));
  }
  ShowMessage(answer.sMessage, kNotice, kTitle);
  Bill().ReloadAfterCheck();
  if (!answer.Failed()) Bill().ShowBillByID(nInterID);
}

/// The bill is saved first, with all its tests. The host does nothing further.
void OtherBill::CheckBillCommand(const std::string& sBillNo, Variant& vCancel) {
  vCancel = true;
  if (!CheckAccess(kRightsSubSystem, side_.nBillClass, kRightCheck)) return;
  if (!Bill().Form().SaveBill()) return;
  const std::int32_t nInterID = Bill().InterID();
  if (nInterID <= 0) return;
  const CheckAnswer answer = AskCheckBill(side_.sBillService, nInterID, CheckFlag::Check);
  FinishCheck(answer, nInterID, {side_.sCheckLogCode, side_.sFailedCheckVerb, "审核"}, sBillNo);
}

/// A bill of an earlier period stays checked; the first day of the current one passes.
void OtherBill::UncheckBillCommand(const std::string& sBillNo, Variant& vCancel) {
  vCancel = true;
  if (!CheckAccess(kRightsSubSystem, side_.nBillClass, kRightUncheck)) return;
  const Variant vDate = GetBillField(Bill(), "FDate"_key, kHead);
  if (IsBeforePeriod(vDate, GetCurrentPeriodStart())) {
    ShowMessage(FormatText("不能反审核以前期间的单据，反审核失败。"), kNotice, kTitle);
    return;
  }
  const std::int32_t nInterID = Bill().InterID();
  const CheckAnswer answer = AskCheckBill(side_.sBillService, nInterID, CheckFlag::Uncheck);
  FinishCheck(answer, nInterID, {kUncheckLogCode, "反审核", "反审核"}, sBillNo);
}

}  // namespace arap
