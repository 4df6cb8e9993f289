#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

#include "frame/conversions.h"
#include "support/case_name.h"

namespace arap {
namespace {

struct ValCase {
  std::string_view sText;
  double dExpected;
};

std::string NameOfValCase(const ::testing::TestParamInfo<ValCase>& test) {
  return testing::case_name(test.index, test.param.sText);
}

class ValTable : public ::testing::TestWithParam<ValCase> {};

TEST_P(ValTable, ReadsTheNumericPrefix) { EXPECT_EQ(Val(GetParam().sText), GetParam().dExpected); }

INSTANTIATE_TEST_SUITE_P(Val, ValTable,
                         ::testing::Values(ValCase{"", 0}, ValCase{" ", 0}, ValCase{"12", 12}, ValCase{"12.5", 12.5},
                                           ValCase{".5", .5}, ValCase{"5.", 5}, ValCase{".", 0}, ValCase{"-3", -3},
                                           ValCase{"+3", 3}, ValCase{"--3", 0}, ValCase{"- 3", -3}, ValCase{"3-", 3},
                                           ValCase{"1 2 3", 123}, ValCase{"1\t2\n3", 123}, ValCase{"  1 . 5 ", 1.5},
                                           ValCase{"1\r2", 1}, ValCase{"1.2.3", 1.2}, ValCase{"1,234", 1},
                                           ValCase{"12abc", 12}, ValCase{"abc12", 0}, ValCase{"True", 0},
                                           ValCase{"12元", 12}, ValCase{"2024-01-31", 2024}, ValCase{"0x10", 0}),
                         NameOfValCase);

INSTANTIATE_TEST_SUITE_P(Exponents, ValTable,
                         ::testing::Values(ValCase{"1E3", 1000}, ValCase{"1e3", 1000}, ValCase{"1D3", 1000},
                                           ValCase{"1d-3", .001}, ValCase{"1E+3", 1000}, ValCase{"1 E 3", 1000},
                                           ValCase{"1E", 1}, ValCase{"1E+", 1}, ValCase{"1Ex", 1}, ValCase{"E3", 0},
                                           ValCase{"1.5E2.5", 150}, ValCase{"-1E-2", -.01}, ValCase{"1E-400", 0},
                                           ValCase{"1E400", std::numeric_limits<double>::infinity()}),
                         NameOfValCase);

INSTANTIATE_TEST_SUITE_P(Literals, ValTable,
                         ::testing::Values(ValCase{"&HFF", 255}, ValCase{"&hff", 255}, ValCase{" & H F F", 255},
                                           ValCase{"&HFFFF", -1}, ValCase{"&H8000", -32768}, ValCase{"&H7FFF", 32767},
                                           ValCase{"&HFFFF&", 65535}, ValCase{"&H10000", 65536},
                                           ValCase{"&HFFFFFFFF", -1}, ValCase{"&O17", 15}, ValCase{"&o18", 1},
                                           ValCase{"&HG", 0}, ValCase{"&H", 0}, ValCase{"&", 0}, ValCase{"&10", 0}),
                         NameOfValCase);

TEST(Val, ReadsBackEveryTextOfAnAmount) {
  std::mt19937_64 random(20240131);
  for (int n = 0; n < 20000; ++n) {
    const auto nCents = static_cast<std::int64_t>(random() % 2'000'000'000'000) - 1'000'000'000'000;
    const double dValue = static_cast<double>(nCents) / 100;
    ASSERT_EQ(Val(TextOf(dValue)), dValue) << nCents;
  }
}

class Thing final : public Object {
 public:
  std::string type_name() const override { return "Thing"; }
  Variant invoke(Member member, Access, Arguments) override { no_such_member(member); }
};

TEST(NumberOf, ReadsWhateverHasNoNumberAsZero) {
  EXPECT_EQ(NumberOf(Empty{}), 0);
  EXPECT_EQ(NumberOf(Null{}), 0);
  EXPECT_EQ(NumberOf(Missing{}), 0);
  EXPECT_EQ(NumberOf(Ref<Object>()), 0);
  EXPECT_EQ(NumberOf(make_object<Thing>()), 0);
  EXPECT_EQ(NumberOf("abc"), 0);
  EXPECT_EQ(NumberOf(Date{1e9}), 0);
}

TEST(NumberOf, ReadsTheTextOfTheValueAndSoNoBoolean) {
  EXPECT_EQ(NumberOf(true), 0);
  EXPECT_EQ(NumberOf(DateSerial(2024, 1, 31)), 2024);
  EXPECT_EQ(NumberOf(" 12.50 kg"), 12.5);
}

TEST(NumberOf, TakesNumbersAsTheyAre) {
  EXPECT_EQ(NumberOf(std::int16_t{-7}), -7);
  EXPECT_EQ(NumberOf(std::int32_t{2147483647}), 2147483647);
  EXPECT_EQ(NumberOf(1234.5678), 1234.5678);
  EXPECT_EQ(NumberOf(-1e300), -1e300);
}

TEST(NumberOf, ReadsADoubleThroughFifteenDigits) {
  EXPECT_NE(0.1 + 0.2, 0.3);
  EXPECT_EQ(NumberOf(0.1 + 0.2), 0.3);
  EXPECT_EQ(NumberOf(1.0 / 3), 0.333333333333333);
  EXPECT_EQ(NumberOf(1234567890123456.0), 1234567890123460.0);
}

TEST(NumberOf, EqualsValOfTheTextForEveryDouble) {
  std::mt19937_64 random(7);
  std::uniform_real_distribution<double> mantissa(-10, 10);
  for (int n = 0; n < 50000; ++n) {
    double dValue = mantissa(random) * std::pow(10, static_cast<int>(random() % 30) - 12);
    if (n % 2 == 0) dValue = std::round(dValue * 1e4) / 1e4;
    ASSERT_EQ(NumberOf(dValue), Val(TextOf(dValue))) << dValue;
  }
}

TEST(LongOf, RoundsHalvesToEvenAndRefusesWhatIsTooLarge) {
  EXPECT_EQ(LongOf(2.5), 2);
  EXPECT_EQ(LongOf("3.5"), 4);
  EXPECT_EQ(LongOf(-2.5), -2);
  EXPECT_EQ(LongOf(2147483647.4), 2147483647);
  EXPECT_EQ(LongOf(-2147483648.5), -2147483647 - 1);
  EXPECT_EQ(LongOf(Null{}), 0);
  EXPECT_THROW(LongOf(2147483647.5), AutomationError);
  EXPECT_THROW(LongOf("1E400"), AutomationError);
}

TEST(IntegerOf, RefusesWhatSixteenBitsDoNotHold) {
  EXPECT_EQ(IntegerOf(std::int32_t{32767}), 32767);
  EXPECT_EQ(IntegerOf("-32768.4"), -32768);
  EXPECT_EQ(IntegerOf(Empty{}), 0);
  try {
    IntegerOf(std::int32_t{32768});
    FAIL();
  } catch (const AutomationError& error) {
    EXPECT_EQ(error.number(), 6);
  }
}

}  // namespace
}  // namespace arap
