#pragma once

#include <string>
#include <unordered_map>

#include "settlement/settlement_bill.h"

namespace arap {

/// The tests of a bill's source rows within one save, and the sum that is compared with the head.
class SettlementBill::SaveRows {
 public:
  SaveRows(SettlementBill& bill, const SaveHead& head);

  /// False after a refusal, which has shown its message. A row without a source passes and adds nothing.
  bool Passes(std::int32_t nRow);

  /// Row by row in the head's currency where the row has it, else in base currency.
  double Sum() const { return sum_; }
  /// 0 when there was no source row.
  std::int32_t LastCurrency() const { return last_currency_; }

 private:
  bool SourceStands(std::int32_t nRow);
  bool SourceIsNew(std::int32_t nRow);
  bool SettledAgainstOpen(std::int32_t nRow, double dSettle);
  bool SettledWithinOpen(std::int32_t nRow, double dSettle, double dOpen);
  bool CurrencyFits(std::int32_t nRow, std::int32_t nRowCur);
  void AddToSum(std::int32_t nRow, std::int32_t nRowCur);

  double Number(Key sKey, std::int32_t nRow) const { return GetBillNumber(bill_.Bill(), sKey, nRow); }
  std::int32_t Long(Key sKey, std::int32_t nRow) const { return GetBillLong(bill_.Bill(), sKey, nRow); }
  double ReadOpenAmount(std::int32_t nRow) const;
  static bool Refuse(std::string_view sText, std::int32_t nRow);

  SettlementBill& bill_;
  const SettlementSide& side_;
  const SaveHead& head_;
  std::int32_t first_currency_;
  std::int32_t last_currency_ = 0;
  double sum_ = 0;
  /// Identity of a source to its position among those added so far: what a search of a fresh Vector would find.
  std::unordered_map<std::string, std::int32_t> positions_;
};

}  // namespace arap
