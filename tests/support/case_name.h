#pragma once

#include <string>
#include <string_view>

namespace arap::testing {

/// The name of one case of a parameterised test: its place, and of its text what the name of a test may hold.
inline std::string case_name(std::size_t nIndex, std::string_view sText) {
  std::string sName = std::to_string(nIndex) + "_";
  for (const char cText : sText) {
    const bool bKept =
        (cText >= '0' && cText <= '9') || (cText >= 'A' && cText <= 'Z') || (cText >= 'a' && cText <= 'z');
    if (bKept || !sName.ends_with('_')) sName += bKept ? cText : '_';
  }
  return sName;
}

}  // namespace arap::testing
