// What the control's windows answer to who asks for their names: a screen reader's script, a test.
//
//   std::wstring name;
//   while (const auto letter = SendMessageW(window, name_message(), name.size(), 0))
//     name += static_cast<wchar_t>(letter);   // L"txtTableau[3]"
#pragma once

#include <windows.h>

namespace tabulon::activex {

// The classes of the windows that are not the system's own.
inline constexpr wchar_t surface_class[] = L"TabulonSurface";
inline constexpr wchar_t form_class[] = L"TabulonForm";
inline constexpr wchar_t pane_class[] = L"TabulonPane";

// wParam: a place in the name, from 0. The answer is the character there, 0 behind the last: who asks may be
// another process, so that no answer can be written into its memory.
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
