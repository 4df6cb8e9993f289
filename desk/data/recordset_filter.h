#pragma once

#include <string_view>
#include <vector>

#include "data/database.h"

namespace desk {

/// An ADO filter such as "FId='5'" or "FNumber='01' And FNumber <> ''": comparisons joined by And or Or (And binds
/// first). A text in quotes matches a number column by its number; texts compare without regard to case.
class RecordFilter {
 public:
  /// Raises 3001 for a filter that can't be read and 3265 for a column that isn't there.
  RecordFilter(std::string_view sFilter, const Rows& rows);
  bool matches(const Rows& rows, std::size_t nRow) const;

 private:
  enum class Comparison { Equal, NotEqual, Less, LessOrEqual, Greater, GreaterOrEqual };
  struct Term {
    std::size_t nColumn;
    Comparison comparison;
    std::string sValue;
    bool bNewGroup;  // an Or stands before it
  };
  static bool holds(const Term& term, const Value& vCell);

  std::vector<Term> terms_;
};

}  // namespace desk
