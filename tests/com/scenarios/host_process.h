#pragma once

#include <gtest/gtest.h>

#include <optional>

#include "bridge/bridge.h"
#include "bridge/bridge_state.h"
#include "com/scenarios/host_servers.h"
#include "com/scenarios/message_boxes.h"
#include "com/scenarios/scripted_machine.h"

namespace arap::testing {

/// The process of the host: what a test of the real server needs around it. COM, the tests' host as COM objects, the
/// host's server components by ProgID, real message boxes under the script, and the DLL itself with the scripted
/// machine.
class HostProcess final : public ::testing::Environment {
 public:
  void SetUp() override;
  void TearDown() override;

 private:
  std::optional<com::BridgeUse> bridge_;
  std::optional<com::TypeLibraryUse> types_;
  std::optional<HostServers> servers_;
  std::optional<MessageBoxes> boxes_;
  std::optional<ScriptedMachine> machine_;
};

}  // namespace arap::testing
