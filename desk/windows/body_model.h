#pragma once

#include <QAbstractTableModel>

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "engine/bill_window.h"

namespace desk {

/// The body of a bill as a table: a view on the engine that holds no value itself, so that ten thousand rows cost
/// nothing but what is on screen.
class BodyModel final : public QAbstractTableModel {
  Q_OBJECT
 public:
  /// Enters a text into a cell as the user's; false when it was refused.
  using Enter = std::function<bool(const std::string& sKey, int nRow, const QString& sText)>;

  BodyModel(BillWindow& window, Enter enter, QObject* pParent);

  /// After anything that can have changed rows, values, locks or columns.
  void refresh();
  const TemplateField& field(int nColumn) const;
  int column_of(std::string_view sKey) const;
  /// The total of a money column as its cells show amounts; "" for another column, and for amounts of several
  /// currencies, which have no total. Kept until the next refresh.
  QString total(int nColumn) const;

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int nRole) const override;
  QVariant headerData(int nSection, Qt::Orientation orientation, int nRole) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;
  bool setData(const QModelIndex& index, const QVariant& vText, int nRole) override;

 private:
  std::vector<std::size_t> visible_fields() const;
  bool in_one_currency() const;
  QString sum_of(const TemplateField& column) const;

  BillWindow& window_;
  Enter enter_;
  std::vector<std::size_t> columns_;
  int rows_ = 0;
  mutable std::vector<std::optional<QString>> totals_;  // by column, worked out when first asked for
};

}  // namespace desk
