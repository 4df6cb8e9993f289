#include "services/voucher_store.h"

#include <string>

#include "frame/conversions.h"

namespace desk {

namespace {

[[noreturn]] void refuse(const std::string& sWhat, const std::string& sHint) {
  throw DeskError(ErrorKind::BadValue, sWhat, "voucher", sHint);
}

std::int32_t insert_voucher(Database& database, const VoucherBill& bill, const Rows& head) {
  const std::string sDate = head.text(0, "FDate");
  const std::int32_t nYear = arap::LongOf(Value(sDate.substr(0, 4)));
  const std::int32_t nPeriod = arap::LongOf(Value(sDate.substr(5, 2)));
  const Rows made = database.query(
      "INSERT INTO t_Voucher (FDate, FYear, FPeriod, FNumber, FExplanation, FClassTypeID, FBillID) VALUES (?, ?, ?,"
      " (SELECT COALESCE(MAX(v.FNumber), 0) + 1 FROM t_Voucher v WHERE v.FYear = ? AND v.FPeriod = ?), ?, ?, ?)"
      " RETURNING FVoucherID",
      {Bind(sDate), Bind(nYear), Bind(nPeriod), Bind(nYear), Bind(nPeriod),
       Bind(std::string(bill.sBillName) + " " + head.text(0, "FBillNo")), Bind(bill.nClass), Bind(bill.nBillID)});
  return made.integer(0, "FVoucherID");
}

}  // namespace

void refuse_voucher(const Rows& head) {
  if (head.empty()) refuse("there is no such bill", "save the bill first");
  if (head.integer(0, "FStatus") != 1) refuse("the bill isn't checked", "check the bill first");
  if (head.integer(0, "FVoucherID") != 0) refuse("the bill has a voucher", "open the voucher it has");
  if (head.integer(0, "FAcctID") == 0) refuse("the bill has no settlement account", "uncheck it and enter one");
}

std::int32_t store_voucher(Database& database, const VoucherBill& bill, const Rows& head,
                           const std::vector<VoucherLine>& lines) {
  const std::int32_t nVoucherID = insert_voucher(database, bill, head);
  std::int32_t nEntry = 0;
  for (const VoucherLine& line : lines) {
    database.exec(
        "INSERT INTO t_VoucherEntry (FVoucherID, FEntryID, FAccountID, FDC, FCurrencyID, FExchangeRate, FAmountFor,"
        " FAmount) VALUES (?, ?, ?, ?, ?, ?, ?, ?)",
        {Bind(nVoucherID), Bind(++nEntry), Bind(line.nAccount),
         Bind(std::int32_t{line.side == VoucherSide::Debit ? 1 : 0}), Bind(head.integer(0, "FCurrencyID")),
         Bind(head.real(0, "FExchangeRate")), Bind(line.amountFor), Bind(line.amount)});
  }
  database.exec("UPDATE " + std::string(bill.sTable) + " SET FVoucherID = ? WHERE FBillID = ?",
                {Bind(nVoucherID), Bind(bill.nBillID)});
  return nVoucherID;
}

}  // namespace desk
