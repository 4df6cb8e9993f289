#include <cmath>
#include <string>

#include "frame/bill_fields.h"
#include "frame/failure.h"
#include "frame/server_objects.h"
#include "settlement/settlement_bill.h"

namespace arap {
namespace {

/// How the currencies of head and row stand to each other.
enum class CurrencyPair { Same, BaseHeadForeignRow, ForeignHeadBaseRow, TwoForeign };

CurrencyPair PairOf(std::int32_t nHeadCurrency, std::int32_t nRowCurrency) {
  if (nRowCurrency == nHeadCurrency) return CurrencyPair::Same;
  if (nHeadCurrency == kBaseCurrency) return CurrencyPair::BaseHeadForeignRow;
  if (nRowCurrency == kBaseCurrency) return CurrencyPair::ForeignHeadBaseRow;
  return CurrencyPair::TwoForeign;
}

/// One row on its way through the apportioning.
struct Row {
  std::int32_t nRow;
  std::int32_t nCurrency;
  double dRate;  // row rate to base currency
  double dOpen;  // open amount in row currency
  int nDecimalsFor;
  int nDecimalsBase;
};

enum class WriteOrder { BaseFirst, BaseLast };

/// The head amount on its way down the rows.
class Apportioning {
 public:
  Apportioning(const BillEvent& oBill, const SettlementSide& side)
      : oBill_(oBill),
        side_(side),
        dHeadRate_(GetBillNumber(oBill, "FExchangeRate"_key, kHead)),
        nHeadCurrency_(GetBillLong(oBill, "FCurrencyId"_key, kHead)) {}

  /// Answers what remains of `dRest` after the row.
  double TakeRow(std::int32_t nRow, double dRest) const;

 private:
  Row ReadRow(std::int32_t nRow) const;
  double ReadRowRate(std::int32_t nRow) const;
  void Settle(const Row& row, double dFor, double dBase, WriteOrder order) const;
  double TakeSameCurrency(const Row& row, double dRest) const;
  double TakeForeignRow(const Row& row, double dRest) const;
  double TakeBaseRow(const Row& row, double dRest) const;

