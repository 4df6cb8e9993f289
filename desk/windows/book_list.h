#pragma once

#include <QAbstractTableModel>

#include <string>
#include <string_view>
#include <vector>

#include "data/database.h"

namespace desk {

struct ListColumn {
  std::string sColumn;
  const char* sCaption;
  bool bMoney = false;
};

/// A list of the book: one query, its columns, and which class of bill a line opens.
struct BookList {
  const char* sCaption;
  std::string sTemplate;  // of the bill that a line opens; "" when it opens none
  std::string sSql;
  std::vector<ListColumn> columns;
};

/// The lists that the desk shows: bills, open items and the log.
std::vector<BookList> book_lists();

/// The rows of a list, read when it is refreshed; cells are made when they are painted.
class BookListModel final : public QAbstractTableModel {
  Q_OBJECT
 public:
  BookListModel(Database& database, BookList list, QObject* pParent);

  void refresh();
  const BookList& list() const { return list_; }
  /// FBillID of a line; 0 when the list has none.
  std::int32_t bill_id(int nRow) const;

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int nRole) const override;
  QVariant headerData(int nSection, Qt::Orientation orientation, int nRole) const override;
  void sort(int nColumn, Qt::SortOrder order) override;

 private:
  std::size_t line(int nRow) const { return order_[static_cast<std::size_t>(nRow)]; }

  Database& database_;
  BookList list_;
  Rows rows_;
  std::vector<std::size_t> order_;
  int sorted_by_ = -1;
  Qt::SortOrder sort_order_ = Qt::AscendingOrder;
};

}  // namespace desk
