#include <functional>

#include "other_bill_fixture.h"

/// Every host call of the handlers of the bill window fails once. An error goes to the host as it came, or is skipped
/// by a handler that skips; it is never shown, and a trapped one cancels.
namespace arap::testing {
namespace {

enum class Ending { ReachesHost, Trapped, Skipped, CancelsInSilence };

struct Scenario {
  const char* sName;
  Ending ending;
  Event event;
  /// The arguments of the event; the last one is Cancel where the event has one.
  std::function<std::vector<Variant>(TestBill&, const OtherNames&)> arguments;
};

std::vector<Variant> nothing(TestBill&, const OtherNames&) { return {}; }
auto changed(const char* sKey, int nRow) {
  return [=](TestBill& bill, const OtherNames&) {
    return std::vector<Variant>{Ref<Object>(bill.info(sKey)), Ref<Object>(&bill.record(sKey, nRow)), 1, nRow, false};
  };
}

std::vector<Scenario> scenarios() {
  return {
      {"NewBill", Ending::ReachesHost, Event::AfterNewBill, nothing},
      {"LoadBill", Ending::ReachesHost, Event::AfterLoadBill, nothing},
      {"AfterSave", Ending::ReachesHost, Event::AfterSave,
       [](TestBill&, const OtherNames&) { return std::vector<Variant>{0}; }},
      {"BeginEditOfTheEmployee", Ending::ReachesHost, Event::BeginEdit,
       [](TestBill& bill, const OtherNames&) {
         return std::vector<Variant>{Ref<Object>(bill.info("FEmployeeID")), 0, 0};
       }},
      {"LeavingThePartner", Ending::Skipped, Event::HeadCtlLostFocus,
       [](TestBill& bill, const OtherNames& side) {
         return std::vector<Variant>{Ref<Object>(), Ref<Object>(bill.info(side.sPartner)), Ref<Object>()};
       }},
      {"ChangeOfThePartner", Ending::Trapped, Event::Change,
       [](TestBill& bill, const OtherNames& side) { return changed(side.sPartner, -1)(bill, side); }},
      {"ChangeOfTheType", Ending::Trapped, Event::Change, changed("FBillTypeId", -1)},
      {"ChangeOfTheCurrency", Ending::Trapped, Event::Change, changed("FCurrencyId", -1)},
      {"ChangeOfTheRate", Ending::Trapped, Event::Change, changed("FExchangeRate", -1)},
      {"ChangeOfARowAmount", Ending::Trapped, Event::Change, changed("FBillAmountFor", 1)},
      {"ChangeOfARowType", Ending::Trapped, Event::Change, changed("FInOutTypeId", 1)},
      {"BeforeSave", Ending::CancelsInSilence, Event::BeforeSave,
       [](TestBill&, const OtherNames&) { return std::vector<Variant>{false}; }},
  };
}

class OtherFailingCalls : public ::testing::TestWithParam<std::tuple<Side, Scenario>> {
 protected:
  /// The event on a credit bill with terms, with one failing call, and what must hold after it.
  void run(const std::function<void()>& arm) {
    const OtherNames& side = other_names_of(std::get<0>(GetParam()));
    const Scenario& scenario = std::get<1>(GetParam());
    TestSession session;
    add_in_out_types(session);
    const Ref<TestBill> bill = make_other_bill(side.side);
    const Ref<Object> plugin = CreatePublicObject(side.sClass);
    plugin->call(Member::Show, bill);
    bill->fire(Event::MenuBarInitialize, {bill->bar});
    bill->head("FBillTypeId", side.nCreditType);
    add_other_row(*bill, {.dAmountFor = 60});
    bill->sql.answer(" Select t2.FType", recordset({"FType", "FStandDays"}, {{1, 30}}));
    bill->sql.answer("Select FValue From t_SystemProfile", recordset({"FValue"}, {{"1"}}));
    std::vector<Variant> aArgs = scenario.arguments(*bill, side);
    arm();
    bool bReachedHost = false;
    try {
      bill->events.fire(scenario.event, aArgs);
    } catch (const AutomationError& error) {
      bReachedHost = true;
      EXPECT_EQ(error.number(), Trace::kFaultNumber);
      EXPECT_EQ(error.description(), "host call failed");
    }
    EXPECT_TRUE(session.platform.messages.empty());
    if (trace().faulted()) expect_end(scenario.ending, bReachedHost, aArgs);
  }

  void expect_end(Ending ending, bool bReachedHost, const std::vector<Variant>& aArgs) {
    reached_host_ = reached_host_ || bReachedHost;
    switch (ending) {
      case Ending::ReachesHost: break;
      case Ending::Trapped: EXPECT_TRUE(bReachedHost && aArgs.back().as<bool>()); break;
      case Ending::Skipped: break;
      // The test of the period answers true after an error of its own.
      case Ending::CancelsInSilence: cancelled_ = cancelled_ || aArgs.back().as<bool>(); break;
    }
  }

  bool reached_host_ = false;
  bool cancelled_ = false;
};

TEST_P(OtherFailingCalls, EndTheHandlerByItsErrorPattern) {
  const Ending ending = std::get<1>(GetParam()).ending;
  EXPECT_GT(FailEachCall([this](const auto& arm) { run(arm); }), 3);
  EXPECT_EQ(reached_host_, ending == Ending::ReachesHost || ending == Ending::Trapped);
  EXPECT_EQ(cancelled_, ending == Ending::CancelsInSilence);
}

std::string NameOfCase(const ::testing::TestParamInfo<OtherFailingCalls::ParamType>& info) {
  return (std::get<0>(info.param) == Side::Receive ? "Receivable" : "Payable") +
         std::string(std::get<1>(info.param).sName);
}
INSTANTIATE_TEST_SUITE_P(, OtherFailingCalls,
                         ::testing::Combine(::testing::Values(Side::Receive, Side::Pay),
                                            ::testing::ValuesIn(scenarios())),
                         NameOfCase);

}  // namespace
}  // namespace arap::testing
