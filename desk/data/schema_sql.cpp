#include "data/schema.h"

/// The tables of a book. Amounts are BIGINT in ten-thousandths of the currency's unit, rates and percentages DOUBLE
/// PRECISION, dates TEXT yyyy-mm-dd. Look-up columns hold 0 or NULL for "none"; an employee without a department has
/// NULL. The types are those that SQLite and PostgreSQL share; a single INTEGER
/// PRIMARY KEY counts on by itself; names are compared without regard to case.
namespace desk {
namespace {

constexpr std::string_view kMasters = R"sql(
CREATE TABLE t_Organization (
  FItemID INTEGER PRIMARY KEY, FNumber TEXT NOT NULL UNIQUE, FName TEXT NOT NULL, FDepartment INTEGER, FEmployee INTEGER,
  FCreditDegree BIGINT NOT NULL DEFAULT 0, FPayMentTime INTEGER, FDeleted INTEGER NOT NULL DEFAULT 0);
CREATE TABLE t_Supplier (
  FItemID INTEGER PRIMARY KEY, FNumber TEXT NOT NULL UNIQUE, FName TEXT NOT NULL, FDepartment INTEGER, FEmployee INTEGER,
  FCreditDegree BIGINT NOT NULL DEFAULT 0, FPayMentTime INTEGER, FValueAddRate DOUBLE PRECISION NOT NULL DEFAULT 0,
  FDeleted INTEGER NOT NULL DEFAULT 0);
CREATE TABLE t_Department (
  FItemID INTEGER PRIMARY KEY, FNumber TEXT NOT NULL UNIQUE, FName TEXT NOT NULL, FDeleted INTEGER NOT NULL DEFAULT 0);
CREATE TABLE t_Emp (
  FItemID INTEGER PRIMARY KEY, FNumber TEXT NOT NULL UNIQUE, FName TEXT NOT NULL, FDepartmentID INTEGER,
  FDeleted INTEGER NOT NULL DEFAULT 0);
CREATE TABLE t_Currency (
  FCurrencyID INTEGER PRIMARY KEY, FNumber TEXT NOT NULL UNIQUE, FName TEXT NOT NULL,
  FExchangeRate DOUBLE PRECISION NOT NULL, FOperator TEXT NOT NULL, FScale INTEGER NOT NULL);
CREATE TABLE t_Account (
  FAccountID INTEGER PRIMARY KEY, FNumber TEXT NOT NULL UNIQUE, FName TEXT NOT NULL, FCurrencyID INTEGER NOT NULL DEFAULT 0,
  FRightUserID TEXT NOT NULL DEFAULT '');
CREATE TABLE t_Settle (
  FItemID INTEGER PRIMARY KEY, FNumber TEXT NOT NULL UNIQUE, FName TEXT NOT NULL);
-- Payment terms: type 1 is a number of days, 2 a pay day of the month.
CREATE TABLE t_SetDl (
  FItemID INTEGER PRIMARY KEY, FNumber TEXT NOT NULL UNIQUE, FName TEXT NOT NULL, FType INTEGER NOT NULL,
  FStandDays INTEGER NOT NULL DEFAULT 0, FMonthPayDay INTEGER NOT NULL DEFAULT 0, FBeforeDays INTEGER NOT NULL DEFAULT 0,
  FDeleted INTEGER NOT NULL DEFAULT 0);
-- Receipt, payment and bill types; FID is the code that a user would type.
CREATE TABLE t_SubMessage (
  FInterID INTEGER PRIMARY KEY, FID TEXT NOT NULL UNIQUE, FName TEXT NOT NULL, FTypeID INTEGER NOT NULL,
  FDeleted INTEGER NOT NULL DEFAULT 0);
-- Income (branch 1) and expense (branch 2) types; the root of the tree is no row.
CREATE TABLE t_RP_InOutType (
  FID INTEGER PRIMARY KEY, FNumber TEXT NOT NULL UNIQUE, FName TEXT NOT NULL, FParentID INTEGER NOT NULL DEFAULT 0,
  FLevels INTEGER NOT NULL, FIsLeaf INTEGER NOT NULL DEFAULT 1, FDiscontinued INTEGER NOT NULL DEFAULT 0,
  FBranch INTEGER NOT NULL, FAcctID INTEGER NOT NULL DEFAULT 0, FNote TEXT NOT NULL DEFAULT '');
)sql";

constexpr std::string_view kSystem = R"sql(
CREATE TABLE t_SystemProfile (
  FCategory TEXT NOT NULL, FKey TEXT NOT NULL, FValue TEXT NOT NULL, PRIMARY KEY (FCategory, FKey));
CREATE TABLE t_PeriodDate (
  FYear INTEGER NOT NULL, FPeriod INTEGER NOT NULL, FStartDate TEXT NOT NULL, FEndDate TEXT NOT NULL,
  PRIMARY KEY (FYear, FPeriod));
CREATE TABLE t_User (
  FUserID INTEGER PRIMARY KEY, FName TEXT NOT NULL UNIQUE, FFullName TEXT NOT NULL);
-- FRights is the sum of the bits that are granted: 1 check, 4096 uncheck, 65536 delete.
CREATE TABLE t_User_Right (
  FUserID INTEGER NOT NULL REFERENCES t_User (FUserID) ON DELETE CASCADE, FSubSystem INTEGER NOT NULL,
  FObject INTEGER NOT NULL, FRights INTEGER NOT NULL, PRIMARY KEY (FUserID, FSubSystem, FObject));
-- The task mutex: who works on what, from which machine and process. FSeat tells one life of the process or of its
-- connection from another.
CREATE TABLE t_Task (
  FTaskID INTEGER PRIMARY KEY, FSystem INTEGER NOT NULL DEFAULT 0, FFunction TEXT NOT NULL, FExtra TEXT NOT NULL DEFAULT '',
  FMachine TEXT NOT NULL, FProcess INTEGER NOT NULL, FSeat TEXT NOT NULL DEFAULT '', FUser TEXT NOT NULL,
  FSince TEXT NOT NULL);
CREATE INDEX ix_Task ON t_Task (FFunction, FExtra);
-- The action log: result 1 is success, 2 failure.
CREATE TABLE t_Log (
  FLogID INTEGER PRIMARY KEY, FTime TEXT NOT NULL, FUser TEXT NOT NULL, FMachine TEXT NOT NULL, FCode TEXT NOT NULL,
  FResult INTEGER NOT NULL, FText TEXT NOT NULL);
CREATE TABLE t_BillNumber (
  FClassTypeID INTEGER PRIMARY KEY, FPrefix TEXT NOT NULL, FNext INTEGER NOT NULL);
CREATE TABLE t_Voucher (
  FVoucherID INTEGER PRIMARY KEY, FDate TEXT NOT NULL, FYear INTEGER NOT NULL, FPeriod INTEGER NOT NULL,
  FNumber INTEGER NOT NULL, FExplanation TEXT NOT NULL DEFAULT '', FClassTypeID INTEGER NOT NULL DEFAULT 0,
  FBillID INTEGER NOT NULL DEFAULT 0);
-- FDC is 1 for debit, 0 for credit.
CREATE TABLE t_VoucherEntry (
  FVoucherID INTEGER NOT NULL REFERENCES t_Voucher (FVoucherID) ON DELETE CASCADE, FEntryID INTEGER NOT NULL,
  FAccountID INTEGER NOT NULL, FDC INTEGER NOT NULL, FCurrencyID INTEGER NOT NULL DEFAULT 1,
  FExchangeRate DOUBLE PRECISION NOT NULL DEFAULT 1, FAmountFor BIGINT NOT NULL, FAmount BIGINT NOT NULL,
  FExplanation TEXT NOT NULL DEFAULT '', PRIMARY KEY (FVoucherID, FEntryID));
)sql";

