#include "desk_user.h"

#include <gtest/gtest-spi.h>

namespace desk::testing {
namespace {

TEST(UserOfTheTests, ABoxOrDialogThatNeverComesFailsTheTest) {
  EXPECT_NONFATAL_FAILURE(
      {
        DeskUser user;
        user.answer_next_box();
      },
      "never came");
  EXPECT_NONFATAL_FAILURE(
      {
        DeskUser user;
        user.in_next_dialog([](QDialog& dialog) { dialog.reject(); }, QStringLiteral("calculator"));
      },
      "never came");
}

}  // namespace
}  // namespace desk::testing
