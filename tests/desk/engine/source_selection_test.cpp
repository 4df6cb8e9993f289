#include <gtest/gtest.h>

#include "desk/choose_number.h"
#include "desk/engine/engine_world.h"

namespace desk::testing {
namespace {

using arap::Event;
using arap::Member;

class Selection : public BillWorld {
 protected:
  void SetUp() override {
    BillWorld::SetUp();
    window->new_bill();
    window->bar().add_tool(GetParam().sSelect);
    plugin->aEvents.clear();
  }
  void add_rows() {
    plugin->handlers[Event::AfterSelBillBeforeFillData] = [](arap::Arguments args) {
      arap::Dictionary(args[0]).SetValue("AddModel", true);
    };
  }
};
INSTANTIATE_TEST_SUITE_P(BothSides, Selection, ::testing::ValuesIn(kSides), side_name);

TEST_P(Selection, FiresItsEventsInOrderAndFillsTheRowsFromTheView) {
  ASSERT_TRUE(window->press(GetParam().sSelect));
  EXPECT_EQ(plugin->aEvents,
            (std::vector<std::string>{"MenuBarClick", "BeforeSelBills", "AfterSelBillBeforeFillData", "AfterSelBill"}));
  ASSERT_EQ(window->body().size(), 3u);
  EXPECT_EQ(number("FInterID", 2), 2);
  EXPECT_EQ(number("FBillAmountFor", 3), 300.75);
  EXPECT_EQ(window->shown("FBillCurrencyID", 1), "人民币");
}

TEST_P(Selection, TheFilterAndOrderOfThePluginRuleTheList) {
  plugin->handlers[Event::BeforeSelBills] = [this](arap::Arguments args) {
    EXPECT_EQ(arap::LongOf(args[0]), GetParam().nSelect);
    args[3] = std::string("  1=1  and ") + GetParam().sView + ".FBillID in(1,3)";
    args[1].object()->put(Member::Filter, "HeadSort", std::string(" ") + GetParam().sView + ".Fbillid desc");
  };
  ASSERT_TRUE(window->press(GetParam().sSelect));
  ASSERT_EQ(window->body().size(), 2u);
  EXPECT_EQ(number("FInterID", 1), 3);
  EXPECT_EQ(number("FInterID", 2), 1);
}

TEST_P(Selection, AddModelKeepsTheRowsThatWereThereAndOtherwiseTheyGo) {
  add_rows();
  window->set_chooser(choose_number("INV1"));
  ASSERT_TRUE(window->press(GetParam().sSelect));
  window->set_chooser(choose_number("INV2"));
  ASSERT_TRUE(window->press(GetParam().sSelect));
  EXPECT_EQ(window->body().size(), 2u);
  plugin->handlers.clear();
  window->set_chooser(choose_number("INV3"));
  ASSERT_TRUE(window->press(GetParam().sSelect));
  ASSERT_EQ(window->body().size(), 1u);
  EXPECT_EQ(arap::Concat(window->value(GetParam().sNumber, 1)), "INV3");
}

TEST_P(Selection, ClosingWithoutAChoiceLeavesTheBillAndSendsNoMoreEvents) {
  window->set_chooser(choose_number("nothing of that name"));
  EXPECT_FALSE(window->press(GetParam().sSelect));
  EXPECT_EQ(window->body().size(), 0u);
  EXPECT_EQ(plugin->aEvents.back(), "BeforeSelBills");
}

TEST_P(Selection, TheChosenRowsComeAsARecordsetOfTheirOwn) {
  std::int32_t nRecords = 0;
  double dOpen = 0;
  plugin->handlers[Event::AfterSelBillBeforeFillData] = [&](arap::Arguments args) {
    const arap::Recordset rs{arap::Dictionary(args[0]).Value("rsSrc")};
    nRecords = rs.RecordCount();
    dOpen = arap::NumberOf(rs.Value(GetParam().open_for()));
  };
  window->set_chooser(
      choose_where([](const SourceList& list, std::size_t nRow) { return list.text(nRow, "FBillNo") != "INV1"; }));
  ASSERT_TRUE(window->press(GetParam().sSelect));
  EXPECT_EQ(nRecords, 2);
  EXPECT_EQ(dOpen, 200.5);
}

TEST_P(Selection, TheToolsOwnNumberOpensAnotherSourceTypeAndAnUnknownOneIsRefused) {
  plugin->handlers[Event::MenuBarClick] = [](arap::Arguments args) { args[0].object()->put(Member::ToolId, 77); };
  EXPECT_NE(window->press(GetParam().sSelect).sReason.find("77"), std::string::npos);
  plugin->handlers.clear();
  const auto oTool = arap::make_object<BarTool>(GetParam().sSelect);
  oTool->put(Member::Tag, std::to_string(GetParam().nSelect));
  window->get(Member::BillForm).object()->call(Member::DoSelBillExt, oTool, "");
  EXPECT_EQ(window->body().size(), 3u);
}

}  // namespace
}  // namespace desk::testing