// Invoices and opening balances (FIsBegin 1, the number may be empty). FReceiveAmount(For) is what was settled so far,
// on the purchase side too. FClassTypeID is 1000000 or 1000002 for sale, 1000003 or 1000004 for purchase.
constexpr std::string_view kInvoices = R"sql(
CREATE TABLE ICSale (
  FInterID INTEGER PRIMARY KEY, FClassTypeID INTEGER NOT NULL DEFAULT 1000002, FTranType INTEGER NOT NULL DEFAULT 80,
  FIsBegin INTEGER NOT NULL DEFAULT 0, FBillNo TEXT NOT NULL DEFAULT '', FDate TEXT NOT NULL, FDueDate TEXT NOT NULL,
  FCustID INTEGER NOT NULL, FCurrencyID INTEGER NOT NULL DEFAULT 1, FExchangeRate DOUBLE PRECISION NOT NULL DEFAULT 1,
  FDeptID INTEGER NOT NULL DEFAULT 0, FEmpID INTEGER NOT NULL DEFAULT 0, FAmountFor BIGINT NOT NULL, FAmount BIGINT NOT NULL,
  FReceiveAmountFor BIGINT NOT NULL DEFAULT 0, FReceiveAmount BIGINT NOT NULL DEFAULT 0, FStatus INTEGER NOT NULL DEFAULT 1,
  FNote TEXT NOT NULL DEFAULT '');
