#pragma once

#include <string>
#include <utility>
#include <vector>

/// Comparing the approved traces of two sides.
namespace arap::testing {

using Lines = std::vector<std::string>;

Lines lines_of(const std::string& sText);

/// The text with each first name replaced by its second, in order.
std::string in_other_names(std::string sText, const std::vector<std::pair<const char*, const char*>>& aNames);

/// "- line" for what only the first has, "+ line" for what only the second has, by the longest common sequence.
Lines line_differences(const Lines& aFirst, const Lines& aSecond);

}  // namespace arap::testing
