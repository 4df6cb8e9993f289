#include "frame/platform.h"

#include "frame/open_choices.h"

namespace arap {

namespace {

thread_local Platform* t_platform = nullptr;

}  // namespace

void Platform::ShowGridForm(GridForm&) {
  throw AutomationError(ErrorNumber::CannotCreateObject, open_choices::kGridControl);
}

void InstallPlatform(Platform* platform) { t_platform = platform; }

Platform& CurrentPlatform() {
  if (t_platform == nullptr) throw AutomationError(ErrorNumber::ObjectNotSet, "platform");
  return *t_platform;
}

}  // namespace arap
