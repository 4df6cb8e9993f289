#include <gtest/gtest.h>

#include "desk/cli/command_line.h"

namespace desk::testing {
namespace {

/// Scenarios on the types of a demo book, as the command line plays them.
class Types : public CommandLine {
 protected:
  void SetUp() override { make_demo(); }
  std::string field(const std::string& sNumber, const char* sField) {
    for (const auto& line : shown("types")) {
      if (line["number"] == sNumber) return line[sField];
    }
    return "none";
  }
};

TEST_F(Types, TheShippedScenarioBuildsAThreeLevelTree) {
  ASSERT_EQ(play_shipped("types.txt"), kExitDone) << err << out;
  const std::string sTold = out;
  EXPECT_EQ(field("101.02.002", "level"), "3");
  EXPECT_EQ(field("101.02.002", "branch"), "收入");
  EXPECT_EQ(field("101.02", "kind"), "parent");
  EXPECT_EQ(field("101.01", "name"), "土建工程");
  EXPECT_EQ(field("102", "name"), "none");
  EXPECT_NE(sTold.find("help: NUVV11.chm"), std::string::npos) << sTold;
  EXPECT_NE(sTold.find("bill list: XSFP000003"), std::string::npos) << sTold;
}

TEST_F(Types, ARefusalThatTheScenarioDoesNotExpectEndsItWithTheMessage) {
  EXPECT_EQ(play_text("types open\nselect 1\ntype new\nset FNumber 1.01\nset FName X\nsave"), kExitRefused);
  EXPECT_NE(err.find("day.txt:6: the save was refused: 编码重复，请更改！"), std::string::npos) << err;
  EXPECT_EQ(play_text("types open\ntype delete 1.01"), kExitRefused);
  EXPECT_NE(err.find("day.txt:2: the command was refused: 该类别具有下级节点或被单据使用，不允许删除！"),
            std::string::npos)
      << err;
}

TEST_F(Types, WhatIsNotThereIsNamed) {
  const std::pair<const char*, const char*> kCases[] = {
      {"type new", "the types aren't open; write \"types open\" before this line"},
      {"types open\nselect 9", "the tree has no node 9; see \"desk show BOOK types\""},
      {"types open\ntype modify 9", "there is no type 9; see \"desk show BOOK types\""},
      {"types open\nexpect type 9 leaf", "there is no type 9"},
      {"types open\nexpect type 1 gone", "the type 1 is still there"},
      {"types open\nexpect type 1 leaf", "the type 1 isn't leaf"},
      {"types open\nexpect level 1.01 3", "the type 1.01 is on level 2, expected 3"},
      {"types open\nset FName X", "no bill is open"},
      {"list invoices 1000002\nselect NONE", "the list hasn't all of these bills"},
      {"list invoices 1000002\nexpect lines 9", "the list has 5 lines, expected 9"},
      {"expect lines 1", "no list is open"},
      {"expect shown X", "the bill list doesn't show X"},
  };
  for (const auto& [sText, sReason] : kCases) {
    EXPECT_EQ(play_text(sText), kExitRefused) << sText;
    EXPECT_NE(err.find(sReason), std::string::npos) << sText << "\n" << err;
  }
}

TEST_F(Types, AWrongLineTellsHowToWriteIt) {
  const std::pair<const char*, const char*> kCases[] = {
      {"types", "write: types open|view|close"},
      {"type modify", "write: type new, type new NODE, or type modify|delete|disable|enable NUMBER"},
      {"list invoices 5", "write: list invoices 1000000|1000002|1000003|1000004, or list opening receivables|payables"},
      {"list opening both",
       "write: list invoices 1000000|1000002|1000003|1000004, or list opening receivables|payables"},
      {"expect type 1 used", "write: expect type NUMBER there|gone|leaf|parent|enabled|disabled"},
  };
  for (const auto& [sText, sForm] : kCases) {
    EXPECT_EQ(play_text(sText), kExitUsage) << sText;
    EXPECT_NE(err.find(sForm), std::string::npos) << sText << "\n" << err;
  }
}

TEST_F(Types, TheListsOfTheBookShowInvoicesAndOpeningBalances) {
  const auto invoices = shown("invoices");
  ASSERT_EQ(invoices.size(), 10u);
  EXPECT_EQ(invoices[0]["kind"], "sale");
  EXPECT_EQ(invoices[0]["number"], "XSFP000001");
  EXPECT_EQ(invoices[0]["open"], "1000.00");
  const auto opening = shown("opening");
  ASSERT_EQ(opening.size(), 2u);
  EXPECT_EQ(opening[1]["amount"], "6000.00");
  EXPECT_EQ(shown("types").size(), 6u);
}

TEST_F(Types, AnotherWindowClosesTheFormer) {
  ASSERT_EQ(play_text("types open\ntype modify 1.02\nnew receipt\nexpect status 0\nlist opening payables\n"
                      "expect lines 1\ntypes open\ntype modify 1.02\nset FName 咨询\nanswer yes\nsave"),
            kExitDone)
      << err;
  EXPECT_EQ(field("1.02", "name"), "咨询");
}

}  // namespace
}  // namespace desk::testing
