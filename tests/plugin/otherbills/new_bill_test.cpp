#include "other_bill_fixture.h"

namespace arap::testing {
namespace {

class OtherNewBill : public OtherBillTest {
 protected:
  void open() { bill->fire(Event::AfterNewBill); }
};
INSTANTIATE_OTHER_SIDES(OtherNewBill);

TEST_P(OtherNewBill, TheTraceOfANewBillIsApproved) {
  open();
  expect_golden("after_new_bill");
}

TEST_P(OtherNewBill, OpensInBaseCurrencyWithItsRateLockedAndNoCreditText) {
  use_currency(3);
  answer_credit("额度 500");
  open();
  EXPECT_EQ(bill->number("FCurrencyId"), 1);
  EXPECT_EQ(bill->shown("FCurrencyId"), "人民币");
  EXPECT_TRUE(locked("FExchangeRate"));
  EXPECT_EQ(bill->panel(5), "");
  EXPECT_EQ(credit_asked(), "");
}

TEST_P(OtherNewBill, TheTypeAndThePartnerStayAsTheTemplateLeftThem) {
  use_credit();
  open();
  EXPECT_EQ(bill->number("FBillTypeId"), side.nCreditType);
  EXPECT_EQ(bill->number(side.sPartner), 7);
}

TEST_P(OtherNewBill, TheAmountsShowTheDecimalsOfTheBaseCurrencyInTheBodyByColumn) {
  session.add_currency(1, "日元", 1, "*", 3);
  open();
  for (const char* sKey : {"FAmountFor", "FAmount", "FCheckAmountFor", "FCheckAmount"}) {
    EXPECT_TRUE(trace().has("SetFieldDecimals(" + std::string(sKey) + ", -1, 3)")) << sKey;
    EXPECT_FALSE(trace().has("SetColumnDecimals(" + std::string(sKey))) << sKey;
  }
  for (const char* sKey : {"FBillAmountFor", "FBillAmount"}) {
    EXPECT_TRUE(trace().has("SetFieldDecimals(" + std::string(sKey) + ", -1, 3)")) << sKey;
    EXPECT_TRUE(trace().has("SetColumnDecimals(" + std::string(sKey) + ", 3)")) << sKey;
  }
}

TEST_P(OtherNewBill, AnAmountThatTheTemplateLacksGetsNoDecimals) {
  bill->bill_map->erase("FCheckAmount");
  open();
  EXPECT_FALSE(trace().has("Decimals(FCheckAmount,"));
  EXPECT_TRUE(trace().has("Decimals(FBillAmountFor,"));
}

TEST_P(OtherNewBill, TakesTheCommandsAwayThatANewBillHasNoUseFor) {
  open();
  EXPECT_EQ(visible("mnuFileNeedFilter"), false);
  EXPECT_FALSE(bill->bar->tool("mnuEdit", "mnuBatchFillField").enabled());
  EXPECT_FALSE(bill->bar->tool("mnuEdit", "mnuEditUnCheck").enabled());
  EXPECT_FALSE(bill->bar->tool("mnuFile", "mnuEditCopy").enabled());
}

TEST_P(OtherNewBill, AnImmediateBillTakesItsSettlementAndNoDueDate) {
  open();
  EXPECT_FALSE(locked("FSettleId"));
  EXPECT_FALSE(locked("FSettleIdNo"));
  EXPECT_TRUE(locked("FLimitDate"));
}

TEST_P(OtherNewBill, ACreditBillTakesADueDateAndNoSettlement) {
  use_credit();
  bill->head("FSettleId", 4).head("FSettleIdNo", "1001");
  open();
  EXPECT_TRUE(locked("FSettleId"));
  EXPECT_TRUE(locked("FSettleIdNo"));
  EXPECT_EQ(bill->text("FSettleId"), "");
  EXPECT_EQ(bill->text("FSettleIdNo"), "");
  EXPECT_FALSE(locked("FLimitDate"));
}

TEST_P(OtherNewBill, ABillWithoutATypeCountsAsACreditBill) {
  bill->head("FBillTypeId", "");
  open();
  EXPECT_TRUE(locked("FSettleId"));
  EXPECT_FALSE(locked("FLimitDate"));
}

TEST_P(OtherNewBill, NoFieldIsMarkedAsChanged) {
  use_credit();
  use_currency(2);
  open();
  for (const char* sKey : {"FCurrencyId", "FExchangeRate", "FSettleId", "FSettleIdNo"}) {
    EXPECT_EQ(bill->modified(sKey), 0) << sKey;
  }
}

TEST_P(OtherNewBill, ALockedRateIsFollowedByTheFormulas) {
  bill->head("FAmountFor", 50.0).head("FExchangeRate", 2.0);
  open();
  EXPECT_EQ(bill->number("FAmount"), 100);
}

}  // namespace
}  // namespace arap::testing
