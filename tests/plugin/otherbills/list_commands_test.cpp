#include "other_list_fixture.h"

namespace arap::testing {
namespace {

class OtherList : public OtherListTest {};
INSTANTIATE_OTHER_SIDES(OtherList);

/// A command of the list that works on the bills: its right, its status and its words.
struct Operation {
  const char* sTool;
  std::int32_t nRight;
  std::int32_t nGoodStatus;
  std::int32_t nBadStatus;
  const char* sRefusal;
  const char* sVerb;
  bool bAlwaysCancels;
};
const std::vector<Operation> kOperations{
    {"mnuEditDelete", 65536, 0, 1, "不能删除已经审核的单据!", "删除", true},
    {"Check", 1, 0, 1, "不能审核已经审核的单据!", "审核", false},
    {"UnCheck", 4096, 1, 0, "只能反审核已经审核的单据!", "反审核", false},
};

TEST_P(OtherList, EachOperationActsOnASelectedBillAndTellsItInANotice) {
  for (const Operation& operation : kOperations) {
    list->selection->items.clear();
    session.platform.messages.clear();
    select(31, operation.nGoodStatus);
    EXPECT_EQ(list->click(operation.sTool), operation.bAlwaysCancels) << operation.sTool;
    EXPECT_EQ(boxes().back(), notice(std::string(operation.sVerb) + "[编号:31]单据成功!").back());
    EXPECT_FALSE(grid_shown());
  }
  EXPECT_EQ(operated(), (Ids{31, 31, 31}));
  EXPECT_TRUE(session.held_tasks.empty());
}

TEST_P(OtherList, BothListsAskForTheReceivablesClass) {
  for (const Operation& operation : kOperations) {
    std::vector<std::int32_t> aAsked;
    session.access = [&](std::int32_t nSubSystem, std::int32_t nObject, std::int32_t nRight) {
      aAsked = {nSubSystem, nObject, nRight};
      return false;
    };
    select(31, operation.nGoodStatus);
    EXPECT_TRUE(list->click(operation.sTool));
    EXPECT_EQ(aAsked, (std::vector<std::int32_t>{1010, 1000205, operation.nRight})) << operation.sTool;
  }
  EXPECT_EQ(operated(), Ids());
}

TEST_P(OtherList, AStatusThatForbidsTheOperationRefusesTheWholeSelection) {
  for (const Operation& operation : kOperations) {
    list->selection->items.clear();
    session.platform.messages.clear();
    select(31, operation.nGoodStatus);
    select(32, operation.nBadStatus);
    EXPECT_TRUE(list->click(operation.sTool)) << operation.sTool;
    EXPECT_EQ(boxes(), notice(operation.sRefusal));
  }
  EXPECT_EQ(operated(), Ids());
}

TEST_P(OtherList, AMissingStatusCountsAsUnchecked) {
  select(31, Null{});
  EXPECT_TRUE(list->click("UnCheck"));
  EXPECT_EQ(boxes(), notice("只能反审核已经审核的单据!"));
  EXPECT_FALSE(list->click("Check"));
  EXPECT_EQ(operated(), Ids{31});
}

TEST_P(OtherList, ABillThatIsGoneIsTold) {
  list->details[31] = recordset({"FStatus", "FDate", "FVoucherId"});
  select_line(31);
  EXPECT_TRUE(list->click("Check"));
  EXPECT_TRUE(list->click("mnuEditDelete"));
  const Box gone{"数据可能已经被删除,请刷新!", 64, "青柚提示"};
  EXPECT_EQ(boxes(), (std::vector<Box>{gone, gone}));
}

TEST_P(OtherList, WithoutASelectionNothingIsDone) {
  for (const char* sTool : {"mnuEditDelete", "Check", "UnCheck"}) EXPECT_TRUE(list->click(sTool)) << sTool;
  EXPECT_TRUE(boxes().empty());
  EXPECT_EQ(operated(), Ids());
}

TEST_P(OtherList, ASubtotalLineEndsTheTestsInSilence) {
  select(31, 0);
  select_subtotal();
  EXPECT_TRUE(list->click("Check"));
  EXPECT_TRUE(list->click("mnuEditDelete"));
  EXPECT_FALSE(list->click("UnCheck"));
  EXPECT_TRUE(boxes().empty());
  EXPECT_EQ(operated(), Ids());
}

TEST_P(OtherList, ADeleteAsksFirstAndEndsWithAnyAnswerButYes) {
  select(31, 0);
  for (const int nAnswer : {7, 2}) {
    session.platform.messages.clear();
    session.platform.answer(nAnswer);
    EXPECT_TRUE(list->click("mnuEditDelete"));
    EXPECT_EQ(boxes(), box("是否删除数据 ?", 36));
  }
  EXPECT_EQ(operated(), Ids());
  EXPECT_FALSE(refreshed());
}

TEST_P(OtherList, ADeleteRunsStepByStep) {
  select(31, 0);
  list->click("mnuEditDelete");
  expect_golden("list_delete");
}

TEST_P(OtherList, CheckUncheckAndVoucherRunStepByStep) {
  struct Example {
    const char* sTool;
    std::int32_t nStatus;
    const char* sGolden;
  };
  for (const Example& example :
       {Example{"Check", 0, "list_check"}, {"UnCheck", 1, "list_uncheck"}, {"Voucher", 1, "list_voucher"}}) {
    list->selection->items.clear();
    for (const std::int32_t nBillID : {5, 5, 6}) select(nBillID, example.nStatus, "2024-01-15", nBillID * 11);
    session.next_task = 501;
    trace().clear();
    list->click(example.sTool);
    expect_golden(example.sGolden);
  }
}

TEST_P(OtherList, ThreeLinesOfTwoBillsAreTwoOperationsAndTwoLinesInTheGrid) {
  stored(5, 0);
  stored(6, 0);
  session.simple_answers[6] = {1, "原因", "QT6"};
  select_line(5);
  select_line(5);
  select_line(6);
  EXPECT_FALSE(list->click("Check"));
  EXPECT_EQ(operated(), (Ids{5, 6}));
  EXPECT_EQ(grid_lines(),
            (std::vector<std::string>{"审核[编号:5]单据成功!|", "审核单据[QT6]失败!初始化审核信息时出错。原因|"}));
  EXPECT_TRUE(grid_shown());
  EXPECT_TRUE(boxes().empty());
  EXPECT_EQ(plain_text(grid().value(Member::Titles)), "提示信息|");
  EXPECT_EQ(plain_number(grid().value(Member::Cols)), 1);
}

TEST_P(OtherList, ABillThatReturnsLaterIsOperatedOnAgain) {
  stored(5, 0);
  stored(6, 0);
  for (const int nBillID : {5, 6, 5}) select_line(nBillID);
  list->click("Check");
  EXPECT_EQ(operated(), (Ids{5, 6, 5}));
}

TEST_P(OtherList, AConflictIsTheLineOfItsBillAndTheOthersGoOn) {
  select(5, 0);
  select(6, 0);
  session.login().on(Member::TaskExec, [this](Arguments args) {
    const bool bTaken = plain_number(args[6]) == 5;
    if (!bTaken) session.held_tasks.push_back(900);
    return Variant(bTaken ? 0 : 900);
  });
  list->click("Check");
  EXPECT_EQ(grid_lines(),
            (std::vector<std::string>{"当前使用的功能与其他用户有冲突,目前无法使用!|", "审核[编号:6]单据成功!|"}));
  EXPECT_TRUE(session.held_tasks.empty());
}

TEST_P(OtherList, AnEmptyLastTextShowsNothing) {
  select(5, 0);
  session.simple_answers[5] = {-1, "", ""};
  EXPECT_FALSE(list->click("Check"));
  EXPECT_TRUE(boxes().empty());
  EXPECT_FALSE(grid_shown());
}

TEST_P(OtherList, TheListIsRefreshedUnlessTheHostDoesItByItself) {
  select(5, 0);
  list->click("Check");
  EXPECT_EQ(trace().lines_with_any({"ListForm."}),
            (std::vector<std::string>{"ListForm.RefreshList(True)", "ListForm.letmessage()"}));
  session.system_values[{"IC", "RefreshAfterAdd"}] = "1";
  list->click("Check");
  list->click("mnuEditDelete");
  EXPECT_EQ(list->form->count(Member::RefreshList), 1u);
}

TEST_P(OtherList, OneEarlyBillRefusesTheUncheckOfTheWholeSelectionWithAWarning) {
  select(5, 1, "2024-01-01");
  select(6, 1, "2023-12-31");
  EXPECT_TRUE(list->click("UnCheck"));
  EXPECT_EQ(boxes(), warning("不能反审核以前期间的单据，反审核失败。"));
  EXPECT_EQ(operated(), Ids());
}

TEST_P(OtherList, ThePeriodIsTestedBeforeTheStatus) {
  select(5, 0, "2023-12-31");
  EXPECT_TRUE(list->click("UnCheck"));
  EXPECT_EQ(boxes(), warning("不能反审核以前期间的单据，反审核失败。"));
}

TEST_P(OtherList, OtherCommandsAreTheHosts) {
  select(5, 0);
  for (const char* sTool : {"mnuEditModify", "mnuFileNew", "mnuEditCopy"}) EXPECT_FALSE(list->click(sTool)) << sTool;
  EXPECT_EQ(operated(), Ids());
  EXPECT_TRUE(boxes().empty());
}

TEST_P(OtherList, AnErrorOfTheListServerPassesToTheHostAsItCame) {
  select(5, 0);
  list->server->fails(Member::GetBillDetail, 5001, "连接中断");
  for (const char* sTool : {"mnuEditDelete", "Check", "UnCheck", "Voucher"}) {
    try {
      list->click(sTool);
      FAIL() << sTool;
    } catch (const AutomationError& error) {
      EXPECT_EQ(error.number(), 5001);
    }
  }
  EXPECT_TRUE(boxes().empty());
}

}  // namespace
}  // namespace arap::testing
