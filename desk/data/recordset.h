#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "data/database.h"
#include "frame/automation.h"

namespace desk {

/// An ADO recordset held in memory: EOF, BOF, RecordCount, MoveFirst, MoveNext, Filter, Fields, Close. Money columns
/// are doubles in units of the currency, NULL is Null. Fields without arguments is the collection (Count, Item).
class SqlRecordset final : public arap::Object {
 public:
  explicit SqlRecordset(Rows rows);

  std::string type_name() const override { return "Recordset"; }
  arap::Variant invoke(arap::Member member, arap::Access access, arap::Arguments args) override;

  std::size_t column_count() const { return rows_.column_count(); }
  const std::string& column_name(std::size_t nColumn) const { return (*rows_.columns())[nColumn]; }
  /// 0-based position of a column given by name or 0-based index. Raises 3265 when there is none.
  std::size_t column(const arap::Variant& vNameOrIndex) const;
  /// The value in the current record. Raises 3021 at EOF or BOF.
  const arap::Variant& current(std::size_t nColumn) const;
  void set_current(std::size_t nColumn, const arap::Variant& vValue);

  bool eof() const { return position_ >= count(); }
  std::size_t count() const { return visible_ ? visible_->size() : rows_.size(); }

 private:
  arap::Variant field(const arap::Variant& vNameOrIndex);
  void move_first() { position_ = 0; }
  void move_next();
  void set_filter(const arap::Variant& vFilter);

  Rows rows_;
  std::optional<std::vector<std::uint32_t>> visible_;  // row numbers under a filter
  std::string filter_;
  std::size_t position_ = 0;
};

/// A column of the recordset at whatever record is current.
class RecordsetField final : public arap::Object {
 public:
  RecordsetField(arap::Ref<SqlRecordset> recordset, std::size_t nColumn)
      : recordset_(std::move(recordset)), column_(nColumn) {}
  std::string type_name() const override { return "Field"; }
  arap::Variant invoke(arap::Member member, arap::Access access, arap::Arguments args) override;

 private:
  arap::Ref<SqlRecordset> recordset_;
  std::size_t column_;
};

class RecordsetFields final : public arap::Object {
 public:
  explicit RecordsetFields(arap::Ref<SqlRecordset> recordset) : recordset_(std::move(recordset)) {}
  std::string type_name() const override { return "Fields"; }
  arap::Variant invoke(arap::Member member, arap::Access access, arap::Arguments args) override;

 private:
  arap::Ref<SqlRecordset> recordset_;
};

/// The recordset of a result.
arap::Ref<SqlRecordset> make_recordset(Rows rows);
/// Translates, runs and wraps a text of the plug-in. A failure is an AutomationError of that source.
arap::Ref<SqlRecordset> open_recordset(Database& database, std::string_view sSql, std::string_view sSource);

}  // namespace desk
