#pragma once

#include "windows/desk_seat.h"
#include "windows/lines_view.h"
#include "windows/room_view.h"

namespace desk {

/// A list that is one query of the book.
struct BookList {
  std::string sSql;
  std::vector<ListColumn> columns;
};

BookList open_receivables();
BookList open_payables();
BookList action_log();

/// A room without a plug-in: it shows and opens nothing.
class BookListView final : public RoomView {
  Q_OBJECT
 public:
  BookListView(DeskSeat& seat, BookList list, QWidget* pParent);

  void refresh() override;
  void retranslate() override { view_->retranslate(); }
  void open_current() override {}
  QTableView& table() override { return view_->table(); }
  QString status() const override;

 private:
  DeskSeat& seat_;
  std::string sql_;
  Rows lines_;
  LinesView* view_;
};

}  // namespace desk
