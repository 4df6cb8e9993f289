#include "desk/cli/command_line.h"

#include <algorithm>

namespace desk::testing {
namespace {

TEST_F(CommandLine, HelpStandsBehindEveryCommand) {
  EXPECT_EQ(run({"--help"}), kExitDone);
  EXPECT_NE(out.find("play"), std::string::npos);
  for (const char* sCommand : {"new", "import", "play", "show", "bench"}) {
    EXPECT_EQ(run({sCommand, "--help"}), kExitDone);
    EXPECT_NE(out.find("--help"), std::string::npos) << sCommand;
  }
}

TEST_F(CommandLine, WrongUseIsCode2AndOneLine) {
  for (const std::vector<std::string>& args : std::vector<std::vector<std::string>>{
           {}, {"fly"}, {"new"}, {"show", "x.db", "moon"}, {"bench", "settle", "0"}, {"bench"}}) {
    EXPECT_EQ(run(args), kExitUsage);
    EXPECT_EQ(std::count(err.begin(), err.end(), '\n'), 1) << err;
  }
}

TEST_F(CommandLine, AMissingBookIsCode3AndOneLine) {
  DESK_FILES_ONLY();
  EXPECT_EQ(run({"show", book(), "bills"}), kExitData);
  EXPECT_NE(err.find("company.db"), std::string::npos) << err;
  EXPECT_EQ(std::count(err.begin(), err.end(), '\n'), 1) << err;
}

TEST_F(CommandLine, ABookIsntMadeTwice) {
  make_demo();
  EXPECT_EQ(run({"new", book()}), kExitData);
}

TEST_F(CommandLine, ReceivablesShowWhatIsOpen) {
  make_demo();
  const auto lines = shown("receivables");
  const auto dollar =
      std::find_if(lines.begin(), lines.end(), [](const auto& line) { return line["currency"] == "USD"; });
  ASSERT_NE(dollar, lines.end());
  EXPECT_EQ((*dollar)["number"], "XSFP000004");
  EXPECT_EQ((*dollar)["open"], "1200.00");
  EXPECT_EQ((*dollar)["open_base"], "8520.00");
}

TEST_F(CommandLine, TasksShowWhoWorksOnWhat) {
  make_demo();
  const auto database = Database::open(book());
  Session seat(*database, "clerk");
  const std::vector<std::int32_t> aBills{7, 8};
  ASSERT_GT(seat.tasks().take(21, "AR0226", aBills), 0);
  const auto lines = shown("tasks");
  ASSERT_EQ(lines.size(), 1u);
  EXPECT_EQ(lines[0]["function"], "AR0226");
  EXPECT_EQ(lines[0]["bills"], ",7,8,");
  EXPECT_EQ(lines[0]["user"], "clerk");
}

TEST_F(CommandLine, AnImportAddsInvoicesAndNamesBadLines) {
  make_demo();
  const std::string sFile = folder.filePath(QStringLiteral("in.csv")).toStdString();
  std::ofstream(sFile) << "Nr,customer,date,duedate,amount\nN1,NEW1,2026-11-02,2026-12-02,12.50\n"
                          "N2,NEW1,2026-11-02,2026-12-02,twelve\n";
  EXPECT_EQ(run({"import", book(), sFile, "--map", "number=Nr"}), kExitData);
  EXPECT_NE(out.find("imported 1 invoices, total 12.50, 1 new customers"), std::string::npos) << out;
  EXPECT_NE(err.find("in.csv:3: "), std::string::npos) << err;
  EXPECT_EQ(run({"import", book(), sFile, "--map", "number"}), kExitUsage);
}

TEST_F(CommandLine, AMappingOfSomethingThatNoInvoiceHasIsRefusedAndNamesWhatItHas) {
  make_demo();
  std::ofstream(path("in.csv")) << "number,customer,date,duedate,amount\nN1,NEW1,2026-11-02,2026-12-02,12.50\n";
  EXPECT_EQ(run({"import", book(), path("in.csv"), "--map", "number=number,partner=customer"}), kExitUsage);
  EXPECT_NE(err.find("\"partner\" is none of number, customer, date, duedate, amount"), std::string::npos) << err;
  EXPECT_EQ(out, "") << "nothing is imported";
  EXPECT_EQ(run({"import", book(), path("in.csv"), "--map", "number=number,customer=customer"}), kExitDone) << err;
}

class Road : public CommandLine, public ::testing::WithParamInterface<const char*> {};
INSTANTIATE_TEST_SUITE_P(Sides, Road,
                         ::testing::Values("receipt_road.txt", "payment_road.txt", "other_receivable.txt",
                                           "other_payable.txt"));

TEST_P(Road, IsGoneToItsEnd) {
  make_demo();
  EXPECT_EQ(play_shipped(GetParam()), kExitDone) << out << err;
  EXPECT_NE(out.find("贷 "), std::string::npos) << out;
}

TEST_F(CommandLine, OtherBillsStandInTheListOfBills) {
  make_demo();
  ASSERT_EQ(play_shipped("other_receivable.txt"), kExitDone) << out << err;
  const auto lines = shown("bills");
  const auto bill =
      std::find_if(lines.begin(), lines.end(), [](const auto& line) { return line["number"] == "QTSR000002"; });
  ASSERT_NE(bill, lines.end());
  EXPECT_EQ((*bill)["kind"], "receivable");
  EXPECT_EQ((*bill)["partner"], "C001");
  EXPECT_EQ((*bill)["type"], "1006");
  EXPECT_EQ((*bill)["money"], "40000.00");
  EXPECT_EQ((*bill)["settled"], "15000.00");
  EXPECT_EQ((*bill)["checked"], "1");
}

TEST_F(CommandLine, SettleAllClosesEveryReceivableAndUncheckAllOpensItAgain) {
  make_demo();
  const auto before = shown("receivables");
  ASSERT_FALSE(before.empty());
  ASSERT_EQ(play_shipped("settle_all.txt"), kExitDone) << out << err;
  EXPECT_TRUE(shown("receivables").empty());
  ASSERT_EQ(play_shipped("uncheck_all.txt"), kExitDone) << out << err;
  EXPECT_EQ(shown("receivables"), before);
}

TEST_F(CommandLine, ABadLineStopsBeforeAnythingIsPlayed) {
  make_demo();
  EXPECT_EQ(play_text("new receipt\npay\n"), kExitUsage);
  EXPECT_NE(err.find("day.txt:2: unknown command \"pay\""), std::string::npos) << err;
  EXPECT_EQ(out, "");
}

struct Failing {
  const char* sScenario;
  const char* sError;
};

TEST_F(CommandLine, EveryFailureNamesItsLineAndWhatToDo) {
  make_demo();
  const Failing scenarios[] = {
      {"set FDate 2026-11-10", "day.txt:1: no bill is open; write \"new receipt\" or \"open receipt NUMBER\""},
      {"new receipt\nset FMoon 1", "day.txt:2: the bill has no field \"FMoon\""},
      {"new receipt\nexpect row 1 FInterID 1", "day.txt:2: there is no row 1; the bill has 0"},
      {"new receipt\npress mnuMoon", "day.txt:2: the command mnuMoon was refused"},
      {"new receipt\nexpect tool mnuMoon enabled", "day.txt:2: the bar has no command \"mnuMoon\""},
      {"new receipt\nexpect status 1", "day.txt:2: 审核标志 is 0, expected 1"},
      {"new receipt\nexpect message 好", "day.txt:2: the message \"好\" didn't come; there was none"},
      {"new receipt\nexpect lock FStatus free", "day.txt:2: 审核标志 is locked, not free"},
      {"expect open XSFP000001 1", "day.txt:1: on XSFP000001 there is 1000.00 open, expected 1"},
      {"expect open NONE 1", "day.txt:1: the book has no source bill NONE"},
      {"open receipt last", "day.txt:1: no receipt was saved in this scenario yet"},
      {"open receipt NONE", "day.txt:1: there is no receipt NONE"},
      {"new receipt\nset FCustomerID C001\nselect XSFP000004", "day.txt:3: the selection doesn't offer XSFP000004"},
      {"new receipt\nset FCustomerID C001\nselect all in XXX", "day.txt:3: the book has no currency \"XXX\""},
      {"new receipt\nsave", "day.txt:2: the save was refused: "},
  };
  for (const Failing& failing : scenarios) {
    EXPECT_EQ(play_text(failing.sScenario), kExitRefused) << failing.sScenario;
    EXPECT_NE(err.find(failing.sError), std::string::npos) << failing.sScenario << "\n" << err;
  }
}

TEST_F(CommandLine, AUserWithoutTheRightCantUncheck) {
  make_demo();
  const std::string sReceipt =
      "new receipt\nset FReceiveTypeID 1001\nset FCustomerID C002\nset FAcctID 1002.01\nselect all\n"
      "press mnuDataAutoSumAmt\nsave\npress mnuEditCheck\nexpect status 1\n";
  EXPECT_EQ(play_text(sReceipt + "press mnuEditUnCheck\nexpect message 没有权限,请与系统管理员联系\nexpect status 1\n",
                      "clerk"),
            kExitDone)
      << out << err;
}

TEST_F(CommandLine, TwoReceiptsOverTheSameInvoiceSettleItOnce) {
  make_demo();
  const std::string sReceipt =
      "new receipt\nset FReceiveTypeID 1001\nset FCustomerID C002\nset FAcctID 1002.01\nselect all\n"
      "press mnuDataAutoSumAmt\nsave\n";
  const std::string sPlay = sReceipt + "close\n" + sReceipt + "press mnuEditCheck\nexpect status 1\nclose\n" +
                            "open receipt SKD000001\npress mnuEditCheck\n"
                            "expect message 源单[XSFP000003]未核销余额只剩 0.00,不能核销 360.00,审核失败。\n"
                            "expect status 0\nexpect open XSFP000003 0\n";
  EXPECT_EQ(play_text(sPlay), kExitDone) << out << err;
}

TEST_F(CommandLine, TraceShowsEventsCallsAndSql) {
  make_demo();
  std::ofstream(scenario()) << "new receipt\nset FCustomerID C002\nselect all\n";
  EXPECT_EQ(run({"play", book(), scenario(), "--trace", "--today", "2026-11-10"}), kExitDone) << err;
  for (const char* sStart : {"event    AfterNewBill()", "call     BillEvent.", "call     Dictionary ", "call     Tool ",
                             "sql      ", "sql as   "})
    EXPECT_NE(out.find(std::string("      | ") + sStart), std::string::npos) << sStart << "\n" << out;
}

TEST_F(CommandLine, TheBenchSettlesEverythingAndReportsItsTimes) {
  ASSERT_EQ(run({"bench", "settle", "25", "--json"}), kExitDone) << err;
  const auto line = nlohmann::ordered_json::parse(out);
  std::vector<std::string> keys;
  for (const auto& [sKey, value] : line.items()) keys.push_back(sKey);
  EXPECT_EQ(keys, (std::vector<std::string>{"n", "settle_s", "setup_s", "rss_mb"}));
  EXPECT_EQ(line["n"], 25);
  EXPECT_GT(line["settle_s"].get<double>(), 0);
  EXPECT_GT(line["rss_mb"].get<double>(), 1);
}

}  // namespace
}  // namespace desk::testing
