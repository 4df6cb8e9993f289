#include "inouttypes/type_numbers.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>

#include "support/case_name.h"

namespace arap::testing {
namespace {

struct NextCase {
  const char* sNumber;
  const char* sNext;
};
void PrintTo(const NextCase& example, std::ostream* pStream) { *pStream << example.sNumber << " to " << example.sNext; }

class NextNumberTest : public ::testing::TestWithParam<NextCase> {};

TEST_P(NextNumberTest, OnlyTheLastCharacterMovesOn) { EXPECT_EQ(GetNextNumber(GetParam().sNumber), GetParam().sNext); }

INSTANTIATE_TEST_SUITE_P(Table, NextNumberTest,
                         ::testing::Values(NextCase{"101.01", "101.02"}, NextCase{"101.09", "101.00"},
                                           NextCase{"9", "0"}, NextCase{"0", "1"}, NextCase{"8", "9"},
                                           NextCase{"10A", "10B"}, NextCase{"ABZ", "ABA"}, NextCase{"Y", "Z"},
                                           NextCase{"a", "b"}, NextCase{"y", "z"}, NextCase{"xz", "xa"}),
                         [](const auto& test) { return case_name(test.index, test.param.sNumber); });

TEST(NextNumber, AnyOtherLastCharacterStays) {
  for (const char* sNumber : {"101.", "101-", "10 ", "收入", "@", "[", "`", "{", "/", ":", ""}) {
    EXPECT_EQ(GetNextNumber(sNumber), sNumber);
  }
}

TEST(NextNumber, TenStepsOfADigitAndTwentySixOfALetterComeBack) {
  for (const auto& [sStart, nSteps] : {std::pair{"101.03", 10}, {"10M", 26}, {"10m", 26}}) {
    std::string sNumber = sStart;
    for (int i = 0; i < nSteps; ++i) {
      if (i > 0) {
        EXPECT_NE(sNumber, sStart);
      }
      sNumber = GetNextNumber(sNumber);
    }
    EXPECT_EQ(sNumber, sStart);
  }
}

struct ParentCase {
  const char* sNumber;
  const char* sShort;
  const char* sParent;
};
void PrintTo(const ParentCase& example, std::ostream* pStream) { *pStream << "of \"" << example.sNumber << "\""; }

class ParentNumberTest : public ::testing::TestWithParam<ParentCase> {};

TEST_P(ParentNumberTest, IsThePartBeforeTheLastPoint) {
  std::string sParent = "before";
  EXPECT_EQ(GetParentNumber(GetParam().sNumber, sParent), GetParam().sShort) << GetParam().sNumber;
  EXPECT_EQ(sParent, GetParam().sParent) << GetParam().sNumber;
}

INSTANTIATE_TEST_SUITE_P(Table, ParentNumberTest,
                         ::testing::Values(ParentCase{"101", "101", ""}, ParentCase{"101.01", "01", "101"},
                                           ParentCase{"101.01.002", "002", "101.01"}, ParentCase{"101.", "", "101"},
                                           ParentCase{".01", "01", ""}, ParentCase{"101..02", "02", "101."},
                                           ParentCase{"", "", ""}, ParentCase{".", "", ""}),
                         [](const auto& test) { return case_name(test.index, test.param.sNumber); });

}  // namespace
}  // namespace arap::testing
