#include "server/class_factory.h"

#include <new>

#include "bridge/errors.h"

namespace arap::com {

namespace {

class ClassFactory final : public IClassFactory {
 public:
  explicit ClassFactory(const ComClass& com_class) : class_(com_class) {}

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** out) override {
    if (out == nullptr) return E_POINTER;
    const bool bKnown = id == IID_IUnknown || id == IID_IClassFactory;
    *out = bKnown ? static_cast<IClassFactory*>(this) : nullptr;
    if (!bKnown) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return shares_.add(); }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG nLeft = shares_.drop();
    if (nLeft == 0) delete this;
    return nLeft;
  }

  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID id, void** out) override {
    if (out == nullptr) return E_POINTER;
    *out = nullptr;
    if (outer != nullptr) return CLASS_E_NOAGGREGATION;
    SetErrorInfo(0, nullptr);
    try {
      return create(class_)->QueryInterface(id, out);
    } catch (...) {
      return report_to_method(class_.interface_id);
    }
  }
  HRESULT STDMETHODCALLTYPE LockServer(BOOL bLock) override {
    g_live_objects += bLock ? 1 : -1;
    return S_OK;
  }

 private:
  ~ClassFactory() = default;
  LiveObject live_;
  ShareCount shares_;
  const ComClass& class_;
};

}  // namespace

ComPtr<IClassFactory> make_factory(const ComClass& com_class) {
  return ComPtr<IClassFactory>::adopt(new ClassFactory(com_class));
}

}  // namespace arap::com
