// How large the graph panel is, and how far it may be moved.
//
//   frmGrafiek.set_bounds(graph::panel_moved(frmGrafiek.bounds(), 0, -150));
#pragma once

#include <algorithm>

#include "platform/geometry.h"

namespace tabulon::graph {

using platform::Twips;

inline constexpr Twips surface_width = 9000, panel_width = 5805;
// The handle's height; a press on its very edge starts no drag.
inline constexpr Twips handle_height = 195;

// The panel's bounds after a move, kept where its handle can be reached.
constexpr platform::Bounds panel_moved(platform::Bounds panel, Twips right, Twips down) {
  constexpr Twips highest = 10, lowest = 4240;
  panel.top = std::clamp(panel.top + down, highest, lowest);
  panel.left = std::clamp(panel.left + right, 0.0, surface_width - panel_width);
  return panel;
}

}  // namespace tabulon::graph
