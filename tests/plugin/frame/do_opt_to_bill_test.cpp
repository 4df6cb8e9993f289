#include "plugin/frame/bill_class_fixture.h"

/// One operation on one bill by its id: the same in all four bill classes, but for their names and their log.
namespace arap::testing {
namespace {

class DoOptToBill : public BillClassTest {
 protected:
  using Log = TestSession::LogLine;

  bool run(std::int32_t nCheckType) {
    args = {names.nBillClass, std::int32_t{31}, nCheckType, std::int16_t{7}, "before"};
    return plugin->invoke(Member::DoOptToBill, Access::Call, args).as<bool>();
  }
  int code() const { return args[3].as<std::int16_t>(); }
  std::string text() const { return plain_text(args[4]); }

  std::array<Variant, 5> args;
};
INSTANTIATE_BILL_CLASSES(DoOptToBill);

TEST_P(DoOptToBill, ASuccessIsToldAndLoggedUnderATask) {
  session.simple_answers[31] = {0, "完成", "QT31"};
  EXPECT_TRUE(run(1));
  EXPECT_EQ(code(), 0);
  EXPECT_EQ(text(), "审核[编号:QT31]单据成功!完成");
  EXPECT_EQ(session.log, (std::vector<Log>{{names.sDoneLog, 1, text()}}));
  EXPECT_EQ(session.login().count(Member::TaskExec), 1u);
  EXPECT_TRUE(session.held_tasks.empty());
}

TEST_P(DoOptToBill, AFailureIsToldWithItsReasonAndLoggedAsTheClassLogsIt) {
  session.simple_answers[31] = {1, "原因", "QT31"};
  EXPECT_FALSE(run(0));
  EXPECT_EQ(code(), 1);
  EXPECT_EQ(text(), "删除单据[QT31]失败!初始化审核信息时出错。原因");
  std::vector<Log> aExpected{{names.sFailedLog, names.nFailedResult, text()}};
  if (*names.sFailedLog == '\0') aExpected.clear();
  EXPECT_EQ(session.log, aExpected);
  EXPECT_TRUE(session.held_tasks.empty());
}

TEST_P(DoOptToBill, ARefusalIsTheServicesTextAlone) {
  session.simple_answers[31] = {-1, "状态不对", "QT31"};
  EXPECT_FALSE(run(2));
  EXPECT_EQ(code(), -1);
  EXPECT_EQ(text(), "状态不对");
  EXPECT_EQ(session.log, (std::vector<Log>{{names.sRefusedLog, -1, "状态不对"}}));
  EXPECT_TRUE(session.held_tasks.empty());
}

TEST_P(DoOptToBill, AnotherCodeLeavesTheTextAloneAndLogsNothing) {
  session.simple_answers[31] = {5, "x", "y"};
  EXPECT_FALSE(run(1));
  EXPECT_EQ(code(), 5);
  EXPECT_EQ(text(), "before");
  EXPECT_TRUE(session.log.empty());
  EXPECT_TRUE(session.held_tasks.empty());
}

TEST_P(DoOptToBill, ACodeBeyondSixteenBitsIsAnErrorOfThatBill) {
  session.simple_answers[31] = {40000, "x", "y"};
  EXPECT_FALSE(run(1));
  EXPECT_EQ(code(), 7);
  EXPECT_NE(text(), "before");
  EXPECT_TRUE(session.held_tasks.empty());
}

TEST_P(DoOptToBill, EachOperationTakesItsOwnFunctionOnTheBill) {
  for (std::int32_t nCheckType = 0; nCheckType < 3; ++nCheckType) {
    run(nCheckType);
    const auto aTask = session.login().last(Member::TaskExec);
    ASSERT_EQ(aTask.size(), 7u);
    EXPECT_EQ(plain_number(aTask[0]), 21);
    EXPECT_EQ(plain_text(aTask[1]), names.aTaskCodes[static_cast<std::size_t>(nCheckType)]);
    EXPECT_EQ(plain_number(aTask[6]), 31);
  }
}

TEST_P(DoOptToBill, AnUnknownOperationHasNoVerbAndNoTask) {
  for (const std::int32_t nCheckType : {3, 9, -1}) {
    EXPECT_TRUE(run(nCheckType));
    EXPECT_EQ(text(), "[编号:31]单据成功!");
  }
  EXPECT_EQ(session.login().count(Member::TaskExec), 0u);
  EXPECT_EQ(session.login().count(Member::CommitTask), 0u);
}

TEST_P(DoOptToBill, TheServiceGetsTheOperationAndTheProps) {
  run(2);
  const auto aArgs = service().last(Member::CheckBillSimple);
  const auto& oData = static_cast<const TestDictionary&>(*aArgs.at(0).object());
  EXPECT_EQ(oData.size(), 4u);
  EXPECT_EQ(plain_number(oData.at("TransType")), names.nBillClass);
  EXPECT_EQ(plain_number(oData.at("InterID")), 31);
  EXPECT_EQ(plain_number(oData.at("CheckType")), 2);
  EXPECT_EQ(plain_text(oData.at("PropsString")), plain_text(session.shared().at("PropsString")));
}

TEST_P(DoOptToBill, AConflictBecomesTheTextAndLeavesTheCode) {
  session.next_task = 0;
  EXPECT_FALSE(run(1));
  EXPECT_EQ(code(), 7);
  EXPECT_EQ(text(), "当前使用的功能与其他用户有冲突,目前无法使用!");
  EXPECT_EQ(service().count(Member::CheckBillSimple), 0u);
  EXPECT_EQ(session.login().count(Member::CommitTask), 0u);
}

TEST_P(DoOptToBill, AnErrorOfTheServiceBecomesTheTextAndGivesTheTaskBack) {
  service().fails(Member::CheckBillSimple, -8, "服务中断");
  EXPECT_FALSE(run(1));
  EXPECT_EQ(code(), 7);
  EXPECT_EQ(text(), "服务中断");
  EXPECT_TRUE(session.held_tasks.empty());
  EXPECT_EQ(session.login().count(Member::CommitTask), 1u);
  EXPECT_TRUE(session.log.empty());
}

TEST_P(DoOptToBill, ATaskThatCouldNotBeGivenBackIsGivenBackAtTheEnd) {
  session.login().answers(Member::CommitTask, false);
  run(1);
  EXPECT_EQ(session.login().count(Member::CommitTask), 1u);
  plugin = nullptr;
  EXPECT_EQ(session.login().count(Member::CommitTask), 2u);
}

TEST_P(DoOptToBill, CodeAndTextMayBeLeftOut) {
  EXPECT_TRUE(plugin->call(Member::DoOptToBill, names.nBillClass, 31, 1).as<bool>());
}

TEST_P(DoOptToBill, TheAnswerStandsInASixthArgumentToo) {
  std::array<Variant, 6> aSix{names.nBillClass, std::int32_t{31}, std::int32_t{1}, std::int16_t{0}, "", 0};
  plugin->invoke(Member::DoOptToBill, Access::Call, aSix);
  EXPECT_TRUE(aSix[5].as<bool>());
  session.simple_answers[31] = {-1, "", ""};
  plugin->invoke(Member::DoOptToBill, Access::Call, aSix);
  EXPECT_FALSE(aSix[5].as<bool>());
}

}  // namespace
}  // namespace arap::testing
