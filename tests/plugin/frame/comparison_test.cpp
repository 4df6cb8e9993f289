#include <gtest/gtest.h>

#include "frame/conversions.h"

namespace arap {
namespace {

struct Pair {
  Variant vA;
  Variant vB;
  bool bEqual;
};

TEST(Equals, ComparesEachPairOfKindsTheSameBothWays) {
  const Pair aPairs[] = {
      {std::int16_t{1}, std::int32_t{1}, true},
      {std::int32_t{1}, 1.0, true},
      {1.0, 1.1, false},
      {true, std::int32_t{-1}, true},
      {true, std::int32_t{1}, false},
      {Date{2}, 2.0, true},
      {Date{2}, Date{2.5}, false},
      {"a", "a", true},
      {"a", "A", false},
      {"a", "a ", false},
      {"", "", true},
      {"1", std::int32_t{1}, false},
      {"1", 1.0, false},
      {"True", true, false},
      {"0", std::int32_t{0}, false},
      {"", std::int32_t{0}, false},
      {Empty{}, Empty{}, true},
      {Empty{}, std::int32_t{0}, true},
      {Empty{}, 0.0, true},
      {Empty{}, false, true},
      {Empty{}, "", true},
      {Empty{}, Date{0}, true},
      {Empty{}, "0", false},
      {Empty{}, std::int32_t{1}, false},
      {Null{}, Null{}, false},
      {Null{}, Empty{}, false},
      {Null{}, "", false},
      {Null{}, std::int32_t{0}, false},
  };
  for (const auto& [vA, vB, bEqual] : aPairs) {
    EXPECT_EQ(Equals(vA, vB), bEqual) << "'" << Concat(vA) << "' = '" << Concat(vB) << "'";
    EXPECT_EQ(Equals(vB, vA), bEqual) << "'" << Concat(vB) << "' = '" << Concat(vA) << "'";
  }
}

TEST(Equals, RefusesObjectsAndOmittedArguments) {
  for (const Variant& vOdd : {Variant(Ref<Object>()), Variant(Missing{})}) {
    try {
      Equals(std::int32_t{1}, vOdd);
      ADD_FAILURE();
    } catch (const AutomationError& error) {
      EXPECT_EQ(error.number(), 13);
    }
  }
}

TEST(Trim, CutsBlanksAndNothingElse) {
  EXPECT_EQ(Trim("  a b  "), "a b");
  EXPECT_EQ(Trim("\ta "), "\ta");
  EXPECT_EQ(Trim("　a"), "　a");
  EXPECT_EQ(Trim("   "), "");
  EXPECT_EQ(Trim(""), "");
}

TEST(LetterCase, ChangesAsciiLettersOnly) {
  EXPECT_EQ(LowerCase("FBillID_青Ä@["), "fbillid_青Ä@[");
  EXPECT_EQ(UpperCase("fBillId_青ä`{"), "FBILLID_青ä`{");
}

TEST(EqualsNoCase, LooksAtEveryCharacter) {
  EXPECT_TRUE(EqualsNoCase("", ""));
  EXPECT_TRUE(EqualsNoCase("FBillID", "fbillid"));
  EXPECT_FALSE(EqualsNoCase("FBillID", "FBillI"));
  EXPECT_FALSE(EqualsNoCase("a@", "a`"));
  EXPECT_FALSE(EqualsNoCase("a[", "a{"));
}

}  // namespace
}  // namespace arap
