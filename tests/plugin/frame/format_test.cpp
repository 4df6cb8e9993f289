#include <gtest/gtest.h>

#include "frame/conversions.h"
#include "support/case_name.h"

namespace arap {
namespace {

struct FormatCase {
  Variant vValue;
  std::string_view sMask;
  std::string_view sExpected;
};

std::string NameOfFormatCase(const ::testing::TestParamInfo<FormatCase>& test) {
  return testing::case_name(test.index, std::string(test.param.sMask) + " " + std::string(test.param.sExpected));
}

class FormatTable : public ::testing::TestWithParam<FormatCase> {};

TEST_P(FormatTable, PrintsByTheMask) {
  const auto& [vValue, sMask, sExpected] = GetParam();
  EXPECT_EQ(Format(vValue, sMask), sExpected) << sMask;
}

INSTANTIATE_TEST_SUITE_P(
    Numbers, FormatTable,
    ::testing::Values(FormatCase{1.125, "#0.0001", "1.1251"}, FormatCase{-1.125, "#0.0001", "-1.1251"},
                      FormatCase{2.0, "#0.01", "2.01"}, FormatCase{0.5, "0", "1"}, FormatCase{1.5, "0", "2"},
                      FormatCase{2.5, "0", "3"}, FormatCase{-2.5, "0", "-3"}, FormatCase{1.005, "0.00", "1.01"},
                      FormatCase{2.675, "0.00", "2.68"}, FormatCase{9.995, "0.00", "10.00"},
                      FormatCase{0.0, "0.00", "0.00"}, FormatCase{-0.001, "0.00", "0.00"},
                      FormatCase{7.0, "000", "007"}, FormatCase{1234.0, "000", "1234"}, FormatCase{0.0, "#", ""},
                      FormatCase{0.5, "#.00", ".50"}, FormatCase{5.0, "0.##", "5."}, FormatCase{5.1, "0.##", "5.1"},
                      FormatCase{5.126, "0.##", "5.13"}, FormatCase{1e15, "0", "1000000000000000"},
                      FormatCase{0.000015, "#0.000001", "0.000021"}),
    NameOfFormatCase);

INSTANTIATE_TEST_SUITE_P(Groups, FormatTable,
                         ::testing::Values(FormatCase{1234567.891, "#,##0.00", "1,234,567.89"},
                                           FormatCase{999.0, "#,##0", "999"}, FormatCase{1000.0, "#,##0", "1,000"},
                                           FormatCase{-1234.5, "#,##0.0", "-1,234.5"},
                                           FormatCase{0.0, "#,##0.00", "0.00"}, FormatCase{7.0, "0,000", "0,007"}),
                         NameOfFormatCase);

INSTANTIATE_TEST_SUITE_P(NumbersOfOtherKinds, FormatTable,
                         ::testing::Values(FormatCase{"12.345", "0.00", "12.35"},
                                           FormatCase{std::int32_t{3}, "0.0", "3.0"}, FormatCase{true, "0", "-1"},
                                           FormatCase{Empty{}, "0.00", "0.00"}, FormatCase{Null{}, "0.00", ""},
                                           FormatCase{"abc", "0.00", "abc"}, FormatCase{"", "0.00", ""},
                                           FormatCase{Date{36526}, "0", "36526"}, FormatCase{Missing{}, "0", ""}),
                         NameOfFormatCase);

INSTANTIATE_TEST_SUITE_P(
    Dates, FormatTable,
    ::testing::Values(FormatCase{Date{36526}, "yyyy-mm-dd", "2000-01-01"},
                      FormatCase{Date{36526}, "YYYY-MM-DD", "2000-01-01"},
                      FormatCase{Date{36526.5}, "yyyy-mm-dd", "2000-01-01"},
                      FormatCase{Date{45322.3369212963}, "yyyy-mm-dd hh:mm:ss", "2024-01-31 08:05:10"},
                      FormatCase{Date{45322.3369212963}, "YYYYMMDDHHNNSS", "20240131080510"},
                      FormatCase{Date{45322.3369212963}, "hh:nn mm", "08:05 01"},
                      FormatCase{Date{45322}, "m/d/yy", "1/31/24"}, FormatCase{Date{45322}, "yyyy年mm月", "2024年01月"},
                      FormatCase{Date{-1.25}, "yyyy-mm-dd hh", "1899-12-29 06"}),
    NameOfFormatCase);

INSTANTIATE_TEST_SUITE_P(DatesOfOtherKinds, FormatTable,
                         ::testing::Values(FormatCase{"2024/1/3", "YYYY-MM-DD", "2024-01-03"},
                                           FormatCase{std::int32_t{36526}, "yyyy-mm-dd", "2000-01-01"},
                                           FormatCase{"", "YYYY-MM-DD", ""}, FormatCase{Empty{}, "YYYY-MM-DD", ""},
                                           FormatCase{Null{}, "YYYY-MM-DD", ""},
                                           FormatCase{"not a date", "yyyy-mm-dd", "not a date"},
                                           FormatCase{3e6, "yyyy-mm-dd", "3000000"},
                                           FormatCase{"20240131", "yyyy-mm-dd", "20240131"}),
                         NameOfFormatCase);

INSTANTIATE_TEST_SUITE_P(WithoutAMask, FormatTable,
                         ::testing::Values(FormatCase{1.5, "", "1.5"}, FormatCase{Null{}, "", ""},
                                           FormatCase{Date{36526}, "", "2000-01-01"}, FormatCase{"a", "", "a"}),
                         NameOfFormatCase);

TEST(Format, PrintsWhatValReadsBack) {
  for (int nCents = -200000; nCents <= 200000; nCents += 7) {
    const double dValue = nCents / 100.0;
    ASSERT_EQ(Val(Format(dValue, "#0.00")), dValue);
    ASSERT_EQ(ToDouble(Format(dValue, "#,##0.00")), dValue);
  }
}

}  // namespace
}  // namespace arap
