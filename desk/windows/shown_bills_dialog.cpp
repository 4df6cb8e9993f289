#include "windows/shown_bills_dialog.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include <algorithm>

#include "data/money.h"
#include "frame/conversions.h"
#include "windows/captions.h"
#include "windows/qt_text.h"
#include "windows/states.h"

namespace desk {

namespace {

constexpr int kColumnAir = 12;

/// A column of a bill as the window shows it; an id shows the name that its table has for it.
struct BillColumn {
  enum class Kind : std::uint8_t { Text, Number, Money, Id };
  std::string_view sColumn;
  const char* sCaption;
  Kind kind = Kind::Text;
  std::string_view sTable = {};
  std::string_view sKey = {};

  bool is_number() const { return kind == Kind::Number || kind == Kind::Money; }
};

constexpr BillColumn kColumns[] = {
    {"FBillNo", "单据编号"},
    {"FDate", "日期"},
    {"FDueDate", "到期日"},
    {"FCustID", "往来单位", BillColumn::Kind::Id, "t_Organization", "FItemID"},
    {"FSupplyID", "往来单位", BillColumn::Kind::Id, "t_Supplier", "FItemID"},
    {"FCurrencyID", "币别", BillColumn::Kind::Id, "t_Currency", "FCurrencyID"},
    {"FExchangeRate", "汇率", BillColumn::Kind::Number},
    {"FAmountFor", "金额", BillColumn::Kind::Money},
    {"FAmount", "本位币金额", BillColumn::Kind::Money},
    {"FReceiveAmountFor", "已核销", BillColumn::Kind::Money},
    {"FDeptID", "部门", BillColumn::Kind::Id, "t_Department", "FItemID"},
    {"FEmpID", "业务员", BillColumn::Kind::Id, "t_Emp", "FItemID"},
    {"FNote", "备注"},
};

QString text_of(Database& database, const BillColumn& column, const Value& vValue) {
  if (vValue.is_null()) return {};
  switch (column.kind) {
    case BillColumn::Kind::Text:
    case BillColumn::Kind::Number: return qt(arap::Concat(vValue));
    case BillColumn::Kind::Money: return grouped(qt(Money::from_double(arap::NumberOf(vValue)).text()));
    case BillColumn::Kind::Id: break;
  }
  const std::string sSql =
      "SELECT FName FROM " + std::string(column.sTable) + " WHERE " + std::string(column.sKey) + " = ?";
  return qt(arap::Concat(database.value(sSql, {Bind(arap::LongOf(vValue))}, Value(std::string()))));
}

}  // namespace

ShownBillsDialog::ShownBillsDialog(Database& database, const ShownBills& bills, QWidget* pParent)
    : QDialog(pParent), table_(new QTableWidget(static_cast<int>(bills.aRows.size()), 0, this)) {
  setObjectName(QStringLiteral("bills"));
  setWindowTitle(words("单据列表"));
  resize(1080, 240);
  table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  table_->setSelectionBehavior(QAbstractItemView::SelectRows);
  table_->verticalHeader()->setDefaultSectionSize(line_height(*table_));
  table_->horizontalHeader()->setStretchLastSection(true);
  add_columns(database, bills);
  auto* pButtons = new QDialogButtonBox(this);
  pButtons->addButton(words("关闭"), QDialogButtonBox::RejectRole)->setDefault(true);
  connect(pButtons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  auto* pLayout = new QVBoxLayout(this);
  pLayout->addWidget(table_);
  pLayout->addWidget(pButtons);
}

void ShownBillsDialog::add_columns(Database& database, const ShownBills& bills) {
  for (const BillColumn& column : kColumns) {
    const bool bThere = std::ranges::any_of(
        bills.aColumns, [&](const std::string& sColumn) { return arap::EqualsNoCase(sColumn, column.sColumn); });
    if (!bThere) continue;
    const int nColumn = table_->columnCount();
    table_->insertColumn(nColumn);
    const Qt::Alignment side = column.is_number() ? Qt::AlignRight : Qt::AlignLeft;
    auto* pCaption = new QTableWidgetItem(words(column.sCaption));
    pCaption->setTextAlignment(side | Qt::AlignVCenter);
    table_->setHorizontalHeaderItem(nColumn, pCaption);
    for (int nRow = 0; nRow < table_->rowCount(); ++nRow) {
      const Value vValue = bills.value(static_cast<std::size_t>(nRow), column.sColumn);
      auto* pItem = new QTableWidgetItem(text_of(database, column, vValue));
      pItem->setTextAlignment(side | Qt::AlignVCenter);
      if (column.is_number() && arap::NumberOf(vValue) < 0) pItem->setForeground(negative_colour());
      table_->setItem(nRow, nColumn, pItem);
    }
  }
  table_->resizeColumnsToContents();
  for (int nColumn = 0; nColumn < table_->columnCount(); ++nColumn)
    table_->setColumnWidth(nColumn, table_->columnWidth(nColumn) + kColumnAir);
}

}  // namespace desk
