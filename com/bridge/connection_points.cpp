#include "bridge/connection_points.h"

#include <vector>

#include "bridge/enumerator.h"
#include "bridge/errors.h"
#include "bridge/outgoing_call.h"

namespace arap::com {

namespace {

struct Point {
  ComPtr<IConnectionPoint> point;
  void copy_to(IConnectionPoint*& out) const { out = ComPtr<IConnectionPoint>(point).detach(); }
};

struct Connection {
  ComPtr<IDispatch> sink;
  DWORD cookie;
  void copy_to(CONNECTDATA& out) const { out = {ComPtr<IDispatch>(sink).detach(), cookie}; }
};

}  // namespace

/// A COM sink as an EventSink: fires by the DISPIDs and by-reference types of the source interface.
class ConnectionPoint::Listener final : public EventSink {
 public:
  Listener(ComPtr<IDispatch> sink, std::shared_ptr<const TypeShape> events)
      : sink_(std::move(sink)), events_(std::move(events)) {}

  const ComPtr<IDispatch>& sink() const { return sink_; }

  void on_event(Event event, Arguments args) override {
    // The sink may unadvise, and so end this listener, while it hears the event.
    const ComPtr<IDispatch> sink = sink_;
    const std::shared_ptr<const TypeShape> events = events_;
    const Function* const function = events->find(event);
    if (function == nullptr) return;
    const OutgoingCall call{*sink.get(), function->id, DISPATCH_METHOD, function};
    Variant vNone;
    OwnedExcepInfo info;
    const HRESULT done = call.run(args, vNone, *info.get());
    if (FAILED(done)) throw error_of(done, info.get());
  }

 private:
  ComPtr<IDispatch> sink_;
  std::shared_ptr<const TypeShape> events_;
};

ConnectionPoint::ConnectionPoint(IConnectionPointContainer& container, EventSource& source,
                                 std::shared_ptr<const TypeShape> events)
    : container_(container), source_(source), events_(std::move(events)) {}

ConnectionPoint::~ConnectionPoint() {
  for (const auto& [cookie, listener] : listeners_) source_.unadvise(cookie);
}

HRESULT ConnectionPoint::QueryInterface(REFIID id, void** out) {
  if (out == nullptr) return E_POINTER;
  const bool bKnown = id == IID_IUnknown || id == IID_IConnectionPoint;
  *out = bKnown ? static_cast<IConnectionPoint*>(this) : nullptr;
  if (!bKnown) return E_NOINTERFACE;
  AddRef();
  return S_OK;
}

HRESULT ConnectionPoint::GetConnectionInterface(IID* out) {
  if (out == nullptr) return E_POINTER;
  *out = events_->id();
  return S_OK;
}

HRESULT ConnectionPoint::GetConnectionPointContainer(IConnectionPointContainer** out) {
  if (out == nullptr) return E_POINTER;
  container_.AddRef();
  *out = &container_;
  return S_OK;
}

HRESULT ConnectionPoint::Advise(IUnknown* sink, DWORD* cookie) {
  if (sink == nullptr || cookie == nullptr) return E_POINTER;
  *cookie = 0;
  ComPtr<IDispatch> dispatch;
  if (FAILED(sink->QueryInterface(events_->id(), dispatch.put_void()))) dispatch = query<IDispatch>(sink);
  if (!dispatch) return CONNECT_E_CANNOTCONNECT;
  try {
    auto listener = std::make_unique<Listener>(std::move(dispatch), events_);
    const EventSource::Cookie advised = source_.advise(*listener);
    listeners_.emplace(advised, std::move(listener));
    *cookie = advised;
    return S_OK;
  } catch (...) {
    return report_to_method(IID_IConnectionPoint);
  }
}

HRESULT ConnectionPoint::Unadvise(DWORD cookie) {
  const auto found = listeners_.find(cookie);
  if (found == listeners_.end()) return CONNECT_E_NOCONNECTION;
  const std::unique_ptr<Listener> listener = std::move(found->second);
  listeners_.erase(found);
  source_.unadvise(cookie);
  return S_OK;
}

HRESULT ConnectionPoint::EnumConnections(IEnumConnections** out) {
  if (out == nullptr) return E_POINTER;
  std::vector<Connection> connections;
  for (const auto& [cookie, listener] : listeners_) connections.push_back({listener->sink(), cookie});
  *out = new Enumerator<IEnumConnections, Connection, CONNECTDATA>(std::move(connections));
  return S_OK;
}

ComPtr<IEnumConnectionPoints> make_point_enumerator(IConnectionPoint& point) {
  return ComPtr<IEnumConnectionPoints>::adopt(
      new Enumerator<IEnumConnectionPoints, Point, IConnectionPoint*>({Point{ComPtr<IConnectionPoint>(&point)}}));
}

}  // namespace arap::com
