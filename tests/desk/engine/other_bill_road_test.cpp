#include <gtest/gtest.h>

#include "desk/engine/other_bill_world.h"
#include "desk/sides.h"
#include "engine/list_window.h"
#include "services/vouchers.h"

namespace desk::testing {
namespace {

class OtherBillRoad : public OtherBillWorld {};
INSTANTIATE_TEST_SUITE_P(Sides, OtherBillRoad, ::testing::ValuesIn(kOtherSides), other_side_name);

TEST_P(OtherBillRoad, ANewBillIsAnImmediateOneInBaseCurrency) {
  window->new_bill();
  EXPECT_EQ(text("FBillTypeID"), std::to_string(tables().side.nImmediateType));
  EXPECT_EQ(text("FCurrencyID"), "1");
  EXPECT_TRUE(window->locked("FExchangeRate"));
  EXPECT_TRUE(window->locked("FLimitDate"));
  EXPECT_FALSE(window->locked("FSettleID"));
  EXPECT_EQ(window->status_panel(5), "");
}

TEST_P(OtherBillRoad, TheLookUpsOfferThisSidesTypesAlone) {
  window->new_bill();
  const bool bIn = money_comes_in(tables().side);
  EXPECT_EQ(window->choices("FBillTypeID").size(), 2u);
  EXPECT_EQ(window->choices("FInOutTypeID").size(), 3u);
  EXPECT_FALSE(window->type_field("FBillTypeID", -1, bIn ? "1008" : "1006"));
  ASSERT_TRUE(window->press("mnuEditAddRow"));
  EXPECT_FALSE(window->type_field("FInOutTypeID", 1, bIn ? "2.01" : "1.01"));
}

TEST_P(OtherBillRoad, ACreditBillIsDueByThePartnersTerms) {
  fill_credit(GetParam().sFirst, "10");
  EXPECT_EQ(text("FLimitDate"), "2026-12-10");
  ASSERT_TRUE(window->type_field(GetParam().sPartner, -1, GetParam().sSecond));
  EXPECT_EQ(text("FLimitDate"), "2026-11-25");
  ASSERT_TRUE(window->type_field("FDate", -1, "2026-11-16"));  // ten days later the pay day is past
  EXPECT_EQ(text("FLimitDate"), "2026-12-25");
  ASSERT_TRUE(window->type_field("FBillTypeID", -1, std::to_string(tables().side.nImmediateType)));
  EXPECT_EQ(text("FLimitDate"), "2026-11-16");
}

TEST_P(OtherBillRoad, TheHeadFollowsTheRowsInBothCurrencies) {
  fill_credit(GetParam().sFirst, "10.50");
  ASSERT_TRUE(window->type_field("FCurrencyID", -1, "USD"));
  EXPECT_EQ(text("FExchangeRate"), "7.1");
  EXPECT_EQ(arap::NumberOf(window->value("FBillAmount", 1)), 74.55);
  EXPECT_EQ(text("FAmountFor"), "10.5");
  EXPECT_EQ(text("FAmount"), "74.55");
  EXPECT_EQ(text("FCheckAmount"), "0");
  ASSERT_TRUE(window->type_field("FBillTypeID", -1, std::to_string(tables().side.nImmediateType)));
  EXPECT_EQ(text("FCheckAmountFor"), "10.5");
  EXPECT_EQ(text("FCheckAmount"), "74.55");
}

TEST_P(OtherBillRoad, TheKindOfAStoredBillCanChangeAndItsSettledAmountFollows) {
  fill_credit(GetParam().sSecond, "10");
  ASSERT_TRUE(window->save()) << last_message();
  ASSERT_TRUE(window->type_field("FBillTypeID", -1, std::to_string(tables().side.nImmediateType)));
  ASSERT_TRUE(window->save()) << last_message();
  EXPECT_EQ(text("FCheckAmountFor"), "10");
  ASSERT_TRUE(window->type_field("FBillTypeID", -1, std::to_string(tables().nCreditType)));
  ASSERT_TRUE(window->save()) << last_message();
  EXPECT_EQ(text("FCheckAmountFor"), "0");
}

TEST_P(OtherBillRoad, WithoutCreditControlEveryAmountIsSaved) {
  for (const char* sDegree : {"0", "1"}) {
    degree(sDegree);
    fill_credit(GetParam().sFirst, "900000");
    EXPECT_TRUE(window->save()) << sDegree;
    EXPECT_FALSE(told("超出信用额度"));
  }
}

TEST_P(OtherBillRoad, AWarningLimitAsksAndTheAnswerDecides) {
  degree("2");
  fill_credit(GetParam().sFirst, "900000");
  session->platform().queue_answer(kButtonNo);
  EXPECT_FALSE(window->save());
  EXPECT_TRUE(told("已超出信用额度，是否继续保存？"));
  EXPECT_EQ(window->bill_id(), 0);
  session->platform().queue_answer(kButtonYes);
  EXPECT_TRUE(window->save());
  EXPECT_GT(window->bill_id(), 0);
}

TEST_P(OtherBillRoad, ARefusingLimitTakesTheAmountUpToTheLimitAndNotACentMore) {
  degree("3");
  const std::string sOpen = arap::Concat(
      database->value(side_sql(tables().side,
                               "SELECT SUM(FBillUn{got}Amount) FROM {openview} v JOIN {partners} p ON p.FItemID ="
                               " v.{viewpartner} WHERE p.FNumber = ?"),
                      {Bind(GetParam().sFirst)}));
  const Money left = Money::parse("50000") - Money::from_stored(arap::NumberOf(arap::Variant(sOpen)));
  fill_credit(GetParam().sFirst, (left + Money::parse("0.01")).text());
  EXPECT_FALSE(window->save());
  EXPECT_TRUE(told("已超出信用额度，不允许保存!"));
  ASSERT_TRUE(window->type_field("FBillAmountFor", 1, left.text()));
  EXPECT_TRUE(window->save()) << last_message();
  // The stored amount isn't counted twice.
  EXPECT_TRUE(window->save()) << last_message();
  // Once it is stored, it leaves nothing for the next bill.
  fill_credit(GetParam().sFirst, "0.01");
  EXPECT_FALSE(window->save());
}

TEST_P(OtherBillRoad, AnImmediateBillKnowsNoLimit) {
  degree("3");
  fill(tables().side.nImmediateType, GetParam().sFirst, "900000");
  EXPECT_TRUE(window->save()) << last_message();
}

TEST_P(OtherBillRoad, ANumberIsTakenOnceOnEitherSide) {
  const OtherSide& twin = kOtherSides[money_comes_in(tables().side) ? 1 : 0];
  fill_credit(GetParam().sSecond, "10");
  ASSERT_TRUE(window->type_field("FBillNo", -1, twin.sNumber));
  EXPECT_FALSE(window->save());
  EXPECT_TRUE(told("编号相同的"));
  ASSERT_TRUE(window->type_field("FBillNo", -1, GetParam().sNumber));
  EXPECT_EQ(window->save().sReason, "编号为“" + std::string(GetParam().sNumber) + "”的单据已经存在。 请修改单据编号。");
  ASSERT_TRUE(window->type_field("FBillNo", -1, "A-1"));
  ASSERT_TRUE(window->save());
  EXPECT_EQ(text("FBillNo"), "A-1");
  ASSERT_TRUE(window->type_field("FBillNo", -1, "A-2"));
  ASSERT_TRUE(window->save());
  EXPECT_EQ(text("FBillNo"), "A-2");
}

TEST_P(OtherBillRoad, AGivenNumberIsNoneThatEitherSideHas) {
  const std::string sPrefix = std::string(GetParam().sNumber).substr(0, 4);
  const SettlementTables& twin = money_comes_in(tables().side) ? kPaymentTables : kReceiptTables;
  database->exec(side_sql(twin, "UPDATE {other} SET FBillNo = ?"), {Bind(sPrefix + "000002")});
  fill_credit(GetParam().sSecond, "10");
  ASSERT_TRUE(window->save()) << last_message();
  EXPECT_EQ(text("FBillNo"), sPrefix + "000003");
}

TEST_P(OtherBillRoad, TheVoucherSetsTheSettlementAccountAgainstTheTypes) {
  fill_credit(GetParam().sSecond, "10");
  ASSERT_TRUE(window->press("mnuEditCheck"));
  ASSERT_EQ(text("FStatus"), "1") << last_message();
  const std::int32_t nVoucher = make_voucher(*session, tables(), window->bill_id());
  const std::string sText = voucher_text(*database, nVoucher);
  EXPECT_NE(sText.find(money_comes_in(tables().side) ? "借 1122" : "借 6602"), std::string::npos) << sText;
  EXPECT_NE(sText.find(money_comes_in(tables().side) ? "贷 6051" : "贷 2202"), std::string::npos) << sText;
  EXPECT_NE(sText.find("合计 借 10.00  贷 10.00"), std::string::npos) << sText;
  ASSERT_TRUE(window->load_bill(window->bill_id()));
  window->press("mnuEditUnCheck");
  EXPECT_NE(last_message().find("已经生成凭证"), std::string::npos) << last_message();
  EXPECT_EQ(text("FStatus"), "1");
}

TEST_P(OtherBillRoad, ATypeWithoutAnAccountGivesNoVoucher) {
  database->exec("UPDATE t_RP_InOutType SET FAcctID = 0");
  fill_credit(GetParam().sSecond, "10");
  ASSERT_TRUE(window->press("mnuEditCheck"));
  EXPECT_THROW(make_voucher(*session, tables(), window->bill_id()), DeskError);
  EXPECT_TRUE(database->query("SELECT 1 FROM t_Voucher").empty());
}

TEST_P(OtherBillRoad, DeleteAsksAndLeavesANewBill) {
  fill_credit(GetParam().sSecond, "10");
  ASSERT_TRUE(window->save()) << last_message();
  const std::int32_t nBill = window->bill_id();
  session->platform().queue_answer(kButtonNo);
  EXPECT_FALSE(window->press("mnuEditDelete"));
  EXPECT_EQ(window->bill_id(), nBill);
  session->platform().queue_answer(kButtonYes);
  EXPECT_TRUE(window->press("mnuEditDelete"));
  EXPECT_EQ(window->bill_id(), 0);
  EXPECT_FALSE(window->load_bill(nBill));
  EXPECT_TRUE(database->query("SELECT 1 FROM t_Task").empty());
}

TEST_P(OtherBillRoad, WhatACheckedBillSwitchedOffIsOnAgainForTheNextOne) {
  fill_credit(GetParam().sSecond, "10");
  ASSERT_TRUE(window->press("mnuEditCheck"));
  EXPECT_FALSE(window->press("mnuFileSave"));
  EXPECT_FALSE(window->press("mnuEditAddRow"));
  ASSERT_TRUE(window->press("mnuEditUnCheck"));
  ASSERT_TRUE(window->type_field("FBillAmountFor", 1, "12"));
  EXPECT_TRUE(window->press("mnuFileSave"));
  ASSERT_TRUE(window->press("mnuEditCheck"));
  window->new_bill();
  EXPECT_TRUE(window->press("mnuEditAddRow"));
}

TEST_P(OtherBillRoad, TheListChecksUnchecksAndDeletesWithALineEach) {
  for (int n = 0; n < 3; ++n) {
    fill_credit(GetParam().sSecond, "10");
    ASSERT_TRUE(window->save()) << last_message();
  }
  window.reset();
  const OpenListWindow list =
      open_list_window(*database, BillTemplate::shipped(find_bill_kind(GetParam().sKind)->sTemplate));
  for (const char* sTool : {"Check", "UnCheck", "mnuEditDelete"}) {
    list->select_bills({2, 3, 4});
    session->platform().queue_answer(kButtonYes);
    ASSERT_TRUE(list->press(sTool)) << sTool;
    ASSERT_FALSE(session->shown_results.empty()) << last_message();
    EXPECT_NE(session->shown_results.back().find("单据成功!"), std::string::npos) << session->shown_results.back();
  }
  list->refresh();
  EXPECT_EQ(list->lines().size(), 1u);
  list->select_all();
  ASSERT_TRUE(list->press("mnuDataViewNextBill"));
  EXPECT_EQ(session->shown_results.back(), "没有关联单据。");
}

TEST_P(OtherBillRoad, TheHintAboutTheAccountCanBeSwitchedOff) {
  fill_credit(GetParam().sSecond, "10");
  ASSERT_TRUE(window->save());
  EXPECT_TRUE(told("此单审核后，将生成["));
  session->platform().clear_messages();
  database->exec("INSERT INTO t_SystemProfile VALUES ('IC', 'HideSettleAcctHint', '1')");
  ASSERT_TRUE(window->save());
  EXPECT_FALSE(told("此单审核后，将生成["));
}

}  // namespace
}  // namespace desk::testing
