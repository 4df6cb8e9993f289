#include <cmath>

#include "frame/messages.h"
#include "frame/server_objects.h"
#include "frame/text_utils.h"
#include "settlement/save_rows.h"

namespace arap {

namespace {

/// Fixed: it doesn't follow the currency.
constexpr int kRowDecimals = 2;

}  // namespace

SettlementBill::SaveRows::SaveRows(SettlementBill& bill, const SaveHead& head)
    : bill_(bill), side_(bill.side_), head_(head), first_currency_(Long("FBillCurrencyId"_key, 1)) {}

bool SettlementBill::SaveRows::Refuse(std::string_view sText, std::int32_t nRow) {
  ShowMessage(FormatText(sText, {std::to_string(nRow)}), kWarning, kTitle);
  return false;
}

bool SettlementBill::SaveRows::Passes(std::int32_t nRow) {
  if (Number("FInterId"_key, nRow) <= 0) return true;
  if (!SourceStands(nRow)) return Refuse("第%1行源单已被删除，不允许保存。", nRow);
  if (!SourceIsNew(nRow)) return false;
  const double dSettle = Number("FBillSettleAmountFor"_key, nRow);
  if (dSettle == 0) return Refuse("第%1行本次核销金额为零，不允许保存。", nRow);
  std::int32_t nRowCur = 0;
  switch (side_.saveReading) {
    case SaveReading::OpenAmountRounded:
      if (!SettledAgainstOpen(nRow, dSettle)) return false;
      nRowCur = Long("FBillCurrencyId"_key, nRow);
      break;
    case SaveReading::HeadAmountsRounded:
      nRowCur = Long("FBillCurrencyId"_key, nRow);
      if (!SettledAgainstOpen(nRow, dSettle)) return false;
      break;
  }
  last_currency_ = nRowCur;
  if (!CurrencyFits(nRow, nRowCur)) return false;
  AddToSum(nRow, nRowCur);
  return true;
}

bool SettlementBill::SaveRows::SourceStands(std::int32_t nRow) {
  return bill_.SourceBillExists(Long("FClassID_SRC"_key, nRow), Long("FInterId"_key, nRow));
}

bool SettlementBill::SaveRows::SourceIsNew(std::int32_t nRow) {
  const std::string sIdentity = TextOf(Number("FClassID_SRC"_key, nRow)) + "_" +
                                TextOf(Number("FEntryID_HXD_SRC"_key, nRow)) + "_" +
                                TextOf(Number("FInterId"_key, nRow));
  const auto nNext = static_cast<std::int32_t>(positions_.size()) + 1;
  const auto [found, bAdded] = positions_.try_emplace(sIdentity, nNext);
  if (bAdded || head_.nType == side_.nRefundType) return true;
  // The second number is the position among the added rows, not always a row number; required.
  ShowMessage(FormatText(side_.sSourceTwice, {std::to_string(nRow), std::to_string(found->second)}), kWarning, kTitle);
  return false;
}

bool SettlementBill::SaveRows::SettledAgainstOpen(std::int32_t nRow, double dSettle) {
  const double dOpen = ReadOpenAmount(nRow);
  if (IsPositive(dOpen) != IsPositive(dSettle)) {
    return Refuse("第%1行本次核销金额和未核销金额方向不一致。", nRow);
  }
  if (!SettledWithinOpen(nRow, dSettle, dOpen)) return Refuse("第%1行本次核销金额不能大于未核销金额。", nRow);
  return true;
}

double SettlementBill::SaveRows::ReadOpenAmount(std::int32_t nRow) const {
  const double dOpen = Number(side_.sOpenFor, nRow);
  switch (side_.saveReading) {
    case SaveReading::OpenAmountRounded: return RoundAmountOf(dOpen, kRowDecimals);
    case SaveReading::HeadAmountsRounded: return dOpen;
  }
  return dOpen;
}

bool SettlementBill::SaveRows::SettledWithinOpen(std::int32_t nRow, double dSettle, double dOpen) {
  if (dOpen != 0) return std::abs(dSettle) <= std::abs(dOpen);
  // Closed in its own currency: what is open in base currency counts, if anything is.
  const double dOpenBase = Number(side_.sOpen, nRow);
  return dOpenBase == 0 || std::abs(Number("FBillSettleAmount"_key, nRow)) <= std::abs(dOpenBase);
}

bool SettlementBill::SaveRows::CurrencyFits(std::int32_t nRow, std::int32_t nRowCur) {
  if (head_.nCur != kBaseCurrency && nRowCur != head_.nCur && nRowCur != kBaseCurrency) {
    return Refuse(side_.sRowCurrencyForeign, nRow);
  }
  if (first_currency_ != nRowCur && first_currency_ != 0 && nRowCur != 0) {
    return Refuse(side_.sRowCurrencyMixed, nRow);
  }
  return true;
}

void SettlementBill::SaveRows::AddToSum(std::int32_t nRow, std::int32_t nRowCur) {
  const Key sAmount = nRowCur == head_.nCur ? "FBillSettleAmountFor"_key : "FBillSettleAmount"_key;
  sum_ = RoundAmountOf(Number(sAmount, nRow), kRowDecimals) + sum_;
}

bool SettlementBill::SourceBillExists(std::int32_t nClassID, std::int32_t nBillID) {
  std::string sSql = "select 1 from ";
  if (Inside(nClassID, side_.nInvoiceClass, side_.nOtherInvoiceClass)) {
    sSql.append(side_.sInvoiceTable).append(" where finterid= ");
  } else if (nClassID == side_.nOtherBillClass) {
    sSql.append(side_.sOtherBillTable).append(" where fbillid= ");
  } else {
    return true;
  }
  sSql.append(std::to_string(nBillID));
  return !Recordset(ExecuteCommand(sSql)).Eof();
}

}  // namespace arap
