#include "windows/command_runner.h"

#include <QApplication>

namespace desk {

namespace {

Outcome outcome_of(const std::function<Outcome()>& work) {
  try {
    return work();
  } catch (const arap::AutomationError& error) {
    return Outcome::refused(error.description());
  } catch (const DeskError& error) {
    return Outcome::refused(error.what());
  }
}

}  // namespace

std::optional<Outcome> CommandRunner::run(const QString& sName, const std::function<Outcome()>& work) {
  if (running_) return std::nullopt;
  running_ = true;
  log_.begin(sName);
  QApplication::setOverrideCursor(Qt::WaitCursor);
  const Outcome outcome = outcome_of(work);
  QApplication::restoreOverrideCursor();
  log_.end();
  running_ = false;
  return outcome;
}

}  // namespace desk
