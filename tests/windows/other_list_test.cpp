#include "desk_user.h"
#include "many_bills.h"
#include "windows/csv_export.h"

namespace desk::testing {
namespace {

struct OtherList {
  const char* sRoom;
  const OtherTables& tables;
  const char* sLock;  // the task of its modify function
};
constexpr OtherList kIn{"其他收入单", kOtherReceivableTables, "AR0302"};
constexpr OtherList kOut{"费用支出单", kOtherPayableTables, "AP0302"};

/// The list of other bills of each side over twelve unchecked bills of two entries beside the one that the book has.
class OtherBillList : public ::testing::TestWithParam<const OtherList*> {
 protected:
  static constexpr std::int32_t kBills = 12;

  OtherBillList() {
    add_other_bills(*user.book.database, GetParam()->tables, kBills);
    list().refresh();
  }
  BillListView& list() { return user.list(GetParam()->sRoom); }
  /// How many of the new bills are so in the book.
  std::string bills_where(const std::string& sCondition) {
    return user.text_of(side_sql(GetParam()->tables.side,
                                 "SELECT COUNT(*) AS F FROM {other} WHERE FBillNo LIKE 'B1%' AND " + sCondition));
  }
  /// Runs a command on all lines of the new bills; answers its result as CSV text.
  std::string batch(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    std::string sResult;
    list().lines().filter().setText(QStringLiteral("b1"));
    list().table().setFocus();
    user.key(Qt::Key_A, Qt::ControlModifier);
    user.in_next_dialog(
        [&](QDialog& dialog) {
          sResult = utf8(csv_text(*dialog.findChild<QTableView*>()->model()));
          QTest::keyClick(&dialog, Qt::Key_Escape);
        },
        QStringLiteral("result"));
    user.key(key, modifiers);
    return sResult;
  }
  static int count(const std::string& sText, const std::string& sPart) {
    int nFound = 0;
    for (std::size_t n = sText.find(sPart); n != std::string::npos; n = sText.find(sPart, n + 1)) ++nFound;
    return nFound;
  }

  DeskUser user;
};
INSTANTIATE_TEST_SUITE_P(Sides, OtherBillList, ::testing::Values(&kIn, &kOut),
                         [](const auto& list) { return list.param == &kIn ? "Receivables" : "Payables"; });

TEST_P(OtherBillList, TheBarsAreThoseThatThePlugInSets) {
  const BarView& bars = list().bars();
  for (const char* sTool : {"mnuFileNew", "mnuFileView", "mnuEditModify", "mnuEditDelete", "Check", "UnCheck",
                            "Voucher", "mnuDataRefesh", "mnuDataViewNextBill", "mnuFileExit"}) {
    ASSERT_NE(bars.action(sTool), nullptr) << sTool;
    EXPECT_TRUE(bars.action(sTool)->isVisible()) << sTool;
  }
  for (const char* sTool : {"mnuExportData", "mnuPushBill", "mnuDataViewPrvBill", "mnuFormatFont"}) {
    ASSERT_NE(bars.action(sTool), nullptr) << sTool;
    EXPECT_FALSE(bars.action(sTool)->isVisible()) << sTool;
  }
}

TEST_P(OtherBillList, ALineNamesTheTypeOfItsEntryAndTheKindOfItsBill) {
  const LinesModel& lines = list().lines().model();
  list().lines().filter().setText(QStringLiteral("b1001"));
  ASSERT_EQ(lines.rowCount(), 2);
  const auto shows = [&](int nColumn) { return utf8(lines.index(1, nColumn).data().toString()); };
  const bool bIn = GetParam() == &kIn;
  EXPECT_EQ(shows(2), bIn ? "新光电子" : "长江包装");
  EXPECT_EQ(shows(4), "100.00");
  EXPECT_EQ(shows(6), bIn ? "服务收入" : "运输费");
  EXPECT_EQ(shows(7), "40.00");
  EXPECT_EQ(shows(8), bIn ? "现收" : "现付");
  EXPECT_EQ(shows(10), "0.00");
}

TEST_P(OtherBillList, ABatchIsCheckedUncheckedAndDeletedWithALineABill) {
  std::string sResult = batch(Qt::Key_F4);
  EXPECT_EQ(count(sResult, "审核[编号:B10"), kBills) << sResult;
  EXPECT_EQ(count(sResult, "\r\n"), kBills + 1) << sResult;
  EXPECT_EQ(bills_where("FStatus = 1 AND FCheckAmountFor = FAmountFor AND FChecker = 'demo'"), "12");
  sResult = batch(Qt::Key_F4, Qt::ShiftModifier);
  EXPECT_EQ(count(sResult, "反审核[编号:B10"), kBills) << sResult;
  EXPECT_EQ(bills_where("FStatus = 0"), "12");
  user.answer_next_box(Qt::Key_Y);
  sResult = batch(Qt::Key_Delete);
  EXPECT_EQ(count(sResult, "删除[编号:B10"), kBills) << sResult;
  EXPECT_EQ(bills_where("1 = 1"), "0");
  EXPECT_EQ(
      user.text_of(side_sql(GetParam()->tables.side, "SELECT COUNT(*) AS F FROM {other}Entry WHERE FBillID > 1000")),
      "0");
}

TEST_P(OtherBillList, ABillThatAnotherSeatHoldsIsPassedOverAndTheOthersAreChecked) {
  user.book.database->exec(
      "INSERT INTO t_Task (FSystem, FFunction, FExtra, FMachine, FProcess, FUser, FSince) VALUES"
      " (21, ?, ',1007,', 'SEAT-2', 4711, 'clerk', '2026-11-15T09:30:00')",
      {Bind(std::string(GetParam()->sLock))});
  const std::string sResult = batch(Qt::Key_F4);
  EXPECT_EQ(count(sResult, "单据成功!"), kBills - 1) << sResult;
  EXPECT_EQ(count(sResult, "当前使用的功能与其他用户有冲突"), 1) << sResult;
  EXPECT_EQ(bills_where("FStatus = 1"), "11");
  EXPECT_EQ(bills_where("FStatus = 0 AND FBillNo = 'B1007'"), "1");
}

TEST_P(OtherBillList, TheRelatedBillsOfOneBillAreShown) {
  list().lines().filter().setText(QStringLiteral("b1001"));
  list().table().selectRow(0);
  std::string sText;
  user.in_next_dialog([&](QDialog& dialog) {
    if (auto* pTable = dialog.findChild<QTableView*>()) sText = utf8(csv_text(*pTable->model()));
    QTest::keyClick(&dialog, Qt::Key_Escape);
  });
  list().press("mnuDataViewNextBill");
  EXPECT_NE(sText.find("没有关联单据。"), std::string::npos) << sText;
}

}  // namespace
}  // namespace desk::testing
