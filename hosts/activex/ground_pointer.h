// The mouse over the bare surface of the control, and the events that it raises there.
#pragma once

#include <windows.h>

#include "hosts/activex/focus_watch.h"
#include "hosts/activex/view_state.h"

namespace tabulon::activex {

class GroundPointer {
 public:
  GroundPointer(const ViewState& view, const FocusWatch& focus) : view_(view), focus_(focus) {}
  GroundPointer(const GroundPointer&) = delete;

  // True if this was a mouse message.
  bool handle(UINT message, WPARAM wparam, LPARAM lparam);

 private:
  void press(UINT message, short button, POINT at);
  void release(short button, POINT at);
  bool is_on_ground(POINT at) const { return ChildWindowFromPoint(view_.window, at) == view_.window; }

  const ViewState& view_;
  const FocusWatch& focus_;
  bool pressed_ = false;  // the left button, on the bare surface
};

}  // namespace tabulon::activex
