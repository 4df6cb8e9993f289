#pragma once

#include "bridge/handles.h"

namespace arap::com {

/// A window that holds one ActiveX control in place, and nothing more: no menus, no toolbars, no saving.
class ControlSite final : public IOleClientSite, public IOleInPlaceSiteEx, public IOleInPlaceFrame {
 public:
  /// The window outlives the site.
  explicit ControlSite(HWND window) : window_(window) {}
  ControlSite(const ControlSite&) = delete;
  ControlSite& operator=(const ControlSite&) = delete;

  /// Activates the control in that part of the window. Raises the control's error.
  void hold(IUnknown* control, const RECT& place);
  void move(const RECT& place);
  /// Gives the message to the control first; true when it took it.
  bool takes(MSG& message);
  /// Lets go of the control.
  void release();

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** out) override;
  ULONG STDMETHODCALLTYPE AddRef() override { return shares_.add(); }
  ULONG STDMETHODCALLTYPE Release() override;

  // IOleClientSite
  HRESULT STDMETHODCALLTYPE SaveObject() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetMoniker(DWORD, DWORD, IMoniker**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetContainer(IOleContainer** out) override;
  HRESULT STDMETHODCALLTYPE ShowObject() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE OnShowWindow(BOOL) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE RequestNewObjectLayout() override { return E_NOTIMPL; }

  // IOleWindow
  HRESULT STDMETHODCALLTYPE GetWindow(HWND* out) override;
  HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }

  // IOleInPlaceSite
  HRESULT STDMETHODCALLTYPE CanInPlaceActivate() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE OnInPlaceActivate() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE OnUIActivate() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document, LPRECT place,
                                             LPRECT clip, LPOLEINPLACEFRAMEINFO info) override;
  HRESULT STDMETHODCALLTYPE Scroll(SIZE) override { return S_FALSE; }
  HRESULT STDMETHODCALLTYPE OnUIDeactivate(BOOL) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE OnInPlaceDeactivate() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE DiscardUndoState() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE DeactivateAndUndo() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE OnPosRectChange(LPCRECT place) override;

  // IOleInPlaceSiteEx
  HRESULT STDMETHODCALLTYPE OnInPlaceActivateEx(BOOL* bNoRedraw, DWORD) override;
  HRESULT STDMETHODCALLTYPE OnInPlaceDeactivateEx(BOOL) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE RequestUIActivate() override { return S_OK; }

  // IOleInPlaceUIWindow, IOleInPlaceFrame
  HRESULT STDMETHODCALLTYPE GetBorder(LPRECT) override { return INPLACE_E_NOTOOLSPACE; }
  HRESULT STDMETHODCALLTYPE RequestBorderSpace(LPCBORDERWIDTHS) override { return INPLACE_E_NOTOOLSPACE; }
  HRESULT STDMETHODCALLTYPE SetBorderSpace(LPCBORDERWIDTHS) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE SetActiveObject(IOleInPlaceActiveObject* active, LPCOLESTR) override;
  HRESULT STDMETHODCALLTYPE InsertMenus(HMENU, LPOLEMENUGROUPWIDTHS) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE SetMenu(HMENU, HOLEMENU, HWND) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE RemoveMenus(HMENU) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE SetStatusText(LPCOLESTR) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE EnableModeless(BOOL) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE TranslateAccelerator(LPMSG, WORD) override { return S_FALSE; }

 private:
  ~ControlSite() = default;

  LiveObject live_;
  ShareCount shares_;
  HWND window_;
  RECT place_{};
  ComPtr<IOleObject> control_;
  ComPtr<IOleInPlaceActiveObject> active_;
};

}  // namespace arap::com
