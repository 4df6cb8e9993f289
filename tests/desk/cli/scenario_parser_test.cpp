#include <gtest/gtest.h>

#include "cli/scenario.h"

namespace desk {
namespace {

std::string refusal_of(std::string_view sText) {
  try {
    ParseScenario(sText, "day.txt");
  } catch (const ScenarioError& error) {
    EXPECT_EQ(error.kind(), ScenarioError::Kind::Syntax);
    return error.what();
  }
  return "accepted";
}

TEST(ScenarioParser, CommentsAndBlankLinesAreNoSteps) {
  EXPECT_TRUE(ParseScenario("# a day\n\n   # its end\n", "day.txt").steps.empty());
}

TEST(ScenarioParser, AStepKnowsTheLineItStandsOn) {
  const Scenario scenario = ParseScenario("# a day\nnew receipt\n\nsave\n", "day.txt");
  ASSERT_EQ(scenario.steps.size(), 2u);
  EXPECT_EQ(scenario.steps[0].nLine, 2);
  EXPECT_EQ(scenario.steps[1].nLine, 4);
  EXPECT_EQ(scenario.steps[1].verb, Verb::Save);
}

TEST(ScenarioParser, QuotesHoldAWordWithBlanksTogether) {
  const Scenario scenario = ParseScenario("set FExplanation \"paid at the fair\"\nset FSettleIdNo \"\"", "day.txt");
  EXPECT_EQ(scenario.steps.at(0).args, (std::vector<std::string>{"FExplanation", "paid at the fair"}));
  EXPECT_EQ(scenario.steps.at(1).args, (std::vector<std::string>{"FSettleIdNo", ""}));
}

TEST(ScenarioParser, ARowStepKeepsRowFieldAndValue) {
  const Scenario scenario = ParseScenario("set row 2 FBillSettleAmountFor 12.5\nexpect row 1 FInterID 7", "day.txt");
  EXPECT_EQ(scenario.steps.at(0).args, (std::vector<std::string>{"2", "FBillSettleAmountFor", "12.5"}));
  EXPECT_EQ(scenario.steps.at(1).verb, Verb::ExpectRow);
}

TEST(ScenarioParser, AMessageIsTheRestOfTheLine) {
  const Scenario scenario = ParseScenario("expect message 收款单 \"A\" 成功\nsay it's \"done", "day.txt");
  EXPECT_EQ(scenario.steps.at(0).args, (std::vector<std::string>{"收款单 \"A\" 成功"}));
  EXPECT_EQ(scenario.steps.at(1).args, (std::vector<std::string>{"it's \"done"}));
}

TEST(ScenarioParser, ALoopHoldsItsSteps) {
  const Scenario scenario =
      ParseScenario("for each customer with open receivables\nnew receipt\nsave\nend\nsay done", "day.txt");
  ASSERT_EQ(scenario.steps.size(), 2u);
  EXPECT_EQ(scenario.steps[0].args.at(0), kOpenCustomers);
  EXPECT_EQ(scenario.steps[0].body.size(), 2u);
}

TEST(ScenarioParser, WindowsLineEndsAndAByteOrderMarkDoNoHarm) {
  const Scenario scenario = ParseScenario("\xEF\xBB\xBFnew payment\r\nsave\r\n", "day.txt");
  ASSERT_EQ(scenario.steps.size(), 2u);
  EXPECT_EQ(scenario.steps[0].args.at(0), "payment");
}

TEST(ScenarioParser, AnUnknownCommandNamesFileLineAndTheCommandsThereAre) {
  EXPECT_EQ(refusal_of("save\npay 100\n"),
            "day.txt:2: unknown command \"pay\"; use new, open, close, set, select, press, answer, save, voucher, "
            "batch, types, type, list, expect, say or for each");
}

struct BadLine {
  const char* sText;
  const char* sRefusal;
};

TEST(ScenarioParser, EveryMisshapenLineSaysHowToWriteIt) {
  const BadLine lines[] = {
      {"new invoice", "day.txt:1: write: new receipt|payment|receivable|payable"},
      {"open receipt", "day.txt:1: write: open receipt|payment|receivable|payable NUMBER|last"},
      {"set FDate", "day.txt:1: write: set FIELD VALUE"},
      {"set row 0 FX 1", "day.txt:1: write: set row N FIELD VALUE, rows count from 1"},
      {"set row two FX 1", "day.txt:1: write: set row N FIELD VALUE, rows count from 1"},
      {"select", "day.txt:1: write: select all, select all in CURRENCY, or select NUMBER ..."},
      {"select all but", "day.txt:1: write: select all, select all in CURRENCY, or select NUMBER ..."},
      {"answer maybe", "day.txt:1: write: answer yes|no|ok"},
      {"press", "day.txt:1: write: press TOOL"},
      {"save now", "day.txt:1: write: save"},
      {"expect status 2", "day.txt:1: write: expect status 0|1"},
      {"expect lock FDate shut", "day.txt:1: write: expect lock FIELD locked|free"},
      {"expect message", "day.txt:1: write: expect message TEXT"},
      {"expect luck",
       "day.txt:1: unknown expectation; use expect field, row, message, status, tool, lock, open, "
       "type, level, shown or lines"},
      {"set FX \"open", "day.txt:1: a quoted word isn't closed; add the missing \""},
      {"end", "day.txt:1: \"end\" closes no loop; remove it or write \"for each ...\" before it"},
      {"for each checked receipt\nsave", "day.txt:1: this loop isn't closed; write \"end\" behind its last line"},
      {"for each moon\nend",
       "day.txt:1: write: for each customer with open receivables, supplier with open payables, checked receipt, "
       "checked payment or number up to N"},
      {"for each number up to 12345\nend",
       "day.txt:1: write: for each customer with open receivables, supplier with open payables, checked receipt, "
       "checked payment or number up to N"},
  };
  for (const BadLine& line : lines) EXPECT_EQ(refusal_of(line.sText), line.sRefusal) << line.sText;
}

}  // namespace
}  // namespace desk
