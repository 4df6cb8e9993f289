#pragma once

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "data/database.h"
#include "engine/bars.h"
#include "engine/bill_template.h"
#include "engine/host.h"
#include "frame/event_binding.h"

namespace desk {

/// What a list is opened for: the number is the ShowMode that the plug-in reads.
enum class ListMode : std::int32_t { Manage = 0, Selection = 3 };

/// A list of bills without a window: one line an entry, so that a bill of several entries has several lines that follow
/// each other. Towards the plug-in it is the "ListEvents" object; views, the command line and tests use the members
/// below. It is opened by its owner, see OpenListWindow.
class ListWindow final : public arap::Object {
 public:
  /// The database outlives the window.
  ListWindow(Database& database, std::shared_ptr<const BillTemplate> bill, ListMode mode);

  // --- the user ---------------------------------------------------------------------------------------------------

  /// Reads the lines anew; nothing is selected afterwards.
  void refresh();
  void select_all();
  /// Selects every line of these bills, in the order of the list.
  void select_bills(const std::vector<std::int32_t>& aBills);
  /// Selects lines by their 0-based place, in this order. Raises 9 for a place that isn't there.
  void select_lines(std::vector<std::size_t> aLines);
  /// Presses a command of the bar on the selection.
  Outcome press(std::string_view sTool);
  /// Lets the plug-in go.
  void close();

  // --- what can be seen -------------------------------------------------------------------------------------------

  const Rows& lines() const { return lines_; }
  const std::vector<std::size_t>& selection() const { return selection_; }
  Bar& bar() { return *bar_; }
  std::int32_t refreshes() const { return refreshes_; }
  bool closed() const { return closed_; }

  // --- the plug-in ------------------------------------------------------------------------------------------------

  std::string type_name() const override { return "ListEvents"; }
  arap::Variant invoke(arap::Member member, arap::Access access, arap::Arguments args) override;
  arap::EventSource* event_source() override { return &events_; }

 private:
  friend class OpenListWindow;
  friend class ListFormObject;
  friend class ListServerObject;

  void open(const arap::Ref<arap::Object>& oPlugin);
  void build_bar();
  void fire(arap::Event event, arap::Arguments args);
  Outcome run_host_command(const BarTool& tool);
  arap::Ref<arap::Object> selected_rows() const;
  std::string columns_of(std::int32_t nPage, std::initializer_list<std::string_view> aColumns) const;
  std::string from_bills() const;
  /// The entries of one bill with the head's status, date, voucher and settled amount.
  Rows bill_detail(std::int32_t nBillID);

  Database& database_;
  std::shared_ptr<const BillTemplate> template_;
  ListMode mode_;
  Rows lines_;
  std::vector<std::size_t> selection_;
  arap::EventSourceList events_;
  arap::Ref<arap::Object> plugin_;
  arap::Ref<Bar> bar_;
  std::int32_t refreshes_ = 0;
  bool closed_ = false;
};

/// A list window with a plug-in behind it, owned: window and plug-in hold each other until the owner closes it.
class OpenListWindow {
 public:
  /// No window.
  OpenListWindow() = default;
  /// Binds the plug-in by its Show, builds the bar and reads the lines. An error of the plug-in passes on.
  OpenListWindow(Database& database, std::shared_ptr<const BillTemplate> bill, ListMode mode,
                 const arap::Ref<arap::Object>& oPlugin);
  ~OpenListWindow() { reset(); }
  OpenListWindow(OpenListWindow&& other) noexcept { std::swap(window_, other.window_); }
  OpenListWindow& operator=(OpenListWindow&& other) noexcept;
  OpenListWindow(const OpenListWindow&) = delete;
  OpenListWindow& operator=(const OpenListWindow&) = delete;

  /// Closes the window, if there is one.
  void reset() noexcept;

  explicit operator bool() const { return static_cast<bool>(window_); }
  ListWindow* get() const { return window_.get(); }
  ListWindow* operator->() const { return window_.get(); }

 private:
  arap::Ref<ListWindow> window_;
};

/// Opens the list of a shipped template's bills with the plug-in's own class behind it.
OpenListWindow open_list_window(Database& database, std::shared_ptr<const BillTemplate> bill,
                                ListMode mode = ListMode::Manage);

}  // namespace desk
