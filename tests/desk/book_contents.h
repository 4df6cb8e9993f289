#pragma once

#include <string>

#include "data/database.h"

namespace desk::testing {

/// Every row of every table of a book as one text: two are equal when nothing was written in between. The engine's own
/// check of the file stands at its head.
inline std::string contents(Database& database) {
  std::string sText = database.query("PRAGMA integrity_check").text(0, "integrity_check") + "\n";
  const Rows tables = database.query("SELECT name FROM sqlite_master WHERE type = 'table' ORDER BY name");
  for (std::size_t t = 0; t < tables.size(); ++t) {
    const Rows rows = database.query("SELECT * FROM " + tables.text(t, "name") + " ORDER BY rowid");
    sText += tables.text(t, "name") + "\n";
    for (std::size_t i = 0; i < rows.size(); ++i) {
      for (const std::string& sColumn : *rows.columns()) sText += rows.text(i, sColumn) + "|";
      sText += "\n";
    }
  }
  return sText;
}

inline std::string contents(const std::string& sPath) { return contents(*Database::open(sPath)); }

}  // namespace desk::testing
