#include "cli/bench_settle.h"

#include <QDir>
#include <QTemporaryDir>

#include <sys/resource.h>

#include <chrono>

#include "data/demo.h"
#include "frame/conversions.h"
#include "services/seat_host.h"

namespace desk {

namespace {

using Clock = std::chrono::steady_clock;

double seconds_since(Clock::time_point start) { return std::chrono::duration<double>(Clock::now() - start).count(); }

double cpu_seconds() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  const auto seconds = [](const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
  };
  return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

double peak_memory_mb() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return static_cast<double>(usage.ru_maxrss) / 1024.0;
}

// Amounts differ from one to the next, as they do in life.
Money invoice_amount(int nInvoice) {
  const std::int64_t nCents = 10'000 + (std::int64_t{nInvoice} * 37) % 5'000;
  return Money{nCents * (Money::kScale / 100)};
}

void add_invoices(Database& database, int nInvoices, const std::string& sToday) {
  Transaction transaction(database);
  const std::int32_t nCustomer =
      database.query("INSERT INTO t_Organization (FNumber, FName) VALUES ('BENCH', '批量客户') RETURNING FItemID")
          .integer(0, "FItemID");
  for (int i = 0; i < nInvoices; ++i) {
    const Money amount = invoice_amount(i);
    database.exec(
        "INSERT INTO ICSale (FBillNo, FDate, FDueDate, FCustID, FAmountFor, FAmount) VALUES (?, ?, ?, ?, ?, ?)",
        {Bind("B" + std::to_string(i + 1)), Bind(sToday), Bind(sToday), Bind(nCustomer), Bind(amount), Bind(amount)});
  }
  transaction.commit();
}

void must(const Outcome& outcome, Session& session, const std::string& sWhat) {
  if (outcome) return;
  const auto& messages = session.platform().messages();
  const std::string sWhy = !outcome.sReason.empty() ? outcome.sReason : messages.empty() ? "" : messages.back().sText;
  throw DeskError(ErrorKind::Other, sWhat + " was refused: " + sWhy, "bench settle");
}

void enter_head(BillWindow& window, Session& session) {
  Database& database = session.database();
  const std::string sAccount =
      arap::Concat(database.value("SELECT FNumber FROM t_Account WHERE FNumber LIKE '100%' ORDER BY FNumber LIMIT 1"));
  const std::string sType = arap::Concat(database.value("SELECT FID FROM t_SubMessage WHERE FInterID = 1001"));
  must(window.type_field("FReceiveTypeId", -1, sType), session, "the receipt type");
  must(window.type_field("FCustomerID", -1, "BENCH"), session, "the customer");
  must(window.type_field("FAcctId", -1, sAccount), session, "the account");
}

void settle_everything(BillWindow& window, Session& session) {
  window.set_chooser(choose_all());
  must(window.press("mnuSelectBill_2000001"), session, "the selection");
  must(window.press("mnuDataAutoSumAmt"), session, "the sum");
  must(window.save(), session, "the save");
  // The check answers through the bill's status: its command always keeps the host's own handling away.
  window.press("mnuEditCheck");
}

}  // namespace

SettleTimes bench_settle(int nInvoices, const std::string& sFolder) {
  const QString sParent = sFolder.empty() ? QDir::tempPath() : QString::fromStdString(sFolder);
  QTemporaryDir folder(sParent + QStringLiteral("/desk-bench-XXXXXX"));
  if (!folder.isValid()) throw DeskError(ErrorKind::Other, "can't make a folder", sParent.toStdString());
  SettleTimes times;
  times.nInvoices = nInvoices;
  const std::string sToday = system_date();
  const auto setup_start = Clock::now();
  const auto database = Database::create(folder.filePath(QStringLiteral("bench.db")).toStdString());
  create_masters(*database, sToday);
  add_invoices(*database, nInvoices, sToday);
  times.dSetupSeconds = seconds_since(setup_start);

  Session session(*database, first_user(*database));
  const OpenBillWindow window = open_settlement_window(session, kReceiptTables, sToday);
  window->new_bill();
  enter_head(*window, session);
  const auto settle_start = Clock::now();
  const double dCpuBefore = cpu_seconds();
  settle_everything(*window, session);
  times.dCpuSeconds = cpu_seconds() - dCpuBefore;
  times.dSettleSeconds = seconds_since(settle_start);
  times.dRssMb = peak_memory_mb();
  const Rows open = database->query("SELECT FBillID FROM vw_arap_RBillList LIMIT 1");
  if (!open.empty() || arap::LongOf(window->value("FStatus")) != 1)
    throw DeskError(ErrorKind::Other, "the receipt didn't settle every invoice", "bench settle");
  window->close();
  return times;
}

}  // namespace desk