CREATE INDEX ix_ICSale_Cust ON ICSale (FCustID, FCurrencyID);
CREATE INDEX ix_ICSale_No ON ICSale (FBillNo, FCustID);
CREATE TABLE ICPurchase (
  FInterID INTEGER PRIMARY KEY, FClassTypeID INTEGER NOT NULL DEFAULT 1000004, FTranType INTEGER NOT NULL DEFAULT 75,
  FIsBegin INTEGER NOT NULL DEFAULT 0, FBillNo TEXT NOT NULL DEFAULT '', FDate TEXT NOT NULL, FDueDate TEXT NOT NULL,
  FSupplyID INTEGER NOT NULL, FCurrencyID INTEGER NOT NULL DEFAULT 1, FExchangeRate DOUBLE PRECISION NOT NULL DEFAULT 1,
  FDeptID INTEGER NOT NULL DEFAULT 0, FEmpID INTEGER NOT NULL DEFAULT 0, FAmountFor BIGINT NOT NULL, FAmount BIGINT NOT NULL,
  FReceiveAmountFor BIGINT NOT NULL DEFAULT 0, FReceiveAmount BIGINT NOT NULL DEFAULT 0, FStatus INTEGER NOT NULL DEFAULT 1,
  FNote TEXT NOT NULL DEFAULT '');
CREATE INDEX ix_ICPurchase_Supply ON ICPurchase (FSupplyID, FCurrencyID);
CREATE INDEX ix_ICPurchase_No ON ICPurchase (FBillNo, FSupplyID);
)sql";

// The twins of the settlement and other bills: {partner} is FCustomerID or FSupplyID, {got} Receive or Pay, and so on.
// FCheckAmount(For) is what other business has settled of the bill. FDiscount is stored as a fraction, FDiscountDsp as
// the percentage. FPushTypeID other than 0 says that another module made the bill. FVersion counts the bill's stores.
constexpr std::string_view kSettlementTwin = R"sql(
CREATE TABLE {bill} (
  FBillID INTEGER PRIMARY KEY, FBillNo TEXT NOT NULL UNIQUE, FDate TEXT NOT NULL, {partner} INTEGER NOT NULL DEFAULT 0,
  F{got}TypeID INTEGER NOT NULL, FCurrencyID INTEGER NOT NULL DEFAULT 1, FExchangeRate DOUBLE PRECISION NOT NULL DEFAULT 1,
  FAcctID INTEGER NOT NULL DEFAULT 0, FAmountFor BIGINT NOT NULL DEFAULT 0, FAmount BIGINT NOT NULL DEFAULT 0,
  F{got}AmountFor BIGINT NOT NULL DEFAULT 0, F{got}Amount BIGINT NOT NULL DEFAULT 0,
  FDiscount DOUBLE PRECISION NOT NULL DEFAULT 1, FDiscountDsp DOUBLE PRECISION NOT NULL DEFAULT 100,
  FDiscountAmountFor BIGINT NOT NULL DEFAULT 0, FDiscountAmount BIGINT NOT NULL DEFAULT 0,
  FDiscountAcctID INTEGER NOT NULL DEFAULT 0, FExplanation TEXT NOT NULL DEFAULT '', FSettleID INTEGER NOT NULL DEFAULT 0,
  FSettleIDNo TEXT NOT NULL DEFAULT '', FStatus INTEGER NOT NULL DEFAULT 0, FCheckAmountFor BIGINT NOT NULL DEFAULT 0,
  FCheckAmount BIGINT NOT NULL DEFAULT 0, FDepartmentID INTEGER NOT NULL DEFAULT 0, FEmployeeID INTEGER NOT NULL DEFAULT 0,
  FVoucherID INTEGER NOT NULL DEFAULT 0, FBiller TEXT NOT NULL DEFAULT '', FChecker TEXT NOT NULL DEFAULT '',
  FCheckDate TEXT NOT NULL DEFAULT '', FPushTypeID INTEGER NOT NULL DEFAULT 0, FVersion INTEGER NOT NULL DEFAULT 0);
