// Where the graph panel's parts stand, and how far the panel may be moved.
//
//   graph::lay_out_panel(control);                        // the surface that carries the panel's controls
//   frmGrafiek.set_bounds(graph::panel_moved(frmGrafiek.bounds(), 0, -150));
#pragma once

#include "platform/surface.h"

namespace tabulon::graph {

// The handle's height; a press on its very edge starts no drag.
inline constexpr platform::Twips handle_height = 195;

// Places, texts, colours and tab order. Every name of the panel must be a control of the surface.
void lay_out_panel(platform::Surface& surface);

// The panel's bounds after a move, held where its handle can be reached.
platform::Bounds panel_moved(platform::Bounds panel, platform::Twips right, platform::Twips down);

}  // namespace tabulon::graph
