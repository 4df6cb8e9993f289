#include "otherbills/due_date.h"

#include "frame/conversions.h"

#include "other_bill_fixture.h"
#include "support/case_name.h"

namespace arap::testing {
namespace {

struct PayDayCase {
  const char* sDate;
  std::int16_t nPayDay;
  std::int16_t nBeforeDays;
  const char* sResult;
};
void PrintTo(const PayDayCase& example, std::ostream* pStream) {
  *pStream << example.sDate << " pay day " << example.nPayDay << " before " << example.nBeforeDays;
}

Date DayOfText(const char* sDate) { return ToDate(Variant(sDate)); }
std::string DayText(Date date) { return Format(date, "yyyy-mm-dd"); }

class MonthlyPayDate : public ::testing::TestWithParam<PayDayCase> {};

TEST_P(MonthlyPayDate, IsTheFirstPayDayOnOrAfterTheDate) {
  const PayDayCase& example = GetParam();
  EXPECT_EQ(DayText(GetMonthlyPayDate(DayOfText(example.sDate), example.nPayDay, example.nBeforeDays)),
            example.sResult);
}

std::string NameOfCase(const ::testing::TestParamInfo<PayDayCase>& test) {
  return case_name(test.index, test.param.sDate + (" by " + std::to_string(test.param.nPayDay)));
}
INSTANTIATE_TEST_SUITE_P(
    Examples, MonthlyPayDate,
    ::testing::Values(PayDayCase{"2024-03-10", 15, 0, "2024-03-15"}, PayDayCase{"2024-03-15", 15, 0, "2024-03-15"},
                      PayDayCase{"2024-03-20", 15, 0, "2024-04-15"}, PayDayCase{"2024-12-20", 15, 0, "2025-01-15"},
                      PayDayCase{"2024-04-10", 31, 0, "2024-04-30"}, PayDayCase{"2024-02-10", 30, 0, "2024-02-28"},
                      PayDayCase{"2024-01-31", 30, 0, "2024-02-28"}, PayDayCase{"2024-01-25", 31, 10, "2024-02-28"},
                      PayDayCase{"2024-03-10", 0, 0, "2024-03-10"}),
    NameOfCase);

INSTANTIATE_TEST_SUITE_P(
    Edges, MonthlyPayDate,
    ::testing::Values(PayDayCase{"2024-02-29", 29, 0, "2024-02-28"}, PayDayCase{"2023-02-10", 29, 0, "2023-02-28"},
                      PayDayCase{"2024-02-10", 28, 0, "2024-02-28"}, PayDayCase{"2024-03-10", 31, 0, "2024-03-31"},
                      PayDayCase{"2024-06-10", 30, 0, "2024-06-30"}, PayDayCase{"2024-09-30", 31, 0, "2024-09-30"},
                      PayDayCase{"2024-11-30", 29, 0, "2024-12-29"}, PayDayCase{"2024-12-31", 31, 0, "2024-12-31"},
                      PayDayCase{"2024-03-10", 32, 0, "2024-03-10"}, PayDayCase{"2024-03-10", 32, 5, "2024-03-15"},
                      PayDayCase{"2024-04-10", 32, 0, "2024-04-10"}, PayDayCase{"2024-12-10", 0, 3, "2024-12-13"},
                      PayDayCase{"2024-03-10", -1, 0, "2024-03-10"}, PayDayCase{"2024-03-20", 15, -10, "2024-03-15"},
                      PayDayCase{"2024-03-20", 15, 30, "2024-05-15"}),
    NameOfCase);

/// The months one by one, against a plain model.
TEST(MonthlyPayDateOfAYear, EveryDayOfAYearAndEveryPayDayGoesByTheMonthsTable) {
  constexpr int kDaysOf[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  for (int nOffset = 0; nOffset < 366; ++nOffset) {
    const Date dDate{DateSerial(2024, 1, 1).days + nOffset};
    const CalendarDay day = DayOf(dDate);
    for (std::int16_t nPayDay = 1; nPayDay <= 31; ++nPayDay) {
      const int nMonths = day.nYear * 12 + day.nMonth - 1 + (day.nDay > nPayDay ? 1 : 0);
      const int nDay = std::min<int>(nPayDay, kDaysOf[nMonths % 12]);
      EXPECT_EQ(GetMonthlyPayDate(dDate, nPayDay, 0), DateSerial(nMonths / 12, nMonths % 12 + 1, nDay))
          << nOffset << " " << nPayDay;
    }
  }
}

TEST(MonthlyPayDateOfAYear, TheTimeOfDayIsLostUnlessThePayDayIsInvalid) {
  const Date dMorning{DateSerial(2024, 3, 10).days + 0.25};
  EXPECT_EQ(GetMonthlyPayDate(dMorning, 15, 0), DateSerial(2024, 3, 15));
  EXPECT_EQ(GetMonthlyPayDate(dMorning, 0, 0), dMorning);
}

TEST(MonthInList, FindsAMonthAmongOthers) {
  const std::vector<Variant> aMonths{4, 6, 9, 11};
  EXPECT_TRUE(MonthInList(4, aMonths));
  EXPECT_TRUE(MonthInList(11.0, aMonths));
  EXPECT_FALSE(MonthInList(5, aMonths));
  EXPECT_FALSE(MonthInList(4, {}));
}

class DueDate : public OtherBillTest {
 protected:
  DueDate() { bill->head("FDate", "2024-01-25").head("FLimitDate", "2023-06-01"); }
  void use_terms(Variant vType, Variant vStandDays, Variant vMonthPayDay, Variant vBeforeDays) {
    bill->sql.answer(terms_query(7), recordset({"FType", "FStandDays", "FMonthPayDay", "FBeforeDays"},
                                               {{vType, vStandDays, vMonthPayDay, vBeforeDays}}));
  }
  std::string terms_query(int nPartner) const {
    return std::string(" Select t2.FType,t2.FStandDays,t2.FMonthPayDay,t2.FBeforeDays") +
           pick(" From t_Organization t1 ", ",t1.FValueAddRate From t_Supplier t1 ") +
           "\r\n Left Join t_SetDl t2 ON t1.FPayMentTime=t2.FItemID Where t2.Fdeleted=0 and t1.FItemID=" +
           std::to_string(nPartner);
  }
  bool change(const char* sKey) { return bill->change(sKey, -1, bill->value(sKey)); }
  std::string due_date() const {
    const Variant& vDate = bill->value("FLimitDate");
    return vDate.is_text() ? std::string(vDate.text()) : Format(vDate, "yyyy-mm-dd");
  }
};
INSTANTIATE_OTHER_SIDES(DueDate);

TEST_P(DueDate, OfAnImmediateBillFollowsTheBillDateThoughItsFieldIsLocked) {
  bill->fire(Event::AfterNewBill);
  EXPECT_TRUE(locked("FLimitDate"));
  EXPECT_FALSE(bill->change("FDate", -1, "2024-02-03"));
  EXPECT_EQ(due_date(), "2024-02-03");
  EXPECT_EQ(bill->sql.texts.size(), 0u);
}

TEST_P(DueDate, OfACreditBillWithoutAPartnerFollowsTheBillDate) {
  use_credit();
  bill->head(side.sPartner, 0);
  change("FDate");
  EXPECT_EQ(due_date(), "2024-01-25");
  EXPECT_EQ(bill->sql.texts.size(), 0u);
}

TEST_P(DueDate, OfABillOpenForReadingIsNeverWritten) {
  use_credit();
  use_terms(1, 30, 0, 0);
  bill->edit_mode = 0;
  for (const char* sKey : {"FDate", side.sPartner, "FBillTypeId"}) change(sKey);
  EXPECT_EQ(due_date(), "2023-06-01");
  EXPECT_FALSE(trace().has("FLimitDate\","));
}

TEST_P(DueDate, WithoutTermsIsTheBillDate) {
  use_credit();
  change(side.sPartner);
  EXPECT_EQ(due_date(), "2024-01-25");
  EXPECT_EQ(bill->sql.texts, std::vector<std::string>{terms_query(7)});
}

TEST_P(DueDate, OfFixedDaysIsThatManyCalendarDaysAfterTheBillDate) {
  use_credit();
  use_terms(1, 30, Null{}, Null{});
  EXPECT_FALSE(change(side.sPartner));
  EXPECT_EQ(due_date(), "2024-02-24");
}

TEST_P(DueDate, OfAMonthlyPayDayIsTheNextOne) {
  use_credit();
  use_terms(2, Null{}, std::int16_t{31}, std::int16_t{10});
  EXPECT_FALSE(change(side.sPartner));
  EXPECT_EQ(due_date(), "2024-02-28");
}

TEST_P(DueDate, OfOtherTermsStandsAsItStood) {
  use_credit();
  for (const Variant& vType : {Variant(3), Variant(0), Variant(Null{})}) {
    use_terms(vType, 30, 15, 0);
    EXPECT_FALSE(change(side.sPartner));
    EXPECT_EQ(due_date(), "2023-06-01");
  }
}

TEST_P(DueDate, MovesWhenTheKindOfTheBillChanges) {
  use_terms(1, 30, 0, 0);
  EXPECT_FALSE(bill->change("FBillTypeId", -1, side.nCreditType));
  EXPECT_EQ(due_date(), "2024-02-24");
  EXPECT_FALSE(bill->change("FBillTypeId", -1, side.nImmediateType));
  EXPECT_EQ(due_date(), "2024-01-25");
}

TEST_P(DueDate, NullInTermsOfTheMatchingKindRefusesTheEdit) {
  use_credit();
  struct Terms {
    int nType;
    Variant vStandDays, vMonthPayDay, vBeforeDays;
  };
  for (const Terms& terms : {Terms{1, Null{}, 15, 0}, Terms{2, 30, Null{}, 0}, Terms{2, 30, 15, Null{}}}) {
    use_terms(terms.nType, terms.vStandDays, terms.vMonthPayDay, terms.vBeforeDays);
    std::array<Variant, 5> args{Ref<Object>(bill->info("FDate")), Ref<Object>(&bill->record("FDate")), 1, -1, false};
    try {
      bill->events.fire(Event::Change, args);
      FAIL() << "no error";
    } catch (const AutomationError& error) {
      EXPECT_EQ(error.number(), 94);
    }
    EXPECT_TRUE(args[4].as<bool>());
    EXPECT_EQ(due_date(), "2023-06-01");
  }
}

TEST_P(DueDate, APayDayBeyondSixteenBitsRefusesTheEdit) {
  use_credit();
  use_terms(2, 0, 40000, 0);
  EXPECT_THROW(change("FDate"), AutomationError);
}

TEST_P(DueDate, IsWrittenAsAnEntryOfTheHead) {
  change("FDate");
  EXPECT_TRUE(trace().has("SetFieldValue(\"FLimitDate\", \"2024-01-25\", -1)"));
}

}  // namespace
}  // namespace arap::testing
