#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "data/database.h"

namespace desk {

/// The bills that the bill list window was opened with.
struct ShownBills {
  std::vector<std::string> aColumns;
  std::vector<std::vector<Value>> aRows;  // amounts in units of the currency

  /// Empty for a column that isn't there; without regard to case.
  Value value(std::size_t nRow, std::string_view sColumn) const;
};

}  // namespace desk
