#include <sys/resource.h>
#include <sys/stat.h>

#include <algorithm>
#include <csignal>
#include <filesystem>

#include "desk/book_contents.h"
#include "desk/cli/child_process.h"
#include "desk/cli/command_line.h"

namespace desk::testing {
namespace {

constexpr const char* kReceipt =
    "new receipt\nset FReceiveTypeID 1001\nset FCustomerID C002\nset FAcctID 1002.01\nselect all\n"
    "press mnuDataAutoSumAmt\nsave\n";

std::string bytes_of(const std::string& sPath) {
  std::ostringstream bytes;
  bytes << std::ifstream(sPath, std::ios::binary).rdbuf();
  return bytes.str();
}

/// What goes wrong around the book: each failure says what, where and what to do, and leaves the book as it was.
class Failure : public CommandLine {
 protected:
  void expect_told(std::initializer_list<const char*> parts) {
    for (const char* sPart : parts) EXPECT_NE(err.find(sPart), std::string::npos) << sPart << "\nin: " << err;
    EXPECT_EQ(std::count(err.begin(), err.end(), '\n'), 1) << err;
  }
  void change_book(const std::string& sScript) { Database::open(book())->exec_script(sScript); }
  /// So many open invoices of the customer C002 that their receipt fills pages of the book.
  void add_invoices() {
    const auto database = Database::open(book());
    Transaction transaction(*database);
    for (int i = 0; i < 300; ++i)
      database->exec(
          "INSERT INTO ICSale (FClassTypeID, FBillNo, FDate, FDueDate, FCustID, FDeptID, FEmpID, FAmountFor, FAmount)"
          " VALUES (1000002, ?, '2026-11-02', '2026-12-02', 2, 1, 2, 10000, 10000)",
          {"MANY" + std::to_string(i)});
    transaction.commit();
  }
};

TEST_F(Failure, AnUnknownFieldIsNamedWithItsLineAndNothingIsStored) {
  make_demo();
  const std::string sBefore = contents(book());
  EXPECT_EQ(play_text(std::string("new receipt\nset FMoon 1\n") + kReceipt), kExitRefused);
  expect_told({"day.txt:2: ", "no field \"FMoon\"", "see the template"});
  EXPECT_EQ(contents(book()), sBefore);
}

TEST_F(Failure, AMissingTableOfTheRowsIsNamedAndTheHeadIsntStoredEither) {
  DESK_FILES_ONLY();
  make_demo();
  change_book("DROP TABLE t_RP_RBillEntry");
  const std::string sBefore = contents(book());
  EXPECT_EQ(play_text(kReceipt), kExitRefused);
  expect_told({"day.txt:7: the save was refused", "lacks a table", "t_RP_RBillEntry", "Go back to a backup copy"});
  EXPECT_EQ(contents(book()), sBefore);
}

TEST_F(Failure, AMissingTableOfTheSourcesIsNamedInAListAndInAScenario) {
  DESK_FILES_ONLY();
  make_demo();
  change_book("DROP TABLE ICSale");
  EXPECT_EQ(run({"show", book(), "receivables"}), kExitData);
  expect_told({"lacks a table", "ICSale", "Go back to a backup copy"});
  EXPECT_EQ(play_text("expect open XSFP000001 1\n"), kExitData);
  expect_told({"day.txt:1: ", "lacks a table", "ICSale"});
}

TEST_F(Failure, ABookThatAnotherProgramWritesStaysAsItIsAndCanBeWrittenAfterwards) {
  make_demo();
  const std::string sFile = path("in.csv");
  std::ofstream(sFile) << "number,customer,date,duedate,amount\nN1,NEW1,2026-11-02,2026-12-02,12.50\n";
  const auto other = Database::open(book());
  const std::string sBefore = contents(*other);
  {
    const Transaction writing(*other);
    EXPECT_EQ(run({"import", book(), sFile, "--wait", "0"}), kExitData);
    expect_told({"locked by another program", "try again"});
    EXPECT_EQ(play_text(kReceipt), kExitRefused);
    expect_told({"day.txt:7: the save was refused", "locked by another program", "try again"});
  }
  EXPECT_EQ(contents(*other), sBefore);
  EXPECT_EQ(run({"import", book(), sFile, "--wait", "0"}), kExitDone) << err;
  EXPECT_EQ(play_text(kReceipt), kExitDone) << err;
}

TEST_F(Failure, AFileThatIsNoBookIsRefusedByEveryCommandAndNotTouched) {
  DESK_FILES_ONLY();
  std::ofstream(book()) << "Dear diary, " << std::string(5000, 'x');
  std::ofstream(path("in.csv")) << "number,customer,date,duedate,amount\n";
  const std::string sBefore = bytes_of(book());
  for (const std::vector<std::string>& args : std::vector<std::vector<std::string>>{{"show", book(), "bills"},
                                                                                    {"import", book(), path("in.csv")},
                                                                                    playing(kReceipt),
                                                                                    {"show", path("."), "log"}}) {
    EXPECT_EQ(run(args), kExitData);
  }
  EXPECT_EQ(run({"show", book(), "bills"}), kExitData);
  expect_told({"not a book", "company.db", "Choose a file that the desk has made"});
  EXPECT_EQ(bytes_of(book()), sBefore);
}

TEST_F(Failure, ATruncatedBookIsToldAsDamagedAndNotTouched) {
  DESK_FILES_ONLY();
  make_demo();
  const std::string sWhole = bytes_of(book());
  const std::string sHalf = sWhole.substr(0, sWhole.size() / 2);
  std::ofstream(book(), std::ios::binary | std::ios::trunc) << sHalf;
  for (const std::vector<std::string>& args :
       std::vector<std::vector<std::string>>{{"show", book(), "receivables"}, playing(kReceipt)}) {
    EXPECT_EQ(run(args), kExitData) << out;
    expect_told({"damaged", "Go back to a backup copy"});
  }
  EXPECT_EQ(bytes_of(book()), sHalf);
}

TEST_F(Failure, AQuoteWithoutAnEndRefusesTheWholeCsvFile) {
  make_demo();
  const std::string sBefore = contents(book());
  std::ofstream(path("in.csv")) << "number,customer,date,duedate,amount\nN1,NEW1,2026-11-02,2026-12-02,12.50\n"
                                   "\"N2,NEW2,2026-11-02,2026-12-02,1\n";
  EXPECT_EQ(run({"import", book(), path("in.csv")}), kExitData);
  expect_told({"can't be read as CSV", "in.csv, line 3", "Look at the quotes"});
  EXPECT_EQ(contents(book()), sBefore);
}

TEST_F(Failure, ABadCsvLineBringsInNeitherItsInvoiceNorItsCustomer) {
  make_demo();
  const std::string sBefore = contents(book());
  std::ofstream(path("in.csv")) << "number,customer,date,duedate,amount\nN1,NEW1,2026-02-30,2026-12-02,12.50\n";
  EXPECT_EQ(run({"import", book(), path("in.csv")}), kExitData);
  expect_told({"in.csv:2: ", "\"2026-02-30\" is no date (yyyy-mm-dd or m/d/yyyy)"});
  EXPECT_EQ(contents(book()), sBefore);
}

TEST_F(Failure, ABookWithoutTheRightToWriteIsReadOnlyAndStaysAsItIs) {
  DESK_FILES_ONLY();
  make_demo();
  std::ofstream(path("in.csv")) << "number,customer,date,duedate,amount\nN1,NEW1,2026-11-02,2026-12-02,12.50\n";
  const std::string sBefore = bytes_of(book());
  const auto anybody = [] {
    // The rights of files don't bind the superuser.
    if (geteuid() == 0 && (setgid(65534) != 0 || setuid(65534) != 0)) _exit(98);
  };
  for (const mode_t folder_mode : {0555, 0777}) {
    ASSERT_EQ(chmod(path(".").c_str(), folder_mode), 0);
    ASSERT_EQ(chmod(book().c_str(), 0444), 0);
    const ChildResult result = run_in_child(anybody, {"import", book(), path("in.csv")});
    EXPECT_EQ(result.nCode, kExitData) << result.sText;
    EXPECT_NE(result.sText.find("Check the rights on the file and on its folder"), std::string::npos) << result.sText;
  }
  ASSERT_EQ(chmod(path(".").c_str(), 0755), 0);
  EXPECT_EQ(bytes_of(book()), sBefore);
}

TEST_F(Failure, ADiskThatTakesNoMoreLeavesTheBookWholeAndALaterSaveSucceeds) {
  DESK_FILES_ONLY();
  make_demo();
  add_invoices();
  const std::string sBefore = contents(book());
  const auto full = [] {
    // Room for the shared index and the first pages of the log, not for a bill of hundreds of rows.
    const rlimit most{40'000, 40'000};
    if (std::signal(SIGXFSZ, SIG_IGN) == SIG_ERR || setrlimit(RLIMIT_FSIZE, &most) != 0) _exit(98);
  };
  const ChildResult result = run_in_child(full, playing(kReceipt));
  EXPECT_EQ(result.nCode, kExitRefused) << result.sText;
  EXPECT_NE(
      result.sText.find("day.txt:7: the save was refused: The book can't be read or written, nothing was changed"),
      std::string::npos)
      << result.sText;
  EXPECT_NE(result.sText.find("Check the room on the disk"), std::string::npos) << result.sText;
  EXPECT_EQ(contents(book()), sBefore);
  ASSERT_EQ(play_text(kReceipt), kExitDone) << err;
  EXPECT_NE(out.find("saved as SKD000001: 660.00"), std::string::npos) << out;
}

}  // namespace
}  // namespace desk::testing
