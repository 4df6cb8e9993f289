#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "engine/bill_template.h"
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

struct Cell {
  arap::Variant vValue;
  std::unique_ptr<CellExtras> pExtras;
  std::int32_t nModify = 0;
  std::int8_t nDecimals = -1;  // -1: those of the column
  bool bLocked = false;

  CellExtras& extras() {
    if (!pExtras) pExtras = std::make_unique<CellExtras>();
    return *pExtras;
  }
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
  const TemplateField& field(std::size_t nPosition) const { return template_->field(page().aFields[nPosition]); }

 private:
  const TemplatePage& page() const { return template_->page(page_); }
  /// The cell's position in this page, or kNone.
  std::size_t position(const arap::Variant& vKey) const;
  arap::Variant record(std::size_t nPosition);

  std::shared_ptr<const BillTemplate> template_;
  std::int32_t page_;
  std::vector<Cell> cells_;
};

/// A field record: the Dictionary face of one cell. It is made for each look and holds nothing itself.
class FieldRecord final : public arap::Object {
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

 private:
  std::shared_ptr<const BillTemplate> template_;
  std::int32_t page_;
  std::vector<arap::Ref<DataRow>> rows_;
};

}  // namespace desk
