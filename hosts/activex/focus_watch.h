// The system's focus, as it comes to a surface's windows and leaves them.
//
//   focus.arrived(&box);      // WM_SETFOCUS of the box's window
#pragma once

#include <windows.h>

#include "hosts/activex/view_state.h"

namespace tabulon::activex {

class FocusWatch {
 public:
  explicit FocusWatch(const ViewState& view) : view_(view) {}

  // `on`: null for the surface itself.
  void arrived(platform::Control* on) const;
  void left(HWND to) const;
  // Wherever the button went down, the surface has the focus from now on.
  void mouse_pressed() const;

 private:
  const ViewState& view_;
};

}  // namespace tabulon::activex
