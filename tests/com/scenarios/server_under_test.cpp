#include "com/scenarios/server_under_test.h"

#include <string>

#include "bridge/bridge.h"
#include "bridge/errors.h"
#include "bridge/wide_text.h"

namespace arap::testing {

Ref<Object> ServerUnderTest::create(std::string_view sProgID) {
  CLSID id;
  if (FAILED(CLSIDFromProgID(com::to_wide(sProgID).c_str(), &id))) {
    throw AutomationError(ErrorNumber::CannotCreateObject, sProgID);
  }
  com::ComPtr<IDispatch> made;
  SetErrorInfo(0, nullptr);
  const HRESULT done = CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch, made.put_void());
  if (SUCCEEDED(done)) return com::object_of(made.get());
  if (const std::optional<AutomationError> own = com::error_left_by(done)) throw *own;
  throw com::error_of(done);
}

HMODULE ServerUnderTest::module() { return GetModuleHandleW(L"NUVARAPBillInterface.dll"); }

bool ServerUnderTest::can_unload() {
  if (module() == nullptr) return true;
  using Export = HRESULT(STDAPICALLTYPE*)();
  const auto DllCanUnloadNow =
      reinterpret_cast<Export>(reinterpret_cast<void*>(GetProcAddress(module(), "DllCanUnloadNow")));
  return DllCanUnloadNow != nullptr && DllCanUnloadNow() == S_OK;
}

}  // namespace arap::testing
