#include "hosts/activex/surface_view.h"

#include <olectl.h>

#include <algorithm>
#include <iterator>
#include <optional>
#include <utility>

#include "hosts/activex/library.h"
#include "hosts/activex/names.h"
#include "hosts/activex/painting.h"
#include "hosts/activex/text.h"
#include "hosts/activex/window_text.h"
#include "hosts/activex/windows_host.h"

namespace tabulon::activex {

using namespace platform;

namespace {

// A function that the older systems do not have; null there.
template <class Function>
Function function_of_user(const char* name) {
  return reinterpret_cast<Function>(
      reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"user32.dll"), name)));
}

constexpr UINT dpi_changed = 0x02E0, dpi_changed_after_parent = 0x02E3;
constexpr DWORD form_style = WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_CLIPCHILDREN;
constexpr DWORD form_extended = WS_EX_DLGMODALFRAME;

// The keys that a surface knows, by the system's numbers, which are its own too.
constexpr int known_keys[] = {key::back,    key::tab,       key::enter, key::escape, key::space,
                              key::page_up, key::page_down, key::end,   key::home,   key::left,
                              key::up,      key::right,     key::down,  key::f10};

bool is_known(int code) {
  return (code >= '0' && code <= '9') || (code >= 'A' && code <= 'Z') ||
         std::ranges::find(known_keys, code) != std::end(known_keys);
}

bool is_down(int key) {
  return GetKeyState(key) < 0;
}

bool is_repeated(const MSG& key) {
  return (key.lParam & (1 << 30)) != 0;
}

// The characters that the key has put in the queue already go with it.
void drop_characters(HWND window) {
  MSG character;
  while (PeekMessageW(&character, window, WM_CHAR, WM_DEADCHAR, PM_REMOVE) ||
         PeekMessageW(&character, window, WM_SYSCHAR, WM_SYSDEADCHAR, PM_REMOVE)) {
  }
}

// The place nearest to the wanted one that is on the screen.
RECT within_screen(RECT place, HWND near_to) {
  MONITORINFO monitor{};
  monitor.cbSize = sizeof monitor;
  GetMonitorInfoW(MonitorFromWindow(near_to, MONITOR_DEFAULTTONEAREST), &monitor);
  const RECT& screen = monitor.rcWork;
  OffsetRect(&place, std::min(0L, screen.right - place.right), std::min(0L, screen.bottom - place.bottom));
  OffsetRect(&place, std::max(0L, screen.left - place.left), std::max(0L, screen.top - place.top));
  return place;
}

// From a form's inside to its bounds, at this density.
void add_frame(RECT& place, int dpi) {
  using AdjustForDpi = BOOL(WINAPI*)(LPRECT, DWORD, BOOL, DWORD, UINT);
  static const auto adjust_for_dpi = function_of_user<AdjustForDpi>("AdjustWindowRectExForDpi");
  if (!adjust_for_dpi || !adjust_for_dpi(&place, form_style, FALSE, form_extended, static_cast<UINT>(dpi)))
    AdjustWindowRectEx(&place, form_style, FALSE, form_extended);
}

const wchar_t* cursor_of(const Control* control) {
  if (!control) return nullptr;
  if (is_handle(*control)) return IDC_SIZEALL;
  return control->kind() == Kind::Image && control->container() ? IDC_HAND : nullptr;
}

bool is_same(const MSG& one, const MSG& other) {
  return one.hwnd == other.hwnd && one.message == other.message && one.wParam == other.wParam &&
         one.lParam == other.lParam && one.time == other.time;
}

}  // namespace

int pressed_modifiers() {
  return (is_down(VK_SHIFT) ? modifier::shift : 0) + (is_down(VK_CONTROL) ? modifier::ctrl : 0) +
         (is_down(VK_MENU) ? modifier::alt : 0);
}

int dpi_of(HWND window) {
  using GetDpi = UINT(WINAPI*)(HWND);
  static const auto get_dpi = function_of_user<GetDpi>("GetDpiForWindow");
  if (window && get_dpi)
    if (const UINT dpi = get_dpi(window)) return static_cast<int>(dpi);
  HDC const screen = GetDC(nullptr);
  const int dpi = GetDeviceCaps(screen, LOGPIXELSY);
  ReleaseDC(nullptr, screen);
  return dpi;
}

SurfaceView::SurfaceView(WindowsHost& host, Surface& surface, ViewSite& site)
    : host_(host), surface_(&surface), site_(site), dpi_(dpi_of(nullptr)) {
  host_.add(*this);
}

