#include "windows/command_runner.h"

#include <QScopeGuard>

#include "windows/pointer_shape.h"

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
  // However the work ends, the next command runs and is an entry of its own.
  const auto ended = qScopeGuard([this] {
    log_.end();
    running_ = false;
  });
  const PointerShape wait(Qt::WaitCursor);
  return outcome_of(work);
}

}  // namespace desk
