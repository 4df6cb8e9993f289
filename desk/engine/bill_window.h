#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "engine/bars.h"
#include "engine/bill_data.h"
#include "engine/bill_template.h"
#include "engine/containers.h"
#include "engine/host.h"
#include "engine/look_ups.h"
#include "engine/open_window.h"
#include "frame/event_binding.h"

namespace desk {

/// The definition of a field as the plug-in sees it; handlers write FFilter and FRefresh into it.
class FieldDefinition final : public HostDictionary {
 public:
  FieldDefinition(const BillTemplate& bill, std::size_t nField);
  std::string type_name() const override { return "FieldInfo"; }
  std::size_t field() const { return field_; }
  /// The extra look-up filter of the last BeginEdit.
  std::string filter() const;

 private:
  std::size_t field_;
};

/// What the screen knows of a field, apart from its values.
struct FieldState {
  bool bPropertyLock = false;  // SetLockProperty
  bool bCellLock = false;      // LockCell on the head cell or on all rows
  bool bScreenLock = false;    // the lock flag of the screen field
  bool bVisible = true;
  int nDecimals = 0;
};

/// Read only, new, modify.
enum class EditMode : std::int32_t { ReadOnly = 0, New = 1, Modify = 2 };

/// A bill window without a window: the data of one bill, its bars and locks, and the events that the plug-in lives on.
/// Towards the plug-in it is the "BillEvent" object; the desk's views, the command line and tests use the members
/// below. Rows are 1-based, row -1 (or 0) addresses a head field. It is opened by its owner, see OpenBillWindow.
class BillWindow final : public arap::Object {
 public:
  BillWindow(Host host, std::shared_ptr<const BillTemplate> bill);
  ~BillWindow() override;

  // --- the life of the window -------------------------------------------------------------------------------------

  void new_bill();
  /// False when there is no such bill. Without the edit lock, or when bReadOnly, the bill can only be read.
  bool load_bill(std::int32_t nBillID, bool bReadOnly = false);
  bool load_number(const std::string& sBillNo);
  Outcome save();
  /// Lets the plug-in and the edit lock go. Raises DeskError when the lock can't be given back; the window is closed
  /// then.
  void close();

  // --- the user ---------------------------------------------------------------------------------------------------

  /// Types into a field and leaves it.
  Outcome type_field(std::string_view sKey, std::int32_t nRow, std::string_view sText);
  /// Puts the focus on a cell.
  void focus(std::string_view sKey, std::int32_t nRow);
  /// Presses a command of the bars.
  Outcome press(std::string_view sTool);
  /// What the list of a look-up field offers now.
  std::vector<LookUpItem> choices(std::string_view sKey);

  // --- what can be seen -------------------------------------------------------------------------------------------

  const BillTemplate& bill() const { return *template_; }
  Bar& bar() { return *bar_; }
  BodyPage& body() { return *body_; }
  EditMode edit_mode() const { return mode_; }
  std::int32_t bill_id() const { return bill_id_; }
  bool closed() const { return closed_; }
  bool has_changes() const;
  /// The stored value; Empty for a cell that isn't there.
  Value value(std::string_view sKey, std::int32_t nRow = -1) const;
  /// As the cell shows it: the name of a look-up field, amounts with their decimals.
  std::string shown(std::string_view sKey, std::int32_t nRow = -1) const;
  std::string code(std::string_view sKey, std::int32_t nRow = -1) const;
  bool locked(std::string_view sKey, std::int32_t nRow = -1) const;
  /// Why the cell can't be edited; "" when it can.
  std::string lock_reason(std::string_view sKey, std::int32_t nRow = -1) const;
  const FieldState& state(std::string_view sKey) const;
  int decimals(std::size_t nField, const DataRow* pRow) const;
  std::string status_panel(std::int32_t nPanel) const;
  /// A value of the window's filter object, which the plug-in reads.
  void set_filter(std::string_view sKey, const arap::Variant& vValue) { filters_->set(sKey, vValue); }
  void set_chooser(SourceChooser chooser) { host_.choose_sources = std::move(chooser); }

  // --- the plug-in ------------------------------------------------------------------------------------------------

  std::string type_name() const override { return "BillEvent"; }
  arap::Variant invoke(arap::Member member, arap::Access access, arap::Arguments args) override;
  arap::EventSource* event_source() override { return &events_; }

 private:
  friend class OpenWindow<BillWindow>;
  friend class BillFormObject;
  friend class BillCtlObject;
  friend class ScreenFieldObject;
  friend class EntryObject;

  // bill_window.cpp
  void open(const arap::Ref<arap::Object>& oPlugin);
  void build_bar();
  void reset_data();
  void reset_screen();
  void fill_look_ups(DataRow& row);
  Value default_value(const TemplateField& field) const;
  void give_lock();
  void show_loaded(std::int32_t nBillID, bool bReadOnly);
  /// nullptr for a cell that isn't there.
  DataRow* row_of(std::size_t nField, std::int32_t nRow) const;

