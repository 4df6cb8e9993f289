#include "data/demo.h"

#include "frame/conversions.h"

namespace desk {
namespace {

constexpr int kFirstYear = 2012;
constexpr int kLastYear = 2027;
constexpr int kDemoUser = 1;
constexpr int kClerkUser = 2;
constexpr int kSubSystem = 1010;
constexpr int kAllRights = 1 + 4096 + 65536;
constexpr int kUncheckRight = 4096;

constexpr std::string_view kFixedMasters = R"sql(
INSERT INTO t_Currency (FCurrencyID, FNumber, FName, FExchangeRate, FOperator, FScale) VALUES
  (1, 'CNY', '人民币', 1, '*', 2), (2, 'USD', '美元', 7.1, '*', 2), (3, 'JPY', '日元', 20, '/', 0);
INSERT INTO t_Account (FAccountID, FNumber, FName, FCurrencyID, FRightUserID) VALUES
  (1, '1001', '库存现金', 1, '1,2'), (2, '1002.01', '银行存款-人民币', 1, '1,2'), (3, '1002.02', '银行存款-美元', 2, '1,2'),
  (4, '1002.03', '银行存款-日元', 3, '1,2'), (5, '1122', '应收账款', 0, '1,2'), (6, '2202', '应付账款', 0, '1,2'),
  (7, '6603', '财务费用-现金折扣', 1, '1,2'), (8, '6051', '其他业务收入', 1, '1,2'), (9, '6602', '管理费用', 1, '1');
INSERT INTO t_Settle (FItemID, FNumber, FName) VALUES (1, '01', '现金'), (2, '02', '电汇'), (3, '03', '支票');
INSERT INTO t_SetDl (FItemID, FNumber, FName, FType, FStandDays, FMonthPayDay, FBeforeDays) VALUES
  (1, '01', '30天', 1, 30, 0, 0), (2, '02', '每月25日', 2, 0, 25, 10);
INSERT INTO t_SubMessage (FInterID, FID, FName, FTypeID) VALUES
  (1001, '1001', '收款', 201), (1002, '1002', '预收款', 201), (1009, '1009', '退款', 201), (1003, '1003', '付款', 202),
  (1004, '1004', '预付款', 202), (1010, '1010', '退款', 202), (1005, '1005', '现收', 205), (1006, '1006', '应收', 205),
  (1007, '1007', '现付', 206), (1008, '1008', '应付', 206);
INSERT INTO t_RP_InOutType (FID, FNumber, FName, FParentID, FLevels, FIsLeaf, FBranch, FAcctID) VALUES
  (1, '1', '收入', 1000207, 1, 0, 1, 0), (2, '2', '支出', 1000207, 1, 0, 2, 0), (3, '1.01', '租金收入', 1, 2, 1, 1, 8),
  (4, '1.02', '服务收入', 1, 2, 1, 1, 8), (5, '2.01', '办公费', 2, 2, 1, 2, 9), (6, '2.02', '运输费', 2, 2, 1, 2, 9);
INSERT INTO t_Department (FItemID, FNumber, FName) VALUES (1, '01', '销售部'), (2, '02', '采购部'), (3, '03', '财务部');
INSERT INTO t_Emp (FItemID, FNumber, FName, FDepartmentID) VALUES
  (1, '001', '张明', 1), (2, '002', '李芳', 1), (3, '003', '王强', 2), (4, '004', '赵敏', 3), (5, '005', '陈晨', NULL);
INSERT INTO t_User (FUserID, FName, FFullName) VALUES (1, 'demo', '演示用户'), (2, 'clerk', '出纳');
INSERT INTO t_SystemProfile (FCategory, FKey, FValue) VALUES
  ('IC', 'CreditDegree', '0'), ('IC', 'CreditDegreeCG', '0'), ('IC', 'RefreshAfterAdd', '1');
INSERT INTO t_BillNumber (FClassTypeID, FPrefix, FNext) VALUES
  (1000201, 'SKD', 1), (1000202, 'FKD', 1), (1000205, 'QTSR', 1), (1000206, 'FYZC', 1);
)sql";

constexpr std::string_view kPartners = R"sql(
INSERT INTO t_Organization (FItemID, FNumber, FName, FDepartment, FEmployee, FCreditDegree, FPayMentTime) VALUES
  (1, 'C001', '海天贸易', 1, 1, 500000000, 1), (2, 'C002', '新光电子', 1, 2, 100000000, 2),
  (3, 'C003', 'Pacific Trading', 1, 1, 0, 1), (4, 'C004', '东京商社', NULL, NULL, 0, NULL);
INSERT INTO t_Supplier (FItemID, FNumber, FName, FDepartment, FEmployee, FCreditDegree, FPayMentTime, FValueAddRate) VALUES
  (1, 'S001', '华北钢铁', 2, 3, 500000000, 1, 13), (2, 'S002', '长江包装', 2, 3, 0, 2, 13),
  (3, 'S003', 'Harbor Supply', 2, 3, 0, 1, 0), (4, 'S004', '关西部品', NULL, NULL, 0, NULL, 0);
)sql";