CREATE INDEX ix_{bill} ON {bill} ({partner}, FCurrencyID);
CREATE TABLE {bill}Entry (
  FID INTEGER PRIMARY KEY, FBillID INTEGER NOT NULL REFERENCES {bill} (FBillID) ON DELETE CASCADE, FIndex INTEGER NOT NULL,
  FClassID_SRC INTEGER NOT NULL DEFAULT 0, FInterID INTEGER NOT NULL DEFAULT 0, FEntryID_SRC INTEGER NOT NULL DEFAULT 0,
  FEntryID_HXD_SRC INTEGER NOT NULL DEFAULT 0, FIndex2 INTEGER NOT NULL DEFAULT 0, {number} TEXT NOT NULL DEFAULT '',
  FBillDate TEXT NOT NULL DEFAULT '', {rowpartner} INTEGER NOT NULL DEFAULT 0, FBillCurrencyID INTEGER NOT NULL DEFAULT 1,
  FEntryExchangeRate DOUBLE PRECISION NOT NULL DEFAULT 1, FBillAmountFor BIGINT NOT NULL DEFAULT 0,
  FBillAmount BIGINT NOT NULL DEFAULT 0, FBill{got}AmountFor BIGINT NOT NULL DEFAULT 0,
  FBill{got}Amount BIGINT NOT NULL DEFAULT 0, FBillUn{got}AmountFor BIGINT NOT NULL DEFAULT 0,
  FBillUn{got}Amount BIGINT NOT NULL DEFAULT 0, FBillSettleAmountFor BIGINT NOT NULL DEFAULT 0,
  FBillSettleAmount BIGINT NOT NULL DEFAULT 0, FBackAmountFor BIGINT NOT NULL DEFAULT 0,
  FBackAmount BIGINT NOT NULL DEFAULT 0, FFKDBillNo TEXT NOT NULL DEFAULT '', FEntryAmount_SRC BIGINT NOT NULL DEFAULT 0,
  FDeptID INTEGER NOT NULL DEFAULT 0, FEmpID INTEGER NOT NULL DEFAULT 0, FBillNote TEXT NOT NULL DEFAULT '',
  UNIQUE (FBillID, FIndex));
CREATE INDEX ix_{bill}Entry_Source ON {bill}Entry (FClassID_SRC, FInterID, FEntryID_SRC);
)sql";

