#include "plugin/inouttypes/type_fixture.h"

namespace arap::testing {
namespace {

class TreeDelete : public TypeTest {};

TEST_F(TreeDelete, AFreeTypeIsLeftToTheHostUnderATaskThatGoesBack) {
  point_at(12);
  EXPECT_FALSE(tree->click("mnuEditDel"));
  EXPECT_TRUE(boxes().empty());
  EXPECT_TRUE(session.held_tasks.empty());
  ExpectGolden("inouttypes", "delete");
}

TEST_F(TreeDelete, WithoutACurrentTypeTheUserIsAskedToChooseOne) {
  for (const std::int32_t nID : {0, -1}) {
    session.platform.messages.clear();
    trace().clear();
    tree->current_item = nID;
    EXPECT_TRUE(tree->click("mnuEditDel"));
    EXPECT_EQ(boxes(), box("请选择需要删除的具体类别！"));
    EXPECT_FALSE(trace().has("clsInOutType"));
  }
}

TEST_F(TreeDelete, ATypeInUseIsRefusedAndTheTaskIsReleased) {
  types.at(12).bUsed = true;
  point_at(12);
  EXPECT_TRUE(tree->click("mnuEditDel"));
  EXPECT_EQ(boxes(), box("该类别具有下级节点或被单据使用，不允许删除！"));
  EXPECT_TRUE(session.held_tasks.empty());
  EXPECT_GT(trace().position("Login.CommitTask"), trace().position("MsgBox"));
}

TEST_F(TreeDelete, ATypeRemovedByAnotherUserIsToldUnderTheTitleOfDeletion) {
  types.erase(12);
  point_at(12);
  EXPECT_TRUE(tree->click("mnuEditDel"));
  EXPECT_EQ(boxes(), box("该类别已不存在,请确定是否已经被删除！", 64, "删除失败"));
  EXPECT_FALSE(trace().has("TaskExec"));
}

TEST_F(TreeDelete, ADisabledTypeIsRefusedUnderTheTitleOfDeletion) {
  types.at(12).bDiscontinued = true;
  point_at(12);
  EXPECT_TRUE(tree->click("mnuEditDel"));
  EXPECT_EQ(boxes(), box("该类别已经被禁用，请先反禁用该类别！", 64, "删除失败"));
}

TEST_F(TreeDelete, TheTaskOfAnotherUserStopsTheHostWithoutAMessage) {
  session.next_task = 0;
  point_at(12);
  EXPECT_TRUE(tree->click("mnuEditDel"));
  EXPECT_TRUE(boxes().empty());
  EXPECT_FALSE(trace().has("CheckRPInOutTypeUsed"));
  EXPECT_FALSE(trace().has("CommitTask"));
}

TEST_F(TreeDelete, AnErrorOfTheQuestionReleasesTheTaskAndStopsTheHostWithoutAMessage) {
  session.server("NUVlpsArApBill.clsInOutType").fails(Member::CheckRPInOutTypeUsed, -5, "gone");
  point_at(12);
  EXPECT_TRUE(tree->click("mnuEditDel"));
  EXPECT_TRUE(boxes().empty());
  EXPECT_TRUE(session.held_tasks.empty());
}

TEST_F(TreeDelete, AnErrorOfTheFirstReadStopsTheHostWithoutAMessage) {
  session.server("NUVlpsArApBill.clsInOutType").fails(Member::GetRPInOutTypeInfo, -5, "gone");
  point_at(12);
  EXPECT_TRUE(tree->click("mnuEditDel"));
  EXPECT_TRUE(boxes().empty());
  EXPECT_FALSE(trace().has("TaskExec"));
}

TEST_F(TreeDelete, OfSeveralFaultsTheFirstInOrderAnswersAlone) {
  // 1 no current type, 2 gone, 4 disabled, 8 in use: what stands behind a fault isn't even asked.
  const std::vector<std::vector<Box>> aAnswers{
      box("请选择需要删除的具体类别！"), box("该类别已不存在,请确定是否已经被删除！", 64, "删除失败"),
      box("该类别已经被禁用，请先反禁用该类别！", 64, "删除失败"), box("该类别具有下级节点或被单据使用，不允许删除！")};
  for (unsigned nSet = 1; nSet < 16; ++nSet) {
    types.types = TypeTable::standard();
    types.at(12).bUsed = (nSet & 8) != 0;
    types.at(12).bDiscontinued = (nSet & 4) != 0;
    if ((nSet & 2) != 0) types.erase(12);
    point_at((nSet & 1) != 0 ? 0 : 12);
    session.platform.messages.clear();
    EXPECT_TRUE(tree->click("mnuEditDel")) << nSet;
    std::size_t nFirst = 0;
    while ((nSet >> nFirst & 1u) == 0) ++nFirst;
    EXPECT_EQ(boxes(), aAnswers[nFirst]) << nSet;
    EXPECT_TRUE(session.held_tasks.empty()) << nSet;
  }
}

}  // namespace
}  // namespace arap::testing
