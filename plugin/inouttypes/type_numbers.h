#pragma once

#include <string>
#include <string_view>

namespace arap {

/// The part of a type's number behind its last point: all of it when there is none. sParent becomes the part before
/// that point, the parent's full number; "" on the top of a branch.
std::string GetParentNumber(std::string_view sNumber, std::string& sParent);

/// The number proposed after sNumber: its last digit or letter moved on, the end of a row back to its begin, without a
/// carry to the left. Another last character stays.
std::string GetNextNumber(std::string_view sNumber);

}  // namespace arap
