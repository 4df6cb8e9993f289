#include <QApplication>

#include <iostream>

#include "cli/commands.h"
#include "windows/open_desk.h"

namespace {

/// The windows need a display, a picture of them needs none; every other command runs without either.
std::unique_ptr<QCoreApplication> make_application(int& argc, char** argv) {
  const std::string_view sCommand = argc > 1 ? argv[1] : "";
  if (sCommand == "picture") qputenv("QT_QPA_PLATFORM", "offscreen");
  if (sCommand != "open" && sCommand != "picture") return std::make_unique<QCoreApplication>(argc, argv);
  auto application = std::make_unique<QApplication>(argc, argv);
  desk::prepare_application();
  return application;
}

}  // namespace

int main(int argc, char** argv) {
  const std::vector<std::string> args(argv + 1, argv + argc);
  const auto application = make_application(argc, argv);
  return desk::run_command_line(args, std::cout, std::cerr, {desk::open_desk, desk::draw_last_bill});
}
