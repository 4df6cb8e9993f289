#include "other_bill_fixture.h"

namespace arap::testing {
namespace {

/// A credit bill of 100 over the partner 7, whose limit is 500, under a control that refuses.
class OtherCreditLimit : public OtherBillTest {
 protected:
  using Lines = std::vector<std::string>;

  void SetUp() override {
    use_credit();
    add_other_row(*bill, {.dAmountFor = 60});
    add_other_row(*bill, {.dAmountFor = 40});
    degree_is("3");
    limit_is(500.0);
    balance_is(0.0);
    trace().clear();
  }
  void degree_is(Variant vDegree) {
    bill->sql.answer("Select FValue From t_SystemProfile", recordset({"FValue"}, {{std::move(vDegree)}}));
  }
  void limit_is(Variant vLimit) {
    bill->sql.answer("Select FCreditDegree,FNumber",
                     recordset({"FCreditDegree", "FNumber"}, {{std::move(vLimit), " 01.007 "}}));
  }
  void balance_is(double dBalance) { report_is({{1, 9999.0}, {0, dBalance}, {0, 8888.0}}); }
  void report_is(std::vector<std::vector<Variant>> aRows) {
    report().on(report_member(), [aRows](Arguments) {
      return Variant(recordset({"FSumSort", "FRemainAmount"}, aRows));
    });
  }
  void stored_is(std::int32_t nType, double dAmount) {
    bill->inter_id = 9;
    bill->sql.answer("Select FBillTypeId,FAmount", recordset({"FBillTypeId", "FAmount"}, {{nType, dAmount}}));
  }
  Member report_member() const { return pick(Member::GetRpt131Data, Member::GetRpt132Data); }
  ServerStub& report() { return session.server("NUVMYWARAPRpt.Data"); }
  bool asked_report() { return report().count(report_member()) > 0; }
  /// True when the save goes through without a word about the credit.
  bool passes() {
    session.platform.messages.clear();
    const bool bCancelled = bill->save();
    EXPECT_EQ(bCancelled, !boxes().empty());
    return !bCancelled;
  }
  Lines queries() const { return trace().lines_with("OpenQuery"); }
};
INSTANTIATE_OTHER_SIDES(OtherCreditLimit);

TEST_P(OtherCreditLimit, TheQueriesAreTheSidesOwn) {
  stored_is(side.nCreditType, 100);
  EXPECT_TRUE(passes());
  const auto query = [](const std::string& sSql) { return "DataServer.OpenQuery(\"" + sSql + "\")"; };
  EXPECT_EQ(queries(),
            (Lines{query(pick("Select FValue From t_SystemProfile Where FCategory='IC' And FKey='CreditDegree'",
                              "Select FValue From t_SystemProfile Where FCategory='IC' And FKey='CreditDegreeCG'")),
                   query(pick("Select FCreditDegree,FNumber From t_Organization Where FItemID=7",
                              "Select FCreditDegree,FNumber From t_Supplier Where FItemID=7")),
                   query(pick("Select FBillTypeId,FAmount From t_RP_ROtherBill Where FBillID=9",
                              "Select FBillTypeId,FAmount From t_RP_POtherBill Where FBillID=9"))}));
}

TEST_P(OtherCreditLimit, TheReportGetsEveryKeyOfItsTable) {
  EXPECT_TRUE(passes());
  const auto aArgs = report().last(report_member());
  ASSERT_EQ(aArgs.size(), 2u);
  EXPECT_EQ(plain_text(aArgs[0]), plain_text(session.shared().at("PropsString")));
  const auto& oParams = static_cast<const TestDictionary&>(*aArgs[1].object());
  Lines aPairs;
  for (std::size_t i = 0; i < oParams.size(); ++i) {
    aPairs.push_back(std::string(oParams.name_at(i)) + "=" + show(oParams.value_at(i)));
  }
  EXPECT_EQ(aPairs, (Lines{"OK=True",
                           "BDate=\"1900-01-01\"",
                           "EDate=\"2090-01-01\"",
                           pick("BCustNumber=\"01.007\"", "BSupplyNumber=\"01.007\""),
                           pick("ECustNumber=\"01.007\"", "ESupplyNumber=\"01.007\""),
                           "BDeptNumber=\"\"",
                           "EDeptNumber=\"\"",
                           "BEmpNumber=\"\"",
                           "EEmpNumber=\"\"",
                           "CurrencyName=\"综合本位币\"",
                           "CurrencyID=0",
                           pick("ExportNoInvoice=0", "InportNoInvoice=0"),
                           pick("CashSaleInvoice=0", "CashPurchaseInvoice=0"),
                           "IncludeNotAudit=1",
                           "BalanceNotZero=0",
                           "IncludeOther=1",
                           "GroupBy=0",
                           "BLevel=1",
                           "ELevel=1",
                           "SumMode=1",
                           pick("SumName=\"客户\"", "SumName=\"供应商\""),
                           "bLongNumber=True",
                           "DataRightWhere=\"\""}));
}

TEST_P(OtherCreditLimit, AnImmediateBillAsksNothing) {
  bill->head("FBillTypeId", side.nImmediateType);
  EXPECT_TRUE(passes());
  EXPECT_EQ(queries(), Lines());
  EXPECT_FALSE(asked_report());
}

TEST_P(OtherCreditLimit, WithoutControlNeitherPartnerNorReportIsAsked) {
  for (const char* sDegree : {"1", " 1 "}) {
    degree_is(sDegree);
    trace().clear();
    EXPECT_TRUE(passes());
    EXPECT_EQ(queries().size(), 1u);
  }
  EXPECT_FALSE(asked_report());
}

TEST_P(OtherCreditLimit, NoControlIsComparedAsText) {
  degree_is("1.0");
  balance_is(1000);
  EXPECT_TRUE(passes());
  EXPECT_TRUE(asked_report());
}

TEST_P(OtherCreditLimit, DegreesOtherThanWarnAndRefuseLetTheBillPassWithoutAWord) {
  balance_is(1000);
  for (const Variant& vDegree : {Variant("0"), Variant(""), Variant(Null{}), Variant("4"), Variant("-3")}) {
    degree_is(vDegree);
    EXPECT_TRUE(passes()) << show(vDegree);
  }
}

TEST_P(OtherCreditLimit, APartnerWithoutALimitIsUnderNoControl) {
  balance_is(1000);
  for (const Variant& vLimit : {Variant(0.0), Variant(-5.0), Variant(Null{}), Variant("")}) {
    limit_is(vLimit);
    EXPECT_TRUE(passes()) << show(vLimit);
  }
  EXPECT_FALSE(asked_report());
}

TEST_P(OtherCreditLimit, ABalanceAtTheLimitPassesAndACentMoreDoesnt) {
  balance_is(400);
  EXPECT_TRUE(passes());
  balance_is(400.01);
  EXPECT_FALSE(passes());
  EXPECT_EQ(boxes(), box(pick("此客户已超出信用额度，不允许保存!", "此供应商已超出信用额度，不允许保存!"), 16));
}

TEST_P(OtherCreditLimit, TheDegreeDecidesBetweenAQuestionAndARefusal) {
  balance_is(1000);
  degree_is("2");
  session.platform.answer(6);
  EXPECT_FALSE(bill->save());
  EXPECT_EQ(boxes(), box(pick("此客户已超出信用额度，是否继续保存？", "此供应商已超出信用额度，是否继续保存？"), 68));
}

TEST_P(OtherCreditLimit, WithoutASumRowTheBalanceIsTheBillAlone) {
  report_is({{1, 9999.0}});
  EXPECT_TRUE(passes());
  limit_is(99.0);
  EXPECT_FALSE(passes());
}

TEST_P(OtherCreditLimit, AStoredCreditBillWeighsOnlyByItsDifference) {
  for (const double dStored : {80.0, 79.99}) {
    stored_is(side.nCreditType, dStored);
    balance_is(480);
    EXPECT_EQ(passes(), dStored >= 80) << dStored;
  }
}

TEST_P(OtherCreditLimit, ACheckedStoredBillIsTreatedLikeAnUncheckedOne) {
  stored_is(side.nCreditType, 80);
  balance_is(480);
  for (const int nStatus : {0, 1}) {
    bill->head("FStatus", nStatus);
    EXPECT_TRUE(passes()) << nStatus;
  }
}

TEST_P(OtherCreditLimit, AStoredImmediateBillOrOneThatIsGoneSubtractsNothing) {
  balance_is(480);
  stored_is(side.nImmediateType, 100);
  EXPECT_FALSE(passes());
  bill->sql.answer("Select FBillTypeId,FAmount", recordset({"FBillTypeId", "FAmount"}));
  EXPECT_FALSE(passes());
}

TEST_P(OtherCreditLimit, TheOtherSidesCreditValueCountsForNothing) {
  balance_is(480);
  stored_is(pick(1008, 1006), 100);
  EXPECT_FALSE(passes());
}

TEST_P(OtherCreditLimit, AnEmptyProfileOrAMissingPartnerCancelsTheSaveInSilence) {
  bill->sql.answer("Select FValue From t_SystemProfile", recordset({"FValue"}));
  EXPECT_TRUE(bill->save());
  degree_is("3");
  bill->sql.answer("Select FCreditDegree,FNumber", recordset({"FCreditDegree", "FNumber"}));
  EXPECT_TRUE(bill->save());
  EXPECT_TRUE(boxes().empty());
}

}  // namespace
}  // namespace arap::testing
