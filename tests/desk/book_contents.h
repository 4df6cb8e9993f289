#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "data/database.h"

namespace desk::testing {

/// Every row of every table of a book as one text: two are equal when nothing was written in between. A file's own
/// check stands at its head.
inline std::string contents(Database& database) {
  const bool bFile = database.kind() == EngineKind::File;
  std::string sText;
  if (bFile) sText = database.query("PRAGMA integrity_check").text(0, "integrity_check") + "\n";
  const Rows tables =
      database.query(bFile ? "SELECT name FROM sqlite_master WHERE type = 'table' ORDER BY name"
                           : "SELECT relname AS name FROM pg_class WHERE relkind = 'r' AND relnamespace ="
                             " current_schema()::regnamespace ORDER BY relname");
  for (std::size_t t = 0; t < tables.size(); ++t) {
    const Rows rows = database.query("SELECT * FROM " + tables.text(t, "name"));
    sText += tables.text(t, "name") + "\n";
    std::vector<std::string> lines(rows.size());
    for (std::size_t i = 0; i < rows.size(); ++i)
      for (std::size_t c = 0; c < rows.column_count(); ++c) lines[i] += rows.text(i, (*rows.columns())[c]) + "|";
    std::sort(lines.begin(), lines.end());
    for (const std::string& sLine : lines) sText += sLine + "\n";
  }
  return sText;
}

inline std::string contents(const std::string& sAddress) { return contents(*Database::open(sAddress)); }

}  // namespace desk::testing
