#include <gtest/gtest.h>

#include "desk/services/small_book.h"
#include "desk/sides.h"
#include "services/other_posting.h"
#include "services/related_bills.h"

namespace desk::testing {
namespace {

class OtherPostingOfBothSides : public ::testing::TestWithParam<const OtherTables*> {
 protected:
  const OtherTables& tables() const { return *GetParam(); }
  const SettlementTables& side() const { return tables().side; }
  OtherPosting posting() { return OtherPosting(book.database(), tables()); }
  SettlementPosting settlements() { return SettlementPosting(book.database(), side()); }

  void add_other(std::int32_t nID, std::int32_t nType, std::int64_t nCents, std::int64_t nBaseCents) {
    book.database().exec(
        side_sql(side(),
                 "INSERT INTO {other} (FBillID, FBillNo, FDate, FBillTypeID, {partner}, FAcctID, FAmountFor,"
                 " FAmount) VALUES (?, ?, '2026-11-02', ?, ?, 102, ?, ?)"),
        {Bind(nID), Bind("QT" + std::to_string(nID)), Bind(nType), Bind(std::int32_t{money_comes_in(side()) ? 11 : 21}),
         Bind(SmallBook::cents(nCents)), Bind(SmallBook::cents(nBaseCents))});
  }
  void add_credit(std::int32_t nID, std::int64_t nCents) { add_other(nID, tables().nCreditType, nCents, nCents); }
  void settle(std::int32_t nSettlement, std::int32_t nOther, std::int64_t nCents) {
    book.add_bill(side(), nSettlement, nCents, money_comes_in(side()) ? 1001 : 1003);
    book.add_row_of_class(side(), nSettlement, 1, tables().nClass, nOther, 1, nCents);
  }
  std::string settled(std::int32_t nID, const std::string& sColumn = "FCheckAmountFor") {
    return Money::from_stored(
               book.database().value(side_sql(side(), "SELECT " + sColumn + " FROM {other} WHERE FBillID = ?"), {nID}))
        .text();
  }
  std::string bill_name() const { return std::string(tables().sBillName); }

