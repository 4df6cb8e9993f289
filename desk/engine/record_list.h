#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "data/database.h"
#include "engine/bars.h"
#include "engine/host.h"
#include "frame/event_binding.h"

namespace desk {

/// What a list of records shows: one line a record, each with the id column.
struct RecordListContent {
  std::int32_t nClassType = 0;
  std::string sCaption;
  std::string sPluginClass;  // "clsInvoice"
  std::string sIdColumn;
  std::string sSql;
  Binds binds;
};

/// A list of records that the desk keeps without a template of its own: invoices, opening balances. Without a window;
/// towards the plug-in it is the "ListEvents" object. It is opened by its owner, see OpenRecordList.
class RecordList final : public arap::Object {
 public:
  /// The database outlives the list.
  RecordList(Database& database, RecordListContent content);

  // --- the user ---------------------------------------------------------------------------------------------------

  /// Reads the lines anew; nothing is selected afterwards.
  void refresh();
  /// Selects lines by their 0-based place, in this order. Raises 9 for a place that isn't there.
  void select_lines(std::vector<std::size_t> aLines);
  /// Presses a command of the bar on the selection.
  Outcome press(std::string_view sTool);
  /// Lets the plug-in go.
  void close();

  // --- what can be seen -------------------------------------------------------------------------------------------

  const RecordListContent& content() const { return content_; }
  /// Amounts as the book stores them.
  const Rows& lines() const { return lines_; }
  const std::vector<std::size_t>& selection() const { return selection_; }
  Bar& bar() { return *bar_; }
  bool closed() const { return closed_; }

  // --- the plug-in ------------------------------------------------------------------------------------------------

  std::string type_name() const override { return "ListEvents"; }
  arap::Variant invoke(arap::Member member, arap::Access access, arap::Arguments args) override;
  arap::EventSource* event_source() override { return &events_; }

 private:
  friend class OpenRecordList;

  void open(const arap::Ref<arap::Object>& oPlugin);
  void build_bar();
  void fire(arap::Event event, arap::Arguments args);
  arap::Ref<arap::Object> selected_rows() const;

  Database& database_;
  RecordListContent content_;
  Rows lines_;
  std::vector<std::size_t> selection_;
  arap::EventSourceList events_;
  arap::Ref<arap::Object> plugin_;
  arap::Ref<Bar> bar_;
  bool closed_ = false;
};

/// A list of records with a plug-in behind it, owned: list and plug-in hold each other until the owner closes it.
class OpenRecordList {
 public:
  /// No list.
  OpenRecordList() = default;
  /// Binds the plug-in by its Show, builds the bar and reads the lines. An error of the plug-in passes on.
  OpenRecordList(Database& database, RecordListContent content, const arap::Ref<arap::Object>& oPlugin);
  ~OpenRecordList() { reset(); }
  OpenRecordList(OpenRecordList&& other) noexcept { std::swap(list_, other.list_); }
  OpenRecordList& operator=(OpenRecordList&& other) noexcept;
  OpenRecordList(const OpenRecordList&) = delete;
  OpenRecordList& operator=(const OpenRecordList&) = delete;

  /// Closes the list, if there is one.
  void reset() noexcept;

  explicit operator bool() const { return static_cast<bool>(list_); }
  RecordList* get() const { return list_.get(); }
  RecordList* operator->() const { return list_.get(); }

 private:
  arap::Ref<RecordList> list_;
};

/// Opens a list with the plug-in's own class behind it.
OpenRecordList open_record_list(Database& database, RecordListContent content);

}  // namespace desk
