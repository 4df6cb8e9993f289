#include "services/vouchers.h"

#include <algorithm>

#include "data/automation_names.h"
#include "data/recordset.h"
#include "frame/contract_containers.h"
#include "frame/conversions.h"
#include "frame/open_choices.h"
#include "services/component.h"
#include "services/voucher_store.h"

namespace desk {

namespace {

std::int32_t balance_account(Database& database, const SettlementTables& tables) {
  const Rows rows = database.query("SELECT FAccountID FROM t_Account WHERE FNumber LIKE ? ORDER BY FNumber LIMIT 1",
                                   {Bind(std::string(tables.sBalanceAccount) + "%")});
  if (rows.empty()) {
    throw DeskError(ErrorKind::BadValue, "the book has no account " + std::string(tables.sBalanceAccount), "voucher",
                    "add the account of open balances");
  }
  return rows.integer(0, "FAccountID");
}

std::vector<VoucherLine> lines_of(Database& database, const SettlementTables& tables, const Rows& head) {
  const VoucherSide money = tables.moneySide;
  std::vector<VoucherLine> lines;
  lines.push_back({head.integer(0, "FAcctID"), money, head.money(0, "FGotFor"), head.money(0, "FGot")});
  // What was settled and not received went away as discount, to the last cent.
  const Money discountFor = head.money(0, "FAmountFor") - head.money(0, "FGotFor");
  const Money discount = head.money(0, "FAmount") - head.money(0, "FGot");
  if (!discount.is_zero()) lines.push_back({head.integer(0, "FDiscountAcctID"), money, discountFor, discount});
  lines.push_back(
      {balance_account(database, tables), opposite(money), head.money(0, "FAmountFor"), head.money(0, "FAmount")});
  std::stable_partition(lines.begin(), lines.end(),
                        [](const VoucherLine& line) { return line.side == VoucherSide::Debit; });
  return lines;
}

// The claim or the money on the settlement account against the accounts of the types, row by row.
std::vector<VoucherLine> lines_of_other(Database& database, const OtherTables& tables, std::int32_t nBillID,
                                        const Rows& head) {
  const VoucherSide money = tables.side.moneySide;
  std::vector<VoucherLine> lines{
      {head.integer(0, "FAcctID"), money, head.money(0, "FAmountFor"), head.money(0, "FAmount")}};
  const Rows rows = database.query(
      side_sql(tables.side,
               "SELECT t.FAcctID AS FAcctID, t.FName AS FName, e.FBillAmountFor AS FAmountFor, e.FBillAmount AS FAmount"
               " FROM {other}Entry e LEFT JOIN t_RP_InOutType t ON t.FID = e.FInOutTypeID WHERE e.FBillID = ?"
               " ORDER BY e.FIndex"),
      {Bind(nBillID)});
  for (std::size_t i = 0; i < rows.size(); ++i) {
    if (rows.integer(i, "FAcctID") == 0) {
      throw DeskError(ErrorKind::BadValue, "the type " + rows.text(i, "FName") + " has no account", "voucher",
                      "enter the account of the type");
    }
    lines.push_back(
        {rows.integer(i, "FAcctID"), opposite(money), rows.money(i, "FAmountFor"), rows.money(i, "FAmount")});
  }
  std::stable_partition(lines.begin(), lines.end(),
                        [](const VoucherLine& line) { return line.side == VoucherSide::Debit; });
  return lines;
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
  if (!read_voucher(session.database(), nVoucherID))
    throw arap::AutomationError(arap::ErrorNumber::InvalidProcedureCall, "voucher " + std::to_string(nVoucherID));
  session.shown_vouchers.push_back(nVoucherID);
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
  refuse_voucher(head);
  const std::int32_t nVoucherID = store_voucher(database, {tables.nClass, nBillID, tables.sBillName, tables.sBill},
                                                head, lines_of(database, tables, head));
  transaction.commit();
  return nVoucherID;
}

std::int32_t make_voucher(Session& session, const OtherTables& tables, std::int32_t nBillID) {
  Database& database = session.database();
  Transaction transaction(database);
  const Rows head =
      database.query(side_sql(tables.side,
                              "SELECT FBillNo, FDate, FStatus, FVoucherID, FAcctID, FCurrencyID, FExchangeRate,"
                              " FAmountFor, FAmount FROM {other} WHERE FBillID = ?"),
                     {Bind(nBillID)});
  refuse_voucher(head);
  const std::int32_t nVoucherID =
      store_voucher(database, {tables.nClass, nBillID, tables.sBillName, tables.side.sOther}, head,
                    lines_of_other(database, tables, nBillID, head));
  transaction.commit();
  return nVoucherID;
}

std::optional<Voucher> read_voucher(Database& database, std::int32_t nVoucherID) {
  const Rows rows = database.query(
      "SELECT v.FDate AS FDate, v.FNumber AS FNumber, v.FExplanation AS FExplanation, e.FDC AS FDC,"
      " e.FAmount AS FAmount, a.FNumber AS FAccount, a.FName AS FAccountName FROM t_Voucher v"
      " JOIN t_VoucherEntry e ON e.FVoucherID = v.FVoucherID LEFT JOIN t_Account a ON a.FAccountID = e.FAccountID"
      " WHERE v.FVoucherID = ? ORDER BY e.FEntryID",
      {Bind(nVoucherID)});
  if (rows.empty()) return std::nullopt;
  Voucher voucher{rows.integer(0, "FNumber"), rows.text(0, "FDate"), rows.text(0, "FExplanation"), {}, {}, {}};
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const bool bDebit = rows.integer(i, "FDC") == 1;
    const Money amount = rows.money(i, "FAmount");
    (bDebit ? voucher.debit : voucher.credit) += amount;
    voucher.aEntries.push_back({rows.text(i, "FAccount"), rows.text(i, "FAccountName"), bDebit, amount});
  }
  return voucher;
}

std::string voucher_text(Database& database, std::int32_t nVoucherID) {
  const std::optional<Voucher> voucher = read_voucher(database, nVoucherID);
  if (!voucher) return {};
  std::string sText = "凭证 " + std::to_string(voucher->nNumber) + "  " + voucher->sDate + "  " + voucher->sExplanation;
  for (const VoucherEntry& entry : voucher->aEntries) {
    sText += std::string("\n") + (entry.bDebit ? "借 " : "贷 ") + entry.sAccount + " " + entry.sAccountName + "  " +
             entry.amount.text();
  }
  return sText + "\n合计 借 " + voucher->debit.text() + "  贷 " + voucher->credit.text();
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
