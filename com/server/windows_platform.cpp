#include "server/windows_platform.h"

#include <array>
#include <string>

#include "bridge/bridge.h"
#include "bridge/errors.h"
#include "bridge/wide_text.h"
#include "frame/open_choices.h"
#include "server/grid_form.h"
#include "server/module.h"
#include "server/pictures.h"

namespace arap::com {

namespace {

constexpr int kHourglass = 11;
constexpr std::int32_t kFileNotFound = 53;
constexpr std::int32_t kPathAccess = 75;
/// The bits that a program may see and set: read-only, hidden, system, directory, archive.
constexpr DWORD kAttributeBits = 0x37;

DWORD attributes_of(const std::wstring& sPath) {
  const DWORD attributes = GetFileAttributesW(sPath.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) throw AutomationError(kFileNotFound, "Platform", "File not found");
  return attributes;
}

class WindowsPlatform final : public Platform {
 public:
  int MsgBox(std::string_view sText, int nButtons, std::string_view sTitle) override;
  void SetMousePointer(int nPointer) override;
  Ref<Object> CreateObject(std::string_view sProgID) override;
  std::optional<std::string> ComputerName() override;
  std::int32_t ProcessId() override { return static_cast<std::int32_t>(GetCurrentProcessId()); }
  std::string ApplicationPath() override { return to_utf8(folder_of(module_path(nullptr))); }
  std::string LibraryPath() override { return to_utf8(folder_of(module_path(own_module()))); }
  void StartHelpViewer(std::string_view sPath) override;
  bool FileExists(std::string_view sPath) override {
    return GetFileAttributesW(to_wide(sPath).c_str()) != INVALID_FILE_ATTRIBUTES;
  }
  int FileAttributes(std::string_view sPath) override {
    return static_cast<int>(attributes_of(to_wide(sPath)) & kAttributeBits);
  }
  void SetFileAttributes(std::string_view sPath, int nAttributes) override;
  Variant Picture(std::string_view sName) override { return load_picture(sName); }
  void ShowGridForm(GridForm& form) override { show_grid_form(form, open_choices::kGridControl); }
};

/// The box belongs to the window in front, so that it can't be hidden behind it.
int WindowsPlatform::MsgBox(std::string_view sText, int nButtons, std::string_view sTitle) {
  const HWND owner = GetActiveWindow();
  const UINT modal = owner == nullptr ? MB_TASKMODAL : MB_APPLMODAL;
  return MessageBoxW(owner, to_wide(sText).c_str(), to_wide(sTitle).c_str(), static_cast<UINT>(nButtons) | modal);
}

void WindowsPlatform::SetMousePointer(int nPointer) {
  SetCursor(LoadCursorW(nullptr, nPointer == kHourglass ? IDC_WAIT : IDC_ARROW));
}

/// What the class's own initialiser raises is passed on; a class that can't be made for another reason is error 429.
Ref<Object> WindowsPlatform::CreateObject(std::string_view sProgID) {
  CLSID class_id{};
  ComPtr<IUnknown> created;
  SetErrorInfo(0, nullptr);
  HRESULT done = CLSIDFromProgID(to_wide(sProgID).c_str(), &class_id);
  if (SUCCEEDED(done)) done = CoCreateInstance(class_id, nullptr, CLSCTX_SERVER, IID_IUnknown, created.put_void());
  if (SUCCEEDED(done)) return object_of(created.get());
  if (const std::optional<AutomationError> own = error_left_by(done)) throw *own;
  throw AutomationError(ErrorNumber::CannotCreateObject, sProgID);
}

std::optional<std::string> WindowsPlatform::ComputerName() {
  std::array<wchar_t, MAX_COMPUTERNAME_LENGTH + 1> name{};
  DWORD nLength = name.size();
  if (!GetComputerNameW(name.data(), &nLength)) return std::nullopt;
  return to_utf8(std::wstring_view(name.data(), nLength));
}

void WindowsPlatform::StartHelpViewer(std::string_view sPath) {
  std::wstring sCommand = L"hh.exe " + to_wide(sPath);
  STARTUPINFOW startup{};
  startup.cb = sizeof(startup);
  startup.dwFlags = STARTF_USESHOWWINDOW;
  startup.wShowWindow = SW_SHOWNORMAL;
  PROCESS_INFORMATION process{};
  if (!CreateProcessW(nullptr, sCommand.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &process)) {
    throw AutomationError(kFileNotFound, "Platform", "File not found: hh.exe");
  }
  CloseHandle(process.hThread);
  CloseHandle(process.hProcess);
}

void WindowsPlatform::SetFileAttributes(std::string_view sPath, int nAttributes) {
  const std::wstring sWide = to_wide(sPath);
  attributes_of(sWide);
  if (!SetFileAttributesW(sWide.c_str(), static_cast<DWORD>(nAttributes) & kAttributeBits)) {
    throw AutomationError(kPathAccess, "Platform", "Path/File access error");
  }
}

}  // namespace

Platform& windows_platform() {
  static WindowsPlatform platform;
  return platform;
}

}  // namespace arap::com
