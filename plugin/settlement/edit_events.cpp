#include "frame/failure.h"
#include "frame/partner_credit.h"
#include "frame/text_utils.h"
#include "settlement/settlement_bill.h"

/// What happens around an edit: before an editor opens, after a head control is left, after an action of the template.
namespace arap {

void SettlementBill::m_BillInterface_BeginEdit(const FieldInfo& oField) {
  const BillEvent oBill = Bill();
  const std::string sKey = LowerCase(Concat(oField.Value("FKey"_key)));
  if (sKey == LowerCase(side_.sSourceNo)) {
    if (Concat(oBill.GetFieldValue("FCurrencyID"_key, kHead, FieldValueKind::Stored)).empty()) {
      ShowMessage(LoadText(side_.sSetCurrencyFirst), kNotice, "币别设置");
    } else {
      oBill.EnableTool("mnuDataLookUp"_key, true);
    }
  } else if (sKey == LowerCase(side_.sPartner)) {
    m_lOldPartner = HeadLong(side_.sPartner);
  } else if (sKey == "femployeeid") {
    FilterEmployees(oField);
  }
}

// The employees of the department, and those of none.
void SettlementBill::FilterEmployees(const FieldInfo& oField) {
  const double dDept = NumberOf(Bill().GetFieldValue("FDepartmentID"_key, kHead, FieldValueKind::Stored));
  std::string sFilter;
  if (dDept != 0) sFilter = " IsNull(FDepartmentID,'')='' or IsNull(FDepartmentID,'')=" + TextOf(dDept);
  oField.SetValue("FFilter"_key, sFilter);
  oField.SetValue("FRefresh"_key, "1"_key);
}

// Resume next.
void SettlementBill::m_BillInterface_HeadCtlLostFocus(const FieldInfo& oField) {
  if (oField.IsNothing()) return;
  std::string sFieldName;
  ResumeNext([&] { sFieldName = UpperCase(Concat(oField.GetValue("FFieldName"_key, ""_key))); });
  if (sFieldName != UpperCase(side_.sPartner)) return;

  std::string sCode;
  ResumeNext([&] { sCode = Concat(Bill().GetFieldValue(side_.sPartner, kHead, FieldValueKind::Code)); });
  std::string sText;
  if (!sCode.empty()) {
    ResumeNext([&] { sText = GetCreditText(sCode, LongOf(oField.Value("FClassTypeID"_key))); });
  }
  ResumeNext([&] { Bill().SetStatusPanel(kCreditPanel, sText); });
}

void SettlementBill::m_BillInterface_AfterDoAction(std::string_view sAction) {
  if (sAction != side_.sDiscountAction.view()) return;
  SetBillField(Bill(), "FDiscount"_key, kHead, RoundAmount(HeadNumber("FDiscount"_key), m_nDiscountScale));
}

}  // namespace arap
