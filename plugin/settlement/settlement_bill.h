#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "frame/bill_fields.h"
#include "frame/bill_operation.h"
#include "frame/conversions.h"
#include "frame/public_class.h"
#include "settlement/settlement_sides.h"

namespace arap {

/// A settlement bill and its list: money that moved between the business and a partner, and the open bills that it
/// settles. One class for both sides; what differs is read from the side. Partner means customer or supplier, received
/// means received or paid.
class SettlementBill : public ListedBillClass {
 protected:
  explicit SettlementBill(const SettlementSide& side);
  ~SettlementBill() override;

  void Show(const Ref<Object>& oSource) override;
  std::string_view GetTaskCode(int nIndex) const override;
  void OnBillEvent(Event event, Arguments args) override;
  void OnListEvent(Event event, Arguments args) override;
  bool DoOptToBill(std::int32_t nTransType, std::int32_t nInterID, std::int32_t nCheckType, Variant& vCode,
                   Variant& vMessage) override;

  const SettlementSide& side_;

 private:
  /// One edit as Change reports it.
  struct Edit {
    const FieldRecord& oRecord;
    std::int32_t nRow;
    Variant& vCancel;

    /// The number in FFLD: the new value.
    double NewNumber() const { return NumberOf(oRecord.Value("FFLD"_key)); }
    std::int32_t NewId() const { return LongOf(oRecord.Value("FFLD"_key)); }
  };
  /// What BeforeSave reads from the head before its tests.
  struct SaveHead {
    double dDiscount;
    std::int32_t nType;
    double dAmount;
    std::int32_t nCur;
  };
  class SaveRows;

  // --- new_and_load ---
  void m_BillInterface_BeforeLoadBill();
  void m_BillInterface_BeforLoadBillFillData();
  void m_BillInterface_AfterNewBill();
  void m_BillInterface_AfterLoadBill();
  void InitDiscountScale() { m_nDiscountScale = 6; }
  void SetNewBillDecimals();
  void SetNewBillDiscountAccount();
  void SetBaseCurrencyInHead();
  void ShowEditableBar();
  void ShowEditableBarByStatus();
  void LockRowPartners();
  void ShowReadOnlyBar();
  void ShowVoucherTool();
  void LockAsLoaded(std::int32_t nStatus);
  void ApplyPushOnLoad();

  // --- head_locks ---
  /// The single place that sets head locks by status.
  void ApplyStatusLocks(std::int32_t nStatus);
  void LockCheckedHead();
  void FreeUncheckedHead();
  void LockAdvanceFields();
  void EnableAutoTools(bool bEnabled);
  /// Locks or frees FExchangeRate; once the bill is loaded the template's formulas follow.
  void LockExchangeRate(bool bLock);
  /// LockExchangeRate by the head currency: the base currency's rate can't be typed.
  void LockRateByCurrency();
  /// At 100 locks and empties the discount account, else frees it.
  void LockDiscountAccount(bool bNoDiscount);
  void ResetTypeDependents(bool bClear);
  void RewriteType();
  void ResetForRedBlue();
  void ClearHeadAmounts();
  void SetSourceCommands(std::int32_t nType);
  void DisableRowCommands();
  void ShowCheckTools();
  /// Does nothing for a key that isn't in the bill's source map.
  void SetAmountScale(Key sKey, std::int16_t nDecimals, bool bColumn, std::int32_t nRow = kHead);
  void SetHeadAmountScales(std::int16_t nDecimals);
  void ShowSourceColumns();

  // --- credit_status ---
  void ShowCreditStatus();
  /// Not 0: the bill was pushed from another module.
  std::int32_t GetBillTypeID(std::int32_t nBillId);
  /// Lock flags of the screen fields of partner and type.
  void SetLockFlags(bool bLockPartner, bool bLockType);

  // --- edit_events ---
  void m_BillInterface_BeginEdit(const FieldInfo& oField);
  void m_BillInterface_HeadCtlLostFocus(const FieldInfo& oField);
  void m_BillInterface_AfterDoAction(std::string_view sAction);
  void FilterEmployees(const FieldInfo& oField);

