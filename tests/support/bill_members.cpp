#include "support/test_bill.h"

/// The members of the bill window, as the host contract names them.
namespace arap::testing {

namespace {

int row_of(const Variant& vRow) { return static_cast<int>(plain_number(vRow)); }
bool flag_of(const Variant& vFlag) { return plain_number(vFlag) != 0; }

/// The recorded text of a number field is its number again, as the control would read it.
Variant typed_value(const Variant& vBefore, const Variant& vText) {
  const bool bNumber = vBefore.type() == Variant::Type::Double || vBefore.type() == Variant::Type::Long ||
                       vBefore.type() == Variant::Type::Integer;
  if (!bNumber || !vText.is_text()) return vText;
  if (vBefore.type() == Variant::Type::Double) return plain_number(vText);
  return static_cast<std::int32_t>(plain_number(vText));
}

bool same_value(const Variant& vA, const Variant& vB) { return plain_text(vA) == plain_text(vB); }

}  // namespace

bool TestBill::is_read(Member member, Access access) const {
  if (access == Access::Get) return true;
  switch (member) {
    case Member::GetFieldInfoByKey:
    case Member::GetDataFld:
    case Member::GetDataFldbyKey:
    case Member::GetDataFldByRow:
    case Member::GetFieldValue:
    case Member::GetActiveCell: return true;
    default: return false;
  }
}

Variant TestBill::handle(Member member, Access, Arguments args) {
  switch (member) {
    case Member::Data:
    case Member::BillData:
    case Member::GetFieldInfoByKey:
    case Member::GetDataFld:
    case Member::GetDataFldbyKey:
    case Member::GetDataFldByRow:
    case Member::GetFieldValue:
    case Member::SetFieldValue:
    case Member::DeleteEntryRows:
    case Member::GetActiveCell: return handle_data(member, args);
    case Member::SetText:
    case Member::SetFieldDecimals:
    case Member::SetColumnDecimals:
    case Member::RefreshFieldRow:
    case Member::LockRowCell: return handle_screen(member, args);
    case Member::SetBarStatus:
    case Member::SetStatusPanel:
    case Member::BarRefresh:
    case Member::ReloadAfterCheck:
    case Member::ShowBillByID:
    case Member::SetBatchFlag: return handle_window(member, args);
    default: return handle_parts(member, args);
  }
}

Variant TestBill::handle_data(Member member, Arguments args) {
  switch (member) {
    case Member::BillData: return data_;
    case Member::Data: return args.empty() ? Variant(data_) : page(args[0]);
    case Member::GetFieldInfoByKey: return Ref<TestFieldInfo>(info(key_id_of(argument(args, 0))));
    case Member::GetDataFld: return record_of(argument(args, 0), argument(args, 1));
    case Member::GetDataFldbyKey: return record_of(info(key_id_of(argument(args, 0))), -1);
    case Member::GetDataFldByRow: return record_of(info(key_id_of(argument(args, 0))), row_of(argument(args, 1)));
    case Member::GetFieldValue: {
      const Variant vRecord = record_of(info(key_id_of(argument(args, 0))), row_of(argument(args, 1)));
      if (vRecord.is_nothing()) return {};
      const bool bCode = row_of(argument(args, 2)) == 2;
      return static_cast<TestDictionary&>(*vRecord.object()).at(bCode ? "FFND" : "FFLD");
    }
    case Member::SetFieldValue: {
      const Variant vRecord = record_of(info(key_id_of(argument(args, 0))), row_of(argument(args, 2)));
      if (vRecord.is_nothing()) return {};
      static_cast<TestDictionary&>(*vRecord.object()).set("FFLD", argument(args, 1)).set("FModify", std::int32_t{1});
      return {};
    }
    case Member::DeleteEntryRows: rows(row_of(argument(args, 0)) - 1).items.clear(); return {};
    case Member::GetActiveCell:
      argument(args, 2) = std::int32_t{active_info_ == nullptr ? 0 : active_row_};
      args[0] = Ref<TestFieldInfo>(active_info_);
      args[1] = std::int32_t{active_info_ == nullptr ? 0 : active_info_->page};
      return {};
    default: no_such_member(member);
  }
}

void TestBill::enter_text(const Variant& vInfo, const Variant& vText, int nRow) {
  screen(vInfo).texts[nRow <= 0 ? -1 : nRow] = plain_text(vText);
  const auto* pInfo = dynamic_cast<const TestFieldInfo*>(vInfo.object().get());
  const Variant vRecord = record_of(pInfo, nRow);
  // What is typed into a look-up is resolved by the host's own list; the rules write the id themselves.
  if (!set_text_stores || vRecord.is_nothing() || pInfo->is_look_up()) return;
  auto& oRecord = static_cast<TestDictionary&>(*vRecord.object());
  const Variant vBefore = oRecord.at("FFLD");
  if (same_value(vBefore, vText)) return;
  oRecord.set("FOLD", vBefore).set("FFLD", typed_value(vBefore, vText)).set("FModify", std::int32_t{1});
  if (set_text_fires_change) {
    fire_cancelable(Event::Change, {vInfo, vRecord, std::int32_t{1}, std::int32_t{nRow}});
  }
}

Variant TestBill::handle_screen(Member member, Arguments args) {
  const Variant& vInfo = argument(args, 0);
  Screen& oScreen = screen(vInfo);
  switch (member) {
    case Member::SetText: enter_text(vInfo, argument(args, 1), row_of(argument(args, 2))); return {};
    case Member::SetFieldDecimals: oScreen.decimals[row_of(argument(args, 1))] = row_of(argument(args, 2)); return {};
    case Member::SetColumnDecimals: oScreen.decimals = {{-1, row_of(argument(args, 1))}}; return {};
    case Member::LockRowCell: oScreen.locks[row_of(argument(args, 1))] = flag_of(argument(args, 2)); return {};
    case Member::RefreshFieldRow: return {};
    default: no_such_member(member);
  }
}

void TestBill::set_bar_status(const std::string& sTool, const std::string& sProperty, const Variant& vValue) {
  TestTool* pTool = bar->tools().find(sTool);
  const bool bVisible = same_name(sProperty, "Visible");
  if (!bVisible && !same_name(sProperty, "Enabled")) return;
  bar_status_[std::to_string(key_id(sTool)) + (bVisible ? "V" : "E")] = flag_of(vValue);
  if (pTool != nullptr) pTool->set(bVisible ? Member::Visible : Member::Enabled, flag_of(vValue));
}

Variant TestBill::handle_window(Member member, Arguments args) {
  switch (member) {
    case Member::SetBarStatus:
      set_bar_status(plain_text(argument(args, 0)), plain_text(argument(args, 1)), argument(args, 2));
      return {};
    case Member::SetStatusPanel: panels_[row_of(argument(args, 0))] = plain_text(argument(args, 1)); return {};
    case Member::ShowBillByID: shown_bills.push_back(row_of(argument(args, 0))); return {};
    case Member::SetBatchFlag:
    case Member::BarRefresh: return {};
    case Member::ReloadAfterCheck:
      if (on_reload) on_reload();
      return {};
    default: no_such_member(member);
  }
}

Variant TestBill::handle_parts(Member member, Arguments args) {
  switch (member) {
    case Member::BillEntrys:
      if (args.empty()) return entries_;
      return make_entry(row_of(args[0]) + 1);
    case Member::BillCtl: return ctl_;
    case Member::ClassTypeEntry: return class_type_entry_;
    case Member::EditMode: return edit_mode;
    case Member::InterID: return inter_id;
    case Member::TransTypeID: return trans_type_id;
    case Member::BillTypeInfo: return bill_type_info;
    case Member::BillMapInfo: return map_info_;
    case Member::FilterObject: return filter_;
    case Member::DataServer: return server_;
    case Member::BarControl: return bar;
    case Member::BillForm: return form_;
    default: no_such_member(member);
  }
}

// --- the parts ------------------------------------------------------------------------------------------------------

void TestBill::make_parts() {
  ctl_ = make_object<PartObject>(
      "BillCtl", [this](Member member, Access access, Arguments args) { return handle_ctl(member, access, args); });
  form_ = make_object<PartObject>(
      "BillForm", [this](Member member, Access access, Arguments args) { return handle_form(member, access, args); });
  server_ = make_object<PartObject>("DataServer", [this](Member member, Access, Arguments args) -> Variant {
    if (member != Member::OpenQuery) return Missing{};
    return sql.run(argument(args, 0).text());
  });
  filter_ = make_object<PartObject>("FilterObject", [this](Member member, Access access, Arguments args) -> Variant {
    if (member != Member::Filter) return Missing{};
    const std::string sKey = plain_text(argument(args, 0));
    if (access != Access::Put) return filter_values->at(sKey);
    filter_values->set(sKey, argument(args, 1));
    return {};
  });
  entries_ = make_object<PartObject>("BillEntrys", [this](Member member, Access, Arguments args) -> Variant {
    if (member == Member::Item || member == Member::Default) return make_entry(row_of(argument(args, 0)));
    return member == Member::Count ? Variant(static_cast<std::int32_t>(bodies_.size() + 1)) : Missing{};
  });
}

Ref<Object> TestBill::make_entry(int nPage) {
  const auto nAt = static_cast<std::size_t>(nPage);
  if (nPage < 1 || nAt > bodies_.size() + 1) throw AutomationError(ErrorNumber::SubscriptOutOfRange, "BillEntrys");
  if (entry_.size() <= nAt) entry_.resize(nAt + 1);
  if (entry_[nAt]) return entry_[nAt];
  const Ref<Object> oFields =
      make_object<PartObject>("MDKFields", [this, nPage](Member member, Access, Arguments args) -> Variant {
        if (member != Member::Item && member != Member::Default) return Missing{};
        return screen_field(nPage, argument(args, 0));
      });
  entry_[nAt] =
      make_object<PartObject>("BillEntry", [this, nPage, oFields](Member member, Access, Arguments args) -> Variant {
        if (member == Member::KeyField) return nPage < 2 ? "" : key_fields_[static_cast<std::size_t>(nPage) - 2];
        if (member != Member::MDKFields) return Missing{};
        return args.empty() ? Variant(oFields) : screen_field(nPage, args[0]);
      });
  return entry_[nAt];
}

Variant TestBill::screen_field(int nPage, const Variant& vKey) {
  const KeyId id = key_id_of(vKey);
  TestFieldInfo* pInfo = info(id);
  if (pInfo == nullptr || pInfo->page != nPage) {
    throw AutomationError(ErrorNumber::SubscriptOutOfRange, plain_text(vKey));
  }
  Screen& oScreen = screens_[id];
  if (!oScreen.field) {
    oScreen.field = make_object<PartObject>("MDKFields(" + pInfo->label() + ")",
                                            [this, id](Member member, Access access, Arguments args) {
                                              return handle_screen_field(id, member, access, args);
                                            });
  }
  return oScreen.field;
}

Variant TestBill::handle_screen_field(KeyId id, Member member, Access access, Arguments args) {
  Screen& oScreen = screens_[id];
  const bool bPut = access == Access::Put;
  if (member == Member::Visible || member == Member::Locked) {
    bool& bFlag = member == Member::Visible ? oScreen.visible : oScreen.field_locked;
    if (!bPut) return Variant(bFlag);
    bFlag = flag_of(argument(args, 0));
    return {};
  }
  if (member != Member::Text || bPut) return Missing{};
  const TestFieldInfo* pInfo = info(id);
  const Variant vRecord = record_of(pInfo, -1);
  if (vRecord.is_nothing()) return "";
  return plain_text(static_cast<TestDictionary&>(*vRecord.object()).at(pInfo->is_look_up() ? "FDSP" : "FFLD"));
}

Variant TestBill::handle_ctl(Member member, Access, Arguments args) {
  switch (member) {
    case Member::BillStatus: return bill_status;
    case Member::SetLockProperty: screen(argument(args, 1)).column_locked = flag_of(args[0]); return {};
    case Member::LockCell: {
      Screen& oScreen = screen(argument(args, 0));
      const int nRow = row_of(argument(args, 1));
      if (nRow == -1) oScreen.locks.clear();
      oScreen.locks[nRow] = flag_of(argument(args, 2));
      return {};
    }
    case Member::DoAction: {
      const auto* pInfo = dynamic_cast<const TestFieldInfo*>(argument(args, 0).object().get());
      if (pInfo == nullptr) throw AutomationError(ErrorNumber::ObjectNotSet);
      run_actions(*pInfo, argument(args, 1), row_of(argument(args, 2)));
      return {};
    }
    default: return Missing{};
  }
}

Variant TestBill::handle_form(Member member, Access access, Arguments args) {
  switch (member) {
    case Member::MutexSuccess: return mutex_success;
    case Member::LockBill: bill_locked = true; return {};
    case Member::SaveBill: return on_save ? on_save() : save_succeeds;
    case Member::NotSave:
      if (access != Access::Put) return not_save;
      not_save = flag_of(argument(args, 0));
      return {};
    case Member::DoSelBillExt:
      if (on_select) on_select(argument(args, 0).object());
      return {};
    case Member::RefreshToolbar: return {};
    case Member::Data: return page(argument(args, 0));
    default: return Missing{};
  }
}

// --- the state of the screen ----------------------------------------------------------------------------------------

TestBill::Screen& TestBill::screen(const Variant& vInfo) {
  const auto* pInfo = dynamic_cast<const TestFieldInfo*>(vInfo.object().get());
  if (pInfo == nullptr) throw AutomationError(ErrorNumber::ObjectNotSet);
  return screens_[pInfo->id];
}

const TestBill::Screen* TestBill::known_screen(std::string_view sKey) const {
  const auto found = screens_.find(key_id(sKey));
  return found == screens_.end() ? nullptr : &found->second;
}

std::optional<bool> TestBill::bar_status(std::string_view sTool, std::string_view sProperty) const {
  const auto found = bar_status_.find(std::to_string(key_id(sTool)) + (same_name(sProperty, "Visible") ? "V" : "E"));
  return found == bar_status_.end() ? std::nullopt : std::optional(found->second);
}

bool TestBill::cell_locked(std::string_view sKey, int nRow) const {
  const Screen* pScreen = known_screen(sKey);
  if (pScreen == nullptr) return false;
  auto found = pScreen->locks.find(nRow);
  if (found == pScreen->locks.end()) found = pScreen->locks.find(-1);
  return found != pScreen->locks.end() && found->second;
}

bool TestBill::column_locked(std::string_view sKey) const {
  const Screen* pScreen = known_screen(sKey);
  return pScreen != nullptr && pScreen->column_locked;
}

bool TestBill::screen_field_locked(std::string_view sKey) const {
  const Screen* pScreen = known_screen(sKey);
  return pScreen != nullptr && pScreen->field_locked;
}

bool TestBill::visible(std::string_view sKey) const {
  const Screen* pScreen = known_screen(sKey);
  return pScreen == nullptr || pScreen->visible;
}

std::optional<int> TestBill::decimals(std::string_view sKey, int nRow) const {
  const Screen* pScreen = known_screen(sKey);
  if (pScreen == nullptr) return std::nullopt;
  auto found = pScreen->decimals.find(nRow);
  if (found == pScreen->decimals.end()) found = pScreen->decimals.find(-1);
  return found == pScreen->decimals.end() ? std::nullopt : std::optional(found->second);
}

std::string TestBill::shown(std::string_view sKey, int nRow) const {
  const Screen* pScreen = known_screen(sKey);
  if (pScreen == nullptr) return "";
  const auto found = pScreen->texts.find(nRow);
  return found == pScreen->texts.end() ? "" : found->second;
}

std::string TestBill::panel(int nPanel) const {
  const auto found = panels_.find(nPanel);
  return found == panels_.end() ? "" : found->second;
}

}  // namespace arap::testing
