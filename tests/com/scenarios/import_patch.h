#pragma once

#include "bridge/handles.h"

namespace arap::testing {

/// Puts another function in the place of one that a loaded module imports, as long as this lives. Calls of other
/// modules are left alone.
class ImportPatch {
 public:
  /// `sFunction` is the name of the function in its own library. A module that doesn't import it stays as it is.
  ImportPatch(HMODULE module, const char* sFunction, void* replacement);
  ~ImportPatch();
  ImportPatch(const ImportPatch&) = delete;
  ImportPatch& operator=(const ImportPatch&) = delete;

  bool found() const { return slot_ != nullptr; }

 private:
  void** slot_ = nullptr;
  void* former_ = nullptr;
};

}  // namespace arap::testing
