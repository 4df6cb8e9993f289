#include "windows/voucher_dialog.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include "windows/captions.h"
#include "windows/qt_text.h"
#include "windows/states.h"

namespace desk {

namespace {

enum Column : std::uint8_t { Account, AccountName, Debit, Credit, kColumns };

void add_line(QTableWidget& table, const QStringList& texts) {
  const int nRow = table.rowCount();
  table.insertRow(nRow);
  for (int nColumn = 0; nColumn < kColumns; ++nColumn) {
    auto* pItem = new QTableWidgetItem(texts[nColumn]);
    pItem->setTextAlignment((nColumn >= Debit ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    table.setItem(nRow, nColumn, pItem);
  }
}

QTableWidget* entries_of(const Voucher& voucher) {
  auto* pTable = new QTableWidget(0, kColumns);
  pTable->setHorizontalHeaderLabels({words("科目代码"), words("科目名称"), words("借方金额"), words("贷方金额")});
  pTable->setEditTriggers(QAbstractItemView::NoEditTriggers);
  pTable->setSelectionBehavior(QAbstractItemView::SelectRows);
  pTable->verticalHeader()->hide();
  pTable->verticalHeader()->setDefaultSectionSize(line_height(*pTable));
  for (const VoucherEntry& entry : voucher.aEntries) {
    const QString sAmount = grouped(qt(entry.amount.text()));
    add_line(*pTable, {qt(entry.sAccount), qt(entry.sAccountName), entry.bDebit ? sAmount : QString(),
                       entry.bDebit ? QString() : sAmount});
  }
  add_line(*pTable, {words("合计"), {}, grouped(qt(voucher.debit.text())), grouped(qt(voucher.credit.text()))});
  QHeaderView& header = *pTable->horizontalHeader();
  header.setSectionResizeMode(QHeaderView::ResizeToContents);
  header.setSectionResizeMode(AccountName, QHeaderView::Stretch);
  return pTable;
}

}  // namespace

VoucherDialog::VoucherDialog(const Voucher& voucher, QWidget* pParent) : QDialog(pParent) {
  setObjectName(QStringLiteral("voucher"));
  setWindowTitle(words("凭证"));
  resize(640, 300);
  auto* pHead = new QLabel(QStringLiteral("%1 %2    %3    %4")
                               .arg(words("凭证"))
                               .arg(voucher.nNumber)
                               .arg(qt(voucher.sDate), qt(voucher.sExplanation)));
  auto* pButtons = new QDialogButtonBox;
  pButtons->addButton(words("关闭"), QDialogButtonBox::RejectRole)->setDefault(true);
  connect(pButtons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  auto* pLayout = new QVBoxLayout(this);
  pLayout->addWidget(pHead);
  pLayout->addWidget(entries_of(voucher));
  pLayout->addWidget(pButtons);
}

}  // namespace desk