constexpr std::string_view kOtherTwin = R"sql(
CREATE TABLE {other} (
  FBillID INTEGER PRIMARY KEY, FBillNo TEXT NOT NULL UNIQUE, FDate TEXT NOT NULL, FLimitDate TEXT NOT NULL DEFAULT '',
  FBillTypeID INTEGER NOT NULL, {partner} INTEGER NOT NULL DEFAULT 0, FAcctID INTEGER NOT NULL DEFAULT 0,
  FCurrencyID INTEGER NOT NULL DEFAULT 1, FExchangeRate DOUBLE PRECISION NOT NULL DEFAULT 1,
  FAmountFor BIGINT NOT NULL DEFAULT 0, FAmount BIGINT NOT NULL DEFAULT 0, FCheckAmountFor BIGINT NOT NULL DEFAULT 0,
  FCheckAmount BIGINT NOT NULL DEFAULT 0, FSettleID INTEGER NOT NULL DEFAULT 0, FSettleIDNo TEXT NOT NULL DEFAULT '',
  FDepartmentID INTEGER NOT NULL DEFAULT 0, FEmployeeID INTEGER NOT NULL DEFAULT 0, FExplanation TEXT NOT NULL DEFAULT '',
  FStatus INTEGER NOT NULL DEFAULT 0, FVoucherID INTEGER NOT NULL DEFAULT 0, FBiller TEXT NOT NULL DEFAULT '',
  FChecker TEXT NOT NULL DEFAULT '', FCheckDate TEXT NOT NULL DEFAULT '', FPushTypeID INTEGER NOT NULL DEFAULT 0,
  FVersion INTEGER NOT NULL DEFAULT 0);
CREATE INDEX ix_{other} ON {other} ({partner}, FCurrencyID);
CREATE TABLE {other}Entry (
  FID INTEGER PRIMARY KEY, FBillID INTEGER NOT NULL REFERENCES {other} (FBillID) ON DELETE CASCADE, FIndex INTEGER NOT NULL,
  FInOutTypeID INTEGER NOT NULL DEFAULT 0, FBillAmountFor BIGINT NOT NULL DEFAULT 0, FBillAmount BIGINT NOT NULL DEFAULT 0,
  FBillNote TEXT NOT NULL DEFAULT '', UNIQUE (FBillID, FIndex));
)sql";

// Open items: what a settlement bill can draw. A red invoice is open with a negative amount. The class of the other
// bills is cast to the type of the invoices' column: two queries whose columns have the same types are drawn together
// with the query around them; others give that one whole rows first.
constexpr std::string_view kOpenItemsTwin = R"sql(
CREATE VIEW {openview} AS
SELECT s.FInterID AS FBillID, 1 AS FEntryID_SRC, 1 AS FEntryID_HXD_SRC, s.FClassTypeID AS FClassTypeID_SRC,
  s.{sourcepartner} AS {oripartner}, s.{sourcepartner} AS {viewpartner}, s.FCurrencyID AS FCurrencyID,
  s.FExchangeRate AS FExchangeRate, s.FDeptID AS FDeptID, s.FEmpID AS FEmpID, s.FBillNo AS FBillNo, s.FDate AS FDate,
  s.FDueDate AS FDueDate, s.FAmountFor AS FBillAmountFor, s.FAmount AS FBillAmount,
  s.FReceiveAmountFor AS FBill{got}AmountFor, s.FReceiveAmount AS FBill{got}Amount,
  s.FAmountFor - s.FReceiveAmountFor AS FBillUn{got}AmountFor, s.FAmount - s.FReceiveAmount AS FBillUn{got}Amount,
  s.FNote AS FBillNote
FROM {source} s WHERE s.FStatus = 1 AND s.FAmountFor <> s.FReceiveAmountFor
UNION ALL
SELECT o.FBillID, 1, 1, CAST({otherclass} AS INTEGER), o.{partner}, o.{partner}, o.FCurrencyID, o.FExchangeRate,
  o.FDepartmentID, o.FEmployeeID, o.FBillNo, o.FDate, o.FLimitDate, o.FAmountFor, o.FAmount, o.FCheckAmountFor, o.FCheckAmount,
  o.FAmountFor - o.FCheckAmountFor, o.FAmount - o.FCheckAmount, o.FExplanation
FROM {other} o WHERE o.FStatus = 1 AND o.FAmountFor <> o.FCheckAmountFor;
)sql";

