#pragma once

#include <cstdint>
#include <string_view>

#include "frame/names.h"
#include "services/settlement_tables.h"

namespace desk {

/// What one side's other bills have beside the tables of their side.
struct OtherTables {
  const SettlementTables& side;  // {other} and its rows in {other}Entry, {otherclasses} as the class
  std::int32_t nClass;
  std::int32_t nCreditType;    // stands open; the other type is the side's immediate one
  std::string_view sBillName;  // as the user knows the bill
  arap::Member numberQuery;    // asks for the bills of a number
};

inline constexpr OtherTables kOtherReceivableTables{
    .side = kReceiptTables,
    .nClass = 1000205,
    .nCreditType = 1006,
    .sBillName = "其他收入单",
    .numberQuery = arap::Member::GetARBillInfo,
};

inline constexpr OtherTables kOtherPayableTables{
    .side = kPaymentTables,
    .nClass = 1000206,
    .nCreditType = 1008,
    .sBillName = "费用支出单",
    .numberQuery = arap::Member::GetAPBillInfo,
};

}  // namespace desk
