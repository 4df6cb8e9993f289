#include "settlement/partial_refund.h"

#include "plugin/settlement/settlement_fixture.h"
#include "settlement/settlement_classes.h"

namespace arap::testing {
namespace {

/// A payment bill with the id 31 whose stored rows are scripted.
class PartialRefund : public BothSides {
 protected:
  PartialRefund() {
    bill->head("FBillId", 31);
    bill->define("FIndex2", 2, std::int32_t{0});
  }

  clsPayBill& pay() const { return dynamic_cast<clsPayBill&>(*plugin); }
  /// A row that refunds the payment nPayment.
  int refund(std::int32_t nPayment, double dAmount, std::int32_t nIndex = 1, const char* sNumber = "FK012") {
    const int nRow = add_source_row(
        *bill, Side::Pay,
        {.sNumber = sNumber, .nInterID = nPayment, .dOpenFor = 500, .dSettleFor = dAmount, .nClassID = 1000202});
    bill->record("FIndex2", nRow).set("FFLD", nIndex);
    return nRow;
  }
  void stored(std::int32_t nIndex, Variant vAmount) {
    session.bulk_data.answer(
        "Select FBillSettleAmountFor from t_rp_pbillentry where fbillid=31 and Findex=" + std::to_string(nIndex),
        recordset({"FBillSettleAmountFor"}, {{std::move(vAmount)}}));
  }
  /// The sources of a payment, as (class, id).
  void sources(std::int32_t nPayment, std::vector<std::pair<std::int32_t, std::int32_t>> aSources) {
    std::vector<std::vector<Variant>> aRows;
    for (const auto& [nClass, nID] : aSources) aRows.push_back({nClass, nID});
    session.bulk_data.answer("Select * from t_rp_pbillentry where fbillid=" + std::to_string(nPayment),
                             recordset({"FClassID_SRC", "FInterID"}, aRows));
  }
  Variant collected(std::int32_t nItem, Key sKey) const { return Dictionary(pay().Refunds()->Item(nItem)).Value(sKey); }
};
INSTANTIATE_TEST_SUITE_P(, PartialRefund, ::testing::Values(Side::Pay), SideName);

TEST_P(PartialRefund, ABillWithoutAPaymentAsSourceCollectsNothingAndAsksNothing) {
  add_source_row(*bill, Side::Pay);
  EXPECT_TRUE(pay().CollectPartialRefunds().is_empty());
  EXPECT_EQ(pay().Refunds()->Count(), 0);
  EXPECT_EQ(pay().RefundID(), "");
  EXPECT_TRUE(session.bulk_data.texts.empty());
}

TEST_P(PartialRefund, ARowThatHoldsItsStoredAmountIsNoRefundInPart) {
  refund(77, 100);
  stored(1, 100.0);
  pay().CollectPartialRefunds();
  EXPECT_EQ(pay().Refunds()->Count(), 0);
  EXPECT_EQ(session.bulk_data.texts.size(), 1u);
}

TEST_P(PartialRefund, AChangedRowOfAPaymentWithOneSourceIsCollectedWithoutAQuestion) {
  refund(77, 60, 2);
  stored(2, 100.0);
  sources(77, {{1000003, 41}});
  pay().CollectPartialRefunds();
  ASSERT_EQ(pay().Refunds()->Count(), 1);
  EXPECT_EQ(plain_number(collected(1, "FBackAmountFor"_key)), 60);
  EXPECT_EQ(plain_number(collected(1, "FClassID_SRC"_key)), 1000003);
  EXPECT_EQ(plain_number(collected(1, "FInterId"_key)), 41);
  EXPECT_EQ(box_count(), 0);
  EXPECT_EQ(session.bulk_data.texts,
            (Lines{"Select FBillSettleAmountFor from t_rp_pbillentry where fbillid=31 and Findex=2",
                   "Select * from t_rp_pbillentry where fbillid=77"}));
}

TEST_P(PartialRefund, ARowThatIsNotStoredYetCountsAsChanged) {
  refund(77, 60);
  sources(77, {{1000003, 41}});
  pay().CollectPartialRefunds();
  EXPECT_EQ(pay().Refunds()->Count(), 1);
}

TEST_P(PartialRefund, AStoredNullIsZero) {
  refund(77, 0);
  stored(1, Null{});
  sources(77, {{1000003, 41}});
  pay().CollectPartialRefunds();
  EXPECT_EQ(pay().Refunds()->Count(), 0);
}

TEST_P(PartialRefund, APaymentWithNoSourceRowsAsksTheQuestion) {
  refund(77, 60);
  pay().CollectPartialRefunds();
  EXPECT_EQ(boxes(), (std::vector<Box>{{"您是否需要对第1行，单据编号为0的付款单进行部分退款？", 36, "青柚提示"}}));
}

TEST_P(PartialRefund, TheBillsNumberShowsOnlyItsLeadingDigits) {
  add_source_row(*bill, Side::Pay);
  refund(77, 60, 1, "2024-07");
  sources(77, {{1000003, 41}, {1000003, 42}});
  pay().CollectPartialRefunds();
  EXPECT_EQ(session.platform.last_message(), "您是否需要对第2行，单据编号为2024的付款单进行部分退款？");
}

TEST_P(PartialRefund, OneRowIsLeftOutForEachEmptyRowBeforeTheLast) {
  bill->add_row();
  refund(77, 60);
  sources(77, {{1000003, 41}});
  pay().CollectPartialRefunds();
  EXPECT_EQ(pay().Refunds()->Count(), 0) << "one row is used, and the first is looked at";
}

TEST_P(PartialRefund, AYesKeepsTheIdLessItsLastDigitAndTheRow) {
  const int nRow = refund(778, 60);
  pay().CollectPartialRefunds();
  EXPECT_EQ(pay().RefundID(), "77");
  EXPECT_EQ(bill->number("FBillSettleAmountFor", nRow), 60);
  EXPECT_EQ(pay().Refunds()->Count(), 0);
}

TEST_P(PartialRefund, TwoYesKeepOnlyTheSecondIdLessItsLastDigit) {
  refund(778, 60);
  refund(991, 60, 2);
  pay().CollectPartialRefunds();
  EXPECT_EQ(box_count(), 2);
  EXPECT_EQ(pay().RefundID(), "99");
}

TEST_P(PartialRefund, ANoPutsTheWholeOpenAmountBack) {
  const int nRow = refund(77, 60);
  session.platform.answer(7);
  pay().CollectPartialRefunds();
  EXPECT_EQ(bill->number("FBillSettleAmountFor", nRow), 500);
  EXPECT_EQ(pay().RefundID(), "");
}

TEST_P(PartialRefund, EachRunBeginsAnew) {
  refund(77, 60);
  sources(77, {{1000003, 41}});
  pay().CollectPartialRefunds();
  const Ref<Collection> before = pay().Refunds();
  pay().CollectPartialRefunds();
  EXPECT_NE(pay().Refunds(), before);
  EXPECT_EQ(pay().Refunds()->Count(), 1);
}

TEST_P(PartialRefund, AnErrorEndsItWithWhatItHasCollected) {
  refund(77, 60, 1);
  refund(88, 60, 2);
  sources(77, {{1000003, 41}});
  session.bulk_data.fail("Select * from t_rp_pbillentry where fbillid=88", -3, "no table");
  EXPECT_TRUE(pay().CollectPartialRefunds().is_empty());
  EXPECT_EQ(pay().Refunds()->Count(), 1);
  EXPECT_EQ(box_count(), 0);
}

TEST_P(PartialRefund, NoFailingHostCallLeavesIt) {
  const int nFaults = FailEachCall([this](const std::function<void()>& arm) {
    PartialRefund::bill->rows(1).items.clear();
    refund(77, 60, 1);
    refund(88, 60, 2);
    sources(77, {{1000003, 41}});
    arm();
    EXPECT_TRUE(pay().CollectPartialRefunds().is_empty());
  });
  EXPECT_GT(nFaults, 10);
}

TEST_P(PartialRefund, NothingIsCollectedByACommandOrASave) {
  refund(77, 60);
  bill->click("mnuFileSave");
  bill->save();
  EXPECT_FALSE(pay().Refunds());
}

class RefundOfAPayment : public PartialRefund {};
INSTANTIATE_TEST_SUITE_P(, RefundOfAPayment, ::testing::Values(Side::Pay), SideName);

TEST_P(RefundOfAPayment, NoCommandAndNoSaveAsksForItsStoredRows) {
  refund(77, 60);
  bill->click("mnuFileSave");
  bill->save();
  EXPECT_TRUE(session.bulk_data.texts.empty());
}

}  // namespace
}  // namespace arap::testing
