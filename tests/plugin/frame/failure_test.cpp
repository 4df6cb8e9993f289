#include "frame/failure.h"

#include <gtest/gtest.h>

#include <vector>

#include "support/test_platform.h"

namespace arap::testing {
namespace {

[[noreturn]] void Fail(std::int32_t nNumber = 1004) { throw AutomationError(nNumber, "Server", "服务失败"); }

class FailureTest : public ::testing::Test {
 protected:
  TestPlatform platform;
  Variant vCancel = false;
};

TEST_F(FailureTest, PassOnLeavesCancelAloneWithoutAnError) {
  TrapAndPassOn(vCancel, [] {});
  EXPECT_FALSE(vCancel.as<bool>());
}

TEST_F(FailureTest, PassOnSetsCancelAndRaisesTheSameError) {
  try {
    TrapAndPassOn(vCancel, [] { Fail(); });
    FAIL() << "the error was swallowed";
  } catch (const AutomationError& error) {
    EXPECT_EQ(error.number(), 1004);
    EXPECT_EQ(error.source(), "Server");
    EXPECT_EQ(error.description(), "服务失败");
  }
  EXPECT_TRUE(vCancel.as<bool>());
  EXPECT_TRUE(platform.messages.empty());
}

TEST_F(FailureTest, PassOnEndsAnErrorWithTheNumberZeroAfterSettingCancel) {
  EXPECT_NO_THROW(TrapAndPassOn(vCancel, [] { Fail(0); }));
  EXPECT_TRUE(vCancel.as<bool>());
}

TEST_F(FailureTest, ShowAnswersTrueAndShowsNothingWithoutAnError) {
  EXPECT_TRUE(TrapAndShow([] {}));
  EXPECT_TRUE(platform.messages.empty());
}

TEST_F(FailureTest, ShowPutsTheDescriptionInANoticeAndAnswersFalse) {
  EXPECT_FALSE(TrapAndShow([] { Fail(); }));
  ASSERT_EQ(platform.messages.size(), 1u);
  EXPECT_EQ(platform.messages[0].sText, "服务失败");
  EXPECT_EQ(platform.messages[0].nButtons, 64);
  EXPECT_EQ(platform.messages[0].sTitle, "青柚提示");
}

TEST_F(FailureTest, ResumeNextSkipsOnlyTheStatementThatFails) {
  std::vector<int> aDone;
  ResumeNext([&] { aDone.push_back(1); });
  ResumeNext([&] {
    Fail();
    aDone.push_back(2);
  });
  ResumeNext([&] { aDone.push_back(3); });
  EXPECT_EQ(aDone, (std::vector<int>{1, 3}));
  EXPECT_TRUE(platform.messages.empty());
}

TEST_F(FailureTest, AMemberOfNothingIsAnErrorLikeAnyOther) {
  const Ref<Object> oNothing;
  try {
    oNothing->get(Member::Count);
    FAIL() << "Nothing has no members";
  } catch (const AutomationError& error) {
    EXPECT_EQ(error.number(), 91);
  }
  EXPECT_FALSE(TrapAndShow([&] { Variant(oNothing).object()->call(Member::Show); }));
}

TEST_F(FailureTest, NoPatternHidesAnErrorOfAnotherKind) {
  EXPECT_THROW(ResumeNext([] { throw std::bad_alloc(); }), std::bad_alloc);
  EXPECT_THROW(TrapAndShow([] { throw std::bad_alloc(); }), std::bad_alloc);
  EXPECT_THROW(TrapAndPassOn(vCancel, [] { throw std::bad_alloc(); }), std::bad_alloc);
}

}  // namespace
}  // namespace arap::testing
