#include <gtest/gtest.h>

#include "data/sql_dialect.h"
#include "data/trace.h"
#include "desk/engine/engine_world.h"
#include "engine/containers.h"
#include "frame/messages.h"
#include "services/desk_platform.h"

namespace desk::testing {
namespace {

using arap::Event;
using arap::operator""_key;
using arap::Member;
using Kind = TraceObserver::Kind;

class Trace : public BillWorld {
 protected:
  std::string told() const {
    static constexpr const char* kWords[] = {"event", "call", "sql", "sql as", "message"};
    std::string sText;
    for (const TraceLog::Line& line : log.lines())
      sText += std::string(kWords[static_cast<std::size_t>(line.kind)]) + " " + line.sText + "\n";
    return sText;
  }

  TraceLog log;
};
INSTANTIATE_TEST_SUITE_P(BothSides, Trace, ::testing::ValuesIn(kSides), side_name);

/// What a plug-in does with each object below the window.
void touch_everything(const arap::Ref<arap::Object>& oBill, DeskPlatform& platform) {
  const auto oRecord = oBill->call(Member::GetDataFldbyKey, "FAmountFor").object();
  oRecord->put(Member::Value, "FFLD", 5.5);
  oRecord->call(Member::Lookup, "FDSP");
  const auto oPage = oBill->call(Member::Data, "Page2").object();
  oPage->call(Member::Size);
  const auto oBar = oBill->get(Member::BarControl).object();
  oBar->get(Member::Tools, "mnuFileSave").object()->put(Member::Enabled, false);
  const auto oForm = oBill->get(Member::BillForm).object();
  oForm->put(Member::NotSave, true);
  const auto oHead = oBill->get(Member::BillEntrys).object()->get(Member::Item, std::int32_t{1}).object();
  oHead->get(Member::MDKFields, "FExchangeRate").object()->put(Member::Visible, false);
  const auto rs =
      oBill->get(Member::DataServer)
          .object()
          ->call(Member::OpenQuery,
                 "Select FNumber,FName From t_Currency With(Nolock) Where FCurrencyID=2 And isnull(FScale,0)=2")
          .object();
  rs->get(Member::Eof);
  rs->get(Member::Fields, "FNumber").object()->get(Member::Value);
  platform.MsgBox("done", arap::kNotice, "t");
}

TEST_P(Trace, ShowsEventsObjectsSqlAndBoxesInTheirOrder) {
  ObjectRegistry registry;
  DeskPlatform platform(registry);
  plugin->handlers[Event::AfterNewBill] = [&](arap::Arguments) {
    touch_everything(arap::Ref<arap::Object>(window.get()), platform);
  };
  {
    const TraceScope tracing(log);
    window->new_bill();
  }
  EXPECT_EQ(
      told(),
      "event AfterNewBill()\n"
      "call BillEvent.GetDataFldbyKey(\"FAmountFor\")\n"
      "call Dictionary FAmountFor.Value(\"FFLD\") = 5.5\n"
      "call Dictionary FAmountFor.Lookup(\"FDSP\")\n"
      "call BillEvent.Data(\"Page2\")\n"
      "call Vector Page2.Size()\n"
      "call BillEvent.BarControl()\n"
      "call ActiveBar.Tools(\"mnuFileSave\")\n"
      "call Tool mnuFileSave.Enabled = False\n"
      "call BillEvent.BillForm()\n"
      "call BillForm.NotSave = True\n"
      "call BillEvent.BillEntrys()\n"
      "call BillEntrys.Item(1)\n"
      "call BillEntry Page1.MDKFields(\"FExchangeRate\")\n"
      "call ScreenField FExchangeRate.Visible = False\n"
      "call BillEvent.DataServer()\n"
      "call DataServer.OpenQuery(\"Select FNumber,FName From t_Currency With(Nolock) Where FCurrencyID=2 And"
      " isnull(FScale,0)=2\")\n"
      "sql Select FNumber,FName From t_Currency With(Nolock) Where FCurrencyID=2 And isnull(FScale,0)=2\n"
      "sql as Select FNumber, FName From t_Currency Where FCurrencyID = ? And coalesce(FScale, ?) = ?  [2, 0, 2]\n"
      "call Recordset.Eof()\n"
      "call Recordset.Fields(\"FNumber\")\n"
      "call Field FNumber.Value()\n"
      "message done\n"
      "event AfterNewEmptyData()\n");
}

TEST_P(Trace, ShowsTheSelectionAsThePluginWroteItAndAsTheBookGotIt) {
  plugin->handlers[Event::BeforeSelBills] = [](arap::Arguments args) { args[3] = "FCurrencyID=1"; };
  window->bar().add_tool(GetParam().sSelect);
  window->new_bill();
  const TraceScope tracing(log);
  const Outcome chosen = window->press(GetParam().sSelect);
  ASSERT_TRUE(chosen) << chosen.sReason;
  const std::string sView = GetParam().sView;
  EXPECT_EQ(log.texts(Kind::Sql),
            std::vector<std::string>{"Select * From " + sView + " Where FCurrencyID=1 Order By "});
  EXPECT_EQ(log.texts(Kind::Translation),
            std::vector<std::string>{"SELECT * FROM " + sView + " WHERE FCurrencyID = ? ORDER BY FDate, FBillID  [1]"});
}

TEST_P(Trace, ShowsContainersAndNamesAnObjectByItsName) {
  const auto oWords = arap::make_object<HostDictionary>();
  const auto oList = arap::make_object<HostVector>();
  const TraceScope tracing(log);
  oWords->put(Member::Value, "FTool", arap::Ref<arap::Object>(window->bar().find_tool("mnuFileNew")));
  oWords->put(Member::Value, "FField", definition("FAmountFor"_key));
  oList->call(Member::Add, oWords);
  oList->get(Member::Item, std::int32_t{1});
  EXPECT_EQ(told(),
            "call Dictionary.Value(\"FTool\") = mnuFileNew\n"
            "call BillEvent.GetFieldInfoByKey(\"FAmountFor\", \"\", 0)\n"
            "call Dictionary.Value(\"FField\") = FAmountFor\n"
            "call Vector.Add(Dictionary)\n"
            "call Vector.Item(1)\n");
}

TEST_P(Trace, EndsWithItsScopeAndCountsWhatItDidntKeep) {
  TraceLog two(2);
  {
    const TraceScope outer(log);
    const TraceScope inner(two);
    for (int i = 0; i < 3; ++i) window->get(Member::EditMode);
  }
  window->get(Member::EditMode);
  EXPECT_TRUE(log.lines().empty());
  EXPECT_EQ(two.lines().size(), 2u);
  EXPECT_EQ(two.dropped(), 1u);
}

/// Has heard enough after its second line.
class SoonTired final : public TraceObserver {
 public:
  bool on_trace(Kind, std::string_view) override { return ++nHeard < 2; }
  int nHeard = 0;
};

TEST_P(Trace, EndsForAnObserverThatHasHeardEnough) {
  SoonTired tired;
  const TraceScope outer(log);
  {
    const TraceScope inner(tired);
    for (int i = 0; i < 5; ++i) window->get(Member::EditMode);
    EXPECT_FALSE(tracing());
  }
  window->get(Member::EditMode);
  EXPECT_EQ(tired.nHeard, 2);
  EXPECT_EQ(log.lines().size(), 1u) << "the outer one hears again";
}

}  // namespace
}  // namespace desk::testing
