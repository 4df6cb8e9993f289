#include "windows/book_list.h"

#include <QVBoxLayout>

#include "services/settlement_tables.h"
#include "windows/captions.h"

namespace desk {

namespace {

constexpr auto kMoney = ListColumn::Kind::Money;

BookList open_items(const SettlementTables& tables) {
  // An opening balance has no number.
  return {side_sql(tables,
                   "SELECT p.FName AS FPartner, CASE v.FBillNo WHEN '' THEN '" + std::string(tables.sOpeningName) +
                       "' ELSE v.FBillNo END AS FBillNo, v.FDate AS FDate, v.FDueDate AS FDueDate,"
                       " c.FName AS FCurrency, v.FBillAmountFor AS FAmountFor, v.FBill{got}AmountFor AS FSettledFor,"
                       " v.FBillUn{got}AmountFor AS FOpenFor FROM {openview} v LEFT JOIN {partners} p ON p.FItemID ="
                       " v.{viewpartner} LEFT JOIN t_Currency c ON c.FCurrencyID = v.FCurrencyID"
                       " ORDER BY p.FNumber, v.FDueDate, v.FBillNo"),
          {{"FPartner", "往来单位"},
           {"FBillNo", "单据编号"},
           {"FDate", "日期"},
           {"FDueDate", "到期日"},
           {"FCurrency", "币别"},
           {"FAmountFor", "金额", kMoney},
           {"FSettledFor", "已核销", kMoney},
           {"FOpenFor", "未核销", kMoney}}};
}

}  // namespace

BookList open_receivables() { return open_items(kReceiptTables); }
BookList open_payables() { return open_items(kPaymentTables); }

BookList action_log() {
  return {"SELECT FTime, FUser, FMachine, FCode, FText FROM t_Log ORDER BY FLogID DESC",
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
