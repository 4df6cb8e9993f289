#include "plugin/inouttypes/type_fixture.h"

namespace arap::testing {
namespace {

/// Band and tool that a set-up of the bill's bar touches; "" is the bar's own tool.
using Place = std::pair<const char*, const char*>;

struct BarSetUp {
  const char* sGolden;
  Event event;
  std::vector<Place> aTools;
};

/// Set-ups without a trap: each in the order of its tools.
class TypeBars : public TypeTest, public ::testing::WithParamInterface<BarSetUp> {
 protected:
  void set_up() {
    trace().clear();
    if (GetParam().event == Event::MenuBarInitialize) {
      bill->fire(GetParam().event, {bill->bar});
    } else {
      bill->fire(GetParam().event);
    }
  }
  void remove(const Place& tool) {
    if (*tool.first == '\0') return bill->bar->remove(tool.second);
    bill->bar->remove(tool.first, tool.second);
  }
  static std::string line_of(const Place& tool) {
    return std::string(*tool.first == '\0' ? "Bar" : tool.first) + "." + tool.second + ".Enabled = False";
  }
};

INSTANTIATE_TEST_SUITE_P(
    SetUps, TypeBars,
    ::testing::Values(BarSetUp{"menu_setup",
                               Event::MenuBarInitialize,
                               {{"mnuFile", "mnuFilePageSetup"},
                                {"mnuFile", "mnuFilePreview"},
                                {"mnuFile", "mnuFilePrintSetup"},
                                {"mnuFile", "mnuFileNotePrintSetup"},
                                {"mnuFile", "mnuFilePrint"},
                                {"", "mnuStockQuery"},
                                {"", "mnuDataAccessory"},
                                {"", "mnuGetSysDate"},
                                {"", "mnuFormatIndentity"},
                                {"", "mnuOptionBatchFull"},
                                {"", "mnuDataPre"},
                                {"", "mnuDataNext"},
                                {"", "mnuCaculate"},
                                {"", "mnuFormatBack"},
                                {"", "mnuOptionLinkBill"},
                                {"", "mnuDataRefesh"}}},
                      BarSetUp{"after_new_bill",
                               Event::AfterNewBill,
                               {{"mnuData", "mnuCaculate"}, {"", "mnuFilePrint"}, {"mnuFile", "mnuEditCopy"}}},
                      BarSetUp{"after_load_bill",
                               Event::AfterLoadBill,
                               {{"BandToolBar", "mnuDataPre"},
                                {"BandToolBar", "mnuDataNext"},
                                {"mnuData", "mnuCaculate"},
                                {"", "mnuFilePrint"},
                                {"mnuFile", "mnuEditCopy"},
                                {"mnuOption", "mnuOptionBatchFull"}}}),
    [](const auto& test) { return std::string(test.param.sGolden); });

TEST_P(TypeBars, OnABarWithAllToolsTheTraceIsApproved) {
  set_up();
  ExpectGolden("inouttypes", GetParam().sGolden);
  EXPECT_EQ(trace().count(".Enabled = False"),
            GetParam().aTools.size() + (GetParam().event == Event::AfterNewBill ? 1u : 0u));
}

TEST_P(TypeBars, ALackingToolRaisesTheBarsErrorAndNothingBehindItRuns) {
  set_up();
  const Lines aFull = trace().lines();
  for (const Place& tool : GetParam().aTools) {
    bill->bar = TestBar::of_type_bill();
    bill->head("FNumber", "");
    remove(tool);
    try {
      set_up();
      ADD_FAILURE() << "no error without " << tool.second;
    } catch (const AutomationError& error) {
      EXPECT_EQ(error.number(), 9) << tool.second;
    }
    const Lines aHere = trace().lines();
    ASSERT_LT(aHere.size(), aFull.size()) << tool.second;
    EXPECT_TRUE(std::equal(aHere.begin(), aHere.end(), aFull.begin())) << tool.second;
    EXPECT_EQ(aFull[aHere.size()], line_of(tool));
  }
}

TEST_P(TypeBars, TheLayoutIsComputedLastWhereItIs) {
  set_up();
  EXPECT_EQ(trace().count("RecalcLayout"), GetParam().event == Event::MenuBarInitialize ? 0u : 1u);
  if (trace().has("RecalcLayout")) {
    EXPECT_EQ(trace().position("RecalcLayout"), trace().position(line_of(GetParam().aTools.back())) + 1);
  }
}

TEST_F(TypeTest, ANewBillSwitchesTheBandOfOptionsOff) {
  bill->fire(Event::AfterNewBill);
  EXPECT_FALSE(bill->bar->band_state("mnuOption", Member::Enabled));
}

}  // namespace
}  // namespace arap::testing
