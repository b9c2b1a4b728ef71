// The button under the mouse, which is drawn highlighted; at most one.
//
//   hot.set(button_window);
//   hot.set(nullptr);         // the mouse has left
#pragma once

#include <windows.h>

#include <utility>

namespace tabulon::activex {

class HotButton {
 public:
  bool is(HWND button) const { return button && button == button_; }
  void set(HWND button) {
    HWND const before = std::exchange(button_, button);
    for (HWND const changed : {before, button})
      if (changed) InvalidateRect(changed, nullptr, FALSE);
  }

 private:
  HWND button_ = nullptr;
};

}  // namespace tabulon::activex
