#include <array>
#include <atomic>
#include <cstring>
#include <thread>

#include "desk/seats/seat_process.h"
#include "desk/services/small_book.h"

namespace desk::testing {
namespace {

constexpr std::int32_t kMostChecks = 1600;
constexpr std::int32_t kSourceCents = 100'00;
constexpr int kLongWaitMs = 60'000;

struct Race {
  std::int32_t nSeats;
  std::int32_t nSources;
  std::int32_t nCents;  // what each seat's bill draws on each source
  const char* sLoss;    // what the losers hear, behind the number of the source

  std::int32_t winners() const { return kSourceCents / nCents; }
};
void PrintTo(const Race& race, std::ostream* out) { *out << race.nSeats << " seats"; }

/// What the seats tell each other and the test.
struct Board {
  std::array<std::atomic<int>, kMostChecks> aArrived{};  // by source
  std::array<std::atomic<bool>, kMostChecks> aWon{};     // by bill
  std::array<std::array<char, 160>, kMostChecks> aRefusals{};
};

/// Seats in processes of their own that check bills over the same sources at the same moment: 1,000 races over all.
class SeatRace : public ::testing::TestWithParam<Race> {
 protected:
  void SetUp() override {
    Transaction transaction(book.database());
    for (std::int32_t nSource = 1; nSource <= race().nSources; ++nSource) {
      book.add_invoice(kReceiptTables, nSource, "X" + std::to_string(nSource), kSourceCents);
      for (std::int32_t nSeat = 0; nSeat < race().nSeats; ++nSeat)
        book.add_simple_bill(kReceiptTables, bill(nSource, nSeat), nSource, race().nCents);
    }
    transaction.commit();
    book.close();
  }

  static const Race& race() { return GetParam(); }
  static std::int32_t bill(std::int32_t nSource, std::int32_t nSeat) {
    return (nSource - 1) * race().nSeats + nSeat + 1;
  }

  /// One seat: at each source it waits for the others, then takes its bill, checks it and gives it back.
  void run_seat(std::int32_t nSeat) {
    const auto database = Database::open(book.path(), {.nBusyTimeoutMs = kLongWaitMs, .nCachedStatements = 64});
    Session session(*database, "li");
    for (std::int32_t nSource = 1; nSource <= race().nSources; ++nSource) {
      std::atomic<int>& arrived = board->aArrived[static_cast<std::size_t>(nSource - 1)];
      for (++arrived; arrived < race().nSeats;) std::this_thread::yield();
      check(session, bill(nSource, nSeat));
    }
  }
  void check(Session& session, std::int32_t nBill) {
    const std::array<std::int32_t, 1> aBills{nBill};
    const std::int32_t nTask = session.tasks().take(21, "AR0226", aBills);
    if (nTask == 0) throw std::runtime_error("the bill of this seat is held by another");
    const PostingResult result = SettlementPosting(session.database(), kReceiptTables).check(nBill, "li");
    const auto nPlace = static_cast<std::size_t>(nBill - 1);
    board->aWon[nPlace] = result.bDone;
    std::strncpy(board->aRefusals[nPlace].data(), result.sRefusal.c_str(), board->aRefusals[nPlace].size() - 1);
    if (!session.tasks().commit(nTask)) throw std::runtime_error("the task was gone");
  }

  void expect_source(std::int32_t nSource) {
    std::int32_t nWinners = 0;
    for (std::int32_t nSeat = 0; nSeat < race().nSeats; ++nSeat) {
      const auto nPlace = static_cast<std::size_t>(bill(nSource, nSeat) - 1);
      const bool bWon = board->aWon[nPlace];
      nWinners += bWon ? 1 : 0;
      EXPECT_EQ(book.status(kReceiptTables, bill(nSource, nSeat)), bWon ? "1" : "0");
      EXPECT_EQ(std::string(board->aRefusals[nPlace].data()),
                bWon ? "" : "源单[X" + std::to_string(nSource) + "]" + race().sLoss);
    }
    EXPECT_EQ(nWinners, race().winners()) << "on source " << nSource;
    EXPECT_EQ(book.received(kReceiptTables, nSource), SmallBook::cents(race().winners() * race().nCents).text());
  }

  SmallBook book;
  Shared<Board> board;
};
INSTANTIATE_TEST_SUITE_P(Seats, SeatRace,
                         ::testing::Values(Race{2, 400, 60'00, "未核销余额只剩 40.00,不能核销 60.00,审核失败。"},
                                           Race{4, 400, 30'00, "未核销余额只剩 10.00,不能核销 30.00,审核失败。"},
                                           Race{8, 200, 30'00, "未核销余额只剩 10.00,不能核销 30.00,审核失败。"}),
                         [](const auto& each) { return std::to_string(each.param.nSeats); });

TEST_P(SeatRace, NeverSettlesASourceTwiceAndTheLosersHearWhatIsLeft) {
  std::vector<pid_t> aSeats;
  for (std::int32_t nSeat = 0; nSeat < race().nSeats; ++nSeat)
    aSeats.push_back(start_seat([this, nSeat] { run_seat(nSeat); }));
  for (const pid_t nSeat : aSeats) EXPECT_EQ(end_of_seat(nSeat), 0);
  book.open();
  for (std::int32_t nSource = 1; nSource <= race().nSources; ++nSource) expect_source(nSource);
  EXPECT_TRUE(book.database().query("SELECT FTaskID FROM t_Task").empty()) << "a task was left behind";
}

}  // namespace
}  // namespace desk::testing
