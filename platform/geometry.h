// Places, colours and fonts of controls.
#pragma once

#include <cstdint>

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
inline constexpr Colour window{0x80000005U};       // the background of windows and of edit fields
inline constexpr Colour window_text{0x80000008U};  // text on it
inline constexpr Colour button_face{0x8000000FU};  // the background of forms and buttons
inline constexpr Colour button_text{0x80000012U};  // text on it
inline constexpr Colour grey_text{0x80000011U};    // text of secondary weight
inline constexpr Colour transparent{0xFFFFFFFFU};  // what lies below shows through
}  // namespace system_colour

enum class Align : std::uint8_t { Left, Right, Centre };

struct Font {
  std::uint8_t points = 9;  // 1/72 inch
  bool bold = false;
  Align align = Align::Left;
  bool wraps = false;
  friend bool operator==(const Font&, const Font&) = default;
};

}  // namespace tabulon::platform
