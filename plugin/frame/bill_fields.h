#pragma once

#include <string>
#include <string_view>

#include "frame/host_contract.h"

/// The only way in which handlers read and write bill fields. A row number is 1-based; -1 is the head.
namespace arap {

/// How a row of an other bill reaches its view of money, receivable and payable. For statements of others: no rule of
/// this module writes them.
inline constexpr std::string_view T_RP_ROTHERBILL =
    " LEFT JOIN vw_BillRPMoney vrp ON t_RP_ROtherBill.FBillID=vrp.FInterID AND vrp.FTranType=1000205 ";
inline constexpr std::string_view T_RP_POTHERBILL =
    " LEFT JOIN vw_BillRPMoney vrp ON t_RP_POtherBill.FBillID=vrp.FInterID AND vrp.FTranType=1000206 ";

/// The value of a field record under vProp (nearly always FFLD); vDefault when there is no such record or key. The
/// value is not converted: a caller takes NumberOf or Concat of it.
Variant GetBillField(const BillEvent& oBill, const Variant& vKey, std::int32_t nRow, const Variant& vProp = "FFLD"_key,
                     const Variant& vDefault = ""_key);
/// GetBillField as a number: Val of its text, so an empty or absent value is 0.
double GetBillNumber(const BillEvent& oBill, const Variant& vKey, std::int32_t nRow);
/// GetBillField as a 32-bit id.
std::int32_t GetBillLong(const BillEvent& oBill, const Variant& vKey, std::int32_t nRow);

/// Writes a value where it really differs, marks the record as modified unless bKeepModify, fills display and code of a
/// look-up field by one query, and with bShow pushes the shown text to the screen (also when the value was equal).
/// Row -1 on a body field means every row. The seventh argument of the contract has no effect and is left out.
void SetBillField(const BillEvent& oBill, const Variant& vKey, std::int32_t nRow, const Variant& vValue,
                  bool bShow = false, bool bKeepModify = false);

/// Head fields only: locks or frees the cell. With bClear first writes 0 and sets the record's modify mark to nModify.
/// Clearing addresses row 0 and locking row -1; required.
void LockBillField(const BillEvent& oBill, const Variant& vKey, bool bLock, bool bClear, std::int32_t nModify = 1);

/// Runs the template's actions of the field, with the record marked as modified first when bMarkModified. Does nothing
/// where the row has no record of the field.
void RunFieldAction(const BillEvent& oBill, const Variant& vKey, std::int32_t nRow, bool bMarkModified);

/// Rows of body nEntry (1-based): all of them, or those whose key field isn't blank.
std::int32_t GetEntryRowCount(const BillEvent& oBill, std::int32_t nEntry, bool bAllRows);

/// Locks or frees every page by its id field; statement errors are skipped.
void LockBillPages(const BillEvent& oBill, bool bLock);

/// Sets FModify of every record of the bill to 0.
void ClearModifyFlags(const BillEvent& oBill);

/// sKeys: comma-separated field keys of body nEntry, without blanks.
void SetFieldsVisible(const BillEvent& oBill, std::string_view sKeys, std::int32_t nEntry, bool bVisible);

/// Locks or frees a block of a grid control.
void LockGridBlock(const Ref<Object>& oGrid, std::int32_t nRow, std::int32_t nCol, std::int32_t nRow2,
                   std::int32_t nCol2, bool bLock);

/// The first 1-based position of vValue; nIndex is left alone when there is none.
bool FindInVector(const Variant& vValue, const Vector& oVector, std::int32_t& nIndex);

Variant NullToValue(const Variant& vValue, const Variant& vDefault);

/// True exactly above 0.
bool IsPositive(double dValue);

}  // namespace arap
