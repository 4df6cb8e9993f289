#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "frame/event_binding.h"
#include "support/test_bar.h"

namespace arap::testing {

/// The definition of a field of the template.
class TestFieldInfo final : public TestDictionary {
 public:
  TestFieldInfo(std::string sKey, int nPage, Variant vDefault);
  const KeyId id;
  const int page;       // 1 is the head
  const Variant blank;  // the value of the field in a new record
  bool is_look_up() const;
};

/// Fires an event with these values and answers them as they came back.
std::vector<Variant> FireEvent(EventSourceList& source, Event event, std::vector<Variant> aArgs);

/// The host's bill window: template, data, screen state and operations. Rows are 1-based, -1 is the head; entry 1 is
/// Page2. Keys compare without regard to case.
class TestBill final : public HostObject {
 public:
  explicit TestBill(int nBodies = 1, Ref<TestBar> oBar = TestBar::of_bill_window());
  std::string type_name() const override { return "BillEvent"; }
  EventSource* event_source() override { return &events; }

  EventSourceList events;
  Ref<TestBar> bar;

  // --- template ---
  TestFieldInfo& define(std::string_view sKey, int nPage, Variant vBlank = "");
  /// A look-up through a table (FSourceType 1).
  TestFieldInfo& define_look_up(std::string_view sKey, int nPage, std::string_view sTable, std::string_view sColumn,
                                std::int32_t nClassTypeID = 0);
  /// Key field of entry n: what marks a row as used.
  void set_key_field(std::string_view sKey, int nEntry = 1);
  /// nullptr for an unknown key.
  TestFieldInfo* info(KeyId id) const;
  TestFieldInfo* info(std::string_view sKey) const { return info(key_id(sKey)); }
  /// An action that DoAction runs on the field, and the text that AfterDoAction gets. Row -1 for the head.
  using Action = std::function<void(TestBill& oBill, int nRow)>;
  void add_action(std::string_view sKey, std::string sText, Action action);
  bool runs_actions = true;

  // --- data ---
  TestDictionary& data() { return *data_; }
  /// Sets the stored value of a head field (defines it when the template lacks it), and its display and code.
  TestBill& head(std::string_view sKey, Variant vValue);
  TestBill& head(std::string_view sKey, Variant vValue, std::string_view sDisplay, std::string_view sCode);
  /// The stored value; raises 9 where there is no record.
  const Variant& value(std::string_view sKey, int nRow = -1) const;
  double number(std::string_view sKey, int nRow = -1) const { return plain_number(value(sKey, nRow)); }
  std::string text(std::string_view sKey, int nRow = -1) const { return plain_text(value(sKey, nRow)); }
  /// FModify of a record.
  int modified(std::string_view sKey, int nRow = -1) const;
  TestDictionary& record(std::string_view sKey, int nRow = -1) const;
  bool has_record(std::string_view sKey, int nRow = -1) const;
  void set_value(std::string_view sKey, int nRow, Variant vValue) { record(sKey, nRow).set("FFLD", vValue); }
  /// Appends a row with a record of every body field, blank but for these values. Answers its number.
  int add_row(Pairs aValues = {}, int nEntry = 1);
  void remove_rows(int nEntry = 1) { rows(nEntry).items.clear(); }
  TestVector& rows(int nEntry = 1) const;
  int row_count(int nEntry = 1) const { return static_cast<int>(rows(nEntry).items.size()); }

  // --- what the host answers ---
  std::int32_t edit_mode = 1;
  std::int32_t inter_id = 0;
  std::int32_t trans_type_id = 0;
  std::int32_t bill_status = 1;
  bool mutex_success = true;
  bool save_succeeds = true;
  std::function<bool()> on_save;    // instead of save_succeeds: e.g. fires BeforeSave
  std::function<void()> on_reload;  // ReloadAfterCheck: e.g. fires AfterLoadBill
  std::function<void(const Ref<Object>& oTool)> on_select;
  bool set_text_fires_change = false;
  bool set_text_stores = true;  // false: SetText reaches the screen alone
  SqlScript sql;                // DataServer.OpenQuery
  Ref<TestDictionary> bill_type_info;
  Ref<TestDictionary> bill_map;       // BillMapInfo.Value("Map")
  Ref<TestDictionary> filter_values;  // FilterObject.Filter(key)
  /// The cell that has the focus; "" for none.
  void set_active_cell(std::string_view sKey, int nRow = -1);

