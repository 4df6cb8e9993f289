#include <QLabel>
#include <QMessageBox>

#include "type_world.h"

namespace desk::testing {
namespace {

using Texts = std::vector<std::string>;

class TypesRoom : public ::testing::Test {
 protected:
  TypesRoom() { user.types(); }
  /// Three types of income on the top, by the numbers that the bill proposes.
  void make_top() {
    user.go_to_node("1");
    user.in_next_record([](QDialog& dialog) {
      TypeUser::fill(dialog, "FNumber", "101");
      TypeUser::fill(dialog, "FName", "工程收入");
      TypeUser::save(dialog);
      TypeUser::next(dialog);
      EXPECT_EQ(TypeUser::text(dialog, "FNumber"), "102");
      TypeUser::fill(dialog, "FName", "设计收入");
      TypeUser::save(dialog);
      TypeUser::leave(dialog);
    });
    user.key(Qt::Key_N, Qt::ControlModifier);
  }

  TypeUser user;
};

TEST_F(TypesRoom, UnderTheRootStandTheBranchesAndNothingCanBeMadeThere) {
  EXPECT_EQ(user.node(), "收支类别");
  EXPECT_EQ(user.types().grid().model().rowCount(), 2);
  EXPECT_FALSE(user.types().bars().action("mnuFileNewItem")->isVisible());
  EXPECT_FALSE(user.types().bars().action("mnuEditModify")->isVisible());
  user.go_to_node("2");
  EXPECT_TRUE(user.types().bars().action("mnuFileNewItem")->isVisible());
  EXPECT_TRUE(user.types().bars().action("mnuEditModify")->isVisible());
  EXPECT_FALSE(user.types().bars().action("mnuFileNewGroup")->isVisible());
  EXPECT_EQ(user.types().grid().model().rowCount(), 2);
}

TEST_F(TypesRoom, HelpThatIsntThereTellsWhereItIsLookedFor) {
  QString sText;
  user.in_next_dialog([&](QDialog& dialog) {
    if (const auto* pBox = qobject_cast<QMessageBox*>(&dialog)) sText = pBox->text();
    dialog.accept();
  });
  user.key(Qt::Key_F1);
  EXPECT_TRUE(sText.contains(QStringLiteral("/NUVV11.chm"))) << utf8(sText);
}

TEST_F(TypesRoom, ATreeOfThreeLevelsGrowsByProposedNumbers) {
  make_top();
  user.in_next_record([this](QDialog& dialog) {
    EXPECT_EQ(TypeUser::text(dialog, "FNumber"), "103") << "a bill opened from the tree knows the last number as well";
    TypeUser::fill(dialog, "FNumber", "101.01");
    TypeUser::fill(dialog, "FName", "土建");
    TypeUser::save(dialog);
    TypeUser::next(dialog);
    EXPECT_EQ(TypeUser::text(dialog, "FNumber"), "101.02");
    TypeUser::fill(dialog, "FName", "安装");
    user.answer_next_box(Qt::Key_Y);
    TypeUser::save(dialog);
    TypeUser::next(dialog);
    TypeUser::fill(dialog, "FNumber", "101.02.001");
    TypeUser::fill(dialog, "FName", "室内安装");
    TypeUser::save(dialog);
    EXPECT_EQ(TypeUser::text(dialog, "FPreNumber"), "101.02");
    TypeUser::next(dialog);
    EXPECT_EQ(TypeUser::text(dialog, "FNumber"), "101.02.002");
    TypeUser::fill(dialog, "FName", "室外安装");
    user.answer_next_box(Qt::Key_Y);
    TypeUser::save(dialog);
    TypeUser::leave(dialog);
  });
  user.key(Qt::Key_Insert);
  EXPECT_EQ(user.boxes.size(), 2u);
  EXPECT_NE(user.boxes.at(0).find("上级收支类别 工程收入 是明细"), std::string::npos) << user.boxes.at(0);
  const Texts aExpected{"101 工程收入 < 1, level 1, parent",
                        "102 设计收入 < 1, level 1, leaf",
                        "101.01 土建 < 101, level 2, leaf",
                        "101.02 安装 < 101, level 2, parent",
                        "101.02.001 室内安装 < 101.02, level 3, leaf",
                        "101.02.002 室外安装 < 101.02, level 3, leaf"};
  for (const std::string& sType : aExpected) EXPECT_EQ(user.in_book(sType.substr(0, sType.find(' '))), sType);
  user.go_to_node("101.02");
  EXPECT_EQ(user.types().grid().model().rowCount(), 2);
  user.key(Qt::Key_Down);
  EXPECT_EQ(user.node(), "101.02.001 室内安装");
}

TEST_F(TypesRoom, ADuplicateNumberIsRefusedAndTheEntryStays) {
  user.go_to_node("1");
  user.in_next_record([this](QDialog& dialog) {
    TypeUser::fill(dialog, "FNumber", "2.01");
    TypeUser::fill(dialog, "FName", "保修");
    user.answer_next_box();
    TypeUser::save(dialog);
    EXPECT_EQ(TypeUser::text(dialog, "FNumber"), "2.01");
    EXPECT_EQ(utf8(dialog.findChild<QLabel*>(QStringLiteral("state"))->text()), "新增");
    TypeUser::fill(dialog, "FNumber", "1.03");
    user.answer_next_box(Qt::Key_Y);
    TypeUser::save(dialog);
    EXPECT_EQ(utf8(dialog.findChild<QLabel*>(QStringLiteral("state"))->text()), "修改");
    TypeUser::leave(dialog);
  });
  user.key(Qt::Key_Insert);
  ASSERT_EQ(user.boxes.size(), 2u);
  EXPECT_EQ(user.boxes[0], "编码重复，请更改！");
  EXPECT_NE(user.boxes[1].find("上级收支类别 收入 是明细"), std::string::npos) << user.boxes[1];
  EXPECT_EQ(user.in_book("1.03"), "1.03 保修 < 1, level 2, leaf");
  EXPECT_EQ(user.in_book("2.01"), "2.01 办公费 < 2, level 2, leaf");
}

TEST_F(TypesRoom, ATypeIsModifiedDisabledAndEnabled) {
  user.go_to_line("1", "1.02");
  user.in_next_record([this](QDialog& dialog) {
    EXPECT_EQ(utf8(dialog.windowTitle()), "收支类别 1.02");
    TypeUser::fill(dialog, "FName", "咨询收入");
    user.answer_next_box(Qt::Key_Y);  // the parent has children, which counts as use
    TypeUser::save(dialog);
    TypeUser::leave(dialog);
  });
  user.key(Qt::Key_Return);
  EXPECT_EQ(user.in_book("1.02"), "1.02 咨询收入 < 1, level 2, leaf");
  EXPECT_EQ(user.cell("FNumber"), "1.02");
  EXPECT_EQ(user.cell("FName"), "咨询收入");
  user.key(Qt::Key_F4);
  EXPECT_EQ(user.in_book("1.02"), "1.02 咨询收入 < 1, level 2, leaf, disabled");
  EXPECT_EQ(user.cell("FState"), "已禁用");
  user.answer_next_box();
  user.key(Qt::Key_Return);
  EXPECT_EQ(user.boxes.back(), "该类别已经被禁用，请先反禁用该类别！");
  user.key(Qt::Key_F4, Qt::ShiftModifier);
  EXPECT_EQ(user.in_book("1.02"), "1.02 咨询收入 < 1, level 2, leaf");
  EXPECT_EQ(user.cell("FState"), "使用中");
}

TEST_F(TypesRoom, AUsedTypeStaysAndAnUnusedOneGoesAfterAYes) {
  user.go_to_line("1", "1.01");
  user.answer_next_box();
  user.key(Qt::Key_Delete);
  EXPECT_EQ(user.boxes, Texts{"该类别具有下级节点或被单据使用，不允许删除！"});
  user.go_to_line("2", "2.01");
  user.answer_next_box(Qt::Key_N);
  user.key(Qt::Key_Delete);
  EXPECT_EQ(user.boxes.back(), "是否删除“2.01 办公费”？");
  EXPECT_EQ(user.in_book("2.01"), "2.01 办公费 < 2, level 2, leaf");
  user.answer_next_box(Qt::Key_Y);
  user.key(Qt::Key_Delete);
  EXPECT_EQ(user.in_book("2.01"), "gone");
  EXPECT_EQ(user.types().grid().model().rowCount(), 1);
  EXPECT_EQ(user.text_of("SELECT COUNT(*) AS F FROM t_Task"), "0");
}

TEST_F(TypesRoom, ModifyWithTheFocusOnTheTreeAndDeleteWithoutALineAreRefused) {
  user.go_to_line("1", "1.01");
  user.key(Qt::Key_Backtab, Qt::ShiftModifier);
  user.types().tree().setFocus();
  user.answer_next_box();
  user.command_of_types("mnuEditModify");
  EXPECT_EQ(user.boxes, Texts{"请选择具体的需要修改的类别信息！"});
  user.go_to_node("2");
  user.answer_next_box();
  user.key(Qt::Key_Delete);
  EXPECT_EQ(user.boxes.back(), "请选择需要删除的具体类别！");
}

TEST_F(TypesRoom, ATypeThatAnotherSeatHoldsIsRefusedInItsWords) {
  {
    Session second(*user.book.database, "clerk");
    second.platform().set_computer_name("SEAT-2");
    OpenBaseWindow other = open_type_window(second, DeskUser::kToday);
    ASSERT_TRUE(other->select_node(1));
    ASSERT_TRUE(other->select_item(other->find_number("1.02")->nID));
    ASSERT_TRUE(other->press("mnuEditModify"));
    user.seat.session.activate();
    user.go_to_line("1", "1.02");
    user.answer_next_box();
    user.key(Qt::Key_Return);
    ASSERT_EQ(user.boxes.size(), 1u);
    EXPECT_NE(user.boxes[0].find("当前使用的功能与其他用户有冲突"), std::string::npos) << user.boxes[0];
    EXPECT_EQ(user.types().window().bill(), nullptr);
    user.key(Qt::Key_F4);
    EXPECT_EQ(utf8(user.types().status()).find("该类别正由用户“clerk”使用。"), 0u) << utf8(user.types().status());
    second.activate();
  }
  user.seat.session.activate();
  user.in_next_record([](QDialog& dialog) { TypeUser::leave(dialog); });
  user.key(Qt::Key_Return);
  EXPECT_EQ(user.boxes.size(), 1u);
}

TEST_F(TypesRoom, UnsavedChangesOfARecordAreAskedAbout) {
  user.go_to_line("1", "1.02");
  user.in_next_record([this](QDialog& dialog) {
    TypeUser::fill(dialog, "FName", "half done");
    user.answer_next_box(Qt::Key_Escape);
    TypeUser::leave(dialog);
    EXPECT_TRUE(dialog.isVisible());
    user.answer_next_box(Qt::Key_N);
    TypeUser::leave(dialog);
  });
  user.key(Qt::Key_Return);
  EXPECT_EQ(user.boxes.size(), 2u);
  EXPECT_EQ(user.in_book("1.02"), "1.02 服务收入 < 1, level 2, leaf");
}

TEST_F(TypesRoom, WhatAnotherSeatHasMadeIsSeenAfterF5) {
  user.go_to_node("1");
  user.book.database->exec(
      "INSERT INTO t_RP_InOutType (FNumber, FName, FParentID, FLevels, FIsLeaf, FBranch) VALUES ('1.09', '别处', 1, 2,"
      " 1, 1)");
  user.key(Qt::Key_F5);
  EXPECT_EQ(user.types().grid().model().rowCount(), 3);
  user.go_to_node("1.09");
}

TEST_F(TypesRoom, LongerNumbersFurtherDownFindTheirColumnWideEnough) {
  make_top();
  user.book.database->exec(
      "INSERT INTO t_RP_InOutType (FNumber, FName, FParentID, FLevels, FIsLeaf, FBranch) SELECT '101.02.001.000001',"
      " '很长', FID, 2, 1, 1 FROM t_RP_InOutType WHERE FNumber = '101'");
  user.key(Qt::Key_F5);
  user.go_to_node("101");
  QTableView& grid = user.types().table();
  EXPECT_GT(grid.columnWidth(0), grid.fontMetrics().horizontalAdvance(QStringLiteral("101.02.001.000001")));
}

TEST_F(TypesRoom, TheDesksOwnWordsChangeWithTheLanguage) {
  user.go_to_line("1", "1.02");
  user.window.change_language(Language::English);
  EXPECT_EQ(utf8(user.window.current_room()->windowTitle()), "Income and expense types");
  EXPECT_EQ(user.cell("FState"), "In use");
  EXPECT_EQ(user.cell("FNumber"), "1.02");
  user.window.change_language(Language::Chinese);
}

TEST_F(TypesRoom, WithTheFocusBackOnTheTreeTheTreeStaysTheActiveControl) {
  user.go_to_line("1", "1.02");
  user.types().tree().setFocus();
  user.key(Qt::Key_F5);
  EXPECT_EQ(user.types().window().active(), BaseControl::Tree);
  EXPECT_EQ(user.types().window().current_item(), 4);
}

TEST_F(TypesRoom, TheListOfTypesOnlyShows) {
  BaseDataView& list = user.types("收支类别一览");
  for (const char* sTool :
       {"mnuFileNewItem", "mnuEditModify", "mnuEditDel", "mnuEditUse", "mnuEditUnuse", "mnuDataFind", "mnuExportData"})
    EXPECT_FALSE(list.bars().action(sTool)->isVisible()) << sTool;
  for (const char* sTool : {"mnuDataRefesh", "mnuHelpDetail", "mnuFileExit"})
    EXPECT_TRUE(list.bars().action(sTool)->isVisible()) << sTool;
  list.tree().setFocus();
  user.key(Qt::Key_Down);
  EXPECT_EQ(list.grid().model().rowCount(), 2);
  user.key(Qt::Key_Return);
  user.key(Qt::Key_Return);
  EXPECT_EQ(list.window().bill(), nullptr);
  EXPECT_EQ(list.window().current_item(), 3);
  user.key(Qt::Key_W, Qt::ControlModifier);
  DeskUser::settle();
  EXPECT_NE(user.window.current_room(), &list);
}

}  // namespace
}  // namespace desk::testing
