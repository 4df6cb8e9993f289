#include <gtest/gtest.h>

#include "frame/plugin_entry.h"
#include "support/golden.h"
#include "support/test_session.h"
#include "support/test_windows.h"

namespace arap::testing {
namespace {

using Place = std::pair<std::string, std::string>;

/// The tools that a list takes away, band and name; "" is the bar's own.
struct ListCase {
  const char* sClass;
  const char* sGolden;
  std::vector<Place> aHidden;
};
void PrintTo(const ListCase& example, std::ostream* pStream) { *pStream << example.sClass; }

const std::vector<Place> kFormat{
    {"", "mnuFormatRowHeight"},       {"", "mnuFormatFont"},  {"", "mnuFormatOpt"},
    {"", "mnuDataAccessory"},         {"", "mnuPreHeadFoot"}, {"", "mnuFileSeriesPrintAll"},
    {"", "mnuFileSeriesPrintViewAll"}};

const std::vector<Place> kOfInvoices{{"mnuFile", "mnuNoteSetup"},
                                     {"mnuFile", "mnuFileSeriesPrint"},
                                     {"mnuFile", "mnuFileSeriesPrintView"},
                                     {"mnuFile", "mnuFileUseEconomizePaper"},
                                     {"mnuEdit", "mnuEditCopy"},
                                     {"", "mnuDataViewPrvBill"},
                                     {"", "mnuDataViewNextBill"},
                                     {"mnuPop", "mnuEditCopyEntry"},
                                     {"mnuData", "mnuDataViewPrvBill"},
                                     {"mnuData", "mnuDataViewNextBill"},
                                     {"mnuView", "mnuViewToolBar"},
                                     {"mnuView", "mnuViewToolCaption"},
                                     {"menu", "mnuPushBill"}};

std::vector<Place> of_opening_balances() {
  std::vector<Place> aTools = kOfInvoices;
  aTools.insert(aTools.begin() + 5, {"mnuEdit", "mnuFileView"});
  aTools.emplace_back("mnuFile", "mnuExportData");
  aTools.emplace_back("mnuFile", "mnuFilePageSetup");
  return aTools;
}

class ListBars : public ::testing::TestWithParam<ListCase> {
 protected:
  using Lines = std::vector<std::string>;

  ListBars() { plugin->call(Member::Show, list); }

  void set_up() {
    trace().clear();
    list->fire(Event::BarInitialize, {list->bar});
  }
  void remove(const Place& tool) {
    if (tool.first.empty()) return list->bar->remove(tool.second);
    list->bar->remove(tool.first, tool.second);
  }
  TestTool& at(const Place& tool) {
    return tool.first.empty() ? list->bar->tool(tool.second) : list->bar->tool(tool.first, tool.second);
  }
  static std::string prefix_of(const Place& tool) {
    return (tool.first.empty() ? "Bar" : tool.first) + "." + tool.second + ".";
  }

