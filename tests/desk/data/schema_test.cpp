#include <gtest/gtest.h>

#include "data/sql_dialect.h"
#include "temp_book.h"

namespace desk {
namespace {

using testing::DemoBook;

struct Side {
  const char* sOpenView;
  const char* sBackView;
  const char* sBill;
  const char* sTypeColumn;
  const char* sOtherBill;
  const char* sUnreceived;
  int nNormalType;
  int nRefundType;
};

void PrintTo(const Side& side, std::ostream* out) { *out << side.sBill; }

class OpenItemsTest : public ::testing::TestWithParam<Side> {
 protected:
  void add_bill(int nId, int nType, int nStatus, Money settled, Money back) {
    const Side& side = GetParam();
    const std::string sBill = side.sBill;
    book_.database->exec("INSERT INTO " + sBill + " (FBillID, FBillNo, FDate, " + side.sTypeColumn +
                             ", FStatus) VALUES (?, ?, '2026-11-05', ?, ?)",
                         {nId, "B" + std::to_string(nId), nType, nStatus});
    book_.database->exec(
        "INSERT INTO " + sBill +
            "Entry (FBillID, FIndex, FBillSettleAmountFor, FBillSettleAmount, FBackAmountFor, FBackAmount) "
            "VALUES (?, 1, ?, ?, ?, ?)",
        {nId, settled, settled, back, back});
  }
  std::size_t rows_of(const char* sView) { return book_.database->query(std::string("SELECT * FROM ") + sView).size(); }

  DemoBook book_;
};

TEST_P(OpenItemsTest, ShowsWhatIsOpenOnInvoicesBeginningsAndOtherBills) {
  EXPECT_EQ(rows_of(GetParam().sOpenView), 7u);
}

TEST_P(OpenItemsTest, ASettledOrUncheckedOtherBillIsNotOpen) {
  const std::string sOther = GetParam().sOtherBill;
  book_.database->exec("UPDATE " + sOther + " SET FStatus = 0");
  EXPECT_EQ(rows_of(GetParam().sOpenView), 6u);
  book_.database->exec("UPDATE " + sOther + " SET FStatus = 1, FCheckAmountFor = FAmountFor");
  EXPECT_EQ(rows_of(GetParam().sOpenView), 6u);
}

TEST_P(OpenItemsTest, TheOpenAmountIsTheTotalLessWhatWasSettled) {
  const Rows rows = book_.database->query(std::string("SELECT ") + GetParam().sUnreceived + " AS FAmount FROM " +
                                          GetParam().sOpenView + " WHERE FBillNo LIKE '%FP000002'");
  ASSERT_EQ(rows.size(), 1u);
  EXPECT_EQ(rows.money(0, "FAmount").text(), GetParam().nNormalType == 1001 ? "2000.00" : "700.00");
}

TEST_P(OpenItemsTest, ARefundSourceIsOpenWithTheSignTurnedAndLessWhatWentBack) {
  add_bill(1, GetParam().nNormalType, 1, Money::parse("100"), Money::parse("30"));
  const Rows rows = book_.database->query(std::string("SELECT * FROM ") + GetParam().sBackView);
  ASSERT_EQ(rows.size(), 1u);
  EXPECT_EQ(rows.money(0, GetParam().sUnreceived).text(), "-70.00");
  EXPECT_EQ(rows.text(0, "FFKDBillNo"), "B1");
  EXPECT_EQ(rows.money(0, "FEntryAmount_SRC").text(), "100.00");
  EXPECT_EQ(rows.integer(0, "FID"), rows.integer(0, "FEntryID_SRC"));
}

TEST_P(OpenItemsTest, UncheckedRefundedAndRefundingBillsAreNoRefundSources) {
  add_bill(1, GetParam().nNormalType, 0, Money::parse("100"), Money{});
  add_bill(2, GetParam().nNormalType, 1, Money::parse("100"), Money::parse("100"));
  add_bill(3, GetParam().nRefundType, 1, Money::parse("100"), Money{});
  EXPECT_EQ(rows_of(GetParam().sBackView), 0u);
}

INSTANTIATE_TEST_SUITE_P(Sides, OpenItemsTest,
                         ::testing::Values(Side{"vw_arap_RBillList", "vw_arap_RBackBillList", "t_RP_RBill",
                                                "FReceiveTypeID", "t_RP_ROtherBill", "FBillUnReceiveAmountFor", 1001,
                                                1009},
                                           Side{"vw_arap_PBillList", "vw_arap_PBackBillList", "t_RP_PBill",
                                                "FPayTypeID", "t_RP_POtherBill", "FBillUnPayAmountFor", 1003, 1010}),
                         [](const auto& param) { return std::string(param.index == 0 ? "Receipt" : "Payment"); });

TEST(DemoBookTest, ADayOutsideThePeriodsMakesNothing) {
  testing::TempBook book;
  EXPECT_THROW(create_masters(*book.database, "2030-01-01"), DeskError);
  EXPECT_TRUE(book.database->query("SELECT * FROM t_Currency").empty());
}

TEST(DemoBookTest, PeriodsCoverEveryDayOfTheirYears) {
  DemoBook book;
  const Rows rows = book.database->query(
      "SELECT FEndDate FROM t_PeriodDate WHERE FPeriod = 2 AND FYear IN (2023, 2024) ORDER BY FYear");
  EXPECT_EQ(rows.text(0, "FEndDate"), "2023-02-28");
  EXPECT_EQ(rows.text(1, "FEndDate"), "2024-02-29");
}

TEST(DemoBookTest, TheClerkMayNotUncheck) {
  DemoBook book;
  const Rows rows = book.database->query("SELECT FRights FROM t_User_Right WHERE FObject = 1000201 ORDER BY FUserID");
  EXPECT_EQ(rows.integer(0, "FRights") & 4096, 4096);
  EXPECT_EQ(rows.integer(1, "FRights") & 4096, 0);
}

}  // namespace
}  // namespace desk
