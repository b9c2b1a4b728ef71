// Mouse messages.
//
//   if (is_mouse_message(message)) click(point_of(lparam));
#pragma once

#include <windows.h>
// Must come after it.
#include <windowsx.h>

namespace tabulon::activex {

// A move, or a press or release of the left or right button.
inline bool is_mouse_message(UINT message) {
  return message == WM_MOUSEMOVE || message == WM_LBUTTONDOWN || message == WM_LBUTTONDBLCLK ||
         message == WM_LBUTTONUP || message == WM_RBUTTONDOWN || message == WM_RBUTTONUP;
}

// The position of the mouse, in the window that received the message.
inline POINT point_of(LPARAM where) {
  return {GET_X_LPARAM(where), GET_Y_LPARAM(where)};
}

}  // namespace tabulon::activex
