#include "plugin/settlement/settlement_fixture.h"

namespace arap::testing {
namespace {

class BillHelp : public BothSides {};
INSTANTIATE_BOTH_SIDES(BillHelp);

TEST_P(BillHelp, OpensTheTopicOfTheBill) {
  EXPECT_FALSE(bill->click("mnuHelpFile"));
  EXPECT_EQ(trace().lines_with("ShowHelp"),
            (Lines{pick("NUVCHMResTool.ClsCHMHelp.ShowHelp(\"NUVV11.chm\", \"RP1000201\", 0)",
                        "NUVCHMResTool.ClsCHMHelp.ShowHelp(\"NUVV11.chm\", \"RP1000202\", 0)")}));
}

TEST_P(BillHelp, CaptionsItsBandOnTheReceiptOnly) {
  bill->click("mnuHelpFile");
  EXPECT_EQ(bill->bar->band_caption("mnuCust"), pick("帮助", ""));
}

}  // namespace
}  // namespace arap::testing
