#include "otherbills/save_rows.h"

#include "frame/messages.h"
#include "frame/text_utils.h"

namespace arap {

OtherBill::SaveRows::SaveRows(OtherBill& bill)
    : bill_(bill), side_(bill.side_), row_count_(GetEntryRowCount(bill.Bill(), 1, true)) {}

bool OtherBill::SaveRows::Refuse(std::string_view sText, std::int32_t nRow) {
  ShowMessage(FormatText(sText, {std::to_string(nRow)}), kWarning, kTitle);
  return false;
}

bool OtherBill::SaveRows::Pass() {
  for (std::int32_t nRow = 1; nRow <= row_count_; ++nRow) {
    if (!RowPasses(nRow)) return false;
  }
  return true;
}

bool OtherBill::SaveRows::RowPasses(std::int32_t nRow) {
  const std::int32_t nType = GetBillLong(bill_.Bill(), "FInOutTypeId"_key, nRow);
  const double dAmount = Number("FBillAmountFor"_key, nRow);
  if (nType > 0) return TypedRowPasses(nRow, nType, dAmount);
  return !IsMissing(nType) || UntypedRowPasses(nRow, dAmount);
}

bool OtherBill::SaveRows::IsMissing(std::int32_t nType) const {
  switch (side_.negativeType) {
    case NegativeType::PassedOver: return nType == 0;
    case NegativeType::CountsAsMissing: return true;
  }
  return true;
}

bool OtherBill::SaveRows::TypedRowPasses(std::int32_t nRow, std::int32_t nType, double dAmount) {
  if (!types_.empty()) types_ += ",";
  types_ += std::to_string(nType);
  if (dAmount == 0) return Refuse(side_.sRowAmountMissing, nRow);
  sum_for_ += dAmount;
  sum_ += Number("FBillAmount"_key, nRow);
  if (bill_.IsParentType(nType)) return Refuse(side_.sRowTypeNotDetail, nRow);
  return true;
}

// Allowed only as the empty row at the end.
bool OtherBill::SaveRows::UntypedRowPasses(std::int32_t nRow, double dAmount) {
  const bool bEmptyTail =
      dAmount == 0 && nRow >= row_count_ && Concat(GetBillField(bill_.Bill(), "FBillNote"_key, nRow)).empty();
  if (!bEmptyTail) return Refuse(side_.sRowTypeMissing, nRow);
  // An empty first row stays: a bill without entries is refused by itself.
  if (nRow > 1) bill_.Bill().Form().Data("Page2"_key).Remove(nRow);
  return true;
}

}  // namespace arap
