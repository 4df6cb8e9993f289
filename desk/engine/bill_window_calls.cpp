#include <typeinfo>

#include "data/automation_names.h"
#include "data/connection_object.h"
#include "data/trace.h"
#include "engine/bill_window.h"
#include "engine/window_objects.h"
#include "frame/conversions.h"

namespace desk {

Variant BillWindow::invoke(Member member, Access access, Arguments args) {
  if (tracing()) trace_call(*this, member, access, args);
  try {
    return dispatch(member, access, args);
  } catch (const DeskError& error) {
    pass_through_door(error, type_name());
  }
}

Variant BillWindow::dispatch(Member member, Access access, Arguments args) {
  switch (member) {
    case Member::GetFieldInfoByKey: return definition(argument(args, 0));
    case Member::GetDataFld:
      if (argument(args, 0).is_nothing()) return Ref<arap::Object>();
      return record(field_of(args[0]), arap::LongOf(argument(args, 1)));
    case Member::GetDataFldbyKey: return record(template_->find(argument(args, 0)), -1);
    case Member::GetDataFldByRow: return record(template_->find(argument(args, 0)), arap::LongOf(argument(args, 1)));
    case Member::Data: return data(args);
    case Member::BillData: return root_;
    case Member::SetBarStatus:
    case Member::SetStatusPanel:
    case Member::BarRefresh:
    case Member::BarControl: return bar_call(member, args);
    case Member::GetFieldValue:
    case Member::SetFieldValue:
    case Member::SetText:
    case Member::SetFieldDecimals:
    case Member::SetColumnDecimals:
    case Member::RefreshFieldRow:
    case Member::LockRowCell:
    case Member::GetActiveCell:
    case Member::DeleteEntryRows: return field_call(member, args);
    default: break;
  }
  if (is_put(access)) no_such_member(member);
  return state_of_bill(member, args);
}

Variant BillWindow::definition(const Variant& vKey) const {
  const std::size_t nField = template_->find(vKey);
  return nField == BillTemplate::kNone ? Ref<arap::Object>() : Ref<arap::Object>(definitions_[nField].get());
}

/// The field behind a definition. Raises 91 for Nothing, 13 for an object that isn't one of this window.
std::size_t BillWindow::field_of(const Variant& vDefinition) const {
  const arap::Object* const pObject = vDefinition.object().get();
  if (pObject == nullptr) throw AutomationError(ErrorNumber::ObjectNotSet);
  // The class is final, so its type tells all; a cast that searches is slower, and the rules come here with every
  // field.
  const arap::Object& object = *pObject;
  if (typeid(object) != typeid(FieldDefinition)) throw AutomationError(ErrorNumber::TypeMismatch);
  const std::size_t nField = static_cast<const FieldDefinition&>(object).field();
  if (nField >= definitions_.size()) throw AutomationError(ErrorNumber::TypeMismatch);
  return nField;
}

Variant BillWindow::record(std::size_t nField, std::int32_t nRow) const {
  DataRow* pRow = row_of(nField, nRow);
  if (pRow == nullptr) return Ref<arap::Object>();
  return arap::make_object<FieldRecord>(Ref<DataRow>(pRow), template_->field(nField).nPosition);
}

Variant BillWindow::data(Arguments args) const {
  if (args.empty()) return root_;
  const Variant* pPage = root_->find(arap::Concat(args[0]));
  if (pPage == nullptr) throw AutomationError(ErrorNumber::InvalidProcedureCall, arap::Concat(args[0]));
  return *pPage;
}

Variant BillWindow::field_call(Member member, Arguments args) {
  switch (member) {
    case Member::GetFieldValue: {
      const std::size_t nField = template_->find(argument(args, 0));
      const DataRow* pRow = row_of(nField, arap::LongOf(argument(args, 1)));
      if (pRow == nullptr) return {};
      const Cell& cell = pRow->cell(template_->field(nField).nPosition);
      if (arap::LongOf(argument(args, 2)) != 2) return cell.value();
      return cell.pExtras ? Variant(arap::Concat(cell.pExtras->vCode)) : Variant("");
    }
    case Member::SetFieldValue:
      set_field_value(template_->find(argument(args, 0)), argument(args, 1), arap::LongOf(argument(args, 2)));
      return {};
    case Member::SetText:
      set_text(field_of(argument(args, 0)), argument(args, 1), arap::LongOf(argument(args, 2)));
      return {};
    case Member::SetFieldDecimals:
      set_decimals(field_of(argument(args, 0)), arap::LongOf(argument(args, 1)), arap::LongOf(argument(args, 2)));
      return {};
    case Member::SetColumnDecimals:
      states_[field_of(argument(args, 0))].nDecimals = arap::LongOf(argument(args, 1));
      return {};
    // A view reads the cells whenever it paints, so it has nothing to be told.
    case Member::RefreshFieldRow: field_of(argument(args, 0)); return {};
    case Member::LockRowCell:
      lock_cell(field_of(argument(args, 0)), arap::LongOf(argument(args, 1)), arap::ToBoolean(argument(args, 2)));
      return {};
    case Member::GetActiveCell: answer_active_cell(args); return {};
    case Member::DeleteEntryRows: delete_rows(arap::LongOf(argument(args, 0))); return {};
    default: no_such_member(member);
  }
}

Variant BillWindow::bar_call(Member member, Arguments args) {
  switch (member) {
    case Member::SetBarStatus: set_bar_status(args); return {};
    case Member::SetStatusPanel: panels_[arap::LongOf(argument(args, 0))] = arap::Concat(argument(args, 1)); return {};
    case Member::BarRefresh: return {};  // a view draws its bars anew after each command
    default: return bar_;
  }
}

Variant BillWindow::state_of_bill(Member member, Arguments args) {
  const Ref<BillWindow> self(this);
  switch (member) {
    case Member::BillCtl: return arap::make_object<BillCtlObject>(self);
    case Member::BillForm: return arap::make_object<BillFormObject>(self);
    case Member::BillEntrys:
      if (args.empty()) return arap::make_object<EntryList>(self);
      // With a number it is a body: 1 is Page2.
      return EntryList(self).get(Member::Item, arap::LongOf(args[0]) + 1);
    case Member::ClassTypeEntry: return page_list();
    case Member::EditMode: return static_cast<std::int32_t>(mode_);
    case Member::InterID: return bill_id_;
    case Member::TransTypeID: return template_->nClassType;
    case Member::BillTypeInfo: {
      const auto oInfo = arap::make_object<HostDictionary>();
      oInfo->set("FID", template_->nClassType);
      oInfo->set("FName", template_->sCaption);
      return oInfo;
    }
    case Member::BillMapInfo:
      // The template doesn't change while the window lives; the rules ask for its map with every column of every row.
      if (!map_info_) map_info_ = map_info();
      return map_info_;
    case Member::FilterObject: return arap::make_object<FilterBag>(filters_);
    case Member::DataServer: return arap::make_object<DataServerObject>(host_.database);
    // The check wrote to the book: what the window shows is read again by ShowBillByID, which always follows.
    case Member::ReloadAfterCheck: look_ups_.forget(); return {};
    case Member::ShowBillByID: load_bill(arap::LongOf(argument(args, 0))); return {};
    case Member::SetBatchFlag: batch_ = arap::ToBoolean(argument(args, 0)); return {};
    default: no_such_member(member);
  }
}

void BillWindow::set_bar_status(Arguments args) {
  BarTool* pTool = bar_->find_tool(arap::Concat(argument(args, 0)));
  const std::string sProperty = arap::Concat(argument(args, 1));
  const bool bValue = arap::ToBoolean(argument(args, 2));
  if (pTool == nullptr) return;
  if (arap::EqualsNoCase(sProperty, "Enabled")) pTool->bEnabled = bValue;
  if (arap::EqualsNoCase(sProperty, "Visible")) pTool->bVisible = bValue;
  if (arap::EqualsNoCase(sProperty, "Checked")) pTool->bChecked = bValue;
}

void BillWindow::set_decimals(std::size_t nField, std::int32_t nRow, int nDecimals) {
  const TemplateField& field = template_->field(nField);
  if (field.nPage == 1) {
    states_[nField].nDecimals = nDecimals;
  } else if (DataRow* pRow = body_->row(nRow)) {
    pRow->cell(field.nPosition).nDecimals = static_cast<std::int8_t>(nDecimals);
  }
}

void BillWindow::answer_active_cell(Arguments args) const {
  const bool bNone = active_field_ == BillTemplate::kNone;
  argument(args, 0) = bNone ? Ref<arap::Object>() : Ref<arap::Object>(definitions_[active_field_].get());
  argument(args, 1) = bNone ? std::int32_t{0} : template_->field(active_field_).nPage;
  argument(args, 2) = active_row_;
}

/// The fields that a selection fills or computes from, with the source column of each.
Ref<arap::Object> BillWindow::map_info() const {
  const auto oMap = arap::make_object<HostDictionary>();
  for (const TemplateField& field : template_->fields()) {
    if (field.bInMap) oMap->set(field.sKey, field.sSource);
  }
  const auto oInfo = arap::make_object<HostDictionary>();
  oInfo->set("Map", oMap);
  return oInfo;
}

Ref<arap::Object> BillWindow::page_list() const {
  const auto oPages = arap::make_object<HostVector>();
  for (const TemplatePage& page : template_->pages()) {
    const auto oPage = arap::make_object<HostDictionary>();
    oPage->set("FPage", page.nPage);
    oPage->set("FTableName", page.sTable);
    oPage->set("FCaption", page.sCaption);
    oPages->add(oPage);
  }
  return oPages;
}

void BillWindow::delete_rows(std::int32_t nPage) {
  if (nPage != 2) return;
  body_->clear();
  if (active_row_ > 0) active_field_ = BillTemplate::kNone;
  active_row_ = 0;
}

}  // namespace desk
