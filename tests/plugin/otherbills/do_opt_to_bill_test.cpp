#include "other_bill_fixture.h"

namespace arap::testing {
namespace {

class OtherDoOptToBill : public OtherBillTest {
 protected:
  using Log = TestSession::LogLine;

  bool run(std::int32_t nCheckType) {
    args = {side.nBillClass, std::int32_t{31}, nCheckType, std::int16_t{7}, "before"};
    return plugin->invoke(Member::DoOptToBill, Access::Call, args).as<bool>();
  }
  int code() const { return args[3].as<std::int16_t>(); }
  std::string text() const { return plain_text(args[4]); }
  std::string log_code() const { return pick("RP1000205B", "RP1000206B"); }

  std::array<Variant, 5> args;
};
INSTANTIATE_OTHER_SIDES(OtherDoOptToBill);

TEST_P(OtherDoOptToBill, ASuccessIsToldAndLoggedUnderATask) {
  session.simple_answers[31] = {0, "完成", "QT31"};
  EXPECT_TRUE(run(1));
  EXPECT_EQ(code(), 0);
  EXPECT_EQ(text(), "审核[编号:QT31]单据成功!完成");
  EXPECT_EQ(session.log, (std::vector<Log>{{log_code(), 1, text()}}));
  EXPECT_TRUE(session.held_tasks.empty());
  expect_golden("operation_done");
}

TEST_P(OtherDoOptToBill, AFailureIsToldWithItsReasonAndLoggedAsOne) {
  session.simple_answers[31] = {1, "原因", "QT31"};
  EXPECT_FALSE(run(0));
  EXPECT_EQ(code(), 1);
  EXPECT_EQ(text(), "删除单据[QT31]失败!初始化审核信息时出错。原因");
  EXPECT_EQ(session.log, (std::vector<Log>{{log_code(), 2, text()}}));
  EXPECT_TRUE(session.held_tasks.empty());
  expect_golden("operation_failed");
}

TEST_P(OtherDoOptToBill, ARefusalIsTheServicesTextAlone) {
  session.simple_answers[31] = {-1, "状态不对", "QT31"};
  EXPECT_FALSE(run(2));
  EXPECT_EQ(code(), -1);
  EXPECT_EQ(text(), "状态不对");
  EXPECT_EQ(session.log, (std::vector<Log>{{log_code(), -1, "状态不对"}}));
  EXPECT_TRUE(session.held_tasks.empty());
  expect_golden("operation_refused");
}

TEST_P(OtherDoOptToBill, AnotherCodeLeavesTheTextAloneAndLogsNothing) {
  session.simple_answers[31] = {5, "x", "y"};
  EXPECT_FALSE(run(1));
  EXPECT_EQ(code(), 5);
  EXPECT_EQ(text(), "before");
  EXPECT_TRUE(session.log.empty());
  EXPECT_TRUE(session.held_tasks.empty());
  expect_golden("operation_with_another_code");
}

TEST_P(OtherDoOptToBill, EachOperationTakesItsOwnFunctionOnTheBill) {
  const std::vector<std::string> aCodes = {pick("AR0303", "AP0303"), pick("AR0304", "AP0304"),
                                           pick("AR0305", "AP0305")};
  for (std::int32_t nCheckType = 0; nCheckType < 3; ++nCheckType) {
    run(nCheckType);
    const auto aTask = session.login().last(Member::TaskExec);
    ASSERT_EQ(aTask.size(), 7u);
    EXPECT_EQ(plain_number(aTask[0]), 21);
    EXPECT_EQ(plain_text(aTask[1]), aCodes[nCheckType]);
    EXPECT_EQ(plain_number(aTask[6]), 31);
  }
}

TEST_P(OtherDoOptToBill, AnUnknownOperationHasNoVerbAndNoTask) {
  for (const std::int32_t nCheckType : {3, -1}) {
    EXPECT_TRUE(run(nCheckType));
    EXPECT_EQ(text(), "[编号:31]单据成功!");
  }
  EXPECT_EQ(session.login().count(Member::TaskExec), 0u);
  EXPECT_EQ(session.login().count(Member::CommitTask), 0u);
}

TEST_P(OtherDoOptToBill, TheServiceGetsTheOperationAndTheProps) {
  run(2);
  const auto aArgs = session.server(side.sService).last(Member::CheckBillSimple);
  const auto& oData = static_cast<const TestDictionary&>(*aArgs.at(0).object());
  EXPECT_EQ(oData.size(), 4u);
  EXPECT_EQ(plain_number(oData.at("TransType")), side.nBillClass);
  EXPECT_EQ(plain_number(oData.at("InterID")), 31);
  EXPECT_EQ(plain_number(oData.at("CheckType")), 2);
  EXPECT_EQ(plain_text(oData.at("PropsString")), plain_text(session.shared().at("PropsString")));
}

TEST_P(OtherDoOptToBill, AConflictBecomesTheTextAndLeavesTheCode) {
  session.next_task = 0;
  EXPECT_FALSE(run(1));
  EXPECT_EQ(code(), 7);
  EXPECT_EQ(text(), "当前使用的功能与其他用户有冲突,目前无法使用!");
  EXPECT_EQ(session.server(side.sService).count(Member::CheckBillSimple), 0u);
  EXPECT_EQ(session.login().count(Member::CommitTask), 0u);
}

TEST_P(OtherDoOptToBill, AnErrorOfTheServiceBecomesTheTextAndGivesTheTaskBack) {
  session.server(side.sService).fails(Member::CheckBillSimple, -8, "服务中断");
  EXPECT_FALSE(run(1));
  EXPECT_EQ(code(), 7);
  EXPECT_EQ(text(), "服务中断");
  EXPECT_TRUE(session.held_tasks.empty());
  EXPECT_TRUE(session.log.empty());
}

TEST_P(OtherDoOptToBill, ATaskThatCouldNotBeGivenBackIsGivenBackAtTheEnd) {
  session.login().answers(Member::CommitTask, false);
  run(1);
  EXPECT_EQ(session.login().count(Member::CommitTask), 1u);
  plugin = nullptr;
  EXPECT_EQ(session.login().count(Member::CommitTask), 2u);
}

TEST_P(OtherDoOptToBill, CodeAndTextMayBeLeftOut) {
  EXPECT_TRUE(plugin->call(Member::DoOptToBill, side.nBillClass, 31, 1).as<bool>());
}

}  // namespace
}  // namespace arap::testing
