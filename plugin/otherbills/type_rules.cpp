#include "otherbills/other_bill.h"

/// What follows from status and bill type: locks, totals, decimals. Shared by the load, by changes and by the save.
namespace arap {

void OtherBill::ApplyBillTypeRules() {
  const BillEvent oBill = Bill();
  if (HeadNumber("FStatus"_key) != 0) {
    for (const Key sKey : {"FSettleId"_key, "FSettleIdNo"_key, "FLimitDate"_key}) {
      LockBillField(oBill, sKey, true, false);
    }
    return;
  }
  const bool bImmediate = IsImmediateBill();
  for (const Key sKey : {"FSettleId"_key, "FSettleIdNo"_key}) LockBillField(oBill, sKey, !bImmediate, !bImmediate);
  if (!bImmediate) {
    // The clearing leaves zeros: the fields are to be blank.
    oBill.SetFieldValue("FSettleId"_key, ""_key, kHead);
    oBill.SetFieldValue("FSettleIdNo"_key, ""_key, kHead);
  }
  LockBillField(oBill, "FLimitDate"_key, bImmediate, false);
}

void OtherBill::SumEntryAmounts() {
  const std::int32_t nRows = GetEntryRowCount(Bill(), 1, true);
  double dSum = 0;
  for (std::int32_t nRow = 1; nRow <= nRows; ++nRow) {
    if (GetBillNumber(Bill(), "FInOutTypeId"_key, nRow) <= 0) continue;
    dSum += GetBillNumber(Bill(), "FBillAmountFor"_key, nRow);
  }
  // An immediate bill is settled when it is made; the amounts in base currency are left to the template's formulas.
  const double dSettled = IsImmediateBill() ? dSum : 0.0;
  SetBillField(Bill(), "FAmountFor"_key, kHead, dSum, true);
  SetBillField(Bill(), "FCheckAmountFor"_key, kHead, dSettled, true);
}

void OtherBill::SetAmountScale(Key sKey, std::int16_t nDecimals, bool bBody) {
  const BillEvent oBill = Bill();
  if (!Dictionary(oBill.BillMapInfo().Value("Map"_key)).Lookup(sKey)) return;
  const FieldInfo oInfo = oBill.GetFieldInfoByKey(sKey);
  oBill.SetFieldDecimals(oInfo, kHead, nDecimals);
  if (bBody) oBill.SetColumnDecimals(oInfo, nDecimals);
}

void OtherBill::LockExchangeRate(bool bLock) {
  LockBillField(Bill(), "FExchangeRate"_key, bLock, false);
  RunFieldAction(Bill(), "FExchangeRate"_key, kHead, true);
}

bool OtherBill::IsParentType(double dType) const {
  m_rsInOutType.SetFilter(" FId=" + TextOf(dType));
  return !m_rsInOutType.Eof() && NumberOf(m_rsInOutType.Value("FIsLeaf"_key)) == 0;
}

}  // namespace arap
