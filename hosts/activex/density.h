// The density of screens, in dots per inch. It differs from screen to screen and can change under a window.
//
//   const int dpi = dpi_of(window);
#pragma once

#include <windows.h>

namespace tabulon::activex {

// Sent to a top-level window, and to a child window, when the density of its screen has changed. Older
// headers lack them.
inline constexpr UINT dpi_changed = 0x02E0, dpi_changed_after_parent = 0x02E3;

// The density of the screen that the window is on, or of the main screen for null.
int dpi_of(HWND window);
// Turns a client rectangle into the bounds of a window with this style.
void add_frame(RECT& place, DWORD style, DWORD extended_style, int dpi);

}  // namespace tabulon::activex
