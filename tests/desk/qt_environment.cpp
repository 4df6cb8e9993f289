#include <gtest/gtest.h>

#include <QCoreApplication>
#include <memory>

#include "desk/test_server.h"

namespace {

/// The database drivers of Qt are plug-ins of an application object.
class QtEnvironment final : public testing::Environment {
 public:
  void SetUp() override {
    if (QCoreApplication::instance() == nullptr) application_ = std::make_unique<QCoreApplication>(count_, arguments_);
  }
  void TearDown() override { application_.reset(); }

 private:
  char name_[11] = "desk_tests";
  int count_ = 1;
  char* arguments_[2] = {name_, nullptr};
  std::unique_ptr<QCoreApplication> application_;
};

/// The books of a test on the server go with it.
class ServerBooks final : public testing::EmptyTestEventListener {
  void OnTestEnd(const testing::TestInfo&) override { desk::testing::empty_server_books(); }
};

[[maybe_unused]] testing::Environment* const kEnvironment = testing::AddGlobalTestEnvironment(new QtEnvironment);
[[maybe_unused]] const bool kServerBooks =
    (testing::UnitTest::GetInstance()->listeners().Append(new ServerBooks), true);

}  // namespace
