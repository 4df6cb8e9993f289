#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "support/test_platform.h"

/// The message boxes of a session, as a test expects them.
namespace arap::testing {

struct Box {
  std::string sText;
  int nButtons = 64;
  std::string sTitle = "青柚提示";
  friend bool operator==(const Box&, const Box&) = default;
  friend void PrintTo(const Box& box, std::ostream* pStream) {
    *pStream << box.sText << " " << box.nButtons << " " << box.sTitle;
  }
};

/// The boxes that were shown, in order.
inline std::vector<Box> boxes_of(const TestPlatform& platform) {
  std::vector<Box> aBoxes;
  for (const auto& message : platform.messages) aBoxes.push_back({message.sText, message.nButtons, message.sTitle});
  return aBoxes;
}

/// One box alone.
inline std::vector<Box> box(std::string sText, int nButtons = 64, std::string sTitle = "青柚提示") {
  return {{std::move(sText), nButtons, std::move(sTitle)}};
}
inline std::vector<Box> notice(std::string sText) { return box(std::move(sText)); }
inline std::vector<Box> warning(std::string sText) { return box(std::move(sText), 48); }

}  // namespace arap::testing
