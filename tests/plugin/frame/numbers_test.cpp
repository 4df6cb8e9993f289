#include <gtest/gtest.h>

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

struct NumericCase {
  std::string_view sText;
  bool bNumeric;
  double dValue = 0;
};

std::string NameOfNumericCase(const ::testing::TestParamInfo<NumericCase>& test) {
  return testing::case_name(test.index, test.param.sText);
}

class NumericText : public ::testing::TestWithParam<NumericCase> {};

TEST_P(NumericText, IsNumericAsAWholeOrDoesNotConvert) {
  const auto& [sText, bNumeric, dValue] = GetParam();
  EXPECT_EQ(IsNumeric(sText), bNumeric);
  if (bNumeric) {
    EXPECT_EQ(ToDouble(sText), dValue);
  } else {
    EXPECT_EQ(error_of([text = sText] { ToDouble(text); }), 13);
  }
}

INSTANTIATE_TEST_SUITE_P(Numbers, NumericText,
                         ::testing::Values(NumericCase{"12", true, 12}, NumericCase{" 12 ", true, 12},
                                           NumericCase{"\t1.5\n", true, 1.5}, NumericCase{"-1.5", true, -1.5},
                                           NumericCase{"+1", true, 1}, NumericCase{"- 5", true, -5},
                                           NumericCase{"5-", true, -5}, NumericCase{".5", true, .5},
                                           NumericCase{"5.", true, 5}, NumericCase{"1,234.5", true, 1234.5},
                                           NumericCase{"1,2,3", true, 123}, NumericCase{"1E3", true, 1000},
                                           NumericCase{"1d-2", true, .01}, NumericCase{"&HFF", true, 255},
                                           NumericCase{"&o17", true, 15}, NumericCase{"0", true, 0}),
                         NameOfNumericCase);

INSTANTIATE_TEST_SUITE_P(
    Others, NumericText,
    ::testing::Values(NumericCase{"", false}, NumericCase{" ", false}, NumericCase{".", false}, NumericCase{"-", false},
                      NumericCase{"--1", false}, NumericCase{"-1-", false}, NumericCase{"1 2", false},
                      NumericCase{",1", false}, NumericCase{"1.2,3", false}, NumericCase{"1.2.3", false},
                      NumericCase{"1E", false}, NumericCase{"1E+", false}, NumericCase{"E1", false},
                      NumericCase{"12元", false}, NumericCase{"abc", false}, NumericCase{"True", false},
                      NumericCase{"&H", false}, NumericCase{"&HG", false}, NumericCase{"&O8", false},
                      NumericCase{"&10", false}, NumericCase{"1E400", false}, NumericCase{"2024-01-31", false}),
    NameOfNumericCase);

TEST(IsNumeric, AnswersByTheKindOfAValue) {
  EXPECT_TRUE(IsNumeric(Empty{}));
  EXPECT_TRUE(IsNumeric(true));
  EXPECT_TRUE(IsNumeric(std::int16_t{1}));
  EXPECT_TRUE(IsNumeric(std::int32_t{1}));
  EXPECT_TRUE(IsNumeric(1.5));
  EXPECT_FALSE(IsNumeric(Date{1}));
  EXPECT_FALSE(IsNumeric(Null{}));
  EXPECT_FALSE(IsNumeric(Missing{}));
  EXPECT_FALSE(IsNumeric(Ref<Object>()));
}

TEST(ToDouble, ConvertsEveryKindThatHasANumber) {
  EXPECT_EQ(ToDouble(Empty{}), 0);
  EXPECT_EQ(ToDouble(true), -1);
  EXPECT_EQ(ToDouble(false), 0);
  EXPECT_EQ(ToDouble(std::int16_t{-3}), -3);
  EXPECT_EQ(ToDouble(std::int32_t{70000}), 70000);
  EXPECT_EQ(ToDouble(Date{2.5}), 2.5);
}

TEST(ToDouble, RefusesNullWith94AndObjectsWith13) {
  EXPECT_EQ(error_of([] { ToDouble(Null{}); }), 94);
  EXPECT_EQ(error_of([] { ToDouble(Missing{}); }), 13);
  EXPECT_EQ(error_of([] { ToDouble(Ref<Object>()); }), 13);
  EXPECT_EQ(error_of([] { ToLong(Null{}); }), 94);
  EXPECT_EQ(error_of([] { ToInteger("x"); }), 13);
  EXPECT_EQ(error_of([] { ToBoolean(Null{}); }), 94);
}

struct WholeCase {
  Variant vValue;
  std::int32_t nExpected;
};

TEST(ToLong, RoundsHalvesToEven) {
  const WholeCase aCases[] = {{0.5, 0},     {1.5, 2},          {2.5, 2},           {-0.5, 0},     {-1.5, -2},
                              {2.51, 3},    {"2.5", 2},        {" 3.5 ", 4},       {true, -1},    {std::int16_t{7}, 7},
                              {Empty{}, 0}, {"&HFFFF", 65535}, {"&HFFFFFFFF", -1}, {Date{2.5}, 2}};
  for (const auto& [vValue, nExpected] : aCases) EXPECT_EQ(ToLong(vValue), nExpected) << TextOf(vValue);
}

