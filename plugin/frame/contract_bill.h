#pragma once

#include <array>
#include <string>
#include <string_view>

#include "frame/contract_bars.h"
#include "frame/contract_containers.h"

namespace arap {

/// Row number of a head field.
inline constexpr std::int32_t kHead = -1;
/// FStatus of a checked bill.
inline constexpr std::int32_t kChecked = 1;
/// The base currency.
inline constexpr std::int32_t kBaseCurrency = 1;
/// The panel of the status bar that tells the partner's credit.
inline constexpr std::int32_t kCreditPanel = 5;
/// What GetFieldValue answers.
enum class FieldValueKind : std::int32_t { Stored = 1, Code = 2 };

/// A field of the screen: apart from its value, what the control shows and whether the field itself is locked.
class ScreenField : public View {
 public:
  using View::View;
  Variant Text() const { return get(Member::Text); }
  void SetVisible(bool bVisible) const { put(Member::Visible, bVisible); }
  void SetLockFlag(bool bLock) const { put(open_choices::kScreenFieldLock, bLock); }
};

/// A page of the bill as the template describes it.
class BillEntry : public View {
 public:
  using View::View;
  /// Key of the field that marks a row as used; "" when the template has none.
  Variant KeyField() const { return get(Member::KeyField); }
  ScreenField MDKFields(const Variant& vKey) const { return ScreenField(get(Member::MDKFields, vKey)); }
};

/// The grid-and-head control of the bill window.
class BillCtl : public View {
 public:
  using View::View;
  /// 0 when no editing is possible now.
  std::int32_t BillStatus() const { return LongOf(get(Member::BillStatus)); }
  /// Locks or frees a whole column or head control.
  void SetLockProperty(bool bLock, const FieldInfo& oInfo) const { call(Member::SetLockProperty, bLock, oInfo); }
  /// Row -1 is the head cell or all rows.
  void LockCell(const FieldInfo& oInfo, std::int32_t nRow, bool bLock) const {
    call(Member::LockCell, oInfo, nRow, bLock);
  }
  /// Runs the template's actions of the field as if the user had just left it; AfterDoAction follows each.
  void DoAction(const FieldInfo& oInfo, const FieldRecord& oRecord, std::int32_t nRow) const {
    call(Member::DoAction, oInfo, oRecord, nRow);
  }
};

/// The bill window.
class BillForm : public View {
 public:
  using View::View;
  /// True when this user holds the edit lock on the bill.
  bool MutexSuccess() const { return ToBoolean(get(Member::MutexSuccess)); }
  void LockBill() const { call(Member::LockBill); }
  bool SaveBill() const { return ToBoolean(call(Member::SaveBill)); }
  /// True: the host's save stores nothing of this bill, though it isn't cancelled.
  void SetNotSave(bool bNotSave) const { put(Member::NotSave, bNotSave); }
  void DoSelBillExt(const Tool& oTool) const { call(Member::DoSelBillExt, oTool, ""); }
  void RefreshToolbar() const { call(Member::RefreshToolbar); }
  Vector Data(const Variant& vPage) const { return Vector(get(Member::Data, vPage)); }
};

/// The query object of the window's connection.
class DataServer : public View {
 public:
  using View::View;
  Recordset OpenQuery(std::string_view sSql) const { return Recordset(call(Member::OpenQuery, sSql)); }
};

/// The cell that has the focus.
struct ActiveCell {
  FieldInfo oField;  // Nothing when no cell has the focus
  std::int32_t nPage = 0;
  std::int32_t nRow = 0;
};

/// The bill window's event source and operations. Row -1 addresses a head field in every form that takes a key.
class BillEvent : public View {
 public:
  using View::View;

  /// The root Dictionary of the open bill.
  Dictionary Data() const { return Dictionary(get(Member::Data)); }
  /// One page: Page1 is a Dictionary, Page2 and Page3 are Vectors.
  Variant Data(const Variant& vPage) const { return get(Member::Data, vPage); }
  Dictionary BillData() const { return Dictionary(get(Member::BillData)); }

