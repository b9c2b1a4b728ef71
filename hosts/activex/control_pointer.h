// The mouse over one control that we draw: pressed, dragged, released.
//
//   ControlPointer pointer(control, view, focus, hot);
//   if (pointer.handle(window, WM_LBUTTONDOWN, where)) return 0;
#pragma once

#include <windows.h>

#include "hosts/activex/focus_watch.h"
#include "hosts/activex/hot_button.h"
#include "hosts/activex/view_state.h"

namespace tabulon::activex {

class ControlPointer {
 public:
  ControlPointer(platform::Control& control, const ViewState& view, const FocusWatch& focus, HotButton& hot)
      : control_(control), view_(view), focus_(focus), hot_(hot) {}
  ControlPointer(const ControlPointer&) = delete;

  // True if this was a message of the mouse.
  bool handle(HWND window, UINT message, LPARAM where);
  // Whether a button is drawn pressed.
  bool holds() const { return pressed_ && over_; }

 private:
  void press(HWND window, bool left, LPARAM where);
  void move(HWND window, LPARAM where);
  void release(HWND window, LPARAM where);
  void lose(HWND window);
  void hover(HWND window);
  void click();
  void tell(platform::Pointer::Action action, bool left, LPARAM where);
  void repaint_button(HWND window) const;

  platform::Control& control_;
  const ViewState& view_;
  const FocusWatch& focus_;
  HotButton& hot_;
  bool pressed_ = false, left_ = true;  // a button is down, the left one
  bool over_ = false;                   // and the mouse is still over the control
  LPARAM last_place_ = 0;               // that was reported to the control
};

}  // namespace tabulon::activex
