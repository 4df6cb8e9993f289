#pragma once

#include <cstdint>
#include <string>

#include "data/database.h"
#include "services/settlement_tables.h"

namespace desk {

/// What an aged report is asked for. An empty text or a number 0 asks for everything.
struct AgedQuery {
  std::string sFromDate, sToDate;  // of the bills, yyyy-mm-dd
  std::string sFromPartner, sToPartner;
  std::string sFromDepartment, sToDepartment;
  std::string sFromEmployee, sToEmployee;
  std::int32_t nCurrency = 0;
  bool bUnchecked = false;    // with bills that aren't checked yet
  bool bOthers = false;       // with the other bills
  bool bNotZeroOnly = false;  // without partners whose open items cancel each other out
  std::string sToday;         // yyyy-mm-dd, from which the overdue days count
};

/// The open items of one side by partner, in base currency: a row of FSumSort 0 a partner with FNumber, FName and the
/// balance in FRemainAmount, then a row of FSumSort 1 with the total. The balance falls apart by due date:
/// FAgedAmount0 isn't overdue, FAgedAmount1 to 4 are overdue up to 30, 60, 90 and more days.
Rows aged_report(Database& database, const SettlementTables& tables, const AgedQuery& query);

}  // namespace desk