  // --- what was done to the screen ---
  /// SetBarStatus of a tool, property in any case; nothing when it was never set.
  std::optional<bool> bar_status(std::string_view sTool, std::string_view sProperty) const;
  bool cell_locked(std::string_view sKey, int nRow = -1) const;  // LockCell, LockRowCell
  bool column_locked(std::string_view sKey) const;               // SetLockProperty
  bool screen_field_locked(std::string_view sKey) const;         // the screen field's own flag
  bool visible(std::string_view sKey) const;                     // MDKFields(key).Visible
  std::optional<int> decimals(std::string_view sKey, int nRow = -1) const;
  std::string shown(std::string_view sKey, int nRow = -1) const;  // the last SetText; "" before
  std::string panel(int nPanel) const;
  bool bill_locked = false;
  bool not_save = false;
  std::vector<std::int32_t> shown_bills;  // ShowBillByID

  // --- events ---
  std::vector<Variant> fire(Event event, std::vector<Variant> aArgs = {});
  /// Cancel is added behind the arguments; answers what it became.
  bool fire_cancelable(Event event, std::vector<Variant> aArgs = {});
  /// The user enters a value: FOLD and FFLD are set, FModify is 1, Change fires. Answers Cancel.
  bool change(std::string_view sKey, int nRow, Variant vValue);
  bool click(std::string_view sTool);
  bool save() { return fire_cancelable(Event::BeforeSave); }

 private:
  struct Screen {  // of one field
    std::map<int, bool> locks;
    std::map<int, int> decimals;
    std::map<int, std::string> texts;
    bool column_locked = false;
    bool field_locked = false;
    bool visible = true;
    Ref<PartObject> field;
  };
  Variant handle(Member member, Access access, Arguments args) override;
  bool is_read(Member member, Access access) const override;
  Variant handle_data(Member member, Arguments args);
  Variant handle_screen(Member member, Arguments args);
  Variant handle_window(Member member, Arguments args);
  Variant handle_parts(Member member, Arguments args);
  Variant handle_ctl(Member member, Access access, Arguments args);
  Variant handle_form(Member member, Access access, Arguments args);
  Variant handle_screen_field(KeyId id, Member member, Access access, Arguments args);
  void make_parts();
  Ref<Object> make_entry(int nPage);
  Variant screen_field(int nPage, const Variant& vKey);

  Variant page(const Variant& vName) const;
  Variant record_of(const TestFieldInfo* pInfo, int nRow) const;
  Variant record_of(const Variant& vInfo, const Variant& vRow) const;
  Ref<TestDictionary> new_record(const TestFieldInfo& info, int nRow) const;
  void enter_text(const Variant& vInfo, const Variant& vText, int nRow);
  void set_bar_status(const std::string& sTool, const std::string& sProperty, const Variant& vValue);
  void run_actions(const TestFieldInfo& info, const Variant& vRecord, int nRow);
  Screen& screen(const Variant& vInfo);
  const Screen* known_screen(std::string_view sKey) const;

  std::vector<Ref<TestFieldInfo>> infos_;  // by key id
  std::vector<TestFieldInfo*> ordered_;
  std::map<KeyId, std::vector<std::pair<std::string, Action>>> actions_;
  Ref<TestDictionary> data_;
  Ref<TestDictionary> page1_;
  std::vector<Ref<TestVector>> bodies_;
  std::vector<std::string> key_fields_;
  std::map<KeyId, Screen> screens_;
  std::map<std::string, bool> bar_status_;
  std::map<int, std::string> panels_;
  TestFieldInfo* active_info_ = nullptr;
  int active_row_ = 0;
  Ref<TestDictionary> map_info_;
  Ref<TestVector> class_type_entry_;
  Ref<Object> ctl_, form_, server_, filter_, entries_;
  std::vector<Ref<Object>> entry_;  // by page
};

}  // namespace arap::testing
