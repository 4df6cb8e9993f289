#include <QFile>
#include <QLabel>
#include <QListWidget>
#include <QMenuBar>
#include <QProcess>
#include <QTableWidget>
#include <QTemporaryDir>

#include "desk_user.h"
#include "services/seat_life.h"
#include "services/vouchers.h"
#include "windows/inspector.h"
#include "windows/print_bill.h"
#include "windows/printing.h"

namespace desk::testing {
namespace {

/// A saved receipt over the dollar invoice of C003 in front, 1200.00 of it.
void save_receipt(DeskUser& user) {
  user.window.new_bill("receipt");
  user.type("FCustomerID", "C003");
  user.type("FCurrencyID", "USD");
  user.type("FAcctID", "1002.02");
  user.take_all_in_next_selection();
  user.command("mnuSelectBill_2000001");
  user.command("mnuDataAutoSumAmt");
  user.command("mnuFileSave");
  ASSERT_NE(user.bill().window().bill_id(), 0);
}
void check(DeskUser& user) {
  user.answer_next_box();
  user.command("mnuEditCheck");
}
/// Closes the bill in front; answers its number.
std::int32_t close_bill(DeskUser& user) {
  const std::int32_t nBillID = user.bill().window().bill_id();
  user.command("mnuFileExit");
  DeskUser::settle();
  return nBillID;
}

TEST(BillRoads, APaymentWithADiscountGoesFromNewToChecked) {
  DeskUser user;
  user.key(Qt::Key_P, Qt::ControlModifier | Qt::ShiftModifier);
  user.type("FSupplyID", "S003");
  user.type("FCurrencyID", "USD");
  user.type("FAcctID", "1002.02");
  user.take_all_in_next_selection();
  user.key(Qt::Key_F6);
  EXPECT_EQ(user.shown("FBillSettleAmountFor", 1), "400.00");
  user.key(Qt::Key_F8);
  user.type("FAmountFor", "300");
  user.type("FDiscount", "95");
  EXPECT_EQ(user.shown("FPayAmountFor"), "285.00");
  user.key(Qt::Key_F8, Qt::ShiftModifier);
  EXPECT_EQ(user.shown("FBillSettleAmountFor", 1), "300.00");
  user.answer_next_box();
  user.key(Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(user.boxes.back(), "有折扣金额,请输入折扣科目!");
  user.type("FDiscountAcctID", "6603");
  EXPECT_EQ(user.shown("FDiscountAcctID"), "财务费用-现金折扣") << user.bill().window().lock_reason("FDiscountAcctID");
  user.key(Qt::Key_S, Qt::ControlModifier);
  check(user);
  EXPECT_EQ(user.boxes.back(), "付款单[" + user.shown("FBillNo") + "]审核成功。");
  EXPECT_EQ(user.text_of("SELECT FReceiveAmountFor AS F FROM ICPurchase WHERE FBillNo = 'CGFP000004'"), "3000000");
}

TEST(BillRoads, ARedBillBeginsWithAnEmptyBodyAndABlueOneBringsTheTypeBack) {
  DeskUser user;
  user.window.new_bill("receipt");
  const std::string sType = user.shown("FReceiveTypeID");
  user.type("FCustomerID", "C001");
  user.take_all_in_next_selection();
  user.command("mnuSelectBill_2000001");
  ASSERT_GT(user.bill().window().body().size(), 0u);
  user.command("mnuEditRedBill");
  EXPECT_TRUE(user.bill().bars().action("mnuEditRedBill")->isChecked());
  EXPECT_FALSE(user.bill().bars().action("mnuEditBlueBill")->isChecked());
  EXPECT_EQ(user.bill().window().body().size(), 0u);
  user.command("mnuEditBlueBill");
  EXPECT_TRUE(user.bill().bars().action("mnuEditBlueBill")->isChecked());
  EXPECT_FALSE(user.bill().bars().action("mnuEditRedBill")->isChecked());
  EXPECT_EQ(user.shown("FReceiveTypeID"), sType);
}

TEST(BillRoads, ACheckedBillOpenedAgainSaysWhoCheckedIt) {
  DeskUser user;
  save_receipt(user);
  check(user);
  const std::int32_t nBillID = close_bill(user);
  ASSERT_NE(user.window.open_bill("receipt", nBillID), nullptr);
  auto* pState = user.bill().findChild<QLabel*>(QStringLiteral("state"));
  ASSERT_NE(pState, nullptr);
  EXPECT_EQ(utf8(pState->text()), "审核人：demo");
  EXPECT_TRUE(user.bill().head().edit("FAmountFor")->isReadOnly());
}

TEST(BillRoads, ABillThatAnotherProgramHoldsIsReadOnlyAndNamesItsHolderUntilThatProgramHasEnded) {
  DeskUser user;
  save_receipt(user);
  const std::int32_t nBillID = close_bill(user);
  QProcess other;
  other.start(QStringLiteral("sleep"), {QStringLiteral("600")});
  ASSERT_TRUE(other.waitForStarted());
  const Seat here = user.seat.session.seat();
  const auto nOther = static_cast<std::int32_t>(other.processId());
  user.book.database->exec(
      "INSERT INTO t_Task (FSystem, FFunction, FExtra, FMachine, FProcess, FSeat, FUser, FSince) VALUES (21, 'AR0224',"
      " ?, ?, ?, ?, 'clerk', '2026-11-15T09:30:00')",
      {Bind("," + std::to_string(nBillID) + ","), Bind(here.sMachine), Bind(nOther),
       Bind(seat_life(*user.book.database, nOther))});
  user.window.open_bill("receipt", nBillID);
  auto* pState = user.bill().findChild<QLabel*>(QStringLiteral("state"));
  EXPECT_EQ(utf8(pState->text()), "未审核  只读：clerk在" + here.sMachine + "上从2026-11-15T09:30:00起正在编辑");
  EXPECT_TRUE(user.bill().head().edit("FExplanation")->isReadOnly());
  other.kill();
  ASSERT_TRUE(other.waitForFinished());
  user.key(Qt::Key_F5);
  EXPECT_EQ(utf8(pState->text()), "未审核");
  EXPECT_FALSE(user.bill().head().edit("FExplanation")->isReadOnly());
}

TEST(BillRoads, ARefreshAsksBeforeItGivesChangesUp) {
  DeskUser user;
  save_receipt(user);
  user.type("FExplanation", "changed");
  EXPECT_EQ(user.shown("FExplanation"), "changed") << utf8(user.bill().status());
  user.answer_next_box(Qt::Key_Escape);
  user.key(Qt::Key_F5);
  EXPECT_EQ(user.shown("FExplanation"), "changed");
  EXPECT_EQ(user.boxes, std::vector<std::string>{"单据已修改，保存后再关闭吗？"});
}

TEST(BillRoads, TheDesksOwnWordsChangeWithTheLanguageAndTheBillsStay) {
  DeskUser user;
  user.room("应收明细");
  const auto* pRooms = user.window.findChild<QListWidget*>(QStringLiteral("rooms"));
  const int nRoom = pRooms->currentRow();
  user.window.new_bill("receipt");
  user.window.change_language(Language::English);
  EXPECT_EQ(utf8(pRooms->item(nRoom)->text()), "Open receivables");
  EXPECT_EQ(utf8(user.window.menuBar()->actions().first()->text()), "File");
  EXPECT_EQ(utf8(user.window.inspector().windowTitle()), "Inspector");
  EXPECT_EQ(utf8(user.bill().bars().action("mnuEditCheck")->text()), "审核");
  user.room("应收明细");
  EXPECT_EQ(utf8(user.window.current_room()->table().model()->headerData(7, Qt::Horizontal).toString()), "Open");
  user.window.change_language(Language::Chinese);
  EXPECT_EQ(utf8(pRooms->item(nRoom)->text()), "应收明细");
}

TEST(BillRoads, ABillIsExportedAsAPdf) {
  DeskUser user;
  save_receipt(user);
  EXPECT_NE(utf8(bill_html(user.bill().window())).find("Pacific Trading"), std::string::npos);
  QTemporaryDir folder;
  const QString sPath = folder.filePath(QStringLiteral("receipt.pdf"));
  const QString sHtml = bill_html(user.bill().window());
  ASSERT_TRUE(export_pdf(sHtml, QStringLiteral("receipt"), sPath));
  QFile file(sPath);
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  const QByteArray aPdf = file.readAll();
  EXPECT_TRUE(aPdf.startsWith("%PDF-"));
  EXPECT_GT(aPdf.size(), 5000);
  EXPECT_FALSE(export_pdf(sHtml, QStringLiteral("receipt"), folder.filePath(QStringLiteral("no/such/receipt.pdf"))));
}

TEST(BillRoads, TheVoucherOfACheckedBillIsShownLineByLine) {
  DeskUser user;
  save_receipt(user);
  check(user);
  user.answer_next_box();
  user.command("mnuViewVch");
  EXPECT_EQ(user.boxes.back(), "单据未记账。");
  make_voucher(user.seat.session, kReceiptTables, user.bill().window().bill_id());
  const std::int32_t nBillID = close_bill(user);
  user.window.open_bill("receipt", nBillID);
  std::string sVoucher;
  user.in_next_dialog(
      [&](QDialog& dialog) {
        const QAbstractItemModel& entries = *dialog.findChild<QTableWidget*>()->model();
        for (int nRow = 0; nRow < entries.rowCount(); ++nRow) {
          for (int nColumn = 0; nColumn < entries.columnCount(); ++nColumn)
            sVoucher += utf8(entries.index(nRow, nColumn).data().toString()) + "|";
          sVoucher += "\n";
        }
        QTest::keyClick(&dialog, Qt::Key_Escape);
      },
      QStringLiteral("voucher"));
  user.command("mnuViewVch");
  EXPECT_EQ(sVoucher, "1002.02|银行存款-美元|8,520.00||\n1122|应收账款||8,520.00|\n合计||8,520.00|8,520.00|\n");
}

}  // namespace
}  // namespace desk::testing
