#include "services/posting.h"

#include <QDate>

namespace desk::posting {

BillHead open_head(Database& database, const BillPlace& place, std::int32_t nBillID, std::string_view sAction,
                   const BillPosting::LockLost& lock_lost) {
  const std::string sName(place.sBillName);
  BillHead head;
  head.nBillID = nBillID;
  head.row = database.query("SELECT FBillNo, FStatus, FVoucherID, " + place.sColumns + " FROM " +
                                std::string(place.sTable) + " WHERE FBillID = ?",
                            {Bind(nBillID)});
  if (head.row.empty()) refuse(sName + "已被删除", sAction);
  head.sBillNo = head.row.text(0, "FBillNo");
  head.nVoucher = head.row.integer(0, "FVoucherID");
  if (lock_lost && lock_lost(nBillID)) refuse("单据[" + head.sBillNo + "]的锁定已失效,请重新操作", sAction);
  const bool bChecked = head.row.integer(0, "FStatus") == 1;
  const bool bNeedsChecked = sAction == kUncheck;
  if (bChecked != bNeedsChecked)
    refuse(sName + "[" + head.sBillNo + "]" + (bChecked ? "已经审核" : "没有审核"), sAction);
  return head;
}

void refuse_with_voucher(const BillHead& head, std::string_view sAction) {
  if (head.nVoucher != 0) refuse("单据[" + head.sBillNo + "]已经生成凭证", sAction);
}

void refuse_as_settled(const BillHead& head, std::string_view sAction) {
  refuse("单据[" + head.sBillNo + "]已经被核销", sAction);
}

std::string check_date() { return QDate::currentDate().toString(Qt::ISODate).toStdString(); }

}  // namespace desk::posting
