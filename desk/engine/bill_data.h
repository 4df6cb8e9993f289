#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "engine/bill_template.h"
#include "engine/pooled.h"
#include "frame/automation.h"

/// The data of an open bill: rows of compact cells, shown to the plug-in as Dictionaries.
namespace desk {

/// What few cells have beside their value.
struct CellExtras {
  arap::Variant vDisplay;
  arap::Variant vCode;
  arap::Variant vOld;
  bool bHasOld = false;
  std::vector<std::pair<std::string, arap::Variant>> aOthers;
};

/// A value with its marks.
struct Cell {
  std::unique_ptr<CellExtras> pExtras;
  std::int32_t nModify = 0;    // not 0: changed since the last load or store
  std::int8_t nDecimals = -1;  // -1: those of the column
  bool bLocked = false;

  /// Written by DataRow::put.
  const arap::Variant& value() const { return value_; }
  CellExtras& extras() {
    if (!pExtras) pExtras = std::make_unique<CellExtras>();
    return *pExtras;
  }

 private:
  friend class DataRow;
  arap::Variant value_;
};

/// A row of a page, or the head: a Dictionary from field key to field record.
class DataRow final : public arap::Object {
 public:
  DataRow(std::shared_ptr<const BillTemplate> bill, std::int32_t nPage);
  std::string type_name() const override { return "Dictionary"; }
  arap::Variant invoke(arap::Member member, arap::Access access, arap::Arguments args) override;

  Cell& cell(std::size_t nPosition) { return cells_[nPosition]; }
  const Cell& cell(std::size_t nPosition) const { return cells_[nPosition]; }
  std::size_t size() const { return cells_.size(); }
  /// Every change of a value comes through here: from now on the row isn't the one that the book holds.
  void put(std::size_t nPosition, arap::Variant vValue) {
    cells_[nPosition].value_ = std::move(vValue);
    index_in_book_ = 0;
  }
  /// The FIndex under which the book holds a body row with these very values; 0 when it doesn't.
  std::int32_t index_in_book() const { return index_in_book_; }
  void stand_in_book(std::int32_t nIndex) { index_in_book_ = nIndex; }
  /// Takes away what the cells have beside their values, as if the row had just been loaded.
  void forget_marks();
  const TemplateField& field(std::size_t nPosition) const { return template_->field(page().aFields[nPosition]); }

 private:
  const TemplatePage& page() const { return template_->page(page_); }
  /// The cell's position in this page, or kNone.
  std::size_t position(const arap::Variant& vKey) const;
  arap::Variant record(std::size_t nPosition);

  std::shared_ptr<const BillTemplate> template_;
  std::int32_t page_;
  std::int32_t index_in_book_ = 0;
  std::vector<Cell> cells_;
};

/// What the book held when the body was last read or written: of which bill, after how many stores of it, up to which
/// FIndex.
struct BodyInBook {
  std::int32_t nBillID = 0;
  std::int32_t nVersion = 0;
  std::int32_t nLastIndex = 0;
  friend bool operator==(const BodyInBook&, const BodyInBook&) = default;
};

/// A field record: the Dictionary face of one cell. It is made for each look and holds nothing itself.
class FieldRecord final : public arap::Object, public Pooled<FieldRecord> {
 public:
  FieldRecord(arap::Ref<DataRow> row, std::size_t nPosition) : row_(std::move(row)), position_(nPosition) {}
  std::string type_name() const override { return "Dictionary"; }
  arap::Variant invoke(arap::Member member, arap::Access access, arap::Arguments args) override;

  DataRow& row() const { return *row_; }
  std::size_t position() const { return position_; }

 private:
  bool read(const arap::Variant& vKey, arap::Variant* pValue) const;
  void write(const arap::Variant& vKey, const arap::Variant& vValue);
  std::vector<std::string> keys() const;

  arap::Ref<DataRow> row_;
  std::size_t position_;
};

/// A body: a Vector of rows.
class BodyPage final : public arap::Object {
 public:
  BodyPage(std::shared_ptr<const BillTemplate> bill, std::int32_t nPage) : template_(std::move(bill)), page_(nPage) {}
  std::string type_name() const override { return "Vector"; }
  arap::Variant invoke(arap::Member member, arap::Access access, arap::Arguments args) override;

  std::size_t size() const { return rows_.size(); }
  /// 1-based; nullptr outside the body.
  DataRow* row(std::int32_t nRow) const;
  DataRow& add_row();
  void remove(std::int32_t nRow);
  void remove_first(std::size_t nRows);
  void clear() { rows_.clear(); }
  void reserve(std::size_t nRows) { rows_.reserve(nRows); }
  void forget_marks();

  const BodyInBook& in_book() const { return in_book_; }
  void set_in_book(const BodyInBook& state) { in_book_ = state; }
  /// Whether the rows are, one by one, those of the last load or store.
  bool is_as_in_book() const;

 private:
  std::shared_ptr<const BillTemplate> template_;
  std::int32_t page_;
  std::vector<arap::Ref<DataRow>> rows_;
  BodyInBook in_book_;
};

}  // namespace desk
