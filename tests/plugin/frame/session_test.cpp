#include "frame/session.h"

#include <gtest/gtest.h>

#include "frame/text_utils.h"
#include "support/test_bill.h"
#include "support/test_session.h"

namespace arap::testing {
namespace {

class SessionTest : public ::testing::Test {
 protected:
  bool DateIsAccepted(Variant vDate) {
    const auto oBill = make_object<TestBill>();
    oBill->define("FDate", 1);
    oBill->head("FDate", std::move(vDate));
    return CheckBillDate(BillEvent(Ref<Object>(oBill)));
  }

  TestSession session;
};

TEST_F(SessionTest, UserNameIsSharedUnlessALoginObjectIsHeld) {
  session.shared().set("UserName", "shared");
  EXPECT_EQ(GetUserName(), "shared");
  const auto oHeld = make_object<ServerStub>("Login");
  oHeld->property(Member::UserName, "held");
  Module().oLogin = oHeld;
  EXPECT_EQ(GetUserName(), "held");
}

TEST_F(SessionTest, ParsedPropsAreReadByKeyWithoutRegardToCase) {
  ParsePropsString("ConnectString={a=1;b=2};UserName=li;UserID=16394;");
  EXPECT_EQ(GetPropertyValue("username"), "li");
  EXPECT_EQ(UserName(), "li");
  EXPECT_EQ(ConnectString(), "a=1;b=2");
  EXPECT_EQ(UserID(), 16394);
}

TEST_F(SessionTest, KeyThatThePropsLackRaises5) {
  ParsePropsString("UserName=li;");
  try {
    GetPropertyValue("UserID");
    FAIL() << "no error";
  } catch (const AutomationError& error) {
    EXPECT_EQ(error.number(), 5);
  }
}

TEST_F(SessionTest, UserIdBeyondSixteenBitsRaises6) {
  ParsePropsString("UserID=40000;");
  try {
    UserID();
    FAIL() << "no error";
  } catch (const AutomationError& error) {
    EXPECT_EQ(error.number(), 6);
  }
}

TEST_F(SessionTest, SystemParameterIsAskedWithThePropsString) {
  session.set_props("p;");
  session.system_values[{"IC", "CurrentYear"}] = "2024";
  EXPECT_EQ(GetSysParam("IC", "CurrentYear", "1999"), "2024");
  EXPECT_EQ(
      trace().lines_with("GetSysValue"),
      std::vector<std::string>{"NUVBillDataAccess.SysInfo.GetSysValue(\"p;\", \"IC\", \"CurrentYear\") -> \"2024\""});
}

TEST_F(SessionTest, SystemParameterIsTheDefaultAfterAnError) {
  session.server("NUVBillDataAccess.SysInfo").fails(Member::GetSysValue, 1004, "gone");
  EXPECT_EQ(GetSysParam("IC", "CurrentYear", "1999"), "1999");
  session.remove_server("NUVBillDataAccess.SysInfo");
  EXPECT_EQ(GetSysParam("IC", "CurrentYear", "1999"), "1999");
  EXPECT_TRUE(session.platform.messages.empty());
}

TEST_F(SessionTest, HeldRightIsGrantedSilently) {
  EXPECT_TRUE(CheckAccess(kRightsSubSystem, 1000205, kRightUncheck));
  EXPECT_EQ(trace().lines_with("AccessCheck"),
            std::vector<std::string>{"NUVLPCGLView.GLData.AccessCheck(1010, 1000205, 4096) -> True"});
  EXPECT_TRUE(session.platform.messages.empty());
}

TEST_F(SessionTest, MissingRightShowsTheNotice) {
  session.access = [](std::int32_t, std::int32_t, std::int32_t) { return false; };
  EXPECT_FALSE(CheckAccess(kRightsSubSystem, 1000206, kRightCheck));
  ASSERT_EQ(session.platform.messages.size(), 1u);
  EXPECT_EQ(session.platform.messages[0].sText, "没有权限,请与系统管理员联系");
  EXPECT_EQ(session.platform.messages[0].nButtons, 64);
  EXPECT_EQ(session.platform.messages[0].sTitle, "青柚提示");
}

TEST_F(SessionTest, QuestionForARightThatFailsRefusesAndRaisesNothing) {
  session.ledger().fails(Member::AccessCheck, 1004, "gone");
  EXPECT_FALSE(CheckAccess(kRightsSubSystem, 1000201, kRightDelete));
  EXPECT_EQ(session.platform.last_message(), "没有权限,请与系统管理员联系");
}

TEST_F(SessionTest, ActionLogTakesOneLine) {
  WriteActionLog("RP1000205A", 1, "QTYS001审核");
  EXPECT_EQ(session.log, (std::vector<TestSession::LogLine>{{"RP1000205A", 1, "QTYS001审核"}}));
}

TEST_F(SessionTest, ErrorOfTheActionLogIsDropped) {
  session.ledger().fails(Member::WriteLog, 1004, "full");
  EXPECT_NO_THROW(WriteActionLog("RP1000205A", 2, "x"));
  EXPECT_TRUE(session.platform.messages.empty());
}

TEST_F(SessionTest, BillDatedOnTheFirstDayOfThePeriodPasses) {
  session.period_start = "2024-03-01";
  EXPECT_TRUE(DateIsAccepted("2024-03-01"));
  EXPECT_TRUE(DateIsAccepted(Date{45352.0}));
  EXPECT_TRUE(DateIsAccepted("2024-03-02"));
  EXPECT_TRUE(session.platform.messages.empty());
}

TEST_F(SessionTest, TimeOfDayOfThePeriodStartDoesNotCount) {
  session.period_start = "2024-03-01 08:00:00";
  EXPECT_TRUE(DateIsAccepted("2024-03-01"));
}

TEST_F(SessionTest, BillDatedBeforeThePeriodIsRefusedWithAWarning) {
  session.period_start = "2024-03-01";
  EXPECT_FALSE(DateIsAccepted("2024-02-29"));
  ASSERT_EQ(session.platform.messages.size(), 1u);
  EXPECT_EQ(session.platform.messages[0].sText, "不能保存业务系统当前使用期间之前的单据,请修改单据日期。");
  EXPECT_EQ(session.platform.messages[0].nButtons, 48);
  EXPECT_EQ(session.platform.messages[0].sTitle, "青柚提示");
}

TEST_F(SessionTest, PeriodIsAskedWithFiveArguments) {
  DateIsAccepted("2024-03-02");
  EXPECT_EQ(session.server("NUVMCaculate.CommonSearch").last(Member::GetDateExt).size(), 5u);
}

TEST_F(SessionTest, PeriodThatCanNotBeReadRefusesNoBill) {
  session.server("NUVMCaculate.CommonSearch").fails(Member::GetDateExt, 1004, "gone");
  EXPECT_TRUE(DateIsAccepted("2001-01-01"));
  session.period_start = "no date";
  EXPECT_TRUE(DateIsAccepted("2001-01-01"));
  EXPECT_TRUE(session.platform.messages.empty());
}

TEST_F(SessionTest, BillWithoutADateIsNotRefusedThoughThePeriodIsAsked) {
  EXPECT_TRUE(DateIsAccepted(""));
  EXPECT_EQ(session.server("NUVMCaculate.CommonSearch").count(Member::GetDateExt), 1u);
}

TEST_F(SessionTest, CurrentPeriodIsReadByOneBatch) {
  session.system_data.answer("declare @Per int", recordset({"FStartDate", "FEndDate"}, {{" 2024-3-1 ", "2024-03-31"}}));
  EXPECT_EQ(GetCurrentPeriodStart(), "2024-03-01");
  ASSERT_EQ(session.system_data.texts.size(), 1u);
  EXPECT_EQ(session.system_data.texts[0],
            "declare @Per int,@Year int \r\n"
            "select @Per=Fvalue From t_systemprofile where FCategory='IC' and FKey='CurrentPeriod' \r\n"
            "select @Year=Fvalue From t_systemprofile where FCategory='IC' and FKey='CurrentYear' \r\n"
            "Select FStartDate,FEndDate From T_PeriodDate where FYear=@Year And FPeriod=@Per ");
}

TEST_F(SessionTest, CurrentPeriodIsEmptyWithoutARowOrAfterAnError) {
  EXPECT_EQ(GetCurrentPeriodStart(), "");
  session.system_data.fail("declare", 1004, "gone");
  EXPECT_EQ(GetCurrentPeriodStart(), "");
  EXPECT_TRUE(session.platform.messages.empty());
}

TEST_F(SessionTest, CurrentPeriodOfADateColumnIsFormatted) {
  session.system_data.answer("declare", recordset({"FStartDate", "FEndDate"}, {{Date{45352.0}, Null{}}}));
  EXPECT_EQ(GetCurrentPeriodStart(), "2024-03-01");
}

TEST_F(SessionTest, CurrentPeriodThatIsNoDateIsItsTrimmedText) {
  session.system_data.answer("declare", recordset({"FStartDate", "FEndDate"}, {{" first ", Null{}}}));
  EXPECT_EQ(GetCurrentPeriodStart(), "first");
}

TEST_F(SessionTest, ReportDateComesFromTheSystem) {
  session.report_date = "2024-05-31";
  EXPECT_EQ(GetReportTransDate(), DateSerial(2024, 5, 31));
}

TEST_F(SessionTest, ReportDateIsFarAwayAfterAnError) {
  session.server("NUVMSystem.System").fails(Member::GetRptTransDate, 1004, "gone");
  EXPECT_EQ(GetReportTransDate(), DateSerial(9999, 1, 1));
}

}  // namespace
}  // namespace arap::testing
