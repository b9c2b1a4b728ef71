// Watches the system's focus enter and leave a surface's windows.
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
  // A mouse button went down somewhere on the surface, which takes the focus.
  void mouse_pressed() const;

 private:
  const ViewState& view_;
};

}  // namespace tabulon::activex
