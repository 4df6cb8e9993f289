#include "com/scenarios/scripted_machine.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <string>
#include <utility>

#include "bridge/bridge.h"
#include "bridge/wide_text.h"
#include "com/scenarios/message_boxes.h"
#include "com/scenarios/server_under_test.h"
#include "frame/platform.h"
#include "support/trace.h"

namespace arap::testing {

namespace {

constexpr int kDefaultPointer = 0;
constexpr int kHourglass = 11;

/// Copies a text to a caller's buffer; false when it has no room. `nSize` counts the closing zero.
bool copy_text(const std::wstring& sText, LPWSTR sOut, DWORD nSize) {
  if (nSize <= sText.size()) return false;
  std::copy_n(sText.c_str(), sText.size() + 1, sOut);
  return true;
}

/// The real folder of the DLL, and with it the paths that its platform builds.
std::wstring server_folder() {
  std::array<wchar_t, MAX_PATH> aPath{};
  GetModuleFileNameW(ServerUnderTest::module(), aPath.data(), static_cast<DWORD>(aPath.size()));
  const std::wstring sPath(aPath.data());
  return sPath.substr(0, sPath.find_last_of(L'\\'));
}

/// A path of the DLL's own folder as one of the scripted folder.
std::string scripted_path(std::wstring sPath) {
  const std::wstring sReal = server_folder();
  const std::size_t nAt = sPath.find(sReal);
  if (nAt != std::wstring::npos) {
    sPath.replace(nAt, sReal.size(), com::to_wide(CurrentPlatform().LibraryPath()));
  }
  return com::to_utf8(sPath);
}

/// The real box; what it is asked for is kept for where the screen can't tell.
int WINAPI message_box(HWND owner, LPCWSTR sText, LPCWSTR sTitle, UINT nStyle) {
  expect_icon(nStyle);
  return MessageBoxW(owner, sText, sTitle, nStyle);
}

/// The cursor that was asked for last: a machine without a screen has no cursors to tell one from the other.
LPCWSTR wanted_cursor = nullptr;

HCURSOR WINAPI load_cursor(HINSTANCE instance, LPCWSTR sName) {
  wanted_cursor = sName;
  return LoadCursorW(instance, sName);
}

HCURSOR WINAPI set_cursor(HCURSOR) {
  CurrentPlatform().SetMousePointer(wanted_cursor == IDC_WAIT ? kHourglass : kDefaultPointer);
  return nullptr;
}

BOOL WINAPI computer_name(LPWSTR sName, LPDWORD pnSize) {
  const std::optional<std::string> sScripted = CurrentPlatform().ComputerName();
  if (!sScripted) return FALSE;
  const std::wstring sWide = com::to_wide(*sScripted);
  if (!copy_text(sWide, sName, *pnSize)) return FALSE;
  *pnSize = static_cast<DWORD>(sWide.size());
  return TRUE;
}

DWORD WINAPI process_id() { return static_cast<DWORD>(CurrentPlatform().ProcessId()); }

DWORD WINAPI module_file_name(HMODULE module, LPWSTR sPath, DWORD nSize) {
  if (module != nullptr) return GetModuleFileNameW(module, sPath, nSize);
  const std::wstring sProgram = com::to_wide(CurrentPlatform().ApplicationPath()) + L"\\host.exe";
  return copy_text(sProgram, sPath, nSize) ? static_cast<DWORD>(sProgram.size()) : nSize;
}

DWORD WINAPI file_attributes(LPCWSTR sPath) {
  const std::string sScripted = scripted_path(sPath);
  if (!CurrentPlatform().FileExists(sScripted)) return INVALID_FILE_ATTRIBUTES;
  return static_cast<DWORD>(CurrentPlatform().FileAttributes(sScripted));
}

BOOL WINAPI set_file_attributes(LPCWSTR sPath, DWORD nAttributes) {
  CurrentPlatform().SetFileAttributes(scripted_path(sPath), static_cast<int>(nAttributes));
  return TRUE;
}

/// The help viewer is the one program that the server starts.
BOOL WINAPI create_process(LPCWSTR, LPWSTR sCommand, LPSECURITY_ATTRIBUTES, LPSECURITY_ATTRIBUTES, BOOL, DWORD, LPVOID,
                           LPCWSTR, LPSTARTUPINFOW, LPPROCESS_INFORMATION process) {
  constexpr std::wstring_view kViewer = L"hh.exe ";
  const std::wstring sWhole(sCommand);
  if (!sWhole.starts_with(kViewer)) return FALSE;
  *process = {};
  try {
    CurrentPlatform().StartHelpViewer(scripted_path(sWhole.substr(kViewer.size())));
  } catch (const AutomationError&) {
    return FALSE;
  }
  return TRUE;
}

/// A picture of the server, which stands in a trace as the name of what it shows.
class NamedPicture final : public TestObject {
 public:
  explicit NamedPicture(std::string sName) : name_(std::move(sName)) {}
  std::string type_name() const override { return "Picture"; }
  std::string label() const override { return show(Variant(name_)); }
  Variant invoke(Member member, Access, Arguments) override { no_such_member(member); }

