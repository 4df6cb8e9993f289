#include "support/test_bill.h"

#include <algorithm>

namespace arap::testing {

namespace {

constexpr std::int32_t kLookUp = 1;
constexpr std::int32_t kTextControl = 1;

std::string page_name(int nPage) { return "Page" + std::to_string(nPage); }

}  // namespace

TestFieldInfo::TestFieldInfo(std::string sKey, int nPage, Variant vDefault)
    : id(key_id(sKey)), page(nPage), blank(std::move(vDefault)) {
  set("FKey", sKey).set("FFieldName", sKey).set("FPage", std::int32_t{nPage});
  set("FSourceType", std::int32_t{0}).set("FSRCTableName", "").set("FSRCFieldName", "");
  set("FClassTypeID", std::int32_t{0}).set("FFilter", "").set("FRefresh", "");
  set_label(sKey);
}

bool TestFieldInfo::is_look_up() const { return plain_number(at("FSourceType")) == kLookUp; }

std::vector<Variant> FireEvent(EventSourceList& source, Event event, std::vector<Variant> aArgs) {
  if (trace().records(true)) trace().add("-- " + std::string(name_of(event)));
  source.fire(event, aArgs);
  return aArgs;
}

TestBill::TestBill(int nBodies, Ref<TestBar> oBar)
    : bar(std::move(oBar)),
      bill_type_info(dictionary()),
      bill_map(dictionary()),
      filter_values(dictionary()),
      data_(dictionary()),
      page1_(dictionary()),
      class_type_entry_(make_object<TestVector>()) {
  data_->set("Page1", page1_);
  class_type_entry_->items.emplace_back(dictionary());
  define("FID", 1, std::int32_t{0});
  for (int i = 0; i < nBodies; ++i) {
    bodies_.push_back(make_object<TestVector>());
    bodies_.back()->name = page_name(i + 2);
    data_->set(page_name(i + 2), bodies_.back());
    class_type_entry_->items.emplace_back(dictionary());
    define("FID" + std::to_string(i + 2), i + 2, std::int32_t{0});
  }
  data_->set_label("Data");
  key_fields_.resize(bodies_.size());
  map_info_ = dictionary({{"Map", bill_map}});
  make_parts();
}

// --- template -------------------------------------------------------------------------------------------------------

TestFieldInfo* TestBill::info(KeyId id) const {
  const auto nAt = static_cast<std::size_t>(id);
  return nAt < infos_.size() ? infos_[nAt].get() : nullptr;
}

TestFieldInfo& TestBill::define(std::string_view sKey, int nPage, Variant vBlank) {
  auto oInfo = make_object<TestFieldInfo>(std::string(sKey), nPage, std::move(vBlank));
  const auto nAt = static_cast<std::size_t>(oInfo->id);
  if (nAt >= infos_.size()) infos_.resize(nAt + 1);
  if (infos_[nAt]) std::erase(ordered_, infos_[nAt].get());
  infos_[nAt] = oInfo;
  ordered_.push_back(oInfo.get());
  if (nPage == 1) {
    page1_->set(sKey, new_record(*oInfo, -1));
  } else {
    TestVector& oRows = rows(nPage - 1);
    for (std::size_t i = 0; i < oRows.items.size(); ++i) {
      static_cast<TestDictionary&>(*oRows.items[i].object()).set(sKey, new_record(*oInfo, static_cast<int>(i) + 1));
    }
  }
  return *oInfo;
}

TestFieldInfo& TestBill::define_look_up(std::string_view sKey, int nPage, std::string_view sTable,
                                        std::string_view sColumn, std::int32_t nClassTypeID) {
  TestFieldInfo& oInfo = define(sKey, nPage, std::int32_t{0});
  oInfo.set("FSourceType", kLookUp).set("FSRCTableName", sTable).set("FSRCFieldName", sColumn);
  oInfo.set("FClassTypeID", nClassTypeID);
  return oInfo;
}

void TestBill::set_key_field(std::string_view sKey, int nEntry) {
  key_fields_.at(static_cast<std::size_t>(nEntry) - 1) = sKey;
}

void TestBill::add_action(std::string_view sKey, std::string sText, Action action) {
  actions_[key_id(sKey)].emplace_back(std::move(sText), std::move(action));
}

// --- data -----------------------------------------------------------------------------------------------------------

Ref<TestDictionary> TestBill::new_record(const TestFieldInfo& oInfo, int nRow) const {
  auto oRecord = make_object<TestDictionary>();
  oRecord->set("FFLD", oInfo.blank).set("FDSP", "").set("FFND", "").set("FOLD", oInfo.blank);
  oRecord->set("FModify", std::int32_t{0}).set("FCtlType", kTextControl);
  oRecord->set_label(oInfo.label() + (nRow > 0 ? "[" + std::to_string(nRow) + "]" : ""));
  return oRecord;
}

TestVector& TestBill::rows(int nEntry) const {
  const auto nAt = static_cast<std::size_t>(nEntry) - 1;
  if (nAt >= bodies_.size()) throw AutomationError(ErrorNumber::SubscriptOutOfRange, page_name(nEntry + 1));
  return *bodies_[nAt];
}

TestBill& TestBill::head(std::string_view sKey, Variant vValue) {
  if (info(sKey) == nullptr) define(sKey, 1);
  record(sKey).set("FFLD", vValue).set("FOLD", vValue);
  return *this;
}

TestBill& TestBill::head(std::string_view sKey, Variant vValue, std::string_view sDisplay, std::string_view sCode) {
  head(sKey, std::move(vValue));
  record(sKey).set("FDSP", sDisplay).set("FFND", sCode);
  return *this;
}

Variant TestBill::record_of(const TestFieldInfo* pInfo, int nRow) const {
  if (pInfo == nullptr) return Ref<Object>();
  const TestDictionary* pPage = page1_.get();
  if (pInfo->page != 1) {
    const std::vector<Variant>& aRows = rows(pInfo->page - 1).items;
    if (nRow < 1 || nRow > static_cast<int>(aRows.size())) return Ref<Object>();
    pPage = static_cast<const TestDictionary*>(aRows[static_cast<std::size_t>(nRow) - 1].object().get());
  }
  const Variant* pRecord = pPage->find(pInfo->id);
  return pRecord != nullptr ? *pRecord : Variant(Ref<Object>());
}

Variant TestBill::record_of(const Variant& vInfo, const Variant& vRow) const {
  const auto* pInfo = dynamic_cast<const TestFieldInfo*>(vInfo.object().get());
  return record_of(pInfo, static_cast<int>(plain_number(vRow)));
}

TestDictionary& TestBill::record(std::string_view sKey, int nRow) const {
  const Variant vRecord = record_of(info(sKey), nRow);
  if (vRecord.is_nothing()) throw AutomationError(ErrorNumber::SubscriptOutOfRange, sKey);
  return static_cast<TestDictionary&>(*vRecord.object());
}

bool TestBill::has_record(std::string_view sKey, int nRow) const { return !record_of(info(sKey), nRow).is_nothing(); }
const Variant& TestBill::value(std::string_view sKey, int nRow) const { return record(sKey, nRow).at("FFLD"); }

int TestBill::modified(std::string_view sKey, int nRow) const {
  return static_cast<int>(plain_number(record(sKey, nRow).at("FModify")));
}

int TestBill::add_row(Pairs aValues, int nEntry) {
  for (const auto& [sKey, vValue] : aValues) {
    if (info(sKey) == nullptr) define(sKey, nEntry + 1);
  }
  TestVector& oRows = rows(nEntry);
  const int nRow = static_cast<int>(oRows.items.size()) + 1;
  auto oRow = make_object<TestDictionary>();
  for (const TestFieldInfo* pInfo : ordered_) {
    if (pInfo->page == nEntry + 1) oRow->set(pInfo->label(), new_record(*pInfo, nRow));
  }
  oRows.items.emplace_back(oRow);
  for (const auto& [sKey, vValue] : aValues) record(sKey, nRow).set("FFLD", vValue).set("FOLD", vValue);
  return nRow;
}

Variant TestBill::page(const Variant& vName) const {
  const Variant* pPage = data_->find(key_id_of(vName));
  if (pPage == nullptr) throw AutomationError(ErrorNumber::SubscriptOutOfRange, plain_text(vName));
  return *pPage;
}

void TestBill::set_active_cell(std::string_view sKey, int nRow) {
  active_info_ = sKey.empty() ? nullptr : info(sKey);
  active_row_ = nRow;
}

// --- events ---------------------------------------------------------------------------------------------------------

std::vector<Variant> TestBill::fire(Event event, std::vector<Variant> aArgs) {
  return FireEvent(events, event, std::move(aArgs));
}

bool TestBill::fire_cancelable(Event event, std::vector<Variant> aArgs) {
  aArgs.emplace_back(false);
  return plain_number(fire(event, std::move(aArgs)).back()) != 0;
}

bool TestBill::change(std::string_view sKey, int nRow, Variant vValue) {
  const Ref<TestFieldInfo> oInfo(info(sKey));
  const Ref<TestDictionary> oRecord(&record(sKey, nRow));
  oRecord->set("FOLD", oRecord->at("FFLD")).set("FFLD", std::move(vValue)).set("FModify", std::int32_t{1});
  return fire_cancelable(Event::Change, {oInfo, oRecord, std::int32_t{1}, std::int32_t{nRow}});
}

bool TestBill::click(std::string_view sTool) {
  Ref<TestTool> oTool(bar->tools().find(sTool));
  if (!oTool) oTool = make_object<TestTool>(std::string(sTool));
  return fire_cancelable(Event::MenuBarClick, {oTool});
}

void TestBill::run_actions(const TestFieldInfo& oInfo, const Variant& vRecord, int nRow) {
  const auto found = actions_.find(oInfo.id);
  if (found == actions_.end() || !runs_actions) return;
  for (const auto& [sText, action] : std::vector(found->second)) {
    action(*this, nRow);
    fire(Event::AfterDoAction,
         {Ref<TestFieldInfo>(infos_[static_cast<std::size_t>(oInfo.id)]), vRecord, ctl_, oInfo.label(), "", sText});
  }
}

}  // namespace arap::testing
