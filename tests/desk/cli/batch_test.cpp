#include <gtest/gtest.h>

#include <sstream>

#include "cli/player.h"
#include "desk/services/small_book.h"

namespace desk::testing {
namespace {

/// A book with two receipts that can be checked.
class BatchScenario : public ::testing::Test {
 protected:
  BatchScenario() {
    for (const std::int32_t n : {1, 2}) {
      book.add_invoice(kReceiptTables, n, "X" + std::to_string(n), 100'00);
      book.add_simple_bill(kReceiptTables, n, n, 100'00);
    }
  }
  /// What the scenario tells.
  std::string play(const std::string& sText) {
    Session session(book.database(), "li");
    std::ostringstream out;
    ScenarioPlayer(session, out, {"2026-11-21", false}).play(ParseScenario(sText, "day.txt"));
    return out.str();
  }

  SmallBook book;
};

TEST_F(BatchScenario, ABatchTellsALineForEachBill) {
  const std::string sTold = play("batch receipt Check all\nexpect message 审核[编号:SK1]单据成功!");
  EXPECT_NE(sTold.find("审核[编号:SK1]单据成功!\n审核[编号:SK2]单据成功!"), std::string::npos) << sTold;
  EXPECT_EQ(book.status(kReceiptTables, 2), "1");
}

TEST_F(BatchScenario, ABatchTakesBillsByTheirNumbersAndAsksBeforeItDeletes) {
  play("answer yes\nbatch receipt mnuEditDelete SK2");
  EXPECT_EQ(book.status(kReceiptTables, 1), "0");
  EXPECT_EQ(book.status(kReceiptTables, 2), "gone");
}

TEST_F(BatchScenario, ANumberThatTheListLacksEndsTheScenario) {
  EXPECT_THROW(play("batch receipt Check SK9"), ScenarioError);
  EXPECT_EQ(book.status(kReceiptTables, 1), "0");
}

TEST_F(BatchScenario, ALineThatNamesNoBillsCannotBeRead) {
  EXPECT_THROW(ParseScenario("batch receipt Check", "day.txt"), ScenarioError);
  EXPECT_THROW(ParseScenario("batch voucher Check all", "day.txt"), ScenarioError);
}

}  // namespace
}  // namespace desk::testing
