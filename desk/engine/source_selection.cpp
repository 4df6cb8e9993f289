#include <algorithm>
#include <array>

#include "data/columns.h"
#include "data/recordset.h"
#include "data/sql_dialect.h"
#include "data/trace.h"
#include "engine/bill_window.h"
#include "engine/window_objects.h"
#include "frame/conversions.h"

namespace desk {

using arap::Event;
using arap::Ref;
using arap::Variant;

namespace {

bool holds_money(const Rows& rows, std::size_t nColumn) { return is_money_column((*rows.columns())[nColumn]); }

Value readable(const Value& vStored, bool bMoney) {
  if (vStored.is_null()) return {};
  return bMoney ? Value(Money::from_stored(vStored).to_double()) : vStored;
}

/// A field of the row and the column of the view that fills it.
struct FilledField {
  std::size_t nPosition;
  std::size_t nColumn;
  bool bMoney;
};

Rows rows_of(const Rows& rows, const std::vector<std::size_t>& aChosen) {
  std::vector<Value> cells;
  cells.reserve(aChosen.size() * rows.column_count());
  for (const std::size_t nRow : aChosen) {
    for (std::size_t i = 0; i < rows.column_count(); ++i) cells.push_back(rows.at(nRow, i));
  }
  return Rows(rows.columns(), std::move(cells));
}

}  // namespace

Value SourceList::value(std::size_t nRow, std::string_view sColumn) const {
  const int nColumn = rows_.find_column(sColumn);
  if (nColumn < 0) return {};
  const auto nFound = static_cast<std::size_t>(nColumn);
  return readable(rows_.at(nRow, nFound), holds_money(rows_, nFound));
}

std::string SourceList::text(std::size_t nRow, std::string_view sColumn) const {
  return arap::Concat(value(nRow, sColumn));
}

SourceChooser choose_where(std::function<bool(const SourceList&, std::size_t)> wanted) {
  return [wanted = std::move(wanted)](const SourceList& list) {
    std::vector<std::size_t> aChosen;
    for (std::size_t i = 0; i < list.size(); ++i) {
      if (wanted(list, i)) aChosen.push_back(i);
    }
    return aChosen;
  };
}

SourceChooser choose_all() {
  return choose_where([](const SourceList&, std::size_t) { return true; });
}

/// The selection window: the plug-in's filter, the list, the choice, the fill.
Outcome BillWindow::select_sources(std::int32_t nType) {
  const auto& aSelections = template_->selections();
  const auto source = std::find_if(aSelections.begin(), aSelections.end(),
                                   [nType](const SelectionSource& each) { return each.nType == nType; });
  if (source == aSelections.end()) return Outcome::refused("没有编号为" + std::to_string(nType) + "的源单类型。");
  const auto oQuery = arap::make_object<FilterBag>(arap::make_object<HostDictionary>());
  std::array<Variant, 5> args{nType, oQuery, Ref<arap::Object>(), "", false};
  fire(Event::BeforeSelBills, args);
  if (arap::ToBoolean(args[4])) return Outcome::refused({});
  Rows rows;
  try {
    rows = read_sources(*source, arap::Concat(args[3]), *oQuery);
  } catch (const DeskError& error) {
    return Outcome::refused(error.problem());
  }
  if (rows.empty()) return Outcome::refused("没有可选的源单。");
  const auto aChosen =
      host_.choose_sources ? host_.choose_sources(SourceList(rows, nType)) : std::vector<std::size_t>();
  if (aChosen.empty()) return Outcome::refused("没有选择源单。");
  fill_chosen(rows, aChosen);
  return Outcome::done();
}

Rows BillWindow::read_sources(const SelectionSource& source, const std::string& sFilter, const arap::Object& oQuery) {
  std::string sSql = "SELECT * FROM " + source.sView;
  Binds binds;
  if (!arap::Trim(sFilter).empty()) {
    const TranslatedCondition condition = translate_condition(sFilter);
    sSql += " WHERE " + condition.sSql;
    binds = condition.binds;
  }
  const std::string sSort = static_cast<const FilterBag&>(oQuery).filter("HeadSort");
  sSql += " ORDER BY " + (arap::Trim(sSort).empty() ? std::string("FDate, FBillID") : translate_order(sSort));
  if (tracing()) {
    trace(TraceObserver::Kind::Sql, "Select * From " + source.sView + " Where " + sFilter + " Order By " + sSort);
    trace_translation(sSql, binds);
  }
  return host_.database.query(sSql, binds);
}

void BillWindow::fill_chosen(const Rows& rows, const std::vector<std::size_t>& aChosen) {
  const std::size_t nBefore = body_->size();
  append_sources(rows, aChosen);
  const auto oSelected = arap::make_object<HostDictionary>();
  oSelected->set("rsSrc", make_recordset(rows_of(rows, aChosen)));
  oSelected->set("AddModel", false);
  std::array<Variant, 2> aFill{oSelected, Ref<arap::Object>()};
  fire(Event::AfterSelBillBeforeFillData, aFill);
  // Unless the rows are to be added, they take the place of the former ones.
  if (!arap::ToBoolean(*oSelected->find("AddModel"))) body_->remove_first(nBefore);
  active_field_ = template_->page(2).aFields.front();
  active_row_ = static_cast<std::int32_t>(body_->size());
  Variant aIgnored[] = {oSelected};
  fire(Event::AfterSelBill, aIgnored);
}

void BillWindow::append_sources(const Rows& rows, const std::vector<std::size_t>& aChosen) {
  std::vector<FilledField> aFilled;
  for (const std::size_t nField : template_->page(2).aFields) {
    const TemplateField& field = template_->field(nField);
    const int nColumn = field.sSource.empty() ? -1 : rows.find_column(field.sSource);
    if (nColumn < 0) continue;
    const auto nFound = static_cast<std::size_t>(nColumn);
    aFilled.push_back({field.nPosition, nFound, holds_money(rows, nFound)});
  }
  look_ups_.forget();
  body_->reserve(body_->size() + aChosen.size());
  for (const std::size_t nRow : aChosen) {
    DataRow& row = body_->add_row();
    for (const FilledField& each : aFilled) {
      row.put(each.nPosition, readable(rows.at(nRow, each.nColumn), each.bMoney));
      row.cell(each.nPosition).nModify = 1;
    }
    fill_look_ups(row);
  }
}

}  // namespace desk
