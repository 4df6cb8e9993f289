#include "windows/book_list.h"

#include <QVBoxLayout>

#include "services/book_queries.h"
#include "windows/captions.h"

namespace desk {

namespace {

constexpr auto kMoney = ListColumn::Kind::Money;

BookList open_items(const SettlementTables& tables) {
  return {open_items_sql(tables),
          {{"FPartnerName", "往来单位"},
           {"FShownNo", "单据编号"},
           {"FDate", "日期"},
           {"FDueDate", "到期日"},
           {"FCurrencyName", "币别"},
           {"FAmountFor", "金额", kMoney},
           {"FSettledFor", "已核销", kMoney},
           {"FOpenFor", "未核销", kMoney}}};
}

}  // namespace

BookList open_receivables() { return open_items(kReceiptTables); }
BookList open_payables() { return open_items(kPaymentTables); }

BookList action_log() {
  return {action_log_sql(LogOrder::NewestFirst),
          {{"FTime", "时间"}, {"FUser", "用户"}, {"FMachine", "计算机"}, {"FCode", "功能"}, {"FText", "内容"}}};
}

BookListView::BookListView(DeskSeat& seat, BookList list, QWidget* pParent)
    : RoomView(pParent), seat_(seat), sql_(std::move(list.sSql)), view_(new LinesView(std::move(list.columns), this)) {
  auto* pLayout = new QVBoxLayout(this);
  pLayout->setContentsMargins(0, 0, 0, 0);
  pLayout->addWidget(view_);
  connect(view_, &LinesView::selection_changed, this, &RoomView::status_changed);
}

void BookListView::refresh() {
  lines_ = seat_.database().query(sql_);
  view_->show_lines(lines_);
}

QString BookListView::status() const { return words("共%1行").arg(view_->model().rowCount()); }

}  // namespace desk
