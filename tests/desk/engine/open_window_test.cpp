#include <gtest/gtest.h>

#include "desk/engine/engine_world.h"

namespace desk::testing {
namespace {

using arap::Event;

/// Windows whose plug-in holds a token, so that a test sees whether it was let go.
class WindowOwner : public BillWorld {
 protected:
  Host locking_host() {
    Host host(*database);
    host.sToday = "2026-11-21";
    host.give_edit_lock = [this](std::int32_t, std::int32_t) {
      ++locks_given;
      if (bLockFails) throw DeskError(ErrorKind::Locked, "locked", "book");
    };
    return host;
  }
  arap::Ref<ScriptedPlugin> held_plugin() {
    const auto oPlugin = arap::make_object<ScriptedPlugin>();
    oPlugin->handlers[Event::AfterNewEmptyData] = [token = token](arap::Arguments) {};
    return oPlugin;
  }
  OpenBillWindow open() { return open_bill_window(locking_host(), bill(), held_plugin()); }
  std::shared_ptr<const BillTemplate> bill() { return BillTemplate::shipped(GetParam().sTemplate); }
  bool plugin_is_gone() const { return token.use_count() == 1; }

  std::shared_ptr<int> token = std::make_shared<int>();
  int locks_given = 0;
  bool bLockFails = false;
};
INSTANTIATE_TEST_SUITE_P(BothSides, WindowOwner, ::testing::ValuesIn(kSides), side_name);

TEST_P(WindowOwner, AnErrorThatLeavesTheScopeClosesTheWindow) {
  EXPECT_THROW(
      {
        const OpenBillWindow left = open();
        EXPECT_FALSE(plugin_is_gone());
        throw std::runtime_error("on the way");
      },
      std::runtime_error);
  EXPECT_TRUE(plugin_is_gone());
}

TEST_P(WindowOwner, APluginThatFailsWhileTheWindowOpensIsLetGo) {
  auto failing = held_plugin();
  failing->handlers[Event::BarInitialize] = [](arap::Arguments) { throw arap::AutomationError(5, "x", "no bar"); };
  EXPECT_THROW(open_bill_window(locking_host(), bill(), failing), arap::AutomationError);
  failing = nullptr;
  EXPECT_TRUE(plugin_is_gone());
}

TEST_P(WindowOwner, ANewOwnerTakesTheWindowAndAnotherOneClosesTheFormer) {
  OpenBillWindow first = open();
  BillWindow* pWindow = first.get();
  OpenBillWindow second = std::move(first);
  EXPECT_EQ(second.get(), pWindow);
  EXPECT_FALSE(pWindow->closed());
  const arap::Ref<BillWindow> seen(pWindow);
  second = OpenBillWindow();
  EXPECT_TRUE(seen->closed());
  EXPECT_TRUE(plugin_is_gone());
}

TEST_P(WindowOwner, AnEditLockThatCantBeGivenBackIsTriedOnceAndEndsNothingElse) {
  fill_bill();
  ASSERT_TRUE(window->save());
  bLockFails = true;
  {
    const OpenBillWindow locking = open();
    ASSERT_TRUE(locking->load_number(GetParam().sFirstNumber));
    EXPECT_THROW(locking->close(), DeskError);
    EXPECT_TRUE(locking->closed());
  }
  EXPECT_EQ(locks_given, 1);
  EXPECT_TRUE(plugin_is_gone());
}

}  // namespace
}  // namespace desk::testing
