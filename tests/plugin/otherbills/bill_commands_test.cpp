#include "other_bill_fixture.h"

namespace arap::testing {
namespace {

class OtherCommands : public OtherBillTest {
 protected:
  void SetUp() override {
    bill->inter_id = 9;
    trace().clear();
  }
};
INSTANTIATE_OTHER_SIDES(OtherCommands);

TEST_P(OtherCommands, ADeleteOfAnUncheckedBillIsTheHosts) {
  EXPECT_FALSE(bill->click("mnuEditDelete"));
  EXPECT_TRUE(boxes().empty());
}

TEST_P(OtherCommands, ADeleteOfABillWithAnyStatusIsRefused) {
  for (const int nStatus : {1, 2, -1}) {
    session.platform.messages.clear();
    bill->head("FStatus", nStatus);
    EXPECT_TRUE(bill->click("mnuEditDelete")) << nStatus;
    EXPECT_EQ(boxes(), notice("单据已经被审核，不允许删除！")) << nStatus;
  }
}

TEST_P(OtherCommands, HelpOpensTheTopicOfTheBillAndCaptionsItsBandOnBothSides) {
  EXPECT_FALSE(bill->click("mnuHelpFile"));
  EXPECT_EQ(trace().lines_with("ShowHelp"),
            (std::vector<std::string>{pick("NUVCHMResTool.ClsCHMHelp.ShowHelp(\"NUVV11.chm\", \"RP1000205\", 0)",
                                           "NUVCHMResTool.ClsCHMHelp.ShowHelp(\"NUVV11.chm\", \"RP1000206\", 0)")}));
  EXPECT_EQ(bill->bar->band_caption("mnuCust"), "帮助");
}

TEST_P(OtherCommands, TheStockQueryNeverReachesTheHost) {
  EXPECT_TRUE(bill->click("mnuStockQuery"));
  EXPECT_TRUE(boxes().empty());
}

TEST_P(OtherCommands, OnlyThePayableBillsNewCommandEmptiesTheCreditPanel) {
  EXPECT_FALSE(bill->click("mnuFileNew"));
  EXPECT_EQ(trace().lines_with("SetStatusPanel"),
            pick(std::vector<std::string>{}, std::vector<std::string>{"BillEvent.SetStatusPanel(5, \"\")"}));
}

TEST_P(OtherCommands, OtherCommandsAreTheHosts) {
  for (const char* sTool : {"mnuEditCopy", "mnuDataLookUp", "mnuFileSave", "mnuFileExit", "mnuEditAddRow", ""}) {
    EXPECT_FALSE(bill->click(sTool)) << sTool;
  }
  EXPECT_EQ(trace().text(), "");
}

TEST_P(OtherCommands, AnUnreadableBillNumberReachesTheHostWhateverTheCommand) {
  std::vector<Variant> aArgs{make_object<TestTool>("mnuEditCopy"), false};
  trace().fail_at(1);
  EXPECT_THROW(bill->events.fire(Event::MenuBarClick, aArgs), AutomationError);
  EXPECT_TRUE(aArgs[1].as<bool>());
}

}  // namespace
}  // namespace arap::testing
