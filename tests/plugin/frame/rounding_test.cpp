#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "frame/conversions.h"
#include "frame/text_utils.h"
#include "support/case_name.h"

namespace arap {
namespace {

struct RoundCase {
  double dValue;
  int nDigits;
  double dExpected;
};

std::string NameOfRoundCase(const ::testing::TestParamInfo<RoundCase>& test) {
  return testing::case_name(test.index, TextOf(test.param.dValue) + " to " + std::to_string(test.param.nDigits));
}

class RoundTable : public ::testing::TestWithParam<RoundCase> {};

TEST_P(RoundTable, RoundsHalvesToEvenOnTheDigits) {
  const auto& [dValue, nDigits, dExpected] = GetParam();
  EXPECT_EQ(Round(dValue, nDigits), dExpected);
  EXPECT_EQ(Round(-dValue, nDigits), -dExpected);
}

INSTANTIATE_TEST_SUITE_P(
    Round, RoundTable,
    ::testing::Values(RoundCase{0, 2, 0}, RoundCase{0.5, 0, 0}, RoundCase{1.5, 0, 2}, RoundCase{2.5, 0, 2},
                      RoundCase{0.51, 0, 1}, RoundCase{0.05, 0, 0}, RoundCase{0.05, 1, 0}, RoundCase{0.15, 1, 0.2},
                      RoundCase{1.125, 2, 1.12}, RoundCase{1.135, 2, 1.14}, RoundCase{2.675, 2, 2.68},
                      RoundCase{2.665, 2, 2.66}, RoundCase{1.005, 2, 1.0}, RoundCase{1.0051, 2, 1.01},
                      RoundCase{9.995, 2, 10.0}, RoundCase{99.5, 0, 100}, RoundCase{0.1 + 0.2, 10, 0.3},
                      RoundCase{123.456, 22, 123.456}, RoundCase{1e-10, 2, 0}, RoundCase{5e-3, 2, 0},
                      RoundCase{6e-3, 2, 0.01}, RoundCase{1234567890123456, 2, 1234567890123456},
                      RoundCase{1000000000000000.5, 0, 1000000000000000.0}, RoundCase{1e300, 0, 1e300},
                      RoundCase{99999999999998.51, 0, 99999999999999.0},
                      RoundCase{99999999999998.5, 0, 99999999999998.0}),
    NameOfRoundCase);

TEST(Round, RefusesDigitsOutsideZeroTo22) {
  for (const int nDigits : {-1, 23}) {
    try {
      Round(1, nDigits);
      ADD_FAILURE() << nDigits;
    } catch (const AutomationError& error) {
      EXPECT_EQ(error.number(), 5);
    }
  }
}

TEST(Divide, RaisesWhatTheRuntimeRaises) {
  EXPECT_EQ(Divide(1, 4), 0.25);
  const auto error_of = [](double dA, double dB) {
    try {
      Divide(dA, dB);
    } catch (const AutomationError& error) {
      return error.number();
    }
    return std::int32_t{0};
  };
  EXPECT_EQ(error_of(1, 0), 11);
  EXPECT_EQ(error_of(-1, 0), 11);
  EXPECT_EQ(error_of(0, 0), 6);
  EXPECT_EQ(error_of(1e300, 1e-300), 6);
}

class AmountTable : public ::testing::TestWithParam<RoundCase> {};

TEST_P(AmountTable, IsRoundedTheSameOnBothSidesOfZero) {
  const auto& [dValue, nDigits, dExpected] = GetParam();
  EXPECT_EQ(RoundAmountOf(dValue, nDigits), dExpected);
  EXPECT_EQ(RoundAmountOf(-dValue, nDigits), -dExpected);
  EXPECT_EQ(NumberOf(RoundAmount(dValue, nDigits)), dExpected);
}

INSTANTIATE_TEST_SUITE_P(
    ShortValuesHalfAwayFromZero, AmountTable,
    ::testing::Values(RoundCase{1.125, 2, 1.13}, RoundCase{1.115, 2, 1.12}, RoundCase{0.005, 2, 0.01},
                      RoundCase{2.675, 2, 2.68}, RoundCase{2.665, 2, 2.67}, RoundCase{0.5, 0, 1}, RoundCase{2.5, 0, 3},
                      RoundCase{2.4, 0, 2}, RoundCase{1.5, 2, 1.5}, RoundCase{7, 2, 7}, RoundCase{9.995, 2, 10},
                      RoundCase{12345678.125, 2, 12345678.13}, RoundCase{99999999999.125, 2, 99999999999.13},
                      RoundCase{1000000.67, 10, 1000000.67}, RoundCase{123456789.12, 10, 123456789.12},
                      RoundCase{12.3456785, 6, 12.345679}),
    NameOfRoundCase);

INSTANTIATE_TEST_SUITE_P(LongValuesHalfToEven, AmountTable,
                         ::testing::Values(RoundCase{1.1250, 1, 1.1}, RoundCase{2.25000001, 1, 2.3},
                                           RoundCase{1.1251, 2, 1.13}, RoundCase{1.1249, 2, 1.12},
                                           RoundCase{1.0 / 3, 2, 0.33}, RoundCase{2.0 / 3, 2, 0.67},
                                           RoundCase{0.1 + 0.2, 10, 0.3}, RoundCase{0.00005, 4, 0},
                                           RoundCase{0.00015, 4, 0.0002}),
                         NameOfRoundCase);

INSTANTIATE_TEST_SUITE_P(OutOfRange, AmountTable,
                         ::testing::Values(RoundCase{1e15, 2, 0}, RoundCase{922337203685479, 2, 0},
                                           RoundCase{922337203685478, 2, 922337203685478},
                                           RoundCase{922337203685478.25, 0, 922337203685478}, RoundCase{1e300, 0, 0}),
                         NameOfRoundCase);

TEST(RoundAmount, AnswersTheIntegerZeroForNoAmount) {
  for (const Variant& vValue : {Variant(Null{}), Variant(Empty{}), Variant(0.0), Variant(1e15), Variant("abc"),
                                Variant(-1e15), Variant("1E+15"), Variant(std::int32_t{0})}) {
    const Variant vAmount = RoundAmount(vValue, 2);
    ASSERT_EQ(vAmount.type(), Variant::Type::Integer);
    EXPECT_EQ(vAmount.as<std::int16_t>(), 0);
  }
}

TEST(RoundAmount, KeepsTheTypeOfAWholeNumber) {
  EXPECT_EQ(RoundAmount(std::int32_t{70000}, 2).type(), Variant::Type::Long);
  EXPECT_EQ(RoundAmount(std::int16_t{7}, 2).type(), Variant::Type::Integer);
  EXPECT_EQ(RoundAmount(7.0, 2).type(), Variant::Type::Double);
}

TEST(RoundAmount, CountsTheDigitsThatATextIsWrittenWith) {
  EXPECT_EQ(RoundAmountOf("1.125", 2), 1.13);
  EXPECT_EQ(RoundAmountOf("1.1250", 2), 1.12);
  EXPECT_EQ(RoundAmountOf("-1.125", 2), -1.13);
  EXPECT_EQ(RoundAmountOf("7", 2), 7);
}

TEST(RoundAmount, NeverAnswersANegativeZero) {
  EXPECT_FALSE(std::signbit(RoundAmountOf(-0.001, 2)));
  EXPECT_FALSE(std::signbit(RoundAmountOf(-1.0 / 3, 0)));
  EXPECT_FALSE(std::signbit(RoundAmountOf(-0.00001234, 2)));
}

TEST(RoundAmount, RefusesNegativeDigitsUnlessThereIsNoAmount) {
  EXPECT_EQ(NumberOf(RoundAmount(Null{}, -1)), 0);
  EXPECT_THROW(RoundAmount(1.5, -1), AutomationError);
  EXPECT_THROW(RoundAmount(std::int32_t{1}, -1), AutomationError);
}

/// The rule as it is told: by the text of the value and the mask with the 1 at its end.
double amount_by_the_rule(double dValue, int nDigits) {
  if (std::abs(Val(TextOf(dValue))) > 922337203685478) return 0;
  const std::string sText = TextOf(dValue);
  const std::size_t nPoint = sText.find('.');
  if (nPoint != std::string::npos && static_cast<int>(sText.size() - nPoint) - 1 < nDigits + 2) {
    dValue = Val(Format(dValue, "#0." + std::string(static_cast<std::size_t>(nDigits + 1), '0') + "1"));
  }
  return Round(dValue, nDigits);
}

TEST(RoundAmount, FollowsTheRuleForEveryRandomValue) {
  std::mt19937_64 random(1125);
  std::uniform_real_distribution<double> mantissa(-1, 1);
  for (int n = 0; n < 300000; ++n) {
    const int nDigits = static_cast<int>(random() % 12);
    double dValue = mantissa(random) * std::pow(10, static_cast<int>(random() % 22) - 6);
    const double dScale = std::pow(10, static_cast<int>(random() % 8));
    if (n % 4 != 0) dValue = std::round(dValue * dScale) / dScale;      // as amounts are written
    if (n % 4 == 1) dValue += 0.5 / std::pow(10, nDigits);              // near a half
    if (n % 4 == 2) dValue = dValue * 3 / 3 + mantissa(random) * 1e-9;  // with the noise of a calculation
    ASSERT_EQ(RoundAmountOf(dValue, nDigits), amount_by_the_rule(dValue, nDigits) + 0.0)
        << TextOf(dValue) << " at " << nDigits;
  }
}

TEST(RoundAmount, FollowsTheRuleAFewBitsFromAHalf) {
  std::mt19937_64 random(5);
  for (int n = 0; n < 100000; ++n) {
    const int nDigits = static_cast<int>(random() % 7);
    const double dScale = std::pow(10, nDigits);
    double dValue = (static_cast<double>(random() % 1'000'000'000) + 0.5) / dScale;
    const double dTowards = random() % 2 == 0 ? 0 : 1e300;
    for (std::uint64_t nBits = random() % 5; nBits > 0; --nBits) dValue = std::nextafter(dValue, dTowards);
    if (random() % 2 == 0) dValue = -dValue;
    ASSERT_EQ(RoundAmountOf(dValue, nDigits), amount_by_the_rule(dValue, nDigits) + 0.0)
        << TextOf(dValue) << " at " << nDigits;
  }
}

TEST(RoundAmount, FollowsTheRuleForEveryHalfOfATenthOfACent) {
  for (int nThousandths = -30000; nThousandths <= 30000; ++nThousandths) {
    const double dValue = nThousandths / 1000.0;
    ASSERT_EQ(RoundAmountOf(dValue, 2), amount_by_the_rule(dValue, 2) + 0.0) << nThousandths;
    const int nCents = (std::abs(nThousandths) + 5) / 10;
    ASSERT_EQ(RoundAmountOf(dValue, 2), (nThousandths < 0 ? -nCents : nCents) / 100.0) << nThousandths;
  }
}

TEST(RoundAmount, RoundsARoundedAmountToItself) {
  std::mt19937_64 random(42);
  for (int n = 0; n < 50000; ++n) {
    const int nDigits = static_cast<int>(random() % 5);
    const double dOnce = RoundAmountOf(static_cast<double>(random() % 1'000'000'000'000) / 7919, nDigits);
    ASSERT_EQ(RoundAmountOf(dOnce, nDigits), dOnce);
  }
}

}  // namespace
}  // namespace arap
