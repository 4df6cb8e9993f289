#include "plugin/settlement/list_fixture.h"

namespace arap::testing {
namespace {

/// The tests of a batch before its first operation.
class ListStatus : public SettlementList {
 protected:
  bool source_asked() const { return !session.commands.texts.empty(); }
  void source_found(const std::string& sTable) {
    session.commands.answer("select 1 from " + sTable, recordset({"1"}, {{std::int32_t{1}}}));
  }
};
INSTANTIATE_BOTH_SIDES(ListStatus);

TEST_P(ListStatus, ABillThatIsGoneStopsTheBatch) {
  select_ready({5});
  select({6});
  EXPECT_TRUE(list->click("Check"));
  EXPECT_EQ(boxes(), notice("数据可能已经被删除,请刷新!"));
  EXPECT_TRUE(operations().empty());
}

TEST_P(ListStatus, OnlyCheckedBillsCanBeUnchecked) {
  select_ready({5});
  EXPECT_TRUE(list->click("UnCheck"));
  EXPECT_EQ(boxes(), notice("只能反审核已经审核的单据!"));
}

TEST_P(ListStatus, ASettledBillCannotBeUnchecked) {
  have(5, {.nStatus = 1, .vCheckAmount = -0.01});
  select({5});
  EXPECT_TRUE(list->click("UnCheck"));
  EXPECT_EQ(boxes(), notice("该单据已经被核销,不能反审核!"));
}

TEST_P(ListStatus, TheStatusIsTestedBeforeTheSettledAmount) {
  have(5, {.nStatus = 0, .vCheckAmount = 1.0});
  select({5});
  list->click("UnCheck");
  EXPECT_EQ(boxes(), notice("只能反审核已经审核的单据!"));
}

TEST_P(ListStatus, ANullStatusIsUncheckedAndANullSettledAmountIsNone) {
  list->details[5] = recordset({"FStatus", "FDate", "FCheckAmountFor"}, {{Null{}, "2024-01-15", Null{}}});
  select({5});
  EXPECT_FALSE(list->click("Check"));
  list->details[5] = recordset({"FStatus", "FDate", "FCheckAmountFor"}, {{std::int32_t{1}, "2024-01-15", Null{}}});
  EXPECT_FALSE(list->click("UnCheck"));
  EXPECT_EQ(operations(), (Lines{"5:1", "5:2"}));
}

TEST_P(ListStatus, TheFirstRefusalEndsTheTestAndTouchesNoBill) {
  select_ready({5});
  select_ready({6}, 1);
  select({7});
  list->click("Check");
  EXPECT_EQ(boxes(), notice("不能审核已经审核的单据!"));
  EXPECT_TRUE(operations().empty());
}

TEST_P(ListStatus, ASubtotalLineRefusesWithoutAWord) {
  select_ready({5, 0});
  EXPECT_TRUE(list->click("Check"));
  EXPECT_EQ(box_count(), 0);
  EXPECT_TRUE(operations().empty());
}

TEST_P(ListStatus, ABillWhoseSourceInvoiceIsGoneIsNotDeleted) {
  for (const std::int32_t nClass : {pick(1000000, 1000003), pick(1000002, 1000004)}) {
    session.platform.messages.clear();
    list->selection->items.clear();
    have(5, {.aSources = {{nClass, std::int32_t{41}}}});
    select({5});
    EXPECT_TRUE(list->click("mnuEditDelete"));
    EXPECT_EQ(boxes(), warning(pick("收款单源单不存在，不允许删除。", "付款单源单不存在，不允许删除。")));
    EXPECT_EQ(session.commands.texts.back(),
              pick("select 1 from icsale where finterid= 41", "select 1 from ICPurchase where finterid= 41"));
  }
  EXPECT_TRUE(operations().empty());
}

TEST_P(ListStatus, ABillWhoseOtherBillIsGoneIsNotDeleted) {
  have(5, {.aSources = {{pick(1000205, 1000206), std::int32_t{41}}}});
  select({5});
  EXPECT_TRUE(list->click("mnuEditDelete"));
  EXPECT_EQ(session.commands.texts, Lines{pick("select 1 from t_rp_rotherbill where fbillid= 41",
                                               "select 1 from t_rp_potherbill where fbillid= 41")});
  EXPECT_TRUE(operations().empty());
}

TEST_P(ListStatus, ASourceOfAnotherClassIsNotLookedUp) {
  have(5, {.aSources = {{pick(1000003, 1000000), std::int32_t{41}}, {Null{}, Null{}}, {std::int32_t{1000202}, 1}}});
  select({5});
  list->click("mnuEditDelete");
  EXPECT_FALSE(source_asked());
  EXPECT_EQ(operations(), Lines{"5:0"});
}

TEST_P(ListStatus, EverySourceOfABillIsLookedUp) {
  const Variant vClass = pick(1000000, 1000003);
  source_found(pick("icsale where finterid= 41", "ICPurchase where finterid= 41"));
  have(5, {.aSources = {{vClass, 41}, {vClass, 42}, {vClass, 43}}});
  select({5});
  EXPECT_TRUE(list->click("mnuEditDelete"));
  EXPECT_EQ(session.commands.texts.size(), 2u);
  EXPECT_TRUE(operations().empty());
}

TEST_P(ListStatus, SourcesAreLookedUpForADeleteOnly) {
  have(5, {.aSources = {{pick(1000000, 1000003), 41}}});
  select({5});
  list->click("Check");
  have(5, {.nStatus = 1, .aSources = {{pick(1000000, 1000003), 41}}});
  list->click("UnCheck");
  EXPECT_FALSE(source_asked());
  EXPECT_EQ(operations(), (Lines{"5:1", "5:2"}));
}

/// For every set of faults of a bill that is to be deleted or unchecked the first in order answers.
TEST_P(ListStatus, OfSeveralFaultsTheFirstInOrderAnswers) {
  const std::string sGone = pick("收款单源单不存在，不允许删除。", "付款单源单不存在，不允许删除。");
  for (int nFaults = 1; nFaults < 4; ++nFaults) {
    const bool bStatus = (nFaults & 1) != 0;
    const bool bSecond = (nFaults & 2) != 0;
    list->selection->items.clear();
    select({5});
    have(5, {.nStatus = bStatus ? 1 : 0, .aSources = {{bSecond ? pick(1000000, 1000003) : 999, 41}}});
    list->click("mnuEditDelete");
    EXPECT_EQ(session.platform.last_message(), bStatus ? "不能删除已经审核的单据!" : sGone) << nFaults;
    have(5, {.nStatus = bStatus ? 0 : 1, .vCheckAmount = bSecond ? 1.0 : 0.0});
    list->click("UnCheck");
    EXPECT_EQ(session.platform.last_message(), bStatus ? "只能反审核已经审核的单据!" : "该单据已经被核销,不能反审核!");
  }
  EXPECT_TRUE(operations().empty());
}

}  // namespace
}  // namespace arap::testing
