#pragma once

#include "frame/contract_containers.h"
#include "frame/open_choices.h"

namespace arap {

/// A FarPoint Spread, the grid control of a form. Rows and columns are 1-based; row and column 0 are the titles, row -1
/// is every row.
class Spread : public View {
 public:
  using View::View;
  std::int32_t MaxRows() const { return LongOf(get(Member::MaxRows)); }
  void SetMaxRows(std::int32_t nRows) const { put(Member::MaxRows, nRows); }
  void SetMaxCols(std::int32_t nCols) const { put(Member::MaxCols, nCols); }
  /// Sets a property of the control as a whole.
  void Set(Member member, const Variant& vValue) const { put(member, vValue); }
  /// In points.
  void SetRowHeight(std::int32_t nRow, double dHeight) const { put(Member::RowHeight, nRow, dHeight); }
  /// In characters.
  void SetColWidth(std::int32_t nCol, double dWidth) const { put(Member::ColWidth, nCol, dWidth); }

  /// What the cell shows.
  Variant CellText(std::int32_t nRow, std::int32_t nCol) const {
    Select(nRow, nCol);
    return get(Member::Text);
  }
  void SetCellText(std::int32_t nRow, std::int32_t nCol, const Variant& vText) const {
    Select(nRow, nCol);
    put(Member::Text, vText);
  }
  /// What the cell holds, without the format of its type; "" for an empty cell.
  Variant CellValue(std::int32_t nRow, std::int32_t nCol) const {
    Select(nRow, nCol);
    return get(Member::Value);
  }
  void SetCellValue(std::int32_t nRow, std::int32_t nCol, const Variant& vValue) const {
    Select(nRow, nCol);
    put(Member::Value, vValue);
  }
  /// Every cell of the column takes numbers with nDecimals decimals between the bounds.
  void SetNumberColumn(std::int32_t nCol, std::int32_t nDecimals, double dMin, double dMax) const {
    Select(kEveryRow, nCol);
    put(Member::CellType, open_choices::kNumberCell);
    put(open_choices::kNumberCellDecimals, nDecimals);
    put(open_choices::kNumberCellMin, dMin);
    put(open_choices::kNumberCellMax, dMax);
  }
  void HideColumn(std::int32_t nCol) const {
    Select(kEveryRow, nCol);
    put(Member::ColHidden, true);
  }

 private:
  static constexpr std::int32_t kEveryRow = -1;
  void Select(std::int32_t nRow, std::int32_t nCol) const {
    put(Member::Row, nRow);
    put(Member::Col, nCol);
  }
};

}  // namespace arap
