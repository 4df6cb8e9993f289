#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>

#include "support/trace.h"

namespace arap::testing {

/// Compares the trace with the approved one under plugin/<sRoom>/golden; with ARAP_APPROVE set it becomes the approved
/// one.
inline void ExpectGolden(const std::string& sRoom, const std::string& sName) {
  const std::string sPath = std::string(TEST_DATA_DIR) + "/plugin/" + sRoom + "/golden/" + sName + ".txt";
  if (std::getenv("ARAP_APPROVE") != nullptr) std::ofstream(sPath) << trace().text();
  std::ifstream file(sPath, std::ios::binary);
  std::stringstream text;
  text << file.rdbuf();
  EXPECT_EQ(trace().text(), text.str()) << sPath;
}

}  // namespace arap::testing
