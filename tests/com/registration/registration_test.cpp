#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <functional>
#include <iterator>
#include <set>
#include <string>
#include <vector>

#include "bridge/wide_text.h"
#include "com/registration/dll_path.h"
#include "com/server/client.h"

/// Registration and its end. Runs before all others, on a machine that doesn't know the server yet.
namespace arap::testing {
namespace {

using Names = std::set<std::wstring>;  // paths of keys

void add_keys(HKEY root, const std::wstring& sPath, Names& names) {
  HKEY key = nullptr;
  if (RegOpenKeyExW(root, sPath.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) return;
  std::array<wchar_t, 512> aName{};
  for (DWORD i = 0; RegEnumKeyW(key, i, aName.data(), static_cast<DWORD>(aName.size())) == ERROR_SUCCESS; ++i) {
    names.insert(sPath + L"\\" + aName.data());
  }
  RegCloseKey(key);
}

/// Every ProgID, class, interface and type library of the machine or the user, in both widths.
Names registered(HKEY root) {
  Names names;
  for (const wchar_t* sWidth : {L"", L"\\Wow6432Node"}) {
    const std::wstring sClasses = std::wstring(L"Software\\Classes") + sWidth;
    for (const wchar_t* sKind : {L"", L"\\CLSID", L"\\Interface", L"\\TypeLib"}) {
      add_keys(root, sClasses + sKind, names);
    }
  }
  return names;
}
Names registered() {
  Names names = registered(HKEY_LOCAL_MACHINE);
  for (const std::wstring& sName : registered(HKEY_CURRENT_USER)) names.insert(L"user: " + sName);
  return names;
}

/// The keys that are in one of the two alone.
std::vector<std::string> difference(const Names& a, const Names& b) {
  std::vector<std::wstring> aOnly;
  std::set_symmetric_difference(a.begin(), a.end(), b.begin(), b.end(), std::back_inserter(aOnly));
  std::vector<std::string> aTexts;
  for (const std::wstring& sName : aOnly) aTexts.push_back(com::to_utf8(sName));
  return aTexts;
}

int lines_of(const Names& names, std::wstring_view sPart) {
  int nLines = 0;
  for (const std::wstring& sName : names) nLines += sName.find(sPart) != std::wstring::npos ? 1 : 0;
  return nLines;
}

/// The folders that any user's own registrations share stay when the last of them goes.
void make_folders_of_the_user() {
  for (const wchar_t* sKind : {L"CLSID", L"Interface", L"TypeLib"}) {
    HKEY key = nullptr;
    RegCreateKeyW(HKEY_CURRENT_USER, (std::wstring(L"Software\\Classes\\") + sKind).c_str(), &key);
    RegCloseKey(key);
  }
}

/// Runs a program to its end and answers its exit code.
DWORD run(std::wstring sCommand) {
  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  PROCESS_INFORMATION process{};
  if (!CreateProcessW(nullptr, sCommand.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &process)) {
    return static_cast<DWORD>(-1);
  }
  DWORD nCode = static_cast<DWORD>(-1);
  WaitForSingleObject(process.hProcess, 60000);
  GetExitCodeProcess(process.hProcess, &nCode);
  CloseHandle(process.hThread);
  CloseHandle(process.hProcess);
  return nCode;
}

DWORD regsvr32(const std::wstring& sOptions) {
  return run(L"regsvr32.exe /s " + sOptions + L" \"" + dll_path() + L"\"");
}

/// The server of the other width, and the program that registers it, as this width sees them.
#ifdef _WIN64
constexpr std::array<std::wstring_view, 2> kWidths{L"cross-x64", L"cross-x86"};
constexpr const wchar_t* kOtherRegsvr = L"C:\\windows\\syswow64\\regsvr32.exe /s ";
#else
constexpr std::array<std::wstring_view, 2> kWidths{L"cross-x86", L"cross-x64"};
constexpr const wchar_t* kOtherRegsvr = L"C:\\windows\\sysnative\\regsvr32.exe /s ";
#endif
std::wstring other_dll_path() {
  std::wstring sPath = dll_path();
  return sPath.replace(sPath.find(kWidths[0]), kWidths[0].size(), kWidths[1]);
}
DWORD other_regsvr32(const std::wstring& sOptions) {
  return run(kOtherRegsvr + sOptions + L" \"" + other_dll_path() + L"\"");
}

class Registration : public ::testing::Test {
 protected:
  Registration() : server(LoadLibraryW(dll_path().c_str())) {}
  ~Registration() override { FreeLibrary(server); }

  HRESULT export_call(const char* sName) {
    using Export = HRESULT(STDAPICALLTYPE*)();
    const auto function = reinterpret_cast<Export>(reinterpret_cast<void*>(GetProcAddress(server, sName)));
    return function == nullptr ? E_NOTIMPL : function();
  }
  HRESULT install(BOOL bInstall, PCWSTR sCommand) {
    using Export = HRESULT(STDAPICALLTYPE*)(BOOL, PCWSTR);
    const auto function = reinterpret_cast<Export>(reinterpret_cast<void*>(GetProcAddress(server, "DllInstall")));
    return function == nullptr ? E_NOTIMPL : function(bInstall, sCommand);
  }
  /// Registers, looks, unregisters: afterwards the machine is what it was.
  void expect_clean(const std::function<void()>& enter, const std::function<void()>& leave) {
    const Names before = registered();
    ASSERT_EQ(lines_of(before, L"NUVARAPBillInterface"), 0) << "the server is registered already";
    enter();
    const Names between = registered();
    for (const char* sClass : kClassNames) {
      EXPECT_GE(lines_of(between, L"\\" + prog_id(sClass)), 2) << sClass;  // with and without its version
    }
    leave();
    EXPECT_EQ(difference(registered(), before), std::vector<std::string>());
  }

  HMODULE server;
};

TEST_F(Registration, ExportsRegisterAndLeaveNothing) {
  ASSERT_NE(server, nullptr);
  expect_clean([&] { EXPECT_EQ(export_call("DllRegisterServer"), S_OK); },
               [&] { EXPECT_EQ(export_call("DllUnregisterServer"), S_OK); });
}

TEST_F(Registration, RegistrationTwiceIsTheSameAsOnce) {
  expect_clean(
      [&] {
        EXPECT_EQ(export_call("DllRegisterServer"), S_OK);
        const Names once = registered();
        EXPECT_EQ(export_call("DllRegisterServer"), S_OK);
        EXPECT_EQ(difference(registered(), once), std::vector<std::string>());
      },
      [&] {
        EXPECT_EQ(export_call("DllUnregisterServer"), S_OK);
        EXPECT_EQ(export_call("DllUnregisterServer"), S_OK);
      });
}

TEST_F(Registration, RegsvrRegistersAndLeavesNothing) {
  expect_clean([] { EXPECT_EQ(regsvr32(L""), 0u); }, [] { EXPECT_EQ(regsvr32(L"/u"), 0u); });
}

TEST_F(Registration, RegsvrRegistersForTheUserAloneAndLeavesNothing) {
  make_folders_of_the_user();
  expect_clean(
      [] {
        EXPECT_EQ(regsvr32(L"/n /i:user"), 0u);
        EXPECT_EQ(lines_of(registered(HKEY_LOCAL_MACHINE), L"NUVARAPBillInterface"), 0);
      },
      [] { EXPECT_EQ(regsvr32(L"/u /n /i:user"), 0u); });
}

TEST_F(Registration, InstallForTheMachineRegistersAndLeavesNothing) {
  expect_clean([&] { EXPECT_EQ(install(TRUE, L""), S_OK); }, [&] { EXPECT_EQ(install(FALSE, L""), S_OK); });
}

TEST_F(Registration, InstallForTheUserTouchesTheUserAloneAndLeavesNothing) {
  make_folders_of_the_user();
  expect_clean(
      [&] {
        EXPECT_EQ(install(TRUE, L"user"), S_OK);
        EXPECT_EQ(lines_of(registered(HKEY_LOCAL_MACHINE), L"NUVARAPBillInterface"), 0);
      },
      [&] { EXPECT_EQ(install(FALSE, L"user"), S_OK); });
}

TEST_F(Registration, EveryClassIsOneOfAnApartmentInThisFile) {
  ASSERT_EQ(export_call("DllRegisterServer"), S_OK);
  for (const char* sClass : kClassNames) {
    std::array<wchar_t, 40> aId{};
    StringFromGUID2(class_id(sClass), aId.data(), static_cast<int>(aId.size()));
    const std::wstring sKey = std::wstring(L"CLSID\\") + aId.data() + L"\\InprocServer32";
    std::array<wchar_t, MAX_PATH> aText{};
    DWORD nSize = sizeof aText;
    EXPECT_EQ(RegGetValueW(HKEY_CLASSES_ROOT, sKey.c_str(), nullptr, RRF_RT_REG_SZ, nullptr, aText.data(), &nSize), 0);
    EXPECT_EQ(_wcsicmp(aText.data(), dll_path().c_str()), 0);
    nSize = sizeof aText;
    EXPECT_EQ(
        RegGetValueW(HKEY_CLASSES_ROOT, sKey.c_str(), L"ThreadingModel", RRF_RT_REG_SZ, nullptr, aText.data(), &nSize),
        0);
    EXPECT_STREQ(aText.data(), L"Apartment");
  }
  EXPECT_EQ(export_call("DllUnregisterServer"), S_OK);
}

TEST_F(Registration, WhatBothWidthsShareStaysUntilTheSecondGoes) {
  if (GetFileAttributesW(other_dll_path().c_str()) == INVALID_FILE_ATTRIBUTES) {
    GTEST_SKIP() << "the server of the other width isn't built";
  }
  for (const bool bOwnGoesFirst : {true, false}) {
    const auto own = [](const wchar_t* sOptions) { EXPECT_EQ(regsvr32(sOptions), 0u); };
    const auto other = [](const wchar_t* sOptions) { EXPECT_EQ(other_regsvr32(sOptions), 0u); };
    expect_clean(
        [&] {
          own(L"");
          other(L"");
        },
        [&] {
          bOwnGoesFirst ? own(L"/u") : other(L"/u");
          const Names rest = registered();
          EXPECT_EQ(lines_of(rest, L"\\NUVARAPBillInterface."), 2 * static_cast<int>(std::size(kClassNames)));
          bOwnGoesFirst ? other(L"/u") : own(L"/u");
        });
  }
}

/// Wine 8 writes the keys of a user's own registration and doesn't look there.
TEST_F(Registration, ClassOfAUsersOwnRegistrationCanBeMade) {
  ASSERT_EQ(install(TRUE, L"user"), S_OK);
  CLSID id{};
  const HRESULT found = CLSIDFromProgID(L"NUVARAPBillInterface.clsInvoice", &id);
  EXPECT_EQ(install(FALSE, L"user"), S_OK);
  if (FAILED(found)) GTEST_SKIP() << "this machine doesn't see classes of the user";
}

}  // namespace
}  // namespace arap::testing
