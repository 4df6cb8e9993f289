#include <algorithm>

#include "data/trace.h"
#include "desk/services/type_book.h"

namespace desk::testing {
namespace {

using TypeWindow = TypeBook;

TEST_F(TypeWindow, TheRootShowsTheBranchesAndHidesTheCommandsThatMakeAndChange) {
  EXPECT_EQ(window->selected_node(), 1000207);
  EXPECT_EQ(window->grid().size(), 2u);
  for (const char* sTool : {"mnuFileNewItem", "mnuEditModify", "mnuFileNewGroup", "mnuEditDelGroup", "mnuOption"})
    EXPECT_FALSE(window->bar().find_tool(sTool)->bVisible) << sTool;
  ASSERT_TRUE(window->select_node(kIncome));
  EXPECT_EQ(window->grid().size(), 2u);
  for (const char* sTool : {"mnuFileNewItem", "mnuEditModify"})
    EXPECT_TRUE(window->bar().find_tool(sTool)->bVisible) << sTool;
  EXPECT_FALSE(window->bar().find_tool("mnuFileNewGroup")->bVisible);
}

TEST_F(TypeWindow, ANewTypeUnderTheRootIsRefusedWhereverTheCommandComesFrom) {
  window->bar().find_tool("mnuFileNewItem")->bVisible = true;
  EXPECT_FALSE(window->press("mnuFileNewItem"));
  EXPECT_EQ(told(), Texts{"请选择具体的需要新增类别的节点（收入类别或支出类别）！"});
  EXPECT_EQ(window->bill(), nullptr);
}

TEST_F(TypeWindow, TheNextNewTypeOffersTheFollowingNumber) {
  begin(kExpense, "203", "邮费");
  ASSERT_TRUE(save());
  ASSERT_TRUE(window->bill()->press("mnuFileNew"));
  EXPECT_EQ(shown("FNumber"), "204");
  ASSERT_TRUE(window->press("mnuFileNewItem"));
  EXPECT_EQ(shown("FNumber"), "204") << "a bill opened from the tree knows it as well";
}

TEST_F(TypeWindow, ASavedTypeStandsInTheTreeAtOnce) {
  begin(kIncome, "103", "利息");
  const std::int32_t nBefore = window->refreshes();
  ASSERT_TRUE(save());
  EXPECT_GT(window->refreshes(), nBefore);
  EXPECT_EQ(window->grid().size(), 3u);
  ASSERT_NE(window->find_number("103"), nullptr);
}

TEST_F(TypeWindow, TheRefusalsOfTheSaveComeInTheirWords) {
  begin(kIncome, "201", "重号");
  EXPECT_FALSE(save());
  EXPECT_EQ(told(), Texts{"编码重复，请更改！"});
  fill("103.01", "无上级");
  EXPECT_FALSE(save());
  EXPECT_EQ(told(), Texts{"上级类别代码103 不存在！"});
  EXPECT_EQ(shown("FPreNumber"), "103");
  fill("101.02", "运费");
  EXPECT_FALSE(save());
  EXPECT_EQ(told(), Texts{"同级名称重复，不允许保存！"});
  fill("104", "运费");
  EXPECT_FALSE(save());
  EXPECT_EQ(told(), Texts{"名称重复，是否保存？"});
  session.platform().queue_answer(kButtonYes);
  EXPECT_TRUE(save());
  EXPECT_EQ(place("104"), "104 < 1, level 1, leaf");
}

TEST_F(TypeWindow, AParentInUseIsAskedAboutByItsName) {
  begin(kIncome, "102.01", "废品");
  EXPECT_FALSE(save());
  EXPECT_EQ(told(), Texts{"上级收支类别 其他 是明细,并已有业务发生,不能直接新建子收支类别。"
                          "是否将上级收支类别业务转到新建立的的收支类别上？"});
}

TEST_F(TypeWindow, AParentsNumberIsLockedAndADetailTypesNumberIsFree) {
  point_at("101");
  ASSERT_TRUE(window->press("mnuEditModify"));
  EXPECT_TRUE(window->bill()->locked("FNumber"));
  EXPECT_FALSE(window->bill()->locked("FName"));
  point_at("102");
  ASSERT_TRUE(window->press("mnuEditModify"));
  EXPECT_FALSE(window->bill()->locked("FNumber"));
  EXPECT_TRUE(window->bill()->locked("FPreNumber"));
}

TEST_F(TypeWindow, ModifyWithTheFocusOnTheTreeIsRefused) {
  point_at("102");
  window->focus(BaseControl::Tree);
  EXPECT_FALSE(window->press("mnuEditModify"));
  EXPECT_EQ(told(), Texts{"请选择具体的需要修改的类别信息！"});
  EXPECT_EQ(window->bill(), nullptr);
  window->focus(BaseControl::None);
  EXPECT_FALSE(window->press("mnuEditModify"));
}

TEST_F(TypeWindow, AModifiedTypeKeepsItsOwnNumber) {
  point_at("201");
  ASSERT_TRUE(window->press("mnuEditModify"));
  ASSERT_TRUE(window->bill()->type_field("FName", -1, "办公用品"));
  ASSERT_TRUE(save());
  EXPECT_EQ(window->find_number("201")->sName, "办公用品");
  EXPECT_TRUE(told().empty());
}

TEST_F(TypeWindow, AUsedTypeStaysAndAnUnusedOneGoes) {
  for (const char* sUsed : {"101", "101.01", "102"}) {
    point_at(sUsed);
    EXPECT_FALSE(window->press("mnuEditDel"));
    EXPECT_EQ(told(), Texts{"该类别具有下级节点或被单据使用，不允许删除！"}) << sUsed;
    EXPECT_EQ(tasks(), 0) << sUsed;
  }
  point_at("201");
  ASSERT_TRUE(window->press("mnuEditDel"));
  EXPECT_EQ(place("201"), "gone");
  EXPECT_EQ(window->find_number("201"), nullptr);
  EXPECT_EQ(window->current_item(), 0);
}

TEST_F(TypeWindow, WithoutACurrentTypeThereIsNothingToDelete) {
  ASSERT_TRUE(window->select_node(kExpense));
  EXPECT_FALSE(window->press("mnuEditDel"));
  EXPECT_EQ(told(), Texts{"请选择需要删除的具体类别！"});
  EXPECT_FALSE(window->press("mnuEditUse"));
}

TEST_F(TypeWindow, ADisabledTypeCanOnlyBeEnabledAgain) {
  point_at("202");
  ASSERT_TRUE(window->press("mnuEditUnuse"));
  EXPECT_EQ(place("202"), "202 < 2, level 1, leaf, disabled");
  for (const char* sTool : {"mnuEditUnuse", "mnuEditModify", "mnuEditDel"}) {
    EXPECT_FALSE(window->press(sTool));
    EXPECT_EQ(told(), Texts{"该类别已经被禁用，请先反禁用该类别！"}) << sTool;
  }
  ASSERT_TRUE(window->press("mnuEditUse"));
  EXPECT_EQ(place("202"), "202 < 2, level 1, leaf");
  EXPECT_TRUE(window->press("mnuEditModify"));
}

TEST_F(TypeWindow, ATypeThatAnotherUserHasDeletedIsTold) {
  point_at("202");
  book.database().exec("DELETE FROM t_RP_InOutType WHERE FID = 22");
  EXPECT_FALSE(window->press("mnuEditDel"));
  EXPECT_EQ(session.platform().messages().back().sTitle, "删除失败");
  EXPECT_EQ(told(), Texts{"该类别已不存在,请确定是否已经被删除！"});
}

TEST_F(TypeWindow, TheSmallBillHasNoCommandsOfABusinessBill) {
  begin(kIncome, "103", "利息");
  for (const char* sTool : {"mnuFilePrint", "mnuEditCopy", "mnuDataPre", "mnuCaculate", "mnuDataRefesh"})
    EXPECT_FALSE(window->bill()->press(sTool)) << sTool;
  TraceLog log;
  const TraceScope hearing(log);
  EXPECT_TRUE(window->bill()->press("mnuHelpFile"));
  const std::vector<std::string> aCalls = log.texts(TraceObserver::Kind::Call);
  EXPECT_EQ(std::ranges::count_if(
                aCalls, [](const std::string& sCall) { return sCall.find("\"RP1000207\"") != std::string::npos; }),
            1);
}

TEST_F(TypeWindow, AClosedWindowGivesTheTaskBackAndLetsThePluginGo) {
  point_at("202");
  ASSERT_TRUE(window->press("mnuEditModify"));
  EXPECT_EQ(tasks(), 1);
  window.reset();
  EXPECT_EQ(tasks(), 0);
}

TEST_F(TypeWindow, TheReadOnlyListShowsTheTypesAndChangesNothing) {
  const OpenBaseWindow view = open_type_view(session, "2026-11-21");
  ASSERT_TRUE(view->select_node(kIncome));
  EXPECT_EQ(view->grid().size(), 2u);
  ASSERT_TRUE(view->select_item(13));
  for (const char* sTool : {"mnuFileNewItem", "mnuEditModify", "mnuEditDel", "mnuEditUse", "mnuEditUnuse"})
    EXPECT_FALSE(view->press(sTool)) << sTool;
  EXPECT_FALSE(view->bar().find_band("mnuEdit")->bVisible);
  ASSERT_TRUE(view->press("mnuHelpDetail"));
  ASSERT_EQ(session.platform().help_files().size(), 1u);
  EXPECT_TRUE(session.platform().help_files()[0].ends_with("\\NUVV11.chm"));
}

// A second seat on the same book, at another machine.
TEST_F(TypeWindow, WhileOneSeatModifiesATypeASecondSeatIsRefused) {
  point_at("202");
  ASSERT_TRUE(window->press("mnuEditModify"));
  Session second(book.database(), "wang");
  second.platform().set_computer_name("SEAT-2");
  OpenBaseWindow other = open_type_window(second, "2026-11-21");
  ASSERT_TRUE(other->select_node(kExpense));
  ASSERT_TRUE(other->select_item(22));
  EXPECT_FALSE(other->press("mnuEditModify"));
  ASSERT_EQ(second.platform().messages().size(), 1u);
  EXPECT_NE(second.platform().messages()[0].sText.find("其他用户有冲突"), std::string::npos);
  EXPECT_FALSE(other->press("mnuEditDel")) << "without a word";
  EXPECT_EQ(second.platform().messages().size(), 1u);
  const Outcome disable = other->press("mnuEditUnuse");
  EXPECT_EQ(disable.sReason.find("该类别正由用户“li”使用。"), 0u) << disable.sReason;
  ASSERT_TRUE(other->select_item(21));
  EXPECT_TRUE(other->press("mnuEditModify")) << "another type is free";

  session.activate();
  window.reset();
  second.activate();
  ASSERT_TRUE(other->select_item(22));
  EXPECT_TRUE(other->press("mnuEditModify"));
  other.reset();
  session.activate();
  EXPECT_EQ(tasks(), 0);
}

}  // namespace
}  // namespace desk::testing
