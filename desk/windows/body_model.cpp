#include "windows/body_model.h"

#include <QColor>

#include "data/money.h"
#include "frame/conversions.h"
#include "windows/qt_text.h"
#include "windows/states.h"

namespace desk {

BodyModel::BodyModel(BillWindow& window, Enter enter, QObject* pParent)
    : QAbstractTableModel(pParent), window_(window), enter_(std::move(enter)) {
  refresh();
}

std::vector<std::size_t> BodyModel::visible_fields() const {
  std::vector<std::size_t> fields;
  for (const std::size_t nField : window_.bill().page(2).aFields) {
    const TemplateField& field = window_.bill().field(nField);
    if (!field.sCaption.empty() && window_.state(field.sKey).bVisible) fields.push_back(nField);
  }
  return fields;
}

void BodyModel::refresh() {
  const int nRows = static_cast<int>(window_.body().size());
  std::vector<std::size_t> columns = visible_fields();
  totals_.assign(columns.size(), std::nullopt);
  if (nRows != rows_ || columns != columns_) {
    beginResetModel();
    rows_ = nRows;
    columns_ = std::move(columns);
    endResetModel();
  } else if (rows_ > 0 && !columns_.empty()) {
    Q_EMIT dataChanged(index(0, 0), index(rows_ - 1, columnCount() - 1));
  }
}

const TemplateField& BodyModel::field(int nColumn) const {
  return window_.bill().field(columns_[static_cast<std::size_t>(nColumn)]);
}

int BodyModel::column_of(std::string_view sKey) const {
  for (int nColumn = 0; nColumn < columnCount(); ++nColumn) {
    if (arap::EqualsNoCase(field(nColumn).sKey, sKey)) return nColumn;
  }
  return -1;
}

bool BodyModel::in_one_currency() const {
  for (int nRow = 2; nRow <= rows_; ++nRow) {
    if (window_.code("FBillCurrencyID", nRow) != window_.code("FBillCurrencyID", 1)) return false;
  }
  return true;
}

QString BodyModel::total(int nColumn) const {
  std::optional<QString>& total = totals_[static_cast<std::size_t>(nColumn)];
  if (!total) total = sum_of(field(nColumn));
  return *total;
}

QString BodyModel::sum_of(const TemplateField& column) const {
  if (column.kind != FieldKind::Money || rows_ == 0) return {};
  const bool bOwnCurrency = column.sKey.ends_with("For");
  if (bOwnCurrency && !in_one_currency()) return {};
  Money sum;
  for (int nRow = 1; nRow <= rows_; ++nRow) {
    sum += Money::from_double(arap::NumberOf(window_.value(column.sKey, nRow)));
  }
  return grouped(qt(sum.text(column.nDecimals)));
}

int BodyModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : rows_; }

int BodyModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(columns_.size());
}

QVariant BodyModel::data(const QModelIndex& index, int nRole) const {
  if (!index.isValid() || index.row() >= static_cast<int>(window_.body().size())) return {};
  const TemplateField& column = field(index.column());
  const int nRow = index.row() + 1;
  switch (nRole) {
    case Qt::DisplayRole: return shown_text(column, window_.shown(column.sKey, nRow));
    case Qt::EditRole: return qt(window_.shown(column.sKey, nRow));
    case Qt::TextAlignmentRole: return text_alignment(column);
    case Qt::ForegroundRole: return text_colour(column, window_.value(column.sKey, nRow));
    case Qt::BackgroundRole: return window_.locked(column.sKey, nRow) ? QVariant(locked_colour()) : QVariant();
    case Qt::ToolTipRole: return qt(window_.lock_reason(column.sKey, nRow));
    default: return {};
  }
}

QVariant BodyModel::headerData(int nSection, Qt::Orientation orientation, int nRole) const {
  if (nRole == Qt::TextAlignmentRole && orientation == Qt::Horizontal) return text_alignment(field(nSection));
  if (nRole != Qt::DisplayRole) return {};
  return orientation == Qt::Vertical ? QVariant(nSection + 1) : QVariant(qt(field(nSection).sCaption));
}

Qt::ItemFlags BodyModel::flags(const QModelIndex& index) const {
  if (!index.isValid()) return {};
  const Qt::ItemFlags seen = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
  return window_.locked(field(index.column()).sKey, index.row() + 1) ? seen : seen | Qt::ItemIsEditable;
}

bool BodyModel::setData(const QModelIndex& index, const QVariant& vText, int nRole) {
  if (nRole != Qt::EditRole || !index.isValid()) return false;
  return enter_(field(index.column()).sKey, index.row() + 1, vText.toString());
}

}  // namespace desk
