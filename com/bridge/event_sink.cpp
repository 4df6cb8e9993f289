#include "bridge/event_sink.h"

#include "bridge/errors.h"
#include "bridge/incoming_call.h"
#include "bridge/object_dispatch.h"

namespace arap::com {

HRESULT EventSinkObject::QueryInterface(REFIID id, void** out) {
  if (out == nullptr) return E_POINTER;
  const bool bKnown = id == IID_IUnknown || id == IID_IDispatch || id == events_->id();
  *out = bKnown ? static_cast<IDispatch*>(this) : nullptr;
  if (!bKnown) return E_NOINTERFACE;
  AddRef();
  return S_OK;
}

ULONG EventSinkObject::Release() {
  const ULONG nLeft = shares_.drop();
  if (nLeft == 0) delete this;
  return nLeft;
}

HRESULT EventSinkObject::GetTypeInfoCount(UINT* pnCount) {
  if (pnCount == nullptr) return E_POINTER;
  *pnCount = 0;
  return S_OK;
}

HRESULT EventSinkObject::GetTypeInfo(UINT, LCID, ITypeInfo** out) {
  if (out != nullptr) *out = nullptr;
  return DISP_E_BADINDEX;
}

HRESULT EventSinkObject::GetIDsOfNames(REFIID, LPOLESTR* names, UINT nNames, LCID, DISPID* ids) {
  return find_names(events_.get(), names, nNames, ids);
}

HRESULT EventSinkObject::Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* params, VARIANT*, EXCEPINFO* info, UINT*) {
  if (params == nullptr) return E_POINTER;
  if (!apartment_.is_here()) return RPC_E_WRONG_THREAD;
  const Function* const function = events_->find(id, INVOKE_FUNC);
  if (sink_ == nullptr || function == nullptr || !function->event) return S_OK;
  // An error object left over on the thread would be taken for one of this call.
  SetErrorInfo(0, nullptr);
  const ComPtr<EventSinkObject> alive(this);
  try {
    tell(*function->event, *params);
    return S_OK;
  } catch (...) {
    return report_to_invoke(info);
  }
}

/// What a handler wrote before it failed goes back too: a trap sets Cancel and raises its error again.
void EventSinkObject::tell(Event event, const DISPPARAMS& params) {
  IncomingCall call(params);
  check(call.read(nullptr, nullptr));
  try {
    sink_->on_event(event, call.args());
  } catch (...) {
    call.write_back();
    throw;
  }
  call.write_back();
}

}  // namespace arap::com
