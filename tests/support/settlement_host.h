#pragma once

#include <string_view>

#include "support/test_bill.h"

namespace arap::testing {

enum class Side { Receive, Pay };

/// The names of one side as a test writes them, apart from the tables of the rules under test.
struct SideNames {
  Side side;
  const char* sClass;    // ProgID of the bill class
  const char* sService;  // ProgID of the bill service
  const char* sPartner;
  const char* sPartnerTable;
  const char* sRowPartner;
  const char* sType;
  const char* sReceivedFor;
  const char* sReceived;
  const char* sSourceNo;
  const char* sRowReceivedFor;
  const char* sRowReceived;
  const char* sOpenFor;
  const char* sOpen;
  const char* sDiscountAction;
  const char* sBillTable;
  const char* sSelectTool;
  std::int32_t nBillClass;
  std::int32_t nOrdinaryType;
  std::int32_t nAdvanceType;
  std::int32_t nRefundType;
  std::int32_t nOpenKind;
  std::int32_t nRefundKind;
};
const SideNames& names_of(Side side);

/// A new receipt or payment bill of the ordinary type in base currency with every field of the module's template and
/// its actions, no rows, partner 7. Amounts are 0, FDiscount is 100, the rate 1, the date 2024-01-15.
Ref<TestBill> make_settlement_bill(Side side);

/// A source row: its number, amounts and write-off, all open, base currency, rate 1. Answers its row number.
struct SourceRow {
  std::string_view sNumber = "XS001";
  std::int32_t nInterID = 1;
  std::int32_t nEntryID = 1;
  double dOpenFor = 100;
  double dSettleFor = 100;
  std::int32_t nCurrencyID = 1;
  double dRate = 1;
  std::int32_t nClassID = 0;  // 0: the side's first invoice class
};
int add_source_row(TestBill& oBill, Side side, const SourceRow& row = {});

/// The head amounts: settled and received (both in head currency); the rest follows from rate and identities.
void set_amounts(TestBill& oBill, Side side, double dSettledFor, double dReceivedFor);

}  // namespace arap::testing
