#include "com/server/rough_source.h"

#include <array>

namespace arap::testing {

namespace {

constexpr DISPID kAfterLoadBill = 5;

/// Identifiers of host.idl: the interface of operations, that of events, the class.
constexpr GUID host_id(unsigned char nLast) {
  return {0x3a0e21f0, 0x7b5c, 0x4c1e, {0x9c, 0x1b, 0x5e, 0x1d, 0x7a, 0x6f, 0x00, nLast}};
}
constexpr GUID kInterface = host_id(0x01);
constexpr GUID kEvents = host_id(0x11);
constexpr GUID kClass = host_id(0x21);

}  // namespace

RoughSource::RoughSource(Info info) : info_(info) {
  std::array<wchar_t, MAX_PATH> aPath{};
  GetModuleFileNameW(nullptr, aPath.data(), static_cast<DWORD>(aPath.size()));
  LoadTypeLibEx(aPath.data(), REGKIND_NONE, library_.put());
}

void RoughSource::vanish() {
  gone_ = true;
  sinks_.clear();
}

HRESULT RoughSource::fire_after_load_bill() {
  if (sinks_.empty()) return S_OK;
  DISPPARAMS none{};
  return sinks_.back()->Invoke(kAfterLoadBill, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &none, nullptr, nullptr,
                               nullptr);
}

HRESULT RoughSource::type_of(const GUID& id, ITypeInfo** out) const {
  return library_ ? library_->GetTypeInfoOfGuid(id, out) : E_FAIL;
}

HRESULT RoughSource::QueryInterface(REFIID id, void** out) {
  IUnknown* found = nullptr;
  if (id == IID_IUnknown || id == IID_IDispatch) found = static_cast<IDispatch*>(this);
  if (id == IID_IProvideClassInfo && info_ == Info::Class) found = static_cast<IProvideClassInfo*>(this);
  if (id == IID_IConnectionPointContainer && !mute) found = static_cast<IConnectionPointContainer*>(this);
  if (id == IID_IConnectionPoint) found = static_cast<IConnectionPoint*>(this);
  *out = found;
  if (found == nullptr) return E_NOINTERFACE;
  found->AddRef();
  return S_OK;
}

ULONG RoughSource::Release() {
  const ULONG nLeft = shares_.drop();
  if (nLeft == 0) delete this;
  return nLeft;
}

HRESULT RoughSource::GetTypeInfoCount(UINT* pnCount) {
  *pnCount = info_ == Info::None ? 0 : 1;
  return S_OK;
}

HRESULT RoughSource::GetTypeInfo(UINT, LCID, ITypeInfo** out) {
  *out = nullptr;
  if (info_ == Info::None) return E_NOTIMPL;
  return gone_ ? RPC_E_DISCONNECTED : type_of(kInterface, out);
}

HRESULT RoughSource::GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) {
  return gone_ ? RPC_E_DISCONNECTED : DISP_E_UNKNOWNNAME;
}

HRESULT RoughSource::Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) {
  return gone_ ? RPC_E_DISCONNECTED : DISP_E_MEMBERNOTFOUND;
}

HRESULT RoughSource::GetClassInfo(ITypeInfo** out) { return gone_ ? RPC_E_DISCONNECTED : type_of(kClass, out); }

HRESULT RoughSource::FindConnectionPoint(REFIID id, IConnectionPoint** out) {
  *out = nullptr;
  if (gone_) return RPC_E_DISCONNECTED;
  if (id != kEvents) return CONNECT_E_NOCONNECTION;
  AddRef();
  *out = this;
  return S_OK;
}

HRESULT RoughSource::GetConnectionInterface(IID* id) {
  *id = kEvents;
  return S_OK;
}

HRESULT RoughSource::GetConnectionPointContainer(IConnectionPointContainer** out) {
  AddRef();
  *out = this;
  return S_OK;
}

HRESULT RoughSource::Advise(IUnknown* sink, DWORD* pnCookie) {
  if (gone_) return RPC_E_DISCONNECTED;
  if (refuse) return CONNECT_E_ADVISELIMIT;
  com::ComPtr<IDispatch> events;
  if (FAILED(sink->QueryInterface(kEvents, events.put_void()))) return CONNECT_E_CANNOTCONNECT;
  sinks_.push_back(std::move(events));
  *pnCookie = static_cast<DWORD>(sinks_.size());
  return S_OK;
}

HRESULT RoughSource::Unadvise(DWORD) {
  if (gone_) return RPC_E_DISCONNECTED;
  if (!keeps_sinks) sinks_.clear();
  return S_OK;
}

}  // namespace arap::testing
