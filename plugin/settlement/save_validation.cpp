#include <cmath>

#include "frame/failure.h"
#include "frame/server_objects.h"
#include "frame/session.h"
#include "frame/text_utils.h"
#include "settlement/save_rows.h"

/// The tests before a bill is stored, in their fixed order: the first that fails shows its message and stops the save.
namespace arap {

namespace {

constexpr int kComparedDecimals = 10;

/// The common ending of a refusal.
bool Refuse(std::string_view sText, int nButtons = kWarning) {
  ShowMessage(FormatText(sText), nButtons, kTitle);
  return false;
}

double ThroughText(double dValue) { return RoundAmountOf(Val(TextOf(dValue)), kComparedDecimals); }

}  // namespace

// Trap and pass on.
void SettlementBill::m_BillInterface_BeforeSave(Variant& vCancel) {
  TrapAndPassOn(vCancel, [&] {
    if (IsChecked()) {
      SaveSettleFields();
      Bill().Form().SetNotSave(true);
      return;
    }
    vCancel = !PassesSaveTests();
  });
}

bool SettlementBill::PassesSaveTests() {
  if (!CheckBodyCurrencies()) return false;
  if (GetBillNumber(Bill(), "FCheckAmountFor"_key, 0) != 0) return Refuse(side_.sAlreadySettled, kNotice);
  const SaveHead head = ReadSaveHead();
  if (head.dAmount == 0) return Refuse(side_.sAmountZero);
  const std::int32_t nRows = GetEntryRowCount(Bill(), 1, true);
  if (Bill().EditMode() != 2 && !CheckBillDate(Bill())) return false;
  const bool bPasses = head.nType == side_.nAdvanceType ? PassesAdvanceTests(head) : PassesBodyTests(head, nRows);
  if (!bPasses) return false;
  // No test stands behind this line: from here on the bill is written.
  StoreDiscount(head.dDiscount);
  return true;
}

SettlementBill::SaveHead SettlementBill::ReadSaveHead() {
  SaveHead head{.dDiscount = HeadNumber("FDiscount"_key),
                .nType = HeadType(),
                .dAmount = HeadNumber("FAmount"_key),
                .nCur = HeadLong("FCurrencyId"_key)};
  switch (side_.saveReading) {
    case SaveReading::OpenAmountRounded: break;
    case SaveReading::HeadAmountsRounded: head.dAmount = RoundAmountOf(head.dAmount, kComparedDecimals); break;
  }
  return head;
}

double SettlementBill::ReadSaveAmountFor() {
  const double dAmountFor = HeadNumber("FAmountFor"_key);
  switch (side_.saveReading) {
    case SaveReading::OpenAmountRounded: return dAmountFor;
    case SaveReading::HeadAmountsRounded: return RoundAmountOf(dAmountFor, kComparedDecimals);
  }
  return dAmountFor;
}

bool SettlementBill::PassesAdvanceTests(const SaveHead& head) {
  // Only a negative bill takes an advance back.
  if (head.dAmount >= 0) return true;
  const double dAmountFor = ReadSaveAmountFor();
  const std::int32_t nPartner = HeadLong(side_.sPartner);
  const Ref<Object> oService = CreateServerObject(side_.sBillService);
  const double dOpen = NumberOf(
      oService->call(Member::GetUnCheckAmountFor, GetPropsString(), nPartner, head.nCur, HeadNumber("FBillID"_key)));
  if (std::abs(dAmountFor) > dOpen) return Refuse(side_.sAdvanceTooLarge);
  return true;
}

bool SettlementBill::PassesBodyTests(const SaveHead& head, std::int32_t nRows) {
  const double dDiscountAmount = NumberOf(Bill().GetFieldValue("FDiscountAmount"_key, kHead, FieldValueKind::Stored));
  const double dDiscountAcct = NumberOf(Bill().GetFieldValue("FDiscountAcctId"_key, kHead, FieldValueKind::Stored));
  if (dDiscountAmount != 0 && dDiscountAcct == 0) return Refuse("有折扣金额,请输入折扣科目!", kNotice);

  SaveRows rows(*this, head);
  for (std::int32_t nRow = 1; nRow <= nRows; ++nRow) {
    if (!rows.Passes(nRow)) return false;
  }
  // In the head's currency when the last source row has it, else in base currency.
  const double dHead = head.nCur == rows.LastCurrency() ? ReadSaveAmountFor() : head.dAmount;
  if (ThroughText(dHead) != ThroughText(rows.Sum())) return Refuse(side_.sHeadBodyDiffer);
  return true;
}

void SettlementBill::StoreDiscount(double dDiscount) {
  SetBillField(Bill(), "FDiscount"_key, kHead, dDiscount / 100);
  SetBillField(Bill(), "FDiscountDsp"_key, kHead, dDiscount);
}

// The fraction isn't multiplied back: a further save divides once more. Required.
void SettlementBill::m_BillInterface_SaveBillFailed() {
  const double dDiscount = HeadNumber("FDiscount"_key);
  SetBillField(Bill(), "FDiscount"_key, kHead, dDiscount);
  SetBillField(Bill(), "FDiscountDsp"_key, kHead, dDiscount);
  RunFieldAction(Bill(), side_.sPartner, kHead, true);
}

}  // namespace arap
