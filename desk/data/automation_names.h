#pragma once

#include "frame/automation.h"

/// The words of the door, for the sources that implement automation objects.
namespace desk {

using arap::Access;
using arap::argument;
using arap::Arguments;
using arap::AutomationError;
using arap::ErrorNumber;
using arap::Member;
using arap::Ref;
using arap::Variant;

inline bool is_put(Access access) { return access == Access::Put || access == Access::PutRef; }

}  // namespace desk
