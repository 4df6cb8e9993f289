#include "frame/server_objects.h"
#include "frame/text_utils.h"
#include "settlement/settlement_bill.h"

/// Changes of the head's currency, of the account that decides it, and of its rate.
namespace arap {

void SettlementBill::ChangeCurrency(const Edit& edit) {
  const std::int32_t nCur = edit.NewId();
  if (nCur == 0) return;
  const Currency oCurrency = GetGLData().GetCurrency(nCur);
  const double dRate = oCurrency.Multiplier();
  WriteHeadRate(dRate);
  switch (side_.currencyChangeRate) {
    case CurrencyChangeRate::NameReadAndDropped: oCurrency.Name(); break;
    case CurrencyChangeRate::StoredAsEntry: Bill().SetFieldValue("FExchangeRate"_key, dRate, kHead); break;
  }
  LockExchangeRate(nCur == kBaseCurrency);
  const std::int16_t nScale = oCurrency.ScaleX();
  SetHeadAmountScales(nScale);
  // A change to the base currency leaves the rows with their rates.
  if (nCur == kBaseCurrency) return;

  bool bRowChanged = false;
  const std::int32_t nRows = GetEntryRowCount(Bill(), 1, true);
  for (std::int32_t nRow = 1; nRow <= nRows; ++nRow) {
    if (GetBillLong(Bill(), "FBillCurrencyID"_key, nRow) != nCur) continue;
    WriteRowRate(nRow, dRate, RowAmountForCurrencyChange(nRow, nScale));
    bRowChanged = true;
  }
  if (bRowChanged) RefreshSettleAmounts();
}

double SettlementBill::RowAmountForCurrencyChange(std::int32_t nRow, int nScale) {
  const double dFor = GetBillNumber(Bill(), "FBillSettleAmountFor"_key, nRow);
  switch (side_.currencyChangeRows) {
    case CurrencyChangeRows::RoundedToHeadScale: return RoundAmountOf(dFor, nScale);
    case CurrencyChangeRows::AsRead: return dFor;
  }
  return dFor;
}

void SettlementBill::ChangeAccount(const Edit& edit) {
  const std::int32_t nCur = EnterAccountCurrency(edit.NewNumber());
  if (nCur == 0) return;
  const Currency oCurrency = GetGLData().GetCurrency(nCur);
  SetHeadAmountScales(oCurrency.ScaleX());
  const double dRate = oCurrency.Multiplier();
  WriteHeadRate(dRate);
  Bill().SetFieldValue("FExchangeRate"_key, dRate, kHead);
  LockExchangeRate(nCur == kBaseCurrency);
}

std::int32_t SettlementBill::EnterAccountCurrency(double dAccount) {
  const BillEvent oBill = Bill();
  const Recordset rsAccount = oBill.Server().OpenQuery(
      "Select  a.FCurrencyID,isnull(b.FNumber,'') from t_account a left join t_currency b on "
      "a.FCurrencyID=b.FCurrencyID where FAccountID=" +
      TextOf(dAccount));
  if (rsAccount.Eof()) return 0;
  const auto enter = [&oBill](const Variant& vCode, std::int32_t nCur) -> std::int32_t {
    if (Concat(vCode) == Concat(oBill.GetFieldValue("FCurrencyId"_key, kHead, FieldValueKind::Code))) return 0;
    // Counts as the user's entry, so the change of the currency runs inside.
    oBill.SetFieldValue("FCurrencyId"_key, vCode, kHead);
    return nCur;
  };
  const std::int32_t nAccountCur = LongOf(rsAccount.Value(0));
  if (nAccountCur != kBaseCurrency && nAccountCur != 0) return enter(rsAccount.Value(1), nAccountCur);
  const Recordset rsBase = oBill.Server().OpenQuery("Select  b.FNumber from t_currency b where b.FCurrencyID=1");
  return enter(rsBase.Value("FNumber"_key), kBaseCurrency);
}

void SettlementBill::ChangeExchangeRate(const Edit& edit) {
  const double dRate = edit.NewNumber();
  const std::int32_t nCur = HeadLong("FCurrencyID"_key);
  bool bRowChanged = false;
  const std::int32_t nRows = GetEntryRowCount(Bill(), 1, true);
  for (std::int32_t nRow = 1; nRow <= nRows; ++nRow) {
    if (GetBillLong(Bill(), "FBillCurrencyID"_key, nRow) != nCur) continue;
    // Not rounded here, unlike the change of the currency.
    WriteRowRate(nRow, dRate, GetBillNumber(Bill(), "FBillSettleAmountFor"_key, nRow));
    bRowChanged = true;
  }
  if (bRowChanged) RefreshSettleAmounts();
}

void SettlementBill::WriteHeadRate(double dRate) {
  WriteText("FExchangeRate"_key, TextOf(dRate), 0);
  SetBillField(Bill(), "FExchangeRate"_key, kHead, dRate);
}

void SettlementBill::WriteRowRate(std::int32_t nRow, double dRate, double dAmountFor) {
  WriteText("FEntryExchangeRate"_key, TextOf(dRate), nRow);
  SetBillField(Bill(), "FEntryExchangeRate"_key, nRow, dRate);
  const double dAmount = dRate * dAmountFor;
  WriteText("FBillSettleAmount"_key, TextOf(dAmount), nRow);
  SetBillField(Bill(), "FBillSettleAmount"_key, nRow, dAmount);
}

void SettlementBill::RefreshSettleAmounts() {
  Bill().RefreshFieldRow(Bill().GetFieldInfoByKey("FBillSettleAmount"_key));
}

}  // namespace arap
