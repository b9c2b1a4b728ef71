// The control's colours as the system's.
//
//   SetTextColor(dc, colour_ref(label.fore_colour()));
#pragma once

#include <windows.h>

#include "platform/geometry.h"

namespace tabulon::activex {

inline bool is_transparent(platform::Colour colour) {
  return colour == platform::system_colour::transparent;
}

// Of a colour that is not transparent.
inline COLORREF colour_ref(platform::Colour colour) {
  return colour.is_system() ? GetSysColor(static_cast<int>(colour.value & 0xFFU)) : colour.value;
}

}  // namespace tabulon::activex
