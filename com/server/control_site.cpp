#include "server/control_site.h"

#include "bridge/errors.h"

namespace arap::com {

void ControlSite::hold(IUnknown* control, const RECT& place) {
  place_ = place;
  control_ = query<IOleObject>(control);
  if (!control_) throw AutomationError(ErrorNumber::TypeMismatch);
  check(control_->SetClientSite(this));
  // A new control has no stored state to start from.
  if (const ComPtr<IPersistStreamInit> stored = query<IPersistStreamInit>(control)) stored->InitNew();
  check(control_->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, this, 0, window_, &place_));
}

void ControlSite::move(const RECT& place) {
  place_ = place;
  if (const ComPtr<IOleInPlaceObject> in_place = query<IOleInPlaceObject>(control_.get())) {
    in_place->SetObjectRects(&place_, &place_);
  }
}

bool ControlSite::takes(MSG& message) { return active_ && active_->TranslateAccelerator(&message) == S_OK; }

void ControlSite::release() {
  active_ = nullptr;
  const ComPtr<IOleObject> control = std::move(control_);
  if (!control) return;
  control->Close(OLECLOSE_NOSAVE);
  control->SetClientSite(nullptr);
}

HRESULT ControlSite::QueryInterface(REFIID id, void** out) {
  if (out == nullptr) return E_POINTER;
  IUnknown* found = nullptr;
  if (id == IID_IUnknown || id == IID_IOleClientSite) found = static_cast<IOleClientSite*>(this);
  if (id == IID_IOleWindow || id == IID_IOleInPlaceSite || id == IID_IOleInPlaceSiteEx) {
    found = static_cast<IOleInPlaceSiteEx*>(this);
  }
  if (id == IID_IOleInPlaceUIWindow || id == IID_IOleInPlaceFrame) found = static_cast<IOleInPlaceFrame*>(this);
  *out = found;
  if (found == nullptr) return E_NOINTERFACE;
  found->AddRef();
  return S_OK;
}

ULONG ControlSite::Release() {
  const ULONG nLeft = shares_.drop();
  if (nLeft == 0) delete this;
  return nLeft;
}

HRESULT ControlSite::GetContainer(IOleContainer** out) {
  if (out != nullptr) *out = nullptr;
  return E_NOINTERFACE;
}

HRESULT ControlSite::GetWindow(HWND* out) {
  if (out == nullptr) return E_POINTER;
  *out = window_;
  return S_OK;
}

HRESULT ControlSite::GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document, LPRECT place,
                                      LPRECT clip, LPOLEINPLACEFRAMEINFO info) {
  if (frame == nullptr || document == nullptr || place == nullptr || clip == nullptr || info == nullptr) {
    return E_POINTER;
  }
  AddRef();
  *frame = this;
  *document = nullptr;  // the frame is the document window too
  *place = place_;
  *clip = place_;
  info->fMDIApp = FALSE;
  info->hwndFrame = window_;
  info->haccel = nullptr;
  info->cAccelEntries = 0;
  return S_OK;
}

HRESULT ControlSite::OnPosRectChange(LPCRECT place) {
  if (place == nullptr) return E_POINTER;
  move(*place);
  return S_OK;
}

HRESULT ControlSite::OnInPlaceActivateEx(BOOL* bNoRedraw, DWORD) {
  if (bNoRedraw != nullptr) *bNoRedraw = FALSE;
  return S_OK;
}

HRESULT ControlSite::SetActiveObject(IOleInPlaceActiveObject* active, LPCOLESTR) {
  active_ = ComPtr<IOleInPlaceActiveObject>(active);
  return S_OK;
}

}  // namespace arap::com
