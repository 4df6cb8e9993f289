#include "plugin/settlement/settlement_fixture.h"

namespace arap::testing {
namespace {

class DoOptToBill : public SettlementTest {
 protected:
  bool run(std::int32_t nCheckType) {
    args = {std::int32_t{side.nBillClass}, std::int32_t{31}, nCheckType, std::int16_t{0}, "before"};
    return plugin->invoke(Member::DoOptToBill, Access::Call, args).as<bool>();
  }
  int code() const { return args[3].as<std::int16_t>(); }
  std::string text() const { return plain_text(args[4]); }

  std::array<Variant, 5> args;
};
INSTANTIATE_BOTH_SIDES(DoOptToBill);

TEST_P(DoOptToBill, ASuccessIsToldAndLoggedUnderATask) {
  session.simple_answers[31] = {0, "完成", "SK31"};
  EXPECT_TRUE(run(1));
  EXPECT_EQ(code(), 0);
  EXPECT_EQ(text(), "审核[编号:SK31]单据成功!完成");
  ASSERT_EQ(session.log.size(), 1u);
  EXPECT_EQ(session.log[0].sCode, pick("RP1000201A", "RP1000202A"));
  EXPECT_EQ(session.log[0].nResult, 1);
  EXPECT_EQ(session.log[0].sText, text());
  EXPECT_TRUE(session.held_tasks.empty());
}

TEST_P(DoOptToBill, EachOperationTakesItsOwnFunction) {
  const std::vector<std::string> aCodes = {pick("AR0225", "AP0225"), pick("AR0226", "AP0226"),
                                           pick("AR0227", "AP0227")};
  for (std::int32_t nCheckType = 0; nCheckType < 3; ++nCheckType) {
    run(nCheckType);
    EXPECT_EQ(plain_text(session.login().last(Member::TaskExec)[1]), aCodes[nCheckType]);
  }
}

TEST_P(DoOptToBill, AnUnknownOperationHasNoVerbAndNoTask) {
  session.simple_answers[31] = {0, "", "7"};
  EXPECT_TRUE(run(9));
  EXPECT_EQ(text(), "[编号:7]单据成功!");
  EXPECT_EQ(session.login().count(Member::TaskExec), 0u);
}

TEST_P(DoOptToBill, ARefusalIsLoggedUnderThePaymentsCodeOnBothSides) {
  session.simple_answers[31] = {-1, "状态不对", "SK31"};
  EXPECT_FALSE(run(2));
  EXPECT_EQ(code(), -1);
  EXPECT_EQ(text(), "状态不对");
  ASSERT_EQ(session.log.size(), 1u);
  EXPECT_EQ(session.log[0], (TestSession::LogLine{"RP1000202A", -1, "状态不对"}));
}

TEST_P(DoOptToBill, AFailureIsLoggedLikeASuccessOnTheReceiptAndNotOnThePayment) {
  session.simple_answers[31] = {1, "原因", "SK31"};
  EXPECT_FALSE(run(0));
  EXPECT_EQ(text(), "删除单据[SK31]失败!初始化审核信息时出错。原因");
  ASSERT_EQ(session.log.size(), receive() ? 1u : 0u);
  if (!receive()) return;
  EXPECT_EQ(session.log[0], (TestSession::LogLine{"RP1000201A", 1, text()}));
}

TEST_P(DoOptToBill, AnotherCodeLeavesTheTextAloneAndLogsNothing) {
  session.simple_answers[31] = {5, "x", "y"};
  EXPECT_FALSE(run(1));
  EXPECT_EQ(code(), 5);
  EXPECT_EQ(text(), "before");
  EXPECT_TRUE(session.log.empty());
  EXPECT_TRUE(session.held_tasks.empty());
}

TEST_P(DoOptToBill, AConflictBecomesTheText) {
  session.next_task = 0;
  EXPECT_FALSE(run(1));
  EXPECT_EQ(text(), "当前使用的功能与其他用户有冲突,目前无法使用!");
  EXPECT_EQ(session.server(side.sService).count(Member::CheckBillSimple), 0u);
}

TEST_P(DoOptToBill, AnErrorOfTheServiceBecomesTheTextAndGivesTheTaskBack) {
  session.server(side.sService).fails(Member::CheckBillSimple, -8, "服务中断");
  EXPECT_FALSE(run(1));
  EXPECT_EQ(text(), "服务中断");
  EXPECT_TRUE(session.held_tasks.empty());
  EXPECT_EQ(session.login().count(Member::CommitTask), 1u);
}

TEST_P(DoOptToBill, ATaskThatCouldNotBeGivenBackIsGivenBackAtTheEnd) {
  session.login().answers(Member::CommitTask, false);
  run(1);
  EXPECT_EQ(session.login().count(Member::CommitTask), 1u);
  plugin = nullptr;
  EXPECT_EQ(session.login().count(Member::CommitTask), 2u);
}

TEST_P(DoOptToBill, CodeAndTextMayBeLeftOut) {
  EXPECT_TRUE(plugin->call(Member::DoOptToBill, 1000201, 31, 1).as<bool>());
}

TEST_P(DoOptToBill, TheAnswerStandsInASixthArgumentToo) {
  std::array<Variant, 6> aSix{std::int32_t{side.nBillClass}, std::int32_t{31}, std::int32_t{1}, std::int16_t{0}, "", 0};
  plugin->invoke(Member::DoOptToBill, Access::Call, aSix);
  EXPECT_TRUE(aSix[5].as<bool>());
  session.simple_answers[31] = {-1, "", ""};
  plugin->invoke(Member::DoOptToBill, Access::Call, aSix);
  EXPECT_FALSE(aSix[5].as<bool>());
}

TEST_P(DoOptToBill, EachCodeHasItsApprovedCalls) {
  for (const std::int32_t nCode : {-1, 0, 1, 5}) {
    trace().clear();
    session.simple_answers[31] = {nCode, "说明", "SK31"};
    run(1);
    expect_golden(nCode == -1 ? "do_opt_refused" : "do_opt_code_" + std::to_string(nCode));
  }
}

TEST_P(DoOptToBill, AConflictHasItsApprovedCalls) {
  session.next_task = 0;
  trace().clear();
  run(1);
  expect_golden("do_opt_conflict");
}

}  // namespace
}  // namespace arap::testing
