#pragma once

#include <string>

#include "frame/automation.h"

namespace arap {

/// The Jet connection text of the local switch file ErpSwitch.sss: vFile, or beside the application when omitted. ""
/// when there is no such file or it can't be opened (a warning says so).
std::string GetSwitchFileConnection(const Variant& vFile = Missing{});

}  // namespace arap