SurfaceView::~SurfaceView() {
  close();
  host_.remove(*this);
}

// ---- Windows

SIZE SurfaceView::size() const {
  return {pixels_at(surface_->width(), dpi_), pixels_at(surface_->height(), dpi_)};
}

bool SurfaceView::create(const wchar_t* window_class, DWORD style, const RECT& place, HWND parent) {
  window_ = CreateWindowExW(surface_->is_form() ? form_extended : 0, window_class, nullptr, style, place.left,
                            place.top, place.right - place.left, place.bottom - place.top, parent, nullptr,
                            library().module, nullptr);
  if (!window_) return false;
  SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  create_controls();
  mirror();
  return true;
}

bool SurfaceView::open(HWND parent, POINT at) {
  dpi_ = dpi_of(parent);
  const auto [width, height] = size();
  return create(surface_class, WS_CHILD | WS_CLIPCHILDREN | WS_CLIPSIBLINGS,
                {at.x, at.y, at.x + width, at.y + height}, parent);
}

bool SurfaceView::open_form(HWND owner, HWND over) {
  owner_ = owner;
  dpi_ = dpi_of(over);
  const auto [width, height] = size();
  RECT place{0, 0, width, height}, around{};
  add_frame(place, dpi_);
  GetWindowRect(over ? over : GetDesktopWindow(), &around);
  OffsetRect(&place, (around.left + around.right - place.left - place.right) / 2,
             (around.top + around.bottom - place.top - place.bottom) / 2);
  return create(form_class, form_style, within_screen(place, over), owner);
}

void SurfaceView::show_form() {
  if (!window_ || IsWindowVisible(window_)) return;
  if (HWND const holder = GetCapture()) SendMessageW(holder, WM_CANCELMODE, 0, 0);
  stopped_owner_ = owner_ && !EnableWindow(owner_, FALSE);
  ShowWindow(window_, SW_SHOW);
}

void SurfaceView::detach() {
  surface_ = nullptr;
  for (const auto& control : controls_)
    if (control) control->forget_control();
  if (!window_ || (GetWindowLongW(window_, GWL_STYLE) & WS_CHILD)) return;
  // The owner first: a window that disappears gives the keyboard to one that takes it.
  if (std::exchange(stopped_owner_, false)) EnableWindow(owner_, TRUE);
  if (owner_ && GetActiveWindow() == window_) SetActiveWindow(owner_);
  ShowWindow(window_, SW_HIDE);
}

void SurfaceView::close() {
  tool_tips_.close();
  if (HWND const window = std::exchange(window_, nullptr)) {
    SetWindowLongPtrW(window, GWLP_USERDATA, 0);
    host_.window_goes(window);
    DestroyWindow(window);
  }
  hot_ = nullptr;
  host_.release_later(std::make_shared<decltype(controls_)>(std::exchange(controls_, {})));
}

void SurfaceView::create_controls() {
  const std::vector<Control*>& controls = surface_->controls();
  controls_.resize(controls.size());
  std::ranges::transform(controls, controls_.begin(), [this](Control* control) {
    const bool has_window = control->kind() != Kind::Menu && control->kind() != Kind::Line;
    return has_window ? std::make_unique<ControlView>(*this, *control) : nullptr;
  });
  for (const auto& view : controls_)
    if (view) view->create_if_seen();
}

// ---- What is seen

ControlView* SurfaceView::view_of(const Control& control) const {
  const auto at = static_cast<std::size_t>(control.id());
  return at < controls_.size() ? controls_[at].get() : nullptr;
}

void SurfaceView::mirror() {
  if (!surface_) return;
  if (!window_) return site_.picture_changed();
  for (Control* control : surface_->controls()) {
    const Properties marked = control->take_changes();
    if (ControlView* const view = view_of(*control)) {
      if (!view->window() || !marked.none()) view->apply(marked);
    } else if (control->kind() == Kind::Line && !marked.none()) {
      mirror_line(*control);
    }
  }
  if (!surface_->is_form()) return site_.picture_changed();
  const std::wstring caption = wide(static_cast<const Form&>(*surface_).caption());
  if (window_text(window_) != caption) SetWindowTextW(window_, caption.c_str());
}

void SurfaceView::mirror_line(const Control& line) {
  const ControlView* const container = line.container() ? view_of(*line.container()) : nullptr;
  HWND const around = container ? container->window() : window_;
  if (around) RedrawWindow(around, nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN);
}

void SurfaceView::set_hot(ControlView* button) {
  ControlView* const before = std::exchange(hot_, button);
  for (ControlView* const changed : {before, button})
    if (changed && changed->control()) changed->repaint();
}

