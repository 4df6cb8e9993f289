#include <QFile>
#include <QTemporaryDir>

#include "desk/sides.h"
#include "desk_user.h"
#include "many_bills.h"
#include "windows/csv_export.h"
#include "windows/result_dialog.h"

namespace desk::testing {
namespace {

/// The list window of each side, over twenty bills of two entries.
class BillList : public ::testing::TestWithParam<const SettlementTables*> {
 protected:
  static constexpr std::int32_t kBills = 20;

  BillList() {
    add_bills(*user.book.database, tables(), kBills);
    list().refresh();
  }

  const SettlementTables& tables() const { return *GetParam(); }
  BillListView& list() { return user.list(tables()); }
  std::string bills_of_status(const std::string& sStatus) {
    return user.text_of(side_sql(tables(), "SELECT COUNT(*) AS F FROM {bill} WHERE FStatus = " + sStatus));
  }
  void press(const std::string& sTool) {
    QAction* pAction = list().bars().action(sTool);
    ASSERT_NE(pAction, nullptr) << sTool;
    pAction->trigger();
  }
  void select_all() { QTest::keyClick(&list().table(), Qt::Key_A, Qt::ControlModifier); }
  /// Takes the lines of the next result window and closes it.
  void read_next_result() {
    user.in_next_dialog(
        [this](QDialog& dialog) {
          result = utf8(csv_text(*dialog.findChild<QTableView*>()->model()));
          QTest::keyClick(&dialog, Qt::Key_Escape);
        },
        QStringLiteral("result"));
  }
  std::ptrdiff_t result_lines(const std::string& sPart) const {
    std::ptrdiff_t nLines = 0;
    for (std::size_t n = result.find(sPart); n != std::string::npos; n = result.find(sPart, n + 1)) ++nLines;
    return nLines;
  }

