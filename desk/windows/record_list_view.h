#pragma once

#include <vector>

#include "engine/record_list.h"
#include "windows/lines_view.h"
#include "windows/plugin_room.h"

class QTabBar;

namespace desk {

/// What a room of records offers: lists of the same columns, of which one is shown.
struct RecordRoom {
  std::vector<RecordListContent> lists;
  std::vector<ListColumn> columns;
};

/// The invoices, class by class; the opening balances, side by side.
RecordRoom invoice_room();
RecordRoom opening_room();

/// A room of records with the plug-in behind the list that is shown; each list has a plug-in of its own.
class RecordListView final : public PluginRoom {
  Q_OBJECT
 public:
  RecordListView(DeskSeat& seat, RecordRoom room, QWidget* pParent);
  ~RecordListView() override;

  void retranslate() override;
  /// Shows the bill behind the current line, where the plug-in has a command for it.
  void open_current() override;
  QTableView& table() override { return view_->table(); }
  QString status() const override;

  /// Shows another one of the lists.
  void show_list(int nList);
  QTabBar& lists() { return *lists_; }
  LinesView& lines() { return *view_; }
  RecordList& window() { return *window_.get(); }

 protected:
  PluginWindow& plugin_window() override { return *window_; }
  void show_window() override { view_->show_lines(window_->lines()); }
  Outcome run_command(const std::string& sTool) override;
  void run_desk_command(const std::string& sTool) override;

 private:
  void build_lists();

  RecordRoom room_;
  OpenRecordList window_;
  QTabBar* lists_;
  LinesView* view_;
};

}  // namespace desk
