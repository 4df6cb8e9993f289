#include "frame/failure.h"
#include "frame/server_objects.h"
#include "frame/session.h"
#include "otherbills/save_rows.h"

/// The one place where an other bill is validated: the tests in their fixed order, the first that fails shows its
/// message and stops the save. A save refused by the credit limit has written the head totals already.
namespace arap {

namespace {

/// The common ending of a refusal.
bool Refuse(std::string_view sText) {
  ShowMessage(FormatText(sText), kWarning, kTitle);
  return false;
}

}  // namespace

// Any error cancels the save without a message.
void OtherBill::m_BillInterface_BeforeSave(Variant& vCancel) {
  bool bPasses = false;
  ResumeNext([&] { bPasses = PassesSaveTests(); });
  if (!bPasses) vCancel = true;
}

bool OtherBill::PassesSaveTests() {
  switch (side_.dateOnSave) {
    case DateOnSave::NotRead: break;
    case DateOnSave::ReadAndDropped: GetBillField(Bill(), "FDate"_key, kHead); break;
  }
  if (!CheckBillDate(Bill())) return false;
  if (!NumberIsFree()) return Refuse(side_.sNumberTaken);
  if (IsCreditBill() && HeadNumber(side_.sPartner) == 0) return Refuse(side_.sPartnerMissing);
  const std::int32_t nAcct = HeadLong("FAcctId"_key);
  SaveRows rows(*this);
  if (!PassesBodyTests(rows, nAcct)) return false;
  WriteHeadTotals(rows);
  if (!PassesCreditLimit()) return false;
  // No test stands behind this line.
  SumEntryAmounts();
  if (IsCreditBill()) WarnSettlementAccount();
  return true;
}

bool OtherBill::NumberIsFree() const {
  const std::string sBillNo = Concat(GetBillField(Bill(), "FBillNo"_key, kHead));
  const Ref<Object> oService = CreateServerObject(side_.sNumberService);
  const Variant vBills = oService->call(side_.numberQuery, GetPropsString(), sBillNo);
  if (!vBills.is_object() || vBills.is_nothing()) return true;
  const Recordset rsBills(vBills);
  return rsBills.Eof() || rsBills.RecordCount() <= 0;
}

bool OtherBill::PassesBodyTests(SaveRows& rows, std::int32_t nAcct) {
  if (!rows.Pass()) return false;
  if (rows.Types().empty()) return Refuse("单据体要求至少有一条分录，请输入单据体信息！");
  if (HasAccount(rows.Types(), nAcct)) return Refuse(side_.sSameAccount);
  if (rows.SumFor() == 0) return Refuse(side_.sSumZero);
  return true;
}

void OtherBill::WriteHeadTotals(const SaveRows& rows) {
  SetBillField(Bill(), "FAmountFor"_key, kHead, rows.SumFor());
  SetBillField(Bill(), "FAmount"_key, kHead, rows.Sum());
}

bool OtherBill::HasAccount(const std::string& sTypes, std::int32_t nAcct) {
  const Ref<Object> oTypes = CreateServerObject("NUVlpsArAPBill.clsInOutType");
  return ToBoolean(oTypes->call(Member::IsSameAcctId, GetPropsString(), sTypes, nAcct));
}

bool OtherBill::PassesCreditLimit() {
  switch (CheckCreditLimit()) {
    case kWarn: return ShowMessage(LoadText(side_.sOverLimitQuestion), kQuestionAsNotice, kTitle) != kAnswerNo;
    case kRefuse: ShowMessage(LoadText(side_.sOverLimitRefusal), kStop, kTitle); return false;
    default: return true;
  }
}

void OtherBill::WarnSettlementAccount() const {
  const Ref<Object> oService = CreateServerObject(kSettlementHintService);
  if (ToBoolean(oService->call(Member::GetBill, GetPropsString()))) return;
  ShowMessage(LoadText(side_.sSettlementHint), kWarning, kTitle);
}

void OtherBill::m_BillInterface_AfterSave() {
  if (IsCreditBill()) return ShowCreditStatus();
  switch (side_.panelAfterSave) {
    case PanelAfterSave::LeftAlone: return;
    case PanelAfterSave::Emptied: return ClearCreditStatus();
  }
}

}  // namespace arap
