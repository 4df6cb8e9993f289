#include <gtest/gtest.h>

#include <algorithm>

#include "desk/services/small_book.h"
#include "desk/sides.h"

namespace desk::testing {
namespace {

class SettlementPostingOfBothSides : public ::testing::TestWithParam<const SettlementTables*> {
 protected:
  const SettlementTables& tables() const { return *GetParam(); }
  PostingResult check(std::int32_t nBill) { return SettlementPosting(book.database(), tables()).check(nBill, "li"); }
  PostingResult uncheck(std::int32_t nBill) { return SettlementPosting(book.database(), tables()).uncheck(nBill); }
  PostingResult remove(std::int32_t nBill) { return SettlementPosting(book.database(), tables()).remove(nBill); }
  std::int32_t refund_type() const { return money_comes_in(tables()) ? 1009 : 1010; }

  SmallBook book;
};

INSTANTIATE_TEST_SUITE_P(Sides, SettlementPostingOfBothSides, ::testing::Values(&kReceiptTables, &kPaymentTables),
                         [](const auto& side) { return money_comes_in(*side.param) ? "Receipt" : "Payment"; });

TEST_P(SettlementPostingOfBothSides, CheckAddsEachRowToItsSource) {
  book.add_invoice(tables(), 1, "X1", 100'00);
  book.add_invoice(tables(), 2, "X2", 50'00);
  book.add_bill(tables(), 7, 110'00, 1001);
  book.add_row(tables(), 7, 1, 1, 60'00);
  book.add_row(tables(), 7, 2, 2, 50'00);
  EXPECT_TRUE(check(7).bDone);
  EXPECT_EQ(book.received(tables(), 1), "60.00");
  EXPECT_EQ(book.received(tables(), 2), "50.00");
  EXPECT_EQ(book.status(tables(), 7), "1");
}

TEST_P(SettlementPostingOfBothSides, CheckSettlesAnotherBillUnderItsCheckedAmount) {
  book.database().exec(side_sql(tables(),
                                "INSERT INTO {other} (FBillID, FBillNo, FDate, FBillTypeID, {partner},"
                                " FAmountFor, FAmount, FStatus) VALUES (3, 'QT3', '2026-11-02', 1, 11,"
                                " 400000, 400000, 1)"));
  book.add_bill(tables(), 7, 30'00, 1001);
  book.add_row_of_class(tables(), 7, 1, money_comes_in(tables()) ? 1000205 : 1000206, 3, 1, 30'00);
  EXPECT_TRUE(check(7).bDone);
  EXPECT_EQ(Money::from_stored(
                book.database().value(side_sql(tables(), "SELECT FCheckAmountFor FROM {other} WHERE FBillID = 3")))
                .text(),
            "30.00");
}

// A book gathers the rows of years; only those of this bill are looked at.
TEST_P(SettlementPostingOfBothSides, CheckFindsItsRowsByTheirBill) {
  if (book.database().kind() != EngineKind::File) GTEST_SKIP() << "the plan is told in another way";
  book.add_invoice(tables(), 1, "X1", 100'00);
  book.add_simple_bill(tables(), 7, 1, 60'00);
  std::vector<std::string> statements;
  book.database().set_statement_hook([&](std::string_view sSql) { statements.emplace_back(sSql); });
  EXPECT_TRUE(check(7).bDone);
  book.database().set_statement_hook({});
  const std::string sIndex = "ix_" + std::string(tables().sEntry) + "_Source";
  int nSearches = 0;
  for (const std::string& sSql : statements) {
    if (sSql.find(tables().sEntry) == std::string::npos) continue;
    const Binds binds(static_cast<std::size_t>(std::ranges::count(sSql, '?')), Bind(7));
    const Rows plan = book.database().query("EXPLAIN QUERY PLAN " + sSql, binds);
    for (std::size_t i = 0; i < plan.size(); ++i) {
      const std::string sStep = plan.text(i, "detail");
      EXPECT_EQ(sStep.find(sIndex), std::string::npos) << sSql;
      nSearches += sStep.starts_with("SEARCH e") && sStep.ends_with("(FBillID=?)") ? 1 : 0;
    }
  }
  EXPECT_EQ(nSearches, 10) << "two for each kind of source and one for refunds, to refuse and to post";
}

TEST_P(SettlementPostingOfBothSides, UncheckTakesBackExactly) {
  book.add_invoice(tables(), 1, "X1", 100'00);
  book.add_simple_bill(tables(), 7, 1, 33'33);
  book.add_simple_bill(tables(), 8, 1, 33'34);
  ASSERT_TRUE(check(7).bDone);
  const std::string sBefore = book.books(tables());
  ASSERT_TRUE(check(8).bDone);
  ASSERT_NE(book.books(tables()), sBefore);
  EXPECT_TRUE(uncheck(8).bDone);
  EXPECT_EQ(book.books(tables()), sBefore);
}

TEST_P(SettlementPostingOfBothSides, TheSecondSeatCantSettleTheSameMoneyAgain) {
  book.add_invoice(tables(), 1, "X1", 100'00);
  book.add_simple_bill(tables(), 7, 1, 88'00);
  book.add_simple_bill(tables(), 8, 1, 15'00);
  const auto other_seat = Database::open(book.path());
  ASSERT_TRUE(SettlementPosting(*other_seat, tables()).check(7, "wang").bDone);
  const std::string sBefore = book.books(tables());
  const PostingResult result = check(8);
  EXPECT_FALSE(result.bDone);
  EXPECT_EQ(result.sRefusal, "源单[X1]未核销余额只剩 12.00,不能核销 15.00,审核失败。");
  EXPECT_EQ(book.books(tables()), sBefore);
}

TEST_P(SettlementPostingOfBothSides, AHolderWhoseLockWasLostCantWrite) {
  book.add_invoice(tables(), 1, "X1", 100'00);
  book.add_simple_bill(tables(), 7, 1, 10'00);
  SettlementPosting lost(book.database(), tables(), [](std::int32_t nBill) { return nBill == 7; });
  const std::string sBefore = book.books(tables());
  EXPECT_EQ(lost.check(7, "li").sRefusal, "单据[SK7]的锁定已失效,请重新操作,审核失败。");
  EXPECT_EQ(lost.remove(7).sRefusal, "单据[SK7]的锁定已失效,请重新操作,删除失败。");
  EXPECT_EQ(book.books(tables()), sBefore);
  ASSERT_TRUE(check(7).bDone);
  EXPECT_EQ(lost.uncheck(7).sRefusal, "单据[SK7]的锁定已失效,请重新操作,反审核失败。");
}

TEST_P(SettlementPostingOfBothSides, OneBadRowRefusesTheWholeBill) {
  book.add_invoice(tables(), 1, "X1", 100'00);
  book.add_invoice(tables(), 2, "X2", 10'00);
  book.add_bill(tables(), 7, 110'01, 1001);
  book.add_row(tables(), 7, 1, 1, 100'00);
  book.add_row(tables(), 7, 2, 2, 10'01);
  EXPECT_EQ(check(7).sRefusal, "源单[X2]未核销余额只剩 10.00,不能核销 10.01,审核失败。");
  EXPECT_EQ(book.received(tables(), 1), "0.00");
}

TEST_P(SettlementPostingOfBothSides, TwoRowsOfOneSourceCountTogether) {
  book.add_invoice(tables(), 1, "X1", 10'00);
  book.add_bill(tables(), 7, 12'00, 1001);
  book.add_row(tables(), 7, 1, 1, 6'00);
  book.add_row(tables(), 7, 2, 1, 6'00);
  EXPECT_EQ(check(7).sRefusal, "源单[X1]未核销余额只剩 10.00,不能核销 12.00,审核失败。");
}

TEST_P(SettlementPostingOfBothSides, ARedSourceIsSettledDownwards) {
  book.add_invoice(tables(), 1, "X1", -40'00);
  book.add_simple_bill(tables(), 7, 1, -40'00);
  book.add_simple_bill(tables(), 8, 1, 5'00);
  EXPECT_EQ(check(8).sRefusal, "源单[X1]未核销余额只剩 -40.00,不能核销 5.00,审核失败。");
  EXPECT_TRUE(check(7).bDone);
  EXPECT_EQ(book.received(tables(), 1), "-40.00");
}

TEST_P(SettlementPostingOfBothSides, ASourceWithoutANumberGoesByItsOpeningName) {
  book.add_invoice(tables(), 1, "", 10'00);
  book.add_simple_bill(tables(), 7, 1, 11'00);
  EXPECT_EQ(check(7).sRefusal,
            "源单[" + std::string(tables().sOpeningName) + "]未核销余额只剩 10.00,不能核销 11.00,审核失败。");
}

TEST_P(SettlementPostingOfBothSides, ADeletedSourceIsNamed) {
  book.add_simple_bill(tables(), 7, 99, 11'00);
  book.database().exec(side_sql(tables(), "UPDATE {entry} SET {number} = 'X99'"));
  EXPECT_EQ(check(7).sRefusal, "源单[X99]已被删除,审核失败。");
}

TEST_P(SettlementPostingOfBothSides, TheWrongStatusIsRefused) {
  book.add_invoice(tables(), 1, "X1", 100'00);
  book.add_simple_bill(tables(), 7, 1, 10'00);
  EXPECT_EQ(uncheck(7).sRefusal, std::string(tables().sBillName) + "[SK7]没有审核,反审核失败。");
  ASSERT_TRUE(check(7).bDone);
  EXPECT_EQ(check(7).sRefusal, std::string(tables().sBillName) + "[SK7]已经审核,审核失败。");
  EXPECT_EQ(remove(7).sRefusal, std::string(tables().sBillName) + "[SK7]已经审核,删除失败。");
  EXPECT_EQ(check(70).sRefusal, std::string(tables().sBillName) + "已被删除,审核失败。");
  EXPECT_EQ(book.received(tables(), 1), "10.00");
}

TEST_P(SettlementPostingOfBothSides, ABillWithAVoucherStaysChecked) {
  book.add_invoice(tables(), 1, "X1", 100'00);
  book.add_simple_bill(tables(), 7, 1, 10'00);
  ASSERT_TRUE(check(7).bDone);
  book.database().exec(side_sql(tables(), "UPDATE {bill} SET FVoucherID = 5"));
  EXPECT_EQ(uncheck(7).sRefusal, "单据[SK7]已经生成凭证,反审核失败。");
}

TEST_P(SettlementPostingOfBothSides, RemoveTakesTheRowsToo) {
  book.add_invoice(tables(), 1, "X1", 100'00);
  book.add_simple_bill(tables(), 7, 1, 10'00);
  EXPECT_TRUE(remove(7).bDone);
  EXPECT_EQ(book.status(tables(), 7), "gone");
  EXPECT_TRUE(book.database().query(side_sql(tables(), "SELECT FID FROM {entry}")).empty());
}

TEST_P(SettlementPostingOfBothSides, ARefundGivesBackOfTheEarlierRowAndOfItsSource) {
  book.add_invoice(tables(), 1, "X1", 100'00);
  book.add_simple_bill(tables(), 7, 1, 80'00);
  ASSERT_TRUE(check(7).bDone);
  const std::string sBefore = book.books(tables());
  book.add_bill(tables(), 8, -30'00, refund_type());
  book.add_row_of_class(tables(), 8, 1, tables().nClass, 7, 1, -30'00);
  ASSERT_TRUE(check(8).bDone);
  EXPECT_EQ(book.received(tables(), 1), "50.00");
  EXPECT_EQ(
      Money::from_stored(book.database().value(side_sql(tables(), "SELECT FBackAmountFor FROM {entry} WHERE FID = 1")))
          .text(),
      "30.00");
  EXPECT_EQ(uncheck(7).sRefusal, "单据[SK7]第1行已经退款,反审核失败。");
  ASSERT_TRUE(uncheck(8).bDone);
  ASSERT_TRUE(remove(8).bDone);
  EXPECT_EQ(book.books(tables()), sBefore);
}

TEST_P(SettlementPostingOfBothSides, NoMoreIsRefundedThanWasSettled) {
  book.add_invoice(tables(), 1, "X1", 100'00);
  book.add_simple_bill(tables(), 7, 1, 20'00);
  book.add_simple_bill(tables(), 6, 1, 50'00);
  ASSERT_TRUE(check(7).bDone);
  ASSERT_TRUE(check(6).bDone);
  book.add_bill(tables(), 8, -30'00, refund_type());
  book.add_row_of_class(tables(), 8, 1, tables().nClass, 7, 1, -30'00);
  EXPECT_EQ(check(8).sRefusal, "源单[SK7]未核销余额只剩 20.00,不能核销 30.00,审核失败。");
}

TEST_P(SettlementPostingOfBothSides, ARefundStaysWhenItsMoneyWasSettledAgain) {
  book.add_invoice(tables(), 1, "X1", 100'00);
  book.add_simple_bill(tables(), 7, 1, 100'00);
  ASSERT_TRUE(check(7).bDone);
  book.add_bill(tables(), 8, -30'00, refund_type());
  book.add_row_of_class(tables(), 8, 1, tables().nClass, 7, 1, -30'00);
  ASSERT_TRUE(check(8).bDone);
  book.add_simple_bill(tables(), 9, 1, 25'00);
  ASSERT_TRUE(check(9).bDone);
  const std::string sBefore = book.books(tables());
  EXPECT_FALSE(uncheck(8).bDone);
  EXPECT_EQ(book.books(tables()), sBefore);
}

TEST_P(SettlementPostingOfBothSides, AnAdvanceCantBeTakenBackBeyondWhatIsLeft) {
  book.add_bill(tables(), 7, 100'00, tables().nAdvanceType);
  book.add_bill(tables(), 8, -60'00, tables().nAdvanceType);
  book.add_bill(tables(), 9, -60'00, tables().nAdvanceType);
  ASSERT_TRUE(check(7).bDone);
  ASSERT_TRUE(check(8).bDone);
  EXPECT_EQ(
      SettlementPosting(book.database(), tables()).unused_advance(money_comes_in(tables()) ? 11 : 21, 1, 0).text(),
      "40.00");
  EXPECT_FALSE(check(9).bDone);
  EXPECT_FALSE(uncheck(7).bDone);
  EXPECT_EQ(book.status(tables(), 7), "1");
}

TEST_P(SettlementPostingOfBothSides, ManyCentsAddUpExactly) {
  book.add_invoice(tables(), 1, "X1", 1'000'00);
  book.add_bill(tables(), 7, 1'000'00, 1001);
  for (std::int32_t i = 1; i <= 1000; ++i) book.add_row(tables(), 7, i, 1, i == 1000 ? 1'000'00 - 999 * 10 : 10);
  ASSERT_TRUE(check(7).bDone);
  EXPECT_EQ(book.received(tables(), 1), "1000.00");
  EXPECT_TRUE(book.database().query(side_sql(tables(), "SELECT FBillID FROM {openview}")).empty());
}

}  // namespace
}  // namespace desk::testing
