#pragma once

#include "bridge/handles.h"

namespace arap::com {

/// A COM object with one interface beside IUnknown, alive as long as somebody holds a share of it.
template <class I>
class Counted : public I {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** out) final {
    if (out == nullptr) return E_POINTER;
    const bool bKnown = id == IID_IUnknown || id == __uuidof(I);
    *out = bKnown ? static_cast<I*>(this) : nullptr;
    if (!bKnown) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() final { return shares_.add(); }
  ULONG STDMETHODCALLTYPE Release() final {
    const ULONG nLeft = shares_.drop();
    if (nLeft == 0) delete this;
    return nLeft;
  }

 protected:
  virtual ~Counted() = default;

 private:
  LiveObject live_;
  ShareCount shares_;
};

}  // namespace arap::com
