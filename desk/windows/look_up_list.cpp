#include "windows/look_up_list.h"

#include <QHeaderView>
#include <QScreen>
#include <QTableWidget>
#include <QVBoxLayout>

#include <algorithm>

#include "windows/captions.h"
#include "windows/qt_text.h"

namespace desk {

namespace {
constexpr int kMostVisibleRows = 10;
constexpr int kLeastWidth = 280;
}  // namespace

LookUpList::LookUpList(QWidget* pField)
    : QFrame(pField, Qt::ToolTip | Qt::FramelessWindowHint), field_(pField), table_(new QTableWidget(0, 2, this)) {
  setFrameShape(QFrame::Box);
  setFocusPolicy(Qt::NoFocus);
  setAttribute(Qt::WA_ShowWithoutActivating);
  auto* pLayout = new QVBoxLayout(this);
  pLayout->setContentsMargins(0, 0, 0, 0);
  pLayout->addWidget(table_);
  table_->setFocusPolicy(Qt::NoFocus);
  table_->setHorizontalHeaderLabels({words("代码"), words("名称")});
  table_->horizontalHeader()->setStretchLastSection(true);
  table_->verticalHeader()->hide();
  table_->setSelectionBehavior(QAbstractItemView::SelectRows);
  table_->setSelectionMode(QAbstractItemView::SingleSelection);
  table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  connect(table_, &QTableWidget::cellClicked, this, &LookUpList::picked);
}

void LookUpList::offer(std::vector<LookUpItem> items, bool bMark) {
  items_ = std::move(items);
  if (items_.empty()) return hide();
  table_->setRowCount(static_cast<int>(items_.size()));
  for (int nRow = 0; nRow < table_->rowCount(); ++nRow) {
    const LookUpItem& item = items_[static_cast<std::size_t>(nRow)];
    table_->setItem(nRow, 0, new QTableWidgetItem(qt(item.sCode)));
    table_->setItem(nRow, 1, new QTableWidgetItem(qt(item.sName)));
  }
  table_->setCurrentCell(-1, -1);
  table_->clearSelection();
  if (bMark) table_->selectRow(0);
  place();
  show();
}

void LookUpList::place() {
  const int nRows = std::min(table_->rowCount(), kMostVisibleRows);
  const int nHeight = table_->horizontalHeader()->sizeHint().height() + nRows * table_->rowHeight(0) + 4;
  resize(std::max(field_->width(), kLeastWidth), nHeight);
  QPoint corner = field_->mapToGlobal(QPoint(0, field_->height()));
  const QRect screen = field_->screen()->availableGeometry();
  if (corner.y() + nHeight > screen.bottom()) corner.setY(field_->mapToGlobal(QPoint(0, 0)).y() - nHeight);
  move(corner);
}

void LookUpList::move_mark(int nSteps) {
  const int nLast = table_->rowCount() - 1;
  if (nLast < 0) return;
  const bool bNone = table_->selectedItems().isEmpty();
  table_->selectRow(std::clamp(bNone ? (nSteps > 0 ? 0 : nLast) : table_->currentRow() + nSteps, 0, nLast));
}

std::optional<LookUpItem> LookUpList::marked() const {
  const int nRow = table_->selectedItems().isEmpty() ? -1 : table_->currentRow();
  if (nRow < 0 || static_cast<std::size_t>(nRow) >= items_.size()) return std::nullopt;
  return items_[static_cast<std::size_t>(nRow)];
}

}  // namespace desk
