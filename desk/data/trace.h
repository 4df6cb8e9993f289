#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "data/database.h"
#include "frame/automation.h"

namespace desk {

/// Hears what happens between host and plug-in on one thread, in order: events, calls of the host's objects, SQL as the
/// plug-in wrote it and as the book got it, boxes.
class TraceObserver {
 public:
  enum class Kind : std::uint8_t { Event, Call, Sql, Translation, Message };

  /// Answers whether it wants to hear more. After a no the thread goes on unheard until the scope ends.
  virtual bool on_trace(Kind kind, std::string_view sText) = 0;

 protected:
  ~TraceObserver() = default;
};

/// Lets an observer hear this thread as long as the scope lives; the former one hears again afterwards.
class TraceScope {
 public:
  explicit TraceScope(TraceObserver& observer);
  ~TraceScope();
  TraceScope(const TraceScope&) = delete;
  TraceScope& operator=(const TraceScope&) = delete;

 private:
  TraceObserver* former_;
};

namespace trace_detail {
extern constinit thread_local TraceObserver* pObserver;
}

/// True while somebody hears this thread. Nobody hearing costs this test of a pointer and nothing else.
inline bool tracing() { return trace_detail::pObserver != nullptr; }

/// Each tells the observer of this thread; without one nothing happens.
void trace(TraceObserver::Kind kind, std::string_view sText);
void trace_event(arap::Event event, arap::Arguments args);
/// `sPart` says which of several objects of the type it is: a field, a tool, a page.
void trace_call(const arap::Object& object, arap::Member member, arap::Access access, arap::Arguments args,
                std::string_view sPart = {});
/// A statement of the book's database with its parameters.
void trace_translation(std::string_view sSql, const Binds& binds);

/// Keeps the first nMost lines and counts the others.
class TraceLog final : public TraceObserver {
 public:
  struct Line {
    Kind kind;
    std::string sText;
  };

  explicit TraceLog(std::size_t nMost = 100'000) : most_(nMost) {}
  bool on_trace(Kind kind, std::string_view sText) override;
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

}  // namespace desk
