#pragma once

#include <map>
#include <string>
#include <utility>

#include "support/trace.h"

namespace arap::testing {

/// A grid control: cells by row and column, row 0 the titles, row -1 the whole column. A number cell shows its decimals
/// and holds its value as a number; an empty cell shows "".
class TestGrid final : public HostObject {
 public:
  std::string type_name() const override { return "fpSpread"; }

  /// What the cell shows, and what the user types into it.
  std::string text(int nRow, int nCol) const;
  void type(int nRow, int nCol, Variant vValue) { cells_[{nRow, nCol}] = std::move(vValue); }
  bool locked(int nRow, int nCol) const { return flag(locks_, nRow, nCol); }
  bool hidden(int nCol) const { return flag(hidden_, -1, nCol); }
  /// A property of the control, or of the column; Empty when it was never set.
  Variant property(Member member) const;
  Variant column(Member member, int nCol) const;
  double row_height(int nRow) const;
  double col_width(int nCol) const { return widths_.at(nCol); }
  int rows() const;

 private:
  using Cells = std::map<std::pair<int, int>, bool>;
  Variant handle(Member member, Access access, Arguments args) override;
  void write(Member member, const Variant& vValue);
  Variant read(Member member) const;
  void lock_block(bool bLock);
  static bool flag(const Cells& cells, int nRow, int nCol);
  int at(Member member) const;

  std::map<Member, Variant> properties_;
  std::map<std::pair<int, int>, Variant> cells_;
  std::map<std::pair<int, Member>, Variant> columns_;
  std::map<int, double> heights_, widths_;
  Cells locks_, hidden_;
};

}  // namespace arap::testing
