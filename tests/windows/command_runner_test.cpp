#include "windows/command_runner.h"

#include <gtest/gtest.h>

#include <QApplication>

#include <stdexcept>

namespace desk::testing {
namespace {

class Runner : public ::testing::Test {
 protected:
  CommandLog log;
  CommandRunner runner{log};
};

TEST_F(Runner, WhatTheDoorAndTheDeskRaiseIsARefusal) {
  const auto door = runner.run(QStringLiteral("a"), []() -> Outcome {
    throw arap::AutomationError(arap::ErrorNumber::TypeMismatch, "not that");
  });
  const auto desk = runner.run(
      QStringLiteral("b"), []() -> Outcome { throw DeskError(ErrorKind::Locked, "the book is locked", "book.db"); });
  ASSERT_TRUE(door && desk);
  EXPECT_FALSE(door->bDone);
  EXPECT_NE(door->sReason.find("not that"), std::string::npos) << door->sReason;
  EXPECT_FALSE(desk->bDone);
  EXPECT_EQ(desk->sReason, "the book is locked (book.db)");
}

TEST_F(Runner, AfterAnyOtherExceptionThePointerAndTheLogAreFreeForTheNextCommand) {
  const auto fail = []() -> Outcome {
    EXPECT_NE(QApplication::overrideCursor(), nullptr);
    throw std::runtime_error("out of the blue");
  };
  EXPECT_THROW(runner.run(QStringLiteral("first"), fail), std::runtime_error);
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
  const auto next = runner.run(QStringLiteral("second"), [] { return Outcome::done(); });
  ASSERT_TRUE(next) << "a command seems to be running still";
  EXPECT_TRUE(next->bDone);
  ASSERT_EQ(log.commands().size(), 2u);
  EXPECT_EQ(log.commands()[1].sName, QStringLiteral("second"));
}

TEST_F(Runner, ACommandInsideACommandDoesNotRun) {
  bool bInner = true;
  runner.run(QStringLiteral("outer"), [&] {
    bInner = runner.run(QStringLiteral("inner"), [] { return Outcome::done(); }).has_value();
    return Outcome::done();
  });
  EXPECT_FALSE(bInner);
  EXPECT_EQ(log.commands().size(), 1u);
}

}  // namespace
}  // namespace desk::testing