  TestSession session;
  Ref<TestList> list = make_object<TestList>(1000000);
  Ref<Object> plugin = CreatePublicObject(std::string("NUVARAPBillInterface.") + GetParam().sClass);
};

INSTANTIATE_TEST_SUITE_P(Lists, ListBars,
                         ::testing::Values(ListCase{"clsInvoice", "invoice_bar", kOfInvoices},
                                           ListCase{"clsRPInitial", "opening_balances_bar", of_opening_balances()}),
                         [](const auto& test) { return std::string(test.param.sClass); });

TEST_P(ListBars, OnABarWithAllToolsTheTraceIsApproved) {
  set_up();
  ExpectGolden("lists", GetParam().sGolden);
}

TEST_P(ListBars, ItsToolsAreHiddenInTheirOrderAndNoOthers) {
  set_up();
  Lines aExpected;
  for (const Place& tool : GetParam().aHidden) {
    EXPECT_FALSE(at(tool).visible()) << tool.first << " " << tool.second;
    aExpected.push_back(prefix_of(tool) + "Visible = False");
  }
  aExpected.insert(aExpected.begin() + (aExpected.size() == kOfInvoices.size() ? 13 : 14), kFormat.size(), "");
  for (std::size_t i = 0; i < kFormat.size(); ++i) {
    aExpected[(GetParam().aHidden.size() == kOfInvoices.size() ? 13 : 14) + i] =
        prefix_of(kFormat[i]) + "Visible = False";
  }
  EXPECT_EQ(trace().lines_with("Visible = False"), aExpected);
}

TEST_P(ListBars, TheSevenFormatCommandsAreAllDisabledBeforeTheFirstIsHidden) {
  set_up();
  EXPECT_EQ(trace().count("Enabled = False"), kFormat.size());
  for (const Place& tool : kFormat) {
    EXPECT_FALSE(at(tool).enabled());
    EXPECT_FALSE(at(tool).visible());
    EXPECT_LT(trace().position(prefix_of(tool) + "Enabled"), trace().position("Bar.mnuFormatRowHeight.Visible"));
  }
}

TEST_P(ListBars, ALackingToolIsSkippedAndTheRestIsTheSame) {
  set_up();
  const Lines aFull = trace().lines();
  std::vector<Place> aTools = GetParam().aHidden;
  aTools.insert(aTools.end(), kFormat.begin(), kFormat.end());
  for (const Place& tool : aTools) {
    list->bar = TestBar::of_list_window();
    remove(tool);
    ASSERT_NO_THROW(set_up()) << tool.second;
    Lines aExpected;
    for (const std::string& sLine : aFull) {
      if (!sLine.starts_with(prefix_of(tool))) aExpected.push_back(sLine);
    }
    EXPECT_EQ(trace().lines(), aExpected) << tool.first << " " << tool.second;
  }
}

TEST_P(ListBars, AnEmptyBarComesUp) {
  list->bar = make_object<TestBar>();
  set_up();
  EXPECT_EQ(trace().lines(), (Lines{"Bar.RecalcLayout()"}));
}

TEST_P(ListBars, EveryHostCallMayFail) {
  const int nFaults = FailEachCall([&](const auto& arm) {
    list->bar = TestBar::of_list_window();
    arm();
    EXPECT_NO_THROW(list->fire(Event::BarInitialize, {list->bar}));
    int nVisible = 0;
    for (const Place& tool : GetParam().aHidden) nVisible += at(tool).visible() ? 1 : 0;
    EXPECT_LE(nVisible, 1);
  });
  EXPECT_GE(nFaults, 60);
}

class OpeningBalances : public ListBars {};
INSTANTIATE_TEST_SUITE_P(, OpeningBalances,
                         ::testing::Values(ListCase{"clsRPInitial", "opening_balances_bar", of_opening_balances()}),
                         [](const auto& test) { return std::string(test.param.sClass); });

TEST_P(OpeningBalances, TheLastTwoGoAfterTheLayoutWasComputed) {
  set_up();
  const std::ptrdiff_t nLayout = trace().position("RecalcLayout");
  EXPECT_GT(trace().position("mnuFile.mnuExportData.Visible"), nLayout);
  EXPECT_GT(trace().position("mnuFile.mnuFilePageSetup.Visible"), nLayout);
}

TEST_P(OpeningBalances, EveryCommandAndTheMenuAreTheHosts) {
  trace().clear();
  list->select({{"FInterId", std::int32_t{7}}});
  for (const char* sTool : {"mnuFileView", "mnuViewOldBill", "mnuDataFilter", "mnuFileExit", ""}) {
    EXPECT_FALSE(list->click(sTool)) << sTool;
  }
  list->fire(Event::MenuBarInitialize, {list->bar});
  list->fire(Event::AfterGetData);
  EXPECT_EQ(trace().lines(), Lines{});
}

}  // namespace
}  // namespace arap::testing
