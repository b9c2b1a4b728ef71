// The tool tips of a surface: one window of the system that shows all of them.
//
//   tips.set(surface_window, box, " Pivotelement ");   // "" takes the tip away
#pragma once

#include <windows.h>

#include <set>
#include <string_view>

namespace tabulon::activex {

class ToolTips {
 public:
  ToolTips() = default;
  ToolTips(const ToolTips&) = delete;

  // What is shown while the pointer rests on `control`, a window below `surface`.
  void set(HWND surface, HWND control, std::string_view text);
  // The surface's window is going. The tips belong to the one that it stands in, and would stay.
  void close();

 private:
  HWND window_ = nullptr;
  std::set<HWND> tools_;
};

}  // namespace tabulon::activex
