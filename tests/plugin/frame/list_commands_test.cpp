#include "frame/list_commands.h"

#include <gtest/gtest.h>

#include "support/test_session.h"
#include "support/test_windows.h"

namespace arap::testing {
namespace {

class ListCommands : public ::testing::Test {
 protected:
  Vector rows() const { return Vector(Variant(list->selection)); }
  /// The ids that a walk visits, until one of them is `nStop`.
  RowWalk walk(std::int32_t nStop = -1) {
    return WalkSelectedBills(rows(), [&](const Variant& vBillID) {
      visited.push_back(LongOf(vBillID));
      return visited.back() != nStop;
    });
  }

  TestSession session;
  Ref<TestList> list = make_object<TestList>(1000205);
  std::vector<std::int32_t> visited;
};

TEST_F(ListCommands, ARowHoldsItsIdInARecordOrAsAValue) {
  EXPECT_EQ(LongOf(*SelectedBillId(dictionary({{"fbillid", dictionary({{"FFLD", std::int32_t{7}}})}}))), 7);
  EXPECT_EQ(LongOf(*SelectedBillId(dictionary({{"FBillID", std::int32_t{8}}}))), 8);
  EXPECT_FALSE(SelectedBillId(dictionary({{"FAmount", 1.0}})).has_value());
}

TEST_F(ListCommands, AWalkVisitsEveryRowInOrder) {
  list->select({{"FBillID", 5}}).select({{"FBillID", 6}}).select({{"FBillID", 5}});
  EXPECT_EQ(walk(), RowWalk::AllRows);
  EXPECT_EQ(visited, (std::vector<std::int32_t>{5, 6, 5}));
}

TEST_F(ListCommands, AWalkEndsWhereTheVisitorSaysSoOrARowHasNoId) {
  list->select({{"FBillID", 5}}).select({{"FAmount", 6}}).select({{"FBillID", 7}});
  EXPECT_EQ(walk(), RowWalk::RowWithoutId);
  EXPECT_EQ(walk(5), RowWalk::Stopped);
  EXPECT_EQ(visited, (std::vector<std::int32_t>{5, 5}));
}

TEST_F(ListCommands, AListWithoutASelectionIsEmptyAlsoWhenItHasNoVector) {
  EXPECT_TRUE(IsSelectionEmpty(rows()));
  EXPECT_TRUE(IsSelectionEmpty(Vector()));
  EXPECT_EQ(walk(), RowWalk::AllRows);
  list->select({{"FBillID", 5}});
  EXPECT_FALSE(IsSelectionEmpty(rows()));
}

TEST_F(ListCommands, TheListIsRefreshedUnlessTheHostDoesIt) {
  const std::vector<std::pair<const char*, bool>> aCases{{"", true},   {"0", true},      {"1", false}, {"-1", false},
                                                         {"x", true},  {"True", false},  {"2", false}, {"False", true},
                                                         {" 0", true}, {" true ", false}};
  for (const auto& [sValue, bMust] : aCases) {
    session.system_values[{"IC", "RefreshAfterAdd"}] = sValue;
    EXPECT_EQ(MustRefreshList(), bMust) << sValue;
  }
}

TEST_F(ListCommands, TheListIsRefreshedWhenTheSystemValueCannotBeRead) {
  session.remove_server("NUVBillDataAccess.SysInfo");
  EXPECT_TRUE(MustRefreshList());
}

TEST_F(ListCommands, PeriodsAreComparedByTheDay) {
  EXPECT_TRUE(IsBeforePeriod("2023-12-31", "2024-01-01"));
  EXPECT_FALSE(IsBeforePeriod("2024-1-1", "2024-01-01"));
  EXPECT_TRUE(IsBeforePeriod(DateSerial(2023, 12, 31), "2024-01-01"));
  EXPECT_FALSE(IsBeforePeriod(DateSerial(2024, 1, 1), "2024-01-01"));
  EXPECT_TRUE(IsBeforePeriod(Null{}, "2024-01-01"));
  EXPECT_FALSE(IsBeforePeriod("1999-01-01", ""));
}

}  // namespace
}  // namespace arap::testing
