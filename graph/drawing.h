// The picture of a problem with two decision variables, as a display list.
//
//   PictureLN.set_scale(graph::scale);
//   PictureLN.set_drawing(graph::problem_drawing(constraints, range, {" 10", " 10"}));
//
// From below to above: the feasible region, the axes and their grid, the axes' labels, the constraints'
// lines.
#pragma once

#include <optional>
#include <span>
#include <string_view>

#include "graph/geometry.h"
#include "platform/display_list.h"

namespace tabulon::graph {

// The drawing square with a margin for the labels.
inline constexpr platform::Scale scale{{-345, 3300}, {3345, -300}};

namespace colour {
inline constexpr platform::Colour ink{0};
inline constexpr platform::Colour grid{0xC0C0C0};
inline constexpr platform::Colour region{0xC0FFFF};
inline constexpr platform::Colour constraint{0x00FF00};
inline constexpr platform::Colour level{0xFF0000};
}  // namespace colour

// The texts of the values at the ends of the axes.
struct AxisTexts {
  std::string_view x1, x2;
};

platform::DisplayList problem_drawing(std::span<const Constraint> constraints, double range, AxisTexts ends);

// The drawing as it is copied: with the level line and the cross where they are shown. The cross darkens what
// it covers, so that its white corners hide nothing.
platform::DisplayList copied_drawing(platform::DisplayList drawing, const std::optional<Segment>& level,
                                     const std::optional<Point>& cross);

}  // namespace tabulon::graph
