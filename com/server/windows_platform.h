#pragma once

#include "frame/platform.h"

namespace arap::com {

/// The machine as Windows shows it. Without state, so one serves every thread.
Platform& windows_platform();

}  // namespace arap::com
