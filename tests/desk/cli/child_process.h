#pragma once

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <functional>
#include <sstream>
#include <string>
#include <vector>

#include "cli/commands.h"

namespace desk::testing {

struct ChildResult {
  int nCode = -1;  // -1 when it didn't end by itself
  std::string sText;
};

/// Runs a command line in a process of its own, after `prepare` has changed what that process may do.
inline ChildResult run_in_child(const std::function<void()>& prepare, const std::vector<std::string>& args) {
  int ends[2];
  if (pipe(ends) != 0) throw std::runtime_error("no pipe");
  const pid_t child = fork();
  if (child == 0) {
    prepare();
    std::ostringstream out, err;
    const int nCode = run_command_line(args, out, err);
    const std::string sText = out.str() + err.str();
    const bool bWritten = write(ends[1], sText.data(), sText.size()) == static_cast<ssize_t>(sText.size());
    _exit(bWritten ? nCode : 99);
  }
  close(ends[1]);
  ChildResult result;
  char buffer[4096];
  for (ssize_t n = 0; (n = read(ends[0], buffer, sizeof buffer)) > 0;)
    result.sText.append(buffer, static_cast<std::size_t>(n));
  close(ends[0]);
  int nStatus = 0;
  waitpid(child, &nStatus, 0);
  if (WIFEXITED(nStatus)) result.nCode = WEXITSTATUS(nStatus);
  return result;
}

}  // namespace desk::testing
