#include "frame/event_binding.h"

#include <algorithm>

namespace arap {

EventSource::Cookie EventSourceList::advise(EventSink& sink) {
  sinks_.push_back({++last_cookie_, &sink});
  return last_cookie_;
}

void EventSourceList::unadvise(Cookie cookie) {
  std::erase_if(sinks_, [cookie](const Entry& entry) { return entry.cookie == cookie; });
}

bool EventSourceList::is_advised(Cookie cookie) const {
  return std::any_of(sinks_.begin(), sinks_.end(), [cookie](const Entry& entry) { return entry.cookie == cookie; });
}

void EventSourceList::fire(Event event, Arguments args) {
  const std::vector<Entry> targets = sinks_;
  for (const Entry& entry : targets) {
    if (is_advised(entry.cookie)) entry.sink->on_event(event, args);
  }
}

}  // namespace arap
