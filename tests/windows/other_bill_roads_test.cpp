#include <QListWidget>

#include "desk_user.h"
#include "services/other_tables.h"

namespace desk::testing {
namespace {

/// Other bills by keyboard, on real windows, each compared with the book at its end.
struct OtherSide {
  const char* sName;
  const OtherTables& tables;
  const char* sRoom;
  Qt::Key newKey;
  const char* sPartner;
  const char* sFirst;  // its terms are 30 days, its limit is 50,000
  const char* sSecond;
  const char* sType;
  const char* sAccount;  // of a bill on credit
};
constexpr OtherSide kIn{
    "Receivables", kOtherReceivableTables, "其他收入单", Qt::Key_I, "FCustomerID", "C001", "C002", "1.02", "1122"};
constexpr OtherSide kOut{"Payables", kOtherPayableTables, "费用支出单", Qt::Key_X, "FSupplyID", "S001", "S002", "2.02",
                         "2202"};

class OtherBillRoads : public ::testing::TestWithParam<const OtherSide*> {
 protected:
  static void start(DeskUser& user, const OtherSide& side) {
    user.key(side.newKey, Qt::ControlModifier | Qt::ShiftModifier);
  }
  static void start_on_credit(DeskUser& user, const OtherSide& side, const char* sPartner) {
    start(user, side);
    user.type("FBillTypeID", std::to_string(side.tables.nCreditType).c_str());
    user.type(side.sPartner, sPartner);
    user.type("FAcctID", side.sAccount);
  }
  static void add_row(DeskUser& user, const OtherSide& side, const char* sAmount) {
    user.key(Qt::Key_Insert, Qt::ControlModifier);
    user.keys(side.sType);  // the caret stands in the new row's first cell
    user.key(Qt::Key_Tab);
    const int nRow = static_cast<int>(user.bill().window().body().size());
    user.type_cell(nRow, "FBillAmountFor", sAmount);
  }
  static std::string in_book(DeskUser& user, const OtherSide& side, const std::string& sColumn) {
    return user.text_of(side_sql(
        side.tables.side, "SELECT " + sColumn + " AS F FROM {other} WHERE FBillNo = '" + user.shown("FBillNo") + "'"));
  }
  static std::string open_in_book(DeskUser& user, const OtherSide& side) {
    return user.text_of(side_sql(
        side.tables.side, "SELECT COUNT(*) AS F FROM {openview} WHERE FBillNo = '" + user.shown("FBillNo") + "'"));
  }
  const OtherSide& side() const { return *GetParam(); }
};
INSTANTIATE_TEST_SUITE_P(Sides, OtherBillRoads, ::testing::Values(&kIn, &kOut),
                         [](const auto& side) { return side.param->sName; });

TEST_P(OtherBillRoads, ABillOnCreditIsEnteredSavedCheckedSeenInTheListAndUncheckedThere) {
  DeskUser user;
  start_on_credit(user, side(), side().sFirst);
  EXPECT_EQ(user.shown("FLimitDate"), "2026-12-15");
  user.type("FLimitDate", "12-20");
  user.type("FExplanation", "carriage");
  add_row(user, side(), "100+20*3");
  add_row(user, side(), "40.5");
  EXPECT_EQ(user.shown("FAmountFor"), "200.50");
  user.answer_next_box();
  user.key(Qt::Key_S, Qt::ControlModifier);
  ASSERT_EQ(user.boxes.size(), 1u);
  EXPECT_NE(user.boxes.back().find("此单审核后，将生成["), std::string::npos) << user.boxes.back();
  EXPECT_EQ(in_book(user, side(), "FLimitDate"), "2026-12-20");
  EXPECT_EQ(in_book(user, side(), "FAmountFor"), "2005000");
  EXPECT_EQ(open_in_book(user, side()), "0");

  user.answer_next_box();  // the check saves once more
  user.answer_next_box();
  user.key(Qt::Key_F4);
  EXPECT_NE(user.boxes.back().find("[" + user.shown("FBillNo") + "]审核成功。"), std::string::npos)
      << user.boxes.back();
  EXPECT_TRUE(user.bill().head().edit("FExplanation")->isReadOnly());
  EXPECT_EQ(in_book(user, side(), "FChecker"), "demo");
  EXPECT_EQ(open_in_book(user, side()), "1");

  const std::string sNumber = user.shown("FBillNo");
  user.key(Qt::Key_W, Qt::ControlModifier);
  DeskUser::settle();
  BillListView& list = user.list(side().sRoom);
  list.lines().filter().setText(qt(sNumber));
  const LinesModel& lines = list.lines().model();
  ASSERT_EQ(lines.rowCount(), 2);
  const auto shows = [&](int nColumn) { return utf8(lines.index(1, nColumn).data().toString()); };
  EXPECT_EQ(shows(4), "200.50");
  EXPECT_EQ(shows(5), "已审核");
  EXPECT_EQ(shows(7), "40.50");
  EXPECT_EQ(shows(9), "2026-12-20");
  list.table().setFocus();
  QTest::keyClick(&list.table(), Qt::Key_A, Qt::ControlModifier);
  user.answer_next_box();
  user.key(Qt::Key_F4, Qt::ShiftModifier);
  EXPECT_EQ(user.boxes.back(), "反审核[编号:" + sNumber + "]单据成功!");
  EXPECT_EQ(shows(5), "未审核");
  user.key(Qt::Key_Return);
  EXPECT_EQ(user.shown("FBillNo"), sNumber);
  EXPECT_EQ(in_book(user, side(), "FStatus"), "0");
  EXPECT_EQ(in_book(user, side(), "FChecker"), "");
  EXPECT_EQ(open_in_book(user, side()), "0");
}

TEST_P(OtherBillRoads, ABillPaidAtOnceSettlesItselfWhenItIsChecked) {
  DeskUser user;
  start(user, side());
  const auto* pRooms = user.window.findChild<QListWidget*>(QStringLiteral("rooms"));
  EXPECT_EQ(utf8(pRooms->currentItem()->text()), side().sRoom);
  EXPECT_TRUE(user.bill().head().edit("FLimitDate")->isReadOnly());
  user.type("FSettleID", "02");
  user.type("FAcctID", "1001");
  add_row(user, side(), "75");
  user.key(Qt::Key_S, Qt::ControlModifier);
  EXPECT_NE(user.shown("FBillNo"), "") << utf8(user.bill().status());
  user.answer_next_box();
  user.key(Qt::Key_F4);
  EXPECT_NE(user.boxes.back().find("审核成功。"), std::string::npos) << user.boxes.back();
  EXPECT_EQ(in_book(user, side(), "FStatus"), "1");
  EXPECT_EQ(in_book(user, side(), "FCheckAmountFor"), "750000");
  EXPECT_EQ(open_in_book(user, side()), "0");
}

TEST_P(OtherBillRoads, EnterInTheLastFieldOfTheHeadBeginsTheFirstRow) {
  DeskUser user;
  start(user, side());
  user.bill().head().edit("FExplanation")->setFocus();
  user.keys("fees");
  user.key(Qt::Key_Return);
  user.key(Qt::Key_Return);
  ASSERT_EQ(user.bill().window().body().size(), 1u);
  user.keys(side().sType);
  user.key(Qt::Key_Tab);
  EXPECT_EQ(user.bill().window().code("FInOutTypeID", 1), side().sType);
}

TEST_P(OtherBillRoads, ARowWithoutAnAmountIsRefusedAndNamedAndNothingIsStored) {
  DeskUser user;
  start_on_credit(user, side(), side().sSecond);
  user.key(Qt::Key_Insert, Qt::ControlModifier);
  user.type_cell(1, "FInOutTypeID", side().sType);
  user.answer_next_box();
  user.key(Qt::Key_S, Qt::ControlModifier);
  EXPECT_NE(user.boxes.back().find("第1行分录没有录入"), std::string::npos) << user.boxes.back();
  EXPECT_EQ(user.bill().window().bill_id(), 0);
  EXPECT_EQ(user.text_of(side_sql(side().tables.side, "SELECT COUNT(*) AS F FROM {other}")), "1");
}

class CreditLimitRoads : public OtherBillRoads {};

TEST_F(CreditLimitRoads, ALimitThatWarnsIsAnsweredNoAndThenYes) {
  DeskUser user;
  start_on_credit(user, kIn, "C001");
  add_row(user, kIn, "2*20000");
  user.answer_next_box(Qt::Key_N);
  user.key(Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(user.boxes, std::vector<std::string>{"此客户已超出信用额度，是否继续保存？"});
  EXPECT_EQ(user.bill().window().bill_id(), 0);
  user.answer_next_box(Qt::Key_Y);
  user.answer_next_box();
  user.key(Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(user.boxes.size(), 3u);
  EXPECT_EQ(in_book(user, kIn, "FAmountFor"), "400000000");
}

TEST_F(CreditLimitRoads, ALimitThatRefusesTakesALowerAmountOnly) {
  DeskUser user;
  start_on_credit(user, kOut, "S001");
  add_row(user, kOut, "42000");
  user.answer_next_box();
  user.key(Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(user.boxes, std::vector<std::string>{"此供应商已超出信用额度，不允许保存!"});
  EXPECT_EQ(user.bill().window().bill_id(), 0);
  user.type_cell(1, "FBillAmountFor", "41000");
  user.answer_next_box();
  user.key(Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(in_book(user, kOut, "FAmountFor"), "410000000");
}

}  // namespace
}  // namespace desk::testing
