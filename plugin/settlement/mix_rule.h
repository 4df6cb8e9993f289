#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "frame/host_contract.h"
#include "settlement/settlement_sides.h"

/// The rule that bills of one sign and one class stand in one settlement bill. The bill classes carry it, and selection
/// lets such rows stand together all the same: nothing calls it, and that is required.
namespace arap {

struct SourceBill {
  std::int32_t nClass;
  double dAmountFor;
};

struct MixResult {
  std::string sMessage;  // "" when the rows may stand together
  std::int32_t nResult;  // the last answer of ClassifySourceBills
};

/// Tests the rows of the first body in their order, up to the first that breaks the rule.
MixResult CheckSourceBills(const BillEvent& oBill, const SettlementSide& side);

/// 1: bills of nOwnClass alone, 2: both kinds, 3: other kinds alone, 0: none.
std::int32_t ClassifySourceBills(std::span<const SourceBill> aBills, std::int32_t nOwnClass);

/// True when a bill has the other sign than dAmount. An amount of 0 conflicts with nothing.
bool HasOppositeAmount(double dAmount, std::span<const SourceBill> aBills);

}  // namespace arap