  /// Nothing for an unknown key.
  FieldInfo GetFieldInfoByKey(const Variant& vKey) const {
    std::array<Variant, 3> args{vKey, ""_key, std::int32_t{0}};
    return FieldInfo(invoke(Member::GetFieldInfoByKey, Access::Call, args));
  }
  /// Nothing when the row has no record of the field.
  FieldRecord GetDataFld(const FieldInfo& oInfo, std::int32_t nRow) const {
    return FieldRecord(call(Member::GetDataFld, oInfo, nRow));
  }
  FieldRecord GetDataFldbyKey(const Variant& vKey) const { return FieldRecord(call(Member::GetDataFldbyKey, vKey)); }
  FieldRecord GetDataFldByRow(const Variant& vKey, std::int32_t nRow) const {
    return FieldRecord(call(Member::GetDataFldByRow, vKey, nRow));
  }
  Variant GetFieldValue(const Variant& vKey, std::int32_t nRow, FieldValueKind kind) const {
    return call(Member::GetFieldValue, vKey, nRow, static_cast<std::int32_t>(kind));
  }
  /// Counts as the user's entry; a look-up field takes a code.
  void SetFieldValue(const Variant& vKey, const Variant& vValue, std::int32_t nRow) const {
    call(Member::SetFieldValue, vKey, vValue, nRow);
  }
  /// Writes text into the control or cell, as if typed.
  void SetText(const FieldInfo& oInfo, const Variant& vText, std::int32_t nRow) const {
    call(Member::SetText, oInfo, vText, nRow);
  }
  /// Decimals that the cell of that row shows, 0 or more; kHead for a head field. The stored value keeps its own.
  void SetFieldDecimals(const FieldInfo& oInfo, std::int32_t nRow, std::int16_t nDecimals) const {
    call(Member::SetFieldDecimals, oInfo, nRow, nDecimals);
  }
  /// The same for every row of the column.
  void SetColumnDecimals(const FieldInfo& oInfo, std::int16_t nDecimals) const {
    call(Member::SetColumnDecimals, oInfo, nDecimals);
  }
  /// Told after a new value was written into every row of a column.
  void RefreshFieldRow(const FieldInfo& oInfo) const { call(Member::RefreshFieldRow, oInfo); }
  void LockRowCell(const FieldInfo& oInfo, std::int32_t nRow, bool bLock) const {
    call(Member::LockRowCell, oInfo, nRow, bLock);
  }
  ActiveCell GetActiveCell() const;
  /// nPage 2: the first body is empty afterwards.
  void DeleteEntryRows(std::int32_t nPage) const { call(Member::DeleteEntryRows, nPage); }

  /// A tool that the bar lacks is ignored. sProperty is "Enabled" or "Visible", in any case.
  void SetBarStatus(const Variant& vToolKey, const Variant& vProperty, const Variant& vValue) const {
    call(Member::SetBarStatus, vToolKey, vProperty, vValue);
  }
  void EnableTool(Key sToolKey, bool bEnabled) const { SetBarStatus(sToolKey, "Enabled"_key, bEnabled); }
  void ShowTool(Key sToolKey, bool bVisible) const { SetBarStatus(sToolKey, "Visible"_key, bVisible); }
  /// Text of a panel of the status bar, by the panel's number. The rules write kCreditPanel alone.
  void SetStatusPanel(std::int32_t nPanel, const Variant& vText) const { call(Member::SetStatusPanel, nPanel, vText); }
  void BarRefresh() const { call(Member::BarRefresh); }
  /// Told when the service has checked or unchecked the bill. What the host does with it is its own.
  void ReloadAfterCheck() const { call(Member::ReloadAfterCheck); }
  /// Loads the bill of that id into the window, with the events of a load.
  void ShowBillByID(std::int32_t nInterID) const { call(Member::ShowBillByID, nInterID); }
  /// Told true at each row of an apportionment, and never false: required. What the host does with it is its own.
  void SetBatchFlag(bool bOn) const { call(Member::SetBatchFlag, bOn); }

  /// The entry of a body: 1 is the first body, Page2.
  BillEntry BillEntrys(std::int32_t nIndex) const { return BillEntry(get(Member::BillEntrys, nIndex)); }
  /// The screen field of the head by the typed route: BillEntrys.Item(1).MDKFields.Item(key).
  ScreenField HeadScreenField(const Variant& vKey) const;
  BillCtl Ctl() const { return BillCtl(get(Member::BillCtl)); }
  Vector ClassTypeEntry() const { return Vector(get(Member::ClassTypeEntry)); }
  /// 0 read only, 1 new, 2 modify.
  std::int32_t EditMode() const { return LongOf(get(Member::EditMode)); }
  /// 0 while the bill is new.
  std::int32_t InterID() const { return LongOf(get(Member::InterID)); }
  std::int32_t TransTypeID() const { return LongOf(get(Member::TransTypeID)); }
  Dictionary BillTypeInfo() const { return Dictionary(get(Member::BillTypeInfo)); }
  Dictionary BillMapInfo() const { return Dictionary(get(Member::BillMapInfo)); }
  /// A value of the window's filter: FilterObject.Filter(key).
  Variant FilterValue(const Variant& vKey) const {
    return get(Member::FilterObject).object()->get(Member::Filter, vKey);
  }
  DataServer Server() const { return DataServer(get(Member::DataServer)); }
  ActiveBar BarControl() const { return ActiveBar(get(Member::BarControl)); }
  BillForm Form() const { return BillForm(get(Member::BillForm)); }
};

}  // namespace arap
