#include <gtest/gtest.h>

#include "desk/services/small_book.h"
#include "services/task_mutex.h"

namespace desk::testing {
namespace {

class TwoSeats : public ::testing::Test {
 protected:
  std::int32_t take(TaskMutex& seat, std::string_view sFunction, std::vector<std::int32_t> aBills) {
    return seat.take(21, sFunction, aBills);
  }
  static Seat seat(std::string sMachine) {
    return {std::move(sMachine), static_cast<std::int32_t>(QCoreApplication::applicationPid()), "li"};
  }

  SmallBook book;
  TaskMutex here{book.database(), [] { return seat("HERE"); }};
  TaskMutex there{book.database(), [] { return seat("THERE"); }};
};

TEST_F(TwoSeats, ATaskIsAboveZeroAndComesBackOnce) {
  const std::int32_t nTask = take(here, "AR0226", {7});
  EXPECT_GT(nTask, 0);
  EXPECT_TRUE(here.commit(nTask));
  EXPECT_FALSE(here.commit(nTask));
}

TEST_F(TwoSeats, TheSameBillCantBeTakenTwice) {
  const std::int32_t nTask = take(here, "AR0226", {7});
  EXPECT_EQ(take(there, "AR0226", {7}), 0);
  here.commit(nTask);
  EXPECT_GT(take(there, "AR0226", {7}), 0);
}

TEST_F(TwoSeats, AnotherOperationOnTheSameBillConflictsToo) {
  take(here, "AR0224", {7});
  EXPECT_EQ(take(there, "AR0225", {7}), 0);
}

TEST_F(TwoSeats, AnotherBillOrAnotherModuleIsFree) {
  take(here, "AR0226", {7});
  EXPECT_GT(take(there, "AR0226", {77}), 0);
  EXPECT_GT(take(there, "AP0226", {7}), 0);
  EXPECT_GT(take(there, "AR0304", {7}), 0);
}

TEST_F(TwoSeats, ABatchGuardsEachOfItsBills) {
  take(here, "AR0226", {5, 6, 7});
  EXPECT_EQ(take(there, "AR0225", {9, 6}), 0);
}

TEST_F(TwoSeats, AFunctionTakenAsAWholeConflictsWithItselfOnly) {
  take(here, "pu0550", {});
  EXPECT_EQ(take(there, "pu0550", {}), 0);
  EXPECT_EQ(take(there, "pu0550", {3}), 0);
  EXPECT_GT(take(there, "pu0552", {}), 0);
}

TEST_F(TwoSeats, OneSeatDoesntBlockItself) {
  take(here, "AR0224", {7});
  EXPECT_GT(take(here, "AR0226", {7}), 0);
}

TEST_F(TwoSeats, AForeignTaskCantBeGivenBack) {
  const std::int32_t nTask = take(here, "AR0226", {7});
  EXPECT_FALSE(there.commit(nTask));
  EXPECT_EQ(take(there, "AR0226", {7}), 0);
}

TEST_F(TwoSeats, ASeatFindsItsTasksOfABill) {
  const std::int32_t nTask = take(here, "AR0224", {7});
  take(here, "AR0224", {77});
  EXPECT_EQ(here.tasks_of("AR0224", 7), std::vector<std::int32_t>{nTask});
  EXPECT_TRUE(there.tasks_of("AR0224", 7).empty());
}

TEST_F(TwoSeats, TasksOfAnEndedProgramOfThisMachineAreCleared) {
  constexpr std::int32_t kNoSuchProcess = 2'000'000'000;
  TaskMutex crashed(book.database(), [] { return Seat{"HERE", kNoSuchProcess, "li"}; });
  take(crashed, "AR0226", {7});
  EXPECT_GT(take(here, "AR0226", {7}), 0);
}

TEST_F(TwoSeats, AnEndingSeatGivesEverythingBack) {
  take(here, "AR0224", {7});
  take(here, "AR0226", {8});
  here.release_all();
  EXPECT_GT(take(there, "AR0226", {7, 8}), 0);
}

}  // namespace
}  // namespace desk::testing
