#include "frame/bill_fields.h"
#include "frame/failure.h"
#include "frame/server_objects.h"
#include "settlement/settlement_bill.h"

namespace arap {
namespace {

/// What the rows come to.
struct BodySum {
  double dSum = 0;      // in the rows' own terms
  double dSumBase = 0;  // in base currency; used with a foreign head only
  std::int32_t nCurrency = 0;
  bool bRowFound = false;
};

/// The head's currency and rate, the rows to add up, and the decimals while the sum is written.
struct SumHead {
  double dRate;
  std::int32_t nCurrency;
  std::int32_t nRows;
  int nDecimalsFor;
  int nDecimalsBase;
};

/// Writes the sum of the rows into the head.
class Summing {
 public:
  Summing(const BillEvent& oBill, const SettlementSide& side) : oBill_(oBill), side_(side) {}

  SumHead ReadHead() const;
  BodySum SumOfBody(const SumHead& head) const;
  void WriteHead(const SumHead& head, const BodySum& sum) const;

 private:
  void AddRow(std::int32_t nRow, const SumHead& head, BodySum& sum) const;
  double Discount() const;
  void WriteAmount(Key sKey, double dAmount) const;
  void WriteSum(const SumHead& head, double dSum, double dSumBase) const;
  void WriteSumOfBaseRows(const SumHead& head, double dSum) const;
  void WriteDiscountAmounts(const SumHead& head) const;

