#pragma once

#include <gtest/gtest.h>

#include <fstream>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <vector>

#include "cli/commands.h"
#include "desk/services/small_book.h"

namespace desk::testing {

/// The command line in this process, with a folder of its own.
class CommandLine : public ::testing::Test {
 protected:
  CommandLine() { need_application(); }

  int run(std::vector<std::string> args) {
    std::ostringstream out_stream, err_stream;
    const int nCode = run_command_line(std::move(args), out_stream, err_stream);
    out = out_stream.str();
    err = err_stream.str();
    return nCode;
  }
  /// A command line that plays this scenario on the book.
  std::vector<std::string> playing(const std::string& sText, const std::string& sUser = "demo") const {
    std::ofstream(scenario()) << sText;
    return {"play", book(), scenario(), "--today", "2026-11-10", "--user", sUser, "--wait", "0"};
  }
  int play_text(const std::string& sText, const std::string& sUser = "demo") { return run(playing(sText, sUser)); }
  int play_shipped(const std::string& sName) {
    return run({"play", book(), std::string(TEST_DATA_DIR) + "/../desk/scenarios/" + sName, "--today", "2026-11-10"});
  }
  void make_demo() { ASSERT_EQ(run({"new", book(), "--demo", "--today", "2026-11-01"}), kExitDone) << err; }
  nlohmann::json shown(const std::string& sWhat) {
    EXPECT_EQ(run({"show", book(), sWhat, "--json"}), kExitDone) << err;
    return nlohmann::json::parse(out);
  }
  std::string path(const char* sName) const { return folder.filePath(QString::fromUtf8(sName)).toStdString(); }
  std::string book() const { return book_address(path("company.db")); }
  std::string scenario() const { return path("day.txt"); }

  QTemporaryDir folder;
  std::string out, err;
};

}  // namespace desk::testing
