#include "windows/result_dialog.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include <algorithm>

#include "windows/captions.h"
#include "windows/csv_export.h"
#include "windows/states.h"

namespace desk {

namespace {
/// Every line of an operation that was done says so.
bool is_done(const QString& sLine) { return sLine.contains(QStringLiteral("成功")); }
}  // namespace

ResultDialog::ResultDialog(const QStringList& lines, QWidget* pParent)
    : QDialog(pParent), table_(new QTableWidget(static_cast<int>(lines.size()), 1, this)) {
  setObjectName(QStringLiteral("result"));
  setWindowTitle(words("操作结果"));
  resize(640, 420);
  add_lines(lines);
  const auto nDone = std::count_if(lines.begin(), lines.end(), is_done);
  auto* pSummary = new QLabel(words("成功%1张，未成功%2张").arg(nDone).arg(lines.size() - nDone), this);
  auto* pButtons = new QDialogButtonBox(this);
  auto* pClose = pButtons->addButton(words("关闭"), QDialogButtonBox::RejectRole);
  auto* pExport = pButtons->addButton(words("导出CSV"), QDialogButtonBox::ActionRole);
  pExport->setAutoDefault(false);
  pClose->setDefault(true);
  connect(pButtons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  connect(pExport, &QPushButton::clicked, this, &ResultDialog::ask_and_export);
  auto* pLayout = new QVBoxLayout(this);
  pLayout->addWidget(table_);
  pLayout->addWidget(pSummary);
  pLayout->addWidget(pButtons);
}

void ResultDialog::add_lines(const QStringList& lines) {
  table_->setHorizontalHeaderLabels({words("提示信息")});
  table_->horizontalHeader()->setStretchLastSection(true);
  table_->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  table_->verticalHeader()->setDefaultSectionSize(line_height(*table_));
  table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  for (int nRow = 0; nRow < table_->rowCount(); ++nRow) {
    auto* pItem = new QTableWidgetItem(lines.at(nRow));
    if (!is_done(lines.at(nRow))) pItem->setForeground(negative_colour());
    pItem->setToolTip(lines.at(nRow));
    table_->setItem(nRow, 0, pItem);
  }
}

bool ResultDialog::export_to(const QString& sPath) const { return export_csv(*table_->model(), sPath); }

void ResultDialog::ask_and_export() { ask_and_export_csv(*table_->model(), windowTitle(), this); }

}  // namespace desk
