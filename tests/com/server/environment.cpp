#include "com/scenarios/host_process.h"

namespace arap::testing {
namespace {

[[maybe_unused]] const auto* const g_host = ::testing::AddGlobalTestEnvironment(new HostProcess);

}  // namespace
}  // namespace arap::testing
