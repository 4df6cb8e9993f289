#include "services/invoice_lists.h"

namespace desk {

namespace {

struct InvoiceTable {
  std::string_view sTable;
  std::string_view sPartner;
  std::string_view sPartners;
};

constexpr InvoiceTable kSale{"ICSale", "FCustID", "t_Organization"};
constexpr InvoiceTable kPurchase{"ICPurchase", "FSupplyID", "t_Supplier"};

struct InvoiceClass {
  std::int32_t nClass;
  const InvoiceTable& table;
  std::string_view sCaption;
};

constexpr InvoiceClass kClasses[] = {{1000000, kSale, "销售发票(专用)"},
                                     {1000002, kSale, "销售发票(普通)"},
                                     {1000003, kPurchase, "购货发票(专用)"},
                                     {1000004, kPurchase, "购货发票(普通)"}};

std::string lines_sql(const InvoiceTable& table, std::string_view sCondition) {
  return "SELECT s.FInterID AS FInterID, s.FTranType AS FTranType, s.FBillNo AS FBillNo, s.FDate AS FDate,"
         " s.FDueDate AS FDueDate, p.FNumber AS FPartner, p.FName AS FPartnerName, c.FName AS FCurrency,"
         " s.FAmountFor AS FAmountFor, s.FReceiveAmountFor AS FReceiveAmountFor,"
         " s.FAmountFor - s.FReceiveAmountFor AS FOpenFor, s.FNote AS FNote FROM " +
         std::string(table.sTable) + " s LEFT JOIN " + std::string(table.sPartners) + " p ON p.FItemID = s." +
         std::string(table.sPartner) + " LEFT JOIN t_Currency c ON c.FCurrencyID = s.FCurrencyID WHERE " +
         std::string(sCondition) + " ORDER BY s.FBillNo, s.FInterID";
}

}  // namespace

RecordListContent invoice_list(std::int32_t nClassType) {
  for (const InvoiceClass& invoices : kClasses) {
    if (invoices.nClass != nClassType) continue;
    return {.nClassType = nClassType,
            .sCaption = std::string(invoices.sCaption),
            .sPluginClass = "clsInvoice",
            .sSql = lines_sql(invoices.table, "s.FClassTypeID = ? AND s.FIsBegin = 0"),
            .binds = {Bind(nClassType)}};
  }
  throw DeskError(ErrorKind::BadValue, "there are no invoices of this class", std::to_string(nClassType),
                  "choose 1000000, 1000002, 1000003 or 1000004");
}

RecordListContent opening_list(OpeningSide side) {
  const bool bSale = side == OpeningSide::Receivables;
  return {.nClassType = bSale ? 1000000 : 1000003,
          .sCaption = bSale ? "期初应收" : "期初应付",
          .sPluginClass = "clsRPInitial",
          .sSql = lines_sql(bSale ? kSale : kPurchase, "s.FIsBegin = 1"),
          .binds = {}};
}

}  // namespace desk
