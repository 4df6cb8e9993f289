#include "plugin/frame/bill_class_fixture.h"

namespace arap::testing {
namespace {

/// The row commands on the toolbar of a bill window, the same in all four bill classes.
class RowCommands : public BillClassTest {
 protected:
  RowCommands() { bill->bar = TestBar::of_bill_window(); }
};
INSTANTIATE_BILL_CLASSES(RowCommands);

TEST_P(RowCommands, StandRightBehindThePreview) {
  bill->fire(Event::BarInitialize, {bill->bar});
  const auto aNames = bill->bar->names("BandToolBar");
  const auto preview = std::find(aNames.begin(), aNames.end(), "mnuFilePreview");
  ASSERT_GT(aNames.end() - preview, 2);
  EXPECT_EQ(*(preview + 1), "mnuEditAddRow");
  EXPECT_EQ(*(preview + 2), "mnuEditDelRow");
}

TEST_P(RowCommands, AreDescribedAndTheBarIsRedrawn) {
  bill->fire(Event::BarInitialize, {bill->bar});
  EXPECT_EQ(trace().lines_with_any({"Description", "Insert", "RefreshToolbar"}).size(), 5u);
  EXPECT_EQ(plain_text(bill->bar->tool("mnuEditAddRow").property(Member::Description)), "插行");
  EXPECT_EQ(plain_text(bill->bar->tool("mnuEditDelRow").property(Member::Description)), "删行");
  EXPECT_GT(trace().position("RefreshToolbar"), trace().position("Insert"));
}

TEST_P(RowCommands, WithoutAPreviewStandBehindTheFirstTool) {
  bill->bar = TestBar::with_tools({{"BandToolBar", {"mnuFileNew"}}, {"mnuEdit", {"mnuEditAddRow", "mnuEditDelRow"}}});
  bill->fire(Event::BarInitialize, {bill->bar});
  EXPECT_EQ(bill->bar->names("BandToolBar"),
            (std::vector<std::string>{"mnuFileNew", "mnuEditAddRow", "mnuEditDelRow"}));
}

}  // namespace
}  // namespace arap::testing
