#pragma once

#include <functional>
#include <iosfwd>
#include <string>
#include <vector>

namespace desk {

/// What the program answers to the shell.
enum ExitCode : int { kExitDone = 0, kExitRefused = 1, kExitUsage = 2, kExitData = 3 };

class Database;

/// Shows the windows on a book until the user quits, and answers the exit code.
using OpenDesk = std::function<int(Database&, const std::string& sUser, const std::string& sToday)>;

/// Runs one command line (without the program's name). Results go to `out`, an error as one plain line to `err`. Needs
/// a QCoreApplication. Without `open_desk` there is no command "open".
int run_command_line(std::vector<std::string> args, std::ostream& out, std::ostream& err,
                     const OpenDesk& open_desk = {});

}  // namespace desk
