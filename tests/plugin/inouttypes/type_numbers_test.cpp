#include "inouttypes/type_numbers.h"

#include <gtest/gtest.h>

#include <string>

namespace arap::testing {
namespace {

struct NextCase {
  const char* sNumber;
  const char* sNext;
};

class NextNumberTest : public ::testing::TestWithParam<NextCase> {};

TEST_P(NextNumberTest, OnlyTheLastCharacterMovesOn) {
  EXPECT_EQ(GetNextNumber(GetParam().sNumber), GetParam().sNext) << GetParam().sNumber;
}

INSTANTIATE_TEST_SUITE_P(Table, NextNumberTest,
                         ::testing::Values(NextCase{"101.01", "101.02"}, NextCase{"101.09", "101.00"},
                                           NextCase{"9", "0"}, NextCase{"0", "1"}, NextCase{"8", "9"},
                                           NextCase{"10A", "10B"}, NextCase{"ABZ", "ABA"}, NextCase{"Y", "Z"},
                                           NextCase{"a", "b"}, NextCase{"y", "z"}, NextCase{"xz", "xa"},
                                           NextCase{"101.", "101."}, NextCase{"101-", "101-"}, NextCase{"10 ", "10 "},
                                           NextCase{"收入", "收入"}, NextCase{"@", "@"}, NextCase{"[", "["},
                                           NextCase{"`", "`"}, NextCase{"{", "{"}, NextCase{"/", "/"},
                                           NextCase{":", ":"}, NextCase{"", ""}));

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
                                           ParentCase{"", "", ""}, ParentCase{".", "", ""}));

}  // namespace
}  // namespace arap::testing
