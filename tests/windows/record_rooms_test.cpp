#include <QTabBar>
#include <QTableWidget>

#include "desk_user.h"
#include "windows/csv_export.h"
#include "windows/record_list_view.h"

namespace desk::testing {
namespace {

class RecordRooms : public ::testing::Test {
 protected:
  RecordListView& room(std::string_view sRoom) {
    auto* pView = qobject_cast<RecordListView*>(&user.room(sRoom));
    if (pView == nullptr) throw std::logic_error("no list of records is in front");
    return *pView;
  }
  RecordListView& invoices() { return room("发票"); }
  RecordListView& balances() { return room("期初余额"); }
  static std::string cell(RecordListView& view, int nRow, int nColumn) {
    return utf8(view.lines().model().index(nRow, nColumn).data().toString());
  }
  static bool shows(const BarView& bars, const char* sTool) {
    const QAction* pAction = bars.action(sTool);
    return pAction != nullptr && pAction->isVisible();
  }
  static std::string shown_list(RecordListView& view) {
    return utf8(view.lists().tabText(view.lists().currentIndex()));
  }

  DeskUser user;
};

TEST_F(RecordRooms, EachClassOfInvoicesIsAListOfItsOwn) {
  invoices().table().setFocus();
  std::vector<std::string> aSeen;
  for (int n = 0; n < invoices().lists().count(); ++n) {
    aSeen.push_back(shown_list(invoices()) + ": " + std::to_string(invoices().lines().model().rowCount()));
    user.key(Qt::Key_PageDown, Qt::ControlModifier);
  }
  EXPECT_EQ(aSeen, (std::vector<std::string>{"销售发票(专用): 0", "销售发票(普通): 5", "购货发票(专用): 0",
                                             "购货发票(普通): 5"}));
  EXPECT_EQ(shown_list(invoices()), "销售发票(专用)");
  user.key(Qt::Key_PageUp, Qt::ControlModifier);
  EXPECT_EQ(cell(invoices(), 1, 0), "CGFP000002");
  EXPECT_EQ(cell(invoices(), 1, 2), "华北钢铁");
  EXPECT_EQ(cell(invoices(), 1, 6), "780.25");
  EXPECT_EQ(cell(invoices(), 1, 8), "700.00");
}

TEST_F(RecordRooms, TheBarsOfTheInvoicesAreThoseThatThePlugInSets) {
  for (const int nList : {0, 3}) {
    invoices().show_list(nList);
    const BarView& bars = invoices().bars();
    for (const char* sTool : {"mnuViewOldBill", "mnuDataFilter", "mnuDataRefesh", "mnuExportData", "mnuFileExit"})
      EXPECT_TRUE(shows(bars, sTool)) << sTool;
    for (const char* sTool : {"mnuFileView", "mnuEditCopy", "mnuPushBill", "mnuDataViewPrvBill", "mnuFormatFont"})
      EXPECT_FALSE(shows(bars, sTool)) << sTool;
    EXPECT_EQ(utf8(bars.action("mnuViewOldBill")->text()), "查看");
  }
}

TEST_F(RecordRooms, EnterShowsTheBillBehindAnInvoiceInTheBillList) {
  invoices().show_list(1);
  invoices().table().setFocus();
  for (int n = 0; n < 3; ++n) user.key(Qt::Key_Down);
  std::vector<std::string> aShown;
  user.in_next_dialog(
      [&](QDialog& dialog) {
        auto* pTable = dialog.findChild<QTableWidget*>();
        for (int n = 0; n < pTable->columnCount(); ++n)
          aShown.push_back(
              utf8(pTable->horizontalHeaderItem(n)->text() + QStringLiteral(" ") + pTable->item(0, n)->text()));
        EXPECT_EQ(pTable->rowCount(), 1);
        QTest::keyClick(&dialog, Qt::Key_Escape);
      },
      QStringLiteral("bills"));
  user.key(Qt::Key_Return);
  ASSERT_GE(aShown.size(), 8u);
  EXPECT_EQ(aShown[0], "单据编号 XSFP000004");
  EXPECT_EQ(aShown[3], "往来单位 Pacific Trading");
  EXPECT_EQ(aShown[4], "币别 美元");
  EXPECT_EQ(aShown[6], "金额 1,200.00");
  EXPECT_EQ(aShown[7], "本位币金额 8,520.00");
}

TEST_F(RecordRooms, WithoutASelectedInvoiceTheViewDoesNothing) {
  invoices().show_list(1);
  invoices().table().selectionModel()->clear();
  invoices().bars().action("mnuViewOldBill")->trigger();
  EXPECT_TRUE(user.seat.session.shown_bill_lists.empty());
  EXPECT_EQ(utf8(invoices().status()), "共5行");
}

TEST_F(RecordRooms, AnInvoiceOfAnotherSeatIsSeenAfterF5AndTheCurrentLineStays) {
  invoices().show_list(1);
  invoices().table().setFocus();
  for (int n = 0; n < 2; ++n) user.key(Qt::Key_Down);
  user.book.database->exec(
      "INSERT INTO ICSale (FBillNo, FDate, FDueDate, FCustID, FAmountFor, FAmount) VALUES ('XSFP000000', '2026-11-02',"
      " '2026-12-02', 1, 10000, 10000)");
  user.key(Qt::Key_F5);
  EXPECT_EQ(invoices().lines().model().rowCount(), 6);
  EXPECT_EQ(cell(invoices(), invoices().table().currentIndex().row(), 0), "XSFP000003");
}

TEST_F(RecordRooms, TheOpeningBalancesOfBothSidesShowTheirLinesAndOpenNoBill) {
  balances().table().setFocus();
  EXPECT_EQ(shown_list(balances()), "期初应收");
  ASSERT_EQ(balances().lines().model().rowCount(), 1);
  EXPECT_EQ(cell(balances(), 0, 1), "海天贸易");
  EXPECT_EQ(cell(balances(), 0, 5), "8,000.00");
  user.key(Qt::Key_Return);
  EXPECT_EQ(utf8(balances().status()), "命令“查看”现在不可用。") << "the plug-in takes the command away";
  EXPECT_TRUE(user.seat.session.shown_bill_lists.empty());
  user.key(Qt::Key_PageDown, Qt::ControlModifier);
  EXPECT_EQ(shown_list(balances()), "期初应付");
  EXPECT_EQ(cell(balances(), 0, 1), "华北钢铁");
  EXPECT_EQ(cell(balances(), 0, 5), "6,000.00");
}

TEST_F(RecordRooms, AnAmountIsFoundAsItIsShownOrPlainAndIsPlainInAFile) {
  balances().table().setFocus();
  for (const char* sTyped : {"8,000.00", "8000", "8,000"}) {
    balances().lines().filter().setText(QString::fromLatin1(sTyped));
    EXPECT_EQ(balances().lines().model().rowCount(), 1) << sTyped;
  }
  EXPECT_NE(utf8(csv_text(balances().lines().model())).find(",8000.00,"), std::string::npos);
}

TEST_F(RecordRooms, TheBarsOfTheOpeningBalancesOnlyRead) {
  const BarView& bars = balances().bars();
  for (const char* sTool : {"mnuDataFilter", "mnuDataRefesh", "mnuFileExit"}) EXPECT_TRUE(shows(bars, sTool)) << sTool;
  for (const char* sTool : {"mnuFileView", "mnuViewOldBill", "mnuExportData", "mnuFilePageSetup", "mnuEditCopy"})
    EXPECT_FALSE(shows(bars, sTool)) << sTool;
}

TEST_F(RecordRooms, TheRoomsSpeakEnglishAndTheListsKeepTheirNames) {
  invoices();
  user.window.change_language(Language::English);
  EXPECT_EQ(utf8(user.window.current_room()->windowTitle()), "Invoices");
  EXPECT_EQ(utf8(invoices().table().model()->headerData(0, Qt::Horizontal).toString()), "Number");
  EXPECT_EQ(shown_list(invoices()), "销售发票(专用)");
  user.window.change_language(Language::Chinese);
}

TEST_F(RecordRooms, ExitClosesTheRoomAndItOpensAgain) {
  const QPointer<RecordListView> first(&invoices());
  user.key(Qt::Key_W, Qt::ControlModifier);
  DeskUser::settle();
  EXPECT_TRUE(first.isNull());
  EXPECT_EQ(invoices().lists().count(), 4);
}

}  // namespace
}  // namespace desk::testing
