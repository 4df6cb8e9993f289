#include "server/grid_form.h"

#include <exception>

#include "bridge/bridge.h"
#include "bridge/errors.h"
#include "bridge/wide_text.h"
#include "frame/messages.h"
#include "frame/text_utils.h"
#include "server/control_site.h"
#include "server/module.h"

namespace arap::com {

namespace {

constexpr const wchar_t* kWindowClass = L"NUVARAPBillInterfaceGridForm";
constexpr int kWidth = 900;
constexpr int kHeight = 480;
constexpr int kMargin = 8;
constexpr int kButtonWidth = 90;
constexpr int kButtonHeight = 26;

ComPtr<IUnknown> create_control(std::string_view sProgID) {
  CLSID class_id{};
  ComPtr<IUnknown> control;
  HRESULT done = CLSIDFromProgID(to_wide(sProgID).c_str(), &class_id);
  if (SUCCEEDED(done)) {
    done = CoCreateInstance(class_id, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown, control.put_void());
  }
  if (FAILED(done)) throw AutomationError(ErrorNumber::CannotCreateObject, sProgID);
  return control;
}

/// The window around the control, and its life from load to the button.
class FormWindow {
 public:
  explicit FormWindow(GridForm& form);
  ~FormWindow();
  FormWindow(const FormWindow&) = delete;
  FormWindow& operator=(const FormWindow&) = delete;

  void run(IUnknown* control);

 private:
  static LRESULT CALLBACK on_message(HWND window, UINT message, WPARAM w, LPARAM l);
  void press(WORD nButton);
  void lay_out();
  RECT grid_place() const;
  void add_button(WORD nButton, std::string_view sText);

  GridForm& form_;
  HWND owner_;
  HWND window_ = nullptr;
  ComPtr<ControlSite> site_;
  bool bOpen_ = true;
  std::exception_ptr failure_;
};

void register_window_class(WNDPROC procedure) {
  WNDCLASSEXW window_class{};
  window_class.cbSize = sizeof(window_class);
  window_class.lpfnWndProc = procedure;
  window_class.hInstance = own_module();
  window_class.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  window_class.hbrBackground = reinterpret_cast<HBRUSH>(static_cast<INT_PTR>(COLOR_BTNFACE + 1));
  window_class.lpszClassName = kWindowClass;
  RegisterClassExW(&window_class);
}

FormWindow::FormWindow(GridForm& form) : form_(form), owner_(GetActiveWindow()) {
  register_window_class(&FormWindow::on_message);
  window_ = CreateWindowExW(WS_EX_DLGMODALFRAME, kWindowClass, to_wide(LoadText(kTitle)).c_str(),
                            WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_THICKFRAME | WS_CLIPCHILDREN, CW_USEDEFAULT,
                            CW_USEDEFAULT, kWidth, kHeight, owner_, nullptr, own_module(), this);
  if (window_ == nullptr) throw error_of(HRESULT_FROM_WIN32(GetLastError()));
  add_button(IDOK, LoadText("确定"));
  add_button(IDCANCEL, LoadText("取消"));
  site_ = ComPtr<ControlSite>::adopt(new ControlSite(window_));
}

FormWindow::~FormWindow() {
  site_->release();
  if (owner_ != nullptr) EnableWindow(owner_, TRUE);
  DestroyWindow(window_);
  UnregisterClassW(kWindowClass, own_module());
}

void FormWindow::add_button(WORD nButton, std::string_view sText) {
  CreateWindowExW(0, L"BUTTON", to_wide(sText).c_str(), WS_CHILD | WS_VISIBLE | WS_TABSTOP, 0, 0, kButtonWidth,
                  kButtonHeight, window_, reinterpret_cast<HMENU>(static_cast<INT_PTR>(nButton)), own_module(),
                  nullptr);
}

RECT FormWindow::grid_place() const {
  RECT place{};
  GetClientRect(window_, &place);
  InflateRect(&place, -kMargin, -kMargin);
  place.bottom -= kButtonHeight + kMargin;
  return place;
}

void FormWindow::lay_out() {
  RECT client{};
  GetClientRect(window_, &client);
  const int nTop = client.bottom - kMargin - kButtonHeight;
  int nLeft = client.right;
  for (const int nButton : {IDCANCEL, IDOK}) {
    nLeft -= kButtonWidth + kMargin;
    MoveWindow(GetDlgItem(window_, nButton), nLeft, nTop, kButtonWidth, kButtonHeight, TRUE);
  }
  if (site_) site_->move(grid_place());
}

void FormWindow::run(IUnknown* control) {
  lay_out();
  site_->hold(control, grid_place());
  form_.Form_Load(object_of(control));
  if (owner_ != nullptr) EnableWindow(owner_, FALSE);
  ShowWindow(window_, SW_SHOW);
  MSG message;
  while (bOpen_ && GetMessageW(&message, nullptr, 0, 0) > 0) {
    if (site_->takes(message) || IsDialogMessageW(window_, &message)) continue;
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
  // The end of the program came while the form was open: it is for the host's own loop.
  if (bOpen_) PostQuitMessage(0);
  if (failure_) std::rethrow_exception(failure_);
}

/// No exception may pass through the window procedure: it waits for the end of the loop.
void FormWindow::press(WORD nButton) {
  if (!bOpen_) return;
  bOpen_ = false;
  try {
    nButton == IDOK ? form_.CmdOk_Click() : form_.CmdCancel_Click();
  } catch (...) {
    failure_ = std::current_exception();
  }
}

LRESULT CALLBACK FormWindow::on_message(HWND window, UINT message, WPARAM w, LPARAM l) {
  if (message == WM_NCCREATE) {
    SetWindowLongPtrW(window, GWLP_USERDATA,
                      reinterpret_cast<LONG_PTR>(reinterpret_cast<CREATESTRUCTW*>(l)->lpCreateParams));
  }
  auto* const self = reinterpret_cast<FormWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (self != nullptr && message == WM_SIZE && self->window_ != nullptr) self->lay_out();
  if (self != nullptr && message == WM_CLOSE) {
    self->press(IDCANCEL);
    return 0;
  }
  if (self != nullptr && message == WM_COMMAND && (LOWORD(w) == IDOK || LOWORD(w) == IDCANCEL)) {
    self->press(LOWORD(w));
    return 0;
  }
  return DefWindowProcW(window, message, w, l);
}

}  // namespace

void show_grid_form(GridForm& form, std::string_view sProgID) {
  const ComPtr<IUnknown> control = create_control(sProgID);
  FormWindow(form).run(control.get());
}

}  // namespace arap::com