  SmallBook book;
};

INSTANTIATE_TEST_SUITE_P(Sides, OtherPostingOfBothSides,
                         ::testing::Values(&kOtherReceivableTables, &kOtherPayableTables),
                         [](const auto& side) { return money_comes_in(side.param->side) ? "Receivable" : "Payable"; });

TEST_P(OtherPostingOfBothSides, ACheckedCreditBillIsOpenInFull) {
  add_credit(3, 40'00);
  EXPECT_TRUE(posting().check(3, "li").bDone);
  const Rows open = book.database().query(side_sql(side(), "SELECT FBillUn{got}AmountFor AS FLeft FROM {openview}"));
  ASSERT_EQ(open.size(), 1u);
  EXPECT_EQ(open.money(0, "FLeft").text(), "40.00");
}

TEST_P(OtherPostingOfBothSides, ACheckedImmediateBillIsSettledInBothCurrencies) {
  add_other(3, tables().side.nImmediateType, 40'00, 284'01);
  EXPECT_TRUE(posting().check(3, "li").bDone);
  EXPECT_EQ(settled(3), "40.00");
  EXPECT_EQ(settled(3, "FCheckAmount"), "284.01");
  EXPECT_TRUE(book.database().query(side_sql(side(), "SELECT FBillID FROM {openview}")).empty());
  EXPECT_TRUE(posting().uncheck(3).bDone);
}

TEST_P(OtherPostingOfBothSides, NothingIsSettledOfAnImmediateBill) {
  add_other(3, tables().side.nImmediateType, 40'00, 40'00);
  ASSERT_TRUE(posting().check(3, "li").bDone);
  settle(7, 3, -10'00);
  EXPECT_EQ(settlements().check(7, "li").sRefusal, "源单[QT3]未核销余额只剩 0.00,不能核销 -10.00,审核失败。");
}

TEST_P(OtherPostingOfBothSides, ASettledBillStaysCheckedUntilItsSettlementIsTakenBack) {
  add_credit(3, 40'00);
  ASSERT_TRUE(posting().check(3, "li").bDone);
  settle(7, 3, 15'00);
  ASSERT_TRUE(settlements().check(7, "li").bDone);
  EXPECT_EQ(settled(3), "15.00");
  EXPECT_EQ(posting().uncheck(3).sRefusal, "单据[QT3]已经被核销,反审核失败。");
  ASSERT_TRUE(settlements().uncheck(7).bDone);
  EXPECT_EQ(settled(3), "0.00");
  EXPECT_TRUE(posting().uncheck(3).bDone);
}

TEST_P(OtherPostingOfBothSides, WriteOffsThatCancelEachOtherOutKeepTheBillCheckedToo) {
  add_credit(3, 40'00);
  ASSERT_TRUE(posting().check(3, "li").bDone);
  settle(7, 3, 15'00);
  settle(8, 3, -15'00);
  ASSERT_TRUE(settlements().check(7, "li").bDone);
  ASSERT_TRUE(settlements().check(8, "li").bDone);
  EXPECT_EQ(settled(3), "0.00");
  EXPECT_EQ(posting().uncheck(3).sRefusal, "单据[QT3]已经被核销,反审核失败。");
}

TEST_P(OtherPostingOfBothSides, AnUncheckedBillCantBeSettled) {
  add_credit(3, 40'00);
  settle(7, 3, 15'00);
  EXPECT_EQ(settlements().check(7, "li").sRefusal, "源单[QT3]没有审核,审核失败。");
}

TEST_P(OtherPostingOfBothSides, TheWrongStatusIsRefused) {
  add_credit(3, 40'00);
  EXPECT_EQ(posting().uncheck(3).sRefusal, bill_name() + "[QT3]没有审核,反审核失败。");
  ASSERT_TRUE(posting().check(3, "li").bDone);
  EXPECT_EQ(posting().check(3, "li").sRefusal, bill_name() + "[QT3]已经审核,审核失败。");
  EXPECT_EQ(posting().remove(3).sRefusal, bill_name() + "[QT3]已经审核,删除失败。");
  EXPECT_EQ(posting().check(30, "li").sRefusal, bill_name() + "已被删除,审核失败。");
}

TEST_P(OtherPostingOfBothSides, ABillWithAVoucherStaysChecked) {
  add_credit(3, 40'00);
  ASSERT_TRUE(posting().check(3, "li").bDone);
  book.database().exec(side_sql(side(), "UPDATE {other} SET FVoucherID = 5"));
  EXPECT_EQ(posting().uncheck(3).sRefusal, "单据[QT3]已经生成凭证,反审核失败。");
}

TEST_P(OtherPostingOfBothSides, ABillThatASettlementDrawsStaysInTheBook) {
  add_credit(3, 40'00);
  settle(7, 3, 15'00);
  EXPECT_EQ(posting().remove(3).sRefusal, "单据[QT3]已被" + std::string(side().sBillName) + "[SK7]选用,删除失败。");
  ASSERT_TRUE(settlements().remove(7).bDone);
  EXPECT_TRUE(posting().remove(3).bDone);
  EXPECT_TRUE(book.database().query(side_sql(side(), "SELECT FBillID FROM {other}")).empty());
}

TEST_P(OtherPostingOfBothSides, TheSettlementsOfABillAreItsRelatedBills) {
  add_credit(3, 40'00);
  EXPECT_EQ(related_bills(book.database(), tables().nClass, 3), "");
  ASSERT_TRUE(posting().check(3, "li").bDone);
  settle(7, 3, 15'00);
  settle(8, 3, 5'00);
  ASSERT_TRUE(settlements().check(7, "li").bDone);
  const std::string sName(side().sBillName);
  EXPECT_EQ(related_bills(book.database(), tables().nClass, 3),
            sName + " SK7  2026-11-05  15.00\n" + sName + " SK8  2026-11-05  5.00  未审核");
  EXPECT_EQ(related_bills(book.database(), side().nClass, 7), "源单     15.00");
  EXPECT_EQ(related_bills(book.database(), 1, 3), "");
}

}  // namespace
}  // namespace desk::testing
