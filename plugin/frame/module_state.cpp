#include "frame/module_state.h"

namespace arap {

namespace {

// Plain data: a thread-local object with a destructor would run after the library is gone.
thread_local ModuleState* t_module = nullptr;
thread_local int t_uses = 0;

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

}  // namespace arap
