#include <gtest/gtest.h>

#include "frame/plugin_entry.h"
#include "frame/public_class.h"
#include "support/test_session.h"

namespace arap::testing {
namespace {

TEST(InsideTest, NothingIsInsideAnEmptyList) { EXPECT_FALSE(Inside(1)); }

TEST(InsideTest, FindsAnEqualValueAtAnyPlace) {
  EXPECT_TRUE(Inside(1000201, 1000201, 1000202));
  EXPECT_TRUE(Inside(1000202, 1000201, 1000202));
  EXPECT_FALSE(Inside(1000205, 1000201, 1000202));
}

TEST(InsideTest, ComparesNumbersByValueWhateverTheirWidth) {
  EXPECT_TRUE(Inside(5.0, std::int16_t{5}));
  EXPECT_TRUE(Inside(true, -1));
}

TEST(InsideTest, TextIsNeverANumberAndKeepsItsCase) {
  EXPECT_FALSE(Inside("5", 5));
  EXPECT_FALSE(Inside("a", "A"));
  EXPECT_TRUE(Inside("a", "A", "a"));
}

TEST(InsideTest, EmptyEqualsZeroAndTheEmptyText) {
  EXPECT_TRUE(Inside(Empty{}, 0));
  EXPECT_TRUE(Inside(Empty{}, ""));
}

TEST(InsideTest, NullIsInsideNothing) {
  EXPECT_FALSE(Inside(Null{}, Null{}));
  EXPECT_FALSE(Inside(1, Null{}, 2));
}

TEST(InsideTest, StopsAtTheFirstMatch) {
  const Ref<Object> oIncomparable = dictionary();
  EXPECT_TRUE(Inside(1, 1, oIncomparable));
  EXPECT_THROW(Inside(1, 2, oIncomparable), AutomationError);
}

class InsideOfClassTest : public ::testing::TestWithParam<const char*> {
 protected:
  TestSession session;
  Ref<Object> oClass = CreatePublicObject("NUVARAPBillInterface." + std::string(GetParam()));
};

TEST_P(InsideOfClassTest, HostCanCallItWithAnyNumberOfValues) {
  EXPECT_TRUE(oClass->call(Member::Inside, 1000206, 1000205, 1000206).as<bool>());
  EXPECT_FALSE(oClass->call(Member::Inside, 1000206, 1000205).as<bool>());
  EXPECT_FALSE(oClass->call(Member::Inside, 1000206).as<bool>());
}

TEST_P(InsideOfClassTest, WithoutTheFirstValueTheCallIsWrong) {
  try {
    oClass->call(Member::Inside);
    FAIL() << "no error";
  } catch (const AutomationError& error) {
    EXPECT_EQ(error.number(), 450);
  }
}

INSTANTIATE_TEST_SUITE_P(BillClasses, InsideOfClassTest,
                         ::testing::Values("clsReceiveBill", "clsPayBill", "clsROtherBill", "clsPOtherBill"),
                         [](const auto& test) { return std::string(test.param); });

class NoInsideTest : public ::testing::TestWithParam<const char*> {
 protected:
  TestSession session;
};

TEST_P(NoInsideTest, OtherClassesLackIt) {
  const Ref<Object> oClass = CreatePublicObject("NUVARAPBillInterface." + std::string(GetParam()));
  try {
    oClass->call(Member::Inside, 1, 1);
    FAIL() << "no error";
  } catch (const AutomationError& error) {
    EXPECT_EQ(error.number(), 438);
  }
}

INSTANTIATE_TEST_SUITE_P(OtherClasses, NoInsideTest,
                         ::testing::Values("clsRPInOutType", "clsRPInOutTypeView", "clsInvoice", "clsRPInitial"),
                         [](const auto& test) { return std::string(test.param); });

}  // namespace
}  // namespace arap::testing