  BillEvent oBill_;
  const SettlementSide& side_;
};

void Summing::AddRow(std::int32_t nRow, const SumHead& head, BodySum& sum) const {
  sum.bRowFound = true;
  if (head.nCurrency == kBaseCurrency) {
    sum.dSum += GetBillNumber(oBill_, "FBillSettleAmount"_key, nRow);
  } else {
    const double dFor = GetBillNumber(oBill_, "FBillSettleAmountFor"_key, nRow);
    switch (side_.foreignSum) {
      case ForeignSum::RoundedRows:
        // Required: the decimals of the base currency for the foreign amount too.
        sum.dSum += RoundAmountOf(dFor, head.nDecimalsBase);
        break;
      case ForeignSum::PlainRows: sum.dSum += dFor; break;
    }
    sum.dSumBase += RoundAmountOf(GetBillNumber(oBill_, "FBillSettleAmount"_key, nRow), head.nDecimalsBase);
  }
  if (side_.sumCurrency == SumCurrency::LastSourceRow) {
    sum.nCurrency = GetBillLong(oBill_, "FBillCurrencyId"_key, nRow);
  }
}

BodySum Summing::SumOfBody(const SumHead& head) const {
  BodySum sum;
  for (std::int32_t nRow = 1; nRow <= head.nRows; ++nRow) {
    if (GetBillLong(oBill_, "FInterId"_key, nRow) > 0) AddRow(nRow, head, sum);
    // Required: the first row's currency, read with every row, with a source or without.
    if (side_.sumCurrency == SumCurrency::FirstRow) sum.nCurrency = GetBillLong(oBill_, "FBillCurrencyId"_key, 1);
  }
  return sum;
}

SumHead Summing::ReadHead() const {
  const double dRate = GetBillNumber(oBill_, "FExchangeRate"_key, kHead);
  const std::int32_t nCurrency = GetBillLong(oBill_, "FCurrencyId"_key, kHead);
  const std::int32_t nRows = GetEntryRowCount(oBill_, 1, false);
  const int nDecimalsFor = GetGLData().GetCurrency(nCurrency).ScaleX();
  const int nDecimalsBase = GetGLData().GetCurrency(kBaseCurrency).ScaleX();
  return {dRate, nCurrency, nRows, nDecimalsFor, nDecimalsBase};
}

double Summing::Discount() const { return GetBillNumber(oBill_, "FDiscount"_key, kHead); }

void Summing::WriteAmount(Key sKey, double dAmount) const { SetBillField(oBill_, sKey, kHead, dAmount, true); }

/// Sum in the head's own currency, or a head in base currency: the sums stand as they are.
void Summing::WriteSum(const SumHead& head, double dSum, double dSumBase) const {
  WriteAmount("FAmountFor"_key, RoundAmountOf(dSum, head.nDecimalsFor));
  WriteAmount("FAmount"_key, RoundAmountOf(dSumBase, head.nDecimalsBase));
  WriteAmount(side_.sReceivedFor, RoundAmountOf(Discount() * dSum / 100, head.nDecimalsFor));
  WriteAmount(side_.sReceived, RoundAmountOf(Discount() * dSumBase / 100, head.nDecimalsBase));
}

/// A foreign head over rows in base currency.
void Summing::WriteSumOfBaseRows(const SumHead& head, double dSum) const {
  const double dSumFor = Divide(dSum, head.dRate);
  WriteAmount("FAmountFor"_key, RoundAmountOf(dSumFor, head.nDecimalsFor));
  WriteAmount("FAmount"_key, RoundAmountOf(dSum, head.nDecimalsBase));
  WriteAmount(side_.sReceivedFor, RoundAmountOf(dSumFor * Discount() / 100, head.nDecimalsFor));
  switch (side_.crossReceived) {
    case CrossReceived::ProductUnrounded:
      // Required: the product itself isn't rounded.
      WriteAmount(side_.sReceived, Discount() * RoundAmountOf(dSum, head.nDecimalsBase) / 100);
      break;
    case CrossReceived::ProductRounded:
      WriteAmount(side_.sReceived, RoundAmountOf(Discount() * dSum / 100, head.nDecimalsBase));
      break;
  }
}

/// Settled less received, from the head as it now stands.
void Summing::WriteDiscountAmounts(const SumHead& head) const {
  int nDecimalsFor = 2;
  int nDecimalsBase = 2;
  switch (side_.discountDecimals) {
    case DiscountDecimals::ByCurrency:
      nDecimalsFor = head.nDecimalsFor;
      nDecimalsBase = head.nDecimalsBase;
      break;
    case DiscountDecimals::FixedTwo: break;
  }
  const double dFor = GetBillNumber(oBill_, "FAmountFor"_key, kHead) - GetBillNumber(oBill_, side_.sReceivedFor, kHead);
  WriteAmount("FDiscountAmountFor"_key, RoundAmountOf(dFor, nDecimalsFor));
  const double dBase = GetBillNumber(oBill_, "FAmount"_key, kHead) - GetBillNumber(oBill_, side_.sReceived, kHead);
  WriteAmount("FDiscountAmount"_key, RoundAmountOf(dBase, nDecimalsBase));
}

void Summing::WriteHead(const SumHead& head, const BodySum& sum) const {
  if (head.nCurrency == kBaseCurrency) {
    WriteSum(head, sum.dSum, sum.dSum);
  } else if (head.nCurrency == sum.nCurrency) {
    WriteSum(head, sum.dSum, sum.dSumBase);
  } else {
    WriteSumOfBaseRows(head, sum.dSum);
  }
  WriteDiscountAmounts(head);
}

}  // namespace

void SettlementBill::AutoSum() {
  TrapAndShow([this] {
    const BillEvent oBill = Bill();
    // Required: the receipt bill's advance value on both sides, so that an advance payment is summed.
    if (GetBillLong(oBill, side_.sType, kHead) == kReceiptAdvanceType) return;
    if (!CheckBodyCurrencies()) return;
    const Summing summing(oBill, side_);
    const SumHead head = summing.ReadHead();
    const BodySum sum = summing.SumOfBody(head);
    if (!sum.bRowFound) {
      ShowMessage(LoadText(side_.sNoSourceRow), kNotice, kTitle);
      return;
    }
    if (sum.dSum == 0) {
      ShowMessage(LoadText(side_.sSumZero), kNotice, kTitle);
      return;
    }
    summing.WriteHead(head, sum);
  });
}

}  // namespace arap
