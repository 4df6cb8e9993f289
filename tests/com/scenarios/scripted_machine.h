#pragma once

#include <memory>
#include <vector>

#include "com/scenarios/import_patch.h"

namespace arap::testing {

/// While one lives, the Windows calls that the server's platform makes about the machine (computer name, process id,
/// files, mouse pointer) are answered by the thread's platform of the tests, and its pictures stand in the trace by
/// name. Message boxes and the making of objects are left as they are.
class ScriptedMachine {
 public:
  explicit ScriptedMachine(HMODULE server);

 private:
  std::vector<std::unique_ptr<ImportPatch>> patches_;
};

}  // namespace arap::testing
