#include "support/test_grid.h"

#include <cstdio>

#include "support/containers.h"

namespace arap::testing {

namespace {

bool is_put(Access access) { return access == Access::Put || access == Access::PutRef; }

}  // namespace

int TestGrid::at(Member member) const { return static_cast<int>(plain_number(property(member))); }
int TestGrid::rows() const { return at(Member::MaxRows); }

Variant TestGrid::property(Member member) const {
  const auto found = properties_.find(member);
  return found == properties_.end() ? Variant() : found->second;
}

Variant TestGrid::column(Member member, int nCol) const {
  const auto found = columns_.find({nCol, member});
  return found == columns_.end() ? Variant() : found->second;
}

double TestGrid::row_height(int nRow) const {
  const auto found = heights_.find(nRow);
  return found == heights_.end() ? heights_.at(-1) : found->second;
}

bool TestGrid::flag(const Cells& cells, int nRow, int nCol) {
  const auto found = cells.find({nRow, nCol});
  return found != cells.end() && found->second;
}

std::string TestGrid::text(int nRow, int nCol) const {
  const auto found = cells_.find({nRow, nCol});
  if (found == cells_.end() || plain_text(found->second).empty()) return "";
  const Variant vDecimals = column(Member::TypeFloatDecimalPlaces, nCol);
  if (nRow < 1 || vDecimals.is_empty()) return plain_text(found->second);
  char aText[64];
  std::snprintf(aText, sizeof aText, "%.*f", static_cast<int>(plain_number(vDecimals)), plain_number(found->second));
  return aText;
}

void TestGrid::lock_block(bool bLock) {
  for (int nRow = at(Member::Row); nRow <= at(Member::Row2); ++nRow) {
    for (int nCol = at(Member::Col); nCol <= at(Member::Col2); ++nCol) locks_[{nRow, nCol}] = bLock;
  }
}

void TestGrid::write(Member member, const Variant& vValue) {
  const int nRow = at(Member::Row);
  const int nCol = at(Member::Col);
  switch (member) {
    case Member::Text:
    case Member::Value: cells_[{nRow, nCol}] = vValue; return;
    case Member::ColHidden: hidden_[{nRow, nCol}] = plain_number(vValue) != 0; return;
    case Member::Lock: lock_block(plain_number(vValue) != 0); return;
    case Member::CellType:
    case Member::TypeFloatDecimalPlaces:
    case Member::TypeFloatMin:
    case Member::TypeFloatMax: columns_[{nCol, member}] = vValue; return;
    default: properties_[member] = vValue; return;
  }
}

Variant TestGrid::read(Member member) const {
  const std::pair<int, int> cell{at(Member::Row), at(Member::Col)};
  if (member == Member::Text) return text(cell.first, cell.second);
  if (member != Member::Value) return property(member);
  const auto found = cells_.find(cell);
  return found == cells_.end() ? Variant("") : found->second;
}

Variant TestGrid::handle(Member member, Access access, Arguments args) {
  if (!is_put(access)) return read(member);
  if (member == Member::RowHeight) {
    heights_[static_cast<int>(plain_number(argument(args, 0)))] = plain_number(argument(args, 1));
  } else if (member == Member::ColWidth) {
    widths_[static_cast<int>(plain_number(argument(args, 0)))] = plain_number(argument(args, 1));
  } else {
    write(member, argument(args, 0));
  }
  return {};
}

}  // namespace arap::testing
