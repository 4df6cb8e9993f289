#include "save_fixture.h"

namespace arap::testing {
namespace {

class OtherSave : public OtherSaveTest {};
INSTANTIATE_OTHER_SIDES(OtherSave);

TEST_P(OtherSave, TheTraceOfASaveOfAnImmediateBillIsApproved) {
  bill->save();
  expect_golden("before_save_immediate_bill");
}

TEST_P(OtherSave, TheTraceOfASaveOfACreditBillIsApproved) {
  use_uncontrolled_credit();
  use_hint();
  bill->save();
  expect_golden("before_save_credit_bill");
}

TEST_P(OtherSave, ANumberOfTheOtherSideOfThePairIsRefusedInTheOtherSidesWords) {
  use_number_taken();
  expect_refused(pick("编号相同的费用支出单据已经存在，请检查单据编号和编码规则。",
                      "编号相同的其他收入单据已经存在，请检查单据编号和编码规则。"));
  const std::vector<Variant> args = number_service().last(side.numberQuery);
  ASSERT_EQ(args.size(), 2u);
  EXPECT_EQ(plain_text(args[1]), "QT0001");
}

TEST_P(OtherSave, ANumberOfItsOwnSideIsNotAskedFor) {
  const Member own = receivable_side() ? Member::GetARBillInfo : Member::GetAPBillInfo;
  session.server(side.sService).on(own, [](Arguments) { return Variant(recordset({"FBillID"}, {{77}})); });
  EXPECT_FALSE(bill->save());
  EXPECT_EQ(session.server(side.sService).count(own), 0u);
}

TEST_P(OtherSave, AnEmptyAnswerAboutTheNumberPasses) {
  number_service().answers(side.numberQuery, Ref<Object>());
  EXPECT_FALSE(bill->save());
  number_service().answers(side.numberQuery, {});
  EXPECT_FALSE(bill->save());
}

TEST_P(OtherSave, AnAnswerAboutTheNumberThatCountsNoBillsPasses) {
  const auto oBills = make_object<ServerStub>("Recordset");
  oBills->answers(Member::Eof, false).answers(Member::RecordCount, 0);
  number_service().answers(side.numberQuery, Ref<Object>(oBills));
  EXPECT_FALSE(bill->save());
  oBills->answers(Member::RecordCount, 1);
  EXPECT_TRUE(bill->save());
}

TEST_P(OtherSave, AnImmediateBillNeedsNoPartnerACreditBillDoes) {
  bill->head(side.sPartner, 0);
  EXPECT_FALSE(bill->save());
  use_uncontrolled_credit();
  expect_refused(pick("请指定客户名称!", "请指定供应商名称!"));
}

TEST_P(OtherSave, TheTypesAndTheAccountGoToTheServer) {
  EXPECT_FALSE(bill->save());
  const std::vector<Variant> args = types().last(Member::IsSameAcctId);
  ASSERT_EQ(args.size(), 3u);
  EXPECT_EQ(plain_text(args[1]), "11,12");
  EXPECT_EQ(args[2].as<std::int32_t>(), 1001);
}

TEST_P(OtherSave, TheAccountIsReadAheadOfTheRows) {
  trace().set_detail(Trace::Detail::All);
  bill->save();
  const auto nAccount = trace().position("GetFieldInfoByKey(\"FAcctId\"");
  ASSERT_GE(nAccount, 0);
  EXPECT_LT(nAccount, trace().position("GetFieldInfoByKey(\"FInOutTypeId\""));
}

TEST_P(OtherSave, TheHeadTakesTheSumsOfTheRowsInBothCurrencies) {
  bill->set_value("FBillAmount", 1, 61.0);
  bill->head("FExchangeRate", 2.0);
  EXPECT_FALSE(bill->save());
  EXPECT_EQ(bill->number("FAmountFor"), 100);
  EXPECT_EQ(bill->number("FAmount"), 101);
  EXPECT_EQ(bill->number("FCheckAmountFor"), 100);
}

TEST_P(OtherSave, ABaseSumOfZeroWithAForeignSumIsSaved) {
  bill->set_value("FBillAmount", 1, -40.0);
  EXPECT_FALSE(bill->save());
  EXPECT_EQ(bill->number("FAmount"), 0);
  EXPECT_EQ(bill->number("FAmountFor"), 100);
}

TEST_P(OtherSave, AmountsThatTakeEachOtherBackAreRefused) {
  bill->set_value("FBillAmountFor", 1, 100.0);
  bill->set_value("FBillAmountFor", 2, -100.0);
  expect_refused(pick("单据收入明细的金额合计为0，不允许保存。", "单据支出明细的金额合计为0，不允许保存。"));
}

TEST_P(OtherSave, ABillDatedBeforeThePeriodIsRefused) {
  bill->head("FDate", "2023-12-31");
  expect_refused("不能保存业务系统当前使用期间之前的单据,请修改单据日期。");
}

TEST_P(OtherSave, OnlyThePayableBillReadsItsDateFirstAndForNothing) {
  trace().set_detail(Trace::Detail::All);
  bill->save();
  const auto nDate = trace().position("GetFieldInfoByKey(\"FDate\"");
  ASSERT_GE(nDate, 0);
  const auto aReads = trace().count("GetFieldInfoByKey(\"FDate\"");
  EXPECT_EQ(aReads, pick<std::size_t>(1, 2));  // the test of the period reads it on both sides
  bill->head("FDate", "no date");
  EXPECT_FALSE(bill->save());
}

TEST_P(OtherSave, OverTheLimitTheUserDecidesWhereTheCompanyOnlyWarns) {
  const std::string sQuestion = pick("此客户已超出信用额度，是否继续保存？", "此供应商已超出信用额度，是否继续保存？");
  use_credit();
  use_credit_limit("2");
  use_hint();
  session.platform.answer(7);
  EXPECT_TRUE(bill->save());
  EXPECT_EQ(boxes(), box(sQuestion, 68));
  EXPECT_EQ(bill->number("FAmountFor"), 100);
  session.platform.messages.clear();
  session.platform.answer(6);
  EXPECT_FALSE(bill->save());
  EXPECT_EQ(boxes(), (std::vector<Box>{{sQuestion, 68, "青柚提示"}, {hint(), 48, "青柚提示"}}));
}

TEST_P(OtherSave, OverTheLimitTheSaveIsStoppedWhereTheCompanyRefuses) {
  use_credit();
  use_credit_limit("3");
  use_hint();
  EXPECT_TRUE(bill->save());
  EXPECT_EQ(boxes(), box(pick("此客户已超出信用额度，不允许保存!", "此供应商已超出信用额度，不允许保存!"), 16));
}

TEST_P(OtherSave, AnyOtherDegreeOfControlSavesWithoutAWord) {
  use_credit();
  for (const char* sDegree : {"0", "", "4", "-1", "x"}) {
    use_credit_limit(sDegree);
    EXPECT_FALSE(bill->save()) << sDegree;
  }
  EXPECT_EQ(boxes().size(), 0u);
}

TEST_P(OtherSave, AnImmediateBillIsUnderNoCreditControl) {
  use_credit_limit("3");
  use_hint();
  EXPECT_FALSE(bill->save());
  EXPECT_EQ(boxes().size(), 0u);
  EXPECT_EQ(bill->sql.texts.size(), 0u);
}

TEST_P(OtherSave, ACreditBillIsFollowedByTheHintAboutTheAccountWhichStopsNothing) {
  use_uncontrolled_credit();
  EXPECT_FALSE(bill->save());
  EXPECT_EQ(boxes().size(), 0u);
  use_hint();
  EXPECT_FALSE(bill->save());
  EXPECT_EQ(boxes(), warning(hint()));
}

TEST_P(OtherSave, TheHintIsDecidedByTheReceivableServiceOnBothSides) {
  use_uncontrolled_credit();
  session.server("NUVlpsArApBill.clsApOtherBill").answers(Member::GetBill, false);
  EXPECT_FALSE(bill->save());
  EXPECT_EQ(boxes().size(), 0u);
  EXPECT_EQ(session.server("NUVlpsArApBill.clsArOtherBill").count(Member::GetBill), 1u);
}

TEST_P(OtherSave, AnErrorCancelsTheSaveWithoutAMessage) {
  types().fails(Member::IsSameAcctId, -5, "no connection");
  EXPECT_TRUE(bill->save());
  EXPECT_EQ(boxes().size(), 0u);
}

TEST_P(OtherSave, AServiceThatCannotBeMadeCancelsTheSave) {
  session.remove_server(side.sNumberService);
  EXPECT_TRUE(bill->save());
  EXPECT_EQ(boxes().size(), 0u);
}

TEST_P(OtherSave, AnUnreadableCreditProfileCancelsTheSave) {
  use_credit();
  EXPECT_TRUE(bill->save());
  EXPECT_EQ(boxes().size(), 0u);
}

TEST_P(OtherSave, WhicheverHostCallFailsTheSaveRaisesNothing) {
  use_uncontrolled_credit();
  const int nFaults = FailEachCall([this](const std::function<void()>& arm) {
    std::array<Variant, 1> args{false};
    arm();
    EXPECT_NO_THROW(bill->events.fire(Event::BeforeSave, args));
  });
  EXPECT_GT(nFaults, 40);
}

TEST_P(OtherSave, ASavedCreditBillShowsItsCreditAnew) {
  use_credit();
  answer_credit("额度 400");
  bill->fire(Event::AfterSave, {0});
  EXPECT_EQ(bill->panel(5), "额度 400");
  EXPECT_EQ(credit_asked(), "青柚商贸");
}

TEST_P(OtherSave, AfterAnImmediateBillOnlyThePayableBillEmptiesThePanel) {
  bill->fire(Event::AfterSave, {0});
  EXPECT_EQ(trace().has("SetStatusPanel(5, \"\")"), !receivable_side());
  EXPECT_EQ(trace().lines().size(), pick<std::size_t>(0, 1));
}

}  // namespace
}  // namespace arap::testing
