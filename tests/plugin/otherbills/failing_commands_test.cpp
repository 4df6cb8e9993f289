#include <functional>

#include "other_list_fixture.h"

/// Every host call of the commands, of the list and of the single operation fails once. The handler ends by its own
/// error pattern, and no task is left behind.
namespace arap::testing {
namespace {

/// A bill window and a list on which any command can act, each with its own object of the plug-in.
struct CommandWorld {
  explicit CommandWorld(Side eSide) : side(other_names_of(eSide)), bill(make_other_bill(eSide)) {
    add_in_out_types(session);
    session.commands.answer("select FVoucherID", recordset({"FVoucherID"}, {{77}}));
    session.commands.answer("select FVoucherID from t_VoucherEntry", recordset({"FVoucherID"}));
    session.system_data.answer("declare @Per", recordset({"FStartDate", "FEndDate"}, {{"2024-01-01", "2024-01-31"}}));
    bill->inter_id = 9;
    bill_plugin = CreatePublicObject(side.sClass);
    bill_plugin->call(Member::Show, bill);
    list = make_object<TestList>(side.nBillClass);
    list_plugin = CreatePublicObject(side.sClass);
    list_plugin->call(Member::Show, list);
  }
  void select(int nStatus) {
    for (const int nBillID : {5, 6}) {
      list->details[nBillID] = recordset({"FStatus", "FDate", "FVoucherId"}, {{nStatus, "2024-01-15", 77}});
      list->select({{"FBillID", nBillID}, {"FClassTypeID", side.nBillClass}});
    }
  }
  /// Fires and answers what became of Cancel, which is the last argument of a click.
  bool click(EventSourceList& events, const char* sTool) {
    std::vector<Variant> aArgs{make_object<TestTool>(sTool), false};
    try {
      events.fire(Event::MenuBarClick, aArgs);
    } catch (const AutomationError& error) {
      EXPECT_EQ(error.number(), Trace::kFaultNumber);
      reached_host = true;
    }
    return plain_number(aArgs[1]) != 0;
  }

  TestSession session;
  const OtherNames& side;
  Ref<TestBill> bill;
  Ref<TestList> list;
  Ref<Object> bill_plugin;
  Ref<Object> list_plugin;
  bool reached_host = false;
};

enum class Where { BillWindow, List };

struct CommandScenario {
  const char* sName;
  Where where;
  const char* sTool;
  int nStatus;      // of the bills in the list
  bool bEverShown;  // some faults are told in a box by a trap further in
};

std::vector<CommandScenario> command_scenarios() {
  return {{"Check", Where::BillWindow, "mnuEditCheck", 0, false},
          {"Uncheck", Where::BillWindow, "mnuEditUnCheck", 1, false},
          {"Delete", Where::BillWindow, "mnuEditDelete", 0, false},
          {"New", Where::BillWindow, "mnuFileNew", 0, false},
          {"Help", Where::BillWindow, "mnuHelpFile", 0, false},
          {"Voucher", Where::BillWindow, "mnuViewVch", 1, true},
          {"ListCheck", Where::List, "Check", 0, false},
          {"ListUncheck", Where::List, "UnCheck", 1, false},
          {"ListDelete", Where::List, "mnuEditDelete", 0, false},
          {"ListVoucher", Where::List, "Voucher", 1, true},
          {"ListRelatedBills", Where::List, "mnuDataViewNextBill", 0, false}};
}

class OtherFailingCommands : public ::testing::TestWithParam<std::tuple<Side, CommandScenario>> {
 protected:
  const CommandScenario& scenario() const { return std::get<1>(GetParam()); }

