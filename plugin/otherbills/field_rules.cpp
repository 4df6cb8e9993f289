#include "frame/failure.h"
#include "frame/partner_credit.h"
#include "frame/server_objects.h"
#include "otherbills/other_bill.h"

/// What one field's change does to the others, and what happens before an edit and after it.
namespace arap {

// Trap and pass on.
void OtherBill::m_BillInterface_Change(const FieldInfo& oField, const FieldRecord& oRecord, Variant& vCancel) {
  struct Rule {
    Key sKey;
    void (OtherBill::*change)(const Edit&);
  };
  TrapAndPassOn(vCancel, [&] {
    const Rule aRules[] = {
        {side_.sPartnerEdited, &OtherBill::ChangeDueDate},   {"FDate"_key, &OtherBill::ChangeDueDate},
        {"FBillAmountFor"_key, &OtherBill::ChangeRowAmount}, {"FBillTypeId"_key, &OtherBill::ChangeBillType},
        {"FCurrencyId"_key, &OtherBill::ChangeCurrency},     {"FExchangeRate"_key, &OtherBill::ChangeExchangeRate},
        {"FInOutTypeId"_key, &OtherBill::ChangeInOutType},
    };
    const std::int32_t nRows = GetEntryRowCount(Bill(), 1, true);
    const std::string sKey = Concat(oField.Value("FKey"_key));
    for (const Rule& rule : aRules) {
      if (EqualsNoCase(sKey, rule.sKey)) return (this->*rule.change)({oField, oRecord, nRows, vCancel});
    }
  });
}

void OtherBill::ChangeDueDate(const Edit&) { ComputeDueDate(); }

void OtherBill::ChangeRowAmount(const Edit&) { SumEntryAmounts(); }

void OtherBill::ChangeBillType(const Edit& edit) {
  if (edit.NewNumber() == side_.nCreditType) {
    const std::string sCode = CodeOfPartner();
    ShowCreditOf(sCode, LongOf(edit.oField.Value("FClassTypeID"_key)));
  } else {
    ClearCreditStatus();
  }
  SumEntryAmounts();
  ApplyBillTypeRules();
  ComputeDueDate();
}

void OtherBill::ChangeCurrency(const Edit& edit) {
  const auto nCur = ToLong(edit.NewNumber());
  if (nCur == 0) return;
  const Currency oCurrency = GetGLData().GetCurrency(nCur);
  const double dRate = oCurrency.Multiplier();
  WriteText("FExchangeRate"_key, TextOf(dRate));
  SetBillField(Bill(), "FExchangeRate"_key, kHead, dRate);
  LockExchangeRate(nCur == kBaseCurrency);
  // The fields in base currency keep their decimals.
  const std::int16_t nDec = oCurrency.ScaleX();
  SetAmountScale("FAmountFor"_key, nDec, false);
  SetAmountScale("FCheckAmountFor"_key, nDec, false);
  SetAmountScale("FBillAmountFor"_key, nDec, true);
  RunRowAmountActions(edit.nRows);
}

void OtherBill::ChangeExchangeRate(const Edit& edit) { RunRowAmountActions(edit.nRows); }

// The row's amount in base currency follows the rate by the template's formula.
void OtherBill::RunRowAmountActions(std::int32_t nRows) {
  for (std::int32_t nRow = 1; nRow <= nRows; ++nRow) {
    if (GetBillNumber(Bill(), "FBillAmountFor"_key, nRow) == 0) continue;
    RunFieldAction(Bill(), "FBillAmountFor"_key, nRow, false);
  }
}

// An empty or unknown type passes here; the save catches it.
void OtherBill::ChangeInOutType(const Edit& edit) {
  if (!IsParentType(edit.NewNumber())) return;
  ShowMessage(LoadText(side_.sChooseDetailType), kNotice, kTitle);
  edit.vCancel = true;
}

// --- around an edit -----------------------------------------------------------------------------------------------

// The employees of the department, and those of none.
void OtherBill::m_BillInterface_BeginEdit(const FieldInfo& oField) {
  if (!EqualsNoCase(Concat(oField.Value("FKey"_key)), "FEmployeeID")) return;
  const std::int32_t nDept = LongOf(StoredValue("FDepartmentID"_key));
  std::string sFilter;
  if (nDept != 0) sFilter = " IsNull(FDepartmentID,'')='' or IsNull(FDepartmentID,'')=" + std::to_string(nDept);
  oField.SetValue("FFilter"_key, sFilter);
  oField.SetValue("FRefresh"_key, "1"_key);
}

// Resume next.
void OtherBill::m_BillInterface_HeadCtlLostFocus(const FieldInfo& oField) {
  if (oField.IsNothing()) return;
  bool bCredit = false;
  ResumeNext([&] { bCredit = IsCreditBill(); });
  if (!bCredit) return;
  std::string sFieldName;
  ResumeNext([&] { sFieldName = UpperCase(Concat(oField.GetValue("FFieldName"_key, ""_key))); });
  if (sFieldName != UpperCase(side_.sPartner)) return;

  ResumeNext([&] {
    const std::string sCode = CodeOfPartner();
    if (sCode.empty()) return ClearCreditStatus();
    Bill().SetStatusPanel(kCreditPanel, GetCreditText(sCode, LongOf(oField.Value("FClassTypeID"_key))));
  });
}

std::string OtherBill::CodeOfPartner() const {
  return Concat(Bill().GetFieldValue(side_.sPartnerEdited, kHead, FieldValueKind::Code));
}

}  // namespace arap
