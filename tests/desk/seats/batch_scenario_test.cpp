#include <array>
#include <atomic>

#include "data/patience.h"
#include "desk/cli/command_line.h"
#include "desk/seats/seat_process.h"

namespace desk::testing {
namespace {

class BatchOfSeats : public CommandLine {
 protected:
  std::size_t told(const std::string& sPart) const {
    std::size_t nCount = 0;
    for (std::size_t i = out.find(sPart); i != std::string::npos; i = out.find(sPart, i + 1)) ++nCount;
    return nCount;
  }
  bool has_receipts() {
    for (const auto& bill : shown("bills")) {
      if (bill["kind"] == "receipt") return true;
    }
    return false;
  }
  /// Receipts of 2.00 each over one invoice of the demo book.
  void make_receipts(int nBills) {
    ASSERT_EQ(
        play_text("for each number up to " + std::to_string(nBills) +
                  "\nnew receipt\nset FReceiveTypeID 1001\nset FCustomerID C001\nset FAcctID 1002.01\n"
                  "select XSFP000001\nset row 1 FBillSettleAmountFor 2\npress mnuDataAutoSumAmt\nsave\nclose\nend"),
        kExitDone)
        << out << err;
  }
};

TEST_F(BatchOfSeats, TheShippedScenarioTellsALineForEachOfItsBills) {
  make_demo();
  ASSERT_EQ(play_shipped("batch.txt"), kExitDone) << err;
  EXPECT_EQ(told("反审核[编号:SKD"), 500u);
  EXPECT_EQ(told("审核[编号:SKD"), 1000u) << "the checks, and the unchecks by the end of their words";
  EXPECT_EQ(told("删除[编号:SKD"), 500u);
  EXPECT_FALSE(has_receipts());
}

TEST_F(BatchOfSeats, ABillThatAnotherProgramHoldsIsTheOnlyOneLeftOut) {
  make_demo();
  make_receipts(12);
  const Shared<std::atomic<int>> state;  // 1: held, 2: let go
  const pid_t nSeat = start_seat([&] {
    const auto database = Database::open(book());
    Session session(*database, "clerk");
    const std::array<std::int32_t, 1> aBills{7};
    if (session.tasks().take(21, "AR0224", aBills) == 0) throw std::runtime_error("the bill is held already");
    state->store(1);
    for (Patience patience(120'000); state->load() == 1 && patience.wait();) {
    }
  });
  for (Patience patience(30'000); state->load() == 0 && patience.wait();) {
  }
  EXPECT_EQ(play_text("batch receipt Check all\nexpect open XSFP000001 978"), kExitDone) << out << err;
  EXPECT_EQ(told("单据成功!"), 11u) << out;
  EXPECT_EQ(told("当前使用的功能与其他用户有冲突,目前无法使用!"), 1u) << out;
  EXPECT_EQ(told("SKD000007"), 0u) << out;
  state->store(2);
  EXPECT_EQ(end_of_seat(nSeat), 0);
  EXPECT_EQ(play_text("batch receipt Check SKD000007\nexpect open XSFP000001 976"), kExitDone) << out << err;
}

}  // namespace
}  // namespace desk::testing
