#include "otherbills/other_bill_sides.h"

#include <set>

#include "other_bill_fixture.h"

namespace arap::testing {
namespace {

class OtherSides : public OtherBillTest {
 protected:
  const OtherBillSide& table = receivable_side() ? kROtherSide : kPOtherSide;
};
INSTANTIATE_OTHER_SIDES(OtherSides);

TEST_P(OtherSides, TheTableHoldsTheIdentityOfItsSide) {
  EXPECT_EQ("NUVARAPBillInterface." + std::string(table.sClassName.view()), side.sClass);
  EXPECT_EQ(table.nBillClass, side.nBillClass);
  EXPECT_EQ(table.sHelpTopic.view(), pick("RP1000205", "RP1000206"));
  EXPECT_EQ(table.sBillTable.view(), side.sBillTable);
  EXPECT_EQ(table.sPartnerTable.view(), side.sPartnerTable);
  EXPECT_EQ(table.nImmediateType, side.nImmediateType);
  EXPECT_EQ(table.nCreditType, side.nCreditType);
  EXPECT_EQ(table.sBillService.view(), side.sService);
  EXPECT_EQ(plugin->type_name(), table.sClassName.view());
}

TEST_P(OtherSides, ThePayableBillSpellsItsPartnerInTwoWays) {
  EXPECT_EQ(table.sPartner.view(), pick("FCustomerID", "FSupplyId"));
  EXPECT_EQ(table.sPartnerEdited.view(), pick("FCustomerID", "FSupplyID"));
}

/// Every spelling under which the host is asked for the partner during an event.
TEST_P(OtherSides, EachHandlerSpellsThePartnerInItsOwnWay) {
  const auto spellings = [this](const std::function<void()>& act) {
    trace().set_detail(Trace::Detail::All);
    trace().clear();
    act();
    std::set<std::string> aFound;
    for (const char* sKey : {"FCustomerID", "FSupplyId", "FSupplyID"}) {
      if (trace().has("\"" + std::string(sKey) + "\"")) aFound.insert(sKey);
    }
    return aFound;
  };
  const std::set<std::string> aFirst{pick("FCustomerID", "FSupplyId")};
  const std::set<std::string> aSecond{pick("FCustomerID", "FSupplyID")};
  use_credit();
  bill->sql.answer("Select FValue", recordset({"FValue"}, {{"3"}}));
  bill->sql.answer("Select FCreditDegree", recordset({"FCreditDegree", "FNumber"}, {{5000.0, "01.007"}}));
  add_other_row(*bill);
  EXPECT_EQ(spellings([this] { EXPECT_FALSE(bill->save()); }), aFirst);
  EXPECT_EQ(spellings([this] { bill->fire(Event::AfterSave, {0}); }), aFirst);
  EXPECT_EQ(spellings([this] { bill->change("FDate", -1, "2024-01-20"); }), aSecond);
  EXPECT_EQ(spellings([this] { bill->change("FBillTypeId", -1, side.nCreditType); }), aSecond);
  const Ref<Object> oPartner(bill->info(side.sPartner));
  EXPECT_EQ(spellings([&] { bill->fire(Event::HeadCtlLostFocus, {Ref<Object>(), oPartner, Ref<Object>()}); }), aSecond);
}

TEST_P(OtherSides, ANumberIsAskedForOnTheOtherSideOfThePair) {
  EXPECT_EQ(table.sNumberService.view(), pick("NUVlpsArAPBill.clsApOtherBill", "NUVlpsArAPBill.clsArOtherBill"));
  EXPECT_EQ(name_of(table.numberQuery), pick("GetAPBillInfo", "GetARBillInfo"));
  EXPECT_EQ(table.sNumberTaken.view(), pick("编号相同的费用支出单据已经存在，请检查单据编号和编码规则。",
                                            "编号相同的其他收入单据已经存在，请检查单据编号和编码规则。"));
}

TEST_P(OtherSides, TheCreditReportHasKeysOfItsSide) {
  EXPECT_EQ(table.sCreditProfileKey.view(), pick("CreditDegree", "CreditDegreeCG"));
  EXPECT_EQ(name_of(table.creditReport), pick("GetRpt131Data", "GetRpt132Data"));
  EXPECT_EQ(table.sReportFromPartner.view(), pick("BCustNumber", "BSupplyNumber"));
  EXPECT_EQ(table.sReportToPartner.view(), pick("ECustNumber", "ESupplyNumber"));
  EXPECT_EQ(table.sReportNoInvoice.view(), pick("ExportNoInvoice", "InportNoInvoice"));
  EXPECT_EQ(table.sReportCashInvoice.view(), pick("CashSaleInvoice", "CashPurchaseInvoice"));
  EXPECT_EQ(table.sReportSumName.view(), pick("客户", "供应商"));
}

TEST_P(OtherSides, TheLogCodesFollowTheSideButForTheUncheckInTheBillWindow) {
  EXPECT_EQ(table.sCheckLogCode.view(), pick("RP1000205A", "RP1000206A"));
  EXPECT_EQ(kUncheckLogCode.view(), "RP1000205A");
  EXPECT_EQ(table.sFailedCheckVerb.view(), pick("审核", "反审核"));
  EXPECT_EQ(table.sListLogCode.view(), pick("RP1000205B", "RP1000206B"));
}

TEST_P(OtherSides, BothListsAskForRightsAndBothBillsForTheHintOnTheReceivableSide) {
  EXPECT_EQ(kListRightsClass, 1000205);
  EXPECT_EQ(kSettlementHintService.view(), "NUVlpsArApBill.clsArOtherBill");
}

TEST_P(OtherSides, TheLogicDiffersInSixNamedPlaces) {
  EXPECT_EQ(table.dateOnSave, pick(DateOnSave::NotRead, DateOnSave::ReadAndDropped));
  EXPECT_EQ(table.negativeType, pick(NegativeType::PassedOver, NegativeType::CountsAsMissing));
  EXPECT_EQ(table.panelAfterSave, pick(PanelAfterSave::LeftAlone, PanelAfterSave::Emptied));
  EXPECT_EQ(table.changeCommandOnLoad, pick(ChangeCommandOnLoad::LeftAlone, ChangeCommandOnLoad::Hidden));
  EXPECT_EQ(table.newCommand, pick(NewCommand::NoRule, NewCommand::EmptiesCreditPanel));
  EXPECT_EQ(table.rowCommandsInMenu, pick(RowCommandsInMenu::CopyAndFill, RowCommandsInMenu::CopyOnly));
}

TEST_P(OtherSides, AnUnknownSourceLeavesTheClassSilent) {
  plugin->call(Member::Show, dictionary());
  EXPECT_EQ(bill->events.size(), 1u);
}

TEST_P(OtherSides, EventsOfOtherBillsAreNotHeard) {
  trace().set_detail(Trace::Detail::All);
  for (const Event event : {Event::BeforeLoadBill, Event::BeforLoadBillFillData, Event::AfterNewEmptyData,
                            Event::AfterSelBill, Event::SaveBillFailed}) {
    trace().clear();
    bill->fire(event);
    EXPECT_EQ(trace().lines().size(), 1u) << name_of(event);
  }
}

TEST_P(OtherSides, TheTypesAreReadOnceWhenTheClassIsMade) {
  bill->fire(Event::AfterNewBill);
  bill->fire(Event::AfterLoadBill);
  EXPECT_EQ(session.server("NUVlpsArApBill.clsInOutType").count(Member::GetRPInOutTypeInfo), 1u);
}

}  // namespace
}  // namespace arap::testing
