#include "hosts/activex/surface_view.h"

#include <algorithm>
#include <utility>

#include "hosts/activex/control_kinds.h"
#include "hosts/activex/density.h"
#include "hosts/activex/key_messages.h"
#include "hosts/activex/module.h"
#include "hosts/activex/names.h"
#include "hosts/activex/painting.h"
#include "hosts/activex/pixels.h"
#include "hosts/activex/popup_menu.h"
#include "hosts/activex/scroll_bars.h"
#include "hosts/activex/window_text.h"

namespace tabulon::activex {

using namespace platform;

namespace {

const wchar_t* cursor_over(const Control& control) {
  if (is_handle(control)) return IDC_SIZEALL;
  return control.kind() == Kind::Image && control.container() ? IDC_HAND : nullptr;
}

}  // namespace

SurfaceView::SurfaceView(const Services& services, Surface& surface, ViewSite& site)
    : view_{services, site, &surface, nullptr, dpi_of(nullptr)} {}

SurfaceView::~SurfaceView() {
  close();
}

// ---- Windows

SIZE SurfaceView::size() const {
  return {pixels_at(view_.surface->width(), dpi()), pixels_at(view_.surface->height(), dpi())};
}

bool SurfaceView::open(HWND parent, POINT at) {
  set_dpi(dpi_of(parent));
  const auto [width, height] = size();
  return create({surface_class, WS_CHILD | WS_CLIPCHILDREN | WS_CLIPSIBLINGS, 0},
                {at.x, at.y, at.x + width, at.y + height}, parent);
}

bool SurfaceView::create(const Shape& shape, const RECT& place, HWND parent) {
  view_.window = CreateWindowExW(shape.extended_style, shape.window_class, nullptr, shape.style, place.left,
                                 place.top, place.right - place.left, place.bottom - place.top, parent,
                                 nullptr, this_module(), nullptr);
  if (!window()) return false;
  SetWindowLongPtrW(window(), GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  create_controls();
  mirror();
  return true;
}

void SurfaceView::create_controls() {
  const std::vector<Control*>& controls = view_.surface->controls();
  controls_.resize(controls.size());
  std::ranges::transform(controls, controls_.begin(), [this](Control* control) {
    return has_window(*control) ? std::make_unique<ControlView>(parts_, *control) : nullptr;
  });
  for (const Control* const control : controls)
    if (ControlView* const view = view_of(*control)) view->create_if_seen(parent_of(*control));
}

// The parent window for a control; null while it does not exist.
HWND SurfaceView::parent_of(const Control& control) const {
  if (!control.container()) return window();
  const ControlView* const container = view_of(*control.container());
  return container ? container->window() : nullptr;
}

void SurfaceView::close() {
  tool_tips_.close();
  if (HWND const window = std::exchange(view_.window, nullptr)) {
    SetWindowLongPtrW(window, GWLP_USERDATA, 0);
    end_menu_over(window);
    DestroyWindow(window);
  }
  hot_ = {};
  services().dispatcher.release_later(std::make_shared<decltype(controls_)>(std::exchange(controls_, {})));
}

// ---- What is seen

ControlView* SurfaceView::view_of(const Control& control) const {
  const auto at = static_cast<std::size_t>(control.id());
  return at < controls_.size() ? controls_[at].get() : nullptr;
}

void SurfaceView::mirror() {
  if (!view_.surface) return;
  if (window()) mirror_controls();
  view_.site.picture_changed();
}

void SurfaceView::mirror_controls() {
  for (Control* const control : view_.surface->controls()) {
    const Properties marked = control->take_changes();
    ControlView* const view = view_of(*control);
    if (view && !view->window())
      view->create_if_seen(parent_of(*control));
    else if (view && !marked.none())
      view->apply(marked);
    if (marked.has(Property::Drawing)) place_inside(*control);
    if (control->kind() == Kind::Line && !marked.none()) mirror_line(*control);
  }
}

void SurfaceView::mirror_line(const Control& line) {
  if (HWND const around = parent_of(line))
    RedrawWindow(around, nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN);
}

// Controls in a container are placed in its scale.
void SurfaceView::place_inside(const Control& container) {
  for (const auto& view : controls_)
    if (view && view->control()->container() == &container) view->place();
}

void SurfaceView::focus_active() const {
  if (!view_.surface || !window() || !view_.surface->has_focus() || !GetActiveWindow()) return;
  const Control* const active = view_.surface->active();
  ControlView* const view = active ? view_of(*active) : nullptr;
  HWND const target = view && view->window() ? view->window() : window();
  if (GetFocus() != target) SetFocus(target);
  if (view && view->window()) view->select_if_wanted();
}

// The system suggests a place to top-level windows only.
void SurfaceView::density_changed(const RECT* suggested) {
  view_.dpi = dpi_of(window());
  RECT place{0, 0, size().cx, size().cy};
  add_edge(place);
  const POINT at = suggested ? POINT{suggested->left, suggested->top} : POINT{};
  SetWindowPos(window(), nullptr, at.x, at.y, place.right - place.left, place.bottom - place.top,
               SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOCOPYBITS | (suggested ? 0 : SWP_NOMOVE));
  for (const auto& view : controls_)
    if (view) view->density_changed();
  RedrawWindow(window(), nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN);
}

void SurfaceView::follow_density() {
  if (dpi_of(window()) != dpi()) density_changed(nullptr);
}

void SurfaceView::paint() {
  PAINTSTRUCT painting{};
  print(BeginPaint(window(), &painting));
  EndPaint(window(), &painting);
}

void SurfaceView::print(HDC dc) const {
  const Painter painter(dc, services().fonts, dpi());
  painter.ground(*view_.surface, {0, 0});
  painter.lines(*view_.surface, nullptr, {0, 0});
}

// The system asks the parents of the window under the mouse first.
bool SurfaceView::set_cursor(HWND under) const {
  const ControlView* const view = IsChild(window(), under) ? ControlView::of(under) : nullptr;
  const wchar_t* const shape = busy_ ? IDC_WAIT : view ? cursor_over(*view->control()) : nullptr;
  if (shape) SetCursor(LoadCursorW(nullptr, shape));
  return shape != nullptr;
}

void SurfaceView::scroll(HWND window, int code) {
  const ControlView* const view = window ? ControlView::of(window) : nullptr;
  if (!view) return;
  auto& bar = static_cast<ScrollBar&>(*view->control());
  if (const auto value = value_after(code, window, bar))
    services().dispatcher.handle([&] { services().desk.scroll(bar, *value, code == SB_THUMBTRACK); });
}

// ---- Messages

LRESULT CALLBACK SurfaceView::procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
  auto* const view = reinterpret_cast<SurfaceView*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (!view) return DefWindowProcW(window, message, wparam, lparam);
  const Dispatcher::OnStack on_stack(view->services().dispatcher);
  if (message != WM_NCDESTROY) return view->handle(message, wparam, lparam);
  SetWindowLongPtrW(window, GWLP_USERDATA, 0);
  view->view_.window = nullptr;
  view->tool_tips_.close();
  view->on_destroyed();
  return DefWindowProcW(window, message, wparam, lparam);
}

LRESULT SurfaceView::pass_on(UINT message, WPARAM wparam, LPARAM lparam) const {
  return DefWindowProcW(window(), message, wparam, lparam);
}

LRESULT SurfaceView::handle(UINT message, WPARAM wparam, LPARAM lparam) {
  if (message == name_message()) return view_.surface ? answer_text(view_.surface->name(), wparam) : 0;
  if (message == busy_message()) return busy_;
  if (!view_.surface) return pass_on(message, wparam, lparam);
  if (is_key_message(message)) return handle_key(message, wparam, lparam);
  if (ground_.handle(message, wparam, lparam)) return 0;
  switch (message) {
    case WM_GETDLGCODE:
      return DLGC_WANTALLKEYS;
    case WM_ERASEBKGND:
      return TRUE;
    case WM_PAINT:
      paint();
      return 0;
    case WM_PRINTCLIENT:
      print(reinterpret_cast<HDC>(wparam));
      return 0;
    case WM_SETCURSOR:
      return set_cursor(reinterpret_cast<HWND>(wparam)) ? TRUE : pass_on(message, wparam, lparam);
    case WM_SETFOCUS:
      focus_.arrived(nullptr);
      return 0;
    case WM_KILLFOCUS:
      focus_.left(reinterpret_cast<HWND>(wparam));
      return 0;
    case WM_CLOSE:
      services().dispatcher.handle([this] { services().desk.key(*view_.surface, {key::escape}); });
      return 0;
    case dpi_changed:
    case dpi_changed_after_parent:
      density_changed(reinterpret_cast<const RECT*>(lparam));
      return 0;
    default:
      return handle_child(message, wparam, lparam);
  }
}

LRESULT SurfaceView::handle_key(UINT message, WPARAM wparam, LPARAM lparam) {
  MSG key = current_message(window(), message, wparam, lparam);
  return keyboard_.handle(key) ? 0 : pass_on(message, wparam, lparam);
}

// Notifications and questions from the windows of controls.
LRESULT SurfaceView::handle_child(UINT message, WPARAM wparam, LPARAM lparam) {
  HWND const child = reinterpret_cast<HWND>(lparam);
  switch (message) {
    case WM_CTLCOLOREDIT:
    case WM_CTLCOLORSTATIC:
    case WM_CTLCOLORBTN:
      if (const ControlView* const view = ControlView::of(child))
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
  return pass_on(message, wparam, lparam);
}

}  // namespace tabulon::activex
