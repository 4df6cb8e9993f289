#pragma once

#include "engine/list_window.h"
#include "windows/lines_view.h"
#include "windows/plugin_room.h"

namespace desk {

/// The list of a class of bills with the plug-in behind it: its commands on one bill or on many, a line an entry.
class BillListView final : public PluginRoom {
  Q_OBJECT
 public:
  /// `sTemplate` is one of the shipped templates: "receipt", "payment" ...
  BillListView(DeskSeat& seat, const std::string& sTemplate, QWidget* pParent);
  ~BillListView() override;

  void retranslate() override;
  void open_current() override;
  QTableView& table() override { return view_->table(); }
  QString status() const override;

  LinesView& lines() { return *view_; }
  ListWindow& window() { return *window_.get(); }

 protected:
  PluginWindow& plugin_window() override { return *window_; }
  void show_window() override { view_->show_lines(window_->lines()); }
  Outcome run_command(const std::string& sTool) override;
  void run_desk_command(const std::string& sTool) override;

 private:
  int selected_bills() const;

  std::string template_;
  OpenListWindow window_;
  LinesView* view_;
};

}  // namespace desk
