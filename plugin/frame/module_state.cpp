#include "frame/module_state.h"

#include "frame/platform.h"

namespace arap {

namespace {

// Plain data: a thread-local object with a destructor would run after the library is gone.
thread_local ModuleState* t_module = nullptr;
thread_local int t_uses = 0;
thread_local Platform* t_platform = nullptr;

}  // namespace

ModuleState& Module() {
  if (t_module == nullptr) throw AutomationError(ErrorNumber::ObjectNotSet, "module state");
  return *t_module;
}

ModuleUse::ModuleUse() {
  if (t_module == nullptr) t_module = new ModuleState;
  ++t_uses;
}

ModuleUse::~ModuleUse() {
  if (--t_uses > 0) return;
  // Releasing the held objects can call back into the library: the pointer goes last.
  delete t_module;
  t_module = nullptr;
}

void Platform::ShowGridForm(GridForm&) {
  throw AutomationError(ErrorNumber::CannotCreateObject, "FPSpreadADO.fpSpread");
}

void InstallPlatform(Platform* platform) { t_platform = platform; }

Platform& CurrentPlatform() {
  if (t_platform == nullptr) throw AutomationError(ErrorNumber::ObjectNotSet, "platform");
  return *t_platform;
}

}  // namespace arap
