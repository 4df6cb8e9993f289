#pragma once

#include <iosfwd>
#include <string>

#include "data/database.h"

namespace desk {

/// Prints a list of the book: "receivables", "payables", "bills", "types", "invoices", "opening", "tasks" or "log"; as
/// a table, or as a JSON array of objects with amounts as text, so that none loses a digit.
void show_list(Database& database, const std::string& sWhat, bool bJson, std::ostream& out);

}  // namespace desk
