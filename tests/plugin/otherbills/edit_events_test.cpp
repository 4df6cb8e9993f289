#include "other_bill_fixture.h"

namespace arap::testing {
namespace {

class OtherEditEvents : public OtherBillTest {
 protected:
  void begin_edit(const char* sKey) { bill->fire(Event::BeginEdit, {Ref<Object>(bill->info(sKey)), 0, 0}); }
  void leave(const Ref<Object>& oField) { bill->fire(Event::HeadCtlLostFocus, {Ref<Object>(), oField, Ref<Object>()}); }
  void leave_partner() { leave(Ref<Object>(bill->info(side.sPartner))); }
  Ref<TestFieldInfo> partner_info() const { return Ref<TestFieldInfo>(bill->info(side.sPartner)); }
};
INSTANTIATE_OTHER_SIDES(OtherEditEvents);

TEST_P(OtherEditEvents, TheEmployeesAreThoseOfTheDepartmentAndOfNone) {
  bill->head("FDepartmentID", 5);
  begin_edit("FEmployeeID");
  EXPECT_EQ(plain_text(bill->info("FEmployeeID")->at("FFilter")),
            " IsNull(FDepartmentID,'')='' or IsNull(FDepartmentID,'')=5");
  EXPECT_EQ(plain_text(bill->info("FEmployeeID")->at("FRefresh")), "1");
}

TEST_P(OtherEditEvents, WithoutADepartmentAnEarlierFilterIsCleared) {
  bill->info("FEmployeeID")->set("FFilter", "x");
  begin_edit("FEmployeeID");
  EXPECT_EQ(plain_text(bill->info("FEmployeeID")->at("FFilter")), "");
  EXPECT_EQ(plain_text(bill->info("FEmployeeID")->at("FRefresh")), "1");
}

TEST_P(OtherEditEvents, NoOtherLookUpIsNarrowed) {
  bill->head("FDepartmentID", 5);
  for (const char* sKey : {"FDepartmentID", side.sPartner, "FAcctId"}) {
    begin_edit(sKey);
    EXPECT_EQ(plain_text(bill->info(sKey)->at("FRefresh")), "") << sKey;
  }
}

TEST_P(OtherEditEvents, LeavingThePartnerOfACreditBillShowsHisCredit) {
  use_credit();
  answer_credit("额度 500");
  partner_info()->set("FClassTypeID", 1000205);
  leave_partner();
  EXPECT_EQ(bill->panel(5), "额度 500");
  EXPECT_EQ(credit_asked(), "01.007");
}

TEST_P(OtherEditEvents, LeavingAnEmptyPartnerEmptiesThePanel) {
  use_credit();
  bill->head(side.sPartner, 0, "", "");
  leave_partner();
  EXPECT_TRUE(trace().has("SetStatusPanel(5, \"\")"));
  EXPECT_EQ(credit_asked(), "");
}

TEST_P(OtherEditEvents, TheColumnNameOfThePartnerComparesWithoutRegardToCase) {
  use_credit();
  partner_info()->set("FFieldName", pick("fcustomerid", "fsupplyid"));
  leave_partner();
  EXPECT_TRUE(trace().has("SetStatusPanel(5,"));
}

TEST_P(OtherEditEvents, AnotherFieldOrAnImmediateBillOrNothingLeavesThePanel) {
  leave_partner();
  use_credit();
  leave(Ref<Object>(bill->info("FDate")));
  leave(nullptr);
  bill->info(side.sPartner)->erase("FFieldName");
  leave_partner();
  EXPECT_FALSE(trace().has("SetStatusPanel"));
}

TEST_P(OtherEditEvents, AFailedCreditQuestionLeavesThePanelAndReachesNobody) {
  use_credit();
  partner_info()->set("FClassTypeID", 1000205);
  session.server("NUVBills.clsCredit").fails(Member::GetStatusMoneyAndCredit, -5, "no");
  EXPECT_NO_THROW(leave_partner());
  EXPECT_FALSE(trace().has("SetStatusPanel"));
}

TEST_P(OtherEditEvents, WhateverHostCallFailsLeavingAFieldRaisesNothing) {
  use_credit();
  answer_credit("额度 500");
  partner_info()->set("FClassTypeID", 1000205);
  const int nFaults = FailEachCall([this](const std::function<void()>& arm) {
    arm();
    EXPECT_NO_THROW(leave_partner());
  });
  EXPECT_GT(nFaults, 3);
  EXPECT_FALSE(trace().has("SetStatusPanel(5, \"\")")) << "the partner is there, if only it could be read";
}

}  // namespace
}  // namespace arap::testing
