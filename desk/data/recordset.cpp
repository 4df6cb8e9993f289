#include "data/recordset.h"

#include "data/automation_names.h"
#include "data/columns.h"
#include "data/recordset_filter.h"
#include "data/sql_dialect.h"
#include "data/trace.h"
#include "frame/conversions.h"

namespace desk {
namespace {

// Numbers of the data objects.
constexpr std::int32_t kNoCurrentRecord = 3021;
constexpr std::int32_t kItemNotFound = 3265;

/// Stored amounts become doubles in units of the currency.
void give_money_as_double(Rows& rows) {
  const std::size_t nColumns = rows.column_count();
  for (std::size_t c = 0; c < nColumns; ++c) {
    if (!is_money_column((*rows.columns())[c])) continue;
    for (std::size_t i = c; i < rows.cells().size(); i += nColumns) {
      Value& vCell = rows.cells()[i];
      if (!vCell.is_null()) vCell = Money::from_stored(vCell).to_double();
    }
  }
}

}  // namespace

SqlRecordset::SqlRecordset(Rows rows) : rows_(std::move(rows)) { give_money_as_double(rows_); }

Variant SqlRecordset::invoke(Member member, Access access, Arguments args) {
  if (tracing()) trace_call(*this, member, access, args);
  switch (member) {
    case Member::Eof: return eof();
    case Member::Bof: return count() == 0;
    case Member::RecordCount: return static_cast<std::int32_t>(count());
    case Member::MoveFirst: move_first(); return {};
    case Member::MoveNext: move_next(); return {};
    case Member::Filter:
      if (!is_put(access)) return filter_;
      set_filter(argument(args, 0));
      return {};
    case Member::Fields:
    case Member::Default:
      if (args.empty()) return arap::make_object<RecordsetFields>(arap::Ref<SqlRecordset>(this));
      if (member == Member::Default && is_put(access)) {
        set_current(column(args[0]), argument(args, 1));
        return {};
      }
      return field(args[0]);
    case Member::Close:
      rows_ = Rows();
      visible_.reset();
      return {};
    default: no_such_member(member);
  }
}

std::size_t SqlRecordset::column(const Variant& vNameOrIndex) const {
  const std::int64_t nColumn =
      vNameOrIndex.is_text() ? rows_.find_column(vNameOrIndex.text()) : arap::LongOf(vNameOrIndex);
  if (nColumn < 0 || nColumn >= static_cast<std::int64_t>(column_count()))
    throw AutomationError(kItemNotFound, "Recordset", "No such column: " + arap::Concat(vNameOrIndex));
  return static_cast<std::size_t>(nColumn);
}

const Variant& SqlRecordset::current(std::size_t nColumn) const {
  if (eof()) throw AutomationError(kNoCurrentRecord, "Recordset", "There is no current record");
  return rows_.at(visible_ ? (*visible_)[position_] : position_, nColumn);
}

void SqlRecordset::set_current(std::size_t nColumn, const Variant& vValue) {
  current(nColumn);
  const std::size_t nRow = visible_ ? (*visible_)[position_] : position_;
  rows_.cells()[nRow * column_count() + nColumn] = vValue;
}

Variant SqlRecordset::field(const Variant& vNameOrIndex) {
  return arap::make_object<RecordsetField>(arap::Ref<SqlRecordset>(this), column(vNameOrIndex));
}

void SqlRecordset::move_next() {
  if (eof()) throw AutomationError(kNoCurrentRecord, "Recordset", "The recordset is at its end");
  ++position_;
}

void SqlRecordset::set_filter(const Variant& vFilter) {
  const std::string sFilter(arap::Trim(arap::Concat(vFilter)));
  std::optional<std::vector<std::uint32_t>> visible;
  if (!sFilter.empty() && sFilter != "0") {
    const RecordFilter filter(sFilter, rows_);
    visible.emplace();
    for (std::size_t i = 0; i < rows_.size(); ++i)
      if (filter.matches(rows_, i)) visible->push_back(static_cast<std::uint32_t>(i));
  }
  visible_ = std::move(visible);
  filter_ = arap::Concat(vFilter);
  position_ = 0;
}

Variant RecordsetField::invoke(Member member, Access access, Arguments args) {
  if (tracing()) trace_call(*this, member, access, args, recordset_->column_name(column_));
  switch (member) {
    case Member::Name: return recordset_->column_name(column_);
    case Member::Value:
    case Member::Default:
      if (!is_put(access)) return recordset_->current(column_);
      recordset_->set_current(column_, argument(args, 0));
      return {};
    default: no_such_member(member);
  }
}

Variant RecordsetFields::invoke(Member member, Access access, Arguments args) {
  if (tracing()) trace_call(*this, member, access, args);
  switch (member) {
    case Member::Count: return static_cast<std::int32_t>(recordset_->column_count());
    case Member::Item:
    case Member::Default: return arap::make_object<RecordsetField>(recordset_, recordset_->column(argument(args, 0)));
    default: no_such_member(member);
  }
}

arap::Ref<SqlRecordset> make_recordset(Rows rows) { return arap::make_object<SqlRecordset>(std::move(rows)); }

arap::Ref<SqlRecordset> open_recordset(Database& database, std::string_view sSql, std::string_view sSource) {
  try {
    return make_recordset(run_sql(database, sSql));
  } catch (const DeskError& error) {
    pass_through_door(error, std::string(sSource));
  }
}

}  // namespace desk
