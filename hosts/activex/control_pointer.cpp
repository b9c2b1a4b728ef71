#include "hosts/activex/control_pointer.h"

#include <cmath>
#include <utility>

#include "hosts/activex/control_kinds.h"
#include "hosts/activex/mouse_messages.h"
#include "hosts/activex/pixels.h"

namespace tabulon::activex {

using namespace platform;

namespace {

bool is_inside(HWND window, LPARAM where) {
  RECT inside{};
  GetClientRect(window, &inside);
  return PtInRect(&inside, point_of(where)) != 0;
}

}  // namespace

bool ControlPointer::handle(HWND window, UINT message, LPARAM where) {
  switch (message) {
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
    case WM_RBUTTONDOWN:
      return press(window, message != WM_RBUTTONDOWN, where), true;
    case WM_MOUSEMOVE:
      return move(window, where), true;
    case WM_MOUSELEAVE:
      if (hot_.is(window)) hot_.set(nullptr);
      return true;
    case WM_LBUTTONUP:
    case WM_RBUTTONUP:
      return release(window, where), true;
    case WM_CAPTURECHANGED:
      return lose(window), true;
    case BM_CLICK:
      return click(), true;
    default:
      return false;
  }
}

void ControlPointer::hover(HWND window) {
  if (!is_button(control_) || hot_.is(window)) return;
  TRACKMOUSEEVENT track{sizeof track, TME_LEAVE, window, 0};
  if (TrackMouseEvent(&track)) hot_.set(window);
}

// Positions are reported in the units of the control's container, from the control's corner.
void ControlPointer::tell(Pointer::Action action, bool left, LPARAM where) {
  last_place_ = where;
  if (!is_dragged(control_)) return;
  const POINT at = point_of(where);
  const RECT box = bounds_in_pixels(control_, view_.dpi);
  const Bounds& bounds = control_.bounds();
  const auto unit = [](double units, int pixels) { return pixels == 0 ? 0 : std::abs(units) / pixels; };
  view_.services.desk.pointer(control_, {action, left, at.x * unit(bounds.width, box.right - box.left),
                                         at.y * unit(bounds.height, box.bottom - box.top)});
}

void ControlPointer::press(HWND window, bool left, LPARAM where) {
  SetCapture(window);
  pressed_ = over_ = true;
  left_ = left;
  repaint_button(window);
  view_.services.dispatcher.handle([&] {
    focus_.mouse_pressed();
    if (view_.surface) tell(Pointer::Action::Down, left, where);
  });
}

void ControlPointer::move(HWND window, LPARAM where) {
  hover(window);
  if (!pressed_) return;
  if (std::exchange(over_, is_inside(window, where)) != over_) repaint_button(window);
  view_.services.dispatcher.handle([&] { tell(Pointer::Action::Move, left_, where); });
}

// Leaving a button before releasing it cancels the press; anything else is clicked wherever the drag ends. A
// busy thread does not receive the last moves, so the place of the release counts as one.
void ControlPointer::release(HWND window, LPARAM where) {
  if (!pressed_) return;
  pressed_ = false;
  over_ = is_inside(window, where);
  ReleaseCapture();
  repaint_button(window);
  const bool is_click = left_ && (over_ || (is_dragged(control_) && !is_button(control_)));
  view_.services.dispatcher.handle([&] {
    if (where != last_place_) tell(Pointer::Action::Move, left_, where);
    if (view_.surface) tell(Pointer::Action::Up, false, where);
    if (is_click && view_.surface) view_.services.desk.click(control_);
  });
}

void ControlPointer::lose(HWND window) {
  if (!pressed_) return;
  pressed_ = false;
  repaint_button(window);
  view_.services.dispatcher.handle([this] { tell(Pointer::Action::Lost, false, 0); });
}

void ControlPointer::click() {
  view_.services.dispatcher.handle([this] { view_.services.desk.click(control_); });
}

void ControlPointer::repaint_button(HWND window) const {
  if (is_button(control_)) InvalidateRect(window, nullptr, FALSE);
}

}  // namespace tabulon::activex