  // bill_window_events.cpp
  void fire(arap::Event event, arap::Arguments args);
  void fire(arap::Event event) { fire(event, arap::Arguments()); }
  /// Fires with one more argument, Cancel, and answers it.
  bool fire_cancelled(arap::Event event, std::vector<arap::Variant> aArgs);
  bool save_bill();
  bool store_bill();
  bool refuses_save();
  void refuse_lost_lock() const;

  // bill_window_calls.cpp
  arap::Variant dispatch(arap::Member member, arap::Access access, arap::Arguments args);
  arap::Variant field_call(arap::Member member, arap::Arguments args);
  arap::Variant state_of_bill(arap::Member member, arap::Arguments args);
  arap::Variant bar_call(arap::Member member, arap::Arguments args);
  arap::Variant data(arap::Arguments args) const;
  arap::Variant definition(const arap::Variant& vKey) const;
  arap::Variant record(std::size_t nField, std::int32_t nRow) const;
  std::size_t field_of(const arap::Variant& vDefinition) const;
  void set_bar_status(arap::Arguments args);
  void set_decimals(std::size_t nField, std::int32_t nRow, int nDecimals);
  void answer_active_cell(arap::Arguments args) const;
  arap::Ref<arap::Object> map_info() const;
  arap::Ref<arap::Object> page_list() const;
  void delete_rows(std::int32_t nPage);

  // field_entry.cpp
  struct Entry {
    Value vValue;
    Value vDisplay;
    Value vCode;
  };
  Outcome enter(std::size_t nField, std::int32_t nRow, std::string_view sText);
  Outcome read_entry(std::size_t nField, std::string_view sText, Entry& entry);
  Outcome read_look_up(std::size_t nField, std::string_view sText, Entry& entry);
  /// Writes an entry and fires Change unless the value is the same; false when the plug-in cancelled it.
  bool put_entry(std::size_t nField, std::int32_t nRow, DataRow& row, Entry entry);
  void set_text(std::size_t nField, const arap::Variant& vText, std::int32_t nRow);
  void set_field_value(std::size_t nField, const arap::Variant& vValue, std::int32_t nRow);
  void run_actions(std::size_t nField, DataRow& row);
  void lock_cell(std::size_t nField, std::int32_t nRow, bool bLock);
  void lock_property(std::size_t nField, bool bLock);
  std::string reason_of_lock(std::size_t nField, std::int32_t nRow) const;

  // bill_commands.cpp
  Outcome run_host_command(BarTool& tool);
  Outcome go_to_neighbour(RecordStore::Direction direction);
  Outcome delete_bill();
  Outcome delete_active_row();

  // source_selection.cpp
  Outcome select_sources(std::int32_t nType);
  Rows read_sources(const SelectionSource& source, const std::string& sFilter, const arap::Object& oQuery);
  void append_sources(const Rows& rows, const std::vector<std::size_t>& aChosen);
  void fill_chosen(const Rows& rows, const std::vector<std::size_t>& aChosen);

  Host host_;
  std::shared_ptr<const BillTemplate> template_;
  std::unique_ptr<RecordStore> store_;
  arap::Ref<arap::Object> map_info_;  // made when it is first asked for
  LookUps look_ups_;
  arap::EventSourceList events_;
  arap::Ref<arap::Object> plugin_;

  arap::Ref<Bar> bar_;
  arap::Ref<HostDictionary> root_;
  arap::Ref<DataRow> head_;
  arap::Ref<BodyPage> body_;
  arap::Ref<HostDictionary> filters_;
  std::vector<arap::Ref<FieldDefinition>> definitions_;
  std::vector<FieldState> states_;
  std::vector<bool> page_locks_;
  std::vector<std::pair<const DataRow*, std::size_t>> changing_;  // cells whose Change is being fired
  std::map<std::int32_t, std::string> panels_;

  EditMode mode_ = EditMode::ReadOnly;
  std::int32_t bill_id_ = 0;
  std::size_t active_field_ = BillTemplate::kNone;
  std::int32_t active_row_ = 0;
  bool edit_lock_ = false;
  bool bill_locked_ = false;
  bool not_save_ = false;
  bool batch_ = false;
  bool closed_ = false;
  std::string save_reason_;
};

using OpenBillWindow = OpenWindow<BillWindow>;

OpenBillWindow open_bill_window(Host host, std::shared_ptr<const BillTemplate> bill,
                                const arap::Ref<arap::Object>& oPlugin);
/// Opens a window for a shipped template with the plug-in's own class behind it.
OpenBillWindow open_bill_window(Host host, std::shared_ptr<const BillTemplate> bill);

}  // namespace desk
