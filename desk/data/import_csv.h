#pragma once

#include <array>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "data/database.h"

namespace desk {

/// A line that wasn't imported; nLine counts from 1, the header included.
struct ImportLine {
  std::size_t nLine;
  std::string sReason;
};

struct ImportResult {
  std::size_t nImported = 0;
  std::size_t nNewPartners = 0;
  Money total;
  std::vector<ImportLine> aSkipped;  // already in the book
  std::vector<ImportLine> aBad;
};

/// Keys "number", "customer", "date", "duedate", "amount" to the column's header in the file.
using ImportMapping = std::map<std::string, std::string>;
/// These keys, in this order.
std::array<std::string_view, 5> import_keys();

/// Imports open sales invoices in base currency, all in one transaction. Columns are found by their header (without
/// regard to case and blanks). Bad lines are reported and stop nothing else. Raises DeskError for a file that can't be
/// read and a header that lacks a needed column.
ImportResult import_invoices(Database& database, const std::string& sPath, const ImportMapping& mapping = {});
/// The same from a text in memory; sName is used in errors.
ImportResult import_invoices_text(Database& database, std::string_view sCsv, const std::string& sName,
                                  const ImportMapping& mapping = {});

}  // namespace desk
