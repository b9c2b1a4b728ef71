// The pointer over the ground of the control, where nothing stands that takes it; and the events of that.
#pragma once

#include <windows.h>

#include "hosts/activex/focus_watch.h"
#include "hosts/activex/view_state.h"

namespace tabulon::activex {

class GroundPointer {
 public:
  GroundPointer(const ViewState& view, const FocusWatch& focus) : view_(view), focus_(focus) {}
  GroundPointer(const GroundPointer&) = delete;

  // True where the message was one of the pointer's.
  bool handle(UINT message, WPARAM wparam, LPARAM lparam);

 private:
  void press(UINT message, short button, POINT at);
  void release(short button, POINT at);
  bool is_on_ground(POINT at) const { return ChildWindowFromPoint(view_.window, at) == view_.window; }

  const ViewState& view_;
  const FocusWatch& focus_;
  bool pressed_ = false;  // the left button, on the ground
};

}  // namespace tabulon::activex
