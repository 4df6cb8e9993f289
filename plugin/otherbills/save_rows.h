#pragma once

#include <string>

#include "otherbills/other_bill.h"

namespace arap {

/// The tests of a bill's rows within one save, and what the tests behind them need of the rows.
class OtherBill::SaveRows {
 public:
  explicit SaveRows(OtherBill& bill);

  /// From the top; false after the first refusal, which has shown its message. An empty tail row is dropped.
  bool Pass();

  /// Type ids in row order, separated by commas; "" when no row has a type.
  const std::string& Types() const { return types_; }
  /// Sums of the rows with a type: in the bill's currency and in base currency.
  double SumFor() const { return sum_for_; }
  double Sum() const { return sum_; }

 private:
  bool RowPasses(std::int32_t nRow);
  bool TypedRowPasses(std::int32_t nRow, std::int32_t nType, double dAmount);
  bool UntypedRowPasses(std::int32_t nRow, double dAmount);
  bool IsMissing(std::int32_t nType) const;
  double Number(Key sKey, std::int32_t nRow) const { return GetBillNumber(bill_.Bill(), sKey, nRow); }
  static bool Refuse(std::string_view sText, std::int32_t nRow);

  OtherBill& bill_;
  const OtherBillSide& side_;
  std::int32_t row_count_;
  std::string types_;
  double sum_for_ = 0;
  double sum_ = 0;
};

}  // namespace arap
