#include "windows/lines_model.h"

#include <algorithm>
#include <numeric>

#include "frame/conversions.h"
#include "windows/captions.h"
#include "windows/qt_text.h"
#include "windows/states.h"

namespace desk {

LinesModel::LinesModel(std::vector<ListColumn> columns, QObject* pParent)
    : QAbstractTableModel(pParent), columns_(std::move(columns)), places_(columns_.size(), -1) {}

void LinesModel::show_lines(const Rows& lines) {
  beginResetModel();
  lines_ = &lines;
  for (std::size_t n = 0; n < columns_.size(); ++n) places_[n] = lines.find_column(columns_[n].sColumn);
  found_in_.clear();
  order_lines();
  choose_seen();
  endResetModel();
}

void LinesModel::narrow(const QString& sText) {
  beginResetModel();
  narrowed_to_ = looked_for(sText.trimmed().toLower());
  choose_seen();
  endResetModel();
}

void LinesModel::retranslate() {
  if (columnCount() > 0) Q_EMIT headerDataChanged(Qt::Horizontal, 0, columnCount() - 1);
}

int LinesModel::row_of(std::size_t nLine) const {
  const auto found = std::find(seen_.begin(), seen_.end(), nLine);
  return found == seen_.end() ? -1 : static_cast<int>(found - seen_.begin());
}

/// "" also for a line that has gone since the last show_lines: a window repaints while a command is at work.
QString LinesModel::text(std::size_t nLine, std::size_t nColumn) const {
  if (nLine >= lines_->size() || places_[nColumn] < 0) return {};
  const Value& vValue = lines_->at(nLine, static_cast<std::size_t>(places_[nColumn]));
  switch (columns_[nColumn].kind) {
    case ListColumn::Kind::Text: return qt(arap::Concat(vValue));
    case ListColumn::Kind::Money: return vValue.is_null() ? QString() : qt(Money::from_stored(vValue).text());
    case ListColumn::Kind::State: return words(arap::LongOf(vValue) == 1 ? "已审核" : "未审核");
  }
  return {};
}

QVariant LinesModel::colour(std::size_t nLine, std::size_t nColumn) const {
  if (columns_[nColumn].kind != ListColumn::Kind::Money || nLine >= lines_->size() || places_[nColumn] < 0) return {};
  const Value& vValue = lines_->at(nLine, static_cast<std::size_t>(places_[nColumn]));
  const bool bNegative = !vValue.is_null() && Money::from_stored(vValue) < Money();
  return bNegative ? QVariant(negative_colour()) : QVariant();
}

/// Amounts by their size, everything else by its text; lines that are equal stay as the query has them.
void LinesModel::order_lines() {
  order_.resize(lines_->size());
  std::iota(order_.begin(), order_.end(), std::size_t{0});
  if (sorted_by_ < 0 || sorted_by_ >= columnCount()) return;
  const auto nColumn = static_cast<std::size_t>(sorted_by_);
  const auto sort_by = [this](auto&& keys) {
    std::stable_sort(order_.begin(), order_.end(), [&](std::size_t nOne, std::size_t nOther) {
      return sort_order_ == Qt::AscendingOrder ? keys[nOne] < keys[nOther] : keys[nOther] < keys[nOne];
    });
  };
  if (columns_[nColumn].kind == ListColumn::Kind::Money) {
    std::vector<Money> keys(order_.size());
    for (std::size_t n = 0; n < keys.size(); ++n) keys[n] = lines_->money(n, columns_[nColumn].sColumn);
    return sort_by(keys);
  }
  std::vector<QString> keys(order_.size());
  for (std::size_t n = 0; n < keys.size(); ++n) keys[n] = text(n, nColumn);
  sort_by(keys);
}

void LinesModel::choose_seen() {
  seen_ = order_;
  if (narrowed_to_.isEmpty() || lines_ == nullptr) return;
  if (found_in_.empty()) {
    found_in_.resize(lines_->size());
    for (std::size_t nLine = 0; nLine < found_in_.size(); ++nLine) {
      for (std::size_t n = 0; n < columns_.size(); ++n)
        found_in_[nLine] += text(nLine, n).toLower() + QLatin1Char('\n');
    }
  }
  std::erase_if(seen_, [this](std::size_t nLine) { return !found_in_[nLine].contains(narrowed_to_); });
}

int LinesModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(seen_.size());
}

int LinesModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(columns_.size());
}

QVariant LinesModel::data(const QModelIndex& index, int nRole) const {
  if (!index.isValid()) return {};
  const auto nColumn = static_cast<std::size_t>(index.column());
  const bool bMoney = columns_[nColumn].kind == ListColumn::Kind::Money;
  switch (nRole) {
    case Qt::DisplayRole: return bMoney ? grouped(text(line(index.row()), nColumn)) : text(line(index.row()), nColumn);
    case Qt::EditRole: return text(line(index.row()), nColumn);
    case Qt::TextAlignmentRole: return QVariant((bMoney ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    case Qt::ForegroundRole: return colour(line(index.row()), nColumn);
    default: return {};
  }
}

QVariant LinesModel::headerData(int nSection, Qt::Orientation orientation, int nRole) const {
  if (nRole == Qt::TextAlignmentRole && orientation == Qt::Horizontal) {
    const bool bMoney = columns_[static_cast<std::size_t>(nSection)].kind == ListColumn::Kind::Money;
    return QVariant((bMoney ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
  }
  if (nRole != Qt::DisplayRole) return {};
  return orientation == Qt::Vertical ? QVariant(nSection + 1)
                                     : QVariant(words(columns_[static_cast<std::size_t>(nSection)].sCaption));
}

void LinesModel::sort(int nColumn, Qt::SortOrder order) {
  sorted_by_ = nColumn;
  sort_order_ = order;
  if (lines_ == nullptr) return;
  beginResetModel();
  order_lines();
  choose_seen();
  endResetModel();
}

}  // namespace desk
