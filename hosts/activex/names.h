// What the control's windows answer when a test or a screen reader's script asks for their names.
//
//   std::wstring name;
//   while (const auto letter = SendMessageW(window, name_message(), name.size(), 0))
//     name += static_cast<wchar_t>(letter);   // L"txtTableau[3]"
#pragma once

#include <windows.h>

namespace tabulon::activex {

// Our own window classes.
inline constexpr wchar_t surface_class[] = L"TabulonSurface";
inline constexpr wchar_t form_class[] = L"TabulonForm";
inline constexpr wchar_t pane_class[] = L"TabulonPane";

// wParam: a position in the name, from 0. The answer is the character there, or 0 past the end: the caller
// may be another process, so the answer cannot be written to its memory.
inline UINT name_message() {
  static const UINT message = RegisterWindowMessageW(L"Tabulon.Name");
  return message;
}

// Answered with 1 while the control is busy, else 0, by windows of the surface class.
inline UINT busy_message() {
  static const UINT message = RegisterWindowMessageW(L"Tabulon.Busy");
  return message;
}

}  // namespace tabulon::activex
