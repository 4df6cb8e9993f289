#include <functional>

#include "plugin/settlement/settlement_fixture.h"

/// Every host call of every handler fails once. The handler ends by its own error pattern: the error goes to the host
/// as it came, is shown in one box, or is skipped; Cancel and the held tasks are as the pattern wants them.
namespace arap::testing {
namespace {

/// Where a fault of the handler may go. A handler may call helpers with a pattern of their own: the period, the rights,
/// the log and the credit text answer their default.
struct Pattern {
  bool bReachesHost = false;
  bool bShown = false;
  bool bSkipped = false;
  bool bCancels = false;  // what reaches the host sets Cancel
};
constexpr Pattern kPasses{.bReachesHost = true};
constexpr Pattern kTraps{.bReachesHost = true, .bCancels = true};
constexpr Pattern kShows{.bShown = true};
constexpr Pattern kSkips{.bSkipped = true};
constexpr Pattern both(Pattern one, Pattern other) {
  return {one.bReachesHost || other.bReachesHost, one.bShown || other.bShown, one.bSkipped || other.bSkipped,
          one.bCancels || other.bCancels};
}

/// A bill of 100 with two source rows on which any command can act.
struct World {
  explicit World(Side eSide) : side(names_of(eSide)), bill(make_settlement_bill(eSide)) {
    session.server("NUVMARAPPush.clsPush").answers(Member::GetBillTypeID, std::int32_t{1});
    session.commands.answer("select 1 from", recordset({"1"}, {{std::int32_t{1}}}));
    session.commands.answer("select FVoucherID", recordset({"FVoucherID"}, {{std::int32_t{77}}}));
    session.system_data.answer("declare @Per", recordset({"FStartDate", "FEndDate"}, {{"2024-01-01", "2024-01-31"}}));
    plugin = CreatePublicObject(side.sClass);
    plugin->call(Member::Show, bill);
    bill->fire(Event::MenuBarInitialize, {bill->bar});
    bill->head("FBillID", 9);
    bill->inter_id = 9;
    add_source_row(*bill, eSide, {.nInterID = 1, .dOpenFor = 60, .dSettleFor = 60});
    add_source_row(*bill, eSide, {.nInterID = 2, .dOpenFor = 40, .dSettleFor = 40});
    set_amounts(*bill, eSide, 100, 100);
  }

  TestSession session;
  const SideNames& side;
  Ref<TestBill> bill;
  Ref<Object> plugin;
};

struct Scenario {
  const char* sName;
  Pattern pattern;
  Event event;
  /// The arguments of the event; the last one is Cancel where the event has one.
  std::function<std::vector<Variant>(World&)> arguments;
};

using Arranged = std::function<std::vector<Variant>(World&)>;
Arranged nothing() {
  return [](World&) { return std::vector<Variant>{}; };
}
Arranged bar() {
  return [](World& world) { return std::vector<Variant>{Ref<Object>(world.bill->bar)}; };
}
Arranged tool(const char* sName) {
  return [sName](World&) { return std::vector<Variant>{make_object<TestTool>(sName), false}; };
}
Arranged changed(const char* sKey, int nRow) {
  return [=](World& world) {
    world.bill->record(sKey, nRow).set("FMODIFY", 1);
    return std::vector<Variant>{Ref<Object>(world.bill->info(sKey)), Ref<Object>(&world.bill->record(sKey, nRow)), 1,
                                nRow, false};
  };
}

std::vector<Scenario> events() {
  return {
      {"NewBill", both(kPasses, kSkips), Event::AfterNewBill, nothing()},
      {"LoadBill", both(kPasses, kSkips), Event::AfterLoadBill, nothing()},
      {"MenuBarInitialize", both(kPasses, kSkips), Event::MenuBarInitialize, bar()},
      {"BarInitialize", kPasses, Event::BarInitialize, bar()},
      {"BeginEditOfThePartner", kPasses, Event::BeginEdit,
       [](World& world) {
         return std::vector<Variant>{Ref<Object>(world.bill->info(world.side.sPartner)), 0, 0};
       }},
      {"LeavingThePartner", kSkips, Event::HeadCtlLostFocus,
       [](World& world) {
         return std::vector<Variant>{Ref<Object>(), Ref<Object>(world.bill->info(world.side.sPartner)), 0};
       }},
      {"ChangeOfThePartner", both(kTraps, kSkips), Event::Change,
       [](World& world) { return changed(world.side.sPartner, -1)(world); }},
      {"ChangeOfTheCurrency", kTraps, Event::Change, changed("FCurrencyID", -1)},
      {"ChangeOfAWriteOff", kTraps, Event::Change, changed("FBillSettleAmountFor", 1)},
      {"AfterTheDiscountAction", kPasses, Event::AfterDoAction,
       [](World& world) {
         const std::string sText = world.side.sDiscountAction;
         return std::vector<Variant>{Ref<Object>(), Ref<Object>(), Ref<Object>(), "", "", sText};
       }},
      {"BeforeSelection", kPasses, Event::BeforeSelBills,
       [](World& world) {
         return std::vector<Variant>{world.side.nOpenKind, dictionary(), Ref<Object>(), "", false};
       }},
      {"FillOfTheSelection", kPasses, Event::AfterSelBillBeforeFillData,
       [](World&) {
         const auto rows = recordset({"FDeptID", "FEmpID"}, {{5, 6}});
         return std::vector<Variant>{dictionary({{"rsSrc", rows}}), Ref<Object>()};
       }},
      {"AfterSelection", kShows, Event::AfterSelBill, [](World&) { return std::vector<Variant>{Variant()}; }},
      {"BeforeSave", both(kTraps, kSkips), Event::BeforeSave, [](World&) { return std::vector<Variant>{false}; }},
      {"SaveBillFailed", kPasses, Event::SaveBillFailed, nothing()},
  };
}

std::vector<Scenario> commands() {
  return {
      {"Check", both(kTraps, kSkips), Event::MenuBarClick, tool("mnuEditCheck")},
      {"Uncheck", both(kTraps, kSkips), Event::MenuBarClick, tool("mnuEditUnCheck")},
      {"LookUp", kTraps, Event::MenuBarClick, tool("mnuDataLookUp")},
      {"Selection", kTraps, Event::MenuBarClick, [](World& world) { return tool(world.side.sSelectTool)(world); }},
      {"AutoApportion", both(kTraps, kShows), Event::MenuBarClick, tool("mnuDataAutoPartAmt")},
      {"AutoSum", both(kTraps, kShows), Event::MenuBarClick, tool("mnuDataAutoSumAmt")},
      {"RedBill", kTraps, Event::MenuBarClick, tool("mnuEditRedBill")},
      {"BlueBill", kTraps, Event::MenuBarClick,
       [](World& world) {
         world.bill->bar->tool("mnuEdit", "mnuEditBlueBill").set(Member::Checked, false);
         return tool("mnuEditBlueBill")(world);
       }},
      {"Help", kTraps, Event::MenuBarClick, tool("mnuHelpFile")},
      {"Voucher", both(kTraps, kShows), Event::MenuBarClick, tool("mnuViewVch")},
      {"Save", both(kTraps, kSkips), Event::MenuBarClick, tool("mnuFileSave")},
      {"SaveOfACheckedBill", both(kTraps, kSkips), Event::MenuBarClick,
       [](World& world) {
         world.bill->head("FStatus", 1);
         return tool("mnuFileSave")(world);
       }},
      {"Exit", kTraps, Event::MenuBarClick, tool("mnuFileExit")},
  };
}

std::vector<Scenario> scenarios() {
  std::vector<Scenario> aAll = events();
  const std::vector<Scenario> aCommands = commands();
  aAll.insert(aAll.end(), aCommands.begin(), aCommands.end());
  return aAll;
}

class FailingCalls : public ::testing::TestWithParam<std::tuple<Side, Scenario>> {
 protected:
  static const Pattern& pattern() { return std::get<1>(GetParam()).pattern; }