TEST(ToLong, OverflowsOutside32Bits) {
  EXPECT_EQ(ToLong(2147483647.4), 2147483647);
  EXPECT_EQ(error_of([] { ToLong(2147483647.5); }), 6);
  EXPECT_EQ(error_of([] { ToLong(-2147483649.0); }), 6);
  EXPECT_EQ(error_of([] { ToLong("3000000000"); }), 6);
  EXPECT_EQ(error_of([] { ToLong("&H100000000"); }), 6);
}

TEST(ToInteger, OverflowsOutside16Bits) {
  EXPECT_EQ(ToInteger(32767.5 - 1), 32766);
  EXPECT_EQ(ToInteger("-32768"), -32768);
  EXPECT_EQ(ToInteger("&HFFFF"), -1);
  EXPECT_EQ(ToInteger(true), -1);
  EXPECT_EQ(error_of([] { ToInteger(32767.5); }), 6);
  EXPECT_EQ(error_of([] { ToInteger(std::int32_t{-32769}); }), 6);
  EXPECT_EQ(error_of([] { ToInteger("&H10000"); }), 6);
}

TEST(ToBoolean, TakesEveryNumberButZeroAsTrue) {
  EXPECT_TRUE(ToBoolean(true));
  EXPECT_TRUE(ToBoolean(std::int32_t{2}));
  EXPECT_TRUE(ToBoolean(0.1));
  EXPECT_TRUE(ToBoolean("-1"));
  EXPECT_TRUE(ToBoolean("TRUE"));
  EXPECT_FALSE(ToBoolean("false"));
  EXPECT_FALSE(ToBoolean("0.0"));
  EXPECT_FALSE(ToBoolean(Empty{}));
  EXPECT_EQ(error_of([] { ToBoolean(""); }), 13);
  EXPECT_EQ(error_of([] { ToBoolean("yes"); }), 13);
}

struct TextCase {
  double dValue;
  std::string_view sExpected;
};

std::string NameOfTextCase(const ::testing::TestParamInfo<TextCase>& test) {
  return testing::case_name(test.index, test.param.sExpected);
}

class TextOfDouble : public ::testing::TestWithParam<TextCase> {};

TEST_P(TextOfDouble, HasFifteenDigits) { EXPECT_EQ(TextOf(GetParam().dValue), GetParam().sExpected); }

INSTANTIATE_TEST_SUITE_P(
    TextOf, TextOfDouble,
    ::testing::Values(TextCase{0, "0"}, TextCase{-0.0, "0"}, TextCase{1, "1"}, TextCase{-1.5, "-1.5"},
                      TextCase{0.1 + 0.2, "0.3"}, TextCase{1.0 / 3, "0.333333333333333"}, TextCase{100, "100"},
                      TextCase{123456789012345, "123456789012345"}, TextCase{999999999999999, "999999999999999"},
                      TextCase{1e15, "1E+15"}, TextCase{1234567890123456, "1.23456789012346E+15"},
                      TextCase{-1e100, "-1E+100"}, TextCase{0.0001, "0.0001"}, TextCase{0.00012345, "0.00012345"},
                      TextCase{0.00001, "1E-05"}, TextCase{0.000012345, "1.2345E-05"}, TextCase{1e-100, "1E-100"},
                      TextCase{0.99999999999999999, "1"}),
    NameOfTextCase);

TEST(TextOf, WritesEveryKind) {
  EXPECT_EQ(TextOf(Variant()), "");
  EXPECT_EQ(TextOf(Variant(true)), "True");
  EXPECT_EQ(TextOf(Variant(false)), "False");
  EXPECT_EQ(TextOf(Variant(std::int16_t{-32768})), "-32768");
  EXPECT_EQ(TextOf(Variant(std::int32_t{2147483647})), "2147483647");
  EXPECT_EQ(TextOf(Variant("收款 ")), "收款 ");
  EXPECT_EQ(error_of([] { TextOf(Variant(Null{})); }), 94);
  EXPECT_EQ(error_of([] { TextOf(Variant(Missing{})); }), 13);
  EXPECT_EQ(error_of([] { TextOf(Variant(Ref<Object>())); }), 13);
}

TEST(Concat, ReadsNullNothingAndMissingAsNoText) {
  EXPECT_EQ(Concat(Null{}), "");
  EXPECT_EQ(Concat(Ref<Object>()), "");
  EXPECT_EQ(Concat(Missing{}), "");
  EXPECT_EQ(Concat(Empty{}), "");
  EXPECT_EQ(Concat(1.5), "1.5");
}

TEST(NumberText, WritesWholeIdsWithoutDecimalsOrExponent) {
  EXPECT_EQ(NumberText(std::int32_t{1000005}), "1000005");
  EXPECT_EQ(NumberText(1e15), "1000000000000000");
  EXPECT_EQ(NumberText(-3.0), "-3");
  EXPECT_EQ(NumberText("42"), "42");
  EXPECT_EQ(NumberText("1 or 1=1"), "1");
  EXPECT_EQ(NumberText(Null{}), "0");
  EXPECT_EQ(NumberText(1.5), "1.5");
  EXPECT_EQ(NumberText(1e20), "1E+20");
}

}  // namespace
}  // namespace arap
