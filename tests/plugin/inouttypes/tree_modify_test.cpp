#include "plugin/inouttypes/type_fixture.h"

namespace arap::testing {
namespace {

class TreeModify : public TypeTest {
 protected:
  static std::vector<Box> not_on_a_type() { return box("请选择具体的需要修改的类别信息！"); }
};

TEST_F(TreeModify, FromTheGridTheHostOpensTheTypeUnderATaskThatStays) {
  for (const char* sGrid : {"grid", "GridResult"}) {
    point_at(12);
    focus(sGrid);
    EXPECT_FALSE(tree->click("mnuEditModify")) << sGrid;
  }
  EXPECT_TRUE(boxes().empty());
  EXPECT_EQ(session.held_tasks, (std::vector<std::int32_t>{502})) << "the earlier one went back";
}

TEST_F(TreeModify, TheTraceIsApproved) {
  point_at(12);
  EXPECT_FALSE(tree->click("mnuEditModify"));
  ExpectGolden("inouttypes", "modify");
}

TEST_F(TreeModify, FromTheTreeItIsRefusedAndTheTaskStaysHeld) {
  point_at(12);
  focus("tvwTree");
  EXPECT_TRUE(tree->click("mnuEditModify"));
  EXPECT_EQ(boxes(), not_on_a_type());
  EXPECT_EQ(session.held_tasks.size(), 1u);
  bill->fire(Event::AfterNewBill);
  EXPECT_TRUE(session.held_tasks.empty());
}

TEST_F(TreeModify, WithoutAFocusItIsRefused) {
  point_at(12);
  tree->active_control = {};
  EXPECT_TRUE(tree->click("mnuEditModify"));
  EXPECT_EQ(boxes(), not_on_a_type());
}

TEST_F(TreeModify, TheNameOfTheControlIsExact) {
  point_at(12);
  for (const char* sControl : {"Grid", "gridresult", "grid "}) {
    focus(sControl);
    session.platform.messages.clear();
    EXPECT_TRUE(tree->click("mnuEditModify")) << sControl;
    EXPECT_EQ(boxes(), not_on_a_type()) << sControl;
  }
}

TEST_F(TreeModify, ADisabledTypeIsRefusedUnderTheTitleOfModification) {
  types.at(12).bDiscontinued = true;
  point_at(12);
  EXPECT_TRUE(tree->click("mnuEditModify"));
  EXPECT_EQ(boxes(), box("该类别已经被禁用，请先反禁用该类别！", 64, "修改失败"));
  EXPECT_TRUE(session.held_tasks.empty());
}

TEST_F(TreeModify, WithoutACurrentTypeItIsGoneAlready) {
  tree->current_item = std::int32_t{0};
  EXPECT_TRUE(tree->click("mnuEditModify"));
  EXPECT_EQ(boxes(), box("该类别已不存在,请确定是否已经被删除！", 64, "修改失败"));
}

TEST_F(TreeModify, TheTaskOfAnotherUserIsToldAndTheStepsGoOn) {
  session.next_task = 0;
  point_at(12);
  EXPECT_TRUE(tree->click("mnuEditModify"));
  EXPECT_EQ(boxes(), box("当前使用的功能与其他用户有冲突,目前无法使用!"));
  focus("tvwTree");
  session.platform.messages.clear();
  EXPECT_TRUE(tree->click("mnuEditModify"));
  ASSERT_EQ(boxes().size(), 2u);
  EXPECT_EQ(boxes()[1].sText, "请选择具体的需要修改的类别信息！");
}

TEST_F(TreeModify, ATypeThatGoesBetweenTestAndLockIsTold) {
  ServerStub& server = session.server("NUVlpsArApBill.clsInOutType");
  server.on(Member::GetRPInOutTypeInfo, [&server](Arguments) -> Variant {
    const bool bFirst = server.count(Member::GetRPInOutTypeInfo) == 2;  // one came at the class's creation
    if (bFirst) return recordset({"FID", "FDiscontinued"}, {{std::int32_t{12}, false}});
    return recordset({"FID"});
  });
  point_at(12);
  EXPECT_TRUE(tree->click("mnuEditModify"));
  EXPECT_EQ(boxes(), box("数据可能已经被删除,请刷新!"));
  EXPECT_TRUE(session.held_tasks.empty());
}

TEST_F(TreeModify, AnErrorWithoutANumberOfTheLockIsNotTold) {
  session.login().fails(Member::TaskExec, 0, "no number");
  point_at(12);
  EXPECT_TRUE(tree->click("mnuEditModify"));
  EXPECT_TRUE(boxes().empty());
}

TEST_F(TreeModify, TheHeldTaskGoesBackWhenTheWindowEnds) {
  point_at(12);
  tree->click("mnuEditModify");
  ASSERT_EQ(session.held_tasks.size(), 1u);
  plugin = nullptr;
  EXPECT_TRUE(session.held_tasks.empty());
}

}  // namespace
}  // namespace arap::testing
