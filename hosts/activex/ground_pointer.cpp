#include "hosts/activex/ground_pointer.h"

#include <olectl.h>

#include <utility>

#include "hosts/activex/key_messages.h"
#include "hosts/activex/mouse_messages.h"

namespace tabulon::activex {

namespace {

constexpr short left_button = 1, right_button = 2;

short modifiers() {
  return static_cast<short>(pressed_modifiers());
}

}  // namespace

bool GroundPointer::handle(UINT message, WPARAM wparam, LPARAM lparam) {
  if (!is_mouse_message(message)) return false;
  if (!view_.is_control()) return true;
  const POINT at = point_of(lparam);
  view_.services.dispatcher.handle([&] {
    switch (message) {
      case WM_MOUSEMOVE:
        return view_.site.fire_mouse(DISPID_MOUSEMOVE, static_cast<short>(wparam & (MK_LBUTTON | MK_RBUTTON)),
                                     modifiers(), at);
      case WM_LBUTTONUP:
        return release(left_button, at);
      case WM_RBUTTONUP:
        return release(right_button, at);
      default:
        return press(message, message == WM_RBUTTONDOWN ? right_button : left_button, at);
    }
  });
  return true;
}

void GroundPointer::press(UINT message, short button, POINT at) {
  const bool on_ground = is_on_ground(at);
  focus_.mouse_pressed();
  pressed_ = button == left_button && on_ground;
  if (message == WM_LBUTTONDBLCLK) view_.site.fire_click(DISPID_DBLCLICK);
  view_.site.fire_mouse(DISPID_MOUSEDOWN, button, modifiers(), at);
}

// A disabled control lets the mouse through to the surface; that is not a click on the surface.
void GroundPointer::release(short button, POINT at) {
  const bool on_ground = is_on_ground(at);
  view_.site.fire_mouse(DISPID_MOUSEUP, button, modifiers(), at);
  if (button == right_button || !std::exchange(pressed_, false) || !on_ground || !view_.surface) return;
  view_.services.desk.click(*view_.surface);
  view_.site.fire_click(DISPID_CLICK);
}

}  // namespace tabulon::activex
