#include "settlement/mix_rule.h"

#include <algorithm>
#include <vector>

#include "frame/bill_fields.h"
#include "frame/text_utils.h"

namespace arap {

std::int32_t ClassifySourceBills(std::span<const SourceBill> aBills, std::int32_t nOwnClass) {
  const auto is_own = [nOwnClass](const SourceBill& bill) { return bill.nClass == nOwnClass; };
  const bool bOwn = std::ranges::any_of(aBills, is_own);
  const bool bOther = !std::ranges::all_of(aBills, is_own);
  if (bOwn) return bOther ? 2 : 1;
  return bOther ? 3 : 0;
}

bool HasOppositeAmount(double dAmount, std::span<const SourceBill> aBills) {
  return std::ranges::any_of(aBills, [dAmount](const SourceBill& bill) {
    return (bill.dAmountFor < 0 && dAmount > 0) || (bill.dAmountFor > 0 && dAmount < 0);
  });
}

MixResult CheckSourceBills(const BillEvent& oBill, const SettlementSide& side) {
  MixResult result{"", 0};
  std::vector<SourceBill> aBills;
  const std::int32_t nRows = GetEntryRowCount(oBill, 1, false);
  for (std::int32_t nRow = 1; nRow <= nRows; ++nRow) {
    const std::int32_t nClass = GetBillLong(oBill, "FClassID_SRC"_key, nRow);
    if (nClass <= 0) continue;
    const double dAmountFor = GetBillNumber(oBill, "FBillAmountFor"_key, nRow);
    aBills.push_back({nClass, dAmountFor});
    result.nResult = ClassifySourceBills(aBills, side.nBillClass);
    if (result.nResult == 1 && HasOppositeAmount(dAmountFor, aBills)) {
      result.sMessage = LoadText(side.sOppositeSigns);
      return result;
    }
    if (result.nResult == 2) {
      result.sMessage = LoadText(side.sOtherKinds);
      return result;
    }
  }
  return result;
}

}  // namespace arap
