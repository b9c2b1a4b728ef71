// The control as an OLE object and as an OLE control.
#include <cmath>
#include <vector>

#include "hosts/activex/lpctrl_object.h"
#include "platform/captions.h"

namespace tabulon::activex {

namespace {

// Twips to hundredths of a millimetre.
LONG himetric(platform::Twips twips) {
  return std::lround(twips * 2540 / 1440);
}

// With Alt, each letter opens the menu of a button.
std::vector<ACCEL> menu_keys(const platform::Surface& surface) {
  std::vector<ACCEL> keys;
  for (const platform::Control* control : surface.controls()) {
    const bool is_menu_button = control->kind() == platform::Kind::CommandButton && !control->container();
    const int letter = is_menu_button ? platform::access_key(control->text()) : 0;
    if (letter != 0)
      keys.push_back({FALT | FVIRTKEY, static_cast<WORD>(letter), static_cast<WORD>(keys.size())});
  }
  return keys;
}

}  // namespace

// ---- IOleObject

STDMETHODIMP LPctrlObject::SetClientSite(IOleClientSite* site) {
  site_ = ComPtr<IOleClientSite>(site);
  return S_OK;
}

STDMETHODIMP LPctrlObject::GetClientSite(IOleClientSite** out) {
  if (!out) return E_POINTER;
  *out = ComPtr(site_).detach();
  return S_OK;
}

// The control has nothing to save.
STDMETHODIMP LPctrlObject::Close(DWORD) {
  const ComPtr<ILPctrl> alive(this);
  dispatcher().after_event([this, alive] { host().abandon(control_); });
  InPlaceDeactivate();
  if (advised_) advised_->SendOnClose();
  return S_OK;
}

STDMETHODIMP LPctrlObject::GetMoniker(DWORD, DWORD, IMoniker** out) {
  if (out) *out = nullptr;
  return out ? E_NOTIMPL : E_POINTER;
}

STDMETHODIMP LPctrlObject::GetClipboardData(DWORD, IDataObject** out) {
  if (out) *out = nullptr;
  return out ? E_NOTIMPL : E_POINTER;
}

STDMETHODIMP LPctrlObject::DoVerb(LONG verb, MSG*, IOleClientSite* site, LONG, HWND, LPCRECT) {
  const ComPtr<ILPctrl> alive(this);
  if (site && !site_) SetClientSite(site);
  switch (verb) {
    case OLEIVERB_SHOW:
    case OLEIVERB_INPLACEACTIVATE:
      return activate();
    case OLEIVERB_PRIMARY:
    case OLEIVERB_UIACTIVATE:
      return activate_ui();
    case OLEIVERB_HIDE:
      if (view_.window()) ShowWindow(view_.window(), SW_HIDE);
      return S_OK;
    default:
      return verb > 0 ? OLEOBJ_E_INVALIDVERB : E_NOTIMPL;
  }
}

STDMETHODIMP LPctrlObject::EnumVerbs(IEnumOLEVERB** out) {
  return out ? OleRegEnumVerbs(CLSID_LPctrl, out) : E_POINTER;
}

STDMETHODIMP LPctrlObject::GetUserType(DWORD form, LPOLESTR* out) {
  return out ? OleRegGetUserType(CLSID_LPctrl, form, out) : E_POINTER;
}

// Its size is fixed.
STDMETHODIMP LPctrlObject::SetExtent(DWORD aspect, SIZEL* size) {
  if (!size) return E_POINTER;
  SIZEL fixed{};
  if (const HRESULT known = GetExtent(aspect, &fixed); FAILED(known)) return known;
  return size->cx == fixed.cx && size->cy == fixed.cy ? S_OK : E_FAIL;
}

STDMETHODIMP LPctrlObject::GetExtent(DWORD aspect, SIZEL* size) {
  if (!size) return E_POINTER;
  if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
  *size = {himetric(LPctrl::fixed_width), himetric(LPctrl::fixed_height)};
  return S_OK;
}

STDMETHODIMP LPctrlObject::Advise(IAdviseSink* sink, DWORD* cookie) {
  if (!cookie) return E_POINTER;
  *cookie = 0;
  if (!advised_)
    if (const HRESULT made = CreateOleAdviseHolder(advised_.receive()); FAILED(made)) return made;
  return advised_->Advise(sink, cookie);
}

STDMETHODIMP LPctrlObject::Unadvise(DWORD cookie) {
  return advised_ ? advised_->Unadvise(cookie) : OLE_E_NOCONNECTION;
}

STDMETHODIMP LPctrlObject::EnumAdvise(IEnumSTATDATA** out) {
  if (!out) return E_POINTER;
  *out = nullptr;
  return advised_ ? advised_->EnumAdvise(out) : S_OK;
}

STDMETHODIMP LPctrlObject::GetMiscStatus(DWORD, DWORD* status) {
  if (!status) return E_POINTER;
  *status = misc_status;
  return S_OK;
}

// ---- IOleControl

STDMETHODIMP LPctrlObject::GetControlInfo(CONTROLINFO* info) {
  if (!info) return E_POINTER;
  if (info->cb < sizeof *info) return E_INVALIDARG;
  std::vector<ACCEL> keys = menu_keys(control_);
  const auto count = static_cast<int>(keys.size());
  if (!accelerators_) accelerators_ = CreateAcceleratorTableW(keys.data(), count);
  info->hAccel = accelerators_;
  info->cAccel = static_cast<USHORT>(count);
  info->dwFlags = 0;
  return S_OK;
}

// The access key of a menu, pressed while another control of the container has the focus.
STDMETHODIMP LPctrlObject::OnMnemonic(MSG* message) {
  if (!message) return E_POINTER;
  const ComPtr<ILPctrl> alive(this);
  if (const HRESULT active = activate_ui(); FAILED(active)) return active;
  return view_.keyboard().press(*message) ? S_OK : S_FALSE;
}

STDMETHODIMP LPctrlObject::OnAmbientPropertyChange(DISPID property) {
  const bool matters =
      property == DISPID_UNKNOWN || property == DISPID_AMBIENT_USERMODE || property == DISPID_AMBIENT_UIDEAD;
  if (matters) follow_ambient();
  return S_OK;
}

STDMETHODIMP LPctrlObject::FreezeEvents(BOOL freeze) {
  events_.freeze(freeze != FALSE);
  return S_OK;
}

bool LPctrlObject::ambient(DISPID property, bool otherwise) const {
  const auto container = ComPtr<IDispatch>::from(site_.get(), IID_IDispatch);
  if (!container) return otherwise;
  DISPPARAMS none{};
  Variant value;
  const HRESULT answered = container->Invoke(property, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET,
                                             &none, &value, nullptr, nullptr);
  return SUCCEEDED(answered) && value.vt == VT_BOOL ? value.boolVal != VARIANT_FALSE : otherwise;
}

// The control accepts no input in design mode, or while the container is in break mode.
void LPctrlObject::follow_ambient() {
  if (!view_.window()) return;
  EnableWindow(view_.window(),
               ambient(DISPID_AMBIENT_USERMODE, true) && !ambient(DISPID_AMBIENT_UIDEAD, false));
}

}  // namespace tabulon::activex
