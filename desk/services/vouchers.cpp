#include "services/vouchers.h"

#include <algorithm>
#include <vector>

#include "data/automation_names.h"
#include "data/recordset.h"
#include "frame/contract_containers.h"
#include "frame/conversions.h"
#include "frame/open_choices.h"
#include "services/component.h"

namespace desk {

namespace {

struct VoucherLine {
  std::int32_t nAccount;
  bool bDebit;
  Money amountFor;
  Money amount;
};

[[noreturn]] void refuse(const std::string& sWhat, const std::string& sHint) {
  throw DeskError(ErrorKind::BadValue, sWhat, "voucher", sHint);
}

std::int32_t balance_account(Database& database, const SettlementTables& tables) {
  const Rows rows = database.query("SELECT FAccountID FROM t_Account WHERE FNumber LIKE ? ORDER BY FNumber LIMIT 1",
                                   {Bind(std::string(tables.sBalanceAccount) + "%")});
  if (rows.empty())
    refuse("the book has no account " + std::string(tables.sBalanceAccount), "add the account of open balances");
  return rows.integer(0, "FAccountID");
}

std::vector<VoucherLine> lines_of(Database& database, const SettlementTables& tables, const Rows& head) {
  const bool bIn = tables.bMoneyComesIn;
  std::vector<VoucherLine> lines;
  lines.push_back({head.integer(0, "FAcctID"), bIn, head.money(0, "FGotFor"), head.money(0, "FGot")});
  // What was settled and not received went away as discount, to the last cent.
  const Money discountFor = head.money(0, "FAmountFor") - head.money(0, "FGotFor");
  const Money discount = head.money(0, "FAmount") - head.money(0, "FGot");
  if (!discount.is_zero()) lines.push_back({head.integer(0, "FDiscountAcctID"), bIn, discountFor, discount});
  lines.push_back({balance_account(database, tables), !bIn, head.money(0, "FAmountFor"), head.money(0, "FAmount")});
  std::stable_partition(lines.begin(), lines.end(), [](const VoucherLine& line) { return line.bDebit; });
  return lines;
}

void check_can_have_voucher(const Rows& head) {
  if (head.empty()) refuse("there is no such bill", "save the bill first");
  if (head.integer(0, "FStatus") != 1) refuse("the bill isn't checked", "check the bill first");
  if (head.integer(0, "FVoucherID") != 0) refuse("the bill has a voucher", "open the voucher it has");
  if (head.integer(0, "FAcctID") == 0) refuse("the bill has no settlement account", "uncheck it and enter one");
}

std::int32_t insert_voucher(Database& database, const SettlementTables& tables, std::int32_t nBillID,
                            const Rows& head) {
  const std::string sDate = head.text(0, "FDate");
  const std::int32_t nYear = arap::LongOf(Variant(sDate.substr(0, 4)));
  const std::int32_t nPeriod = arap::LongOf(Variant(sDate.substr(5, 2)));
  const Rows made = database.query(
      "INSERT INTO t_Voucher (FDate, FYear, FPeriod, FNumber, FExplanation, FClassTypeID, FBillID) VALUES (?, ?, ?,"
      " (SELECT COALESCE(MAX(v.FNumber), 0) + 1 FROM t_Voucher v WHERE v.FYear = ? AND v.FPeriod = ?), ?, ?, ?)"
      " RETURNING FVoucherID",
      {Bind(sDate), Bind(nYear), Bind(nPeriod), Bind(nYear), Bind(nPeriod),
       Bind(std::string(tables.sBillName) + " " + head.text(0, "FBillNo")), Bind(tables.nClass), Bind(nBillID)});
  return made.integer(0, "FVoucherID");
}

// A user whom an account names in its rights, and every user where it names none, may see the account.
bool may_see_voucher(Session& session, std::int32_t nVoucherID) {
  const Rows rows = session.database().query(
      "SELECT a.FRightUserID AS FUsers FROM t_VoucherEntry e JOIN t_Account a ON a.FAccountID = e.FAccountID"
      " WHERE e.FVoucherID = ? AND a.FRightUserID <> ''",
      {Bind(nVoucherID)});
  for (std::size_t i = 0; i < rows.size(); ++i) {
    if (rows.text(i, "FUsers").find(std::to_string(session.user_id())) == std::string::npos) return false;
  }
  return true;
}

// The data right on accounts: the text that marks the user, and whether any account is restricted at all.
Variant account_right(Session& session) {
  const arap::Dictionary oRight(session.registry().create(arap::open_choices::kDictionary));
  const bool bInUse = !session.database().query("SELECT 1 FROM t_Account WHERE FRightUserID <> '' LIMIT 1").empty();
  oRight.SetValue(arap::open_choices::kRightUserText, std::to_string(session.user_id()));
  oRight.SetValue(arap::open_choices::kRightInUse, bInUse);
  return oRight;
}

// LoadVoucher(nMode or sProps, nVoucherID, vMissing, oOptions)
Variant load_voucher(Session& session, Arguments args) {
  const std::int32_t nVoucherID = long_argument(args, 1);
  const std::string sVoucher = voucher_text(session.database(), nVoucherID);
  if (sVoucher.empty())
    throw arap::AutomationError(arap::ErrorNumber::InvalidProcedureCall, "voucher " + std::to_string(nVoucherID));
  session.shown_vouchers.push_back(sVoucher);
  return true;
}

}  // namespace

std::int32_t make_voucher(Session& session, const SettlementTables& tables, std::int32_t nBillID) {
  Database& database = session.database();
  Transaction transaction(database);
  const Rows head = database.query(
      side_sql(tables,
               "SELECT FBillNo, FDate, FStatus, FVoucherID, FAcctID, FDiscountAcctID, FCurrencyID, FExchangeRate,"
               " FAmountFor, FAmount, F{got}AmountFor AS FGotFor, F{got}Amount AS FGot FROM {bill}"
               " WHERE FBillID = ?"),
      {Bind(nBillID)});
  check_can_have_voucher(head);
  const std::int32_t nVoucherID = insert_voucher(database, tables, nBillID, head);
  std::int32_t nEntry = 0;
  for (const VoucherLine& line : lines_of(database, tables, head)) {
    database.exec(
        "INSERT INTO t_VoucherEntry (FVoucherID, FEntryID, FAccountID, FDC, FCurrencyID, FExchangeRate, FAmountFor,"
        " FAmount) VALUES (?, ?, ?, ?, ?, ?, ?, ?)",
        {Bind(nVoucherID), Bind(++nEntry), Bind(line.nAccount), Bind(std::int32_t{line.bDebit ? 1 : 0}),
         Bind(head.integer(0, "FCurrencyID")), Bind(head.real(0, "FExchangeRate")), Bind(line.amountFor),
         Bind(line.amount)});
  }
  database.exec(side_sql(tables, "UPDATE {bill} SET FVoucherID = ? WHERE FBillID = ?"),
                {Bind(nVoucherID), Bind(nBillID)});
  transaction.commit();
  return nVoucherID;
}

std::string voucher_text(Database& database, std::int32_t nVoucherID) {
  const Rows rows = database.query(
      "SELECT v.FDate AS FDate, v.FNumber AS FNumber, v.FExplanation AS FExplanation, e.FDC AS FDC,"
      " e.FAmount AS FAmount, a.FNumber AS FAccount, a.FName AS FAccountName FROM t_Voucher v"
      " JOIN t_VoucherEntry e ON e.FVoucherID = v.FVoucherID LEFT JOIN t_Account a ON a.FAccountID = e.FAccountID"
      " WHERE v.FVoucherID = ? ORDER BY e.FEntryID",
      {Bind(nVoucherID)});
  if (rows.empty()) return {};
  std::string sText = "凭证 " + std::to_string(rows.integer(0, "FNumber")) + "  " + rows.text(0, "FDate") + "  " +
                      rows.text(0, "FExplanation");
  Money debit, credit;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const bool bDebit = rows.integer(i, "FDC") == 1;
    (bDebit ? debit : credit) += rows.money(i, "FAmount");
    sText += std::string("\n") + (bDebit ? "借 " : "贷 ") + rows.text(i, "FAccount") + " " +
             rows.text(i, "FAccountName") + "  " + rows.money(i, "FAmount").text();
  }
  return sText + "\n合计 借 " + debit.text() + "  贷 " + credit.text();
}

void register_vouchers(Session& session) {
  ObjectRegistry& registry = session.registry();
  registry.add("NUVMVEdit.MVoucherEdit", [&session] {
    return make_component("MVoucherEdit",
                          {{Member::LoadVoucher, [&session](Arguments args) { return load_voucher(session, args); }}});
  });
  registry.add("NUVLPSGLVoucher.VoucherInfo", [&session] {
    return make_component("VoucherInfo", {{Member::CheckVoucherRight, [&session](Arguments args) {
                                             return Variant(may_see_voucher(session, long_argument(args, 1)));
                                           }}});
  });
  registry.add("NUVLPSGLItem.ItemInfo", [&session] {
    return make_component("ItemInfo",
                          {{Member::GetDataRight, [&session](Arguments) { return account_right(session); }}});
  });
}

}  // namespace desk
