#pragma once

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

#include "support/boxes.h"
#include "support/golden.h"
#include "support/line_differences.h"
#include "support/settlement_host.h"
#include "support/test_session.h"

namespace arap::testing {

inline void PrintTo(Side side, std::ostream* pStream) { *pStream << (side == Side::Receive ? "receive" : "pay"); }

/// Both sides of a pair of bill classes run the same tests.
class SideTest : public ::testing::TestWithParam<Side> {
 protected:
  bool receive() const { return GetParam() == Side::Receive; }
  /// What the test expects of the receiving side, and what of the paying side.
  template <class T>
  T pick(T receive, T pay) const {
    return GetParam() == Side::Receive ? receive : pay;
  }
  std::string pick(const char* sReceive, const char* sPay) const { return pick<std::string>(sReceive, sPay); }

  std::vector<Box> boxes() const { return boxes_of(session.platform); }
  int box_count() const { return static_cast<int>(session.platform.messages.size()); }

  TestSession session;
};

}  // namespace arap::testing
