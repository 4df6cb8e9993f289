#include <QCoreApplication>

#include <iostream>

#include "cli/commands.h"

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  return desk::run_command_line(std::vector<std::string>(argv + 1, argv + argc), std::cout, std::cerr);
}
