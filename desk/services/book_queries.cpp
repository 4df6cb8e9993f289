#include "services/book_queries.h"

namespace desk {

std::string open_items_sql(const SettlementTables& tables) {
  return side_sql(tables,
                  "SELECT p.FNumber AS FPartner, p.FName AS FPartnerName, v.FBillNo AS FBillNo,"
                  " CASE v.FBillNo WHEN '' THEN '" +
                      std::string(tables.sOpeningName) +
                      "' ELSE v.FBillNo END AS FShownNo, v.FDate AS FDate, v.FDueDate AS FDueDate,"
                      " c.FNumber AS FCurrency, c.FName AS FCurrencyName, v.FBillAmountFor AS FAmountFor,"
                      " v.FBill{got}AmountFor AS FSettledFor, v.FBillUn{got}AmountFor AS FOpenFor,"
                      " v.FBillUn{got}Amount AS FOpen FROM {openview} v LEFT JOIN {partners} p"
                      " ON p.FItemID = v.{viewpartner} LEFT JOIN t_Currency c ON c.FCurrencyID = v.FCurrencyID"
                      " ORDER BY p.FNumber, v.FDueDate, v.FBillNo");
}

std::string invoices_sql(const SettlementTables& tables, std::string_view sCondition) {
  return side_sql(tables,
                  "SELECT s.FInterID AS FInterID, s.FTranType AS FTranType, s.FClassTypeID AS FClass,"
                  " s.FBillNo AS FBillNo, s.FDate AS FDate, s.FDueDate AS FDueDate, p.FNumber AS FPartner,"
                  " p.FName AS FPartnerName, c.FNumber AS FCurrency, c.FName AS FCurrencyName,"
                  " s.FAmountFor AS FAmountFor, s.FReceiveAmountFor AS FReceiveAmountFor,"
                  " s.FAmountFor - s.FReceiveAmountFor AS FOpenFor, s.FNote AS FNote FROM {invoice} s"
                  " LEFT JOIN {partners} p ON p.FItemID = s.{invoicepartner}"
                  " LEFT JOIN t_Currency c ON c.FCurrencyID = s.FCurrencyID WHERE ")
      .append(sCondition);
}

std::string action_log_sql(LogOrder order) {
  const std::string sSql = "SELECT FTime, FUser, FMachine, FCode, FResult, FText FROM t_Log ORDER BY FLogID";
  return order == LogOrder::NewestFirst ? sSql + " DESC" : sSql;
}

}  // namespace desk
