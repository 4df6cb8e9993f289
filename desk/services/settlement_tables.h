#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace desk {

/// The sides of a voucher.
enum class VoucherSide : std::uint8_t { Debit, Credit };
constexpr VoucherSide opposite(VoucherSide side) {
  return side == VoucherSide::Debit ? VoucherSide::Credit : VoucherSide::Debit;
}

/// Where one side keeps its settlement bills and the bills that they settle, and what it calls things.
struct SettlementTables {
  std::int32_t nClass;        // class of the settlement bill
  std::int32_t nAdvanceType;  // the type without rows
  std::string_view sBill;     // heads, keyed by FBillID
  std::string_view sEntry;    // rows
  std::string_view sType;     // column of the bill's type
  std::string_view sPartner;  // column of the partner in the head
  std::string_view sGot;      // "Receive" or "Pay"
  std::string_view sNumber;   // column of the source number in the rows
  std::string_view sInvoice;  // invoices and opening balances, keyed by FInterID
  std::string_view sInvoiceClasses;
  std::string_view sInvoicePartner;
  std::string_view sOther;  // other bills, keyed by FBillID
  std::string_view sOtherClasses;
  std::int32_t nImmediateType;    // the other bills that are settled when they are made
  std::string_view sOpenView;     // open items
  std::string_view sViewPartner;  // their partner column
  std::string_view sPartnerTable;
  std::string_view sBillName;     // as the user knows the bill
  std::string_view sOpeningName;  // stands in for a source without a number
  std::string_view sPartnerName;
  std::string_view sBalanceName;
  std::string_view sBalanceAccount;  // number that the account of open balances begins with
  std::string_view sSelectTool;      // command that selects the source bills
  std::string_view sReportPartner;   // the partner among the parameters of the aged report, behind "B" and "E"
  VoucherSide moneySide;             // where a voucher has the money and the claim
};

inline constexpr SettlementTables kReceiptTables{
    .nClass = 1000201,
    .nAdvanceType = 1002,
    .sBill = "t_RP_RBill",
    .sEntry = "t_RP_RBillEntry",
    .sType = "FReceiveTypeID",
    .sPartner = "FCustomerID",
    .sGot = "Receive",
    .sNumber = "FInvoiceBillNo",
    .sInvoice = "ICSale",
    .sInvoiceClasses = "1000000, 1000002",
    .sInvoicePartner = "FCustID",
    .sOther = "t_RP_ROtherBill",
    .sOtherClasses = "1000205",
    .nImmediateType = 1005,
    .sOpenView = "vw_arap_RBillList",
    .sViewPartner = "FOriCustID",
    .sPartnerTable = "t_Organization",
    .sBillName = "收款单",
    .sOpeningName = "期初应收",
    .sPartnerName = "客户",
    .sBalanceName = "应收余额",
    .sBalanceAccount = "1122",
    .sSelectTool = "mnuSelectBill_2000001",
    .sReportPartner = "CustNumber",
    .moneySide = VoucherSide::Debit,
};

inline constexpr SettlementTables kPaymentTables{
    .nClass = 1000202,
    .nAdvanceType = 1004,
    .sBill = "t_RP_PBill",
    .sEntry = "t_RP_PBillEntry",
    .sType = "FPayTypeID",
    .sPartner = "FSupplyID",
    .sGot = "Pay",
    .sNumber = "FPurchaseBillNo",
    .sInvoice = "ICPurchase",
    .sInvoiceClasses = "1000003, 1000004",
    .sInvoicePartner = "FSupplyID",
    .sOther = "t_RP_POtherBill",
    .sOtherClasses = "1000206",
    .nImmediateType = 1007,
    .sOpenView = "vw_arap_PBillList",
    .sViewPartner = "FOriSupplyID",
    .sPartnerTable = "t_Supplier",
    .sBillName = "付款单",
    .sOpeningName = "期初应付",
    .sPartnerName = "供应商",
    .sBalanceName = "应付余额",
    .sBalanceAccount = "2202",
    .sSelectTool = "mnuSelectBill_2000002",
    .sReportPartner = "SupplyNumber",
    .moneySide = VoucherSide::Credit,
};

/// The template with every "{name}" replaced by the side's table or column: {bill}, {entry}, {class}, {type},
/// {advance}, {partner}, {got}, {number}, {invoice}, {invoiceclasses}, {invoicepartner}, {other}, {otherclasses},
/// {immediate}, {openview}, {viewpartner}, {partners}.
std::string side_sql(const SettlementTables& tables, std::string_view sTemplate);

}  // namespace desk
