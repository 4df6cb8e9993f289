#include <QToolButton>

#include "desk_user.h"
#include "many_bills.h"

namespace desk::testing {
namespace {

/// A new receipt over the open invoices of C001, and the keys of its head and grid.
class Keyboard : public ::testing::Test {
 protected:
  void draw_sources() {
    user.window.new_bill("receipt");
    user.type("FCustomerID", "C001");
    user.type("FAcctID", "1002.01");
    user.take_all_in_next_selection();
    user.command("mnuSelectBill_2000001");
    ASSERT_GE(user.bill().window().body().size(), 3u);
  }
  BodyGrid& grid() { return user.bill().body(); }
  const BodyModel& model() { return *static_cast<BodyModel*>(grid().model()); }
  int column(const char* sKey) { return model().column_of(sKey); }
  void go_to(int nRow, const char* sKey) { user.go_to(nRow, sKey); }
  void keys(const char* sText) { user.keys(sText); }

  DeskUser user;
};

TEST_F(Keyboard, ControlDTakesTheCellAbove) {
  draw_sources();
  go_to(1, "FBillNote");
  keys("as agreed");
  user.key(Qt::Key_Return);
  EXPECT_EQ(grid().currentIndex().row(), 1);
  user.key(Qt::Key_D, Qt::ControlModifier);
  EXPECT_EQ(user.shown("FBillNote", 2), "as agreed");
  EXPECT_EQ(user.shown("FBillNote", 3), "");
}

TEST_F(Keyboard, ControlDInTheFirstRowAndInALockedCellDoesNothing) {
  draw_sources();
  go_to(1, "FBillNote");
  user.key(Qt::Key_D, Qt::ControlModifier);
  EXPECT_EQ(user.shown("FBillNote", 1), "");
  const std::string sBefore = user.shown("FBillAmountFor", 2);
  go_to(2, "FBillAmountFor");
  user.key(Qt::Key_D, Qt::ControlModifier);
  EXPECT_EQ(user.shown("FBillAmountFor", 2), sBefore);
}

TEST_F(Keyboard, TabGoesRightAndTheArrowsInAllDirections) {
  draw_sources();
  go_to(1, "FBillSettleAmountFor");
  const int nColumn = grid().currentIndex().column();
  user.key(Qt::Key_Tab);
  EXPECT_EQ(grid().currentIndex().column(), nColumn + 1);
  user.key(Qt::Key_Backtab, Qt::ShiftModifier);
  EXPECT_EQ(grid().currentIndex().column(), nColumn);
  user.key(Qt::Key_Down);
  EXPECT_EQ(grid().currentIndex().row(), 1);
  user.key(Qt::Key_Left);
  EXPECT_EQ(grid().currentIndex().column(), nColumn - 1);
  user.key(Qt::Key_Up);
  user.key(Qt::Key_Right);
  EXPECT_EQ(grid().currentIndex(), model().index(0, nColumn));
}

TEST_F(Keyboard, TabInAnEditorEntersWhatWasTyped) {
  draw_sources();
  go_to(1, "FBillSettleAmountFor");
  keys("12.5");
  user.key(Qt::Key_Tab);
  EXPECT_EQ(user.shown("FBillSettleAmountFor", 1), "12.50");
}

TEST_F(Keyboard, EscapeGivesUpWhatWasTypedInACell) {
  draw_sources();
  const std::string sBefore = user.shown("FBillSettleAmountFor", 1);
  go_to(1, "FBillSettleAmountFor");
  keys("99");
  user.key(Qt::Key_Escape);
  user.key(Qt::Key_Down);
  EXPECT_EQ(user.shown("FBillSettleAmountFor", 1), sBefore);
}

TEST_F(Keyboard, ALockedCellTakesNoKeys) {
  draw_sources();
  const std::string sBefore = user.shown("FBillAmountFor", 1);
  go_to(1, "FBillAmountFor");
  keys("77");
  user.key(Qt::Key_Return);
  EXPECT_EQ(user.shown("FBillAmountFor", 1), sBefore);
  EXPECT_EQ(grid().findChild<FieldEdit*>(), nullptr);
}

TEST_F(Keyboard, NothingIsInsertedIntoTheGridOfACheckedBill) {
  draw_sources();
  user.command("mnuDataAutoSumAmt");
  user.command("mnuFileSave");
  user.answer_next_box();
  user.command("mnuEditCheck");
  const std::size_t nRows = user.bill().window().body().size();
  EXPECT_FALSE(user.bill().bars().action("mnuEditAddRow")->isEnabled());
  user.key(Qt::Key_Insert, Qt::ControlModifier);
  user.key(Qt::Key_Delete, Qt::ControlModifier);
  const std::string sBefore = user.shown("FBillSettleAmountFor", 1);
  go_to(1, "FBillSettleAmountFor");
  keys("5");
  user.key(Qt::Key_Return);
  EXPECT_EQ(user.bill().window().body().size(), nRows);
  EXPECT_EQ(user.shown("FBillSettleAmountFor", 1), sBefore);
}

TEST_F(Keyboard, F7OpensTheListThatTypingNarrowsAndAnArrowAndEnterTakeFrom) {
  user.window.new_bill("receipt");
  FieldEdit* pEdit = user.bill().head().edit("FCustomerID");
  QTest::keyClick(pEdit, Qt::Key_F7);
  ASSERT_TRUE(pEdit->is_list_open());
  QTest::keyClicks(pEdit, "c00");
  ASSERT_TRUE(pEdit->is_list_open());
  QTest::keyClick(pEdit, Qt::Key_Down);
  QTest::keyClick(pEdit, Qt::Key_Down);
  QTest::keyClick(pEdit, Qt::Key_Return);
  EXPECT_FALSE(pEdit->is_list_open());
  EXPECT_EQ(user.bill().window().code("FCustomerID"), "C002");
}

TEST_F(Keyboard, WhoDoesntKnowTheKeyFindsAnArrowInEveryFreeLookUpFieldAndTheKeysOverTheTools) {
  user.window.new_bill("receipt");
  FieldEdit* pEdit = user.bill().head().edit("FCustomerID");
  auto* pArrow = pEdit->findChild<QToolButton*>();
  ASSERT_NE(pArrow, nullptr);
  pArrow->click();
  EXPECT_TRUE(pEdit->is_list_open());
  QTest::keyClick(pEdit, Qt::Key_Return);
  EXPECT_EQ(user.bill().window().code("FCustomerID"), "C001");
  pEdit->setReadOnly(true);
  EXPECT_FALSE(pArrow->isVisible());
  EXPECT_EQ(user.bill().head().edit("FExplanation")->findChild<QToolButton*>(), nullptr);
  EXPECT_TRUE(user.bill().bars().action("mnuFileSave")->toolTip().contains(QStringLiteral("Ctrl+S")));
}

TEST_F(Keyboard, EscapeClosesTheListFirstAndThenBringsTheTextBack) {
  user.window.new_bill("receipt");
  FieldEdit* pEdit = user.bill().head().edit("FCustomerID");
  QTest::keyClicks(pEdit, "C0");
  ASSERT_TRUE(pEdit->is_list_open());
  QTest::keyClick(pEdit, Qt::Key_Escape);
  EXPECT_FALSE(pEdit->is_list_open());
  EXPECT_EQ(utf8(pEdit->text()), "C0");
  QTest::keyClick(pEdit, Qt::Key_Escape);
  EXPECT_EQ(utf8(pEdit->text()), "");
}

TEST_F(Keyboard, WhoTypesOnPastAMarkedEntryGetsWhatWasTyped) {
  user.window.new_bill("receipt");
  FieldEdit* pEdit = user.bill().head().edit("FCustomerID");
  QTest::keyClick(pEdit, Qt::Key_F7);  // marks C001
  QTest::keyClicks(pEdit, "C003");
  QTest::keyClick(pEdit, Qt::Key_Tab);
  EXPECT_EQ(user.bill().window().code("FCustomerID"), "C003");
}

TEST_F(Keyboard, AnEntryIsLookedUpInTheBookOfNowAndNotInTheListThatWasOffered) {
  user.window.new_bill("receipt");
  FieldEdit* pEdit = user.bill().head().edit("FCustomerID");
  QTest::keyClicks(pEdit, "C001");  // the list offers the one customer of that code
  ASSERT_TRUE(pEdit->is_list_open());
  user.book.database->exec("UPDATE t_Organization SET FNumber = 'K1' WHERE FNumber = 'C001'");
  user.book.database->exec("UPDATE t_Organization SET FNumber = 'C001' WHERE FNumber = 'C004'");
  QTest::keyClick(pEdit, Qt::Key_Tab);
  EXPECT_EQ(user.shown("FCustomerID"), "东京商社");
}

TEST_F(Keyboard, ACommandPressedWhileItRunsActsOnce) {
  draw_sources();
  user.command("mnuDataAutoSumAmt");
  user.command("mnuFileSave");
  user.in_next_dialog([this](QDialog& dialog) {
    user.command("mnuEditCheck");
    user.command("mnuEditUnCheck");
    QTest::keyClick(&dialog, Qt::Key_Return);
  });
  user.command("mnuEditCheck");
  EXPECT_EQ(user.seat.session.platform().messages().size(), 1u);
  EXPECT_EQ(user.text_of("SELECT FStatus AS F FROM t_RP_RBill"), "1");
}

TEST_F(Keyboard, SaveHitTwiceStoresOneBill) {
  draw_sources();
  user.command("mnuDataAutoSumAmt");
  user.key(Qt::Key_S, Qt::ControlModifier);
  user.key(Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(user.text_of("SELECT COUNT(*) AS F FROM t_RP_RBill"), "1");
}

TEST_F(Keyboard, TwentyRowsGoFromANewReceiptToACheckedOneByKeysAlone) {
  add_invoices(*user.book.database, kReceiptTables, 20, 2);
  user.key(Qt::Key_R, Qt::ControlModifier | Qt::ShiftModifier);
  user.type("FCustomerID", "C002");
  user.type("FAcctID", "1002.01");
  user.in_next_dialog([](QDialog& dialog) {
    for (const char c : std::string("N10")) {
      QWidget* pFocus =
          c == 'N' ? static_cast<QWidget*>(dialog.findChild<QTableView*>()) : dialog.findChild<QLineEdit*>();
      QTest::keyClick(pFocus, c);
    }
    QTest::keyClick(dialog.findChild<QLineEdit*>(), Qt::Key_Down);
    QTest::keyClick(dialog.findChild<QTableView*>(), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(dialog.findChild<QTableView*>(), Qt::Key_Return);
  });
  user.key(Qt::Key_F6);
  ASSERT_EQ(user.bill().window().body().size(), 20u);
  go_to(1, "FBillSettleAmountFor");
  for (int nRow = 0; nRow < 20; ++nRow) {
    keys("50+5");
    user.key(Qt::Key_Return);
  }
  user.key(Qt::Key_F8);
  EXPECT_EQ(user.shown("FAmountFor"), "1100.00");
  user.key(Qt::Key_S, Qt::ControlModifier);
  user.answer_next_box();
  user.key(Qt::Key_F4);
  EXPECT_EQ(user.text_of("SELECT FStatus AS F FROM t_RP_RBill"), "1");
  EXPECT_EQ(user.text_of("SELECT COUNT(*) AS F FROM ICSale WHERE FBillNo LIKE 'N10%' AND FReceiveAmountFor = 550000"),
            "20");
}

}  // namespace
}  // namespace desk::testing
