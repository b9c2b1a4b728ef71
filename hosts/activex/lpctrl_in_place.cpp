// The control's windows inside the container's.
#include <span>
#include <utility>

#include "hosts/activex/key_messages.h"
#include "hosts/activex/lpctrl_object.h"

namespace tabulon::activex {

namespace {

VARIANT lent(short& number) {
  VARIANT variable{};
  variable.vt = VT_BYREF | VT_I2;
  variable.piVal = &number;
  return variable;
}

VARIANT value(short number) {
  VARIANT given{};
  given.vt = VT_I2;
  given.iVal = number;
  return given;
}

VARIANT value(LONG number) {
  VARIANT given{};
  given.vt = VT_R4;
  given.fltVal = static_cast<float>(number);
  return given;
}

}  // namespace

// ---- Coming and going

// The windows may have been destroyed with the container's.
HRESULT LPctrlObject::activate() {
  if (place_.is(InPlaceState::Inside) && !view_.window()) InPlaceDeactivate();
  if (place_.is(InPlaceState::Outside))
    if (const HRESULT entered = enter_site(); FAILED(entered)) return entered;
  if (!place_.is(InPlaceState::Inside) || !view_.window())
    return E_UNEXPECTED;  // from within a call to the container
  show_surface();
  return S_OK;
}

HRESULT LPctrlObject::enter_site() {
  place_.step(InPlaceStep::Enter);
  HRESULT answer = open_in_site();
  if (SUCCEEDED(answer) && !place_.step(InPlaceStep::Arrive)) answer = E_FAIL;
  if (FAILED(answer)) {
    place_.step(InPlaceStep::End);
    return answer;
  }
  follow_ambient();
  if (const ComPtr<IOleClientSite> shown_by = site_) shown_by->ShowObject();
  return view_.window() ? S_OK : E_FAIL;
}

// In each of these calls the container may deactivate it again.
HRESULT LPctrlObject::open_in_site() {
  const auto site = ComPtr<IOleInPlaceSite>::from(site_.get(), IID_IOleInPlaceSite);
  if (!site || site->CanInPlaceActivate() != S_OK) return E_FAIL;
  in_place_site_ = site;
  HWND parent = nullptr;
  RECT wanted{}, clip{};
  OLEINPLACEFRAMEINFO info{};
  info.cb = sizeof info;
  HRESULT answer = site->OnInPlaceActivate();
  if (FAILED(answer)) return leave_site(), answer;
  if (in_place_site_) answer = site->GetWindow(&parent);
  if (in_place_site_ && SUCCEEDED(answer))
    answer = site->GetWindowContext(frame_.receive(), document_.receive(), &wanted, &clip, &info);
  if (!in_place_site_) return leave_site(), E_FAIL;
  if (SUCCEEDED(answer) && !view_.open(parent, {wanted.left, wanted.top})) answer = E_FAIL;
  if (FAILED(answer)) {
    leave_site();
    site->OnInPlaceDeactivate();
    return answer;
  }
  place(wanted, clip);
  return S_OK;
}

void LPctrlObject::leave_site() {
  in_place_site_ = {};
  frame_ = {};
  document_ = {};
}

void LPctrlObject::show_surface() {
  HWND const window = view_.window();
  if ((GetWindowLongW(window, GWL_STYLE) & WS_VISIBLE) != 0) return;
  ShowWindow(window, SW_SHOWNA);
  dispatcher().handle([&] { host().desk().call(control_, control_.UserControl_Show()); });
}

// The container decides the position; the size is fixed.
void LPctrlObject::place(const RECT& wanted, const RECT& clip) {
  const auto [width, height] = view_.size();
  const RECT own{wanted.left, wanted.top, wanted.left + width, wanted.top + height};
  RECT seen{};
  IntersectRect(&seen, &own, &clip);
  HRGN region = nullptr;  // all of it
  if (!EqualRect(&seen, &own)) {
    OffsetRect(&seen, -own.left, -own.top);
    region = CreateRectRgnIndirect(&seen);
  }
  SetWindowRgn(view_.window(), region, TRUE);
  SetWindowPos(view_.window(), nullptr, own.left, own.top, width, height, SWP_NOZORDER | SWP_NOACTIVATE);
}

HRESULT LPctrlObject::activate_ui() {
  if (ui_.is(UiState::Deactivating)) return E_UNEXPECTED;  // from within a call to the container
  if (const HRESULT active = activate(); FAILED(active)) return active;
  HWND const window = view_.window(), focus = GetFocus();
  if (!window) return E_FAIL;  // deactivated as it was shown
  if (focus != window && !IsChild(window, focus)) SetFocus(window);
  become_ui_active();
  return S_OK;
}

void LPctrlObject::become_ui_active() {
  if (!place_.is(InPlaceState::Inside) || !ui_.step(UiStep::Activate)) return;
  const ComPtr<IOleInPlaceSite> site = in_place_site_;
  const ComPtr<IOleInPlaceFrame> frame = frame_;
  const ComPtr<IOleInPlaceUIWindow> document = document_;
  const auto goes_on = [this] { return ui_.is(UiState::Activating); };
  if (FAILED(site->OnUIActivate())) ui_.step(UiStep::Refused);
  if (goes_on() && frame) frame->SetActiveObject(this, L"LPctrl");
  if (goes_on() && document) document->SetActiveObject(this, L"LPctrl");
  if (goes_on() && frame) frame->SetBorderSpace(nullptr);
  if (goes_on()) ui_.step(UiStep::Done);
}

// ---- IOleInPlaceObject

STDMETHODIMP LPctrlObject::GetWindow(HWND* window) {
  if (!window) return E_POINTER;
  *window = view_.window();
  return *window ? S_OK : E_FAIL;
}

STDMETHODIMP LPctrlObject::InPlaceDeactivate() {
  const bool was_entering = place_.is(InPlaceState::Entering);  // then enter_site makes the last step
  if (!in_place_site_ || !place_.step(InPlaceStep::Leave)) return S_OK;
  const ComPtr<ILPctrl> alive(this);
  UIDeactivate();
  if (control_.has_focus()) dispatcher().handle([&] { host().focus_went(control_); });
  const ComPtr<IOleInPlaceSite> site = std::move(in_place_site_);
  leave_site();
  view_.close();
  site->OnInPlaceDeactivate();
  if (!was_entering) place_.step(InPlaceStep::End);
  return S_OK;
}

STDMETHODIMP LPctrlObject::UIDeactivate() {
  if (!ui_.step(UiStep::Deactivate)) return S_OK;
  const ComPtr<ILPctrl> alive(this);
  const ComPtr<IOleInPlaceSite> site = in_place_site_;
  const ComPtr<IOleInPlaceFrame> frame = frame_;
  if (const ComPtr<IOleInPlaceUIWindow> document = document_) document->SetActiveObject(nullptr, nullptr);
  if (frame) frame->SetActiveObject(nullptr, nullptr);
  if (site) site->OnUIDeactivate(FALSE);
  ui_.step(UiStep::Done);
  return S_OK;
}

STDMETHODIMP LPctrlObject::SetObjectRects(LPCRECT wanted, LPCRECT clip) {
  if (!wanted) return E_INVALIDARG;
  if (!view_.window()) return E_UNEXPECTED;
  view_.follow_density();
  place(*wanted, clip ? *clip : *wanted);
  return S_OK;
}

// ---- IOleInPlaceActiveObject

STDMETHODIMP LPctrlObject::TranslateAccelerator(MSG* message) {
  if (!message) return E_POINTER;
  const ComPtr<ILPctrl> alive(this);
  HWND const window = view_.window();
  const bool is_ours = window && (message->hwnd == window || IsChild(window, message->hwnd));
  return is_ours && is_key_press(message->message) && view_.keyboard().press(*message) ? S_OK : S_FALSE;
}

// ---- ViewSite

void LPctrlObject::focus_changed(bool has_focus) {
  if (has_focus) become_ui_active();
  if (has_focus && !view_.window()) return;  // the container has deactivated it meanwhile
  if (const auto site = ComPtr<IOleControlSite>::from(site_.get(), IID_IOleControlSite))
    site->OnFocus(has_focus);
}

// The same frame is enabled that was disabled, although the control may have left it meanwhile.
void LPctrlObject::enable_modeless(bool enabled) {
  if (!enabled) disabled_.push_back(frame_);
  const ComPtr<IOleInPlaceFrame> frame = disabled_.back();
  if (enabled) disabled_.pop_back();
  if (frame) frame->EnableModeless(enabled);
}

bool LPctrlObject::pass_on(const MSG& key) {
  const auto site = ComPtr<IOleControlSite>::from(site_.get(), IID_IOleControlSite);
  MSG message = key;
  return site && site->TranslateAccelerator(&message, static_cast<DWORD>(pressed_modifiers())) == S_OK;
}

void LPctrlObject::fire_click(DISPID event) {
  events_.fire(event, {});
}

// The event of a character carries no modifiers.
short LPctrlObject::fire_key(DISPID event, short code, short modifiers) {
  VARIANT arguments[] = {lent(code), value(modifiers)};
  events_.fire(event, std::span(arguments, event == DISPID_KEYPRESS ? 1 : 2));
  return code;
}

void LPctrlObject::fire_mouse(DISPID event, short button, short modifiers, POINT at) {
  VARIANT arguments[] = {value(button), value(modifiers), value(at.x), value(at.y)};
  events_.fire(event, arguments);
}

}  // namespace tabulon::activex
