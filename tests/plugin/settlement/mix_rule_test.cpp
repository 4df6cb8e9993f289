#include "settlement/mix_rule.h"

#include "plugin/settlement/settlement_fixture.h"

namespace arap::testing {
namespace {

class MixRule : public BothSides {
 protected:
  void add(std::int32_t nClass, double dAmountFor) {
    add_source_row(*bill, GetParam(), {.dOpenFor = dAmountFor, .nClassID = nClass});
    bill->set_value("FClassID_SRC", bill->row_count(), nClass);
  }
  MixResult check() const {
    return CheckSourceBills(BillEvent(Ref<Object>(bill)), GetParam() == Side::Receive ? kReceiveSide : kPaySide);
  }
  const std::int32_t nOwn = side.nBillClass;
  const std::int32_t nOther = 1000000;
};
INSTANTIATE_BOTH_SIDES(MixRule);

TEST_P(MixRule, NoBillsAreOfNoClass) {
  EXPECT_EQ(ClassifySourceBills({}, nOwn), 0);
  EXPECT_EQ(check().nResult, 0);
}

TEST_P(MixRule, BillsAreClassifiedByWhetherTheyAreOfTheSidesOwnClass) {
  const std::vector<SourceBill> aOwn{{nOwn, 1}, {nOwn, 2}};
  const std::vector<SourceBill> aBoth{{nOwn, 1}, {nOther, 2}};
  const std::vector<SourceBill> aOther{{nOther, 1}};
  EXPECT_EQ(ClassifySourceBills(aOwn, nOwn), 1);
  EXPECT_EQ(ClassifySourceBills(aBoth, nOwn), 2);
  EXPECT_EQ(ClassifySourceBills(aOther, nOwn), 3);
}

TEST_P(MixRule, AnAmountConflictsWithTheOtherSignAndZeroWithNothing) {
  const std::vector<SourceBill> aBills{{nOwn, 0}, {nOwn, 5}};
  EXPECT_TRUE(HasOppositeAmount(-1, aBills));
  EXPECT_FALSE(HasOppositeAmount(1, aBills));
  EXPECT_FALSE(HasOppositeAmount(0, aBills));
  EXPECT_TRUE(HasOppositeAmount(1, std::vector<SourceBill>{{nOwn, 5}, {nOwn, -5}}));
}

TEST_P(MixRule, PositiveAndNegativeBillsMayNotStandTogether) {
  add(nOwn, 5);
  add(nOwn, -5);
  const MixResult result = check();
  EXPECT_EQ(result.sMessage, pick("正数的应收款单不能与负数的应收款单同时出现在收款单界面!",
                                  "正数的应付款单不能与负数的应付款单同时出现在付款单界面!"));
  EXPECT_EQ(result.nResult, 1);
}

TEST_P(MixRule, OwnBillsMayNotStandWithOtherKinds) {
  add(nOther, 5);
  add(nOwn, 5);
  const MixResult result = check();
  EXPECT_EQ(result.sMessage, pick("应收款单不能与其他类型的单据同时出现在收款单界面!",
                                  "应付款单不能与其他类型的单据同时出现在付款单界面!"));
  EXPECT_EQ(result.nResult, 2);
}

TEST_P(MixRule, OtherKindsMayHaveBothSigns) {
  add(nOther, 5);
  add(nOther, -5);
  EXPECT_EQ(check().sMessage, "");
  EXPECT_EQ(check().nResult, 3);
}

TEST_P(MixRule, RowsWithoutAClassDontCount) {
  add(0, -5);
  add(nOwn, 5);
  add(0, -5);
  EXPECT_EQ(check().sMessage, "");
  EXPECT_EQ(check().nResult, 1);
}

TEST_P(MixRule, TheFirstRowThatBreaksTheRuleEndsTheTest) {
  add(nOwn, 5);
  add(nOwn, -5);
  add(nOther, 5);
  EXPECT_EQ(check().nResult, 1);
}

}  // namespace
}  // namespace arap::testing
