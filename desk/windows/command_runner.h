#pragma once

#include <functional>
#include <optional>

#include "engine/host.h"
#include "windows/command_log.h"

namespace desk {

/// Runs the commands of one view, one at a time and as one entry of the log each. What goes wrong comes back as a
/// refusal with its reason; an exception that is neither the door's nor the desk's goes on to the caller.
class CommandRunner {
 public:
  explicit CommandRunner(CommandLog& log) : log_(log) {}

  /// Nothing when a command is running already: a key pressed twice acts once.
  std::optional<Outcome> run(const QString& sName, const std::function<Outcome()>& work);

 private:
  CommandLog& log_;
  bool running_ = false;
};

}  // namespace desk
