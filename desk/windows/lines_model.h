#pragma once

#include <QAbstractTableModel>

#include <string>
#include <vector>

#include "data/database.h"

namespace desk {

struct ListColumn {
  enum class Kind : std::uint8_t { Text, Money, State };
  std::string sColumn;
  const char* sCaption;
  Kind kind = Kind::Text;
};

/// The lines of a query as a table, in any order and narrowed down by a text. The lines belong to somebody else; a cell
/// is made when it is painted, so that many lines cost no more than few.
class LinesModel final : public QAbstractTableModel {
  Q_OBJECT
 public:
  LinesModel(std::vector<ListColumn> columns, QObject* pParent);

  /// The owner has read its lines anew. They stay where they are until the next call.
  void show_lines(const Rows& lines);
  /// Only lines with this text in one of their cells stay in view; in any case.
  void narrow(const QString& sText);
  /// The captions in the desk's language of now.
  void retranslate();

  /// The place of a row in view among the lines; the row of a line, -1 when it isn't in view.
  std::size_t line(int nRow) const { return seen_[static_cast<std::size_t>(nRow)]; }
  int row_of(std::size_t nLine) const;

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int nRole) const override;
  QVariant headerData(int nSection, Qt::Orientation orientation, int nRole) const override;
  void sort(int nColumn, Qt::SortOrder order) override;

 private:
  QString text(std::size_t nLine, std::size_t nColumn) const;
  QVariant colour(std::size_t nLine, std::size_t nColumn) const;
  void order_lines();
  void choose_seen();

  std::vector<ListColumn> columns_;
  const Rows* lines_ = nullptr;
  std::vector<int> places_;                // of the columns among those of the lines; -1 for one that they lack
  std::vector<std::size_t> order_;         // all lines, sorted
  std::vector<std::size_t> seen_;          // those in view
  mutable std::vector<QString> found_in_;  // what a line is found by, made at the first search
  QString narrowed_to_;
  int sorted_by_ = -1;
  Qt::SortOrder sort_order_ = Qt::AscendingOrder;
};

}  // namespace desk
