#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "data/database.h"

namespace desk {

/// What the bill list window was opened with: bills, the columns that find one, and for whom.
struct ShownBills {
  std::vector<std::string> aColumns;
  std::vector<std::vector<Value>> aRows;  // amounts in units of the currency
  std::string sIdColumn;                  // the column that holds a bill's id
  std::string sTypeColumn;                // and the one that holds its type
  std::int32_t nUserID = 0;
  std::string sUserName;

  /// Empty for a column that isn't there; without regard to case.
  Value value(std::size_t nRow, std::string_view sColumn) const;
};

}  // namespace desk
