#include <QContextMenuEvent>
#include <QFile>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QTemporaryDir>
#include <QToolBar>

#include <set>

#include "desk_user.h"
#include "many_bills.h"
#include "services/bill_kinds.h"
#include "windows/calculator.h"
#include "windows/printing.h"

namespace desk::testing {
namespace {

// --- from bill to bill ----------------------------------------------------------------------------------------------

/// Three bills "B1001" to "B1003" of each kind.
class FromBillToBill : public ::testing::TestWithParam<const BillKind*> {
 protected:
  FromBillToBill() {
    const BillKind& kind = *GetParam();
    if (kind.other != nullptr) {
      user.book.database->exec(side_sql(kind.side, "DELETE FROM {other}Entry"));
      user.book.database->exec(side_sql(kind.side, "DELETE FROM {other}"));
      add_other_bills(*user.book.database, *kind.other, 3);
    } else {
      add_bills(*user.book.database, kind.side, 3);
    }
  }
  void open(std::int32_t nBillID) {
    ASSERT_NE(user.window.open_bill(std::string(GetParam()->sTemplate), nBillID), nullptr);
  }
  void go_back() { user.key(Qt::Key_PageUp, Qt::ControlModifier); }
  void go_on() { user.key(Qt::Key_PageDown, Qt::ControlModifier); }
  std::string locked_bills() {
    std::string sAll;
    const Rows rows = user.book.database->query("SELECT FExtra FROM t_Task ORDER BY FExtra");
    for (std::size_t n = 0; n < rows.size(); ++n) sAll += rows.text(n, "FExtra");
    return sAll;
  }

