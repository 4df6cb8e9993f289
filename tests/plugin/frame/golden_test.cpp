#include "support/golden.h"

#include <gtest/gtest-spi.h>

namespace arap::testing {
namespace {

TEST(Golden, AnEmptyTraceIsNeverTheApprovedOne) {
  trace().reset();
  EXPECT_FATAL_FAILURE(ExpectGolden("frame", "a_trace_of_nothing"), "a_trace_of_nothing");
}

TEST(Golden, AMissingFileIsTold) {
  EXPECT_NONFATAL_FAILURE(ReadGolden("frame", "never_approved"), "never_approved.txt");
}

}  // namespace
}  // namespace arap::testing