void create_rights(Database& database) {
  for (const int nUser : {kDemoUser, kClerkUser}) {
    const int nRights = nUser == kDemoUser ? kAllRights : kAllRights - kUncheckRight;
    for (const int nObject : {1000201, 1000202, 1000205, 1000206, 1000207}) {
      database.exec("INSERT INTO t_User_Right (FUserID, FSubSystem, FObject, FRights) VALUES (?, ?, ?, ?)",
                    {nUser, kSubSystem, nObject, nRights});
    }
  }
}

void create_periods(Database& database) {
  for (int nYear = kFirstYear; nYear <= kLastYear; ++nYear) {
    for (int nMonth = 1; nMonth <= 12; ++nMonth) {
      const arap::Date start = arap::DateSerial(nYear, nMonth, 1);
      const arap::Date end = arap::DateSerial(nYear, nMonth + 1, 0);
      database.exec("INSERT INTO t_PeriodDate (FYear, FPeriod, FStartDate, FEndDate) VALUES (?, ?, ?, ?)",
                    {nYear, nMonth, Value(start), Value(end)});
    }
  }
}

void set_current_period(Database& database, const std::string& sToday) {
  const bool bDate = arap::IsDate(sToday);
  const arap::CalendarDay day = bDate ? arap::DayOf(arap::ToDate(sToday)) : arap::CalendarDay{0, 0, 0};
  if (day.nYear < kFirstYear || day.nYear > kLastYear) {
    throw DeskError(ErrorKind::BadValue, "The book has no period for this day", sToday,
                    "Give a date yyyy-mm-dd of the years 2012 to 2027");
  }
  const std::string_view sSql = "INSERT INTO t_SystemProfile (FCategory, FKey, FValue) VALUES ('IC', ?, ?)";
  database.exec(sSql, {"CurrentYear", std::to_string(day.nYear)});
  database.exec(sSql, {"CurrentPeriod", std::to_string(day.nMonth)});
}

struct Invoice {
  int nClass;
  const char* sNumber;
  int nPartner;
  int nCurrency;
  double dRate;
  double dAmountFor;
  double dSettledFor;
  int nDepartment;
  int nEmployee;
};

void add_invoices(Database& database, std::string_view sTable, std::string_view sPartner, const std::string& sDate,
                  std::initializer_list<Invoice> invoices) {
  const std::string sSql = "INSERT INTO " + std::string(sTable) +
                           " (FClassTypeID, FIsBegin, FBillNo, FDate, FDueDate, " + std::string(sPartner) +
                           ", FCurrencyID, FExchangeRate, FDeptID, FEmpID, FAmountFor, FAmount, FReceiveAmountFor, "
                           "FReceiveAmount) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)";
  for (const Invoice& invoice : invoices) {
    const Money amount = Money::from_double(invoice.dAmountFor);
    const Money settled = Money::from_double(invoice.dSettledFor);
    database.exec(sSql, {invoice.nClass, *invoice.sNumber == '\0' ? 1 : 0, invoice.sNumber, sDate, sDate,
                         invoice.nPartner, invoice.nCurrency, invoice.dRate, invoice.nDepartment, invoice.nEmployee,
                         amount, amount.times(invoice.dRate), settled, settled.times(invoice.dRate)});
  }
}

