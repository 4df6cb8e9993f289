#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "frame/bill_fields.h"
#include "frame/bill_operation.h"
#include "frame/conversions.h"
#include "frame/public_class.h"
#include "otherbills/other_bill_sides.h"

namespace arap {

/// An other bill and its list: income and expense outside the sales and purchase documents, settled at once or left
/// open against a partner. One class for both sides; what differs is read from the side. Partner means customer or
/// supplier.
class OtherBill : public ListedBillClass {
 protected:
  /// Fetches the income and expense types; passes on what that raises.
  explicit OtherBill(const OtherBillSide& side);
  ~OtherBill() override;

  std::string_view GetTaskCode(int nIndex) const override;
  void OnBillEvent(Event event, Arguments args) override;
  void OnListEvent(Event event, Arguments args) override;
  bool DoOptToBill(std::int32_t nTransType, std::int32_t nInterID, std::int32_t nCheckType, Variant& vCode,
                   Variant& vMessage) override;

  const OtherBillSide& side_;

 private:
  /// One edit as Change reports it.
  struct Edit {
    const FieldInfo& oField;
    const FieldRecord& oRecord;
    std::int32_t nRows;  // of the first body, used or not
    Variant& vCancel;

    /// The number in FFLD: the new value.
    double NewNumber() const { return NumberOf(oRecord.Value("FFLD"_key)); }
  };
  /// The degree of credit control, as the profile holds it.
  enum CreditDegree : std::int32_t { kWarn = 2, kRefuse = 3 };
  class SaveRows;

  // --- new_and_load ---
  void m_BillInterface_AfterNewBill();
  void m_BillInterface_AfterLoadBill();
  void SetNewBillDecimals();
  void SetBaseCurrencyInHead();
  void DisableCopyCommand();
  void ShowOwnersBar(double dStatus);
  void HideChangeCommand();
  void ShowReadersBar();
  void ShowVoucherTool(bool bEnabled);

  // --- type_rules ---
  /// Locks by status and bill type. A bill without a type counts as a credit bill.
  void ApplyBillTypeRules();
  /// Head totals from the body. A row without a type adds nothing, whatever its amount.
  void SumEntryAmounts();
  /// Decimals of a money field; bBody sets those of the column too. Does nothing for a field that the template lacks.
  void SetAmountScale(Key sKey, std::int16_t nDecimals, bool bBody);
  /// Locks or frees FExchangeRate, and the template's formulas follow.
  void LockExchangeRate(bool bLock);

  // --- credit_status ---
  /// Shows the partner's credit in the status bar, or empties that panel.
  void ShowCreditStatus();
  void ClearCreditStatus();
  /// The panel is empty without a partner.
  void ShowCreditOf(const std::string& sPartner, std::int32_t nClassType);

  // --- field_rules ---
  void m_BillInterface_BeginEdit(const FieldInfo& oField);
  void m_BillInterface_Change(const FieldInfo& oField, const FieldRecord& oRecord, Variant& vCancel);
  void m_BillInterface_HeadCtlLostFocus(const FieldInfo& oField);
  void ChangeDueDate(const Edit& edit);
  void ChangeRowAmount(const Edit& edit);
  void ChangeBillType(const Edit& edit);
  void ChangeCurrency(const Edit& edit);
  void ChangeExchangeRate(const Edit& edit);
  void ChangeInOutType(const Edit& edit);
  void RunRowAmountActions(std::int32_t nRows);
  std::string CodeOfPartner() const;

  // --- due_date ---
  /// Writes FLimitDate, but never on a bill that is open for reading.
  void ComputeDueDate();
  /// From the partner's payment terms; terms of another kind leave the due date as it stands.
  void ComputeDueDateByTerms(std::int32_t nPartner);
  void WriteDueDate(const Variant& vDate);

  // --- save_validation, save_rows ---
  void m_BillInterface_BeforeSave(Variant& vCancel);
  void m_BillInterface_AfterSave();
  /// The test chain; false after the first refusal, which has shown its message.
  bool PassesSaveTests();
  bool NumberIsFree() const;
  bool PassesBodyTests(SaveRows& rows, std::int32_t nAcct);
  /// True when one of the types (ids separated by commas) has the account.
  static bool HasAccount(const std::string& sTypes, std::int32_t nAcct);
  void WriteHeadTotals(const SaveRows& rows);
  bool PassesCreditLimit();
  /// A hint that stops no save.
  void WarnSettlementAccount() const;

  // --- credit_limit ---
  /// 0 when the bill passes, else the number of the profile's degree of control. An error passes to the caller.
  std::int32_t CheckCreditLimit();
  std::string CreditDegreeText() const;
  double OpenBalance(const std::string& sPartnerNumber) const;
  double StoredCreditAmount() const;

