#include "windows/selection_dialog.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>

#include "windows/captions.h"
#include "windows/qt_text.h"
#include "windows/states.h"

namespace desk {

namespace {
constexpr int kColumnAir = 24;
/// Widths come from the first rows; thousands more would hold the dialog up.
constexpr int kSampledRows = 100;
}  // namespace

SelectionDialog::SelectionDialog(const SourceList& list, CurrencyNames currencies, QWidget* pParent)
    : QDialog(pParent),
      model_(list, std::move(currencies), this),
      table_(new QTableView(this)),
      filter_(new QLineEdit(this)),
      sums_(new QLabel(this)) {
  setWindowTitle(words("选择源单"));
  setObjectName(QStringLiteral("selection"));
  resize(820, 480);
  filter_->setPlaceholderText(words("筛选"));
  filter_->setClearButtonEnabled(true);
  filter_->installEventFilter(this);
  table_->setModel(&model_);
  table_->setSelectionBehavior(QAbstractItemView::SelectRows);
  table_->horizontalHeader()->setHighlightSections(false);
  table_->verticalHeader()->setDefaultSectionSize(line_height(*table_));
  table_->horizontalHeader()->setResizeContentsPrecision(kSampledRows);
  table_->resizeColumnsToContents();
  for (int nColumn = 0; nColumn < model_.columnCount(); ++nColumn)
    table_->setColumnWidth(nColumn, table_->columnWidth(nColumn) + kColumnAir);
  table_->installEventFilter(this);
  auto* pButtons = new QDialogButtonBox(this);
  pButtons->addButton(words("确定"), QDialogButtonBox::AcceptRole);
  pButtons->addButton(words("取消"), QDialogButtonBox::RejectRole);
  auto* pAll = pButtons->addButton(words("全选"), QDialogButtonBox::ActionRole);
  auto* pNone = pButtons->addButton(words("全清"), QDialogButtonBox::ActionRole);
  for (auto* pButton : pButtons->buttons()) static_cast<QPushButton*>(pButton)->setAutoDefault(false);
  auto* pLayout = new QVBoxLayout(this);
  for (QWidget* pPart : {static_cast<QWidget*>(filter_), static_cast<QWidget*>(table_), static_cast<QWidget*>(sums_),
                         static_cast<QWidget*>(pButtons)})
    pLayout->addWidget(pPart);
  connect(filter_, &QLineEdit::textChanged, this, [this](const QString& sText) { model_.narrow(sText); });
  connect(&model_, &SourceModel::ticks_changed, this, &SelectionDialog::show_sums);
  connect(pAll, &QPushButton::clicked, this, [this] { model_.tick_all(true); });
  connect(pNone, &QPushButton::clicked, this, [this] { model_.tick_all(false); });
  connect(pButtons, &QDialogButtonBox::accepted, this, &SelectionDialog::take);
  connect(pButtons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  table_->selectRow(0);
  table_->setFocus();
  show_sums();
}

void SelectionDialog::show_sums() {
  QStringList amounts;
  for (const auto& [sCurrency, sum] : model_.open_sums())
    amounts << (grouped(qt(sum.text())) + " " + sCurrency).trimmed();
  sums_->setText(words("已选%1张，未核销合计 %2")
                     .arg(model_.chosen().size())
                     .arg(amounts.isEmpty() ? QStringLiteral("0.00") : amounts.join(QStringLiteral(" + "))));
}

/// Without a tick the current row is meant.
void SelectionDialog::take() {
  if (model_.chosen().empty() && table_->currentIndex().isValid()) model_.tick(table_->currentIndex().row(), true);
  accept();
}

std::vector<std::size_t> SelectionDialog::choose() {
  return exec() == Accepted ? model_.chosen() : std::vector<std::size_t>();
}

bool SelectionDialog::eventFilter(QObject* pWatched, QEvent* pEvent) {
  if (pEvent->type() != QEvent::KeyPress) return QDialog::eventFilter(pWatched, pEvent);
  const auto* pKey = static_cast<QKeyEvent*>(pEvent);
  if (pKey->key() == Qt::Key_Return || pKey->key() == Qt::Key_Enter) {
    take();
    return true;
  }
  if (pWatched == filter_) {
    if (pKey->key() != Qt::Key_Down) return false;
    table_->setFocus();
    table_->selectRow(0);
    return true;
  }
  const int nRow = table_->currentIndex().row();
  if (pKey->key() == Qt::Key_Space && nRow >= 0) {
    model_.tick(nRow, !model_.is_ticked(nRow));
    table_->selectRow(std::min(nRow + 1, model_.rowCount() - 1));
    return true;
  }
  if (pKey->key() == Qt::Key_A && pKey->modifiers() == Qt::ControlModifier) {
    model_.tick_all(true);
    return true;
  }
  if (!pKey->text().trimmed().isEmpty() && pKey->modifiers() == Qt::NoModifier) {
    filter_->setFocus();
    filter_->insert(pKey->text());
    return true;
  }
  return false;
}

}  // namespace desk
