#pragma once

#include <QCoreApplication>
#include <QTemporaryDir>

#include <memory>
#include <string>

#include "data/database.h"
#include "desk/sides.h"
#include "desk/test_server.h"
#include "services/session.h"
#include "services/settlement_posting.h"

namespace desk::testing {

/// One application object for the whole run; Qt SQL needs it.
inline void need_application() {
  static int argc = 1;
  static char name[] = "desk_tests";
  static char* argv[] = {name, nullptr};
  if (QCoreApplication::instance() == nullptr) new QCoreApplication(argc, argv);
}

/// A book on disk with two users, two currencies, a partner on each side and an account of each kind. "li" has every
/// right on settlement bills, "wang" may only check receipts.
class SmallBook {
 public:
  SmallBook() {
    need_application();
    database_ = Database::create(path());
    database_->exec_script(R"sql(
      INSERT INTO t_User (FUserID, FName, FFullName) VALUES (1, 'li', '李会计'), (2, 'wang', '王会计');
      INSERT INTO t_User_Right VALUES (1, 1010, 1000201, 69633), (1, 1010, 1000202, 69633), (2, 1010, 1000201, 1);
      INSERT INTO t_Currency VALUES (1, 'RMB', '人民币', 1, '*', 2), (2, 'USD', '美元', 8, '/', 4);
      INSERT INTO t_Organization (FItemID, FNumber, FName, FCreditDegree) VALUES (11, 'C01', '客户甲', 5000000);
      INSERT INTO t_Supplier (FItemID, FNumber, FName) VALUES (21, 'S01', '供应商甲');
      INSERT INTO t_Account (FAccountID, FNumber, FName) VALUES (101, '1002', '银行存款'), (102, '1122', '应收账款'),
        (103, '2202', '应付账款'), (104, '6603', '财务费用');
      INSERT INTO t_SystemProfile VALUES ('IC', 'CurrentYear', '2026'), ('IC', 'CurrentPeriod', '11');
      INSERT INTO t_PeriodDate VALUES (2026, 11, '2026-11-01', '2026-11-30');
    )sql");
  }

  std::string path() const { return book_address(folder_.filePath(QStringLiteral("book.db")).toStdString()); }
  Database& database() { return *database_; }
  /// Lets the book go, for seats in other processes, and opens it again.
  void close() { database_.reset(); }
  void open() { database_ = Database::open(path()); }

  /// A checked source bill of the side's invoices, in cents.
  void add_invoice(const SettlementTables& tables, std::int32_t nID, const std::string& sNumber, std::int64_t nCents) {
    const std::string sPartner = money_comes_in(tables) ? "FCustID" : "FSupplyID";
    database_->exec("INSERT INTO " + std::string(tables.sInvoice) + " (FInterID, FBillNo, FDate, FDueDate, " +
                        sPartner +
                        ", FClassTypeID, FAmountFor, FAmount) VALUES (?, ?, '2026-11-02', '2026-12-02', ?,"
                        " ?, ?, ?)",
                    {Bind(nID), Bind(sNumber), Bind(std::int32_t{money_comes_in(tables) ? 11 : 21}),
                     Bind(invoice_class(tables)), Bind(cents(nCents)), Bind(cents(nCents))});
  }

  /// An unchecked settlement bill without rows.
  void add_bill(const SettlementTables& tables, std::int32_t nID, std::int64_t nCents, std::int32_t nType) {
    database_->exec(side_sql(tables,
                             "INSERT INTO {bill} (FBillID, FBillNo, FDate, {partner}, {type}, FAcctID,"
                             " FAmountFor, FAmount, F{got}AmountFor, F{got}Amount) VALUES"
                             " (?, ?, '2026-11-05', ?, ?, 101, ?, ?, ?, ?)"),
                    {Bind(nID), Bind("SK" + std::to_string(nID)), Bind(std::int32_t{money_comes_in(tables) ? 11 : 21}),
                     Bind(nType), Bind(cents(nCents)), Bind(cents(nCents)), Bind(cents(nCents)), Bind(cents(nCents))});
  }

  /// A row that settles a part of an invoice.
  void add_row(const SettlementTables& tables, std::int32_t nBill, std::int32_t nIndex, std::int32_t nInvoice,
               std::int64_t nCents) {
    add_row_of_class(tables, nBill, nIndex, invoice_class(tables), nInvoice, 1, nCents);
  }
  void add_row_of_class(const SettlementTables& tables, std::int32_t nBill, std::int32_t nIndex, std::int32_t nClass,
                        std::int32_t nSource, std::int32_t nEntry, std::int64_t nCents) {
    database_->exec(side_sql(tables,
                             "INSERT INTO {entry} (FBillID, FIndex, FClassID_SRC, FInterID, FEntryID_SRC,"
                             " FBillSettleAmountFor, FBillSettleAmount) VALUES (?, ?, ?, ?, ?, ?, ?)"),
                    {Bind(nBill), Bind(nIndex), Bind(nClass), Bind(nSource), Bind(nEntry), Bind(cents(nCents)),
                     Bind(cents(nCents))});
  }

  /// A bill of one row over one invoice.
  void add_simple_bill(const SettlementTables& tables, std::int32_t nID, std::int32_t nInvoice, std::int64_t nCents) {
    add_bill(tables, nID, nCents, money_comes_in(tables) ? 1001 : 1003);
    add_row(tables, nID, 1, nInvoice, nCents);
  }

  std::string received(const SettlementTables& tables, std::int32_t nInvoice) {
    return Money::from_stored(
               database_->value("SELECT FReceiveAmountFor FROM " + std::string(tables.sInvoice) + " WHERE FInterID = ?",
                                {Bind(nInvoice)}))
        .text();
  }
  std::string status(const SettlementTables& tables, std::int32_t nBill) {
    const Rows rows = database_->query(side_sql(tables, "SELECT FStatus FROM {bill} WHERE FBillID = ?"), {Bind(nBill)});
    return rows.empty() ? "gone" : rows.text(0, "FStatus");
  }
  /// Every figure of the side that a check touches, as one text.
  std::string books(const SettlementTables& tables) {
    std::string sText;
    for (const char* sQuery : {"SELECT FInterID, FReceiveAmountFor, FReceiveAmount FROM {invoice} ORDER BY 1",
                               "SELECT FBillID, FCheckAmountFor, FCheckAmount FROM {other} ORDER BY 1",
                               "SELECT FID, FBackAmountFor, FBackAmount FROM {entry} ORDER BY 1",
                               "SELECT FBillID, FStatus, FChecker FROM {bill} ORDER BY 1"}) {
      const Rows rows = database_->query(side_sql(tables, sQuery));
      for (std::size_t i = 0; i < rows.size(); ++i)
        for (const std::string& sColumn : *rows.columns()) sText += rows.text(i, sColumn) + " ";
      sText += "\n";
    }
    return sText;
  }

  static Money cents(std::int64_t nCents) { return Money{nCents * 100}; }
  static std::int32_t invoice_class(const SettlementTables& tables) {
    return money_comes_in(tables) ? 1000002 : 1000004;
  }

 private:
  QTemporaryDir folder_;
  std::unique_ptr<Database> database_;
};

}  // namespace desk::testing
