#include "plugin/settlement/list_fixture.h"

namespace arap::testing {
namespace {

class ListBar : public SettlementList {
 protected:
  void set_up(bool bSelection = false) {
    // The first bar loads the form of the templates.
    list->fire(Event::BarInitialize, {TestBar::of_list_window()});
    if (bSelection) list->form->property(Member::ShowMode, 3);
    trace().clear();
    list->fire(Event::BarInitialize, {list->bar});
  }
  const TestBar& bar() const { return *list->bar; }
  std::ptrdiff_t place(const char* sBand, const char* sTool) const {
    const Lines aNames = bar().names(sBand);
    const auto found = std::find(aNames.begin(), aNames.end(), sTool);
    return found == aNames.end() ? -1 : found - aNames.begin();
  }
};
INSTANTIATE_BOTH_SIDES(ListBar);

TEST_P(ListBar, TheBarIsBuiltInTheApprovedOrder) {
  set_up();
  expect_golden("list_bar");
}

TEST_P(ListBar, ASelectionsBarIsBuiltInTheApprovedOrder) {
  set_up(true);
  expect_golden("list_bar_selection");
}

TEST_P(ListBar, TheNewToolsHaveTheirTextsAndPictures) {
  set_up();
  const auto texts = [this](const char* sTool) {
    const TestTool& tool = bar().tool(sTool);
    return Lines{tool.caption(), plain_text(tool.property(Member::Description)),
                 plain_text(tool.property(Member::ToolTipText)), show(tool.picture)};
  };
  EXPECT_EQ(texts("Check"), (Lines{"审核", "审核", "审核", "\"CHECK\""}));
  EXPECT_EQ(texts("UnCheck"), (Lines{"反审核", "反审", "取消审核", "\"CONVERT\""}));
  EXPECT_EQ(texts("Voucher"), (Lines{"凭证", "凭证", "查看凭证", "\"VOUCHER\""}));
}

TEST_P(ListBar, TheNewToolsStandAtTheirPlaces) {
  set_up();
  // The voucher is added last, at the place of the check.
  EXPECT_EQ(place("BandToolBar", "Voucher"), 11);
  EXPECT_EQ(place("BandToolBar", "Check"), 12);
  EXPECT_EQ(place("BandToolBar", "UnCheck"), -1);
  for (const char* sBand : {"mnuEdit", "mnuPop"}) {
    EXPECT_EQ(place(sBand, "Check"), 4) << sBand;
    EXPECT_EQ(place(sBand, "UnCheck"), 5) << sBand;
    EXPECT_TRUE(bar().tool(sBand, "Check").property(Member::BeginGroup).as<bool>()) << sBand;
    EXPECT_FALSE(bar().tool(sBand, "UnCheck").property(Member::BeginGroup).as<bool>()) << sBand;
    EXPECT_EQ(place(sBand, "Voucher"), -1);
  }
  EXPECT_FALSE(bar().tool("BandToolBar", "Check").property(Member::BeginGroup).as<bool>());
}

TEST_P(ListBar, CommandsThatTheseListsLackAreHidden) {
  set_up();
  for (const auto& [sBand, sTool] : std::vector<std::pair<const char*, const char*>>{{"mnuData", "mnuDataViewPrvBill"},
                                                                                     {"mnuData", "mnuDataViewNextBill"},
                                                                                     {"mnuEdit", "mnuEditCopyEntry"},
                                                                                     {"mnuPop", "mnuEditCopyEntry"},
                                                                                     {"mnuView", "mnuViewToolBar"},
                                                                                     {"mnuView", "mnuViewToolCaption"},
                                                                                     {"menu", "mnuPushBill"}}) {
    EXPECT_FALSE(bar().tool(sBand, sTool).visible()) << sBand << " " << sTool;
  }
  EXPECT_FALSE(bar().tool("mnuDataViewPrvBill").visible());
  EXPECT_FALSE(bar().tool("mnuDataViewNextBill").visible());
  for (const char* sTool : {"mnuFormatRowHeight", "mnuFormatFont", "mnuFormatOpt", "mnuPreHeadFoot",
                            "mnuFileSeriesPrintAll", "mnuFileSeriesPrintViewAll"}) {
    EXPECT_FALSE(bar().tool(sTool).visible() || bar().tool(sTool).enabled()) << sTool;
  }
  EXPECT_TRUE(bar().tool("mnuEditDelete").visible());
}

TEST_P(ListBar, TheExportIsShownOnThePaymentSideOnlyAndBeforeTheVoucher) {
  list->bar->tool("mnuFile", "mnuExportData").set(Member::Visible, false);
  set_up();
  EXPECT_EQ(bar().tool("mnuFile", "mnuExportData").visible(), !receive());
  if (!receive()) {
    EXPECT_LT(trace().position("mnuExportData.Visible"), trace().position("Add(\"Voucher\")"));
  }
}

TEST_P(ListBar, ASelectionKeepsOnlyItsOwnCommands) {
  set_up(true);
  for (const char* sTool : {"mnuFileNew", "mnuEditModify", "mnuEditDelete", "mnuEditCopy", "mnuDataFilter",
                            "mnuDataAccessory", "mnuCaculate"}) {
    EXPECT_FALSE(bar().tool(sTool).visible()) << sTool;
  }
  EXPECT_FALSE(bar().has("Check"));
  EXPECT_FALSE(bar().has("Voucher"));
  EXPECT_TRUE(bar().tool("mnuDataViewPrvBill").visible());
  EXPECT_EQ(trace().count("RecalcLayout"), 1u);
}

TEST_P(ListBar, ASelectionHidesTheCheckCommandsOfABarThatHasThem) {
  list->bar->tools().add("Check");
  list->bar->tools().add("UnCheck");
  set_up(true);
  EXPECT_FALSE(bar().tool("Check").visible() || bar().tool("UnCheck").visible());
}

TEST_P(ListBar, SeveralLevelCheckingNeedsBothAnswers) {
  for (int nAnswers = 0; nAnswers < 4; ++nAnswers) {
    list->bar = TestBar::of_list_window();
    list->form->property(Member::IsRun, (nAnswers & 1) != 0).property(Member::ExistMultiCheck, (nAnswers & 2) != 0);
    set_up();
    const bool bLevels = nAnswers == 3;
    EXPECT_EQ(bar().tool("Check").visible(), !bLevels) << nAnswers;
    EXPECT_EQ(bar().tool("UnCheck").visible(), !bLevels) << nAnswers;
    EXPECT_EQ(bar().tool("UnCheck").enabled(), !bLevels) << nAnswers;
    EXPECT_TRUE(bar().tool("Check").enabled());
  }
}

TEST_P(ListBar, ABarWithoutAnyOfTheToolsStillComesUp) {
  list->bar = make_object<TestBar>();
  set_up();
  EXPECT_EQ(trace().count("RecalcLayout"), 1u);
  EXPECT_TRUE(bar().has("Check"));
}

TEST_P(ListBar, AWindowThatCannotTellItsModeIsNoSelection) {
  list->form->lacks(Member::ShowMode).lacks(Member::IsRun);
  set_up();
  EXPECT_TRUE(bar().tool("Check").visible());
}

TEST_P(ListBar, EveryFailingStatementIsSkipped) {
  const int nFaults = FailEachCall([this](const std::function<void()>& arm) {
    list->bar = TestBar::of_list_window();
    Module().oFrmBar = nullptr;
    arm();
    EXPECT_NO_THROW(list->fire(Event::BarInitialize, {list->bar}));
  });
  EXPECT_GT(nFaults, 60);
}

TEST_P(ListBar, TheMenuHidesTheCopy) {
  list->fire(Event::MenuBarInitialize, {list->bar});
  EXPECT_FALSE(bar().tool("mnuEditCopy").visible());
  EXPECT_EQ(trace().lines(), Lines{"Bar.mnuEditCopy.Visible = False"});
}

}  // namespace
}  // namespace arap::testing
