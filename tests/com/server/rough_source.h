#pragma once

#include <vector>

#include "bridge/handles.h"

namespace arap::testing {

/// A bill's event source of bare COM that doesn't keep every promise. It has no operations.
class RoughSource final : public IDispatch,
                          public IProvideClassInfo,
                          public IConnectionPointContainer,
                          public IConnectionPoint {
 public:
  /// What it tells of its type: nothing, its interface alone, or its class too.
  enum class Info { None, Interface, Class };
  explicit RoughSource(Info info);

  bool refuse = false;       // Advise fails
  bool mute = false;         // it has no connection points
  bool keeps_sinks = false;  // Unadvise succeeds and forgets nobody
  int sinks() const { return static_cast<int>(sinks_.size()); }
  /// From now on every call fails as that of an object whose process is gone.
  void vanish();
  /// The answer of the last sink that is kept; S_OK when there is none.
  HRESULT fire_after_load_bill();

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** out) override;
  ULONG STDMETHODCALLTYPE AddRef() override { return shares_.add(); }
  ULONG STDMETHODCALLTYPE Release() override;
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* pnCount) override;
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT nIndex, LCID, ITypeInfo** out) override;
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override;
  HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override;
  HRESULT STDMETHODCALLTYPE GetClassInfo(ITypeInfo** out) override;
  HRESULT STDMETHODCALLTYPE EnumConnectionPoints(IEnumConnectionPoints**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE FindConnectionPoint(REFIID id, IConnectionPoint** out) override;
  HRESULT STDMETHODCALLTYPE GetConnectionInterface(IID* id) override;
  HRESULT STDMETHODCALLTYPE GetConnectionPointContainer(IConnectionPointContainer** out) override;
  HRESULT STDMETHODCALLTYPE Advise(IUnknown* sink, DWORD* pnCookie) override;
  HRESULT STDMETHODCALLTYPE Unadvise(DWORD nCookie) override;
  HRESULT STDMETHODCALLTYPE EnumConnections(IEnumConnections**) override { return E_NOTIMPL; }

 private:
  ~RoughSource() = default;
  HRESULT type_of(const GUID& id, ITypeInfo** out) const;

  com::ShareCount shares_;
  Info info_;
  bool gone_ = false;
  com::ComPtr<ITypeLib> library_;
  std::vector<com::ComPtr<IDispatch>> sinks_;
};

}  // namespace arap::testing
