// What the control's windows answer to who asks for their names: a screen reader's script, a test.
//
//   wchar_t name[64];
//   SendMessageW(window, name_message(), std::size(name), reinterpret_cast<LPARAM>(name));   //
//   L"txtTableau[3]"
#pragma once

#include <windows.h>

namespace tabulon::activex {

// The classes of the windows that are not the system's own.
inline constexpr wchar_t surface_class[] = L"TabulonSurface";
inline constexpr wchar_t form_class[] = L"TabulonForm";
inline constexpr wchar_t pane_class[] = L"TabulonPane";

// wParam: the room at lParam, in characters. The answer is the name's length.
inline UINT name_message() {
  static const UINT message = RegisterWindowMessageW(L"Tabulon.Name");
  return message;
}

// 1 while the control is busy, else 0. For a window of the surface class.
inline UINT busy_message() {
  static const UINT message = RegisterWindowMessageW(L"Tabulon.Busy");
  return message;
}

}  // namespace tabulon::activex
