#include "windows/book_list.h"

#include <algorithm>
#include <numeric>

#include "data/money.h"
#include "services/settlement_tables.h"
#include "windows/captions.h"
#include "windows/qt_text.h"
#include "windows/states.h"

namespace desk {

namespace {

BookList settlement_bills(const SettlementTables& tables, const char* sCaption, const char* sTemplate) {
  return {
      sCaption,
      sTemplate,
      side_sql(tables,
               "SELECT b.FBillID AS FBillID, b.FBillNo AS FBillNo, b.FDate AS FDate, p.FName AS FPartner,"
               " c.FName AS FCurrency, b.FAmountFor AS FAmountFor, b.F{got}AmountFor AS FMoneyFor,"
               " b.FDiscountAmountFor AS FDiscountFor, CASE b.FStatus WHEN 1 THEN '已审核' ELSE '未审核' END AS"
               " FState, b.FChecker AS FChecker, b.FExplanation AS FExplanation FROM {bill} b LEFT JOIN {partners} p"
               " ON p.FItemID = b.{partner} LEFT JOIN t_Currency c ON c.FCurrencyID = b.FCurrencyID"
               " ORDER BY b.FBillID DESC"),
      {{"FBillNo", "单据编号"},
       {"FDate", "日期"},
       {"FPartner", "往来单位"},
       {"FCurrency", "币别"},
       {"FAmountFor", "核销金额", true},
       {"FMoneyFor", "实收付金额", true},
       {"FDiscountFor", "折扣金额", true},
       {"FState", "状态"},
       {"FChecker", "审核人"},
       {"FExplanation", "摘要"}}};
}

BookList open_items(const SettlementTables& tables, const char* sCaption) {
  return {sCaption,
          "",
          side_sql(tables,
                   "SELECT p.FName AS FPartner, v.FBillNo AS FBillNo, v.FDate AS FDate, v.FDueDate AS FDueDate,"
                   " c.FName AS FCurrency, v.FBillAmountFor AS FAmountFor, v.FBill{got}AmountFor AS FSettledFor,"
                   " v.FBillUn{got}AmountFor AS FOpenFor FROM {openview} v LEFT JOIN {partners} p ON p.FItemID ="
                   " v.{viewpartner} LEFT JOIN t_Currency c ON c.FCurrencyID = v.FCurrencyID"
                   " ORDER BY p.FNumber, v.FDueDate, v.FBillNo"),
          {{"FPartner", "往来单位"},
           {"FBillNo", "单据编号"},
           {"FDate", "日期"},
           {"FDueDate", "到期日"},
           {"FCurrency", "币别"},
           {"FAmountFor", "金额", true},
           {"FSettledFor", "已核销", true},
           {"FOpenFor", "未核销", true}}};
}

BookList action_log() {
  return {"操作日志",
          "",
          "SELECT FTime, FUser, FMachine, FCode, FText FROM t_Log ORDER BY FLogID DESC",
          {{"FTime", "时间"}, {"FUser", "用户"}, {"FMachine", "计算机"}, {"FCode", "功能"}, {"FText", "内容"}}};
}

}  // namespace

std::vector<BookList> book_lists() {
  return {settlement_bills(kReceiptTables, "收款单", "receipt"), settlement_bills(kPaymentTables, "付款单", "payment"),
          open_items(kReceiptTables, "应收明细"), open_items(kPaymentTables, "应付明细"), action_log()};
}

BookListModel::BookListModel(Database& database, BookList list, QObject* pParent)
    : QAbstractTableModel(pParent), database_(database), list_(std::move(list)) {}

void BookListModel::refresh() {
  beginResetModel();
  rows_ = database_.query(list_.sSql);
  order_.resize(rows_.size());
  std::iota(order_.begin(), order_.end(), std::size_t{0});
  endResetModel();
  if (sorted_by_ >= 0) sort(sorted_by_, sort_order_);
}

std::int32_t BookListModel::bill_id(int nRow) const {
  if (nRow < 0 || nRow >= rowCount() || list_.sTemplate.empty()) return 0;
  return rows_.integer(line(nRow), "FBillID");
}

int BookListModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(order_.size());
}

int BookListModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(list_.columns.size());
}

QVariant BookListModel::data(const QModelIndex& index, int nRole) const {
  if (!index.isValid()) return {};
  const ListColumn& column = list_.columns[static_cast<std::size_t>(index.column())];
  const std::size_t nLine = line(index.row());
  switch (nRole) {
    case Qt::DisplayRole:
      return qt(column.bMoney ? rows_.money(nLine, column.sColumn).text() : rows_.text(nLine, column.sColumn));
    case Qt::TextAlignmentRole: return QVariant((column.bMoney ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    case Qt::ForegroundRole:
      return column.bMoney && rows_.money(nLine, column.sColumn) < Money() ? QVariant(negative_colour()) : QVariant();
    default: return {};
  }
}

QVariant BookListModel::headerData(int nSection, Qt::Orientation orientation, int nRole) const {
  if (nRole != Qt::DisplayRole) return {};
  return orientation == Qt::Vertical ? QVariant(nSection + 1)
                                     : QVariant(words(list_.columns[static_cast<std::size_t>(nSection)].sCaption));
}

void BookListModel::sort(int nColumn, Qt::SortOrder order) {
  sorted_by_ = nColumn;
  sort_order_ = order;
  if (nColumn < 0 || nColumn >= columnCount()) return;
  const ListColumn& column = list_.columns[static_cast<std::size_t>(nColumn)];
  Q_EMIT layoutAboutToBeChanged();
  const auto is_less = [&](std::size_t nOne, std::size_t nOther) {
    if (column.bMoney) return rows_.money(nOne, column.sColumn) < rows_.money(nOther, column.sColumn);
    return rows_.text(nOne, column.sColumn) < rows_.text(nOther, column.sColumn);
  };
  std::stable_sort(order_.begin(), order_.end(), [&](std::size_t nOne, std::size_t nOther) {
    return order == Qt::AscendingOrder ? is_less(nOne, nOther) : is_less(nOther, nOne);
  });
  Q_EMIT layoutChanged();
}

}  // namespace desk
