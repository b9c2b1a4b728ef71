// The density of screens, which differs from one to the next and may change under a window.
//
//   const int dpi = dpi_of(window);
#pragma once

#include <windows.h>

namespace tabulon::activex {

// Messages to a window of its own, and to one inside another, whose screen has another density from now on;
// the older headers do not have them.
inline constexpr UINT dpi_changed = 0x02E0, dpi_changed_after_parent = 0x02E3;

// The density of the screen that a window is on, in dots to an inch; of the main screen without a window.
int dpi_of(HWND window);
// From the inside of a window to its bounds with its frame.
void add_frame(RECT& place, DWORD style, DWORD extended_style, int dpi);

}  // namespace tabulon::activex
