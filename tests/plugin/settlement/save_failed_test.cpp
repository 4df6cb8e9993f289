#include "frame/conversions.h"
#include "plugin/settlement/settlement_fixture.h"

namespace arap::testing {
namespace {

class SaveFailed : public SettlementTest {
 protected:
  void fail() { bill->fire(Event::SaveBillFailed, {dictionary(), 0, 0}); }
};
INSTANTIATE_BOTH_SIDES(SaveFailed);

TEST_P(SaveFailed, BothDiscountFieldsHoldTheFractionAfterwards) {
  bill->head("FDiscount", 0.95).head("FDiscountDsp", 95.0);
  fail();
  EXPECT_EQ(bill->number("FDiscount"), 0.95);
  EXPECT_EQ(bill->number("FDiscountDsp"), 0.95);
}

TEST_P(SaveFailed, ThePartnersActionRunsWithTheFieldMarked) {
  fail();
  EXPECT_TRUE(trace().has("DoAction(" + std::string(side.sPartner)));
  EXPECT_EQ(bill->modified(side.sPartner), 1);
}

TEST_P(SaveFailed, AFurtherSaveDividesOnceMore) {
  use_type(side.nAdvanceType);
  set_amounts(*bill, GetParam(), 10, 10);
  ASSERT_FALSE(bill->save());
  fail();
  ASSERT_FALSE(bill->save());
  EXPECT_EQ(bill->number("FDiscount"), 0.01);
  EXPECT_EQ(bill->number("FDiscountDsp"), 1);
}

TEST_P(SaveFailed, OnlyTheTextOfThePercentageActionRoundsTheDiscount) {
  bill->fire(Event::BeforeLoadBill, {0});
  bill->head("FDiscount", 33.33333333);
  const auto action = [this](const std::string& sText) {
    bill->fire(Event::AfterDoAction, {Ref<Object>(), Ref<Object>(), Ref<Object>(), "", "", sText});
  };
  action("FDiscount=(FAmountFor/FAmountFor)*100");
  action(std::string(side.sDiscountAction) + " ");
  action(LowerCase(side.sDiscountAction));
  EXPECT_EQ(bill->number("FDiscount"), 33.33333333);
  action(side.sDiscountAction);
  EXPECT_EQ(bill->number("FDiscount"), 33.333333);
}

}  // namespace
}  // namespace arap::testing