void SurfaceView::place_inside(const Control& container) {
  for (const auto& view : controls_)
    if (view && view->control() && view->control()->container() == &container) view->place();
}

void SurfaceView::focus_active() {
  if (!surface_ || !window_ || !surface_->has_focus() || !GetActiveWindow()) return;
  const Control* const active = surface_->active();
  ControlView* const view = active ? view_of(*active) : nullptr;
  HWND const target = view && view->window() ? view->window() : window_;
  if (GetFocus() != target) SetFocus(target);
  if (view && view->window()) view->select_if_wanted();
}

// The system suggests a place to windows that stand on no other.
void SurfaceView::density_changed(const RECT* suggested) {
  dpi_ = dpi_of(window_);
  RECT place{0, 0, size().cx, size().cy};
  if (surface_->is_form()) add_frame(place, dpi_);
  const POINT at = suggested ? POINT{suggested->left, suggested->top} : POINT{};
  SetWindowPos(window_, nullptr, at.x, at.y, place.right - place.left, place.bottom - place.top,
               SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOCOPYBITS | (suggested ? 0 : SWP_NOMOVE));
  for (const auto& view : controls_)
    if (view) view->density_changed();
  RedrawWindow(window_, nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN);
}

void SurfaceView::follow_density() {
  if (dpi_of(window_) != dpi_) density_changed(nullptr);
}

void SurfaceView::paint() {
  PAINTSTRUCT painting{};
  HDC const dc = BeginPaint(window_, &painting);
  if (surface_) print(dc);
  EndPaint(window_, &painting);
}

void SurfaceView::print(HDC dc) const {
  const Painter painter(dc, host_.fonts(), dpi_);
  painter.ground(*surface_, {0, 0});
  painter.lines(*surface_, nullptr, {0, 0});
}

bool SurfaceView::set_cursor(const Control* on) const {
  const wchar_t* const shape = busy_ ? IDC_WAIT : cursor_of(on);
  if (shape) SetCursor(LoadCursorW(nullptr, shape));
  return shape != nullptr;
}

// ---- Keys

bool SurfaceView::key_pressed(const MSG& key) {
  if (!surface_ || is_same(key, refused_)) return false;
  const bool used = host_.handle([&] {
    const bool taken = offer(key);
    if (taken) drop_characters(key.hwnd);
    if (!taken) refused_ = key;
    return taken;
  });
  return used || leave_by_tab(key);
}

// What is pressed on a form is no event of the control.
bool SurfaceView::offer(const MSG& pressed) {
  const int modifiers = pressed_modifiers();
  int code = static_cast<int>(pressed.wParam);
  if (!surface_->is_form())
    code = site_.fire_key(DISPID_KEYDOWN, static_cast<short>(code), static_cast<short>(modifiers));
  if (code == 0 || !surface_) return true;
  if (!is_known(code)) return false;
  const bool used =
      !host_.is_meant_for_top(is_repeated(pressed)) || host_.desk().key(*surface_, {code, modifiers});
  alt_used_ = used && (modifiers & modifier::alt) != 0;
  return used;
}

bool SurfaceView::key_released(MSG& key) {
  if (!surface_) return false;
  refused_ = {};
  const auto code = static_cast<short>(key.wParam);
  if (key.message != WM_CHAR) {
    if (!surface_->is_form()) site_.fire_key(DISPID_KEYUP, code, static_cast<short>(pressed_modifiers()));
    return key.wParam == VK_MENU && std::exchange(alt_used_, false);
  }
  // A box of one line would only beep at these.
  if (code == VK_TAB || code == VK_RETURN || code == VK_ESCAPE) return true;
  if (!surface_->is_form()) key.wParam = static_cast<WORD>(site_.fire_key(DISPID_KEYPRESS, code, 0));
  return key.wParam == 0;
}

// Out of the control, to what stands before or behind it in its container.
bool SurfaceView::leave_by_tab(const MSG& key) {
  if (key.wParam != VK_TAB || !surface_ || surface_->is_form() || is_down(VK_CONTROL) || is_down(VK_MENU))
    return false;
  if (site_.pass_on(key)) return true;
  HWND const next = GetNextDlgTabItem(GetAncestor(window_, GA_ROOT), window_, is_down(VK_SHIFT));
  if (next && next != window_ && !IsChild(window_, next) && !IsChild(next, window_)) SetFocus(next);
  return true;
}

// ---- Focus

