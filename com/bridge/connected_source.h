#pragma once

#include <memory>
#include <unordered_map>

#include "bridge/event_interface.h"
#include "bridge/event_sink.h"

namespace arap::com {

/// The events of a COM object as an EventSource.
class ConnectedSource final : public EventSource {
 public:
  /// nullptr for an object without a source interface that can be found.
  static std::unique_ptr<ConnectedSource> find(IDispatch& object);
  explicit ConnectedSource(EventInterface events) : events_(std::move(events)) {}
  /// Sinks that are still advised hear nothing more.
  ~ConnectedSource();
  ConnectedSource(const ConnectedSource&) = delete;
  ConnectedSource& operator=(const ConnectedSource&) = delete;

  /// Raises the object's error when it takes no sink.
  Cookie advise(EventSink& sink) override;
  /// Silences the sink even when the object has gone away or refuses.
  void unadvise(Cookie cookie) override;

 private:
  EventInterface events_;
  std::unordered_map<Cookie, ComPtr<EventSinkObject>> sinks_;
};

}  // namespace arap::com
