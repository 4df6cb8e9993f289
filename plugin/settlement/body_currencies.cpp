#include "frame/bill_fields.h"
#include "frame/messages.h"
#include "frame/text_utils.h"
#include "settlement/settlement_bill.h"

namespace arap {

/// A row without a source keeps the currencies of the rows before it.
bool SettlementBill::CheckBodyCurrencies() const {
  const BillEvent oBill = Bill();
  // Required: the receipt bill's advance value on both sides.
  if (GetBillLong(oBill, side_.sType, kHead) == kReceiptAdvanceType) return true;
  const std::int32_t nHead = GetBillLong(oBill, "FCurrencyId"_key, kHead);
  const std::int32_t nRows = GetEntryRowCount(oBill, 1, false);
  std::int32_t nFirst = 0;
  std::int32_t nCurrency = 0;
  for (std::int32_t nRow = 1; nRow <= nRows; ++nRow) {
    if (GetBillLong(oBill, "FInterId"_key, nRow) > 0) {
      nCurrency = GetBillLong(oBill, "FBillCurrencyId"_key, nRow);
      if (nRow == 1) nFirst = nCurrency;
    }
    if (nCurrency != nFirst && nCurrency != 0 && nFirst != 0) {
      if (!PassesRowCurrencyMix()) return false;
    } else if (nHead != kBaseCurrency && nCurrency != nHead && nCurrency != kBaseCurrency && nCurrency != 0) {
      ShowMessage(LoadText(side_.sHeadAndBodyForeign), kNotice, kTitle);
      return false;
    }
  }
  return true;
}

/// A row in another currency than the first one.
bool SettlementBill::PassesRowCurrencyMix() const {
  switch (side_.rowCurrencyMix) {
    case RowCurrencyMix::PassedOver: return true;
    case RowCurrencyMix::Refused:
      ShowMessage(LoadText("只能对同一种币别付款,请重新设置!"), kNotice, kTitle);
      return false;
  }
  return true;
}

}  // namespace arap
