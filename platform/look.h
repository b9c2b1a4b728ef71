// The colours and measures of platform/look.def in C++; the system's colours stand in platform/geometry.h.
//
//   look::accent           an rgb colour
//   measure::menu_bar      pixels of 1/96 inch
#pragma once

#include "platform/geometry.h"

namespace tabulon::platform {

namespace look {
#define COLOUR(name, hex) \
  inline constexpr Colour name = rgb((hex) >> 16 & 0xFF, (hex) >> 8 & 0xFF, (hex) & 0xFF);
#include "platform/look.def"
}  // namespace look

namespace measure {
#define MEASURE(name, number) inline constexpr int name = number;
#include "platform/look.def"
}  // namespace measure

}  // namespace tabulon::platform
