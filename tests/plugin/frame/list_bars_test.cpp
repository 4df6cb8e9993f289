#include <regex>

#include "plugin/frame/bill_class_fixture.h"
#include "support/test_windows.h"

/// The bars of the four bill classes' lists on bars that lack one of the host's tools.
namespace arap::testing {
namespace {

class ListBarsOfBills : public BillClassTest {
 protected:
  using Lines = std::vector<std::string>;
  struct Place {
    std::string sBand;  // "Bar" for the bar's own
    std::string sTool;
    std::string Prefix() const { return sBand + "." + sTool + "."; }
  };

  ListBarsOfBills() { plugin->call(Member::Show, list); }

  Lines set_up(const Place& missing = {}) {
    list->bar = TestBar::of_list_window();
    if (missing.sBand == "Bar") {
      list->bar->remove(missing.sTool);
    } else if (!missing.sBand.empty()) {
      list->bar->remove(missing.sBand, missing.sTool);
    }
    // The first bar loads the form of the templates.
    list->fire(Event::BarInitialize, {TestBar::of_list_window()});
    trace().clear();
    list->fire(Event::BarInitialize, {list->bar});
    return trace().lines();
  }
  /// The host's tools that these lines hide or disable.
  static std::vector<Place> tools_of(const Lines& aLines) {
    static const std::regex kSwitchedOff(R"((\w+)\.(mnu\w+)\.(Visible|Enabled) = False)");
    std::vector<Place> aTools;
    for (const std::string& sLine : aLines) {
      std::smatch match;
      if (std::regex_match(sLine, match, kSwitchedOff)) aTools.push_back({match[1], match[2]});
    }
    return aTools;
  }
  void expect_only_the_missing_is_skipped() {
    const Lines aFull = set_up();
    const std::vector<Place> aTools = tools_of(aFull);
    EXPECT_GE(aTools.size(), 7u);
    for (const Place& tool : aTools) {
      Lines aExpected;
      for (const std::string& sLine : aFull) {
        if (!sLine.starts_with(tool.Prefix())) aExpected.push_back(sLine);
      }
      EXPECT_EQ(set_up(tool), aExpected) << tool.Prefix();
    }
  }

  Ref<TestList> list = make_object<TestList>(names.nBillClass);
};
INSTANTIATE_BILL_CLASSES(ListBarsOfBills);

TEST_P(ListBarsOfBills, ALackingToolIsSkippedAndTheRestIsTheSame) { expect_only_the_missing_is_skipped(); }

TEST_P(ListBarsOfBills, ALackingToolIsSkippedOnTheBarOfASelectionToo) {
  list->form->property(Member::ShowMode, 3);
  expect_only_the_missing_is_skipped();
}

TEST_P(ListBarsOfBills, AListWithoutAWindowGetsItsBar) {
  const Lines aFull = set_up();
  list->form = nullptr;
  EXPECT_EQ(set_up(), aFull);
}

}  // namespace
}  // namespace arap::testing
