#include "server/registration.h"

#include <array>
#include <new>
#include <string>
#include <vector>

#include "bridge/wide_text.h"
#include "frame/plugin_entry.h"
#include "server/module.h"
#include "server/public_classes.h"

namespace arap::com {

namespace {

constexpr const wchar_t* kVersion = L"1.0";
/// Marshals dual interfaces by their type library.
constexpr const wchar_t* kAutomationMarshaler = L"{00020424-0000-0000-C000-000000000046}";
constexpr const wchar_t* kDescription = L"NUVARAPBillInterface: receivables and payables plug-in";
#ifdef _WIN64
constexpr const wchar_t* kPlatform = L"win64";
constexpr const wchar_t* kOtherPlatform = L"win32";
constexpr REGSAM kOtherView = KEY_WOW64_32KEY;
#else
constexpr const wchar_t* kPlatform = L"win32";
constexpr const wchar_t* kOtherPlatform = L"win64";
constexpr REGSAM kOtherView = KEY_WOW64_64KEY;
#endif

/// One value under Software\Classes; an empty name is the key's own value.
struct Entry {
  std::wstring sKey;
  std::wstring sName;
  std::wstring sValue;
};

std::wstring text_of(const GUID& id) {
  std::array<wchar_t, 40> text{};
  StringFromGUID2(id, text.data(), static_cast<int>(text.size()));
  return text.data();
}

HKEY root_of(Audience audience) { return audience == Audience::Machine ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER; }
std::wstring path_of(const std::wstring& sKey) { return L"Software\\Classes\\" + sKey; }

std::wstring prog_id(const ComClass& com_class) { return to_wide(kLibraryName) + L"." + to_wide(com_class.sName); }
std::wstring class_key(const ComClass& com_class) { return L"CLSID\\" + text_of(com_class.class_id); }
std::wstring interface_key(const ComClass& com_class) { return L"Interface\\" + text_of(com_class.interface_id); }
std::wstring library_key() { return L"TypeLib\\" + text_of(library_id()); }
std::wstring library_version_key() { return library_key() + L"\\" + kVersion; }

void add_class(std::vector<Entry>& entries, const ComClass& com_class, const std::wstring& sPath) {
  const std::wstring sClass = text_of(com_class.class_id);
  const std::wstring sKey = class_key(com_class);
  const std::wstring sProgID = prog_id(com_class);
  entries.push_back({sKey, L"", sProgID});
  entries.push_back({sKey + L"\\InprocServer32", L"", sPath});
  entries.push_back({sKey + L"\\InprocServer32", L"ThreadingModel", L"Apartment"});
  entries.push_back({sKey + L"\\ProgID", L"", sProgID + L".1"});
  entries.push_back({sKey + L"\\VersionIndependentProgID", L"", sProgID});
  entries.push_back({sKey + L"\\TypeLib", L"", text_of(library_id())});
  entries.push_back({sKey + L"\\Version", L"", kVersion});
  entries.push_back({sProgID, L"", sProgID});
  entries.push_back({sProgID + L"\\CLSID", L"", sClass});
  entries.push_back({sProgID + L"\\CurVer", L"", sProgID + L".1"});
  entries.push_back({sProgID + L".1", L"", sProgID});
  entries.push_back({sProgID + L".1\\CLSID", L"", sClass});
}

void add_interface(std::vector<Entry>& entries, const ComClass& com_class) {
  const std::wstring sKey = interface_key(com_class);
  entries.push_back({sKey, L"", L"_" + to_wide(com_class.sName)});
  entries.push_back({sKey + L"\\ProxyStubClsid32", L"", kAutomationMarshaler});
  entries.push_back({sKey + L"\\TypeLib", L"", text_of(library_id())});
  entries.push_back({sKey + L"\\TypeLib", L"Version", kVersion});
}

std::vector<Entry> all_entries() {
  const std::wstring sPath = module_path(own_module());
  const std::wstring sLibrary = library_version_key();
  std::vector<Entry> entries;
  for (const ComClass& com_class : com_classes()) {
    add_class(entries, com_class, sPath);
    add_interface(entries, com_class);
  }
  entries.push_back({sLibrary, L"", kDescription});
  entries.push_back({sLibrary + L"\\0\\" + kPlatform, L"", sPath});
  entries.push_back({sLibrary + L"\\FLAGS", L"", L"0"});
  entries.push_back({sLibrary + L"\\HELPDIR", L"", folder_of(sPath)});
  return entries;
}

LSTATUS write(HKEY root, const Entry& entry) {
  const auto nSize = static_cast<DWORD>((entry.sValue.size() + 1) * sizeof(wchar_t));
  return RegSetKeyValueW(root, path_of(entry.sKey).c_str(), entry.sName.empty() ? nullptr : entry.sName.c_str(), REG_SZ,
                         entry.sValue.c_str(), nSize);
}

/// A key that isn't there is as good as removed.
LSTATUS remove(HKEY root, const std::wstring& sKey) {
  const LSTATUS removed = RegDeleteTreeW(root, path_of(sKey).c_str());
  return removed == ERROR_FILE_NOT_FOUND ? ERROR_SUCCESS : removed;
}

bool exists(HKEY root, const std::wstring& sKey, REGSAM view) {
  HKEY key = nullptr;
  if (RegOpenKeyExW(root, path_of(sKey).c_str(), 0, KEY_READ | view, &key) != ERROR_SUCCESS) return false;
  RegCloseKey(key);
  return true;
}

/// The other bitness is told by its type library: that key both share, and it is theirs alone. Classes and interfaces
/// have a key for each bitness on the machine.
bool other_bitness_is_registered(HKEY root) {
  return exists(root, library_version_key() + L"\\0\\" + kOtherPlatform, 0) &&
         exists(root, class_key(com_classes().front()), kOtherView);
}

LSTATUS remove_all(HKEY root) {
  const bool bShared = other_bitness_is_registered(root);
  std::vector<std::wstring> keys;
  for (const ComClass& com_class : com_classes()) {
    keys.push_back(class_key(com_class));
    keys.push_back(interface_key(com_class));
    if (bShared) continue;
    keys.push_back(prog_id(com_class));
    keys.push_back(prog_id(com_class) + L".1");
  }
  keys.push_back(bShared ? library_version_key() + L"\\0\\" + kPlatform : library_key());
  LSTATUS result = ERROR_SUCCESS;
  for (const std::wstring& sKey : keys) {
    const LSTATUS removed = remove(root, sKey);
    if (result == ERROR_SUCCESS) result = removed;
  }
  return result;
}

}  // namespace

HRESULT register_server(Audience audience) noexcept {
  try {
    const HKEY root = root_of(audience);
    for (const Entry& entry : all_entries()) {
      const LSTATUS written = write(root, entry);
      if (written == ERROR_SUCCESS) continue;
      remove_all(root);
      return HRESULT_FROM_WIN32(static_cast<DWORD>(written));
    }
    return S_OK;
  } catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
  }
}

HRESULT unregister_server(Audience audience) noexcept {
  try {
    return HRESULT_FROM_WIN32(static_cast<DWORD>(remove_all(root_of(audience))));
  } catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
  }
}

}  // namespace arap::com