  BillEvent oBill_;
  const SettlementSide& side_;
  double dHeadRate_;
  std::int32_t nHeadCurrency_;
};

/// The flag is raised for each row and stays raised.
double Apportioning::ReadRowRate(std::int32_t nRow) const {
  switch (side_.batchFlagPlace) {
    case BatchFlagPlace::BeforeRowRate:
      oBill_.SetBatchFlag(true);
      return GetBillNumber(oBill_, "FEntryExchangeRate"_key, nRow);
    case BatchFlagPlace::AfterRowRate: {
      const double dRate = GetBillNumber(oBill_, "FEntryExchangeRate"_key, nRow);
      oBill_.SetBatchFlag(true);
      return dRate;
    }
  }
  return 0;
}

Row Apportioning::ReadRow(std::int32_t nRow) const {
  const std::int32_t nCurrency = GetBillLong(oBill_, "FBillCurrencyID"_key, nRow);
  const double dRate = ReadRowRate(nRow);
  const int nDecimalsFor = GetGLData().GetCurrency(nCurrency).ScaleX();
  const int nDecimalsBase = GetGLData().GetCurrency(kBaseCurrency).ScaleX();
  const double dOpen = GetBillNumber(oBill_, side_.sOpenFor, nRow);
  return {nRow, nCurrency, dRate, dOpen, nDecimalsFor, nDecimalsBase};
}

/// Each amount is written rounded; the order of the two writes shows only in the texts that reach the cells.
void Apportioning::Settle(const Row& row, double dFor, double dBase, WriteOrder order) const {
  const double dForRounded = RoundAmountOf(dFor, row.nDecimalsFor);
  const double dBaseRounded = RoundAmountOf(dBase, row.nDecimalsBase);
  if (order == WriteOrder::BaseFirst) SetBillField(oBill_, "FBillSettleAmount"_key, row.nRow, dBaseRounded, true);
  SetBillField(oBill_, "FBillSettleAmountFor"_key, row.nRow, dForRounded, true);
  if (order == WriteOrder::BaseLast) SetBillField(oBill_, "FBillSettleAmount"_key, row.nRow, dBaseRounded, true);
}

/// Head and row in one currency. The row's own rate gives the base amount, not the head's.
double Apportioning::TakeSameCurrency(const Row& row, double dRest) const {
  if (std::abs(dRest) > std::abs(row.dOpen)) {
    Settle(row, row.dOpen, row.dOpen * row.dRate, WriteOrder::BaseLast);
    return dRest - row.dOpen;
  }
  Settle(row, dRest, dRest * row.dRate, WriteOrder::BaseFirst);
  return 0;
}

/// Head in base currency, row in a foreign one.
double Apportioning::TakeForeignRow(const Row& row, double dRest) const {
  const double dRestInRow = Divide(dRest, row.dRate);
  if (std::abs(dRestInRow) > std::abs(row.dOpen)) {
    Settle(row, row.dOpen, row.dOpen * row.dRate, WriteOrder::BaseLast);
    return dRest - row.dOpen * row.dRate;
  }
  Settle(row, dRestInRow, dRest, WriteOrder::BaseFirst);
  return 0;
}

/// Head in a foreign currency, row in base currency.
double Apportioning::TakeBaseRow(const Row& row, double dRest) const {
  const double dRestInBase = dRest * dHeadRate_;
  if (std::abs(dRestInBase) > std::abs(row.dOpen)) {
    Settle(row, row.dOpen, row.dOpen, WriteOrder::BaseFirst);
    return dRest - Divide(row.dOpen, dHeadRate_);
  }
  Settle(row, dRestInBase, dRestInBase, WriteOrder::BaseFirst);
  return 0;
}

double Apportioning::TakeRow(std::int32_t nRow, double dRest) const {
  const Row row = ReadRow(nRow);
  switch (PairOf(nHeadCurrency_, row.nCurrency)) {
    case CurrencyPair::Same: return TakeSameCurrency(row, dRest);
    case CurrencyPair::BaseHeadForeignRow: return TakeForeignRow(row, dRest);
    case CurrencyPair::ForeignHeadBaseRow: return TakeBaseRow(row, dRest);
    case CurrencyPair::TwoForeign: return dRest;
  }
  return dRest;
}

}  // namespace

/// The head amount is used up or not; what follows differs by side.
void SettlementBill::EndApportion(double dRest) {
  if (dRest != 0) {
    ShowMessage(LoadText(side_.sRemainderBefore) + TextOf(dRest) + LoadText(side_.sRemainderAfter), kNotice, kTitle);
    return;
  }
  switch (side_.apportionedDiscount) {
    case ApportionedDiscount::LeftAlone: break;
    case ApportionedDiscount::LockedByPercentage:
      LockDiscountAccount(HeadNumber("FDiscount"_key) == kNoDiscount);
      break;
  }
}

void SettlementBill::AutoApportion() {
  TrapAndShow([this] {
    const BillEvent oBill = Bill();
    if (GetBillLong(oBill, side_.sType, kHead) == side_.nAdvanceType) return;
    if (!CheckBodyCurrencies()) return;
    const Apportioning apportioning(oBill, side_);
    const std::int32_t nRows = GetEntryRowCount(oBill, 1, false);
    double dRest = GetBillNumber(oBill, "FAmountFor"_key, kHead);
    if (dRest == 0) {
      ShowMessage(LoadText(side_.sEnterAmount), kNotice, kTitle);
      return;
    }
    // The rows are served in full in their order. Once nothing remains, every further row is written 0.
    for (std::int32_t nRow = 1; nRow <= nRows; ++nRow) {
      if (GetBillLong(oBill, "FInterId"_key, nRow) < 1) continue;
      dRest = apportioning.TakeRow(nRow, dRest);
    }
    EndApportion(dRest);
  });
}

}  // namespace arap
