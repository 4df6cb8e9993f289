#pragma once

#include <string_view>

#include "support/settlement_host.h"
#include "support/test_session.h"

namespace arap::testing {

/// The names of one side as a test writes them, apart from the table of the rules under test. The receivable bill is
/// Side::Receive, the payable bill Side::Pay.
struct OtherNames {
  Side side;
  const char* sClass;          // ProgID of the bill class
  const char* sService;        // ProgID of the bill service
  const char* sNumberService;  // ProgID of the service that is asked for a number in use
  Member numberQuery;
  const char* sPartner;
  const char* sPartnerTable;
  const char* sBillTable;
  std::int32_t nBillClass;
  std::int32_t nImmediateType;
  std::int32_t nCreditType;
};
const OtherNames& other_names_of(Side side);

/// Income and expense types: a parent and two of its details.
inline constexpr std::int32_t kParentType = 10;
inline constexpr std::int32_t kDetailType = 11;
inline constexpr std::int32_t kOtherDetailType = 12;
/// Makes the three types what a class that is created from now on fetches.
void add_in_out_types(TestSession& session);

/// A new immediate bill in base currency with every field of the module's template and its actions, no rows, partner 7,
/// account 1001. Amounts are 0, the rate 1, the date 2024-01-15.
Ref<TestBill> make_other_bill(Side side);

/// A row: its type, its amount, and the amount in base currency that follows from the bill's rate. Answers its number.
struct OtherRow {
  std::int32_t nType = kDetailType;
  double dAmountFor = 100;
  std::string_view sNote = "";
};
int add_other_row(TestBill& oBill, const OtherRow& row = {});

}  // namespace arap::testing
