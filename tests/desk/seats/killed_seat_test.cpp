#include <csignal>

#include "data/patience.h"
#include "desk/seats/seat_process.h"
#include "desk/services/small_book.h"
#include "engine/list_window.h"
#include "services/bill_kinds.h"
#include "services/seat_host.h"

namespace desk::testing {
namespace {

constexpr std::int32_t kBills = 3;
constexpr std::int32_t kMostStatements = 1000;

struct Killed {
  const SettlementTables* pTables;
  const char* sTool;
  const char* sBefore;  // status of a bill that the batch hasn't come to
  const char* sAfter;
  const char* sName;
};
void PrintTo(const Killed& killed, std::ostream* out) { *out << killed.sName; }

/// A seat that runs a batch in a process of its own and is killed at one of its statements.
class KilledSeat : public ::testing::TestWithParam<Killed> {
 protected:
  static const SettlementTables& tables() { return *GetParam().pTables; }
  static std::string before() { return GetParam().sBefore; }
  static std::string after() { return GetParam().sAfter; }

  void make_bills() {
    Transaction transaction(book.database());
    for (const char* sTable : {"{entry}", "{bill}", "{invoice}"})
      book.database().exec(side_sql(tables(), std::string("DELETE FROM ") + sTable));
    for (std::int32_t n = 1; n <= kBills; ++n) {
      book.add_invoice(tables(), n, "X" + std::to_string(n), 100'00);
      book.add_simple_bill(tables(), n, n, 60'00);
      if (before() == "1") SettlementPosting(book.database(), tables()).check(n, "li");
    }
    transaction.commit();
  }

  /// Ends by the signal before the n-th statement of the batch, or with 0 when it has fewer.
  int run_killed(std::int32_t nStatement) {
    book.close();
    const int nEnd = end_of_seat(start_seat([&] {
      const auto database = Database::open(book.path());
      Session session(*database, "li");
      session.platform().queue_answer(kButtonYes);
      const OpenListWindow list =
          open_list_window(*database, BillTemplate::shipped(find_bill_kind(tables().nClass)->sTemplate));
      list->select_all();
      database->set_statement_hook([nLeft = nStatement](std::string_view) mutable {
        if (--nLeft == 0) kill(getpid(), SIGKILL);
      });
      const Outcome outcome = list->press(GetParam().sTool);
      if (!outcome) throw std::runtime_error(outcome.sReason);
    }));
    book.open();
    return nEnd;
  }

  /// A bill and its source tell the same story, and the bill can be worked on again.
  void expect_whole(std::int32_t nBill) {
    const std::string sStatus = book.status(tables(), nBill);
    EXPECT_TRUE(sStatus == before() || sStatus == after()) << sStatus;
    EXPECT_EQ(book.received(tables(), nBill), sStatus == "1" ? "60.00" : "0.00");
    const Rows rows =
        book.database().query(side_sql(tables(), "SELECT FID FROM {entry} WHERE FBillID = ?"), {Bind(nBill)});
    EXPECT_EQ(rows.empty(), sStatus == "gone");
  }
  void expect_tasks_come_free() {
    Session here(book.database(), "wang");
    const std::vector<std::int32_t> aBills{1, 2, 3};
    std::int32_t nTask = 0;
    // A server hears of the end of a connection a moment later.
    for (Patience patience(10'000); nTask == 0 && patience.wait();)
      nTask = here.tasks().take(21, edit_function(tables().nClass), aBills);
    EXPECT_GT(nTask, 0);
    here.tasks().release_all();
    EXPECT_TRUE(book.database().query("SELECT FTaskID FROM t_Task").empty());
  }

  SmallBook book;
};
INSTANTIATE_TEST_SUITE_P(Batches, KilledSeat,
                         ::testing::Values(Killed{&kReceiptTables, "Check", "0", "1", "CheckReceipts"},
                                           Killed{&kPaymentTables, "Check", "0", "1", "CheckPayments"},
                                           Killed{&kReceiptTables, "UnCheck", "1", "0", "UncheckReceipts"},
                                           Killed{&kPaymentTables, "mnuEditDelete", "0", "gone", "DeletePayments"}),
                         [](const auto& each) { return each.param.sName; });

TEST_P(KilledSeat, LeavesEveryBillAsItWasOrDoneAndItsTasksComeFree) {
  std::int32_t nStatement = 1;
  int nEnd = -SIGKILL;
  for (; nEnd == -SIGKILL && nStatement < kMostStatements; ++nStatement) {
    make_bills();
    nEnd = run_killed(nStatement);
    SCOPED_TRACE("killed at statement " + std::to_string(nStatement));
    for (std::int32_t n = 1; n <= kBills; ++n) expect_whole(n);
    expect_tasks_come_free();
    if (HasFailure()) return;
  }
  EXPECT_EQ(nEnd, 0) << "the last batch is whole";
  EXPECT_GT(nStatement, 10 * kBills) << "a bill of a batch takes many statements";
  for (std::int32_t n = 1; n <= kBills; ++n) EXPECT_EQ(book.status(tables(), n), after());
}

}  // namespace
}  // namespace desk::testing
