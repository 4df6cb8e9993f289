#include "services/other_posting.h"

namespace desk {

using posting::in_transaction;
using posting::kCheck;
using posting::kDelete;
using posting::kUncheck;
using posting::refuse;

struct OtherPosting::Head {
  std::int32_t nBillID = 0;
  std::string sBillNo;
  bool bChecked = false;
  bool bImmediate = false;
  std::int32_t nVoucher = 0;
};

PostingResult OtherPosting::check(std::int32_t nBillID, const std::string& sUser) {
  return in_transaction(database_, [&] {
    const Head head = read_head(nBillID, kCheck);
    if (head.bChecked) refuse(name_of(head) + "已经审核", kCheck);
    // An immediate bill settles itself, in base currency to the cent too; nothing is settled of a credit bill yet.
    const std::string sSettled = head.bImmediate ? "FCheckAmountFor = FAmountFor, FCheckAmount = FAmount"
                                                 : "FCheckAmountFor = 0, FCheckAmount = 0";
    database_.exec(
        sql("UPDATE {other} SET FStatus = 1, FChecker = ?, FCheckDate = ?, " + sSettled + " WHERE FBillID = ?"),
        {Bind(sUser), Bind(posting::check_date()), Bind(nBillID)});
    return PostingResult{true, {}, head.sBillNo};
  });
}

PostingResult OtherPosting::uncheck(std::int32_t nBillID) {
  return in_transaction(database_, [&] {
    const Head head = read_head(nBillID, kUncheck);
    if (!head.bChecked) refuse(name_of(head) + "没有审核", kUncheck);
    refuse_settled_bill(head);
    database_.exec(sql("UPDATE {other} SET FStatus = 0, FChecker = '', FCheckDate = '' WHERE FBillID = ?"),
                   {Bind(nBillID)});
    return PostingResult{true, {}, head.sBillNo};
  });
}

PostingResult OtherPosting::remove(std::int32_t nBillID) {
  return in_transaction(database_, [&] {
    const Head head = read_head(nBillID, kDelete);
    if (head.bChecked) refuse(name_of(head) + "已经审核", kDelete);
    refuse_drawn_bill(head);
    database_.exec(sql("DELETE FROM {other}Entry WHERE FBillID = ?"), {Bind(nBillID)});
    database_.exec(sql("DELETE FROM {other} WHERE FBillID = ?"), {Bind(nBillID)});
    return PostingResult{true, {}, head.sBillNo};
  });
}

OtherPosting::Head OtherPosting::read_head(std::int32_t nBillID, std::string_view sAction) {
  const Rows rows = database_.query(
      sql("SELECT FBillNo, FStatus, FBillTypeID, FVoucherID FROM {other} WHERE FBillID = ?"), {Bind(nBillID)});
  if (rows.empty()) refuse(std::string(tables_.sBillName) + "已被删除", sAction);
  Head head;
  head.nBillID = nBillID;
  head.sBillNo = rows.text(0, "FBillNo");
  head.bChecked = rows.integer(0, "FStatus") == 1;
  head.bImmediate = rows.integer(0, "FBillTypeID") == tables_.side.nImmediateType;
  head.nVoucher = rows.integer(0, "FVoucherID");
  if (lock_lost_ && lock_lost_(nBillID)) refuse("单据[" + head.sBillNo + "]的锁定已失效,请重新操作", sAction);
  return head;
}

void OtherPosting::refuse_settled_bill(const Head& head) {
  if (head.nVoucher != 0) refuse("单据[" + head.sBillNo + "]已经生成凭证", kUncheck);
  // Not by the sum: write-offs that cancel each other out are there all the same.
  const Rows rows =
      database_.query(sql("SELECT 1 FROM {entry} e JOIN {bill} b ON b.FBillID = e.FBillID WHERE b.FStatus = 1"
                          " AND e.FClassID_SRC IN ({otherclasses}) AND e.FInterID = ? LIMIT 1"),
                      {Bind(head.nBillID)});
  if (!rows.empty()) refuse("单据[" + head.sBillNo + "]已经被核销", kUncheck);
}

// Ids are given again: a bill that draws a deleted one would settle whatever comes after it.
void OtherPosting::refuse_drawn_bill(const Head& head) {
  const Rows rows =
      database_.query(sql("SELECT b.FBillNo AS FBillNo FROM {entry} e JOIN {bill} b ON b.FBillID = e.FBillID"
                          " WHERE e.FClassID_SRC IN ({otherclasses}) AND e.FInterID = ? ORDER BY b.FBillID LIMIT 1"),
                      {Bind(head.nBillID)});
  if (rows.empty()) return;
  refuse(
      "单据[" + head.sBillNo + "]已被" + std::string(tables_.side.sBillName) + "[" + rows.text(0, "FBillNo") + "]选用",
      kDelete);
}

std::string OtherPosting::name_of(const Head& head) const {
  return std::string(tables_.sBillName) + "[" + head.sBillNo + "]";
}

}  // namespace desk
