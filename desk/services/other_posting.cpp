#include "services/other_posting.h"

namespace desk {

using posting::BillHead;
using posting::in_transaction;
using posting::kCheck;
using posting::kDelete;
using posting::kUncheck;
using posting::refuse;

PostingResult OtherPosting::check(std::int32_t nBillID, const std::string& sUser) {
  return in_transaction(database_, [&] {
    const BillHead head = open_head(nBillID, kCheck);
    // An immediate bill settles itself, in base currency to the cent too; nothing is settled of a credit bill yet.
    const bool bImmediate = head.row.integer(0, "FBillTypeID") == tables_.side.nImmediateType;
    const std::string sSettled =
        bImmediate ? "FCheckAmountFor = FAmountFor, FCheckAmount = FAmount" : "FCheckAmountFor = 0, FCheckAmount = 0";
    database_.exec(
        sql("UPDATE {other} SET FStatus = 1, FChecker = ?, FCheckDate = ?, " + sSettled + " WHERE FBillID = ?"),
        {Bind(sUser), Bind(posting::check_date()), Bind(nBillID)});
    return PostingResult{true, {}, head.sBillNo};
  });
}

PostingResult OtherPosting::uncheck(std::int32_t nBillID) {
  return in_transaction(database_, [&] {
    const BillHead head = open_head(nBillID, kUncheck);
    refuse_settled_bill(head);
    database_.exec(sql("UPDATE {other} SET FStatus = 0, FChecker = '', FCheckDate = '' WHERE FBillID = ?"),
                   {Bind(nBillID)});
    return PostingResult{true, {}, head.sBillNo};
  });
}

PostingResult OtherPosting::remove(std::int32_t nBillID) {
  return in_transaction(database_, [&] {
    const BillHead head = open_head(nBillID, kDelete);
    refuse_drawn_bill(head);
    database_.exec(sql("DELETE FROM {other}Entry WHERE FBillID = ?"), {Bind(nBillID)});
    database_.exec(sql("DELETE FROM {other} WHERE FBillID = ?"), {Bind(nBillID)});
    return PostingResult{true, {}, head.sBillNo};
  });
}

BillHead OtherPosting::open_head(std::int32_t nBillID, std::string_view sAction) {
  return posting::open_head(database_, {tables_.side.sOther, tables_.sBillName, "FBillTypeID"}, nBillID, sAction,
                            lock_lost_);
}

void OtherPosting::refuse_settled_bill(const BillHead& head) {
  posting::refuse_with_voucher(head, kUncheck);
  // Not by the sum: write-offs that cancel each other out are there all the same.
  const Rows rows =
      database_.query(sql("SELECT 1 FROM {entry} e JOIN {bill} b ON b.FBillID = e.FBillID WHERE b.FStatus = 1"
                          " AND e.FClassID_SRC IN ({otherclasses}) AND e.FInterID = ? LIMIT 1"),
                      {Bind(head.nBillID)});
  if (!rows.empty()) posting::refuse_as_settled(head, kUncheck);
}

// Ids are given again: a bill that draws a deleted one would settle whatever comes after it.
void OtherPosting::refuse_drawn_bill(const BillHead& head) {
  const Rows rows =
      database_.query(sql("SELECT b.FBillNo AS FBillNo FROM {entry} e JOIN {bill} b ON b.FBillID = e.FBillID"
                          " WHERE e.FClassID_SRC IN ({otherclasses}) AND e.FInterID = ? ORDER BY b.FBillID LIMIT 1"),
                      {Bind(head.nBillID)});
  if (rows.empty()) return;
  refuse(
      "单据[" + head.sBillNo + "]已被" + std::string(tables_.side.sBillName) + "[" + rows.text(0, "FBillNo") + "]选用",
      kDelete);
}

}  // namespace desk
