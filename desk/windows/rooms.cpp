#include "windows/rooms.h"

#include "services/type_keeper.h"
#include "windows/base_data_view.h"
#include "windows/bill_list_view.h"
#include "windows/book_list.h"
#include "windows/record_list_view.h"

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

/// The tree and grid of base data, with the plug-in behind it.
template <OpenBaseWindow (*open)(Session&, const std::string&)>
RoomView* base_data(DeskSeat& seat, QWidget* pParent) {
  return new BaseDataView(seat, open(seat.session, seat.sToday), pParent);
}

/// Lists of records, with the plug-in behind each.
template <RecordRoom (*room)()>
RoomView* record_lists(DeskSeat& seat, QWidget* pParent) {
  return new RecordListView(seat, room(), pParent);
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
      {"收支类别", base_data<open_type_window>},
      {"收支类别一览", base_data<open_type_view>},
      {"发票", record_lists<invoice_room>},
      {"期初余额", record_lists<opening_room>},
      {"应收明细", book_list<open_receivables>},
      {"应付明细", book_list<open_payables>},
      {"操作日志", book_list<action_log>},
  };
  return kRooms;
}

}  // namespace desk
