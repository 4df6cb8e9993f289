#include "desk_user.h"

namespace desk::testing {
namespace {

/// From an empty receipt to a checked one, by keyboard, on real windows.
TEST(ReceiptRoad, AReceiptIsEnteredSelectedSummedSavedAndCheckedWithoutAMouse) {
  DeskUser user;
  user.key(Qt::Key_R, Qt::ControlModifier | Qt::ShiftModifier);
  user.type("FCustomerID", "C003");
  user.type("FCurrencyID", "USD");
  user.type("FAcctID", "1002.02");
  user.type("FDate", "16");
  EXPECT_EQ(user.shown("FDate"), "2026-11-16");
  EXPECT_EQ(user.shown("FExchangeRate").substr(0, 3), "7.1");
  user.take_all_in_next_selection();
  user.key(Qt::Key_F6);
  ASSERT_EQ(user.bill().window().body().size(), 1u);
  EXPECT_EQ(user.shown("FBillSettleAmountFor", 1), "1200.00");
  user.key(Qt::Key_F8);
  EXPECT_EQ(user.shown("FAmountFor"), "1200.00");
  user.key(Qt::Key_S, Qt::ControlModifier);
  EXPECT_NE(user.shown("FBillNo"), "");
  user.answer_next_box();
  user.key(Qt::Key_F4);
  EXPECT_EQ(user.boxes, std::vector<std::string>{"收款单[" + user.shown("FBillNo") + "]审核成功。"});
  EXPECT_TRUE(user.bill().head().edit("FAmountFor")->isReadOnly());
  EXPECT_EQ(user.text_of("SELECT FStatus AS F FROM t_RP_RBill WHERE FBillNo = '" + user.shown("FBillNo") + "'"), "1");
  EXPECT_EQ(user.text_of("SELECT COUNT(*) AS F FROM vw_arap_RBillList WHERE FBillNo = 'XSFP000004'"), "0");
}

TEST(ReceiptRoad, ARefusalIsShownAndTheCaretStaysWhereItWas) {
  DeskUser user;
  user.window.new_bill("receipt");
  FieldEdit* pEdit = user.bill().head().edit("FExplanation");
  pEdit->setFocus();
  QTest::keyClicks(pEdit, "abc");
  pEdit->setCursorPosition(1);
  user.answer_next_box();
  user.key(Qt::Key_F6);
  EXPECT_EQ(user.boxes, std::vector<std::string>{"请选择客户"});
  EXPECT_EQ(user.window.focusWidget(), pEdit);
  EXPECT_EQ(pEdit->cursorPosition(), 1);
}

TEST(ReceiptRoad, AnUnknownCodeIsRefusedInPlainWordsAndTheFieldKeepsItsValue) {
  DeskUser user;
  user.window.new_bill("receipt");
  user.type("FCustomerID", "no such");
  EXPECT_EQ(utf8(user.bill().status()), "没有代码或名称为“no such”的资料。");
  EXPECT_EQ(user.shown("FCustomerID"), "");
}

TEST(ReceiptRoad, AnAmountTypedInTheGridGoesDownByEnterAndIsEnteredBeforeACommand) {
  DeskUser user;
  user.window.new_bill("receipt");
  user.type("FCustomerID", "C001");
  user.type("FAcctID", "1002.01");
  user.take_all_in_next_selection();
  user.command("mnuSelectBill_2000001");
  BodyGrid& grid = user.bill().body();
  ASSERT_GE(grid.model()->rowCount(), 2);
  const int nColumn = static_cast<BodyModel*>(grid.model())->column_of("FBillSettleAmountFor");
  grid.setFocus();
  grid.setCurrentIndex(grid.model()->index(0, nColumn));
  for (const char c : std::string("10+5")) user.key_text(c);
  user.key(Qt::Key_Return);
  EXPECT_EQ(user.shown("FBillSettleAmountFor", 1), "15.00");
  EXPECT_EQ(grid.currentIndex().row(), 1);
  for (const char c : std::string("7")) user.key_text(c);
  user.command("mnuDataAutoSumAmt");
  EXPECT_EQ(user.shown("FBillSettleAmountFor", 2), "7.00");
  EXPECT_EQ(static_cast<BodyModel*>(grid.model())->total(nColumn), QStringLiteral("2,822.00"));
  EXPECT_EQ(user.shown("FAmountFor"), "2822.00");
}

TEST(ReceiptRoad, ASourceIsFoundByItsAmountAsItIsShownOrPlain) {
  DeskUser user;
  user.window.new_bill("receipt");
  user.type("FCustomerID", "C001");
  user.in_next_dialog(
      [](QDialog& dialog) {
        auto* pFilter = dialog.findChild<QLineEdit*>();
        const QAbstractItemModel& sources = *dialog.findChild<QTableView*>()->model();
        for (const char* sTyped : {"2,500.50", "2500.5"}) {
          pFilter->setText(QString::fromLatin1(sTyped));
          EXPECT_EQ(sources.rowCount(), 1) << sTyped;
          EXPECT_EQ(utf8(sources.index(0, 0).data().toString()), "XSFP000002") << sTyped;
          EXPECT_EQ(utf8(sources.index(0, 4).data().toString()), "2,500.50");
        }
        QTest::keyClick(&dialog, Qt::Key_Escape);
      },
      QStringLiteral("selection"));
  user.command("mnuSelectBill_2000001");
}

TEST(ReceiptRoad, EscapeBringsTheFormerTextBack) {
  DeskUser user;
  user.window.new_bill("receipt");
  FieldEdit* pEdit = user.bill().head().edit("FExplanation");
  pEdit->setFocus();
  QTest::keyClicks(pEdit, "typed");
  QTest::keyClick(pEdit, Qt::Key_Escape);
  EXPECT_EQ(utf8(pEdit->text()), "");
}

TEST(ReceiptRoad, LeavingTheWindowWithChangesAsksFirst) {
  DeskUser user;
  user.window.new_bill("receipt");
  user.type("FExplanation", "half done");
  user.answer_next_box(Qt::Key_Escape);
  user.command("mnuFileExit");
  EXPECT_EQ(user.boxes, std::vector<std::string>{"单据已修改，保存后再关闭吗？"});
  EXPECT_NE(user.window.current_bill(), nullptr);
}

}  // namespace
}  // namespace desk::testing