void SurfaceView::focus_arrived(const ControlView* on) {
  if (!surface_ || host_.moves_focus()) return;
  host_.handle([&] {
    if (!surface_->has_focus()) host_.focus_came(*this);
    if (on && on->control() && on->control() != surface_->active()) host_.desk().focus(*on->control());
  });
}

// A window that is put aside, or waits for a dialog of its own, keeps its focus for when it comes back.
void SurfaceView::focus_left(HWND to) {
  if (!surface_ || surface_->is_form() || host_.moves_focus() || host_.form_is_open()) return;
  if (!to || to == window_ || IsChild(window_, to) || !IsWindowEnabled(GetAncestor(window_, GA_ROOT))) return;
  if (GetWindowThreadProcessId(to, nullptr) != GetCurrentThreadId() || !surface_->has_focus()) return;
  host_.handle([this] { host_.focus_went(*this); });
}

void SurfaceView::mouse_pressed() {
  if (surface_ && !surface_->is_form() && !surface_->has_focus() && !host_.form_is_open())
    host_.focus_came(*this);
}

// ---- Scroll bars

namespace {

// Where the thumb of a bar is dragged to.
int dragged_to(HWND window, const ScrollBar& bar) {
  SCROLLINFO info{};
  info.cbSize = sizeof info;
  info.fMask = SIF_TRACKPOS;
  GetScrollInfo(window, SB_CTL, &info);
  return bar.min() > bar.max() ? -info.nTrackPos : info.nTrackPos;
}

std::optional<int> value_after(int code, HWND window, const ScrollBar& bar) {
  switch (code) {
    case SB_LINEUP:
      return bar.stepped(-bar.small_change());
    case SB_LINEDOWN:
      return bar.stepped(bar.small_change());
    case SB_PAGEUP:
      return bar.stepped(-bar.large_change());
    case SB_PAGEDOWN:
      return bar.stepped(bar.large_change());
    case SB_TOP:
      return bar.min();
    case SB_BOTTOM:
      return bar.max();
    case SB_THUMBTRACK:
    case SB_THUMBPOSITION:
      return dragged_to(window, bar);
    default:
      return std::nullopt;
  }
}

}  // namespace

void SurfaceView::scroll(HWND window, int code) {
  const ControlView* const view = window ? ControlView::of(window) : nullptr;
  if (!view || !view->control()) return;
  auto& bar = static_cast<ScrollBar&>(*view->control());
  if (const auto value = value_after(code, window, bar))
    host_.handle([&] { host_.desk().scroll(bar, *value, code == SB_THUMBTRACK); });
}

// ---- Messages

LRESULT CALLBACK SurfaceView::procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
  auto* const view = reinterpret_cast<SurfaceView*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (!view) return DefWindowProcW(window, message, wparam, lparam);
  const WindowsHost::OnStack on_stack(view->host_);
  if (message != WM_NCDESTROY) return view->handle(message, wparam, lparam);
  SetWindowLongPtrW(window, GWLP_USERDATA, 0);
  view->window_ = nullptr;
  view->tool_tips_.close();
  view->give_up_form();
  return DefWindowProcW(window, message, wparam, lparam);
}

// A form that goes with its owner, and nobody has answered it: whoever waits for it waits in vain.
void SurfaceView::give_up_form() {
  if (!surface_ || !surface_->is_form()) return;
  Surface& opener = static_cast<Form&>(*surface_).owner();
  host_.after_event([&host = host_, &opener] { host.abandon(opener); });
}

LRESULT SurfaceView::handle(UINT message, WPARAM wparam, LPARAM lparam) {
  if (message == name_message()) return surface_ ? answer_text(surface_->name(), wparam) : 0;
  if (message == busy_message()) return busy_;
  if (!surface_) return DefWindowProcW(window_, message, wparam, lparam);
  switch (message) {
    case WM_ERASEBKGND:
      return TRUE;
    case WM_PAINT:
      paint();
      return 0;
    case WM_PRINTCLIENT:
      print(reinterpret_cast<HDC>(wparam));
      return 0;
    case WM_SETCURSOR:
      return set_cursor(nullptr) ? TRUE : DefWindowProcW(window_, message, wparam, lparam);
    case WM_SETFOCUS:
      focus_arrived(nullptr);
      return 0;
    case WM_KILLFOCUS:
      focus_left(reinterpret_cast<HWND>(wparam));
      return 0;
    case WM_CLOSE:
      host_.handle([this] { host_.desk().key(*surface_, {key::escape}); });
      return 0;
    case dpi_changed:
    case dpi_changed_after_parent:
      density_changed(reinterpret_cast<const RECT*>(lparam));
      return 0;
    case WM_LBUTTONDOWN:
    case WM_LBUTTONUP:
    case WM_LBUTTONDBLCLK:
    case WM_RBUTTONDOWN:
    case WM_RBUTTONUP:
    case WM_MOUSEMOVE:
      return handle_mouse(message, wparam, lparam);
    case WM_KEYDOWN:
    case WM_SYSKEYDOWN:
    case WM_KEYUP:
    case WM_SYSKEYUP:
    case WM_CHAR:
    case WM_GETDLGCODE:
      return handle_key(message, wparam, lparam);
    default:
      return handle_child(message, wparam, lparam);
  }
}

