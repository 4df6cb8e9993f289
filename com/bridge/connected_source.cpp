#include "bridge/connected_source.h"

#include <vector>

#include "bridge/errors.h"

namespace arap::com {

std::unique_ptr<ConnectedSource> ConnectedSource::find(IDispatch& object) {
  std::optional<EventInterface> events = find_event_interface(object);
  return events ? std::make_unique<ConnectedSource>(std::move(*events)) : nullptr;
}

ConnectedSource::~ConnectedSource() {
  std::vector<Cookie> left;
  for (const auto& [cookie, sink] : sinks_) left.push_back(cookie);
  for (const Cookie cookie : left) unadvise(cookie);
}

EventSource::Cookie ConnectedSource::advise(EventSink& sink) {
  const auto object = ComPtr<EventSinkObject>::adopt(new EventSinkObject(sink, events_.events));
  DWORD cookie = 0;
  check(events_.point->Advise(object.get(), &cookie));
  sinks_.emplace(cookie, object);
  return cookie;
}

void ConnectedSource::unadvise(Cookie cookie) {
  const auto found = sinks_.find(cookie);
  if (found == sinks_.end()) return;
  const ComPtr<EventSinkObject> object = found->second;
  sinks_.erase(found);
  object->silence();
  events_.point->Unadvise(cookie);
}

}  // namespace arap::com
