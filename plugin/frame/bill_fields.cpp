#include "frame/bill_fields.h"

#include <algorithm>
#include <array>

#include "frame/failure.h"
#include "frame/server_objects.h"
#include "frame/session.h"
#include "frame/text_utils.h"

namespace arap {

namespace {

constexpr std::int32_t kShowsStoredValue = 8;  // FCtlType of a control that shows FFLD
constexpr std::int32_t kLookUpSource = 1;      // FSourceType of a look-up through FSRCTableName
constexpr std::int32_t kPartnerSource = 7;     // FSourceType that counts together with the key
constexpr std::int32_t kHeadPage = 1;

bool ShowsStoredValue(const FieldRecord& oRecord) {
  return LongOf(oRecord.GetValue("FCtlType"_key, std::int32_t{0})) == kShowsStoredValue;
}

std::int32_t SourceType(const FieldInfo& oInfo) { return LongOf(oInfo.GetValue("FSourceType"_key, std::int32_t{0})); }

/// Two numbers compare by value, so 100 is "100.00"; anything else compares as it is.
bool Differs(const Variant& vStored, const Variant& vValue) {
  if (IsNumeric(vStored) && IsNumeric(vValue)) return NumberOf(vStored) != ToDouble(vValue);
  if (vStored.is_null() && vValue.is_null()) return false;
  return !Equals(vStored, vValue);
}

std::string LookUpSql(const FieldInfo& oInfo, const std::string& sCode, const Variant& vValue) {
  // Without quotes: the value of a look-up field is always a number.
  return "Select " + sCode + ",FName From " + Concat(oInfo.GetValue("FSRCTableName"_key, ""_key)) + " Where " +
         Concat(oInfo.GetValue("FSRCFieldName"_key, ""_key)) + "=" + Concat(vValue);
}

/// Display and code of a look-up value by one query; both "" unless it finds exactly one record.
void FillLookUp(const FieldInfo& oInfo, const FieldRecord& oRecord, const Variant& vValue) {
  const bool bSubMessage = EqualsNoCase(Concat(oInfo.GetValue("FSRCTableName"_key, ""_key)), "t_submessage");
  const std::string sCode = bSubMessage ? "FID" : "FNumber";
  ParsePropsString(GetPropsString());
  const Ref<Object> oConnection = CreateServerObject("NUVMAppConnection.AppConnection");
  const Recordset rs(oConnection->call(Member::Execute, ConnectString(), LookUpSql(oInfo, sCode, vValue)));
  const bool bFound = rs.RecordCount() == 1;
  oRecord.SetValue("FDSP"_key, bFound ? NullToValue(rs.Value("FName"_key), ""_key) : ""_key);
  oRecord.SetValue("FFND"_key, bFound ? NullToValue(rs.Value(sCode), ""_key) : ""_key);
}

/// Exact case, unlike most of the program: required.
bool IsPartnerKey(const Variant& vKey) {
  const std::string sKey = Concat(vKey);
  return sKey == "FComID" || sKey == "FCustID" || sKey == "FSupplyID" || sKey == "FCustomer";
}

/// What the screen shows for the record.
Variant ShownValue(const FieldInfo& oInfo, const FieldRecord& oRecord, const Variant& vKey, const Variant& vValue) {
  if (ShowsStoredValue(oRecord)) return oRecord.Value("FFLD"_key);
  const std::int32_t nSourceType = SourceType(oInfo);
  const bool bShowsName = nSourceType == kLookUpSource || (nSourceType == kPartnerSource && IsPartnerKey(vKey));
  return bShowsName ? oRecord.GetValue("FDSP"_key, ""_key) : vValue;
}

void WriteRecord(const FieldInfo& oInfo, const FieldRecord& oRecord, const Variant& vValue, bool bKeepModify) {
  oRecord.SetValue("FFLD"_key, vValue);
  if (!bKeepModify) oRecord.SetValue("FModify"_key, std::int32_t{1});
  if (!ShowsStoredValue(oRecord) && SourceType(oInfo) == kLookUpSource) FillLookUp(oInfo, oRecord, vValue);
}

Variant PageKey(std::int32_t nPage) { return "Page" + std::to_string(nPage); }

struct RowRange {
  std::int32_t nFirst;
  std::int32_t nLast;
};

/// Row -1 is the head record of a head field and every row of a body field.
RowRange RowsToTouch(const BillEvent& oBill, const FieldInfo& oInfo, std::int32_t nRow) {
  if (nRow != kHead) return {nRow, nRow};
  const std::int32_t nPage = LongOf(oInfo.Value("FPage"_key));
  if (nPage == kHeadPage) return {nRow, nRow};
  return {1, Vector(oBill.Data(PageKey(nPage))).UBound()};
}

/// The record of a field; Nothing also for a field that the template lacks.
FieldRecord RecordOf(const BillEvent& oBill, const FieldInfo& oInfo, std::int32_t nRow) {
  return oInfo.IsNothing() ? FieldRecord() : oBill.GetDataFld(oInfo, nRow);
}

void ClearModifyOfRow(const Dictionary& oRow) {
  const std::int32_t nSize = oRow.Size();
  for (std::int32_t i = 1; i <= nSize; ++i) {
    const Variant vRecord = oRow.Value(oRow.Name(i));
    if (vRecord.is_object() && !vRecord.is_nothing()) {
      FieldRecord(vRecord).SetValue("FModify"_key, std::int32_t{0});
    }
  }
}

void LockPageOf(const BillEvent& oBill, const Variant& vIdKey, bool bLock) {
  ResumeNext([&] {
    const FieldInfo oInfo = oBill.GetFieldInfoByKey(vIdKey);
    if (!oInfo.IsNothing()) oBill.Ctl().SetLockProperty(bLock, oInfo);
  });
}

}  // namespace

Variant GetBillField(const BillEvent& oBill, const Variant& vKey, std::int32_t nRow, const Variant& vProp,
                     const Variant& vDefault) {
  const FieldRecord oRecord = RecordOf(oBill, oBill.GetFieldInfoByKey(vKey), nRow);
  if (oRecord.IsNothing() || !oRecord.Lookup(vProp)) return vDefault;
  return oRecord.Value(vProp);
}

double GetBillNumber(const BillEvent& oBill, const Variant& vKey, std::int32_t nRow) {
  return NumberOf(GetBillField(oBill, vKey, nRow));
}

std::int32_t GetBillLong(const BillEvent& oBill, const Variant& vKey, std::int32_t nRow) {
  return LongOf(GetBillField(oBill, vKey, nRow));
}

void SetBillField(const BillEvent& oBill, const Variant& vKey, std::int32_t nRow, const Variant& vValue, bool bShow,
                  bool bKeepModify) {
  const FieldInfo oInfo = oBill.GetFieldInfoByKey(vKey);
  if (oInfo.IsNothing()) return;
  const RowRange rows = RowsToTouch(oBill, oInfo, nRow);
  for (std::int32_t i = rows.nFirst; i <= rows.nLast; ++i) {
    const FieldRecord oRecord = oBill.GetDataFld(oInfo, i);
    if (oRecord.IsNothing()) continue;
    // The comparison comes first: an equal value costs no query.
    if (Differs(oRecord.Value("FFLD"_key), vValue)) WriteRecord(oInfo, oRecord, vValue, bKeepModify);
    if (bShow) oBill.SetText(oInfo, ShownValue(oInfo, oRecord, vKey, vValue), i);
  }
}

void LockBillField(const BillEvent& oBill, const Variant& vKey, bool bLock, bool bClear, std::int32_t nModify) {
  if (bClear) {
    SetBillField(oBill, vKey, 0, std::int32_t{0}, true, false);
    const FieldRecord oRecord = oBill.GetDataFldbyKey(vKey);
    if (!oRecord.IsNothing()) oRecord.SetValue("FModify"_key, nModify);
  }
  oBill.Ctl().LockCell(oBill.GetFieldInfoByKey(vKey), kHead, bLock);
}

void RunFieldAction(const BillEvent& oBill, const Variant& vKey, std::int32_t nRow, bool bMarkModified) {
  const FieldInfo oInfo = oBill.GetFieldInfoByKey(vKey);
  const FieldRecord oRecord = RecordOf(oBill, oInfo, nRow);
  if (oRecord.IsNothing()) return;
  if (bMarkModified) oRecord.SetValue("FModify"_key, std::int32_t{1});
  oBill.Ctl().DoAction(oInfo, oRecord, nRow);
}

std::int32_t GetEntryRowCount(const BillEvent& oBill, std::int32_t nEntry, bool bAllRows) {
  const Variant vKeyField = bAllRows ? Variant(""_key) : oBill.BillEntrys(nEntry).KeyField();
  const std::int32_t nRows = Vector(oBill.Data(PageKey(nEntry + 1))).Size();
  if (Concat(vKeyField).empty()) return nRows;
  // Used rows aren't contiguous: a blank row may stand before a filled one.
  std::int32_t nUsed = 0;
  for (std::int32_t nRow = 1; nRow <= nRows; ++nRow) {
    if (!Trim(Concat(oBill.GetFieldValue(vKeyField, nRow, FieldValueKind::Stored))).empty()) ++nUsed;
  }
  return nUsed;
}

void LockBillPages(const BillEvent& oBill, bool bLock) {
  LockPageOf(oBill, "FID"_key, bLock);
  std::int32_t nPages = 1;
  ResumeNext([&] { nPages = oBill.ClassTypeEntry().Size(); });
  for (std::int32_t i = 2; i <= nPages; ++i) LockPageOf(oBill, "FID" + std::to_string(i), bLock);
}

void ClearModifyFlags(const BillEvent& oBill) {
  const Dictionary oData = oBill.Data();
  if (oData.Lookup("Page1"_key)) ClearModifyOfRow(Dictionary(oData.Value("Page1"_key)));
  for (const Key sPage : {"Page2"_key, "Page3"_key}) {
    if (!oData.Lookup(sPage)) continue;
    const Vector oRows(oData.Value(sPage));
    const std::int32_t nRows = oRows.Size();
    for (std::int32_t nRow = 1; nRow <= nRows; ++nRow) ClearModifyOfRow(Dictionary(oRows.Item(nRow)));
  }
}

void SetFieldsVisible(const BillEvent& oBill, std::string_view sKeys, std::int32_t nEntry, bool bVisible) {
  while (!sKeys.empty()) {
    const std::size_t nComma = std::min(sKeys.find(','), sKeys.size());
    oBill.BillEntrys(nEntry).MDKFields(sKeys.substr(0, nComma)).SetVisible(bVisible);
    sKeys.remove_prefix(std::min(nComma + 1, sKeys.size()));
  }
}

void LockGridBlock(const Ref<Object>& oGrid, std::int32_t nRow, std::int32_t nCol, std::int32_t nRow2,
                   std::int32_t nCol2, bool bLock) {
  if (!oGrid) throw AutomationError(ErrorNumber::ObjectNotSet);
  oGrid->put(Member::BlockMode, true);
  oGrid->put(Member::Row, nRow);
  oGrid->put(Member::Col, nCol);
  oGrid->put(Member::Row2, nRow2);
  oGrid->put(Member::Col2, nCol2);
  oGrid->put(Member::Lock, bLock);
  oGrid->put(Member::BlockMode, false);
}

bool FindInVector(const Variant& vValue, const Vector& oVector, std::int32_t& nIndex) {
  const std::int32_t nSize = oVector.Size();
  for (std::int32_t i = 1; i <= nSize; ++i) {
    if (!Equals(oVector.Item(i), vValue)) continue;
    nIndex = i;
    return true;
  }
  return false;
}

Variant NullToValue(const Variant& vValue, const Variant& vDefault) { return vValue.is_null() ? vDefault : vValue; }

bool IsPositive(double dValue) { return dValue > 0; }

}  // namespace arap
