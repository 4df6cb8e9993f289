#pragma once

#include <concepts>
#include <cstddef>
#include <vector>

#include "frame/automation.h"

namespace arap {

/// A source with its list of sinks, for whoever fires events: the native hosts and the COM side.
class EventSourceList final : public EventSource {
 public:
  Cookie advise(EventSink& sink) override;
  void unadvise(Cookie cookie) override;

  /// Fires to the sinks that are advised now. The list is copied first: a sink may remove itself, or add or remove
  /// another, while it hears an event; one that is removed meanwhile hears nothing more, one that is added hears the
  /// next event. An error of a sink ends the firing and goes to the caller.
  void fire(Event event, Arguments args);

  std::size_t size() const { return sinks_.size(); }

 private:
  struct Entry {
    Cookie cookie;
    EventSink* sink;
  };
  bool is_advised(Cookie cookie) const;

  std::vector<Entry> sinks_;
  Cookie last_cookie_ = 0;
};

/// A member "with events": holds the source object and hears it until it is cleared or destroyed.
template <class Owner>
class EventMember final : private EventSink {
 public:
  using Handler = void (Owner::*)(Event, Arguments);

  EventMember(Owner& owner, Handler handler) : owner_(owner), handler_(handler) {}
  EventMember(const EventMember&) = delete;
  EventMember& operator=(const EventMember&) = delete;
  ~EventMember() { clear(); }

  /// Leaves the former source and hears this one. Raises 459 when the object has no events. Nothing clears the member.
  void set(const Ref<Object>& source) {
    EventSource* events = source ? source->event_source() : nullptr;
    if (source && events == nullptr) throw AutomationError(ErrorNumber::NoSuchEvents, source->type_name());
    clear();
    if (events == nullptr) return;
    cookie_ = events->advise(*this);
    source_ = source;
  }

  void clear() noexcept {
    if (!source_) return;
    const Ref<Object> held = std::exchange(source_, nullptr);
    // A source that has gone away has nothing left to leave.
    try {
      held->event_source()->unadvise(cookie_);
    } catch (const AutomationError&) {
    }
  }

  const Ref<Object>& source() const { return source_; }

 private:
  void on_event(Event event, Arguments args) override {
    if constexpr (std::derived_from<Owner, Object>) {
      // The host may release the owner from inside the event: it lives to the end of its handler.
      const Ref<Owner> alive(&owner_);
      (owner_.*handler_)(event, args);
    } else {
      (owner_.*handler_)(event, args);
    }
  }

  Owner& owner_;
  Handler handler_;
  Ref<Object> source_;
  EventSource::Cookie cookie_ = 0;
};

}  // namespace arap
