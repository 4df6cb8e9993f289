#include <gtest/gtest.h>

#include "desk/data/temp_book.h"
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
  DESK_FILES_ONLY();
  constexpr std::int32_t kNoSuchProcess = 2'000'000'000;
  TaskMutex crashed(book.database(), [] { return Seat{"HERE", kNoSuchProcess, "li"}; });
  take(crashed, "AR0226", {7});
  EXPECT_GT(take(here, "AR0226", {7}), 0);
}

TEST_F(TwoSeats, AReusedProcessIdDoesNotCountAsTheOwner) {
  DESK_FILES_ONLY();
  const std::int32_t nTask = take(here, "AR0226", {7});
  book.database().exec("UPDATE t_Task SET FSeat = 'another start'");
  EXPECT_TRUE(here.tasks_of("AR0226", 7).empty());
  EXPECT_FALSE(here.commit(nTask));
  EXPECT_GT(take(here, "AR0226", {7}), 0) << "the former owner of the id has ended";
  EXPECT_EQ(book.database().query("SELECT FTaskID FROM t_Task").size(), 1u);
}

TEST_F(TwoSeats, ATaskEndsWithTheConnectionThatTookIt) {
  if (!on_server()) GTEST_SKIP() << "a program of a file holds its tasks until it ends";
  const auto broken = Database::open(book.path());
  TaskMutex other(*broken, [] { return seat("OTHER"); });
  ASSERT_GT(take(other, "AR0226", {7}), 0);
  ASSERT_EQ(take(here, "AR0226", {7}), 0);
  const std::int32_t nBackend = broken->query("SELECT pg_backend_pid() AS n").integer(0, "n");
  book.database().query("SELECT pg_terminate_backend(" + std::to_string(nBackend) + ", 5000)");
  EXPECT_GT(take(here, "AR0226", {7}), 0);
  EXPECT_EQ(kind_of_failure([&] { other.has_lost("AR0226", 7); }), ErrorKind::MissingFile) << "it can't write any more";
}

TEST_F(TwoSeats, ALostTaskIsNoticed) {
  const std::int32_t nTask = take(here, "AR0224", {7, 8});
  EXPECT_FALSE(here.has_lost("AR0226", 7));
  book.database().exec("DELETE FROM t_Task");
  ASSERT_GT(take(there, "AR0225", {7}), 0);
  EXPECT_TRUE(here.has_lost("AR0226", 7));
  EXPECT_TRUE(here.has_lost("AR0226", 8));
  EXPECT_FALSE(here.has_lost("AR0226", 9));
  EXPECT_FALSE(here.has_lost("AP0226", 7));
  EXPECT_FALSE(there.has_lost("AR0226", 7));
  here.commit(nTask);
  EXPECT_FALSE(here.has_lost("AR0226", 7)) << "what was given back isn't lost";
}

TEST_F(TwoSeats, AnEndingSeatGivesEverythingBack) {
  take(here, "AR0224", {7});
  take(here, "AR0226", {8});
  here.release_all();
  EXPECT_GT(take(there, "AR0226", {7, 8}), 0);
}

}  // namespace
}  // namespace desk::testing