  // --- field_changes, currency_changes ---
  void m_BillInterface_Change(const FieldInfo& oField, const FieldRecord& oRecord, std::int32_t nRow, Variant& vCancel);
  void ChangePartner(const Edit& edit);
  void TakePartnersOwn(Key sColumn, Key sTable, Key sField, const std::string& sPartner);
  void ChangeSourceNo(const Edit& edit);
  void ChangeType(const Edit& edit);
  void ChangeCurrency(const Edit& edit);
  void ChangeDiscount(const Edit& edit);
  void ChangeReceivedFor(const Edit& edit);
  void ChangeAmountFor(const Edit& edit);
  void ChangeAccount(const Edit& edit);
  void ChangeExchangeRate(const Edit& edit);
  /// The head currency that the account asks for is entered; 0 when the head has it already.
  std::int32_t EnterAccountCurrency(double dAccount);
  void WriteHeadRate(double dRate);
  void RefreshSettleAmounts();
  double RowAmountForCurrencyChange(std::int32_t nRow, int nScale);
  void WriteRowRate(std::int32_t nRow, double dRate, double dAmountFor);

  // --- save_validation, save_row_tests, settle_fields ---
  void m_BillInterface_BeforeSave(Variant& vCancel);
  void m_BillInterface_SaveBillFailed();
  /// The test chain; false after the first refusal, which has shown its message.
  bool PassesSaveTests();
  bool PassesAdvanceTests(const SaveHead& head);
  bool PassesBodyTests(const SaveHead& head, std::int32_t nRows);
  SaveHead ReadSaveHead();
  double ReadSaveAmountFor();
  void StoreDiscount(double dDiscount);
  bool SourceBillExists(std::int32_t nClassID, std::int32_t nBillID);
  /// Writes the settlement fields of a checked bill; an error ends it without a message.
  void SaveSettleFields();

  // --- batch_operation ---
  /// The action log by the service's code; another code than -1, 0 and 1 has none.
  void LogOperation(std::int16_t nCode, const std::string& sText) const;

  // --- source_selection, selection_filter, selection_fill ---
  void m_BillInterface_BeforeSelBills(std::int32_t nBillType, const Ref<Object>& oQuery, Variant& vFilter);
  void m_BillInterface_AfterSelBillBeforeFillData(const Dictionary& oSel);
  void m_BillInterface_AfterSelBill();
  /// Sets the tool to the selection kind of the bill's type, and the host opens its selection on it.
  void SelectSourceBills(const Tool& oTool, Variant& vCancel);
  void LookUpSourceBill(const Tool& oTool, Variant& vCancel);
  std::int32_t SelectionKind() const;
  bool HasPartnerForSelection(Variant& vCancel) const;
  struct SelectionHead {
    std::int32_t nCurrency;
    double dRate;
  };
  void FillSourceRow(std::int32_t nRow, const SelectionHead& head, double& dRate);
  void ScaleSourceRow(std::int32_t nCurrency);

  // --- auto_apportion, auto_sum, body_currencies ---
  void AutoApportion();
  void AutoSum();
  void EndApportion(double dRest);
  /// False after its own message.
  bool CheckBodyCurrencies() const;
  bool PassesRowCurrencyMix() const;

  // --- bill_commands ---
  void m_BillInterface_MenuBarClick(const Tool& oTool, Variant& vCancel);
  struct Command {
    Key sName;
    void (SettlementBill::*run)(const Tool& oTool, Variant& vCancel);
  };
  std::span<const Command> Commands() const;
  void AutoApportionCommand(const Tool& oTool, Variant& vCancel);
  void AutoSumCommand(const Tool& oTool, Variant& vCancel);
  void SaveCommand(const Tool& oTool, Variant& vCancel);
  void ExitCommand(const Tool& oTool, Variant& vCancel);
  void HelpCommand(const Tool& oTool, Variant& vCancel);
  void VoucherCommand(const Tool& oTool, Variant& vCancel);
  void LeaveToHost(const Tool& oTool, Variant& vCancel);
  void TakeAwayCommand(const Tool& oTool, Variant& vCancel);
  void RewriteRateOfPushedBill();

