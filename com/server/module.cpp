#include "server/module.h"

#include "bridge/errors.h"

namespace arap::com {

HMODULE own_module() {
  HMODULE module = nullptr;
  GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                     reinterpret_cast<const wchar_t*>(&own_module), &module);
  return module;
}

std::wstring module_path(HMODULE module) {
  std::wstring sPath(MAX_PATH, L'\0');
  for (;;) {
    const DWORD nLength = GetModuleFileNameW(module, sPath.data(), static_cast<DWORD>(sPath.size()));
    if (nLength < sPath.size()) {
      sPath.resize(nLength);
      return sPath;
    }
    sPath.resize(2 * sPath.size());
  }
}

std::wstring folder_of(const std::wstring& sPath) {
  const std::size_t nSeparator = sPath.find_last_of(L"\\/");
  return nSeparator == std::wstring::npos ? std::wstring() : sPath.substr(0, nSeparator);
}

ComPtr<ITypeLib> own_library() {
  ComPtr<ITypeLib> library;
  check(LoadTypeLibEx(module_path(own_module()).c_str(), REGKIND_NONE, library.put()));
  return library;
}

}  // namespace arap::com
