#pragma once

#include <cstdint>

namespace arap {

/// The two sides of the module: receipts and receivables, payments and payables.
enum class Column : std::uint8_t { Receive, Pay };

/// One row of a table of sides, filled in at compile time. Equal columns are no difference and don't belong in a table.
class TwinRow {
 public:
  explicit consteval TwinRow(Column column) : column_(column) {}
  template <class T>
  consteval T operator()(T receive, T pay) const {
    if (receive == pay) throw "both columns are equal";
    return column_ == Column::Receive ? receive : pay;
  }

 private:
  Column column_;
};

}  // namespace arap
