#include "windows/command_log.h"

#include "windows/qt_text.h"

namespace desk {

namespace {
constexpr std::size_t kMostCommands = 100;
constexpr std::size_t kMostLines = 20'000;
constexpr double kNanosecondsInAMillisecond = 1e6;
}  // namespace

/// A command inside another one (a list that opens a bill) belongs to the outer one.
void CommandLog::begin(const QString& sCommand) {
  if (depth_++ > 0) return;
  commands_.push_back({sCommand, {}, 0});
  if (commands_.size() > kMostCommands) commands_.pop_front();
  clock_.start();
  hearing_.emplace(*this);
}

void CommandLog::end() {
  if (depth_ == 0 || --depth_ > 0) return;
  hearing_.reset();
  commands_.back().dMilliseconds = static_cast<double>(clock_.nsecsElapsed()) / kNanosecondsInAMillisecond;
  Q_EMIT changed();
}

/// A bill of many rows makes more lines than anybody reads; to write them all down would take longer than the command.
bool CommandLog::on_trace(Kind kind, std::string_view sText) {
  std::vector<LoggedLine>& lines = commands_.back().lines;
  const double dNow = static_cast<double>(clock_.nsecsElapsed()) / kNanosecondsInAMillisecond;
  lines.push_back({kind, qt(sText), dNow});
  return lines.size() < kMostLines;
}

void CommandLog::clear() {
  if (depth_ > 0) return;
  commands_.clear();
  Q_EMIT changed();
}

}  // namespace desk
