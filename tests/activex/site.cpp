#include "tests/activex/site.h"

#include <algorithm>
#include <utility>

namespace tabulon::client {

namespace {

constexpr wchar_t top_class[] = L"TabulonTestSite";
constexpr POINT on_screen{60, 60}, off_screen{5000, 5000};

HWND create_top(Site::Where where) {
  WNDCLASSW window_class{};
  window_class.lpfnWndProc = DefWindowProcW;
  window_class.lpszClassName = top_class;
  window_class.hbrBackground = GetSysColorBrush(COLOR_WINDOW);
  RegisterClassW(&window_class);
  const POINT at = where == Site::Where::OnScreen ? on_screen : off_screen;
  HWND const top = CreateWindowExW(0, top_class, L"Site", WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, at.x, at.y,
                                   800, 500, nullptr, nullptr, nullptr, nullptr);
  ShowWindow(top, where == Site::Where::OnScreen ? SW_SHOW : SW_SHOWNA);
  return top;
}

HWND create_child(HWND top, const wchar_t* window_class, DWORD style, const RECT& at) {
  return CreateWindowExW(0, window_class, nullptr, WS_CHILD | WS_VISIBLE | style, at.left, at.top,
                         at.right - at.left, at.bottom - at.top, top, nullptr, nullptr, nullptr);
}

std::string with(std::string call, const std::string& argument) {
  return std::move(call) + "(" + argument + ")";
}

}  // namespace

// ---- Frame

STDMETHODIMP Frame::GetWindow(HWND* window) {
  *window = window_;
  return S_OK;
}

STDMETHODIMP Frame::SetBorderSpace(LPCBORDERWIDTHS widths) {
  log_.add(with("frame.SetBorderSpace", widths ? "some" : "null"));
  return S_OK;
}

STDMETHODIMP Frame::SetActiveObject(IOleInPlaceActiveObject* object, LPCOLESTR) {
  active = object;
  log_.add(with("frame.SetActiveObject", object ? "it" : "null"));
  return S_OK;
}

STDMETHODIMP Frame::EnableModeless(BOOL enable) {
  log_.add(with("frame.EnableModeless", enable ? "true" : "false"));
  return S_OK;
}

// ---- Site

Site::Site(Where where)
    : top_(create_top(where)),
      window_(create_child(top_, top_class, WS_CLIPCHILDREN, {10, 10, 760, 400})),
      own_box_(create_child(top_, L"EDIT", WS_BORDER | WS_TABSTOP, {20, 420, 220, 444})),
      frame_(top_, log_) {
  if (where == Where::OnScreen) SetForegroundWindow(top_);
}

Site::~Site() {
  if (IsWindow(top_)) DestroyWindow(top_);
}

HRESULT Site::record(std::string call, HRESULT answer) {
  log_.add(std::move(call));
  return answer;
}

long Site::count(std::string_view call) const {
  return static_cast<long>(std::ranges::count(calls(), call));
}

STDMETHODIMP Site::QueryInterface(REFIID id, void** answer) {
  *answer = nullptr;
  if (id == IID_IUnknown || id == IID_IOleClientSite)
    *answer = static_cast<IOleClientSite*>(this);
  else if (has_places && (id == IID_IOleWindow || id == IID_IOleInPlaceSite))
    *answer = static_cast<IOleInPlaceSite*>(this);
  else if (id == IID_IOleControlSite)
    *answer = static_cast<IOleControlSite*>(this);
  else if (id == IID_IDispatch)
    *answer = static_cast<IDispatch*>(this);
  if (!*answer) return E_NOINTERFACE;
  AddRef();
  return S_OK;
}

STDMETHODIMP Site::GetMoniker(DWORD, DWORD, IMoniker** out) {
  *out = nullptr;
  return E_NOTIMPL;
}

STDMETHODIMP Site::GetContainer(IOleContainer** out) {
  *out = nullptr;
  return E_NOINTERFACE;
}

STDMETHODIMP Site::GetWindow(HWND* window) {
  *window = SUCCEEDED(on_window) ? window_ : nullptr;
  return record("GetWindow", on_window);
}

// The frame is handed over also by a container that then fails, as careless ones do.
STDMETHODIMP Site::GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document, LPRECT wanted,
                                    LPRECT seen, LPOLEINPLACEFRAMEINFO info) {
  frame_.AddRef();
  *frame = &frame_;
  *document = nullptr;
  *wanted = place;
  *seen = clip;
  info->fMDIApp = FALSE;
  info->hwndFrame = top_;
  info->haccel = nullptr;
  info->cAccelEntries = 0;
  return record("GetWindowContext", on_context);
}

STDMETHODIMP Site::GetExtendedControl(IDispatch** out) {
  *out = nullptr;
  return E_NOTIMPL;
}

STDMETHODIMP Site::TranslateAccelerator(MSG* key, DWORD held) {
  return record(with("TranslateAccelerator", std::to_string(key->wParam) + ", " + std::to_string(held)),
                on_key);
}

STDMETHODIMP Site::OnFocus(BOOL has_focus) {
  return record(with("OnFocus", has_focus ? "true" : "false"));
}

STDMETHODIMP Site::Invoke(DISPID property, REFIID, LCID, WORD flags, DISPPARAMS*, VARIANT* value, EXCEPINFO*,
                          UINT*) {
  const bool known = property == DISPID_AMBIENT_USERMODE || property == DISPID_AMBIENT_UIDEAD;
  if (!known || !(flags & DISPATCH_PROPERTYGET) || !value) return DISP_E_MEMBERNOTFOUND;
  value->vt = VT_BOOL;
  value->boolVal = (property == DISPID_AMBIENT_USERMODE ? user_mode : ui_dead) ? VARIANT_TRUE : VARIANT_FALSE;
  return S_OK;
}

}  // namespace tabulon::client
