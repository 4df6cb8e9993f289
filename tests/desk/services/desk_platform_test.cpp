#include <gtest/gtest.h>

#include "frame/messages.h"
#include "services/desk_platform.h"

namespace desk {
namespace {

class Boxes : public ::testing::Test {
 protected:
  ObjectRegistry registry;
  DeskPlatform platform{registry};
};

TEST_F(Boxes, AreKeptInOrderWithTheirAnswers) {
  platform.queue_answer(kButtonYes);
  EXPECT_EQ(platform.MsgBox("done", arap::kNotice, "t"), kButtonOk);
  EXPECT_EQ(platform.MsgBox("sure?", arap::kQuestion, "t"), kButtonYes);
  ASSERT_EQ(platform.messages().size(), 2u);
  EXPECT_EQ(platform.messages()[1].sText, "sure?");
  EXPECT_EQ(platform.messages()[1].nAnswer, kButtonYes);
}

TEST_F(Boxes, AQuestionThatNobodyAnswersIsANo) { EXPECT_EQ(platform.MsgBox("sure?", arap::kQuestion, ""), kButtonNo); }

TEST_F(Boxes, AQuestionIsKnownByItsButtonsWhateverItsSign) {
  for (const int nStyle : {arap::kQuestion, arap::kQuestionAsNotice}) {
    platform.queue_answer(kButtonYes);
    EXPECT_EQ(platform.MsgBox("sure?", nStyle, ""), kButtonYes);
  }
}

TEST_F(Boxes, AskTheUserWhenNoAnswerIsQueued) {
  platform.set_ask_user([](const ShownMessage& message) { return message.sText == "sure?" ? kButtonYes : kButtonOk; });
  EXPECT_EQ(platform.MsgBox("sure?", arap::kQuestion, ""), kButtonYes);
  platform.queue_answer(kButtonNo);
  EXPECT_EQ(platform.MsgBox("sure?", arap::kQuestion, ""), kButtonNo);
}

TEST_F(Boxes, TheSeatCanHaveItsOwnMachineName) {
  platform.set_computer_name("KASSE-2");
  EXPECT_EQ(platform.ComputerName(), "KASSE-2");
}

TEST_F(Boxes, AttributesOfAMissingFileRaise53) {
  try {
    platform.FileAttributes("no such file");
    FAIL();
  } catch (const arap::AutomationError& error) {
    EXPECT_EQ(error.number(), 53);
  }
}

}  // namespace
}  // namespace desk
