#include "services/invoice_lists.h"

#include "services/book_queries.h"

namespace desk {

namespace {

struct InvoiceClass {
  std::int32_t nClass;
  const SettlementTables& side;
  std::string_view sCaption;
};

constexpr InvoiceClass kClasses[] = {{1000000, kReceiptTables, "销售发票(专用)"},
                                     {1000002, kReceiptTables, "销售发票(普通)"},
                                     {1000003, kPaymentTables, "购货发票(专用)"},
                                     {1000004, kPaymentTables, "购货发票(普通)"}};

std::string lines_sql(const SettlementTables& side, std::string_view sCondition) {
  return invoices_sql(side, sCondition) + " ORDER BY s.FBillNo, s.FInterID";
}

}  // namespace

RecordListContent invoice_list(std::int32_t nClassType) {
  for (const InvoiceClass& invoices : kClasses) {
    if (invoices.nClass != nClassType) continue;
    return {.nClassType = nClassType,
            .sCaption = std::string(invoices.sCaption),
            .sPluginClass = "clsInvoice",
            .sSql = lines_sql(invoices.side, "s.FClassTypeID = ? AND s.FIsBegin = 0"),
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
          .sSql = lines_sql(bSale ? kReceiptTables : kPaymentTables, "s.FIsBegin = 1"),
          .binds = {}};
}

}  // namespace desk
