#include "other_bill_fixture.h"
#include "support/line_differences.h"

/// The payable bill's traces of commands, bars and operations are the receivable bill's, but for the names and the
/// differences that are named here.
namespace arap::testing {
namespace {

const std::vector<std::pair<const char*, const char*>> kCommandNames = {
    {"clsArOtherBill", "clsApOtherBill"},
    {"AR030", "AP030"},
    {"RP1000205B", "RP1000206B"},
    {"(\"RP1000205A\", 1, \"审核", "(\"RP1000206A\", 1, \"审核"},
    {"(1010, 1000205, 1)", "(1010, 1000206, 1)"},
    {"(1010, 1000205, 4096)", "(1010, 1000206, 4096)"}};

Lines command_differences_of(const std::string& sName) {
  const Lines aReceivable = lines_of(in_other_names(ReadGolden(sName, Side::Receive), kCommandNames));
  EXPECT_FALSE(aReceivable.empty()) << sName;
  return line_differences(aReceivable, lines_of(ReadGolden(sName, Side::Pay)));
}

TEST(OtherTwinCommandTraces, ListsOperationsChecksAndTheToolbarDifferInNamesAlone) {
  for (const char* sName :
       {"check", "toolbar_setup", "list_bar", "list_bar_of_a_selection", "operation_done", "operation_failed",
        "operation_refused", "operation_with_another_code", "operation_conflict"}) {
    EXPECT_EQ(command_differences_of(sName), Lines()) << sName;
  }
}

TEST(OtherTwinCommandTraces, TheUncheckAndTheRightsOfTheListStandUnderTheReceivablesNumber) {
  for (const char* sName : {"uncheck", "list_delete"}) EXPECT_EQ(command_differences_of(sName), Lines()) << sName;
  EXPECT_NE(ReadGolden("uncheck", Side::Pay).find("RP1000205A"), std::string::npos);
  EXPECT_NE(ReadGolden("list_delete", Side::Pay).find("(1010, 1000205, 65536)"), std::string::npos);
}

TEST(OtherTwinCommandTraces, AFailedCheckOfAPayableBillIsLoggedWithTheOtherWord) {
  EXPECT_EQ(command_differences_of("check_failed"),
            (Lines{"- NUVLPCGLView.GLData.WriteLog(\"RP1000205A\", 2, \"审核单据[QT0009]失败!\")",
                   "+ NUVLPCGLView.GLData.WriteLog(\"RP1000206A\", 2, \"反审核单据[QT0009]失败!\")"}));
}

TEST(OtherTwinCommandTraces, ThePayableMenuOnlyDisablesTheCopyOfARow) {
  EXPECT_EQ(command_differences_of("menu_setup"),
            (Lines{"- mnuEdit.mnuCopyRow.Visible = False", "- mnuEdit.mnuBatchFillField.Enabled = False",
                   "- mnuEdit.mnuBatchFillField.Visible = False"}));
}

}  // namespace
}  // namespace arap::testing