  DeskUser user;
};
INSTANTIATE_TEST_SUITE_P(Kinds, FromBillToBill,
                         ::testing::Values(find_bill_kind("receipt"), find_bill_kind("payment"),
                                           find_bill_kind("receivable"), find_bill_kind("payable")),
                         [](const auto& kind) { return std::string(kind.param->sTemplate); });

TEST_P(FromBillToBill, TheKeysGoThroughTheBillsInTheOrderOfTheListAndStopAtItsEnds) {
  open(1002);
  go_back();
  EXPECT_EQ(user.shown("FBillNo"), "B1001");
  go_back();
  EXPECT_EQ(user.shown("FBillNo"), "B1001");
  EXPECT_EQ(utf8(user.bill().status()), "前面没有单据了。");
  go_on();
  go_on();
  EXPECT_EQ(user.shown("FBillNo"), "B1003");
  EXPECT_EQ(user.bill().window().body().size(), 2u);
  go_on();
  EXPECT_EQ(utf8(user.bill().status()), "后面没有单据了。");
  EXPECT_EQ(user.shown("FBillNo"), "B1003");
}

TEST_P(FromBillToBill, OnlyTheBillInViewIsLocked) {
  open(1001);
  EXPECT_EQ(locked_bills(), ",1001,");
  go_on();
  EXPECT_EQ(locked_bills(), ",1002,");
}

TEST_P(FromBillToBill, BeforeANewBillComesTheLastOneAndAfterItNone) {
  user.window.new_bill(std::string(GetParam()->sTemplate));
  go_on();
  EXPECT_EQ(utf8(user.bill().status()), "后面没有单据了。");
  go_back();
  EXPECT_EQ(user.shown("FBillNo"), "B1003");
}

TEST_P(FromBillToBill, WhatIsNotSavedIsAskedAboutFirst) {
  open(1002);
  user.type("FExplanation", "changed");
  user.answer_next_box(Qt::Key_Escape);
  go_back();
  EXPECT_EQ(user.shown("FBillNo"), "B1002");
  EXPECT_EQ(user.boxes, std::vector<std::string>{"单据已修改，保存后再关闭吗？"});
  user.answer_next_box(Qt::Key_N);
  go_back();
  EXPECT_EQ(user.shown("FBillNo"), "B1001");
  EXPECT_EQ(user.shown("FExplanation"), "");
}

TEST_P(FromBillToBill, ABillThatAnotherSeatHoldsIsTheEndOfTheWay) {
  user.book.database->exec(
      "INSERT INTO t_Task (FSystem, FFunction, FExtra, FMachine, FProcess, FUser, FSince) VALUES (21, ?, ',1002,',"
      " 'SEAT-2', 4711, 'clerk', '2026-11-15T09:30:00')",
      {Bind(std::string(edit_function(GetParam()->nClass)))});
  open(1001);
  go_on();
  EXPECT_EQ(user.shown("FBillNo"), "B1002");
  EXPECT_EQ(user.bill().window().edit_mode(), EditMode::ReadOnly);
  const QAction* pNext = user.bill().bars().action("mnuDataNext");
  EXPECT_FALSE(pNext->isVisible() && pNext->isEnabled());
  go_on();
  EXPECT_EQ(user.shown("FBillNo"), "B1002");
}

// --- the calculator -------------------------------------------------------------------------------------------------

void work_out(QDialog& dialog, const char* sSum) {
  auto* pSum = dialog.findChild<QLineEdit*>();
  QTest::keyClicks(pSum, QString::fromLatin1(sSum));
  QTest::keyClick(pSum, Qt::Key_Return);
}
std::string tape_of(QDialog& dialog) {
  std::string sTape;
  const auto* pTape = dialog.findChild<QListWidget*>();
  for (int n = 0; n < pTape->count(); ++n) sTape += utf8(pTape->item(n)->text()) + "\n";
  return sTape;
}

TEST(CalculatorOfTheBars, ItsResultGoesToTheAmountInFocus) {
  DeskUser user;
  user.window.new_bill("receipt");
  user.type("FCustomerID", "C001");
  user.bill().head().edit("FAmountFor")->setFocus();
  std::string sTape;
  user.in_next_dialog(
      [&](QDialog& dialog) {
        work_out(dialog, "100*3");
        work_out(dialog, "+5");
        sTape = tape_of(dialog);
        work_out(dialog, "");
      },
      QStringLiteral("calculator"));
  user.key(Qt::Key_F9);
  EXPECT_EQ(sTape, "100*3 = 300\n300+5 = 305\n");
  EXPECT_EQ(user.shown("FAmountFor"), "305.00");
}

TEST(CalculatorOfTheBars, ItsResultGoesToTheCellInFocus) {
  DeskUser user;
  user.window.new_bill("other_payable");
  user.key(Qt::Key_Insert, Qt::ControlModifier);
  user.go_to(1, "FBillAmountFor");
  user.in_next_dialog(
      [](QDialog& dialog) {
        QTest::keyClicks(dialog.findChild<QLineEdit*>(), QStringLiteral("(12+8)*2.5"));
        QTest::mouseClick(dialog.findChildren<QPushButton*>().at(1), Qt::LeftButton);
      },
      QStringLiteral("calculator"));
  user.key(Qt::Key_F9);
  EXPECT_EQ(user.shown("FBillAmountFor", 1), "50.00");
}

TEST(CalculatorOfTheBars, WhereNoAmountCanBeTypedNothingIsTakenOver) {
  DeskUser user;
  user.window.new_bill("receipt");
  user.bill().head().edit("FExplanation")->setFocus();
  int nButtons = 0;
  user.in_next_dialog(
      [&](QDialog& dialog) {
        nButtons = static_cast<int>(dialog.findChildren<QPushButton*>().size());
        work_out(dialog, "1+1");
        EXPECT_EQ(tape_of(dialog), "1+1 = 2\n");
        QTest::keyClick(&dialog, Qt::Key_Escape);
      },
      QStringLiteral("calculator"));
  user.key(Qt::Key_F9);
  EXPECT_EQ(nButtons, 2);
  EXPECT_EQ(user.shown("FExplanation"), "");
}

TEST(CalculatorOfTheBars, WhatCanNotBeWorkedOutStaysAndIsNamed) {
  Calculator calculator(true, nullptr);
  calculator.show();
  work_out(calculator, "7*(3");
  EXPECT_EQ(tape_of(calculator), "");
  EXPECT_EQ(utf8(calculator.findChild<QLineEdit*>()->text()), "7*(3");
  EXPECT_EQ(utf8(calculator.findChild<QLabel*>()->text()), "“7*(3”无法计算。");
  work_out(calculator, ")");
  EXPECT_EQ(tape_of(calculator), "7*(3) = 21\n");
}

// --- the popup ------------------------------------------------------------------------------------------------------

QMenu& popup_of(QWidget& view) {
  auto* pMenu = view.findChild<QMenu*>(QStringLiteral("popup"));
  if (pMenu == nullptr) throw std::logic_error("no popup");
  return *pMenu;
}
std::vector<std::string> commands(const QMenu& menu) {
  std::vector<std::string> all;
  for (const QAction* pAction : menu.actions()) {
    if (pAction->isVisible() && !pAction->isSeparator()) all.push_back(utf8(pAction->text()));
  }
  return all;
}

TEST(PopupBand, TheMenuKeyOverAListShowsWhatThePlugInHasPutThere) {
  DeskUser user;
  add_bills(*user.book.database, kReceiptTables, 2);
  BillListView& list = user.list(kReceiptTables);
  list.refresh();
  list.table().selectRow(0);
  const QPoint place = list.table().visualRect(list.table().currentIndex()).center();
  QContextMenuEvent byKey(QContextMenuEvent::Keyboard, place, list.table().viewport()->mapToGlobal(place));
  QApplication::sendEvent(&list.table(), &byKey);
  QMenu& menu = popup_of(list);
  EXPECT_TRUE(menu.isVisible());
  EXPECT_EQ(commands(menu), (std::vector<std::string>{"查看", "修改", "删除", "审核", "反审核"}));
  menu.close();
  user.answer_next_box();
  list.bars().action("Check")->trigger();
  EXPECT_EQ(user.boxes, std::vector<std::string>{"审核[编号:B1001]单据成功!"});
  for (const QAction* pAction : list.findChild<QMenuBar*>()->actions()) EXPECT_NE(utf8(pAction->text()), "快捷");
}

TEST(PopupBand, ARightClickOnTheBodyOffersTheRowCommands) {
  DeskUser user;
  user.window.new_bill("other_receivable");
  QWidget* pGrid = user.bill().body().viewport();
  QContextMenuEvent click(QContextMenuEvent::Mouse, QPoint(20, 20), pGrid->mapToGlobal(QPoint(20, 20)));
  QApplication::sendEvent(pGrid, &click);
  QMenu& menu = popup_of(user.bill());
  ASSERT_TRUE(menu.isVisible());
  EXPECT_EQ(commands(menu), (std::vector<std::string>{"添加行", "删除行", "查看", "计算器"}));
  menu.setActiveAction(menu.actions().first());
  QTest::keyClick(&menu, Qt::Key_Return);
  EXPECT_EQ(user.bill().window().body().size(), 1u);
  EXPECT_EQ(user.bill().body().currentIndex().row(), 0);
}

// --- the toolbar ----------------------------------------------------------------------------------------------------

TEST_P(FromBillToBill, TheToolbarHasEachCommandOnceAndNoneThatTheDeskDoesNotServe) {
  open(1002);
  std::set<std::string> captions;
  for (const QAction* pAction : user.bill().findChild<QToolBar*>()->actions()) {
    if (!pAction->isVisible() || pAction->isSeparator()) continue;
    EXPECT_TRUE(captions.insert(utf8(pAction->text())).second) << utf8(pAction->text());
  }
  for (const char* sCaption : {"审核", "反审核", "前一张", "后一张", "预览", "打印"})
    EXPECT_TRUE(captions.contains(sCaption)) << sCaption;
  for (const char* sTool : {"mnuFileNeedFilter", "mnuEditCopy", "mnuCopyRow", "mnuEditChange", "mnuDataAccessory"})
    EXPECT_FALSE(user.bill().bars().action(sTool)->isVisible()) << sTool;
}

// --- what a field can be, and paper
// -----------------------------------------------------------------------------------

TEST(LookUpCommand, ItOpensTheListOfTheFieldInFocus) {
  DeskUser user;
  user.window.new_bill("other_receivable");
  FieldEdit* pEdit = user.bill().head().edit("FCustomerID");
  pEdit->setFocus();
  user.command("mnuDataLookUp");
  EXPECT_TRUE(pEdit->is_list_open());
}

TEST(Paper, AListIsPreviewedAsItIsInView) {
  DeskUser user;
  add_bills(*user.book.database, kPaymentTables, 3);
  BillListView& list = user.list(kPaymentTables);
  list.refresh();
  list.lines().filter().setText(QStringLiteral("b1002"));
  user.in_next_dialog([](QDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); }, QStringLiteral("preview"));
  list.press("mnuFilePreview");
  const std::string sHtml = utf8(list.html());
  EXPECT_NE(sHtml.find("<h2 align=\"center\">付款单</h2><p>共2行</p>"), std::string::npos) << sHtml;
  EXPECT_NE(sHtml.find("<th align=\"left\">单据编号</th>"), std::string::npos) << sHtml;
  EXPECT_NE(sHtml.find("<td align=\"right\">40.00</td>"), std::string::npos) << sHtml;
  EXPECT_EQ(sHtml.find("B1001"), std::string::npos);
}

TEST(Paper, AListGoesToTheDialogOfThePrinters) {
  DeskUser user;
  user.in_next_dialog([](QDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); }, QStringLiteral("print"));
  user.list(kReceiptTables).table().setFocus();
  user.key(Qt::Key_P, Qt::ControlModifier);
}

TEST(Paper, EveryRoomBecomesAPdf) {
  DeskUser user;
  QTemporaryDir folder;
  ASSERT_EQ(user.window.room_count(), static_cast<int>(rooms().size()));
  for (int nRoom = 0; nRoom < user.window.room_count(); ++nRoom) {
    user.window.show_room(nRoom);
    ASSERT_NE(user.window.current_room(), nullptr) << nRoom;
    const QString sPath = folder.filePath(QStringLiteral("%1.pdf").arg(nRoom));
    ASSERT_TRUE(export_pdf(user.window.current_room()->html(), user.window.current_room()->windowTitle(), sPath));
    QFile file(sPath);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_TRUE(file.readAll().startsWith("%PDF-")) << nRoom;
  }
}

}  // namespace
}  // namespace desk::testing
