#include <gtest/gtest.h>

#include <array>
#include <iostream>

#include "com/scenarios/host_process.h"
#include "com/scenarios/server_under_test.h"
#include "frame/plugin_entry.h"

/// The public classes as the scenarios make them, in place of those of the rules: through COM, from the real DLL. The
/// scenarios themselves are the same sources as in the direct run, their hosts reach the DLL as COM objects.
namespace arap {

namespace testing {

namespace {

int g_created = 0;    // by the scenario under way
int g_scenarios = 0;  // that made a class
int g_internals = 0;  // that made none: they test the rules linked in, as the direct run does

/// Every scenario must leave nothing behind, neither in the server nor of the host.
class Witness final : public ::testing::EmptyTestEventListener {
  void OnTestStart(const ::testing::TestInfo&) override { g_created = 0; }
  void OnTestEnd(const ::testing::TestInfo&) override {
    ++(g_created > 0 ? g_scenarios : g_internals);
    EXPECT_TRUE(ServerUnderTest::can_unload()) << "objects of the server are left over";
    EXPECT_EQ(com::g_live_objects, 0) << "the server holds objects of the host";
  }
  void OnTestProgramEnd(const ::testing::UnitTest&) override {
    std::cout << g_scenarios << " scenarios through the server; " << g_internals << " tests of internals beside them\n";
  }
};

/// Fails a program that never reaches the server.
class Reached final : public ::testing::Environment {
  void TearDown() override { EXPECT_GT(g_scenarios, 0) << "no scenario has reached the server"; }
};

[[maybe_unused]] const bool g_installed = [] {
  ::testing::AddGlobalTestEnvironment(new HostProcess);
  ::testing::AddGlobalTestEnvironment(new Reached);
  ::testing::UnitTest::GetInstance()->listeners().Append(new Witness);
  return true;
}();

}  // namespace

}  // namespace testing

std::span<const std::string_view> PublicClassNames() {
  static constexpr std::array<std::string_view, 8> kNames{
      "clsReceiveBill", "clsPayBill",         "clsROtherBill", "clsPOtherBill",
      "clsRPInOutType", "clsRPInOutTypeView", "clsInvoice",    "clsRPInitial",
  };
  return kNames;
}

Ref<Object> CreatePublicObject(std::string_view sProgID) {
  ++testing::g_created;
  return testing::ServerUnderTest::create(sProgID);
}

}  // namespace arap