  /// The event with one failing call, and what must hold after it.
  void run(const std::function<void()>& arm) {
    const Scenario& scenario = std::get<1>(GetParam());
    World world(std::get<0>(GetParam()));
    std::vector<Variant> aArgs = scenario.arguments(world);
    arm();
    bool bReachedHost = false;
    try {
      world.bill->events.fire(scenario.event, aArgs);
    } catch (const AutomationError& error) {
      bReachedHost = true;
      EXPECT_EQ(error.number(), Trace::kFaultNumber);
      EXPECT_EQ(error.description(), "host call failed");
      EXPECT_TRUE(!pattern().bCancels || aArgs.back().as<bool>()) << "an error that reaches the host cancels";
    }
    if (trace().faulted()) expect_end(world.session, bReachedHost);
    EXPECT_TRUE(world.session.held_tasks.empty());
  }

  void expect_end(const TestSession& session, bool bReachedHost) {
    bool bShown = false;
    for (const auto& message : session.platform.messages) {
      bShown = bShown || message.sText.find("host call failed") != std::string::npos;
    }
    EXPECT_FALSE(bReachedHost && bShown) << "told twice";
    EXPECT_TRUE(!bReachedHost || pattern().bReachesHost) << "must not reach the host";
    EXPECT_TRUE(!bShown || pattern().bShown) << "must not be shown";
    EXPECT_TRUE(bReachedHost || bShown || pattern().bSkipped) << "was lost";
    reached_host_ = reached_host_ || bReachedHost;
    shown_ = shown_ || bShown;
  }

  bool reached_host_ = false;
  bool shown_ = false;
};

TEST_P(FailingCalls, EndTheHandlerByItsErrorPattern) {
  EXPECT_GT(FailEachCall([this](const auto& arm) { run(arm); }), 0);
  EXPECT_EQ(reached_host_, pattern().bReachesHost);
  EXPECT_EQ(shown_, pattern().bShown);
}

std::string NameOfCase(const ::testing::TestParamInfo<FailingCalls::ParamType>& info) {
  return (std::get<0>(info.param) == Side::Receive ? "Receipt" : "Payment") +
         std::string(std::get<1>(info.param).sName);
}
INSTANTIATE_TEST_SUITE_P(, FailingCalls,
                         ::testing::Combine(::testing::Values(Side::Receive, Side::Pay),
                                            ::testing::ValuesIn(scenarios())),
                         NameOfCase);

}  // namespace
}  // namespace arap::testing
