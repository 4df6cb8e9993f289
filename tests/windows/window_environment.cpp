#include <gtest/gtest.h>

#include <QApplication>

#include <memory>

#include "windows/open_desk.h"

namespace {

/// The windows of the tests are drawn without a screen.
class WindowEnvironment final : public testing::Environment {
 public:
  void SetUp() override {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    application_ = std::make_unique<QApplication>(count_, arguments_);
    desk::prepare_application();
    QApplication::setEffectEnabled(Qt::UI_AnimateMenu, false);
  }
  void TearDown() override { application_.reset(); }

 private:
  char name_[13] = "window_tests";
  int count_ = 1;
  char* arguments_[2] = {name_, nullptr};
  std::unique_ptr<QApplication> application_;
};

[[maybe_unused]] testing::Environment* const kEnvironment = testing::AddGlobalTestEnvironment(new WindowEnvironment);

}  // namespace