/// A checked credit bill that stands open.
void add_other_bill(Database& database, std::string_view sTable, std::string_view sPartner, const std::string& sDate,
                    int nBillType, int nInOutType, const Invoice& bill) {
  const std::string sBill(sTable);
  const Money amount = Money::from_double(bill.dAmountFor);
  const Money base = amount.times(bill.dRate);
  const Rows key = database.query(
      "INSERT INTO " + sBill + " (FBillNo, FDate, FLimitDate, FBillTypeID, " + std::string(sPartner) +
          ", FAcctID, FCurrencyID, FExchangeRate, FAmountFor, FAmount, FDepartmentID, FEmployeeID, FStatus) "
          "VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, 1) RETURNING FBillID",
      {bill.sNumber, sDate, sDate, nBillType, bill.nPartner, nBillType == 1006 ? 5 : 6, bill.nCurrency, bill.dRate,
       amount, base, bill.nDepartment, bill.nEmployee});
  database.exec("INSERT INTO " + sBill +
                    "Entry (FBillID, FIndex, FInOutTypeID, FBillAmountFor, FBillAmount) VALUES (?, 1, ?, ?, ?)",
                {key.integer(0, "FBillID"), nInOutType, amount, base});
}

void create_open_items(Database& database, const std::string& sDate) {
  add_invoices(database, "ICSale", "FCustID", sDate,
               {{1000000, "", 1, 1, 1, 8000, 0, 1, 1},
                {1000002, "XSFP000001", 1, 1, 1, 1000, 0, 1, 1},
                {1000002, "XSFP000002", 1, 1, 1, 2500.5, 500.5, 1, 1},
                {1000002, "XSFP000003", 2, 1, 1, 360, 0, 1, 2},
                {1000002, "XSFP000004", 3, 2, 7.1, 1200, 0, 1, 1},
                {1000002, "XSFP000005", 1, 1, 1, -200, 0, 1, 1}});
  add_invoices(database, "ICPurchase", "FSupplyID", sDate,
               {{1000003, "", 1, 1, 1, 6000, 0, 2, 3},
                {1000004, "CGFP000001", 1, 1, 1, 1500, 0, 2, 3},
                {1000004, "CGFP000002", 1, 1, 1, 780.25, 80.25, 2, 3},
                {1000004, "CGFP000003", 2, 1, 1, 90, 0, 2, 3},
                {1000004, "CGFP000004", 3, 2, 7.1, 400, 0, 2, 3},
                {1000004, "CGFP000005", 1, 1, 1, -150, 0, 2, 3}});
  add_other_bill(database, "t_RP_ROtherBill", "FCustomerID", sDate, 1006, 3,
                 {1000205, "QTSR000001", 1, 1, 1, 600, 0, 1, 1});
  add_other_bill(database, "t_RP_POtherBill", "FSupplyID", sDate, 1008, 6,
                 {1000206, "FYZC000001", 1, 1, 1, 320, 0, 2, 3});
  database.exec("UPDATE t_BillNumber SET FNext = 2 WHERE FClassTypeID IN (1000205, 1000206)");
}

}  // namespace

void create_masters(Database& database, const std::string& sToday) {
  Transaction transaction(database);
  database.exec_script(kFixedMasters);
  create_rights(database);
  create_periods(database);
  set_current_period(database, sToday);
  transaction.commit();
}

void create_demo(Database& database, const std::string& sToday) {
  Transaction transaction(database);
  create_masters(database, sToday);
  database.exec_script(kPartners);
  create_open_items(database, sToday);
  // Beyond a customer's limit the desk warns, beyond a supplier's it refuses.
  database.exec("UPDATE t_SystemProfile SET FValue = '2' WHERE FKey = 'CreditDegree'");
  database.exec("UPDATE t_SystemProfile SET FValue = '3' WHERE FKey = 'CreditDegreeCG'");
  transaction.commit();
}

}  // namespace desk
