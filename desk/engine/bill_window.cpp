#include "engine/bill_window.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "engine/bill_store.h"
#include "engine/plugin_window.h"
#include "frame/conversions.h"

namespace desk {

using arap::Event;
using arap::Member;
using arap::Ref;
using arap::Variant;

FieldDefinition::FieldDefinition(const BillTemplate& bill, std::size_t nField) : field_(nField) {
  const TemplateField& field = bill.field(nField);
  set("FPage", field.nPage);
  set("FSourceType", field.lookUp ? field.lookUp->nSourceType : 0);
  set("FKey", field.key);
  set("FFieldName", field.sColumn);
  set("FSRCTableName", field.lookUp ? field.lookUp->sTable : "");
  set("FSRCFieldName", field.lookUp ? field.lookUp->sKeyColumn : "");
  set("FClassTypeID", bill.nClassType);
  set("FCaption", field.sCaption);
  set("FFilter", "");
  set("FRefresh", "");
}

std::string FieldDefinition::filter() const {
  const Variant* pFilter = find("FFilter");
  return pFilter == nullptr ? std::string() : arap::Concat(*pFilter);
}

BillWindow::BillWindow(Host host, std::shared_ptr<const BillTemplate> bill)
    : host_(std::move(host)),
      template_(std::move(bill)),
      store_(host_.make_store ? host_.make_store(*template_) : std::make_unique<BillStore>(host_.database, *template_)),
      look_ups_(host_.database),
      filters_(arap::make_object<HostDictionary>()) {
  for (std::size_t i = 0; i < template_->fields().size(); ++i) {
    definitions_.push_back(arap::make_object<FieldDefinition>(*template_, i));
  }
  reset_screen();
  reset_data();
  build_bar();
}

BillWindow::~BillWindow() {
  try {
    give_lock();
  } catch (const DeskError&) {
    // A lock that can't be given back is left to the clean-up of the next seat.
  }
}

void BillWindow::build_bar() {
  bar_ = arap::make_object<Bar>();
  for (const TemplateTool& tool : template_->tools()) {
    const Ref<BarTool> oTool = bar_->add_tool(tool.sName);
    oTool->sCaption = tool.sCaption;
    oTool->sDescription = tool.sCaption;
  }
  for (const TemplateBand& band : template_->bands()) {
    BarBand& added = bar_->add_band(band.sName, band.sCaption);
    for (const std::string& sTool : band.aTools) bar_->place(added, sTool);
  }
}

void BillWindow::reset_data() {
  head_ = arap::make_object<DataRow>(template_, 1);
  body_ = arap::make_object<BodyPage>(template_, 2);
  root_ = arap::make_object<HostDictionary>();
  root_->set("Page1", head_);
  root_->set("Page2", body_);
  active_field_ = BillTemplate::kNone;
  active_row_ = 0;
}

/// Each load and each new bill starts with the locks and decimals of the template, and with the commands as the plug-in
/// has set them up: what a checked bill switched off isn't off for the next one.
void BillWindow::reset_screen() {
  if (bar_) bar_->restore_tools();
  states_.assign(template_->fields().size(), FieldState());
  for (std::size_t i = 0; i < states_.size(); ++i) {
    states_[i].bVisible = template_->field(i).bVisible;
    states_[i].nDecimals = template_->field(i).nDecimals;
  }
  page_locks_.assign(template_->pages().size() + 1, false);
  bill_locked_ = false;
  not_save_ = false;
  batch_ = false;
}

void BillWindow::open(const Ref<arap::Object>& oPlugin) {
  plugin_ = oPlugin;
  plugin_->call(Member::Show, Ref<arap::Object>(this));
  Variant aBar[] = {Ref<arap::Object>(bar_.get())};
  fire(Event::BarInitialize, aBar);
  fire(Event::MenuBarInitialize, aBar);
  bar_->keep_tools();
}

Value BillWindow::default_value(const TemplateField& field) const {
  if (field.sDefault.empty()) return {};
  if (field.sDefault == "today") return host_.sToday;
  if (field.sDefault == "user") return host_.sUser;
  if (field.kind == FieldKind::Id || field.kind == FieldKind::Integer) return arap::LongOf(field.sDefault);
  if (field.is_number()) return arap::NumberOf(field.sDefault);
  return field.sDefault;
}

void BillWindow::new_bill() {
  give_lock();
  reset_screen();
  reset_data();
  look_ups_.forget();
  bill_id_ = 0;
  mode_ = EditMode::New;
  edit_lock_ = true;
  for (std::size_t i = 0; i < head_->size(); ++i) head_->put(i, default_value(head_->field(i)));
  fill_look_ups(*head_);
  fire(Event::AfterNewBill);
  fire(Event::AfterNewEmptyData);
}

bool BillWindow::load_bill(std::int32_t nBillID, bool bReadOnly) {
  Variant aIgnored[] = {nBillID};
  fire(Event::BeforeLoadBill, aIgnored);
  const auto oHead = arap::make_object<DataRow>(template_, 1);
  const Ref<BodyPage> oBody = body_;
  if (!store_->load(nBillID, *oHead, *oBody)) return false;
  reset_screen();
  reset_data();
  head_ = oHead;
  body_ = oBody;
  root_->set("Page1", head_);
  root_->set("Page2", body_);
  show_loaded(nBillID, bReadOnly);
  return true;
}

void BillWindow::show_loaded(std::int32_t nBillID, bool bReadOnly) {
  if (bill_id_ != nBillID || !edit_lock_) {
    give_lock();
    edit_lock_ = !host_.take_edit_lock || host_.take_edit_lock(template_->nClassType, nBillID);
  }
  bill_id_ = nBillID;
  mode_ = bReadOnly || !edit_lock_ ? EditMode::ReadOnly : EditMode::Modify;
  look_ups_.forget();
  fill_look_ups(*head_);
  for (std::int32_t nRow = 1; DataRow* pRow = body_->row(nRow); ++nRow) fill_look_ups(*pRow);
  if (body_->size() > 0) {
    active_field_ = template_->page(2).aFields.front();
    active_row_ = 1;
  }
  fire(Event::BeforLoadBillFillData);
  fire(Event::AfterLoadBill);
}

bool BillWindow::load_number(const std::string& sBillNo) {
  const std::int32_t nBillID = store_->find_number(sBillNo);
  return nBillID != 0 && load_bill(nBillID);
}

void BillWindow::close() {
  if (closed_) return;
  closed_ = true;
  host_.stored = nullptr;
  // The plug-in's terminator can still ask this window.
  plugin_ = nullptr;
  give_lock();
}

void BillWindow::give_lock() {
  const bool bHeld = std::exchange(edit_lock_, false);  // what can't be given back isn't tried twice
  if (bHeld && bill_id_ != 0 && host_.give_edit_lock) host_.give_edit_lock(template_->nClassType, bill_id_);
}

/// Name and code of each look-up value of a row; the same text is shared by all rows that name the same item.
void BillWindow::fill_look_ups(DataRow& row) {
  for (std::size_t i = 0; i < row.size(); ++i) {
    const TemplateField& field = row.field(i);
    if (!field.lookUp) continue;
    Cell& cell = row.cell(i);
    const std::int32_t nId = arap::LongOf(cell.value());
    if (nId == 0) continue;
    if (const ShownItem* pItem = look_ups_.by_id(*field.lookUp, nId)) {
      cell.extras().vDisplay = pItem->vName;
      cell.extras().vCode = pItem->vCode;
    }
  }
}

bool BillWindow::has_changes() const {
  const auto changed = [](const DataRow& row) {
    for (std::size_t i = 0; i < row.size(); ++i) {
      if (row.cell(i).nModify != 0) return true;
    }
    return false;
  };
  if (changed(*head_)) return true;
  for (std::int32_t nRow = 1; const DataRow* pRow = body_->row(nRow); ++nRow) {
    if (changed(*pRow)) return true;
  }
  return false;
}

DataRow* BillWindow::row_of(std::size_t nField, std::int32_t nRow) const {
  if (nField == BillTemplate::kNone) return nullptr;
  // A head field has one record, whatever row is asked for; row 0 of a body is no row.
  return template_->field(nField).nPage == 1 ? head_.get() : body_->row(nRow);
}

Value BillWindow::value(std::string_view sKey, std::int32_t nRow) const {
  const std::size_t nField = template_->find_key(sKey);
  const DataRow* pRow = row_of(nField, nRow);
  return pRow == nullptr ? Value() : pRow->cell(template_->field(nField).nPosition).value();
}

std::string BillWindow::shown(std::string_view sKey, std::int32_t nRow) const {
  const std::size_t nField = template_->find_key(sKey);
  const DataRow* pRow = row_of(nField, nRow);
  if (pRow == nullptr) return {};
  const TemplateField& field = template_->field(nField);
  const Cell& cell = pRow->cell(field.nPosition);
  if (field.lookUp) return cell.pExtras ? arap::Concat(cell.pExtras->vDisplay) : std::string();
  const bool bDecimal =
      field.kind == FieldKind::Money || field.kind == FieldKind::Rate || field.kind == FieldKind::Percent;
  if (!bDecimal || cell.value().is_empty()) return arap::Concat(cell.value());
  const int nDecimals = decimals(nField, pRow);
  const std::string sMask = nDecimals == 0 ? "0" : "0." + std::string(static_cast<std::size_t>(nDecimals), '0');
  return arap::Format(arap::NumberOf(cell.value()), sMask);
}

std::string BillWindow::code(std::string_view sKey, std::int32_t nRow) const {
  const std::size_t nField = template_->find_key(sKey);
  const DataRow* pRow = row_of(nField, nRow);
  if (pRow == nullptr) return {};
  const Cell& cell = pRow->cell(template_->field(nField).nPosition);
  return cell.pExtras ? arap::Concat(cell.pExtras->vCode) : std::string();
}

int BillWindow::decimals(std::size_t nField, const DataRow* pRow) const {
  const int nCell = pRow == nullptr ? -1 : pRow->cell(template_->field(nField).nPosition).nDecimals;
  return nCell >= 0 ? nCell : states_[nField].nDecimals;
}

const FieldState& BillWindow::state(std::string_view sKey) const {
  const std::size_t nField = template_->find_key(sKey);
  if (nField == BillTemplate::kNone) throw arap::AutomationError(arap::ErrorNumber::SubscriptOutOfRange, sKey);
  return states_[nField];
}

std::string BillWindow::status_panel(std::int32_t nPanel) const {
  const auto found = panels_.find(nPanel);
  return found == panels_.end() ? std::string() : found->second;
}

void BillWindow::focus(std::string_view sKey, std::int32_t nRow) {
  const std::size_t nField = template_->find_key(sKey);
  if (row_of(nField, nRow) == nullptr) return;
  active_field_ = nField;
  active_row_ = template_->field(nField).nPage == 1 ? 0 : nRow;
}

OpenBillWindow open_bill_window(Host host, std::shared_ptr<const BillTemplate> bill,
                                const arap::Ref<arap::Object>& oPlugin) {
  return {arap::make_object<BillWindow>(std::move(host), std::move(bill)), oPlugin};
}

OpenBillWindow open_bill_window(Host host, std::shared_ptr<const BillTemplate> bill) {
  const auto oPlugin = create_plugin(bill->sPluginClass);
  return open_bill_window(std::move(host), std::move(bill), oPlugin);
}

}  // namespace desk