  DeskUser user;
  std::string result;
};
INSTANTIATE_TEST_SUITE_P(Sides, BillList, ::testing::Values(&kReceiptTables, &kPaymentTables),
                         [](const auto& side) { return money_comes_in(*side.param) ? "Receipts" : "Payments"; });

TEST_P(BillList, TheBarsAreThoseThatThePlugInSets) {
  const BarView& bars = list().bars();
  for (const char* sTool : {"mnuFileNew", "mnuFileView", "mnuEditModify", "mnuEditDelete", "Check", "UnCheck",
                            "Voucher", "mnuDataRefesh", "mnuExportData", "mnuFileExit"}) {
    ASSERT_NE(bars.action(sTool), nullptr) << sTool;
    EXPECT_TRUE(bars.action(sTool)->isVisible()) << sTool;
  }
  for (const char* sTool : {"mnuEditCopy", "mnuPushBill", "mnuDataViewPrvBill", "mnuFormatFont"}) {
    ASSERT_NE(bars.action(sTool), nullptr) << sTool;
    EXPECT_FALSE(bars.action(sTool)->isVisible()) << sTool;
  }
  EXPECT_EQ(utf8(bars.action("Check")->text()), "审核");
}

TEST_P(BillList, ABillOfTwoEntriesHasTwoLinesWithItsPartnerAndSource) {
  const LinesModel& model = list().lines().model();
  ASSERT_EQ(model.rowCount(), 2 * kBills);
  EXPECT_EQ(utf8(model.index(0, 0).data().toString()), "B1001");
  EXPECT_EQ(utf8(model.index(1, 0).data().toString()), "B1001");
  EXPECT_EQ(utf8(model.index(1, 2).data().toString()), money_comes_in(tables()) ? "海天贸易" : "华北钢铁");
  EXPECT_EQ(utf8(model.index(1, 6).data().toString()), "N1021");
  EXPECT_EQ(utf8(model.index(1, 7).data().toString()), "40.00");
}

TEST_P(BillList, ABatchIsCheckedUncheckedAndDeletedWithALineABill) {
  for (const auto& [sTool, sText] : {std::pair("Check", "审核[编号:B10"), std::pair("UnCheck", "反审核[编号:B10"),
                                     std::pair("mnuEditDelete", "删除[编号:B10")}) {
    select_all();
    if (std::string_view(sTool) == "mnuEditDelete") user.answer_next_box(Qt::Key_Y);
    read_next_result();
    press(sTool);
    EXPECT_EQ(result_lines(sText), kBills) << sTool << "\n" << result;
  }
  EXPECT_EQ(list().lines().model().rowCount(), 0);
  EXPECT_EQ(bills_of_status("0"), "0");
}

TEST_P(BillList, WhileABatchRunsItsProgressTakesEveryKeyAndASecondPressIsPassedOver) {
  select_all();
  user.in_next_dialog(
      [&](QDialog& dialog) {
        QTest::keyClick(&dialog, Qt::Key_Escape);
        dialog.close();
        EXPECT_TRUE(dialog.isVisible());
        EXPECT_TRUE(dialog.isModal());
        press("UnCheck");
        read_next_result();
      },
      QStringLiteral("progress"));
  press("Check");
  EXPECT_EQ(result_lines("成功"), kBills) << result;
  EXPECT_EQ(result_lines("反审核"), 0);
  EXPECT_EQ(bills_of_status("1"), std::to_string(kBills));
}

TEST_P(BillList, OneBillIsAnsweredByABoxAndItsLinesStayCurrent) {
  list().table().setCurrentIndex(list().lines().model().index(6, 0));
  user.answer_next_box();
  QTest::keyClick(&list().table(), Qt::Key_F4);
  EXPECT_EQ(user.boxes, std::vector<std::string>{"审核[编号:B1004]单据成功!"});
  EXPECT_EQ(bills_of_status("1"), "1");
  EXPECT_EQ(utf8(list().lines().model().index(list().table().currentIndex().row(), 0).data().toString()), "B1004");
}

TEST_P(BillList, ABillWhoseLinesAreApartOnTheScreenIsOperatedOnOnce) {
  LinesView& lines = list().lines();
  list().table().sortByColumn(7, Qt::AscendingOrder);  // all second entries, then all first ones
  EXPECT_EQ(utf8(lines.model().index(0, 7).data().toString()), "40.00");
  EXPECT_EQ(utf8(lines.model().index(2 * kBills - 1, 7).data().toString()), "60.00");
  select_all();
  read_next_result();
  press("Check");
  EXPECT_EQ(result_lines("成功"), kBills) << result;
  EXPECT_EQ(result_lines("\r\n"), kBills + 1);
}

TEST_P(BillList, ABillThatAnotherSeatHoldsIsTheOneLineWithTheConflict) {
  user.book.database->exec(
      "INSERT INTO t_Task (FSystem, FFunction, FExtra, FMachine, FProcess, FUser, FSince) VALUES (21, ?, ',1007,',"
      " 'SEAT-2', 4711, 'clerk', '2026-11-15T09:30:00')",
      {Bind(edit_function(tables().nClass))});
  select_all();
  read_next_result();
  press("Check");
  EXPECT_EQ(result_lines("当前使用的功能与其他用户有冲突,目前无法使用!"), 1) << result;
  EXPECT_EQ(bills_of_status("1"), std::to_string(kBills - 1));
}

TEST_P(BillList, AnExportedListHasItsCaptionsAndTheLinesInView) {
  list().lines().filter().setText(QStringLiteral("b1003"));
  QTemporaryDir folder;
  const QString sPath = folder.filePath(QStringLiteral("list.csv"));
  ASSERT_TRUE(export_csv(list().lines().model(), sPath));
  QFile file(sPath);
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  const std::string sText = file.readAll().toStdString();
  EXPECT_EQ(sText.substr(0, 3), "\xEF\xBB\xBF");
  EXPECT_NE(sText.find("单据编号,日期,往来单位"), std::string::npos);
  EXPECT_EQ(std::count(sText.begin(), sText.end(), '\n'), 3) << sText;
  EXPECT_FALSE(export_csv(list().lines().model(), folder.filePath(QStringLiteral("no/such/list.csv"))));
}

TEST_P(BillList, TheFilterNarrowsInAnyCaseAndACommandGoesToWhatIsSelectedThere) {
  list().lines().filter().setText(QStringLiteral("n1012"));
  ASSERT_EQ(list().lines().model().rowCount(), 1);
  select_all();
  user.answer_next_box();
  press("Check");
  EXPECT_EQ(user.boxes, std::vector<std::string>{"审核[编号:B1012]单据成功!"});
}

TEST_P(BillList, EnterOpensTheBillAndALaterCommandThereIsSeenInTheList) {
  list().table().setCurrentIndex(list().lines().model().index(2, 0));
  QTest::keyClick(&list().table(), Qt::Key_Return);
  ASSERT_NE(user.window.current_bill(), nullptr);
  EXPECT_EQ(user.shown("FBillNo"), "B1002");
  EXPECT_EQ(user.bill().window().body().size(), 2u);
  user.answer_next_box();
  user.command("mnuEditCheck");
  EXPECT_NE(user.boxes.back().find("[B1002]审核成功"), std::string::npos) << user.boxes.back();
  EXPECT_EQ(utf8(list().lines().model().index(2, 5).data().toString()), "已审核");
}

TEST_P(BillList, ExitClosesTheListAndItsRoomOpensItAgain) {
  const QPointer<BillListView> first(&list());
  press("mnuFileExit");
  DeskUser::settle();
  EXPECT_TRUE(first.isNull());
  user.room("操作日志");
  EXPECT_EQ(list().lines().model().rowCount(), 2 * kBills);
}

}  // namespace
}  // namespace desk::testing
