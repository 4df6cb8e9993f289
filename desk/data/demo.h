#pragma once

#include <string>

#include "data/database.h"

namespace desk {

/// The masters of an empty usable book: currencies, accounts, settlement methods, types, departments, employees, users,
/// periods and system values. `sToday` (yyyy-mm-dd) gives the current period.
void create_masters(Database& database, const std::string& sToday = "2026-11-01");

/// The masters, and partners with open receivables and payables of every source class in two currencies.
void create_demo(Database& database, const std::string& sToday = "2026-11-01");

}  // namespace desk
