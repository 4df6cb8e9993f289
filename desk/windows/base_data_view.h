#pragma once

#include <functional>
#include <vector>

#include "engine/base_window.h"
#include "windows/lines_view.h"
#include "windows/plugin_room.h"

class QTreeWidget;
class QTreeWidgetItem;

namespace desk {

/// A room of base data with the plug-in behind it: the tree on the left, the records under the selected node on the
/// right. Whether the tree or the grid is the window's active control follows the focus. A record is edited in a small
/// window.
class BaseDataView final : public PluginRoom {
  Q_OBJECT
 public:
  BaseDataView(DeskSeat& seat, OpenBaseWindow window, QWidget* pParent);
  ~BaseDataView() override;

  void retranslate() override;
  /// Modifies the current record, where the plug-in has the command.
  void open_current() override;
  QTableView& table() override { return grid_->table(); }
  QWidget& first_focus() override;
  QString status() const override;

  QTreeWidget& tree() { return *tree_; }
  LinesView& grid() { return *grid_; }
  BaseWindow& window() { return *window_.get(); }

 protected:
  PluginWindow& plugin_window() override { return *window_; }
  void show_window() override;
  void run_desk_command(const std::string& sTool) override;
  bool eventFilter(QObject* pWatched, QEvent* pEvent) override;

 private:
  void build_tree();
  void build_nodes();
  void show_tree();
  void select_node(QTreeWidgetItem* pItem);
  void choose_current_line();
  void show_bill();
  bool may_delete(const BaseItem& item);

  OpenBaseWindow window_;
  QTreeWidget* tree_;
  LinesView* grid_;
  std::vector<BaseItem> shown_nodes_;
  Rows rows_;
  bool showing_ = false;
};

}  // namespace desk
