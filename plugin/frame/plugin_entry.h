#pragma once

#include <span>
#include <string_view>

#include "frame/automation.h"

namespace arap {

/// "NUVARAPBillInterface"; a ProgID is this, a point and the class name.
inline constexpr std::string_view kLibraryName = "NUVARAPBillInterface";

/// Names of the public classes of this library.
std::span<const std::string_view> PublicClassNames();

/// Makes a public object by its ProgID (compared without regard to case). Raises 429 for another ProgID, and passes on
/// what the class's initialiser raises.
Ref<Object> CreatePublicObject(std::string_view sProgID);

}  // namespace arap
