#include "com/scenarios/message_boxes.h"

#include <gtest/gtest.h>

#include <utility>

#include "bridge/wide_text.h"
#include "frame/platform.h"

namespace arap::testing {

namespace {

constexpr wchar_t kBoxClass[] = L"#32770";
constexpr int kTextId = 65535;
constexpr wchar_t kSeen[] = L"SeenByTheScript";
constexpr UINT_PTR kTimer = 4711;

std::string text_of(HWND window) {
  std::wstring sText(static_cast<std::size_t>(GetWindowTextLengthW(window)), L'\0');
  GetWindowTextW(window, sText.data(), static_cast<int>(sText.size()) + 1);
  return com::to_utf8(sText);
}

int button_style(HWND box) {
  // A box has every button; those that it doesn't show are hidden.
  const auto has = [box](int nId) {
    const HWND button = GetDlgItem(box, nId);
    return button != nullptr && (GetWindowLongW(button, GWL_STYLE) & WS_VISIBLE) != 0;
  };
  if (has(IDABORT)) return MB_ABORTRETRYIGNORE;
  if (has(IDRETRY)) return MB_RETRYCANCEL;
  if (has(IDYES)) return has(IDCANCEL) ? MB_YESNOCANCEL : MB_YESNO;
  return has(IDCANCEL) ? MB_OKCANCEL : MB_OK;
}

int g_expected_icon = 0;

int icon_style(HWND box) {
  HICON icon = nullptr;
  for (HWND child = nullptr; (child = FindWindowExW(box, child, L"Static", nullptr)) != nullptr;) {
    const auto nStyle = static_cast<DWORD>(GetWindowLongW(child, GWL_STYLE));
    if ((nStyle & SS_TYPEMASK) == SS_ICON) icon = reinterpret_cast<HICON>(SendMessageW(child, STM_GETICON, 0, 0));
  }
  if (icon == nullptr) return g_expected_icon;
  if (icon == LoadIconW(nullptr, IDI_INFORMATION)) return MB_ICONINFORMATION;
  if (icon == LoadIconW(nullptr, IDI_WARNING)) return MB_ICONWARNING;
  if (icon == LoadIconW(nullptr, IDI_QUESTION)) return MB_ICONQUESTION;
  return MB_ICONERROR;
}

thread_local HWND g_open_box = nullptr;

/// The box is in its own loop now, as when a user sits before it. It is shown when the loop has found its queue empty;
/// nobody answers sooner.
void CALLBACK answer_box(HWND box, UINT, UINT_PTR nTimer, DWORD) {
  if (!IsWindowVisible(box)) return;
  KillTimer(box, nTimer);
  const HWND outer = std::exchange(g_open_box, box);
  int nAnswer = IDOK;
  try {
    const BoxOnScreen shown = read_box(box);
    nAnswer = CurrentPlatform().MsgBox(shown.sText, shown.nButtons, shown.sTitle);
  } catch (const AutomationError& error) {
    ADD_FAILURE() << "a box without a script: " << error.description();
  }
  g_open_box = outer;
  PostMessageW(box, WM_COMMAND, static_cast<WPARAM>(nAnswer), 0);
}

LRESULT CALLBACK on_window(int nCode, WPARAM window, LPARAM data) {
  if (nCode == HCBT_ACTIVATE) {
    const HWND box = reinterpret_cast<HWND>(window);
    wchar_t sClass[16] = {};
    GetClassNameW(box, sClass, 16);
    // A box is activated before it has its texts, and perhaps again later.
    if (std::wstring_view(sClass) == kBoxClass && GetPropW(box, kSeen) == nullptr) {
      SetPropW(box, kSeen, box);
      SetTimer(box, kTimer, 0, answer_box);
    }
  }
  return CallNextHookEx(nullptr, nCode, window, data);
}

}  // namespace

void expect_icon(UINT nStyle) { g_expected_icon = static_cast<int>(nStyle & MB_ICONMASK); }

BoxOnScreen read_box(HWND box) {
  return {text_of(GetDlgItem(box, kTextId)), text_of(box), button_style(box) | icon_style(box)};
}

HWND open_box() { return g_open_box; }

MessageBoxes::MessageBoxes() : hook_(SetWindowsHookExW(WH_CBT, on_window, nullptr, GetCurrentThreadId())) {}
MessageBoxes::~MessageBoxes() { UnhookWindowsHookEx(hook_); }

}  // namespace arap::testing
