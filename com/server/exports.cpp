#include <new>
#include <string_view>

#include "server/class_factory.h"
#include "server/registration.h"

/// What Windows calls: the usual exports of an in-process server.

using namespace arap::com;

STDAPI DllGetClassObject(REFCLSID class_id, REFIID id, LPVOID* out) {
  if (out == nullptr) return E_POINTER;
  *out = nullptr;
  const ComClass* const com_class = find_class(class_id);
  if (com_class == nullptr) return CLASS_E_CLASSNOTAVAILABLE;
  try {
    return make_factory(*com_class)->QueryInterface(id, out);
  } catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
  }
}

STDAPI DllCanUnloadNow() { return g_live_objects == 0 ? S_OK : S_FALSE; }

STDAPI DllRegisterServer() { return register_server(Audience::Machine); }

STDAPI DllUnregisterServer() { return unregister_server(Audience::Machine); }

/// regsvr32 /n /i:user registers for the user alone, /i without text for the machine; /u takes it back.
STDAPI DllInstall(BOOL bInstall, PCWSTR sCommand) {
  const bool bUser = sCommand != nullptr && std::wstring_view(sCommand) == L"user";
  const Audience audience = bUser ? Audience::User : Audience::Machine;
  return bInstall ? register_server(audience) : unregister_server(audience);
}
