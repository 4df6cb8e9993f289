#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>

#include "support/trace.h"

/// Approved traces: one file a trace, under plugin/<sRoom>/golden.
namespace arap::testing {

inline std::string GoldenPath(const std::string& sRoom, const std::string& sName) {
  return std::string(TEST_DATA_DIR) + "/plugin/" + sRoom + "/golden/" + sName + ".txt";
}

/// A missing file fails the test.
inline std::string ReadGolden(const std::string& sRoom, const std::string& sName) {
  std::ifstream file(GoldenPath(sRoom, sName), std::ios::binary);
  EXPECT_TRUE(file.is_open()) << GoldenPath(sRoom, sName);
  std::stringstream text;
  text << file.rdbuf();
  return text.str();
}

/// Compares the trace with the approved one; with ARAP_APPROVE set it becomes the approved one. An empty trace
/// fails, so that a lost recording can't be approved.
inline void ExpectGolden(const std::string& sRoom, const std::string& sName) {
  ASSERT_FALSE(trace().lines().empty()) << sName;
  if (std::getenv("ARAP_APPROVE") != nullptr) std::ofstream(GoldenPath(sRoom, sName)) << trace().text();
  EXPECT_EQ(trace().text(), ReadGolden(sRoom, sName)) << GoldenPath(sRoom, sName);
}

}  // namespace arap::testing
