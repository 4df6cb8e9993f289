#include <gtest/gtest.h>

#include <random>

#include "frame/conversions.h"
#include "support/case_name.h"

namespace arap {
namespace {

template <class Body>
std::int32_t error_of(Body&& body) {
  try {
    body();
  } catch (const AutomationError& error) {
    return error.number();
  }
  return 0;
}

std::string text(Date date) { return TextOf(Variant(date)); }

TEST(DateSerial, CountsFromTheLastButOneDayOf1899) {
  EXPECT_EQ(DateSerial(1899, 12, 30).days, 0);
  EXPECT_EQ(DateSerial(1900, 1, 1).days, 2);
  EXPECT_EQ(DateSerial(2000, 1, 1).days, 36526);
  EXPECT_EQ(DateSerial(1899, 12, 29).days, -1);
  EXPECT_EQ(DateSerial(100, 1, 1).days, -657434);
  EXPECT_EQ(DateSerial(9999, 12, 31).days, 2958465);
}

TEST(DateSerial, CarriesMonthsAndDays) {
  EXPECT_EQ(text(DateSerial(2024, 13, 1)), "2025-01-01");
  EXPECT_EQ(text(DateSerial(2024, 0, 1)), "2023-12-01");
  EXPECT_EQ(text(DateSerial(2024, -11, 1)), "2023-01-01");
  EXPECT_EQ(text(DateSerial(2024, -12, 1)), "2022-12-01");
  EXPECT_EQ(text(DateSerial(2024, 3, 0)), "2024-02-29");
  EXPECT_EQ(text(DateSerial(2023, 2, 30)), "2023-03-02");
  EXPECT_EQ(text(DateSerial(2024, 1, 366)), "2024-12-31");
  EXPECT_EQ(text(DateSerial(99, 13, 1)), "0100-01-01");
}

TEST(DateSerial, RefusesYearsOutsideTheCalendar) {
  EXPECT_EQ(error_of([] { DateSerial(99, 12, 31); }), 5);
  EXPECT_EQ(error_of([] { DateSerial(9999, 12, 32); }), 5);
  EXPECT_EQ(error_of([] { DateSerial(2147483647, 2147483647, 1); }), 5);
  EXPECT_EQ(error_of([] { DateSerial(2024, 1, 2147483647); }), 5);
}

TEST(DayOf, TakesApartWhatDateSerialPutTogether) {
  std::mt19937 random(12);
  for (int n = 0; n < 20000; ++n) {
    const Date date{static_cast<double>(static_cast<int>(random() % 3615900) - 657434)};
    const CalendarDay day = DayOf(date);
    ASSERT_EQ(DateSerial(day.nYear, day.nMonth, day.nDay), date);
    ASSERT_EQ(ToDate(text(date)), date) << date.days;
  }
}

TEST(DayOf, IgnoresTheTimeOnBothSidesOfDayZero) {
  EXPECT_EQ(DayOf(Date{1.75}).nDay, 31);
  EXPECT_EQ(DayOf(Date{-1.75}).nDay, 29);
  EXPECT_EQ(error_of([] { DayOf(Date{3e6}); }), 5);
}

struct AddCase {
  std::string_view sInterval;
  int nNumber;
  std::string_view sFrom;
  std::string_view sExpected;
};

TEST(DateAdd, StopsAtTheLastDayOfAMonth) {
  const AddCase aCases[] = {
      {"m", 1, "2024-01-31", "2024-02-29"},
      {"m", 1, "2023-01-31", "2023-02-28"},
      {"m", -1, "2024-03-31", "2024-02-29"},
      {"m", 12, "2024-02-29", "2025-02-28"},
      {"m", -2, "2024-01-15", "2023-11-15"},
      {"yyyy", 1, "2024-02-29", "2025-02-28"},
      {"yyyy", 4, "2024-02-29", "2028-02-29"},
      {"YYYY", -1, "2024-01-31", "2023-01-31"},
      {"d", 1, "2024-02-28", "2024-02-29"},
      {"D", -31, "2024-01-31", "2023-12-31"},
      {"M", 1, "2024-01-31 08:30:00", "2024-02-29 08:30:00"},
      {"d", 0, "2024-01-31 23:59:59", "2024-01-31 23:59:59"},
      {"d", -1, "1899-12-30 06:00:00", "1899-12-29 06:00:00"},
  };
  for (const auto& [sInterval, nNumber, sFrom, sExpected] : aCases) {
    EXPECT_EQ(text(DateAdd(sInterval, nNumber, ToDate(sFrom == "1899-12-30 06:00:00" ? "06:00:00" : sFrom))), sExpected)
        << sFrom;
  }
}

TEST(DateAdd, RefusesOtherIntervalsAndOtherYears) {
  EXPECT_EQ(error_of([] { DateAdd("x", 1, Date{1}); }), 5);
  EXPECT_EQ(error_of([] { DateAdd("yyyy", 9000, Date{1}); }), 5);
  EXPECT_EQ(error_of([] { DateAdd("m", 2147483647, Date{1}); }), 5);
  EXPECT_EQ(error_of([] { DateAdd("d", -2147483647, Date{1}); }), 5);
}

struct DateCase {
  std::string_view sText;
  std::string_view sExpected;  // "" when it isn't a date
};

std::string NameOfDateCase(const ::testing::TestParamInfo<DateCase>& test) {
  return testing::case_name(test.index, test.param.sText);
}

class DateText : public ::testing::TestWithParam<DateCase> {};

TEST_P(DateText, IsADateAsAWholeOrDoesNotConvert) {
  const auto& [sText, sExpected] = GetParam();
  EXPECT_EQ(IsDate(sText), !sExpected.empty());
  if (sExpected.empty()) {
    EXPECT_EQ(error_of([text = sText] { ToDate(text); }), 13);
  } else {
    EXPECT_EQ(text(ToDate(sText)), sExpected);
  }
}

INSTANTIATE_TEST_SUITE_P(Dates, DateText,
                         ::testing::Values(DateCase{"2024-01-31", "2024-01-31"}, DateCase{" 2024/1/3 ", "2024-01-03"},
                                           DateCase{"2024.1.3", "2024-01-03"}, DateCase{"1/31/2024", "2024-01-31"},
                                           DateCase{"24-1-3", "2024-01-03"}, DateCase{"30-1-3", "1930-01-03"},
                                           DateCase{"2024年1月31日", "2024-01-31"},
                                           DateCase{"2024-01-31 8:05", "2024-01-31 08:05:00"},
                                           DateCase{"2024-01-31 23:59:59", "2024-01-31 23:59:59"},
                                           DateCase{"12:30", "12:30:00"}, DateCase{"1:30:05 PM", "13:30:05"},
                                           DateCase{"12:00 am", "00:00:00"}, DateCase{"0100-01-01", "0100-01-01"},
                                           DateCase{"2024-02-29", "2024-02-29"}),
                         NameOfDateCase);

INSTANTIATE_TEST_SUITE_P(
    Others, DateText,
    ::testing::Values(DateCase{"", ""}, DateCase{" ", ""}, DateCase{"abc", ""}, DateCase{"20240131", ""},
                      DateCase{"2023-02-29", ""}, DateCase{"2024-13-01", ""}, DateCase{"2024-00-01", ""},
                      DateCase{"2024-01-00", ""}, DateCase{"2024-01/31", ""}, DateCase{"2024-01-31x", ""},
                      DateCase{"2024-01-31 24:00", ""}, DateCase{"2024-01-31 8:60", ""}, DateCase{"8:05:60", ""},
                      DateCase{"13:00 PM", ""}, DateCase{"2024-01", ""}, DateCase{"1.5", ""}, DateCase{"5", ""},
                      DateCase{"2024年1月31", ""}, DateCase{"12345-01-01", ""}, DateCase{"8:", ""}),
    NameOfDateCase);

TEST(ToDate, TakesNumbersAsDays) {
  EXPECT_EQ(ToDate(std::int32_t{36526}), DateSerial(2000, 1, 1));
  EXPECT_EQ(ToDate(Empty{}).days, 0);
  EXPECT_EQ(ToDate(true).days, -1);
  EXPECT_EQ(ToDate(Date{1.5}).days, 1.5);
  EXPECT_EQ(error_of([] { ToDate(3e6); }), 6);
  EXPECT_EQ(error_of([] { ToDate(Null{}); }), 94);
  EXPECT_EQ(error_of([] { ToDate(Missing{}); }), 13);
  EXPECT_FALSE(IsDate(36526.0));
  EXPECT_TRUE(IsDate(Date{1}));
  EXPECT_FALSE(IsDate(Null{}));
}

TEST(TextOfADate, LeavesOutWhatIsNotThere) {
  EXPECT_EQ(text(Date{36526}), "2000-01-01");
  EXPECT_EQ(text(Date{36526.5}), "2000-01-01 12:00:00");
  EXPECT_EQ(text(Date{0.25}), "06:00:00");
  EXPECT_EQ(text(Date{0}), "00:00:00");
  EXPECT_EQ(text(Date{-1.25}), "1899-12-29 06:00:00");
  EXPECT_EQ(text(Date{36525.9999999}), "2000-01-01");
}

}  // namespace
}  // namespace arap
