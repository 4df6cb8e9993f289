#include <memory>

#include "plugin/inouttypes/type_fixture.h"

/// Every host call of every scenario fails once.
namespace arap::testing {
namespace {

TEST(TypeFaults, ADeletionThatFailsIsCancelledWithoutAMessage) {
  const int nFaults = FailEachCall([](const auto& arm) {
    TypeWorld world;
    world.point_at(12);
    const Ref<TestTool> oTool(world.tree->bar->tools().find("mnuEditDel"));
    std::array<Variant, 2> args{oTool, false};
    arm();
    EXPECT_NO_THROW(world.tree->events.fire(Event::MenuBarClick, args));
    EXPECT_EQ(args[1].as<bool>(), trace().faulted());
    EXPECT_TRUE(world.session.platform.messages.empty());
  });
  EXPECT_GE(nFaults, 10);
}

TEST(TypeFaults, ATaskOfADeletionGoesBackWhateverFailsButTheGivingBackItself) {
  FailEachCall([](const auto& arm) {
    TypeWorld world;
    world.point_at(12);
    world.types.at(12).bUsed = true;
    const Ref<TestTool> oTool(world.tree->bar->tools().find("mnuEditDel"));
    std::array<Variant, 2> args{oTool, false};
    arm();
    world.tree->events.fire(Event::MenuBarClick, args);
    EXPECT_TRUE(world.session.held_tasks.empty());
    EXPECT_TRUE(args[1].as<bool>());
  });
}

TEST(TypeFaults, AModificationThatFailsIsCancelledAndRaisesNothing) {
  const int nFaults = FailEachCall([](const auto& arm) {
    TypeWorld world;
    world.point_at(12);
    const Ref<TestTool> oTool(world.tree->bar->tools().find("mnuEditModify"));
    std::array<Variant, 2> args{oTool, false};
    arm();
    EXPECT_NO_THROW(world.tree->events.fire(Event::MenuBarClick, args));
    EXPECT_EQ(args[1].as<bool>(), trace().faulted());
    EXPECT_LE(world.session.platform.messages.size(), 1u);
  });
  EXPECT_GE(nFaults, 12);
}

TEST(TypeFaults, ASaveThatFailsGoesOnWithoutAWord) {
  const int nFaults = FailEachCall([](const auto& arm) {
    TypeWorld world;
    world.enter(0, "101.02", "装卸");
    std::array<Variant, 1> args{false};
    arm();
    EXPECT_NO_THROW(world.bill->events.fire(Event::BeforeSave, args));
    EXPECT_FALSE(args[0].as<bool>());
    EXPECT_TRUE(world.session.platform.messages.empty());
  });
  EXPECT_GE(nFaults, 30);
}

TEST(TypeFaults, AHandlerWithoutATrapPassesTheErrorToTheHost) {
  const std::vector<std::function<void(TypeWorld&)>> aScenarios{
      [](TypeWorld& world) { world.bill->fire(Event::AfterNewBill); },
      [](TypeWorld& world) { world.bill->fire(Event::AfterNewEmptyData); },
      [](TypeWorld& world) { world.bill->fire(Event::AfterLoadBill); },
      [](TypeWorld& world) { world.bill->fire(Event::AfterSave, {std::int32_t{0}}); },
      [](TypeWorld& world) { world.bill->fire(Event::MenuBarInitialize, {world.bill->bar}); },
      [](TypeWorld& world) { world.tree->fire(Event::AfterGetData); },
      [](TypeWorld& world) { world.tree->fire(Event::MenuBarInitialize, {world.tree->bar}); },
      [](TypeWorld& world) {
        world.tree->fire(Event::ClassGroupSelected, {Variant(), Variant(), Variant(), std::int32_t{11}, ""});
      },
  };
  for (const auto& scenario : aScenarios) {
    const int nFaults = FailEachCall([&](const auto& arm) {
      TypeWorld world;
      world.enter(0, "101", "销售收入");
      arm();
      std::int32_t nNumber = 0;
      try {
        scenario(world);
      } catch (const AutomationError& error) {
        nNumber = error.number();
      }
      EXPECT_EQ(nNumber, trace().faulted() ? Trace::kFaultNumber : 0);
    });
    EXPECT_GE(nFaults, 1);
  }
}

TEST(TypeFaults, TheBarOfTheTreeComesUpWhateverFails) {
  const int nFaults = FailEachCall([](const auto& arm) {
    TypeWorld world;
    arm();
    EXPECT_NO_THROW(world.tree->fire(Event::BarInitialize, {world.tree->bar}));
  });
  EXPECT_GE(nFaults, 6);
}

}  // namespace
}  // namespace arap::testing
