#include "services/settlement_posting.h"

namespace desk {

using posting::BillHead;
using posting::in_transaction;
using posting::kCheck;
using posting::kDelete;
using posting::kUncheck;
using posting::refuse;

namespace {

// The two kinds of source, each with its own key and its own columns of what was received.
struct SourceKind {
  std::string_view sTable;
  std::string_view sKey;
  std::string_view sClasses;
  std::string_view sReceived;  // what was settled so far; its base amount is without the "For"
  std::string_view sReceivedBase;
  std::string_view sClosed;  // a source that nothing can be settled of, whatever its figures
};

constexpr SourceKind kSourceKinds[] = {
    {"{invoice}", "FInterID", "{invoiceclasses}", "FReceiveAmountFor", "FReceiveAmount", "1 = 0"},
    {"{other}", "FBillID", "{otherclasses}", "FCheckAmountFor", "FCheckAmount", "t.FBillTypeID = {immediate}"},
};

// What the bill's rows settle of each source of the kind: straight, and through the row that a refund row names; with
// other columns over these rows. Two parameters, both the bill. The class stands behind a sign so that the rows are
// found by their bill: the index on the source would go through those of all bills.
std::string settled_by_source(const SourceKind& kind, std::string_view sColumns) {
  const std::string sClasses(kind.sClasses);
  return "(SELECT FSourceID, " + std::string(sColumns) +
         "SUM(FSettleFor) AS FSettleFor, SUM(FSettle) AS FSettle FROM ("
         "SELECT e.FInterID AS FSourceID, e.FIndex AS FIndex, e.{number} AS FNumber,"
         " e.FBillSettleAmountFor AS FSettleFor, e.FBillSettleAmount AS FSettle"
         " FROM {entry} e WHERE e.FBillID = ? AND e.FInterID > 0 AND +e.FClassID_SRC IN (" +
         sClasses +
         ")"
         " UNION ALL "
         "SELECT p.FInterID, e.FIndex, p.{number}, e.FBillSettleAmountFor, e.FBillSettleAmount"
         " FROM {entry} e JOIN {entry} p ON p.FID = e.FEntryID_SRC"
         " WHERE e.FBillID = ? AND +e.FClassID_SRC = {class} AND p.FClassID_SRC IN (" +
         sClasses +
         ")"
         ") r GROUP BY FSourceID)";
}

// Where a bad source stands in the bill.
constexpr std::string_view kFirstRow = "MIN(FIndex) AS FIndex, MIN(FNumber) AS FNumber, ";

// Adds to each source of the kind what the bill's rows settle of it, or takes it away. Two parameters, both the bill.
std::string posting_of(const SourceKind& kind, const std::string& sSign) {
  const std::string sFor(kind.sReceived), sBase(kind.sReceivedBase), sTable(kind.sTable);
  return "UPDATE " + sTable + " SET " + sFor + " = " + sTable + "." + sFor + sSign + "d.FSettleFor, " + sBase + " = " +
         sTable + "." + sBase + sSign + "d.FSettle FROM " + settled_by_source(kind, "") + " d WHERE " + sTable + "." +
         std::string(kind.sKey) + " = d.FSourceID";
}

// What the bill's refund rows give back of each earlier row. One parameter, the bill.
constexpr std::string_view kGivenBackByRow =
    "(SELECT e.FEntryID_SRC AS FSourceID, MIN(e.FIndex) AS FIndex, MIN(e.{number}) AS FNumber,"
    " -SUM(e.FBillSettleAmountFor) AS FBackFor, -SUM(e.FBillSettleAmount) AS FBack FROM {entry} e"
    " WHERE e.FBillID = ? AND +e.FClassID_SRC = {class} GROUP BY e.FEntryID_SRC)";

// True where `sAfter` leaves the range between 0 and `sWhole`, whatever the sign of the whole.
std::string out_of_range(std::string_view sAfter, std::string_view sWhole) {
  const std::string a = "(" + std::string(sAfter) + ")", w = "(" + std::string(sWhole) + ")";
  return "((" + w + " >= 0 AND (" + a + " < 0 OR " + a + " > " + w + ")) OR (" + w + " < 0 AND (" + a + " > 0 OR " + a +
         " < " + w + ")))";
}

}  // namespace

PostingResult SettlementPosting::check(std::int32_t nBillID, const std::string& sUser) {
  return in_transaction(database_, [&] {
    const BillHead head = open_head(nBillID, kCheck);
    refuse_advance_overdraw(head, kCheck, true);
    refuse_over_settling(nBillID, kCheck, true);
    // From here on nothing is refused.
    post_sources(nBillID, true);
    database_.exec(sql("UPDATE {bill} SET FStatus = 1, FChecker = ?, FCheckDate = ? WHERE FBillID = ?"),
                   {Bind(sUser), Bind(posting::check_date()), Bind(nBillID)});
    return PostingResult{true, {}, head.sBillNo};
  });
}

PostingResult SettlementPosting::uncheck(std::int32_t nBillID) {
  return in_transaction(database_, [&] {
    const BillHead head = open_head(nBillID, kUncheck);
    refuse_used_bill(head, kUncheck);
    refuse_advance_overdraw(head, kUncheck, false);
    refuse_over_settling(nBillID, kUncheck, false);
    // From here on nothing is refused.
    post_sources(nBillID, false);
    database_.exec(sql("UPDATE {bill} SET FStatus = 0, FChecker = '', FCheckDate = '' WHERE FBillID = ?"),
                   {Bind(nBillID)});
    return PostingResult{true, {}, head.sBillNo};
  });
}

PostingResult SettlementPosting::remove(std::int32_t nBillID) {
  return in_transaction(database_, [&] {
    const BillHead head = open_head(nBillID, kDelete);
    refuse_used_bill(head, kDelete);
    database_.exec(sql("DELETE FROM {entry} WHERE FBillID = ?"), {Bind(nBillID)});
    database_.exec(sql("DELETE FROM {bill} WHERE FBillID = ?"), {Bind(nBillID)});
    return PostingResult{true, {}, head.sBillNo};
  });
}

Money SettlementPosting::unused_advance(std::int32_t nPartner, std::int32_t nCurrency, std::int32_t nWithoutBill) {
  return Money::from_stored(
      database_.value(sql("SELECT COALESCE(SUM(FAmountFor - FCheckAmountFor), 0) FROM {bill} WHERE FStatus = 1"
                          " AND {type} = {advance} AND {partner} = ? AND FCurrencyID = ? AND FBillID <> ?"),
                      {Bind(nPartner), Bind(nCurrency), Bind(nWithoutBill)}));
}

BillHead SettlementPosting::open_head(std::int32_t nBillID, std::string_view sAction) {
  const posting::BillPlace place{
      tables_.sBill, tables_.sBillName,
      sql("{type} AS FType, {partner} AS FPartner, FCurrencyID, FAmountFor, FCheckAmountFor")};
  return posting::open_head(database_, place, nBillID, sAction, lock_lost_);
}

// The advances of a partner never add up to less than nothing.
void SettlementPosting::refuse_advance_overdraw(const BillHead& head, std::string_view sAction, bool bCheck) {
  if (head.row.integer(0, "FType") != tables_.nAdvanceType) return;
  const Money rest = unused_advance(head.row.integer(0, "FPartner"), head.row.integer(0, "FCurrencyID"), head.nBillID);
  const Money after = bCheck ? rest + head.row.money(0, "FAmountFor") : rest;
  if (after < Money{}) refuse("该" + std::string(tables_.sPartnerName) + "的预收付余额只剩 " + rest.text(), sAction);
}

void SettlementPosting::refuse_used_bill(const BillHead& head, std::string_view sAction) {
  posting::refuse_with_voucher(head, sAction);
  if (!head.row.money(0, "FCheckAmountFor").is_zero()) posting::refuse_as_settled(head, sAction);
  const Rows rows = database_.query(sql("SELECT FIndex FROM {entry} WHERE FBillID = ? AND FBackAmountFor <> 0 LIMIT 1"),
                                    {Bind(head.nBillID)});
  if (!rows.empty())
    refuse("单据[" + head.sBillNo + "]第" + std::to_string(rows.integer(0, "FIndex")) + "行已经退款", sAction);
}

void SettlementPosting::refuse_over_settling(std::int32_t nBillID, std::string_view sAction, bool bCheck) {
  const std::string sSign = bCheck ? " + " : " - ";
  for (const SourceKind& kind : kSourceKinds) {
    const std::string sReceived = "t." + std::string(kind.sReceived);
    const std::string sSql =
        "SELECT d.FIndex AS FIndex, COALESCE(t.FBillNo, d.FNumber) AS FSourceNo, t.FStatus AS FSourceStatus,"
        " t.FAmountFor - " +
        sReceived + " AS FLeft, d.FSettleFor AS FWanted FROM " + settled_by_source(kind, kFirstRow) + " d LEFT JOIN " +
        std::string(kind.sTable) + " t ON t." + std::string(kind.sKey) +
        " = d.FSourceID"
        " WHERE t.FAmountFor IS NULL OR t.FStatus <> 1 OR " +
        std::string(kind.sClosed) + " OR " + out_of_range(sReceived + sSign + "d.FSettleFor", "t.FAmountFor") +
        " ORDER BY d.FIndex LIMIT 1";
    refuse_bad_source(sSql, nBillID, sAction);
  }
  const std::string sRowSql =
      "SELECT d.FIndex AS FIndex, COALESCE(b.FBillNo, d.FNumber) AS FSourceNo, b.FStatus AS FSourceStatus,"
      " p.FBillSettleAmountFor - p.FBackAmountFor AS FLeft, d.FBackFor AS FWanted FROM " +
      std::string(kGivenBackByRow) +
      " d LEFT JOIN {entry} p ON p.FID = d.FSourceID LEFT JOIN {bill} b ON b.FBillID = p.FBillID"
      " WHERE b.FStatus IS NULL OR b.FStatus <> 1 OR " +
      out_of_range("p.FBackAmountFor" + sSign + "d.FBackFor", "p.FBillSettleAmountFor") + " ORDER BY d.FIndex LIMIT 1";
  refuse_bad_source(sRowSql, nBillID, sAction);
}

void SettlementPosting::refuse_bad_source(std::string_view sCheckSql, std::int32_t nBillID, std::string_view sAction) {
  const std::string sSql = sql(sCheckSql);
  // The statement names the bill once or twice.
  Binds binds;
  for (const char c : sSql) {
    if (c == '?') binds.emplace_back(nBillID);
  }
  const Rows rows = database_.query(sSql, binds);
  if (rows.empty()) return;
  std::string sNumber = rows.text(0, "FSourceNo");
  if (sNumber.empty()) sNumber = tables_.sOpeningName;
  if (rows.at(0, "FLeft").is_null()) refuse("源单[" + sNumber + "]已被删除", sAction);
  if (rows.integer(0, "FSourceStatus") != 1) refuse("源单[" + sNumber + "]没有审核", sAction);
  const Money left = rows.money(0, "FLeft");
  const Money wanted = rows.money(0, "FWanted");
  const std::string_view sVerb = sAction == kCheck ? ",不能核销 " : ",不能退回核销 ";
  refuse("源单[" + sNumber + "]未核销余额只剩 " + left.text() + std::string(sVerb) + wanted.text(), sAction);
}

void SettlementPosting::post_sources(std::int32_t nBillID, bool bCheck) {
  const std::string sSign = bCheck ? " + " : " - ";
  for (const SourceKind& kind : kSourceKinds)
    database_.exec(sql(posting_of(kind, sSign)), {Bind(nBillID), Bind(nBillID)});
  database_.exec(sql("UPDATE {entry} SET FBackAmountFor = {entry}.FBackAmountFor" + sSign +
                     "d.FBackFor, FBackAmount = {entry}.FBackAmount" + sSign + "d.FBack FROM " +
                     std::string(kGivenBackByRow) + " d WHERE {entry}.FID = d.FSourceID"),
                 {Bind(nBillID)});
}

}  // namespace desk
