#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "frame/automation.h"

namespace arap {

/// What the module holds for the life of the thread, all of it on the host's user-interface thread.
struct ModuleState {
  std::string sProps;                                       // last text given to ParsePropsString
  std::vector<std::pair<std::string, std::string>> aProps;  // its pairs, in order
  bool bPropsRead = false;                                  // aProps are all the pairs of sProps
  std::string sLanguage;                                    // filled by ApplyFormFont
  Ref<Object> oLogin;                                       // a login object handed over by the host, usually none
  Ref<Object> oGLData;                                      // NUVLPCGLView.GLData
  Ref<Object> oFormFont;                                    // NUVFrmRes.FrmResLoader
  Ref<Object> oFactory;                                     // the host's object factory
  Ref<Object> oFrmBar;                                      // the loaded form of the bar templates
  int nWaitCursors = 0;
};

/// The state of this thread. Raises 91 when no ModuleUse is alive on it.
ModuleState& Module();

/// Keeps the module's state alive. Every public object holds one as its first member; the last one on the thread gives
/// the state back, so that no destructor runs when a thread ends.
class ModuleUse {
 public:
  ModuleUse();
  ~ModuleUse();
  ModuleUse(const ModuleUse&) = delete;
  ModuleUse& operator=(const ModuleUse&) = delete;
};

}  // namespace arap
