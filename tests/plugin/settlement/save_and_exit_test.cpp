#include "plugin/settlement/settlement_fixture.h"

namespace arap::testing {
namespace {

class SaveAndExit : public BothSides {
 protected:
  void SetUp() override {
    bill->head("FBillId", 9).head("FExchangeRate", 6.5);
    trace().clear();
  }
  ServerStub& push() { return session.server("NUVMARAPPush.clsPush"); }
  Lines rate_writes() const { return trace().lines_with("SetFieldValue"); }
};
INSTANTIATE_BOTH_SIDES(SaveAndExit);

TEST_P(SaveAndExit, ANewBillGoesToTheHostsSaveAndExit) {
  bill->head("FBillId", 0);
  trace().clear();
  EXPECT_FALSE(bill->click("mnuFileSave"));
  EXPECT_FALSE(bill->click("mnuFileExit"));
  EXPECT_EQ(push().count(Member::GetBillTypeID), 0u);
  EXPECT_FALSE(trace().has("SetStatusPanel"));
}

TEST_P(SaveAndExit, OfACheckedBillOnlyTheSettlementFieldsAreWritten) {
  bill->head("FStatus", 1).head("FSettleID", 4).head("FSettleIDNO", "支票12");
  EXPECT_FALSE(bill->click("mnuFileSave"));
  EXPECT_EQ(session.commands.texts,
            (Lines{pick(" UPDATE t_RP_RBill SET FSettleID=4,FSettleIDNo='支票12' WHERE FBillID=9",
                        " UPDATE t_RP_PBill SET FSettleID=4,FSettleIDNo='支票12' WHERE FBillID=9")}));
  EXPECT_TRUE(bill->not_save);
  EXPECT_EQ(push().count(Member::GetBillTypeID), 0u);
  EXPECT_FALSE(trace().has("SetStatusPanel"));
}

TEST_P(SaveAndExit, OnlyTheStatusOneIsChecked) {
  for (const std::int32_t nStatus : {0, 2, -1}) {
    bill->head("FStatus", nStatus);
    bill->click("mnuFileSave");
    EXPECT_FALSE(bill->not_save) << nStatus;
  }
  EXPECT_TRUE(session.commands.texts.empty());
  EXPECT_EQ(push().count(Member::GetBillTypeID), 3u);
}

TEST_P(SaveAndExit, AQuoteInTheSettlementNumberGoesIntoTheStatementAsItStands) {
  bill->head("FStatus", 1).head("FSettleID", 4).head("FSettleIDNO", "O'K");
  bill->click("mnuFileSave");
  ASSERT_EQ(session.commands.texts.size(), 1u);
  EXPECT_NE(session.commands.texts[0].find("FSettleIDNo='O'K' WHERE"), std::string::npos);
}

TEST_P(SaveAndExit, AnUncheckedBillAsksWhetherItWasPushed) {
  EXPECT_FALSE(bill->click("mnuFileSave"));
  const auto aArgs = push().last(Member::GetBillTypeID);
  ASSERT_EQ(aArgs.size(), 3u);
  EXPECT_EQ(plain_text(aArgs[0]), plain_text(session.shared().at("PropsString")));
  EXPECT_EQ(plain_number(aArgs[1]), 9);
  EXPECT_EQ(plain_text(aArgs[2]), side.sBillTable);
  EXPECT_FALSE(bill->not_save);
  EXPECT_TRUE(session.commands.texts.empty());
}

TEST_P(SaveAndExit, OnlyTheAnswerOneRunsTheActionsOfTheRateAgain) {
  for (const std::int32_t nAnswer : {0, 2, 1}) {
    trace().clear();
    push().answers(Member::GetBillTypeID, nAnswer);
    bill->click("mnuFileSave");
    EXPECT_EQ(rate_writes(), nAnswer == 1 ? Lines{"BillEvent.SetFieldValue(\"FExchangeRate\", 6.5, -1)"} : Lines{});
    trace().clear();
    bill->click("mnuFileExit");
    EXPECT_EQ(rate_writes(), nAnswer == 1 ? Lines{"BillEvent.SetFieldValue(\"FExchangeRate\", 6.5, -1)"} : Lines{});
  }
}

TEST_P(SaveAndExit, OnlyTheSaveShowsTheCreditStatus) {
  session.server("NUVBills.clsCredit").answers(Member::GetStatusMoneyAndCredit, "信用余额 100");
  bill->click("mnuFileExit");
  EXPECT_EQ(bill->panel(5), "");
  bill->click("mnuFileSave");
  EXPECT_EQ(bill->panel(5), "信用余额 100");
}

TEST_P(SaveAndExit, TheCheckedBillLeavesWithoutAStatusTest) {
  bill->head("FStatus", 1);
  EXPECT_FALSE(bill->click("mnuFileExit"));
  EXPECT_EQ(push().count(Member::GetBillTypeID), 1u);
  EXPECT_FALSE(bill->not_save);
}

}  // namespace
}  // namespace arap::testing