 private:
  std::string name_;
};

/// A search for the picture among the server's resources that has these points.
struct PictureSearch {
  const void* points;
  std::string sFound;
};

BOOL CALLBACK compare_picture(HMODULE module, LPCWSTR sType, LPWSTR sName, LONG_PTR parameter) {
  auto& search = *reinterpret_cast<PictureSearch*>(parameter);
  const HRSRC resource = FindResourceW(module, sName, sType);
  const auto* const header = static_cast<const BITMAPINFOHEADER*>(LockResource(LoadResource(module, resource)));
  const char* const points = reinterpret_cast<const char*>(header) + header->biSize;
  if (std::memcmp(search.points, points, SizeofResource(module, resource) - header->biSize) != 0) return TRUE;
  search.sFound = com::to_utf8(std::wstring_view(sName));
  return FALSE;
}

std::string shown_by(HBITMAP bitmap) {
  DIBSECTION section{};
  if (GetObjectW(bitmap, sizeof section, &section) != static_cast<int>(sizeof section)) return "no bitmap";
  PictureSearch search{section.dsBm.bmBits, "an unknown picture"};
  EnumResourceNamesW(ServerUnderTest::module(), RT_BITMAP, compare_picture, reinterpret_cast<LONG_PTR>(&search));
  return search.sFound;
}

HRESULT WINAPI create_picture(LPPICTDESC description, REFIID, BOOL bOwn, LPVOID* out) {
  com::ComPtr<IPicture> real;
  std::string sName = shown_by(description->bmp.hbitmap);
  const HRESULT made = OleCreatePictureIndirect(description, IID_IPicture, bOwn, real.put_void());
  if (FAILED(made)) return made;
  return com::dispatch_of(make_object<NamedPicture>(std::move(sName)))->QueryInterface(IID_IDispatch, out);
}

template <class Function>
void* address(Function* function) {
  return reinterpret_cast<void*>(function);
}

}  // namespace

ScriptedMachine::ScriptedMachine(HMODULE server) {
  const auto patch = [&](const char* sFunction, void* replacement) {
    patches_.push_back(std::make_unique<ImportPatch>(server, sFunction, replacement));
    if (!patches_.back()->found()) ADD_FAILURE() << "the server doesn't import " << sFunction;
  };
  patch("MessageBoxW", address(message_box));
  patch("LoadCursorW", address(load_cursor));
  patch("SetCursor", address(set_cursor));
  patch("GetComputerNameW", address(computer_name));
  patch("GetCurrentProcessId", address(process_id));
  patch("GetModuleFileNameW", address(module_file_name));
  patch("GetFileAttributesW", address(file_attributes));
  patch("SetFileAttributesW", address(set_file_attributes));
  patch("CreateProcessW", address(create_process));
  patch("OleCreatePictureIndirect", address(create_picture));
}

}  // namespace arap::testing
