// The mouse as messages have it.
//
//   if (is_mouse_message(message)) click(point_of(lparam));
#pragma once

#include <windows.h>
// What follows wants that.
#include <windowsx.h>

namespace tabulon::activex {

// A move, or a press or release of one of the two buttons that a control knows.
inline bool is_mouse_message(UINT message) {
  return message == WM_MOUSEMOVE || message == WM_LBUTTONDOWN || message == WM_LBUTTONDBLCLK ||
         message == WM_LBUTTONUP || message == WM_RBUTTONDOWN || message == WM_RBUTTONUP;
}

// Where it is, in the window that the message came to.
inline POINT point_of(LPARAM where) {
  return {GET_X_LPARAM(where), GET_Y_LPARAM(where)};
}

}  // namespace tabulon::activex
