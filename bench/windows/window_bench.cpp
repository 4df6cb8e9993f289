#include <QApplication>
#include <QElapsedTimer>
#include <QTableView>
#include <QTemporaryDir>

#include <cstdio>

#include "data/demo.h"
#include "windows/main_window.h"
#include "windows/many_bills.h"

/// How long the windows keep a user waiting who has much: the list of many bills, and a bill of many rows. Prints
/// milliseconds; run it with QT_QPA_PLATFORM=offscreen where there is no display.
namespace desk {
namespace {

constexpr std::int32_t kBills = 25'000;  // of two entries: 50,000 lines
constexpr std::int32_t kRows = 10'000;

void add_long_bill(Database& database) {
  testing::add_bills(database, kPaymentTables, 1);
  Transaction transaction(database);
  for (std::int32_t nIndex = 3; nIndex <= kRows; ++nIndex)
    database.exec(
        "INSERT INTO t_RP_PBillEntry (FBillID, FIndex, FClassID_SRC, FInterID, FEntryID_SRC, FPurchaseBillNo,"
        " FBillSettleAmountFor, FBillSettleAmount) VALUES (?, ?, 1000004, ?, 1, ?, 10000, 10000)",
        {Bind(testing::kFirstNew), Bind(nIndex), Bind(nIndex), Bind("N" + std::to_string(nIndex))});
  transaction.commit();
}

template <class F>
void tell(const char* sWhat, F&& work) {
  QElapsedTimer clock;
  clock.start();
  work();
  std::printf("%-44s %8.1f ms\n", sWhat, static_cast<double>(clock.nsecsElapsed()) / 1e6);
}

int measure() {
  QTemporaryDir folder;
  const auto database = Database::create(folder.filePath(QStringLiteral("bench.book")).toStdString());
  create_demo(*database);
  testing::add_bills(*database, kReceiptTables, kBills);
  add_long_bill(*database);
  DeskSeat seat(*database, "demo", "2026-11-15");
  MainWindow window(seat);
  window.show();
  QApplication::processEvents();
  const auto paint = [&window] { window.grab(); };
  tell("50,000 lines: read", [&] { window.current_room()->refresh(); });
  tell("50,000 lines: first paint", paint);
  tell("50,000 lines: sorted by number", [&] { window.current_room()->table().sortByColumn(0, Qt::DescendingOrder); });
  tell("50,000 lines: all selected", [&] { window.current_room()->table().selectAll(); });
  tell("10,000 rows: bill read and shown", [&] { window.open_bill("payment", testing::kFirstNew); });
  tell("10,000 rows: first paint", paint);
  tell("10,000 rows: next paint", paint);
  return 0;
}

}  // namespace
}  // namespace desk

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  return desk::measure();
}
