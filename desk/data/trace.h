#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "frame/automation.h"

namespace desk {

/// Gets what happens between host and plug-in, in order. Nobody listening costs one test of a pointer.
class TraceObserver {
 public:
  enum class Kind : std::uint8_t { Event, Call, Sql, Message };

  virtual void on_trace(Kind kind, std::string_view sText) = 0;

 protected:
  ~TraceObserver() = default;
};

/// Keeps the lines of the last commands, at most nMost of them.
class TraceLog final : public TraceObserver {
 public:
  struct Line {
    Kind kind;
    std::string sText;
  };

  explicit TraceLog(std::size_t nMost = 100'000) : most_(nMost) {}
  void on_trace(Kind kind, std::string_view sText) override;
  void clear();
  const std::vector<Line>& lines() const { return lines_; }
  /// Texts of one kind, in order.
  std::vector<std::string> texts(Kind kind) const;
  /// Lines that came after the log was full and were not kept.
  std::size_t dropped() const { return dropped_; }

 private:
  std::size_t most_;
  std::size_t dropped_ = 0;
  std::vector<Line> lines_;
};

/// "Name(argument, argument)" as the trace shows it: texts in quotes, objects by their type.
std::string trace_text(std::string_view sName, arap::Arguments args);

}  // namespace desk
