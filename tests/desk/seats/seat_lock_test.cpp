#include <atomic>
#include <csignal>

#include "data/patience.h"
#include "desk/engine/engine_world.h"
#include "desk/seats/seat_process.h"
#include "desk/services/small_book.h"
#include "desk/sides.h"
#include "frame/conversions.h"
#include "services/bill_kinds.h"
#include "services/seat_host.h"

namespace desk::testing {
namespace {

/// A bill window of this seat on a book that others can reach.
class SeatLock : public ::testing::TestWithParam<const SettlementTables*> {
 protected:
  SeatLock() {
    book.add_invoice(tables(), 1, "X1", 100'00);
    book.add_simple_bill(tables(), 7, 1, 60'00);
  }
  static const SettlementTables& tables() { return *GetParam(); }
  std::string explanation() {
    return arap::Concat(book.database().value(side_sql(tables(), "SELECT FExplanation FROM {bill}")));
  }

  SmallBook book;
};
INSTANTIATE_TEST_SUITE_P(Sides, SeatLock, ::testing::Values(&kReceiptTables, &kPaymentTables),
                         [](const auto& side) { return money_comes_in(*side.param) ? "Receipt" : "Payment"; });

TEST_P(SeatLock, ABillWhoseEditLockWasLostIsntStored) {
  Session session(book.database(), "li");
  const OpenBillWindow window = open_bill_window(seat_host(session, "2026-11-10"),
                                                 BillTemplate::shipped(find_bill_kind(tables().nClass)->sTemplate),
                                                 arap::make_object<ScriptedPlugin>());
  ASSERT_TRUE(window->load_bill(7));
  window->type_field("FExplanation", -1, "mine");
  book.database().exec("DELETE FROM t_Task");
  const Outcome outcome = window->save();
  EXPECT_FALSE(outcome);
  EXPECT_EQ(outcome.sReason, "单据的锁定已失效，不能保存。 请重新打开单据。");
  EXPECT_EQ(explanation(), "");
}

TEST_P(SeatLock, OfAProgramThatWasKilledComesFree) {
  book.close();
  const Shared<std::atomic<bool>> taken;
  const pid_t nSeat = start_seat([&] {
    const auto database = Database::open(book.path());
    Session session(*database, "wang");
    const OpenBillWindow window = open_settlement_window(session, tables(), "2026-11-10");
    taken->store(window->load_bill(7));
    pause();
  });
  for (Patience patience(30'000); !taken->load() && patience.wait();) {
  }
  book.open();
  Session session(book.database(), "li");
  const std::vector<std::int32_t> aBills{7};
  const auto take = [&] { return session.tasks().take(21, edit_function(tables().nClass), aBills); };
  EXPECT_EQ(take(), 0) << "a running seat holds the bill";
  kill(nSeat, SIGKILL);
  end_of_seat(nSeat);
  std::int32_t nTask = 0;
  for (Patience patience(10'000); nTask == 0 && patience.wait();) nTask = take();
  EXPECT_GT(nTask, 0);
}

TEST_P(SeatLock, NoBoxWaitsInATransaction) {
  Session session(book.database(), "li");
  std::int32_t nBoxes = 0;
  session.platform().set_ask_user([&](const ShownMessage&) {
    ++nBoxes;
    EXPECT_FALSE(book.database().in_transaction());
    return kButtonOk;
  });
  const OpenBillWindow window = open_settlement_window(session, tables(), "2026-11-10");
  ASSERT_TRUE(window->load_bill(7));
  for (const char* sTool : {"mnuEditCheck", "mnuEditUnCheck", "mnuEditCheck", "mnuEditDelete"}) window->press(sTool);
  EXPECT_GT(nBoxes, 1);
}

}  // namespace
}  // namespace desk::testing