  // --- bill_commands, check_commands ---
  void m_BillInterface_MenuBarClick(const Tool& oTool, Variant& vCancel);
  struct Command {
    Key sName;
    void (OtherBill::*run)(const std::string& sBillNo, Variant& vCancel);
  };
  static std::span<const Command> Commands();
  void CheckBillCommand(const std::string& sBillNo, Variant& vCancel);
  void UncheckBillCommand(const std::string& sBillNo, Variant& vCancel);
  void DeleteCommand(const std::string& sBillNo, Variant& vCancel);
  void NewBillCommand(const std::string& sBillNo, Variant& vCancel);
  void HelpCommand(const std::string& sBillNo, Variant& vCancel);
  void TakeAwayCommand(const std::string& sBillNo, Variant& vCancel);
  void VoucherCommand(const std::string& sBillNo, Variant& vCancel);
  /// What the action log says of a check or an uncheck.
  struct CheckWords {
    Key sLogCode;
    std::string_view sFailureVerb;
    std::string_view sSuccessVerb;
  };
  void FinishCheck(const CheckAnswer& answer, std::int32_t nInterID, const CheckWords& words,
                   const std::string& sBillNo);

  // --- bar_setup ---
  void m_BillInterface_BarInitialize(const ActiveBar& oBar);
  void m_BillInterface_MenuBarInitialize(const ActiveBar& oBar);

  // --- list_commands, list_bar_setup ---
  void m_LstInterface_BarInitialize(const ActiveBar& oBar);
  void m_LstInterface_MenuBarInitialize(const ActiveBar& oBar);
  void m_LstInterface_MenuBarClick(const Tool& oTool, Variant& vCancel);
  /// What a list command works on, and whether the list is refreshed after it.
  struct Selection {
    Vector oRows;
    bool bRefresh;
  };
  struct ListCommand {
    Key sName;
    void (OtherBill::*run)(const Selection& selection, Variant& vCancel);
  };
  static std::span<const ListCommand> ListCommands();
  void RelatedBillsListCommand(const Selection& selection, Variant& vCancel);
  void DeleteListCommand(const Selection& selection, Variant& vCancel);
  void CheckListCommand(const Selection& selection, Variant& vCancel);
  void UncheckListCommand(const Selection& selection, Variant& vCancel);
  void VoucherListCommand(const Selection& selection, Variant& vCancel);
  /// True when every selected row allows the operation; false after the first that doesn't, and without a selection.
  bool CheckSelectedStatus(const Vector& oRows, BillOperation operation) const;
  void OperateOnSelected(const Selection& selection, BillOperation operation);
  void ShowRelatedBills(const Vector& oRows) const;
  void SetUpListBar(const ActiveBar& oBar) const;
  ListDataServer ListServer() const;

  // --- batch_operation ---
  /// The action log by the service's code; another code than -1, 0 and 1 has none.
  void LogOperation(std::int16_t nCode, const std::string& sText) const;

  // --- shared by the files ---
  double HeadNumber(Key sKey) const { return GetBillNumber(Bill(), sKey, kHead); }
  std::int32_t HeadLong(Key sKey) const { return GetBillLong(Bill(), sKey, kHead); }
  /// The head value as GetFieldValue answers it.
  Variant StoredValue(Key sKey) const { return Bill().GetFieldValue(sKey, kHead, FieldValueKind::Stored); }
  bool IsType(std::int32_t nType) const { return HeadNumber("FBillTypeId"_key) == nType; }
  bool IsImmediateBill() const { return IsType(side_.nImmediateType); }
  bool IsCreditBill() const { return IsType(side_.nCreditType); }
  bool IsChecked() const { return HeadNumber("FStatus"_key) == kChecked; }
  /// True when the types hold this one, and it is a parent. Leaves the filter of the types on it.
  bool IsParentType(double dType) const;
  /// SetText of the head field's definition.
  void WriteText(Key sKey, const Variant& vText) const { Bill().SetText(Bill().GetFieldInfoByKey(sKey), vText, 0); }

  Recordset m_rsInOutType;  // every type; its filter stays where the last test left it
};

/// The other receivable bill: a claim on a customer.
class clsROtherBill final : public OtherBill {
 public:
  clsROtherBill() : OtherBill(kROtherSide) {}
};

/// The other payable bill: a debt to a supplier.
class clsPOtherBill final : public OtherBill {
 public:
  clsPOtherBill() : OtherBill(kPOtherSide) {}
};

}  // namespace arap