  // --- check_commands ---
  void CheckBillCommand(const Tool& oTool, Variant& vCancel);
  void UncheckBillCommand(const Tool& oTool, Variant& vCancel);
  bool IsBeforeCurrentPeriod() const;

  // --- selection_commands, red_blue: on the receipt bill only ---
  void ChooseFirstOlderSource(const Tool& oTool, Variant& vCancel);
  void ChooseSecondOlderSource(const Tool& oTool, Variant& vCancel);
  void ChooseThirdOlderSource(const Tool& oTool, Variant& vCancel);
  bool OlderSourcesEnabled(Variant& vCancel) const;
  bool TakesSources(Variant& vCancel) const;
  void CheckOlderSource(const Tool& oTool, Key sChecked);
  void RedBillCommand(const Tool& oTool, Variant& vCancel);
  void BlueBillCommand(const Tool& oTool, Variant& vCancel);
  /// False when the bill has that colour already.
  bool TurnColour(const Tool& oTool, Key sColour, Key sOther);

  // --- bar_setup ---
  void m_BillInterface_BarInitialize(const ActiveBar& oBar);
  void m_BillInterface_MenuBarInitialize(const ActiveBar& oBar);

  // --- list_bar_setup, list_commands ---
  void m_LstInterface_BarInitialize(const ActiveBar& oBar);
  void m_LstInterface_MenuBarInitialize(const ActiveBar& oBar);
  void m_LstInterface_MenuBarClick(const Tool& oTool, Variant& vCancel);
  void SetUpListBar(const ActiveBar& oBar) const;
  /// What a command of the list works on.
  struct Selection {
    Vector oRows;
    bool bRefresh;
  };
  struct ListCommand {
    Key sName;
    void (SettlementBill::*run)(const Selection& selection, Variant& vCancel);
  };
  std::span<const ListCommand> ListCommands() const;
  void DeleteListCommand(const Selection& selection, Variant& vCancel);
  void CheckListCommand(const Selection& selection, Variant& vCancel);
  void UncheckListCommand(const Selection& selection, Variant& vCancel);
  void VoucherListCommand(const Selection& selection, Variant& vCancel);
  void ViewBillListCommand(const Selection& selection, Variant& vCancel);
  /// True when every selected row allows the operation; the first that doesn't shows its message, but a row without
  /// FBillID and an empty selection show none.
  bool CheckSelectedStatus(const Vector& oRows, BillOperation operation);
  bool PassesListTests(const Recordset& rs, BillOperation operation);
  bool SourcesExist(const Recordset& rs);
  void OperateOnSelected(const Selection& selection, BillOperation operation);
  ListDataServer ListServer() const;

  // --- shared by the files ---
  double HeadNumber(Key sKey) const { return GetBillNumber(Bill(), sKey, kHead); }
  std::int32_t HeadLong(Key sKey) const { return GetBillLong(Bill(), sKey, kHead); }
  std::int32_t HeadType() const { return HeadLong(side_.sType); }
  std::int32_t StoredType() const { return LongOf(Bill().GetFieldValue(side_.sType, kHead, FieldValueKind::Stored)); }
  bool IsChecked() const { return HeadLong("FStatus"_key) == kChecked; }
  /// SetText of the field's definition.
  void WriteText(Key sKey, const Variant& vText, std::int32_t nRow) const {
    Bill().SetText(Bill().GetFieldInfoByKey(sKey), vText, nRow);
  }

  std::int32_t m_nDiscountScale = 0;  // decimals of FDiscount
  std::int32_t m_lOldPartner = 0;     // partner when its editor opened; 0 before any such edit
  std::int32_t m_SelBillType = 0;     // last selection kind that a command chose; read by nothing, required
  bool m_bLoaded = false;             // false only while AfterLoadBill locks, and before the menu is built
  std::string m_sReportDate;          // the report date when the menu was built; read by nothing, required

 protected:
  /// A bill that belongs to another source is locked right after ShowCheckTools. Only the payment bill has such bills.
  virtual void LockExternalPayment() {}

 private:
  Variant m_rsList;           // ListData
  Variant m_oListDataServer;  // ListDataServer
};

}  // namespace arap
