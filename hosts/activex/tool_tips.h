// The tool tips of a surface, all shown by one window of the system.
//
//   tips.set(surface_window, box, " Pivotelement ");   // "" removes the tip
#pragma once

#include <windows.h>

#include <set>
#include <string_view>

namespace tabulon::activex {

class ToolTips {
 public:
  ToolTips() = default;
  ToolTips(const ToolTips&) = delete;

  // Sets the text shown while the mouse rests on `control`, a window inside `surface`.
  void set(HWND surface, HWND control, std::string_view text);
  // To be called when the surface's window is destroyed: the tips belong to its parent and would stay.
  void close();

 private:
  HWND window_ = nullptr;
  std::set<HWND> tools_;
};

}  // namespace tabulon::activex