// Rows of checked settlement bills that can still be refunded: their open amount is what was settled and not given
// back, with the sign turned. FID is the row, FBillID its bill.
constexpr std::string_view kRefundTwin = R"sql(
CREATE VIEW {backview} AS
SELECT e.FID AS FID, b.FBillID AS FBillID, e.FIndex AS FIndex2, e.FID AS FEntryID_SRC, e.FID AS FEntryID_HXD_SRC,
  {class} AS FClassTypeID_SRC, b.{partner} AS {oripartner}, b.{partner} AS {viewpartner},
  e.FBillCurrencyID AS FCurrencyID, e.FEntryExchangeRate AS FExchangeRate, b.FDepartmentID AS FDeptID,
  b.FEmployeeID AS FEmpID, e.{number} AS FBillNo, b.FBillNo AS FFKDBillNo, b.FDate AS FDate, b.FDate AS FDueDate,
  e.FBillSettleAmountFor AS FEntryAmount_SRC, -e.FBillSettleAmountFor AS FBillAmountFor,
  -e.FBillSettleAmount AS FBillAmount, -e.FBackAmountFor AS FBill{got}AmountFor, -e.FBackAmount AS FBill{got}Amount,
  -(e.FBillSettleAmountFor - e.FBackAmountFor) AS FBillUn{got}AmountFor,
  -(e.FBillSettleAmount - e.FBackAmount) AS FBillUn{got}Amount, b.FExplanation AS FBillNote
FROM {bill}Entry e JOIN {bill} b ON b.FBillID = e.FBillID
WHERE b.FStatus = 1 AND b.F{got}TypeID <> {refundtype} AND e.FBillSettleAmountFor > e.FBackAmountFor;
)sql";

struct Word {
  std::string_view mark;
  std::string_view receive;
  std::string_view pay;
};

// clang-format off
constexpr Word kWords[] = {
    {"{bill}",          "t_RP_RBill",            "t_RP_PBill"},
    {"{other}",         "t_RP_ROtherBill",       "t_RP_POtherBill"},
    {"{source}",        "ICSale",                "ICPurchase"},
    {"{openview}",      "vw_arap_RBillList",     "vw_arap_PBillList"},
    {"{backview}",      "vw_arap_RBackBillList", "vw_arap_PBackBillList"},
    {"{got}",           "Receive",               "Pay"},
    {"{partner}",       "FCustomerID",           "FSupplyID"},
    {"{rowpartner}",    "FCustID",               "FSupplyIdID"},
    {"{sourcepartner}", "FCustID",               "FSupplyID"},
    {"{oripartner}",    "FOriCustID",            "FOriSupplyID"},
    {"{viewpartner}",   "FCustID",               "FSupplyID"},
    {"{number}",        "FInvoiceBillNo",        "FPurchaseBillNo"},
    {"{class}",         "1000201",               "1000202"},
    {"{otherclass}",    "1000205",               "1000206"},
    {"{refundtype}",    "1009",                  "1010"},
};
// clang-format on

void append_twin(std::string& sScript, std::string_view sTwin, std::string_view Word::*side) {
  while (!sTwin.empty()) {
    const std::size_t nMark = sTwin.find('{');
    sScript += sTwin.substr(0, nMark);
    if (nMark == std::string_view::npos) return;
    sTwin.remove_prefix(nMark);
    for (const Word& word : kWords) {
      if (!sTwin.starts_with(word.mark)) continue;
      sScript += word.*side;
      sTwin.remove_prefix(word.mark.size());
      break;
    }
  }
}

std::string both_sides(std::initializer_list<std::string_view> twins) {
  std::string sScript;
  for (const auto side : {&Word::receive, &Word::pay})
    for (const std::string_view twin : twins) append_twin(sScript, twin, side);
  return sScript;
}

}  // namespace

std::string_view table_script() {
  static const std::string sScript =
      std::string(kMasters).append(kSystem).append(kInvoices).append(both_sides({kSettlementTwin, kOtherTwin}));
  return sScript;
}

std::string_view view_script() {
  static const std::string sScript = both_sides({kOpenItemsTwin, kRefundTwin});
  return sScript;
}

}  // namespace desk
