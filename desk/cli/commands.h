#pragma once

#include <functional>
#include <iosfwd>
#include <string>
#include <vector>

namespace desk {

/// What the program answers to the shell.
enum ExitCode : int { kExitDone = 0, kExitRefused = 1, kExitUsage = 2, kExitData = 3 };

class Database;

/// What needs windows, given by the program: the library of the command line has none.
struct WindowCommands {
  /// Shows the windows on a book until the user quits, and answers the exit code.
  std::function<int(Database&, const std::string& sUser, const std::string& sToday)> open;
  /// Leaves a picture of the windows with the last bill of a template open. Raises DeskError when the book has none or
  /// the file can't be written.
  std::function<void(Database&, const std::string& sUser, const std::string& sTemplate, const std::string& sFile)>
      picture;
};

/// Runs one command line (without the program's name). Results go to `out`, an error as one plain line to `err`. Needs
/// a QCoreApplication. Without windows there are no commands "open" and "picture".
int run_command_line(std::vector<std::string> args, std::ostream& out, std::ostream& err,
                     const WindowCommands& windows = {});

}  // namespace desk
