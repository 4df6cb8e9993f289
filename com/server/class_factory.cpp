#include "server/class_factory.h"

#include <new>

#include "bridge/counted.h"
#include "bridge/errors.h"

namespace arap::com {

namespace {

class ClassFactory final : public Counted<IClassFactory> {
 public:
  explicit ClassFactory(const ComClass& com_class) : class_(com_class) {}

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
  ~ClassFactory() override = default;
  const ComClass& class_;
};

}  // namespace

ComPtr<IClassFactory> make_factory(const ComClass& com_class) {
  return ComPtr<IClassFactory>::adopt(new ClassFactory(com_class));
}

}  // namespace arap::com
