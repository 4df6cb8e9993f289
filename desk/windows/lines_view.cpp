#include "windows/lines_view.h"

#include <QHeaderView>
#include <QLineEdit>
#include <QScrollBar>
#include <QTableView>
#include <QVBoxLayout>

#include <algorithm>

#include "windows/captions.h"
#include "windows/states.h"

namespace desk {

namespace {
constexpr int kWidestColumn = 260;
constexpr int kColumnAir = 12;
}  // namespace

LinesView::LinesView(std::vector<ListColumn> columns, QWidget* pParent, std::string sKeyColumn)
    : QWidget(pParent),
      ends_in_text_(columns.back().kind == ListColumn::Kind::Text),
      model_(new LinesModel(std::move(columns), this)),
      table_(new QTableView(this)),
      filter_(new QLineEdit(this)),
      key_column_(std::move(sKeyColumn)) {
  build();
  retranslate();
}

void LinesView::build() {
  filter_->setObjectName(QStringLiteral("filter"));
  filter_->setClearButtonEnabled(true);
  table_->setObjectName(QStringLiteral("list"));
  table_->setModel(model_);
  table_->setSelectionBehavior(QAbstractItemView::SelectRows);
  table_->setSelectionMode(QAbstractItemView::ExtendedSelection);
  table_->setSortingEnabled(true);
  table_->horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
  table_->setTabKeyNavigation(false);
  table_->setWordWrap(false);
  table_->setShowGrid(true);
  table_->verticalHeader()->setDefaultSectionSize(line_height(*table_));
  table_->verticalHeader()->setDefaultAlignment(Qt::AlignRight | Qt::AlignVCenter);
  // An amount would stand far away from the others.
  table_->horizontalHeader()->setStretchLastSection(ends_in_text_);
  table_->horizontalHeader()->setHighlightSections(false);
  // Widths come from the lines on the screen; to ask all of many thousands takes longer than reading them.
  table_->horizontalHeader()->setResizeContentsPrecision(0);
  auto* pLayout = new QVBoxLayout(this);
  pLayout->setContentsMargins(4, 4, 4, 4);
  pLayout->setSpacing(4);
  pLayout->addWidget(filter_);
  pLayout->addWidget(table_);
  connect(filter_, &QLineEdit::textChanged, this, [this](const QString& sText) {
    const std::int32_t nKey = current_key_;
    model_->narrow(sText);
    go_back_to(nKey, 0);
    Q_EMIT selection_changed();
  });
  connect(table_, &QTableView::activated, this, &LinesView::activated);
  connect(table_->selectionModel(), &QItemSelectionModel::currentRowChanged, this, [this](const QModelIndex& current) {
    if (current.isValid()) current_key_ = key_of(model_->line(current.row()));
  });
  connect(table_->selectionModel(), &QItemSelectionModel::selectionChanged, this, &LinesView::selection_changed);
}

std::int32_t LinesView::key_of(std::size_t nLine) const {
  if (lines_ == nullptr || nLine >= lines_->size() || lines_->find_column(key_column_) < 0) return 0;
  return lines_->integer(nLine, key_column_);
}

int LinesView::row_of_key(std::int32_t nKey) const {
  for (int n = 0; nKey != 0 && n < model_->rowCount(); ++n) {
    if (key_of(model_->line(n)) == nKey) return n;
  }
  return -1;
}

/// On the line of the key, else on the row where it was.
void LinesView::go_back_to(std::int32_t nKey, int nRow) {
  int nFound = row_of_key(nKey);
  if (nFound < 0) nFound = std::min(std::max(nRow, 0), model_->rowCount() - 1);
  if (nFound >= 0) go_to(nFound);
}

/// `lines` is mostly the object of the last call with other contents, so the key was remembered before.
void LinesView::show_lines(const Rows& lines) {
  const int nRow = table_->currentIndex().row();
  const std::int32_t nKey = current_key_;
  lines_ = &lines;
  model_->show_lines(lines);
  go_back_to(nKey, nRow);
  if (!fitted_ && model_->rowCount() > 0) {
    fitted_ = true;
    for (int nColumn = 0; nColumn < model_->columnCount(); ++nColumn)
      table_->setColumnWidth(nColumn, needed_width(nColumn));
  }
  Q_EMIT selection_changed();
}

int LinesView::needed_width(int nColumn) const {
  const int nCells = static_cast<const QAbstractItemView*>(table_)->sizeHintForColumn(nColumn);
  return std::min(std::max(nCells, table_->horizontalHeader()->sectionSizeHint(nColumn)) + kColumnAir, kWidestColumn);
}

void LinesView::widen_columns() {
  for (int nColumn = 0; nColumn < model_->columnCount(); ++nColumn)
    table_->setColumnWidth(nColumn, std::max(table_->columnWidth(nColumn), needed_width(nColumn)));
}

void LinesView::retranslate() {
  filter_->setPlaceholderText(words("筛选"));
  model_->retranslate();
}

void LinesView::make_current(std::int32_t nKey) {
  if (const int nRow = row_of_key(nKey); nRow >= 0) go_to(nRow);
}

/// Whatever keys are down at the moment, this line alone is selected.
void LinesView::go_to(int nRow) {
  table_->selectionModel()->setCurrentIndex(model_->index(nRow, 0),
                                            QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

void LinesView::forget_current() {
  table_->selectionModel()->clear();
  current_key_ = 0;
}

std::optional<std::size_t> LinesView::current_line() const {
  const QModelIndex current = table_->currentIndex();
  return current.isValid() ? std::optional(model_->line(current.row())) : std::nullopt;
}

std::vector<std::size_t> LinesView::selected_lines() const {
  std::vector<std::size_t> aLines;
  for (const QItemSelectionRange& range : table_->selectionModel()->selection()) {
    for (int nRow = range.top(); nRow <= range.bottom(); ++nRow) aLines.push_back(model_->line(nRow));
  }
  std::sort(aLines.begin(), aLines.end());
  aLines.erase(std::unique(aLines.begin(), aLines.end()), aLines.end());
  return aLines;
}

}  // namespace desk
