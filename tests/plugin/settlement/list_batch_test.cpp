#include "plugin/settlement/list_fixture.h"

namespace arap::testing {
namespace {

/// The run over the selected bills and its display.
class ListBatch : public SettlementList {};
INSTANTIATE_BOTH_SIDES(ListBatch);

TEST_P(ListBatch, ThreeLinesOfOneBillRunOneOperationAndShowItsMessageInABox) {
  select_ready({5, 5, 5});
  session.simple_answers[5] = {0, "", "SK5"};
  list->click("Check");
  EXPECT_EQ(operations(), Lines{"5:1"});
  EXPECT_EQ(boxes(), notice("审核[编号:SK5]单据成功!"));
  EXPECT_TRUE(result_window().empty());
}

TEST_P(ListBatch, LinesOfABillThatReturnsRunItAgain) {
  select_ready({5, 6, 5});
  session.server(side.sService).on(Member::CheckBillSimple, [this](Arguments args) -> Variant {
    const std::int32_t nID = LongOf(Dictionary(args[0]).Value("InterID"_key));
    const bool bAgain = session.server(side.sService).count(Member::CheckBillSimple) == 3;
    return dictionary({{"Code", std::int32_t{bAgain ? -1 : 0}},
                       {"Description", bAgain ? "已经审核" : ""},
                       {"BillNo", "SK" + std::to_string(nID)}});
  });
  list->click("Check");
  EXPECT_EQ(operations(), (Lines{"5:1", "6:1", "5:1"}));
  EXPECT_EQ(result_window(), (Lines{"审核[编号:SK5]单据成功!|", "审核[编号:SK6]单据成功!|", "已经审核|"}));
}

TEST_P(ListBatch, ASubtotalLineStopsTheRunWhereItStandsAndNothingIsShown) {
  select_ready({5, 6, 7});
  // The line loses its id between the test of the rows and the run.
  session.server(side.sService).on(Member::CheckBillSimple, [this](Arguments) -> Variant {
    list->selection->items[1] = dictionary({{"FAmount", 1.0}});
    return dictionary({{"Code", std::int32_t{0}}, {"Description", ""}, {"BillNo", "5"}});
  });
  EXPECT_FALSE(list->click("Check"));
  EXPECT_EQ(operations(), Lines{"5:1"});
  EXPECT_EQ(box_count(), 0);
  EXPECT_TRUE(result_window().empty());
}

TEST_P(ListBatch, TheResultWindowHasOneColumnWithItsTitleAndWidth) {
  select_ready({5, 6});
  list->click("Check");
  ServerStub& grid = session.server("NUVDisplayer.DispBuilder");
  EXPECT_EQ(plain_number(grid.value(Member::Cols)), 1);
  EXPECT_EQ(plain_text(grid.value(Member::Titles)), "提示信息|");
  EXPECT_EQ(plain_number(grid.last(Member::SetColWidth)[0]), 1);
  EXPECT_EQ(plain_number(grid.last(Member::SetColWidth)[1]), 5000);
  EXPECT_EQ(plain_number(grid.last(Member::Show)[0]), 1);
}

TEST_P(ListBatch, AFailureOfOneBillDoesNotStopTheNext) {
  select_ready({5, 6, 7});
  session.simple_answers[5] = {1, "原因", "SK5"};
  session.simple_answers[6] = {-1, "状态已变", "SK6"};
  list->click("Check");
  EXPECT_EQ(operations(), (Lines{"5:1", "6:1", "7:1"}));
  EXPECT_EQ(result_window(),
            (Lines{"审核单据[SK5]失败!初始化审核信息时出错。原因|", "状态已变|", "审核[编号:7]单据成功!|"}));
}

TEST_P(ListBatch, ACodeWithoutATextRepeatsTheTextOfTheBillBefore) {
  select_ready({5, 6});
  session.simple_answers[6] = {5, "x", "SK6"};
  list->click("Check");
  EXPECT_EQ(result_window(), (Lines{"审核[编号:5]单据成功!|", "审核[编号:5]单据成功!|"}));
}

TEST_P(ListBatch, WithoutAnyTextNothingIsShown) {
  select_ready({5});
  session.simple_answers[5] = {5, "x", "SK5"};
  list->click("Check");
  EXPECT_EQ(box_count(), 0);
  EXPECT_TRUE(result_window().empty());
}

TEST_P(ListBatch, TheConflictOfOneBillIsThatBillsLine) {
  select_ready({5, 6, 7});
  session.login().on(Member::TaskExec,
                     [](Arguments args) { return Variant(std::int32_t{plain_number(args[6]) == 6 ? 0 : 900}); });
  session.login().answers(Member::CommitTask, true);
  list->click("Check");
  EXPECT_EQ(operations(), (Lines{"5:1", "7:1"}));
  EXPECT_EQ(result_window(), (Lines{"审核[编号:5]单据成功!|", "当前使用的功能与其他用户有冲突,目前无法使用!|",
                                    "审核[编号:7]单据成功!|"}));
}

TEST_P(ListBatch, EveryBillHasATaskOfItsOwnThatIsGivenBackAtOnce) {
  select_ready({5, 6}, 1);
  list->click("UnCheck");
  EXPECT_EQ(session.login().count(Member::TaskExec), 2u);
  EXPECT_EQ(session.login().count(Member::CommitTask), 2u);
  EXPECT_TRUE(session.held_tasks.empty());
  const auto aArgs = session.login().last(Member::TaskExec);
  EXPECT_EQ(plain_number(aArgs[0]), 21);
  EXPECT_EQ(plain_text(aArgs[1]), pick("AR0227", "AP0227"));
  EXPECT_EQ(plain_number(aArgs[6]), 6);
}

TEST_P(ListBatch, TheServiceGetsTheClassOfTheList) {
  select_ready({5});
  list->server->property(Member::ClassTypeId, 4711);
  list->click("Check");
  const Dictionary oData(session.server(side.sService).last(Member::CheckBillSimple)[0]);
  EXPECT_EQ(plain_number(oData.Value("TransType"_key)), 4711);
  EXPECT_NE(plain_text(oData.Value("PropsString"_key)).find("UserName=tester"), std::string::npos);
}

TEST_P(ListBatch, EveryOperationIsLogged) {
  select_ready({5, 6, 7});
  session.simple_answers[5] = {0, "", "SK5"};
  session.simple_answers[6] = {1, "", "SK6"};
  session.simple_answers[7] = {-1, "不行", "SK7"};
  list->click("Check");
  using Line = TestSession::LogLine;
  std::vector<Line> aExpected{{pick("RP1000201A", "RP1000202A"), 1, "审核[编号:SK5]单据成功!"}};
  // Logged like a success on the receipt side.
  if (receive()) aExpected.push_back({"RP1000201A", 1, "审核单据[SK6]失败!初始化审核信息时出错。"});
  aExpected.push_back({"RP1000202A", -1, "不行"});
  EXPECT_EQ(session.log, aExpected);
}

TEST_P(ListBatch, FiveHundredBillsGiveFiveHundredLines) {
  std::vector<std::int32_t> aBills;
  for (std::int32_t nBillID = 1; nBillID <= 500; ++nBillID) aBills.push_back(nBillID);
  select_ready(aBills);
  list->click("Check");
  EXPECT_EQ(result_window().size(), 500u);
  EXPECT_EQ(session.log.size(), 500u);
  EXPECT_TRUE(session.held_tasks.empty());
}

}  // namespace
}  // namespace arap::testing
