#include <QApplication>

#include <iostream>

#include "cli/commands.h"
#include "windows/open_desk.h"

namespace {

/// The windows need a display; every other command runs without one.
std::unique_ptr<QCoreApplication> make_application(int& argc, char** argv) {
  const bool bWindows = argc > 1 && std::string_view(argv[1]) == "open";
  if (bWindows) return std::make_unique<QApplication>(argc, argv);
  return std::make_unique<QCoreApplication>(argc, argv);
}

}  // namespace

int main(int argc, char** argv) {
  const std::vector<std::string> args(argv + 1, argv + argc);
  const auto application = make_application(argc, argv);
  return desk::run_command_line(args, std::cout, std::cerr, desk::open_desk);
}
