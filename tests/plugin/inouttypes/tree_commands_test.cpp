#include "plugin/inouttypes/type_fixture.h"

namespace arap::testing {
namespace {

constexpr std::int32_t kRoot = 1000207;

class TreeCommands : public TypeTest {
 protected:
  /// The host tells the group; it may put two or three values before the id.
  void select_group(std::int32_t nID, std::size_t nBefore = 3) {
    std::vector<Variant> aArgs(nBefore, Variant(std::int32_t{77}));
    aArgs.emplace_back(nID);
    aArgs.emplace_back("name");
    tree->fire(Event::ClassGroupSelected, aArgs);
  }
};

TEST_F(TreeCommands, TheTreeLearnsItsRootWithTheMenu) {
  tree->fire(Event::MenuBarInitialize, {tree->bar});
  EXPECT_EQ(trace().lines(), (Lines{"BaseClassEvent.SetRootNode(1000207, 1000207, 1000207, \"\")"}));
}

TEST_F(TreeCommands, GroupsAndOptionsAreHidden) {
  tree->fire(Event::BarInitialize, {tree->bar});
  EXPECT_EQ(trace().lines(), (Lines{"Bar.mnuFileNewGroup.Visible = False", "Bar.mnuEditDelGroup.Visible = False",
                                    "Bar.mnuOption.Visible = False"}));
}

TEST_F(TreeCommands, ABarThatLacksOneOfThemStillHidesTheOthers) {
  tree->fire(Event::BarInitialize, {tree->bar});
  const Lines aFull = trace().lines();
  for (const char* sTool : {"mnuFileNewGroup", "mnuEditDelGroup", "mnuOption"}) {
    tree->bar = TestBar::of_type_window();
    tree->bar->remove(sTool);
    trace().clear();
    tree->fire(Event::BarInitialize, {tree->bar});
    Lines aExpected = aFull;
    EXPECT_EQ(std::erase(aExpected, "Bar." + std::string(sTool) + ".Visible = False"), 1u) << sTool;
    EXPECT_EQ(trace().lines(), aExpected) << sTool;
  }
}

TEST_F(TreeCommands, AtTheRootNewAndModifyAreHiddenAtEveryOtherNodeShown) {
  for (const std::size_t nBefore : {std::size_t{2}, std::size_t{3}}) {
    select_group(kRoot, nBefore);
    EXPECT_FALSE(tree->bar->tool("mnuFileNewItem").visible());
    EXPECT_FALSE(tree->bar->tool("mnuEditModify").visible());
    select_group(11, nBefore);
    EXPECT_TRUE(tree->bar->tool("mnuFileNewItem").visible());
    EXPECT_TRUE(tree->bar->tool("mnuEditModify").visible());
  }
}

TEST_F(TreeCommands, TheNewCommandReachedAtTheRootIsRefused) {
  tree->selected_node = kRoot;
  EXPECT_TRUE(tree->click("mnuFileNewItem"));
  EXPECT_EQ(boxes(), box("请选择具体的需要新增类别的节点（收入类别或支出类别）！"));
}

TEST_F(TreeCommands, TheNewCommandAtABranchIsTheHosts) {
  for (const std::int32_t nNode : {0, 1, 11}) {
    tree->selected_node = nNode;
    EXPECT_FALSE(tree->click("mnuFileNewItem")) << nNode;
  }
  EXPECT_TRUE(boxes().empty());
}

TEST_F(TreeCommands, AUsableTypeIsDisabledByTheHost) {
  point_at(12);
  EXPECT_FALSE(tree->click("mnuEditUnuse"));
  EXPECT_TRUE(boxes().empty());
  EXPECT_FALSE(trace().has("TaskExec"));
}

TEST_F(TreeCommands, ADisabledTypeIsNotDisabledAgain) {
  types.at(12).bDiscontinued = true;
  point_at(12);
  EXPECT_TRUE(tree->click("mnuEditUnuse"));
  EXPECT_EQ(boxes(), box("该类别已经被禁用，请先反禁用该类别！", 64, "操作失败"));
}

TEST_F(TreeCommands, ATypeThatIsGoneIsNotDisabled) {
  point_at(99);
  EXPECT_TRUE(tree->click("mnuEditUnuse"));
  EXPECT_EQ(boxes(), box("该类别已不存在,请确定是否已经被删除！", 64, "操作失败"));
}

TEST_F(TreeCommands, ATypeWithoutTheFlagIsUsableAndOneWithAnUnreadableFlagIsNot) {
  ServerStub& server = session.server("NUVlpsArApBill.clsInOutType");
  point_at(12);
  const std::vector<std::pair<Variant, bool>> aCases{
      {Null{}, false},         {Variant(), false}, {std::int32_t{0}, false},
      {std::int32_t{1}, true}, {true, true},       {"no flag", true}};
  for (const auto& [vFlag, bRefused] : aCases) {
    server.answers(Member::GetRPInOutTypeInfo, recordset({"FID", "FDiscontinued"}, {{std::int32_t{12}, vFlag}}));
    EXPECT_EQ(tree->click("mnuEditUnuse"), bRefused) << show(vFlag);
  }
}

TEST_F(TreeCommands, EnablingHasNoRule) {
  types.at(12).bDiscontinued = true;
  point_at(12);
  EXPECT_FALSE(tree->click("mnuEditUse"));
  EXPECT_EQ(trace().lines(), Lines{});
}

TEST_F(TreeCommands, TheHelpOpensTheTopicOfTheTypes) {
  EXPECT_FALSE(tree->click("mnuHelpDetail"));
  EXPECT_EQ(trace().lines(), (Lines{"CreateObject(\"NUVCHMResTool.ClsCHMHelp\")",
                                    "NUVCHMResTool.ClsCHMHelp.ShowHelp(\"NUVV11.chm\", \"RP1000207\", 0)"}));
}

TEST_F(TreeCommands, AnErrorOfTheHelpStopsTheHostWithoutAMessage) {
  session.remove_server("NUVCHMResTool.ClsCHMHelp");
  EXPECT_TRUE(tree->click("mnuHelpDetail"));
  EXPECT_TRUE(boxes().empty());
}

TEST_F(TreeCommands, EveryOtherKeyIsTheHostsAlone) {
  for (const char* sTool : {"mnuFilePrint", "mnuDataFind", "mnuEditDelGroup", ""}) {
    EXPECT_FALSE(tree->click(sTool)) << sTool;
  }
  EXPECT_EQ(trace().lines(), Lines{});
}

TEST_F(TreeCommands, CommandKeysDoNotDependOnCase) {
  tree->selected_node = kRoot;
  EXPECT_TRUE(tree->click("MNUFILENEWITEM"));
}

TEST_F(TreeCommands, AfterTheDataTheCacheStandsOnTheCurrentType) {
  auto all = recordset({"FID", "FParentid"}, {{std::int32_t{11}, std::int32_t{1}}, {std::int32_t{12}, Null{}}});
  session.server("NUVlpsArApBill.clsInOutType").answers(Member::GetRPInOutTypeInfo, all);
  plugin = CreatePublicObject("NUVARAPBillInterface.clsRPInOutType");
  plugin->call(Member::Show, tree);
  for (const std::int32_t nID : {11, 12, 99, 0}) {
    tree->current_item = nID;
    tree->fire(Event::AfterGetData);
    EXPECT_EQ(all->filter(), "FId='" + std::to_string(nID) + "'");
  }
}

TEST_F(TreeCommands, OtherEventsOfTheTreeAreNotHeard) {
  tree->fire(Event::RefreshList);
  EXPECT_EQ(trace().lines(), Lines{});
}

}  // namespace
}  // namespace arap::testing
