// What the pictures consist of, from platform/pictures.def.
//
//   for (const picture::Shape& shape : picture::shapes_of(Picture::Warning)) brush.paint(shape);
#pragma once

#include <algorithm>
#include <cstdint>
#include <span>

#include "platform/display_list.h"

namespace tabulon::platform::picture {

inline constexpr double square = 24;  // the width and height in which spots are placed

struct Spot {
  double x, y;
};

enum class Form : std::uint8_t {
  Area,  // filled
  Line,  // with round ends and corners
  Disc,  // about each spot
};

struct Shape {
  Form form;
  Colour ink;
  std::span<const Spot> spots;
  double width = 0;  // of a line, across a disc
};

namespace table {

#define SPOT(x, y) {x, y},
#define AREA(ink, path) Shape{Form::Area, inks::ink, path},
#define LINE(ink, path, width) Shape{Form::Line, inks::ink, path, width},
#define DISC(ink, path, width) Shape{Form::Disc, inks::ink, path, width},

namespace inks {
#define INK(name, hex) \
  inline constexpr Colour name = rgb((hex) >> 16 & 0xFF, (hex) >> 8 & 0xFF, (hex) & 0xFF);
#include "platform/pictures.def"
}  // namespace inks

#define PATH(name, spots) inline constexpr Spot name[] = {spots};
#include "platform/pictures.def"

#define PICTURE(name, shapes) inline constexpr Shape name[] = {shapes};
#include "platform/pictures.def"

#undef SPOT
#undef AREA
#undef LINE
#undef DISC

// In the order of Picture, which begins with None.
inline constexpr std::span<const Shape> pictures[] = {
    {},
#define PICTURE(name, shapes) name,
#include "platform/pictures.def"
};

}  // namespace table

constexpr std::span<const Shape> shapes_of(Picture picture) {
  return table::pictures[static_cast<std::size_t>(picture)];
}

// As many spots as the longest path has.
consteval std::size_t most_spots() {
  std::size_t most = 0;
  for (const std::span<const Shape> shapes : table::pictures)
    for (const Shape& shape : shapes) most = std::max(most, shape.spots.size());
  return most;
}

}  // namespace tabulon::platform::picture
