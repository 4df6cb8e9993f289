#include "windows/body_grid.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>

#include <algorithm>

#include "windows/captions.h"
#include "windows/cell_delegate.h"
#include "windows/qt_text.h"
#include "windows/states.h"

namespace desk {

namespace {

/// The columns that stay in view: what names the source.
constexpr int kFrozenColumns = 2;
constexpr int kNarrowestColumn = 64;
constexpr int kWidestColumn = 220;
constexpr int kColumnAir = 8;

/// The strip under the grid, in line with its columns.
class TotalsRow final : public QWidget {
 public:
  TotalsRow(const QTableView& grid, const BodyModel& model, QWidget* pParent)
      : QWidget(pParent), grid_(grid), model_(model) {
    setObjectName(QStringLiteral("totals"));
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.fillRect(rect(), palette().alternateBase());
    const int nLeft = grid_.verticalHeader()->width();
    painter.drawText(QRect(4, 0, width(), height()), Qt::AlignVCenter, words("合计"));
    for (int nColumn = 0; nColumn < model_.columnCount(); ++nColumn) {
      const QRect place(nLeft + grid_.columnViewportPosition(nColumn), 0, grid_.columnWidth(nColumn) - 4, height());
      painter.drawText(place, Qt::AlignRight | Qt::AlignVCenter, model_.total(nColumn));
    }
  }

 private:
  const QTableView& grid_;
  const BodyModel& model_;
};

}  // namespace

BodyGrid::BodyGrid(BodyModel& model, ChoicesOf choices, QWidget* pParent)
    : QTableView(pParent),
      model_(model),
      choices_(std::move(choices)),
      frozen_(new QTableView(this)),
      totals_(new TotalsRow(*this, model, this)) {
  setObjectName(QStringLiteral("body"));
  setModel(&model_);
  auto* pDelegate = new CellDelegate(model_, choices_, this);
  setItemDelegate(pDelegate);
  connect(pDelegate, &CellDelegate::entered, this, &BodyGrid::go_down);
  connect(pDelegate, &CellDelegate::refused, this, &BodyGrid::refused);
  setEditTriggers(AnyKeyPressed | EditKeyPressed | DoubleClicked);
  setSelectionMode(SingleSelection);
  setTabKeyNavigation(true);
  setAlternatingRowColors(false);
  verticalHeader()->setDefaultSectionSize(line_height(*this));
  horizontalHeader()->setStretchLastSection(true);  // mostly the note
  // Widths come from the rows on the screen; to ask all of ten thousand takes longer than loading them.
  horizontalHeader()->setResizeContentsPrecision(0);
  freeze_first_columns();
}

void BodyGrid::freeze_first_columns() {
  frozen_->setModel(&model_);
  frozen_->setSelectionModel(selectionModel());
  frozen_->setFocusPolicy(Qt::NoFocus);
  frozen_->setAttribute(Qt::WA_TransparentForMouseEvents);
  frozen_->verticalHeader()->hide();
  frozen_->verticalHeader()->setDefaultSectionSize(verticalHeader()->defaultSectionSize());
  frozen_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  frozen_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  frozen_->setVerticalScrollMode(ScrollPerPixel);
  setVerticalScrollMode(ScrollPerPixel);
  setHorizontalScrollMode(ScrollPerPixel);
  viewport()->stackUnder(frozen_);
  connect(verticalScrollBar(), &QScrollBar::valueChanged, frozen_->verticalScrollBar(), &QScrollBar::setValue);
  connect(horizontalScrollBar(), &QScrollBar::valueChanged, this, [this] {
    place_frozen();
    totals_->update();
  });
  connect(horizontalHeader(), &QHeaderView::sectionResized, this, [this](int nColumn, int, int nWidth) {
    frozen_->setColumnWidth(nColumn, nWidth);
    place_frozen();
    totals_->update();
  });
}

/// A column is as wide as its caption, its total and its cells on the screen need; later it only grows, so that widths
/// set by hand stay.
void BodyGrid::fit_columns() {
  const bool bNew = fitted_ != model_.columnCount();
  fitted_ = model_.columnCount();
  for (int nColumn = 0; nColumn < model_.columnCount(); ++nColumn) {
    const int nTotal = fontMetrics().horizontalAdvance(model_.total(nColumn));
    const int nNeeded =
        std::max({sizeHintForColumn(nColumn), horizontalHeader()->sectionSizeHint(nColumn), nTotal}) + kColumnAir;
    const int nWidth = std::clamp(nNeeded, kNarrowestColumn, kWidestColumn);
    if (bNew || nWidth > columnWidth(nColumn)) setColumnWidth(nColumn, nWidth);
  }
}

void BodyGrid::refresh() {
  fit_columns();
  for (int nColumn = 0; nColumn < model_.columnCount(); ++nColumn) {
    frozen_->setColumnHidden(nColumn, nColumn >= kFrozenColumns);
    frozen_->setColumnWidth(nColumn, columnWidth(nColumn));
  }
  place_frozen();
  totals_->update();
}

/// The frozen columns show only while the grid is scrolled to the right.
void BodyGrid::place_frozen() {
  int nWidth = 0;
  for (int nColumn = 0; nColumn < std::min(kFrozenColumns, model_.columnCount()); ++nColumn)
    nWidth += columnWidth(nColumn);
  const int nEdge = frameWidth();
  frozen_->setGeometry(nEdge + verticalHeader()->width(), nEdge, nWidth,
                       viewport()->height() + horizontalHeader()->height());
  frozen_->setVisible(horizontalScrollBar()->value() > 0);
}

void BodyGrid::place_totals() {
  const int nHeight = verticalHeader()->defaultSectionSize();
  setViewportMargins(verticalHeader()->width(), horizontalHeader()->height(), 0, nHeight);
  const QRect view = viewport()->geometry();
  totals_->setGeometry(frameWidth(), view.bottom() + 1, view.right(), nHeight);
}

void BodyGrid::resizeEvent(QResizeEvent* pEvent) {
  QTableView::resizeEvent(pEvent);
  place_totals();
  place_frozen();
}

void BodyGrid::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  QTableView::currentChanged(current, previous);
  if (current.isValid()) Q_EMIT cell_entered(qt(model_.field(current.column()).sKey), current.row() + 1);
}

