#include "windows/rooms.h"

#include "windows/bill_list_view.h"
#include "windows/book_list.h"

namespace desk {

namespace {

using MakeRoom = RoomView* (*)(DeskSeat&, QWidget*);

/// The list of a template's bills, with the plug-in behind it.
template <const char* sTemplate>
RoomView* bill_list(DeskSeat& seat, QWidget* pParent) {
  return new BillListView(seat, sTemplate, pParent);
}

/// One query of the book.
template <BookList (*list)()>
RoomView* book_list(DeskSeat& seat, QWidget* pParent) {
  return new BookListView(seat, list(), pParent);
}

constexpr char kReceipt[] = "receipt";
constexpr char kPayment[] = "payment";
constexpr char kOtherReceivable[] = "other_receivable";
constexpr char kOtherPayable[] = "other_payable";

}  // namespace

const std::vector<Room>& rooms() {
  static const std::vector<Room> kRooms{
      {"收款单", bill_list<kReceipt>},
      {"付款单", bill_list<kPayment>},
      {"其他收入单", bill_list<kOtherReceivable>},
      {"费用支出单", bill_list<kOtherPayable>},
      {"应收明细", book_list<open_receivables>},
      {"应付明细", book_list<open_payables>},
      {"操作日志", book_list<action_log>},
  };
  return kRooms;
}

}  // namespace desk
