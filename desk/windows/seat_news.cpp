#include "windows/seat_news.h"

#include "windows/captions.h"
#include "windows/qt_text.h"
#include "windows/result_dialog.h"
#include "windows/shown_bills_dialog.h"
#include "windows/voucher_dialog.h"

namespace desk {

SeatNews::SeatNews(Session& session)
    : session_(session),
      vouchers_seen_(session.shown_vouchers.size()),
      results_seen_(session.shown_results.size()),
      bills_seen_(session.shown_bill_lists.size()) {}

void SeatNews::show(QWidget* pParent) {
  if (vouchers_seen_ < session_.shown_vouchers.size()) {
    if (const auto voucher = read_voucher(session_.database(), session_.shown_vouchers.back()))
      VoucherDialog(*voucher, pParent).exec();
  }
  vouchers_seen_ = session_.shown_vouchers.size();
  if (results_seen_ < session_.shown_results.size())
    ResultDialog(qt(session_.shown_results.back()).split(QLatin1Char('\n')), pParent).exec();
  results_seen_ = session_.shown_results.size();
  if (bills_seen_ < session_.shown_bill_lists.size())
    ShownBillsDialog(session_.database(), session_.shown_bill_lists.back(), pParent).exec();
  bills_seen_ = session_.shown_bill_lists.size();
}

}  // namespace desk
