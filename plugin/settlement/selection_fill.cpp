#include "frame/bill_fields.h"
#include "frame/failure.h"
#include "frame/server_objects.h"
#include "settlement/settlement_bill.h"

namespace arap {
namespace {

/// One value that all chosen source rows may agree on.
class Agreement {
 public:
  void Take(const Variant& vValue, bool bFirst) {
    const std::int32_t nValue = LongOf(NullToValue(vValue, std::int32_t{0}));
    if (!bFirst && bAgrees_ && nValue != nValue_) bAgrees_ = false;
    nValue_ = nValue;
  }
  /// Writes the value to the head, over what stands there, unless the rows differ or the last one has none.
  void WriteTo(const BillEvent& oBill, Key sKey) const {
    if (bAgrees_ && nValue_ != 0) SetBillField(oBill, sKey, kHead, nValue_);
  }

 private:
  bool bAgrees_ = true;
  std::int32_t nValue_ = 0;
};

/// The department and the employee of the head follow the chosen source rows.
void FillDepartmentAndEmployee(const BillEvent& oBill, const Variant& vRows) {
  const Recordset rs(vRows);
  if (rs.IsNothing() || rs.RecordCount() < 1) return;
  Agreement department;
  Agreement employee;
  const std::int32_t nCount = rs.RecordCount();
  rs.MoveFirst();
  for (std::int32_t nRecord = 1; nRecord <= nCount; ++nRecord) {
    department.Take(rs.Value("FDeptID"_key), nRecord == 1);
    employee.Take(rs.Value("FEmpID"_key), nRecord == 1);
    rs.MoveNext();
  }
  department.WriteTo(oBill, "FDepartmentID"_key);
  employee.WriteTo(oBill, "FEmployeeID"_key);
}

}  // namespace

/// Both operators are handled alike: the row's amount is multiplied, with no division for "/". Required, though the
/// head treats rates otherwise. `dRate` keeps its value under any other operator.
void SettlementBill::FillSourceRow(std::int32_t nRow, const SelectionHead& head, double& dRate) {
  const BillEvent oBill = Bill();
  const std::int32_t nCurrency = GetBillLong(oBill, "FBillCurrencyID"_key, nRow);
  const double dRowRate = GetBillNumber(oBill, "FEntryExchangeRate"_key, nRow);
  const std::string sOperator = GetGLData().GetCurrency(nCurrency).Operator();
  if (sOperator == "*" || sOperator == "/") dRate = dRowRate;
  const double dUsed = nCurrency == head.nCurrency ? head.dRate : dRate;
  SetBillField(oBill, "FEntryExchangeRate"_key, nRow, dUsed);
  // The whole open amount is offered, at two decimals whatever the currency has.
  const double dOpen = GetBillNumber(oBill, side_.sOpenFor, nRow);
  SetBillField(oBill, "FBillSettleAmountFor"_key, nRow, Round(dOpen, 2));
  SetBillField(oBill, "FBillSettleAmount"_key, nRow, Round(dOpen * dUsed, 2));
  // No test of the type: the rows of a refund get the text too.
  if (Concat(GetBillField(oBill, side_.sSourceNo, nRow)).empty()) {
    SetBillField(oBill, side_.sSourceNo, nRow, LoadText(side_.sOpeningSource));
  }
  ScaleSourceRow(nCurrency);
}

void SettlementBill::ScaleSourceRow(std::int32_t nCurrency) {
  const std::int16_t nFor = GetGLData().GetCurrency(nCurrency).ScaleX();
  const std::int16_t nBase = GetGLData().GetCurrency(kBaseCurrency).ScaleX();
  SetAmountScale("FBillAmountFor"_key, nFor, true);
  SetAmountScale("FBillAmount"_key, nBase, true);
  SetAmountScale(side_.sRowReceivedFor, nFor, false);
  SetAmountScale(side_.sRowReceived, nBase, false);
  SetAmountScale(side_.sOpenFor, nFor, false);
  SetAmountScale(side_.sOpen, nBase, false);
  SetAmountScale("FBillSettleAmountFor"_key, nFor, false);
  SetAmountScale("FBillSettleAmount"_key, nBase, false);
}

void SettlementBill::m_BillInterface_AfterSelBillBeforeFillData(const Dictionary& oSel) {
  const BillEvent oBill = Bill();
  // Rows are added to the body, not put in place of it.
  oSel.SetValue("AddModel"_key, true);
  // Read and not used; the read itself is required.
  Dictionary(oBill.BillMapInfo().Value("Map"_key)).GetValue(side_.sSourceNo, ""_key);
  const SelectionHead head{.nCurrency = GetBillLong(oBill, "FCurrencyID"_key, kHead),
                           .dRate = GetBillNumber(oBill, "FExchangeRate"_key, kHead)};
  // All rows, unlike the filter, which sees the used ones.
  const std::int32_t nRows = Vector(oBill.Data("Page2"_key)).Size();
  double dRate = 0;
  for (std::int32_t nRow = 1; nRow <= nRows; ++nRow) {
    if (GetBillLong(oBill, "FInterID"_key, nRow) != 0) FillSourceRow(nRow, head, dRate);
  }
  FillDepartmentAndEmployee(oBill, oSel.Value("rsSrc"_key));
}

/// Locks by discount and by currency once the rows are on screen.
void SettlementBill::m_BillInterface_AfterSelBill() {
  TrapAndShow([this] {
    LockDiscountAccount(HeadNumber("FDiscount"_key) == kNoDiscount);
    LockRateByCurrency();
    switch (side_.selectionColumns) {
      case SelectionColumns::Shown: ShowSourceColumns(); break;
      case SelectionColumns::LeftAlone: break;
    }
  });
}

}  // namespace arap
