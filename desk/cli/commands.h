#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace desk {

/// What the program answers to the shell.
enum ExitCode : int { kExitDone = 0, kExitRefused = 1, kExitUsage = 2, kExitData = 3 };

/// Runs one command line (without the program's name). Results go to `out`, an error as one plain line to `err`. Needs
/// a QCoreApplication.
int run_command_line(std::vector<std::string> args, std::ostream& out, std::ostream& err);

}  // namespace desk
