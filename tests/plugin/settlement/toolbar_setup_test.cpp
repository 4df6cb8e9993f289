#include "plugin/settlement/settlement_fixture.h"

namespace arap::testing {
namespace {

class ToolbarSetup : public BothSides {};
INSTANTIATE_BOTH_SIDES(ToolbarSetup);

TEST_P(ToolbarSetup, RowCommandsStandRightBehindThePreview) {
  bill->fire(Event::BarInitialize, {bill->bar});
  const auto aNames = bill->bar->names("BandToolBar");
  const auto preview = std::find(aNames.begin(), aNames.end(), "mnuFilePreview");
  ASSERT_GT(aNames.end() - preview, 2);
  EXPECT_EQ(*(preview + 1), "mnuEditAddRow");
  EXPECT_EQ(*(preview + 2), "mnuEditDelRow");
}

TEST_P(ToolbarSetup, RowCommandsAreDescribedAndTheBarIsRedrawn) {
  bill->fire(Event::BarInitialize, {bill->bar});
  EXPECT_EQ(trace().lines_with_any({"Description", "Insert", "RefreshToolbar"}).size(), 5u);
  EXPECT_EQ(plain_text(bill->bar->tool("mnuEditAddRow").property(Member::Description)), "插行");
  EXPECT_EQ(plain_text(bill->bar->tool("mnuEditDelRow").property(Member::Description)), "删行");
  EXPECT_GT(trace().position("RefreshToolbar"), trace().position("Insert"));
}

TEST_P(ToolbarSetup, WithoutAPreviewTheRowCommandsStandBehindTheFirstTool) {
  bill->bar = TestBar::with_tools({{"BandToolBar", {"mnuFileNew"}}, {"mnuEdit", {"mnuEditAddRow", "mnuEditDelRow"}}});
  bill->fire(Event::BarInitialize, {bill->bar});
  EXPECT_EQ(bill->bar->names("BandToolBar"), (Lines{"mnuFileNew", "mnuEditAddRow", "mnuEditDelRow"}));
}

}  // namespace
}  // namespace arap::testing