  void run(const std::function<void()>& arm) {
    CommandWorld world(std::get<0>(GetParam()));
    if (scenario().where == Where::List) world.select(scenario().nStatus);
    arm();
    const bool bCancel = scenario().where == Where::List ? world.click(world.list->events, scenario().sTool)
                                                         : world.click(world.bill->events, scenario().sTool);
    const bool bFaulted = trace().faulted();
    trace().fail_at(0);
    EXPECT_TRUE(bCancel || !world.reached_host || scenario().where == Where::List);
    if (bFaulted) count(world);
    world.bill_plugin = nullptr;
    world.list_plugin = nullptr;
    EXPECT_TRUE(world.session.held_tasks.empty());
  }
  void count(const CommandWorld& world) {
    if (world.reached_host) ++reached_;
    for (const auto& message : world.session.platform.messages) {
      if (message.sText.find("加载凭证编辑组建失败：host call failed") != std::string::npos) ++shown_;
    }
  }

  int reached_ = 0;
  int shown_ = 0;
};

TEST_P(OtherFailingCommands, EndByTheirPatternWithoutATask) {
  const int nFaults = FailEachCall([this](const auto& arm) { run(arm); });
  EXPECT_GT(nFaults, 2);
  EXPECT_GT(reached_, 0);
  EXPECT_EQ(shown_ > 0, scenario().bEverShown);
}

std::string scenario_name(const ::testing::TestParamInfo<std::tuple<Side, CommandScenario>>& param) {
  return std::string(std::get<0>(param.param) == Side::Receive ? "Receivable" : "Payable") +
         std::get<1>(param.param).sName;
}

INSTANTIATE_TEST_SUITE_P(, OtherFailingCommands,
                         ::testing::Combine(::testing::Values(Side::Receive, Side::Pay),
                                            ::testing::ValuesIn(command_scenarios())),
                         scenario_name);

class OtherFailingBars : public ::testing::TestWithParam<Side> {};
INSTANTIATE_OTHER_SIDES(OtherFailingBars);

TEST_P(OtherFailingBars, TheListBarSkipsWhatFails) {
  const int nFaults = FailEachCall([](const auto& arm) {
    CommandWorld world(GetParam());
    arm();
    EXPECT_NO_THROW(world.list->fire(Event::BarInitialize, {world.list->bar}));
  });
  EXPECT_GT(nFaults, 100);
}

TEST_P(OtherFailingBars, AFaultInTheBarsOfTheBillWindowReachesTheHost) {
  for (const Event event : {Event::BarInitialize, Event::MenuBarInitialize}) {
    const int nFaults = FailEachCall([event](const auto& arm) {
      CommandWorld world(GetParam());
      arm();
      bool bReached = false;
      try {
        world.bill->fire(event, {world.bill->bar});
      } catch (const AutomationError& error) {
        bReached = error.number() == Trace::kFaultNumber;
      }
      EXPECT_EQ(bReached, trace().faulted());
    });
    EXPECT_GT(nFaults, 10);
  }
}

class OtherFailingOperation : public ::testing::TestWithParam<Side> {};
INSTANTIATE_OTHER_SIDES(OtherFailingOperation);

TEST_P(OtherFailingOperation, EveryErrorBecomesTheTextAndLeavesNoTaskBehind) {
  int nTold = 0;
  const int nFaults = FailEachCall([&nTold](const auto& arm) {
    CommandWorld world(GetParam());
    std::array<Variant, 5> args{world.side.nBillClass, 31, 1, std::int16_t{7}, "before"};
    arm();
    bool bDone = false;
    EXPECT_NO_THROW(bDone = world.list_plugin->invoke(Member::DoOptToBill, Access::Call, args).template as<bool>());
    const bool bTold = plain_text(args[4]) == "host call failed";
    EXPECT_EQ(bTold, !bDone);
    if (bTold) ++nTold;
    trace().fail_at(0);
    world.list_plugin = nullptr;
    EXPECT_TRUE(world.session.held_tasks.empty());
  });
  EXPECT_GT(nFaults, 15);
  EXPECT_GT(nTold, 10);
}

}  // namespace
}  // namespace arap::testing
