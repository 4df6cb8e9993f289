#include <algorithm>

#include "frame/conversions.h"
#include "windows/captions.h"
#include "windows/qt_text.h"
#include "windows/selection_dialog.h"
#include "windows/states.h"

namespace desk {

namespace {

constexpr const char* kCurrencyColumn = "FCurrencyID";

/// The first of the names that the list has; "" when it has none. A list without rows has no columns to show.
std::string column_that_is_there(const SourceList& list, std::initializer_list<const char*> aNames) {
  for (const char* sName : aNames) {
    if (list.has_column(sName)) return sName;
  }
  return {};
}

}  // namespace

SourceModel::SourceModel(const SourceList& list, CurrencyNames currencies, QObject* pParent)
    : QAbstractTableModel(pParent), list_(list), currencies_(std::move(currencies)), ticked_(list.size(), false) {
  add_column("单据编号", {"FBillNo"}, false);
  add_column("日期", {"FDate"}, false);
  add_column("到期日", {"FDueDate"}, false);
  add_column("币别", {kCurrencyColumn}, false);
  add_column("金额", {"FBillAmountFor"}, true);
  add_column("已核销", {"FBillReceiveAmountFor", "FBillPayAmountFor"}, true);
  add_column("未核销", {"FBillUnReceiveAmountFor", "FBillUnPayAmountFor"}, true);
  narrow({});
}

void SourceModel::add_column(const char* sCaption, std::initializer_list<const char*> aNames, bool bMoney) {
  const std::string sName = column_that_is_there(list_, aNames);
  if (!sName.empty()) columns_.push_back({sName, words(sCaption), bMoney});
}

QString SourceModel::text(std::size_t nRow, const Column& column) const {
  if (column.sName == kCurrencyColumn) return currency(nRow);
  if (column.bMoney) return qt(Money::from_double(arap::NumberOf(list_.value(nRow, column.sName))).text());
  const QString sText = qt(list_.text(nRow, column.sName));
  const bool bNumber = &column == &columns_.front();
  return bNumber && sText.isEmpty() ? words("期初余额") : sText;  // an opening balance has none
}

QString SourceModel::currency(std::size_t nRow) const {
  const auto found = currencies_.find(arap::LongOf(list_.value(nRow, kCurrencyColumn)));
  return found == currencies_.end() ? QString() : found->second;
}

void SourceModel::narrow(const QString& sText) {
  const QString sWanted = looked_for(sText.trimmed());
  beginResetModel();
  seen_.clear();
  for (std::size_t nRow = 0; nRow < list_.size(); ++nRow) {
    const bool bSeen = sWanted.isEmpty() || std::any_of(columns_.begin(), columns_.end(), [&](const Column& column) {
                         return text(nRow, column).contains(sWanted, Qt::CaseInsensitive);
                       });
    if (bSeen) seen_.push_back(nRow);
  }
  endResetModel();
}

void SourceModel::tick(int nRow, bool bTicked) {
  ticked_[seen_[static_cast<std::size_t>(nRow)]] = bTicked;
  Q_EMIT dataChanged(index(nRow, 0), index(nRow, 0), {Qt::CheckStateRole});
  Q_EMIT ticks_changed();
}

void SourceModel::tick_all(bool bTicked) {
  for (const std::size_t nRow : seen_) ticked_[nRow] = bTicked;
  if (!seen_.empty()) Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, 0), {Qt::CheckStateRole});
  Q_EMIT ticks_changed();
}

std::vector<std::size_t> SourceModel::chosen() const {
  std::vector<std::size_t> rows;
  for (std::size_t nRow = 0; nRow < ticked_.size(); ++nRow) {
    if (ticked_[nRow]) rows.push_back(nRow);
  }
  return rows;
}

std::vector<std::pair<QString, Money>> SourceModel::open_sums() const {
  const std::string sOpen = column_that_is_there(list_, {"FBillUnReceiveAmountFor", "FBillUnPayAmountFor"});
  std::vector<std::pair<QString, Money>> sums;
  for (const std::size_t nRow : chosen()) {
    const QString sCurrency = currency(nRow);
    auto place = std::find_if(sums.begin(), sums.end(), [&](const auto& sum) { return sum.first == sCurrency; });
    if (place == sums.end()) place = sums.insert(sums.end(), {sCurrency, Money()});
    place->second += Money::from_double(arap::NumberOf(list_.value(nRow, sOpen)));
  }
  return sums;
}

int SourceModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(seen_.size());
}

int SourceModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(columns_.size());
}

QVariant SourceModel::data(const QModelIndex& index, int nRole) const {
  if (!index.isValid()) return {};
  const Column& column = columns_[static_cast<std::size_t>(index.column())];
  const std::size_t nRow = seen_[static_cast<std::size_t>(index.row())];
  switch (nRole) {
    case Qt::DisplayRole: return column.bMoney ? grouped(text(nRow, column)) : text(nRow, column);
    case Qt::TextAlignmentRole: return QVariant((column.bMoney ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    case Qt::ForegroundRole:
      return column.bMoney && arap::NumberOf(list_.value(nRow, column.sName)) < 0 ? QVariant(negative_colour())
                                                                                  : QVariant();
    case Qt::CheckStateRole:
      return index.column() == 0 ? QVariant(ticked_[nRow] ? Qt::Checked : Qt::Unchecked) : QVariant();
    default: return {};
  }
}

QVariant SourceModel::headerData(int nSection, Qt::Orientation orientation, int nRole) const {
  if (nRole != Qt::DisplayRole) return {};
  return orientation == Qt::Vertical ? QVariant(nSection + 1)
                                     : QVariant(columns_[static_cast<std::size_t>(nSection)].sCaption);
}

Qt::ItemFlags SourceModel::flags(const QModelIndex& index) const {
  const Qt::ItemFlags seen = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
  return index.isValid() && index.column() == 0 ? seen | Qt::ItemIsUserCheckable : seen;
}

bool SourceModel::setData(const QModelIndex& index, const QVariant& vValue, int nRole) {
  if (nRole != Qt::CheckStateRole || !index.isValid()) return false;
  tick(index.row(), vValue.toInt() == Qt::Checked);
  return true;
}

}  // namespace desk
