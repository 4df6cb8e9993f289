#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace desk {

struct CsvLine {
  /// The line of the file where the record begins, from 1.
  std::size_t nLine;
  std::vector<std::string> aFields;
};

/// The records of a comma-separated text: quotes, commas and line ends inside quotes, a byte order mark. Empty lines
/// are left out. Raises DeskError for quotes that are out of place.
std::vector<CsvLine> read_csv(std::string_view sCsv, const std::string& sName);

}  // namespace desk
