#include "plugin/inouttypes/type_fixture.h"

namespace arap::testing {
namespace {

const std::vector<const char*> kHidden{"mnuFileNewItem",  "mnuFileNewGroup",  "mnuEditModify",       "mnuEditDel",
                                       "mnuEditDelGroup", "mnuEditUse",       "mnuEditUnuse",        "mnuOption",
                                       "mnuDataFind",     "mnuFilePageSetup", "mnuFilePrintPreview", "mnuPreHeadFoot",
                                       "mnuFilePrint",    "mnuExportData"};

class TypeView : public ::testing::Test {
 protected:
  using Lines = std::vector<std::string>;
  TypeView() {
    plugin->call(Member::Show, list);
    trace().clear();
  }

  TestSession session;
  Ref<TestBaseClass> list = make_object<TestBaseClass>();
  Ref<Object> plugin = CreatePublicObject("NUVARAPBillInterface.clsRPInOutTypeView");
};

TEST_F(TypeView, TheGridIsReloadedAfterItsDataWereRead) {
  list->fire(Event::AfterGetData);
  EXPECT_EQ(trace().lines(), (Lines{"BaseClassEvent.RefreshItems(1)"}));
}

TEST_F(TypeView, EverythingThatEditsOrPrintsIsHidden) {
  list->fire(Event::BarInitialize, {list->bar});
  for (const char* sTool : kHidden) EXPECT_FALSE(list->bar->tool(sTool).visible()) << sTool;
  EXPECT_FALSE(list->bar->band_state("mnuEdit", Member::Visible));
  EXPECT_TRUE(list->bar->tool("mnuHelpDetail").visible());
  EXPECT_TRUE(list->bar->tool("mnuFileExit").visible());
  ExpectGolden("inouttypes", "view_bar");
}

TEST_F(TypeView, WithAToolMissingTheOthersAreStillHidden) {
  list->fire(Event::BarInitialize, {list->bar});
  const Lines aFull = trace().lines();
  for (const char* sMissing : kHidden) {
    list->bar = TestBar::of_type_window();
    list->bar->remove(sMissing);
    trace().clear();
    list->fire(Event::BarInitialize, {list->bar});
    Lines aExpected = aFull;
    EXPECT_EQ(std::erase(aExpected, "Bar." + std::string(sMissing) + ".Visible = False"), 1u) << sMissing;
    EXPECT_EQ(trace().lines(), aExpected) << sMissing;
  }
}

TEST_F(TypeView, ABarWithoutTheEditBandComesUp) {
  list->bar = TestBar::with_tools({{"mnuFile", {"mnuFileExit"}}});
  list->fire(Event::BarInitialize, {list->bar});
  EXPECT_EQ(trace().lines(), Lines{});
}

TEST_F(TypeView, TheHelpStartsTheViewerOnTheFileBesideTheLibrary) {
  list->click("mnuHelpDetail");
  EXPECT_EQ(session.platform.help_files, (Lines{"C:\\Plugin\\NUVV11.chm"}));
  EXPECT_FALSE(trace().has("ClsCHMHelp"));
}

TEST_F(TypeView, AHelpFileThatIsNotThereIsTheViewersBusiness) {
  ASSERT_TRUE(session.platform.files.empty());
  list->click("mnuHelpDetail");
  EXPECT_EQ(session.platform.help_files.size(), 1u);
  EXPECT_TRUE(session.platform.messages.empty());
}

TEST_F(TypeView, NoCommandIsCancelled) {
  for (const char* sTool : {"mnuHelpDetail", "mnuEditDel", "mnuFileNewItem", ""}) {
    EXPECT_FALSE(list->click(sTool)) << sTool;
  }
  EXPECT_EQ(session.platform.help_files.size(), 1u);
}

TEST_F(TypeView, ARefreshedListNeedsNothing) {
  list->fire(Event::RefreshList);
  list->fire(Event::MenuBarInitialize, {list->bar});
  EXPECT_EQ(trace().lines(), Lines{});
}

TEST_F(TypeView, EveryHostCallOfTheBarMayFail) {
  const int nFaults = FailEachCall([&](const auto& arm) {
    list->bar = TestBar::of_type_window();
    arm();
    EXPECT_NO_THROW(list->fire(Event::BarInitialize, {list->bar}));
    int nVisible = 0;
    for (const char* sTool : kHidden) nVisible += list->bar->tool(sTool).visible() ? 1 : 0;
    EXPECT_LE(nVisible, 1);
  });
  EXPECT_GE(nFaults, 30);
}

}  // namespace
}  // namespace arap::testing
