#include <QDir>
#include <QHash>
#include <QSet>

#include <algorithm>
#include <tuple>

#include "desk_user.h"
#include "many_bills.h"
#include "services/vouchers.h"
#include "type_world.h"
#include "windows/inspector.h"
#include "windows/open_desk.h"
#include "windows/record_list_view.h"

namespace desk::testing {
namespace {

/// Pictures of the windows, left where DESK_SCREENSHOTS says; otherwise they only have to have something in them.
class Screenshots : public ::testing::Test {
 protected:
  void take(QWidget& widget, const std::string& sName) {
    QApplication::processEvents();
    const QImage image = widget.grab().toImage();
    ASSERT_GT(image.width(), 300);
    EXPECT_GT(colours(image), 3) << sName << " is empty";
    const QByteArray folder = qgetenv("DESK_SCREENSHOTS");
    if (folder.isEmpty()) return;
    ASSERT_TRUE(QDir().mkpath(QString::fromLocal8Bit(folder)));
    const QImage small = image.convertToFormat(QImage::Format_Indexed8, commonest_colours(image));
    EXPECT_TRUE(small.save(QString::fromLocal8Bit(folder) + QStringLiteral("/") + qt(sName) + QStringLiteral(".png"),
                           "PNG", 0));
  }
  /// The 256 colours that an image has most of, and before them the commonest of each kind, so that a few red digits
  /// stay red: a window loses nothing that an eye sees, and the file two thirds.
  static QList<QRgb> commonest_colours(const QImage& image) {
    QHash<QRgb, int> counts;
    for (int y = 0; y < image.height(); ++y)
      for (int x = 0; x < image.width(); ++x) ++counts[image.pixel(x, y)];
    QList<QRgb> colours = counts.keys();
    std::sort(colours.begin(), colours.end(),
              [&](QRgb one, QRgb other) { return std::pair(counts[one], one) > std::pair(counts[other], other); });
    QSet<QRgb> kinds;
    std::stable_partition(colours.begin(), colours.end(), [&kinds](QRgb colour) {
      const QRgb kind = colour & 0xFFE0E0E0;
      return !kinds.contains(kind) && (kinds.insert(kind), true);
    });
    return colours.mid(0, 256);
  }
  static int colours(const QImage& image) {
    QSet<QRgb> seen;
    for (int y = 0; y < image.height(); y += 3)
      for (int x = 0; x < image.width(); x += 3) seen.insert(image.pixel(x, y));
    return static_cast<int>(seen.size());
  }
  /// Takes a picture of the next dialog of that name and closes it.
  void take_next_dialog(DeskUser& user, const char* sDialog, const std::string& sName) {
    user.in_next_dialog(
        [this, sName](QDialog& dialog) {
          take(dialog, sName);
          QTest::keyClick(&dialog, Qt::Key_Escape);
        },
        QString::fromLatin1(sDialog));
  }
};

TEST_F(Screenshots, OfTheRoadOfAReceipt) {
  DeskUser user;
  user.room("应收明细");
  take(user.window, "open_receivables");
  user.window.new_bill("receipt");
  user.type("FCustomerID", "C001");
  user.type("FAcctID", "1002.01");
  user.in_next_dialog(
      [this](QDialog& dialog) {
        QTest::keyClick(dialog.findChild<QTableView*>(), Qt::Key_A, Qt::ControlModifier);
        take(dialog, "selection");
        QTest::keyClick(dialog.findChild<QTableView*>(), Qt::Key_Return);
      },
      QStringLiteral("selection"));
  user.command("mnuSelectBill_2000001");
  user.command("mnuDataAutoSumAmt");
  user.type("FDiscount", "97.5");
  user.type("FDiscountAcctID", "6603");
  user.command("mnuFileSave");
  take(user.window, "receipt");
  user.window.inspector().show();
  user.answer_next_box();
  user.command("mnuEditCheck");
  take(user.window, "inspector");
  const std::int32_t nBillID = user.bill().window().bill_id();
  ASSERT_GT(make_voucher(user.seat.session, kReceiptTables, nBillID), 0);
  user.command("mnuFileExit");
  DeskUser::settle();
  user.window.open_bill("receipt", nBillID);
  take_next_dialog(user, "voucher", "voucher");
  user.command("mnuViewVch");
}

TEST_F(Screenshots, OfAListAndABatch) {
  DeskUser user;
  add_bills(*user.book.database, kReceiptTables, 20);
  user.book.database->exec(
      "INSERT INTO t_Task (FSystem, FFunction, FExtra, FMachine, FProcess, FUser, FSince) VALUES (21, 'AR0224', "
      "',1007,',"
      " 'SEAT-2', 4711, 'clerk', '2026-11-15T09:30:00')");
  BillListView& list = user.list(kReceiptTables);
  list.refresh();
  QTest::keyClick(&list.table(), Qt::Key_A, Qt::ControlModifier);
  user.in_next_dialog([this](QDialog& dialog) { take(dialog, "progress"); }, QStringLiteral("progress"));
  take_next_dialog(user, "result", "result");
  list.press("Check");
  take(user.window, "list");
  user.window.open_bill("receipt", 1007);
  take(user.window, "held_by_another_seat");
}

TEST_F(Screenshots, OfPayments) {
  DeskUser user;
  add_bills(*user.book.database, kPaymentTables, 12);
  user.list(kPaymentTables).refresh();
  take(user.window, "payments");
  user.window.new_bill("payment");
  user.type("FSupplyID", "S003");
  user.type("FCurrencyID", "USD");
  user.type("FAcctID", "1002.02");
  user.in_next_dialog(
      [](QDialog& dialog) {
        QTest::keyClick(dialog.findChild<QTableView*>(), Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(dialog.findChild<QTableView*>(), Qt::Key_Return);
      },
      QStringLiteral("selection"));
  user.command("mnuSelectBill_2000002");
  user.command("mnuDataAutoSumAmt");
  take(user.window, "payment");
}

TEST_F(Screenshots, OfOtherReceivables) {
  DeskUser user;
  add_other_bills(*user.book.database, kOtherReceivableTables, 12);
  user.window.new_bill("other_receivable");
  user.type("FBillTypeID", "1006");
  user.type("FCustomerID", "C001");
  user.type("FAcctID", "1122");
  user.bill().head().edit("FExplanation")->setText(QStringLiteral("11月服务费"));
  user.bill().head().edit("FExplanation")->enter_now();
  for (const auto& [nRow, sType, sAmount] : {std::tuple(1, "1.02", "12500"), std::tuple(2, "1.01", "3680.5")}) {
    user.key(Qt::Key_Insert, Qt::ControlModifier);
    user.type_cell(nRow, "FInOutTypeID", sType);
    user.type_cell(nRow, "FBillAmountFor", sAmount);
  }
  user.answer_next_box();
  user.command("mnuFileSave");
  take(user.window, "other_receivable");
  user.go_to(1, "FBillAmountFor");
  user.in_next_dialog(
      [this](QDialog& dialog) {
        for (const char* sSum : {"12500/1.06", "*0.06"}) {
          QTest::keyClicks(dialog.findChild<QLineEdit*>(), QString::fromLatin1(sSum));
          QTest::keyClick(dialog.findChild<QLineEdit*>(), Qt::Key_Return);
        }
        take(dialog, "calculator");
        QTest::keyClick(&dialog, Qt::Key_Escape);
      },
      QStringLiteral("calculator"));
  user.command("mnuCalculate");
  take_next_dialog(user, "preview", "preview_bill");
  user.command("mnuFilePreview");
  BillListView& list = user.list("其他收入单");
  list.refresh();
  list.lines().filter().setText(QStringLiteral("b100"));
  QTest::keyClick(&list.table(), Qt::Key_A, Qt::ControlModifier);
  user.in_next_dialog([](QDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); }, QStringLiteral("result"));
  list.press("Check");
  list.lines().filter().clear();
  take(user.window, "other_receivables");
  take_next_dialog(user, "preview", "preview_list");
  list.press("mnuFilePreview");
}

TEST_F(Screenshots, OfOtherPayables) {
  DeskUser user;
  add_other_bills(*user.book.database, kOtherPayableTables, 3);
  user.list("费用支出单").refresh();
  take(user.window, "other_payables");
  user.window.open_bill("other_payable", 1);
  take(user.window, "other_payable");
}

/// A tree of three levels, one of its types disabled.
void grow_types(Database& database) {
  database.exec_script(R"sql(
    INSERT INTO t_RP_InOutType (FID, FNumber, FName, FParentID, FLevels, FIsLeaf, FBranch, FDiscontinued) VALUES
      (11, '101', '工程收入', 1, 1, 0, 1, 0), (12, '102', '设计收入', 1, 1, 1, 1, 0),
      (13, '101.01', '土建', 11, 2, 1, 1, 0), (14, '101.02', '安装', 11, 2, 0, 1, 0),
      (15, '101.02.001', '室内安装', 14, 3, 1, 1, 0), (16, '101.02.002', '室外安装', 14, 3, 1, 1, 1);
  )sql");
}

TEST_F(Screenshots, OfTheTypesAndTheirSmallBill) {
  TypeUser user;
  grow_types(*user.book.database);
  user.types().refresh();
  user.go_to_node("101.02");
  take(user.window, "types");
  user.go_to_line("1", "101");
  user.in_next_record([this](QDialog& dialog) {
    TypeUser::fill(dialog, "FNote", "2026");
    take(dialog, "type");
    TypeUser::save(dialog);
    TypeUser::leave(dialog);
  });
  user.key(Qt::Key_Return);
  user.types("收支类别一览");
  take(user.window, "type_list");
}

TEST_F(Screenshots, OfInvoicesTheBillBehindOneAndTheOpeningBalances) {
  DeskUser user;
  auto& invoices = *qobject_cast<RecordListView*>(&user.room("发票"));
  invoices.show_list(1);
  take(user.window, "invoices");
  take_next_dialog(user, "bills", "bill_behind_an_invoice");
  invoices.press("mnuViewOldBill");
  user.room("期初余额").table().setFocus();
  user.key(Qt::Key_Return);
  take(user.window, "opening_balances");
}

TEST_F(Screenshots, OfTheLastBillComeWithoutAUser) {
  DemoBook book;
  add_bills(*book.database, kPaymentTables, 2);
  TempFolder folder;
  draw_last_bill(*book.database, "demo", "payment", folder.path("payment.png"));
  EXPECT_GT(colours(QImage(qt(folder.path("payment.png")))), 3);
  EXPECT_EQ(kind_of_failure([&] { draw_last_bill(*book.database, "demo", "receipt", folder.path("receipt.png")); }),
            ErrorKind::BadValue);
}

}  // namespace
}  // namespace desk::testing
