#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QString>

#include <deque>
#include <optional>
#include <vector>

#include "data/trace.h"

namespace desk {

/// One thing that happened while a command ran, and when: milliseconds since the command began.
struct LoggedLine {
  TraceObserver::Kind kind;
  QString sText;
  double dMilliseconds = 0;
};

struct LoggedCommand {
  QString sName;
  std::vector<LoggedLine> lines;
  double dMilliseconds = 0;
};

/// Hears everything between the windows and the rules, by command; the last commands are kept.
class CommandLog final : public QObject, public TraceObserver {
  Q_OBJECT
 public:
  using QObject::QObject;

  void begin(const QString& sCommand);
  void end();
  bool on_trace(Kind kind, std::string_view sText) override;
  void clear();
  const std::deque<LoggedCommand>& commands() const { return commands_; }

 Q_SIGNALS:
  /// A command has ended, or the log was cleared.
  void changed();

 private:
  std::deque<LoggedCommand> commands_;
  std::optional<TraceScope> hearing_;
  QElapsedTimer clock_;
  int depth_ = 0;
};

}  // namespace desk
