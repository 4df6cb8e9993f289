#include "plugin/settlement/settlement_fixture.h"

namespace arap::testing {
namespace {

class BeginEdit : public SettlementTest {
 protected:
  void begin(const char* sKey) { bill->fire(Event::BeginEdit, {Ref<Object>(bill->info(sKey)), 0, 0}); }
  void leave(Variant vField) { bill->fire(Event::HeadCtlLostFocus, {Ref<Object>(), vField, 0}); }
};
INSTANTIATE_BOTH_SIDES(BeginEdit);

TEST_P(BeginEdit, ASourceNumberOffersTheLookUpOnceTheHeadHasACurrency) {
  begin(side.sSourceNo);
  EXPECT_EQ(bill->bar_status("mnuDataLookUp", "Enabled"), true);
  EXPECT_EQ(box_count(), 0);
}

TEST_P(BeginEdit, WithoutACurrencyItAsksForOne) {
  bill->head("FCurrencyID", "");
  begin(side.sSourceNo);
  EXPECT_EQ(message(), pick("请设置收款单币别!", "请设置付款单币别!"));
  EXPECT_EQ(style(), 64);
  EXPECT_EQ(session.platform.messages.back().sTitle, "币别设置");
  EXPECT_EQ(bill->bar_status("mnuDataLookUp", "Enabled"), std::nullopt);
}

TEST_P(BeginEdit, EmployeesAreThoseOfTheDepartmentAndOfNone) {
  bill->head("FDepartmentID", std::int32_t{12});
  begin("FEmployeeID");
  EXPECT_EQ(plain_text(bill->info("FEmployeeID")->at("FFilter")),
            " IsNull(FDepartmentID,'')='' or IsNull(FDepartmentID,'')=12");
  EXPECT_EQ(plain_text(bill->info("FEmployeeID")->at("FRefresh")), "1");
  bill->head("FDepartmentID", std::int32_t{0});
  begin("FEmployeeID");
  EXPECT_EQ(plain_text(bill->info("FEmployeeID")->at("FFilter")), "");
  EXPECT_EQ(plain_text(bill->info("FEmployeeID")->at("FRefresh")), "1");
}

TEST_P(BeginEdit, LeavingThePartnerShowsItsCredit) {
  session.server("NUVBills.clsCredit").answers(Member::GetStatusMoneyAndCredit, "额度 9");
  bill->info(side.sPartner)->set("FFieldName", side.sPartner).set("FClassTypeID", std::int32_t{1000201});
  leave(Ref<Object>(bill->info(side.sPartner)));
  EXPECT_EQ(bill->panel(5), "额度 9");
  EXPECT_EQ(plain_text(session.server("NUVBills.clsCredit").last(Member::GetStatusMoneyAndCredit)[0]), "01.007");
  bill->head(side.sPartner, std::int32_t{0}, "", "");
  leave(Ref<Object>(bill->info(side.sPartner)));
  EXPECT_EQ(bill->panel(5), "");
}

TEST_P(BeginEdit, OnlyTheFourBillClassesHaveACreditText) {
  session.server("NUVBills.clsCredit").answers(Member::GetStatusMoneyAndCredit, "额度 9");
  bill->info(side.sPartner)->set("FFieldName", side.sPartner);
  for (const std::int32_t nClass : {1000201, 1000202, 1000205, 1000206, 1000207, 0}) {
    bill->info(side.sPartner)->set("FClassTypeID", nClass);
    leave(Ref<Object>(bill->info(side.sPartner)));
    EXPECT_EQ(bill->panel(5), nClass > 0 && nClass != 1000207 ? "额度 9" : "") << nClass;
  }
}

TEST_P(BeginEdit, LeavingNothingOrAnotherFieldShowsNothing) {
  leave(Ref<Object>());
  bill->info("FDate")->set("FFieldName", "FDate");
  leave(Ref<Object>(bill->info("FDate")));
  EXPECT_FALSE(trace().has("SetStatusPanel("));
}

TEST_P(BeginEdit, AFailingCreditServiceIsPassedOverWhenThePartnerIsLeft) {
  session.server("NUVBills.clsCredit").fails(Member::GetStatusMoneyAndCredit, -3, "down");
  bill->info(side.sPartner)->set("FFieldName", side.sPartner).set("FClassTypeID", std::int32_t{1000201});
  EXPECT_NO_THROW(leave(Ref<Object>(bill->info(side.sPartner))));
  EXPECT_EQ(bill->panel(5), "");
}

}  // namespace
}  // namespace arap::testing
