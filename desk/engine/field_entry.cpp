#include <algorithm>
#include <array>

#include "engine/bill_window.h"
#include "frame/conversions.h"

namespace desk {

using arap::Event;
using arap::Ref;
using arap::Variant;

namespace {

bool same_value(const Value& vOld, const Value& vNew) {
  if (arap::IsNumeric(vOld) && arap::IsNumeric(vNew) && !vOld.is_empty() && !vNew.is_empty()) {
    return arap::NumberOf(vOld) == arap::NumberOf(vNew);
  }
  return arap::Concat(vOld) == arap::Concat(vNew);
}

/// A look-up value of 0 and an empty one both mean that nothing is chosen.
bool same_entry(const TemplateField& field, const Value& vOld, const Value& vNew) {
  if (field.lookUp && arap::NumberOf(vOld) == 0 && arap::NumberOf(vNew) == 0) return true;
  return same_value(vOld, vNew);
}

}  // namespace

std::string BillWindow::lock_reason(std::string_view sKey, std::int32_t nRow) const {
  const std::size_t nField = template_->find_key(sKey);
  if (nField == BillTemplate::kNone) return "单据没有字段“" + std::string(sKey) + "”。";
  return reason_of_lock(nField, nRow);
}

bool BillWindow::locked(std::string_view sKey, std::int32_t nRow) const { return !lock_reason(sKey, nRow).empty(); }

std::string BillWindow::reason_of_lock(std::size_t nField, std::int32_t nRow) const {
  const TemplateField& field = template_->field(nField);
  const FieldState& state = states_[nField];
  const DataRow* pRow = row_of(nField, nRow);
  if (pRow == nullptr) return "单据没有第" + std::to_string(nRow) + "行。";
  if (field.bReadOnly) return "“" + field.sCaption + "”由系统计算，不能录入。";
  if (mode_ == EditMode::ReadOnly) return "单据以只读方式打开，不能修改。";
  if (bill_locked_) return "单据已锁定，不能修改。";
  const bool bPageLock = page_locks_[static_cast<std::size_t>(field.nPage)] && !field.bStaysFree;
  if (bPageLock || state.bPropertyLock || state.bCellLock || state.bScreenLock || pRow->cell(field.nPosition).bLocked) {
    return "“" + field.sCaption + "”现在已锁定，不能修改。";
  }
  return {};
}

Outcome BillWindow::type_field(std::string_view sKey, std::int32_t nRow, std::string_view sText) {
  if (std::string sReason = lock_reason(sKey, nRow); !sReason.empty()) return Outcome::refused(std::move(sReason));
  focus(sKey, nRow);
  try {
    return enter(template_->find_key(sKey), nRow, sText);
  } catch (const arap::AutomationError& error) {
    return Outcome::refused(error.description());
  }
}

/// The user's way through a cell: editor, entry, Change, actions, focus lost.
Outcome BillWindow::enter(std::size_t nField, std::int32_t nRow, std::string_view sText) {
  const TemplateField& field = template_->field(nField);
  const std::int32_t nEventRow = field.nPage == 1 ? -1 : nRow;
  std::array<Variant, 3> aEdit{definitions_[nField], nEventRow, Variant()};
  fire(Event::BeginEdit, aEdit);
  Entry entry;
  if (Outcome read = read_entry(nField, sText, entry); !read) return read;
  const Ref<DataRow> row(row_of(nField, nRow));
  const bool bSame = same_entry(field, row->cell(field.nPosition).value(), entry.vValue);
  if (!put_entry(nField, nEventRow, *row, std::move(entry))) return Outcome::refused({});
  // A row can go away while its change is heard.
  const bool bStillThere = row_of(nField, nRow) == row.get();
  if (!bSame && bStillThere) run_actions(nField, *row);
  if (field.nPage == 1) {
    std::array<Variant, 3> aLeft{Ref<arap::Object>(), definitions_[nField], Ref<arap::Object>()};
    fire(Event::HeadCtlLostFocus, aLeft);
  }
  return Outcome::done();
}

Outcome BillWindow::read_entry(std::size_t nField, std::string_view sText, Entry& entry) {
  const TemplateField& field = template_->field(nField);
  if (field.lookUp) return read_look_up(nField, arap::Trim(sText), entry);
  if (field.kind == FieldKind::Text) {
    entry.vValue = sText;
    return Outcome::done();
  }
  if (arap::Trim(sText).empty()) {
    if (field.is_number()) {
      entry.vValue = 0.0;
    } else {
      entry.vValue = "";
    }
    return Outcome::done();
  }
  if (field.kind == FieldKind::Date) {
    if (!arap::IsDate(sText))
      return Outcome::refused("“" + std::string(sText) + "”不是日期，请按 2026-01-31 的格式录入。");
    entry.vValue = arap::TextOf(Variant(arap::ToDate(sText)));
    return Outcome::done();
  }
  if (!arap::IsNumeric(sText)) return Outcome::refused("“" + std::string(sText) + "”不是数字。");
  entry.vValue = arap::ToDouble(sText);
  return Outcome::done();
}

Outcome BillWindow::read_look_up(std::size_t nField, std::string_view sText, Entry& entry) {
  const TemplateField& field = template_->field(nField);
  entry = {std::int32_t{0}, "", ""};
  if (sText.empty()) return Outcome::done();
  const auto item = look_ups_.by_text(*field.lookUp, sText, definitions_[nField]->filter());
  if (!item) return Outcome::refused("“" + field.sCaption + "”中没有代码或名称为“" + std::string(sText) + "”的资料。");
  entry = {item->vId, item->sName, item->sCode};
  return Outcome::done();
}

bool BillWindow::put_entry(std::size_t nField, std::int32_t nRow, DataRow& row, Entry entry) {
  const TemplateField& field = template_->field(nField);
  const std::pair<const DataRow*, std::size_t> place{&row, nField};
  if (same_entry(field, row.cell(field.nPosition).value(), entry.vValue)) return true;
  const Ref<DataRow> held(&row);
  Cell& cell = row.cell(field.nPosition);
  CellExtras& extras = cell.extras();
  const Entry before{cell.value(), extras.vDisplay, extras.vCode};
  const std::int32_t nModifyBefore = cell.nModify;
  extras.vOld = cell.value();
  extras.bHasOld = true;
  row.put(field.nPosition, std::move(entry.vValue));
  extras.vDisplay = std::move(entry.vDisplay);
  extras.vCode = std::move(entry.vCode);
  cell.nModify = 1;
  // What a handler writes back into its own cell is no new change.
  if (std::find(changing_.begin(), changing_.end(), place) != changing_.end()) return true;
  changing_.push_back(place);
  bool bCancel = false;
  try {
    bCancel =
        fire_cancelled(Event::Change, {definitions_[nField], arap::make_object<FieldRecord>(held, field.nPosition),
                                       static_cast<std::int32_t>(field.nPosition) + 1, nRow});
  } catch (...) {
    std::erase(changing_, place);
    throw;
  }
  std::erase(changing_, place);
  if (!bCancel) return true;
  row.put(field.nPosition, before.vValue);
  cell.extras().vDisplay = before.vDisplay;
  cell.extras().vCode = before.vCode;
  cell.nModify = nModifyBefore;
  return false;
}

/// Text put into a cell by the plug-in. A look-up field takes an id, a code or a name; text that names nothing leaves
/// it as it is, as a half-typed entry does. Numbers keep all their decimals: the cell shows fewer, it holds them all.
void BillWindow::set_text(std::size_t nField, const Variant& vText, std::int32_t nRow) {
  DataRow* pRow = row_of(nField, nRow);
  if (pRow == nullptr) return;
  const TemplateField& field = template_->field(nField);
  const Cell& cell = pRow->cell(field.nPosition);
  const std::string sText = arap::Concat(vText);
  const bool bShowsItAlready = cell.pExtras && !sText.empty() && arap::Concat(cell.pExtras->vDisplay) == sText;
  if (bShowsItAlready || arap::Concat(cell.value()) == sText) return;
  Entry entry;
  if (field.lookUp && arap::IsNumeric(sText) && arap::NumberText(arap::NumberOf(sText)) == sText) {
    const std::int32_t nId = arap::LongOf(sText);
    if (const ShownItem* pItem = look_ups_.by_id(*field.lookUp, nId)) entry = {nId, pItem->vName, pItem->vCode};
  }
  if (entry.vValue.is_empty() && !read_entry(nField, sText, entry)) return;
  put_entry(nField, field.nPage == 1 ? -1 : nRow, *pRow, std::move(entry));
}

/// The plug-in enters a value in the user's stead: look-up fields by code, and the field's actions run even when the
/// value is the old one.
void BillWindow::set_field_value(std::size_t nField, const Variant& vValue, std::int32_t nRow) {
  const Ref<DataRow> row(row_of(nField, nRow));
  if (!row) return;
  Entry entry;
  const TemplateField& field = template_->field(nField);
  if (const Outcome read = read_entry(nField, arap::Concat(vValue), entry); !read) {
    throw arap::AutomationError(static_cast<std::int32_t>(arap::ErrorNumber::InvalidProcedureCall), "BillEvent",
                                read.sReason);
  }
  if (put_entry(nField, field.nPage == 1 ? -1 : nRow, *row, std::move(entry))) run_actions(nField, *row);
}

void BillWindow::run_actions(std::size_t nField, DataRow& row) {
  for (const std::size_t nAction : template_->field(nField).aActions) {
    const Formula& formula = template_->formula(nAction);
    const auto row_with = [&](std::size_t nOther) { return template_->field(nOther).nPage == 1 ? head_.get() : &row; };
    std::vector<double> aValues;
    for (const std::size_t nOperand : formula.operands()) {
      aValues.push_back(arap::NumberOf(row_with(nOperand)->cell(template_->field(nOperand).nPosition).value()));
    }
    DataRow* pTarget = row_with(formula.target());
    if (const auto dResult = formula.evaluate(aValues)) {
      const std::size_t nPosition = template_->field(formula.target()).nPosition;
      Cell& cell = pTarget->cell(nPosition);
      const double dRounded = round_half_away(*dResult, decimals(formula.target(), pTarget));
      if (!same_value(cell.value(), dRounded)) {
        pTarget->put(nPosition, dRounded);
        cell.nModify = 1;
      }
    }
    std::array<Variant, 6> args{
        definitions_[nField], definitions_[formula.target()], Ref<arap::Object>(pTarget), "", "", formula.text()};
    fire(Event::AfterDoAction, args);
  }
}

/// An id field of a page stands for the whole page, but for the fields that the template keeps free.
void BillWindow::lock_property(std::size_t nField, bool bLock) {
  const TemplateField& field = template_->field(nField);
  const std::string sPageField = field.nPage == 1 ? "FID" : "FID" + std::to_string(field.nPage);
  if (arap::EqualsNoCase(field.sKey, sPageField)) {
    page_locks_[static_cast<std::size_t>(field.nPage)] = bLock;
  } else {
    states_[nField].bPropertyLock = bLock;
  }
}

void BillWindow::lock_cell(std::size_t nField, std::int32_t nRow, bool bLock) {
  const TemplateField& field = template_->field(nField);
  if (field.nPage != 1 && nRow > 0) {
    if (DataRow* pRow = body_->row(nRow)) pRow->cell(field.nPosition).bLocked = bLock;
    return;
  }
  states_[nField].bCellLock = bLock;
  if (field.nPage == 1) return;
  for (std::int32_t nEach = 1; DataRow* pRow = body_->row(nEach); ++nEach) pRow->cell(field.nPosition).bLocked = false;
}

std::vector<LookUpItem> BillWindow::choices(std::string_view sKey) {
  const std::size_t nField = template_->find_key(sKey);
  if (nField == BillTemplate::kNone || !template_->field(nField).lookUp) return {};
  return look_ups_.list(*template_->field(nField).lookUp, definitions_[nField]->filter());
}

}  // namespace desk
