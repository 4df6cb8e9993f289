#include "windows/base_data_view.h"

#include <QEvent>
#include <QFocusEvent>
#include <QHeaderView>
#include <QLineEdit>
#include <QScopedValueRollback>
#include <QSplitter>
#include <QTableView>
#include <QTreeWidget>

#include <map>
#include <set>

#include "frame/conversions.h"
#include "frame/messages.h"
#include "windows/captions.h"
#include "windows/csv_export.h"
#include "windows/qt_text.h"
#include "windows/record_dialog.h"
#include "windows/states.h"

namespace desk {

namespace {

constexpr int kIdRole = Qt::UserRole;
constexpr int kTreeWidth = 300;

constexpr Shortcut kBaseShortcuts[] = {
    {"mnuFileNewItem", "Ctrl+N; Ins"}, {"mnuEditDel", "Del"},      {"mnuEditUnuse", "F4"},
    {"mnuEditUse", "Shift+F4"},        {"mnuDataFind", "Ctrl+F"},  {"mnuExportData", "F11"},
    {"mnuHelpDetail", "F1"},           {"mnuFilePrint", "Ctrl+P"}, {"mnuFileExit", "Ctrl+W"},
};

std::vector<ListColumn> record_columns() {
  return {{"FNumber", "代码"}, {"FName", "名称"}, {"FLevels", "级次"}, {"FKind", "明细"}, {"FState", "状态"}};
}

Rows rows_of(const std::vector<BaseItem>& items) {
  static const auto kColumns =
      std::make_shared<const Rows::Columns>(Rows::Columns{"FID", "FNumber", "FName", "FLevels", "FKind", "FState"});
  std::vector<Value> cells;
  for (const BaseItem& item : items) {
    for (Value vCell :
         {Value(item.nID), Value(item.sNumber), Value(item.sName), Value(item.nLevel),
          Value(utf8(words(item.bLeaf ? "是" : "否"))), Value(utf8(words(item.bDiscontinued ? "已禁用" : "使用中")))})
      cells.push_back(std::move(vCell));
  }
  return {kColumns, std::move(cells)};
}

QString node_text(const BaseItem& item) {
  const QString sText = qt(item.sNumber) + QStringLiteral(" ") + qt(item.sName);
  return item.bDiscontinued ? sText + QStringLiteral(" (") + words("已禁用") + QStringLiteral(")") : sText;
}

std::int32_t id_of(const QTreeWidgetItem* pItem) { return pItem->data(0, kIdRole).toInt(); }

}  // namespace

BaseDataView::BaseDataView(DeskSeat& seat, OpenBaseWindow window, QWidget* pParent)
    : PluginRoom(seat, kBaseShortcuts, pParent),
      window_(std::move(window)),
      tree_(new QTreeWidget(this)),
      grid_(new LinesView(record_columns(), this, "FID")) {
  window_->ask_before_delete([this](const BaseItem& item) { return may_delete(item); });
  auto* pSplitter = new QSplitter(this);
  pSplitter->addWidget(tree_);
  pSplitter->addWidget(grid_);
  pSplitter->setStretchFactor(1, 1);
  pSplitter->setSizes({kTreeWidth, 3 * kTreeWidth});
  build(*pSplitter);
  build_tree();
  grid_->table().installEventFilter(this);
  connect(grid_, &LinesView::activated, this, &BaseDataView::open_current);
  connect(grid_, &LinesView::selection_changed, this, &BaseDataView::choose_current_line);
  show_window();
  set_stale(false);
}

BaseDataView::~BaseDataView() = default;

void BaseDataView::build_tree() {
  tree_->setObjectName(QStringLiteral("tree"));
  tree_->setHeaderHidden(true);
  tree_->setUniformRowHeights(true);
  tree_->installEventFilter(this);
  connect(tree_, &QTreeWidget::currentItemChanged, this, &BaseDataView::select_node);
  connect(tree_, &QTreeWidget::itemActivated, this, [this] { grid_->table().setFocus(Qt::TabFocusReason); });
}

void BaseDataView::build_nodes() {
  std::set<std::int32_t> folded;
  for (QTreeWidgetItemIterator each(tree_); *each != nullptr; ++each) {
    if ((*each)->childCount() > 0 && !(*each)->isExpanded()) folded.insert(id_of(*each));
  }
  shown_nodes_ = window_->nodes();
  tree_->clear();
  std::map<std::int32_t, QTreeWidgetItem*> items;
  const auto add = [&items](std::int32_t nID, const QString& sText) {
    auto* pItem = new QTreeWidgetItem({sText});
    pItem->setData(0, kIdRole, nID);
    return items[nID] = pItem;
  };
  QTreeWidgetItem* pRoot = add(window_->root(), qt(window_->root_name()));
  tree_->addTopLevelItem(pRoot);
  for (const BaseItem& node : shown_nodes_) {
    QTreeWidgetItem* pItem = add(node.nID, node_text(node));
    if (node.bDiscontinued) pItem->setForeground(0, disabled_colour());
  }
  for (const BaseItem& node : shown_nodes_) {
    const auto above = items.find(node.nParent);
    (above == items.end() ? pRoot : above->second)->addChild(items[node.nID]);
  }
  for (const auto& [nID, pItem] : items) pItem->setExpanded(!folded.contains(nID));
}

/// The tree is built again only when a node came, went or changed. What the user has folded stays so.
void BaseDataView::show_tree() {
  if (tree_->topLevelItemCount() == 0 || shown_nodes_ != window_->nodes()) build_nodes();
  for (QTreeWidgetItemIterator each(tree_); *each != nullptr; ++each) {
    if (id_of(*each) == window_->selected_node()) tree_->setCurrentItem(*each);
  }
}

void BaseDataView::show_window() {
  {
    const QScopedValueRollback showing(showing_, true);
    show_tree();
    rows_ = rows_of(window_->grid());
    grid_->show_lines(rows_);
    grid_->widen_columns();
    // While the tree is the active control, no record is current.
    if (window_->current_item() == 0 && window_->active() != BaseControl::Grid) grid_->forget_current();
  }
  if (window_->active() == BaseControl::Grid) choose_current_line();
  bars().refresh();
}

void BaseDataView::select_node(QTreeWidgetItem* pItem) {
  if (showing_ || pItem == nullptr || id_of(pItem) == window_->selected_node()) return;
  run(pItem->text(0), [this, nNode = id_of(pItem)] {
    return window_->select_node(nNode) ? Outcome::done() : Outcome::refused(utf8(words("资料已不存在，请刷新。")));
  });
  show_window();
  Q_EMIT status_changed();
}

void BaseDataView::choose_current_line() {
  if (showing_) return;
  if (const auto nLine = grid_->current_line(); nLine && *nLine < rows_.size())
    window_->select_item(rows_.integer(*nLine, "FID"));
  Q_EMIT status_changed();
}

QWidget& BaseDataView::first_focus() { return *tree_; }

bool BaseDataView::eventFilter(QObject* pWatched, QEvent* pEvent) {
  if (pEvent->type() == QEvent::FocusIn && pWatched == tree_) window_->focus(BaseControl::Tree);
  if (pEvent->type() == QEvent::FocusIn && pWatched == &grid_->table()) {
    window_->focus(BaseControl::Grid);
    if (!grid_->current_line()) grid_->table().selectRow(0);
  }
  return PluginRoom::eventFilter(pWatched, pEvent);
}

void BaseDataView::open_current() {
  const BarTool* pTool = window_->bar().find_tool("mnuEditModify");
  if (pTool != nullptr && pTool->usable()) press("mnuEditModify");
}

void BaseDataView::run_desk_command(const std::string& sTool) {
  if (arap::EqualsNoCase(sTool, "mnuFileNewItem") || arap::EqualsNoCase(sTool, "mnuEditModify")) {
    show_bill();
  } else if (arap::EqualsNoCase(sTool, "mnuDataFind")) {
    grid_->filter().setFocus(Qt::ShortcutFocusReason);
  } else if (arap::EqualsNoCase(sTool, "mnuExportData")) {
    ask_and_export_csv(grid_->model(), windowTitle(), this);
  } else {
    // The bar of base data has a name of its own for the preview.
    PluginRoom::run_desk_command(arap::EqualsNoCase(sTool, "mnuFilePrintPreview") ? "mnuFilePreview" : sTool);
  }
}

void BaseDataView::show_bill() {
  if (window_->bill() == nullptr) return;
  std::int32_t nStored = 0;
  {
    RecordDialog dialog(seat(), *window_->bill(), this);
    connect(&dialog, &RecordDialog::stored, this, [&] {
      if (const std::int32_t nID = window_->bill()->bill_id(); nID != 0) nStored = nID;
      show_window();
    });
    dialog.exec();
  }
  window_->close_bill();
  if (nStored != 0) grid_->make_current(nStored);
  show_window();
}

bool BaseDataView::may_delete(const BaseItem& item) {
  const QString sText = words("是否删除“%1”？").arg(qt(item.sNumber) + QStringLiteral(" ") + qt(item.sName));
  return seat().session.platform().MsgBox(utf8(sText), arap::kQuestion, arap::kTitle) == kButtonYes;
}

void BaseDataView::retranslate() {
  grid_->retranslate();
  shown_nodes_.clear();
  show_window();
}

QString BaseDataView::status() const {
  return trouble().isEmpty() ? words("共%1行").arg(grid_->model().rowCount()) : trouble();
}

}  // namespace desk