LRESULT SurfaceView::handle_key(UINT message, WPARAM wparam, LPARAM lparam) {
  if (message == WM_GETDLGCODE) return DLGC_WANTALLKEYS;
  const bool presses = message == WM_KEYDOWN || message == WM_SYSKEYDOWN;
  MSG key{window_, message, wparam, lparam, static_cast<DWORD>(GetMessageTime()), {}};
  if (presses ? key_pressed(key) : key_released(key)) return 0;
  return DefWindowProcW(window_, message, wparam, lparam);
}

// What the windows of the controls tell of themselves, and ask.
LRESULT SurfaceView::handle_child(UINT message, WPARAM wparam, LPARAM lparam) {
  HWND const child = reinterpret_cast<HWND>(lparam);
  switch (message) {
    case WM_CTLCOLOREDIT:
    case WM_CTLCOLORSTATIC:
    case WM_CTLCOLORBTN:
      if (const ControlView* const view = ControlView::of(child); view && view->control())
        return reinterpret_cast<LRESULT>(ground_brush(reinterpret_cast<HDC>(wparam), *view->control()));
      break;
    case WM_COMMAND:
      if (ControlView* const view = child ? ControlView::of(child) : nullptr;
          view && HIWORD(wparam) == EN_CHANGE)
        view->text_changed();
      return 0;
    case WM_HSCROLL:
    case WM_VSCROLL:
      scroll(child, LOWORD(wparam));
      return 0;
    default:
      break;
  }
  return DefWindowProcW(window_, message, wparam, lparam);
}

// The ground of the surface. What is disabled lets the pointer through to here; that is no click on the
// ground.
LRESULT SurfaceView::handle_mouse(UINT message, WPARAM wparam, LPARAM lparam) {
  if (!surface_ || surface_->is_form()) return 0;
  const POINT at = point_of(lparam);
  const bool right = message == WM_RBUTTONDOWN || message == WM_RBUTTONUP;
  const short button = message == WM_MOUSEMOVE ? static_cast<short>(wparam & (MK_LBUTTON | MK_RBUTTON))
                       : right                 ? 2
                                               : 1;
  const auto modifiers = static_cast<short>(pressed_modifiers());
  const bool on_ground = ChildWindowFromPoint(window_, at) == window_;
  host_.handle([&] {
    if (message == WM_MOUSEMOVE) return site_.fire_mouse(DISPID_MOUSEMOVE, button, modifiers, at);
    if (message == WM_LBUTTONUP || message == WM_RBUTTONUP) {
      site_.fire_mouse(DISPID_MOUSEUP, button, modifiers, at);
      if (right || !std::exchange(pressed_, false) || !on_ground || !surface_) return;
      host_.desk().click(*surface_);
      return site_.fire_click(DISPID_CLICK);
    }
    mouse_pressed();
    pressed_ = !right && on_ground;
    if (message == WM_LBUTTONDBLCLK) site_.fire_click(DISPID_DBLCLICK);
    site_.fire_mouse(DISPID_MOUSEDOWN, button, modifiers, at);
  });
  return 0;
}

// ---- Classes

WindowClasses::WindowClasses(HINSTANCE module) : module_(module) {
  WNDCLASSW shape{};
  shape.hInstance = module_;
  shape.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  shape.style = CS_DBLCLKS;
  shape.lpfnWndProc = SurfaceView::procedure;
  for (const wchar_t* const name : {surface_class, form_class}) {
    shape.lpszClassName = name;
    RegisterClassW(&shape);
  }
  shape.style = 0;
  shape.lpfnWndProc = DefWindowProcW;
  shape.lpszClassName = pane_class;
  RegisterClassW(&shape);
}

WindowClasses::~WindowClasses() {
  for (const wchar_t* const name : {surface_class, form_class, pane_class}) UnregisterClassW(name, module_);
}

}  // namespace tabulon::activex
