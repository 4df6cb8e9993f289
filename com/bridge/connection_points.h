#pragma once

#include <map>
#include <memory>

#include "bridge/type_shape.h"

namespace arap::com {

/// The events of an Object for COM sinks. Part of the COM object that offers it, and counted with it.
class ConnectionPoint final : public IConnectionPoint {
 public:
  /// `source` and `container` outlive this.
  ConnectionPoint(IConnectionPointContainer& container, EventSource& source, std::shared_ptr<const TypeShape> events);
  ~ConnectionPoint();
  ConnectionPoint(const ConnectionPoint&) = delete;
  ConnectionPoint& operator=(const ConnectionPoint&) = delete;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** out) override;
  ULONG STDMETHODCALLTYPE AddRef() override { return container_.AddRef(); }
  ULONG STDMETHODCALLTYPE Release() override { return container_.Release(); }

  HRESULT STDMETHODCALLTYPE GetConnectionInterface(IID* out) override;
  HRESULT STDMETHODCALLTYPE GetConnectionPointContainer(IConnectionPointContainer** out) override;
  HRESULT STDMETHODCALLTYPE Advise(IUnknown* sink, DWORD* cookie) override;
  HRESULT STDMETHODCALLTYPE Unadvise(DWORD cookie) override;
  HRESULT STDMETHODCALLTYPE EnumConnections(IEnumConnections** out) override;

 private:
  class Listener;
  IConnectionPointContainer& container_;
  EventSource& source_;
  std::shared_ptr<const TypeShape> events_;
  std::map<EventSource::Cookie, std::unique_ptr<Listener>> listeners_;
};

/// Enumerates that one connection point.
ComPtr<IEnumConnectionPoints> make_point_enumerator(IConnectionPoint& point);

}  // namespace arap::com
