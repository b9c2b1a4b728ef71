// Places, colours and fonts of controls.
#pragma once

#include <cstdint>

#include "platform/enums.h"

namespace tabulon::platform {

// Positions are twips (1/1440 inch; 15 twips are one CSS pixel), or the user units of the picture box in
// which a control stands.
using Twips = double;

struct Bounds {
  Twips left = 0, top = 0, width = 0, height = 0;
  friend bool operator==(const Bounds&, const Bounds&) = default;
};

// A colour in the platform's order 0x00BBGGRR, or one of the person's system colours.
struct Colour {
  std::uint32_t value = 0;
  friend bool operator==(Colour, Colour) = default;
  bool is_system() const { return (value & 0x80000000U) != 0; }
  std::uint8_t red() const { return static_cast<std::uint8_t>(value); }
  std::uint8_t green() const { return static_cast<std::uint8_t>(value >> 8U); }
  std::uint8_t blue() const { return static_cast<std::uint8_t>(value >> 16U); }
};

constexpr Colour rgb(std::uint8_t red, std::uint8_t green, std::uint8_t blue) {
  return {static_cast<std::uint32_t>(red) | static_cast<std::uint32_t>(green) << 8U |
          static_cast<std::uint32_t>(blue) << 16U};
}

namespace system_colour {
#define SYSTEM_COLOUR(name, colour) inline constexpr Colour name{colour};
#include "platform/look.def"
}  // namespace system_colour

struct Font {
  std::uint8_t points = 9;  // 1/72 inch
  bool bold = false;
  Align align = Align::Left;
  bool wraps = false;
  bool middle = false;  // what wraps stands in the middle of its height, as one line always does
  friend bool operator==(const Font&, const Font&) = default;
};

// Those of most texts.
namespace font {
inline constexpr Font plain{}, bold{.bold = true}, centred{.align = Align::Centre};
inline constexpr Font small{.points = 8}, small_centred{.points = 8, .align = Align::Centre};
}  // namespace font

}  // namespace tabulon::platform