/// Tab at the end of the last row leaves the grid's cells alone instead of starting over.
QModelIndex BodyGrid::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) {
  const QModelIndex now = currentIndex();
  const bool bAtEnd = now.row() == model_.rowCount() - 1 && now.column() == model_.columnCount() - 1;
  if (action == MoveNext && bAtEnd) return now;
  return QTableView::moveCursor(action, modifiers);
}

void BodyGrid::enter_now() {
  QWidget* pEditor = state() == EditingState ? indexWidget(currentIndex()) : nullptr;
  if (pEditor == nullptr) return;
  commitData(pEditor);
  closeEditor(pEditor, QAbstractItemDelegate::NoHint);
  setFocus();
}

void BodyGrid::go_to_last_row() {
  const int nRow = model_.rowCount() - 1;
  int nColumn = 0;
  while (nColumn + 1 < model_.columnCount() && !(model_.index(nRow, nColumn).flags() & Qt::ItemIsEditable)) ++nColumn;
  setFocus(Qt::OtherFocusReason);
  setCurrentIndex(model_.index(nRow, nColumn));
}

void BodyGrid::go_down() {
  const QModelIndex now = currentIndex();
  if (now.isValid() && now.row() + 1 < model_.rowCount()) setCurrentIndex(now.siblingAtRow(now.row() + 1));
}

void BodyGrid::copy_from_above() {
  const QModelIndex now = currentIndex();
  if (!now.isValid() || now.row() == 0 || !(now.flags() & Qt::ItemIsEditable)) return;
  model_.setData(now, now.siblingAtRow(now.row() - 1).data(Qt::EditRole), Qt::EditRole);
}

void BodyGrid::open_list() {
  if (!currentIndex().isValid()) return;
  edit(currentIndex());
  if (auto* pEdit = qobject_cast<FieldEdit*>(indexWidget(currentIndex()))) pEdit->open_list(true);
}

void BodyGrid::keyPressEvent(QKeyEvent* pEvent) {
  const bool bControl = pEvent->modifiers() == Qt::ControlModifier;
  if (pEvent->key() == Qt::Key_Return || pEvent->key() == Qt::Key_Enter) return go_down();
  if (bControl && pEvent->key() == Qt::Key_D) return copy_from_above();
  if (pEvent->key() == Qt::Key_F7) return open_list();
  QTableView::keyPressEvent(pEvent);
}

}  // namespace desk
