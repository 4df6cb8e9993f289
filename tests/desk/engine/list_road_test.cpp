#include <gtest/gtest.h>

#include <algorithm>
#include <array>

#include "desk/services/small_book.h"
#include "desk/sides.h"
#include "engine/list_window.h"
#include "frame/conversions.h"
#include "services/bill_kinds.h"

namespace desk::testing {
namespace {

constexpr std::int32_t kBills = 500;

/// A book of 500 unchecked bills over 500 invoices, their list at one seat, and a second seat on the same book.
class ListRoad : public ::testing::TestWithParam<const SettlementTables*> {
 protected:
  ListRoad() {
    Transaction transaction(book.database());
    for (std::int32_t n = 1; n <= kBills; ++n) {
      book.add_invoice(tables(), n, "X" + std::to_string(n), 100'00);
      book.add_bill(tables(), n, 100'00, money_comes_in(tables()) ? 1001 : 1003);
      book.add_row(tables(), n, 1, n, 60'00);
      book.add_row(tables(), n, 2, n, 40'00);
    }
    transaction.commit();
    session = std::make_unique<Session>(book.database(), "li");
    list = open_list_window(book.database(), BillTemplate::shipped(find_bill_kind(tables().nClass)->sTemplate));
  }
  ~ListRoad() override {
    list.reset();
    session.reset();
  }

  const SettlementTables& tables() const { return *GetParam(); }
  /// The lines of the last result window.
  std::vector<std::string> results() const {
    std::vector<std::string> aLines;
    if (session->shown_results.empty()) return aLines;
    std::string sLine;
    for (const char c : session->shown_results.back() + "\n") {
      if (c != '\n') {
        sLine += c;
      } else {
        aLines.push_back(std::exchange(sLine, {}));
      }
    }
    return aLines;
  }
  std::int64_t bills_of_status(const std::string& sStatus) {
    return arap::LongOf(book.database().value(
        side_sql(tables(), "SELECT COUNT(*) FROM {bill} WHERE FStatus = " + sStatus), {}, std::int32_t{0}));
  }
  std::int32_t tasks() {
    return arap::LongOf(book.database().value("SELECT COUNT(*) FROM t_Task", {}, std::int32_t{0}));
  }
  static std::ptrdiff_t with(const std::vector<std::string>& aLines, const std::string& sPart) {
    return std::count_if(aLines.begin(), aLines.end(),
                         [&](const std::string& sLine) { return sLine.find(sPart) != std::string::npos; });
  }

  SmallBook book;
  std::unique_ptr<Session> session;
  OpenListWindow list;
};
INSTANTIATE_TEST_SUITE_P(Sides, ListRoad, ::testing::Values(&kReceiptTables, &kPaymentTables),
                         [](const auto& side) { return money_comes_in(*side.param) ? "Receipt" : "Payment"; });

TEST_P(ListRoad, ABillOfTwoEntriesHasTwoLines) {
  EXPECT_EQ(list->lines().size(), 2u * kBills);
  list->select_bills({7});
  EXPECT_EQ(list->selection().size(), 2u);
  EXPECT_THROW(list->select_lines({2u * kBills}), arap::AutomationError);
}

TEST_P(ListRoad, ABatchChecksUnchecksAndDeletesFiveHundredBillsWithALineEach) {
  for (const auto& [sTool, sText] : {std::pair("Check", "审核[编号:"), std::pair("UnCheck", "反审核[编号:"),
                                     std::pair("mnuEditDelete", "删除[编号:")}) {
    list->select_all();
    session->platform().queue_answer(kButtonYes);
    const Outcome outcome = list->press(sTool);
    ASSERT_TRUE(outcome) << outcome.sReason;
    EXPECT_EQ(results().size(), static_cast<std::size_t>(kBills)) << sTool;
    EXPECT_EQ(with(results(), sText), kBills) << sTool;
    EXPECT_TRUE(list->selection().empty());  // the list was read anew
  }
  EXPECT_TRUE(list->lines().empty());
  EXPECT_EQ(book.received(tables(), 1), "0.00");
  EXPECT_EQ(tasks(), 0);
}

TEST_P(ListRoad, ASecondSeatThatHoldsOneBillGivesTheConflictForThatBillAlone) {
  Session second(book.database(), "wang");
  second.platform().set_computer_name("SEAT-2");
  const std::array<std::int32_t, 1> aHeld{250};
  const std::int32_t nTask = second.tasks().take(21, edit_function(tables().nClass), aHeld);
  ASSERT_GT(nTask, 0);
  session->activate();
  list->select_all();
  ASSERT_TRUE(list->press("Check"));
  EXPECT_EQ(results().size(), static_cast<std::size_t>(kBills));
  EXPECT_EQ(with(results(), "当前使用的功能与其他用户有冲突,目前无法使用!"), 1);
  EXPECT_EQ(book.status(tables(), 250), "0");
  EXPECT_EQ(bills_of_status("1"), kBills - 1);
  EXPECT_EQ(tasks(), 1);
  EXPECT_TRUE(second.tasks().commit(nTask));
  list->select_bills({250});
  ASSERT_TRUE(list->press("Check"));
  EXPECT_EQ(book.status(tables(), 250), "1");
  EXPECT_EQ(session->platform().messages().back().sText.substr(0, 6), "审核");
}

TEST_P(ListRoad, ABillThatTheOtherSeatDeletedStopsTheBatchBeforeTheFirst) {
  list->select_bills({1, 2});
  SettlementPosting(book.database(), tables()).remove(2);
  ASSERT_TRUE(list->press("Check"));
  EXPECT_EQ(session->platform().messages().back().sText, "数据可能已经被删除,请刷新!");
  EXPECT_EQ(book.status(tables(), 1), "0");
}

TEST_P(ListRoad, ASelectionListHasNoCommandsToChangeBills) {
  list = open_list_window(book.database(), BillTemplate::shipped(find_bill_kind(tables().nClass)->sTemplate),
                          ListMode::Selection);
  EXPECT_FALSE(list->press("mnuEditDelete"));
  EXPECT_FALSE(list->press("Check"));
}

TEST_P(ListRoad, EveryOperationOfABatchStandsInTheActionLog) {
  list->select_bills({3, 4});
  ASSERT_TRUE(list->press("Check"));
  EXPECT_EQ(arap::LongOf(book.database().value("SELECT COUNT(*) FROM t_Log", {}, std::int32_t{0})), 2);
}

}  // namespace
}  // namespace desk::testing
