#include "other_bill_fixture.h"
#include "support/line_differences.h"

/// The payable bill's traces of commands, bars and operations are the receivable bill's, but for the names and the
/// differences that are named here.
namespace arap::testing {
namespace {

using Names = std::vector<std::pair<const char*, const char*>>;

/// Names of the lists and of their operations; the rights of both lists are the receivable's.
const Names kListNames = {{"clsArOtherBill", "clsApOtherBill"}, {"AR030", "AP030"}, {"RP1000205B", "RP1000206B"}};
const Names kWindowNames = {{"clsArOtherBill", "clsApOtherBill"},
                            {"(\"RP1000205A\", 1, \"审核", "(\"RP1000206A\", 1, \"审核"},
                            {"(1010, 1000205, 1)", "(1010, 1000206, 1)"},
                            {"(1010, 1000205, 4096)", "(1010, 1000206, 4096)"}};

Lines differences_of(const std::string& sName, const Names& aNames) {
  const Lines aReceivable = lines_of(in_other_names(ReadGolden(sName, Side::Receive), aNames));
  EXPECT_FALSE(aReceivable.empty()) << sName;
  return line_differences(aReceivable, lines_of(ReadGolden(sName, Side::Pay)));
}

TEST(OtherTwinCommandTraces, ListsAndOperationsDifferInNamesAlone) {
  for (const char* sName : {"list_bar", "list_bar_of_a_selection", "operation_done", "operation_failed",
                            "operation_refused", "operation_with_another_code", "operation_conflict"}) {
    EXPECT_EQ(differences_of(sName, kListNames), Lines()) << sName;
  }
}

TEST(OtherTwinCommandTraces, TheCommandsOfThePayableListAskForTheReceivablesRights) {
  for (const char* sName : {"list_delete", "list_check", "list_uncheck", "list_voucher"}) {
    EXPECT_EQ(differences_of(sName, kListNames), Lines()) << sName;
  }
  for (const auto& [sName, sAsked] : {std::pair{"list_delete", "(1010, 1000205, 65536)"},
                                      {"list_check", "(1010, 1000205, 1)"},
                                      {"list_uncheck", "(1010, 1000205, 4096)"}}) {
    EXPECT_NE(ReadGolden(sName, Side::Pay).find(sAsked), std::string::npos) << sName;
  }
}

TEST(OtherTwinCommandTraces, ChecksAndTheToolbarDifferInNamesAlone) {
  for (const char* sName : {"check", "toolbar_setup"}) EXPECT_EQ(differences_of(sName, kWindowNames), Lines()) << sName;
}

TEST(OtherTwinCommandTraces, TheUncheckStandsUnderTheReceivablesLogCode) {
  EXPECT_EQ(differences_of("uncheck", kWindowNames), Lines());
  EXPECT_NE(ReadGolden("uncheck", Side::Pay).find("RP1000205A"), std::string::npos);
}

TEST(OtherTwinCommandTraces, AFailedCheckOfAPayableBillIsLoggedWithTheOtherWord) {
  EXPECT_EQ(differences_of("check_failed", kWindowNames),
            (Lines{"- NUVLPCGLView.GLData.WriteLog(\"RP1000205A\", 2, \"审核单据[QT0009]失败!\")",
                   "+ NUVLPCGLView.GLData.WriteLog(\"RP1000206A\", 2, \"反审核单据[QT0009]失败!\")"}));
}

TEST(OtherTwinCommandTraces, ThePayableMenuOnlyDisablesTheCopyOfARow) {
  EXPECT_EQ(differences_of("menu_setup", kWindowNames),
            (Lines{"- mnuEdit.mnuCopyRow.Visible = False", "- mnuEdit.mnuBatchFillField.Enabled = False",
                   "- mnuEdit.mnuBatchFillField.Visible = False"}));
}

}  // namespace
}  // namespace arap::testing
