#include "frame/failure.h"
#include "settlement/settlement_bill.h"

/// What one field's change does to the others. No edit is refused by Cancel: an unwanted one is undone by writing the
/// old value back. The rules of currency and rate stand in currency_changes.cpp.
namespace arap {

// Trap and pass on.
void SettlementBill::m_BillInterface_Change(const FieldInfo& oField, const FieldRecord& oRecord, std::int32_t nRow,
                                            Variant& vCancel) {
  struct Rule {
    Key sKey;
    void (SettlementBill::*change)(const Edit&);
  };
  TrapAndPassOn(vCancel, [&] {
    const Rule aRules[] = {
        {side_.sPartner, &SettlementBill::ChangePartner},
        {side_.sSourceNo, &SettlementBill::ChangeSourceNo},
        {side_.sType, &SettlementBill::ChangeType},
        {"FCurrencyId"_key, &SettlementBill::ChangeCurrency},
        {"FDiscount"_key, &SettlementBill::ChangeDiscount},
        {side_.sReceivedFor, &SettlementBill::ChangeReceivedFor},
        {"FAmountFor"_key, &SettlementBill::ChangeAmountFor},
        {"FAcctID"_key, &SettlementBill::ChangeAccount},
        {"FExchangeRate"_key, &SettlementBill::ChangeExchangeRate},
    };
    const std::string sKey = Concat(oField.Value("FKey"_key));
    for (const Rule& rule : aRules) {
      if (EqualsNoCase(sKey, rule.sKey)) return (this->*rule.change)({oRecord, nRow, vCancel});
    }
  });
}

void SettlementBill::ChangePartner(const Edit& edit) {
  // A first choice of partner empties nothing; the body of another partner goes.
  if (m_lOldPartner != 0 && HeadLong(side_.sPartner) != m_lOldPartner) {
    Bill().DeleteEntryRows(2);
    ShowSourceColumns();
    ResetTypeDependents(false);
  }
  const double dPartner = edit.NewNumber();
  if (dPartner <= 0) return;
  TakePartnersOwn("FDepartment"_key, "t_Department"_key, "FDepartmentId"_key, TextOf(dPartner));
  TakePartnersOwn("FEmployee"_key, "t_Emp"_key, "FEmployeeId"_key, TextOf(dPartner));
}

void SettlementBill::TakePartnersOwn(Key sColumn, Key sTable, Key sField, const std::string& sPartner) {
  std::string sSql = "Select FNumber From ";
  sSql.append(sTable).append(" Where FItemID=(Select ").append(sColumn).append(" From ").append(side_.sPartnerTable);
  sSql.append(" Where FItemID=").append(sPartner).append(")");
  const Recordset rs = Bill().Server().OpenQuery(sSql);
  if (rs.Eof()) return;
  // The code, as the user would type it.
  Bill().SetFieldValue(sField, Trim(Concat(rs.Value(0))), kHead);
}

void SettlementBill::ChangeSourceNo(const Edit& edit) {
  const BillEvent oBill = Bill();
  const std::string sNew = Concat(edit.oRecord.Value("FFLD"_key));
  if (Trim(sNew).empty()) return oBill.Form().Data("Page2"_key).Remove(edit.nRow);

  ShowMessage(LoadText("不允许修改源单编号，请通过选单操作更改被选发票！"), kNotice, kTitle);
  const Variant vOld = edit.oRecord.Lookup("Fold"_key) ? edit.oRecord.Value("FOLD"_key) : Variant(""_key);
  WriteText(side_.sSourceNo, Concat(vOld), 0);  // row 0; required
  SetBillField(oBill, side_.sSourceNo, edit.nRow, vOld);
  // Set and taken back at once; required.
  edit.vCancel = true;
  edit.vCancel = false;
}

void SettlementBill::ChangeType(const Edit& edit) {
  Bill().DeleteEntryRows(2);
  ShowSourceColumns();
  SetSourceCommands(edit.NewId());
  ResetTypeDependents(true);
  LockRateByCurrency();
  const std::int32_t nBillId = HeadLong("FBillId"_key);
  if (nBillId == 0) return;
  const bool bPushed = GetBillTypeID(nBillId) != 0;
  SetLockFlags(bPushed, !bPushed);
}

void SettlementBill::ChangeDiscount(const Edit& edit) { LockDiscountAccount(edit.NewNumber() == kNoDiscount); }

void SettlementBill::ChangeReceivedFor(const Edit& edit) {
  LockDiscountAccount(edit.NewNumber() == HeadNumber("FAmountFor"_key));
  RunFieldAction(Bill(), side_.sReceivedFor, kHead, false);
}

void SettlementBill::ChangeAmountFor(const Edit& edit) {
  LockDiscountAccount(HeadType() == side_.nAdvanceType || edit.NewNumber() == HeadNumber(side_.sReceivedFor));
  RunFieldAction(Bill(), "FAmountFor"_key, kHead, false);
}

}  // namespace arap
