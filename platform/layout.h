// Where controls stand and what they say at first, as tables.
//
//   constexpr Placement placements[] = {{"cmdOK", {1185, 960, 1215, 375}, "OK"}};
//   place(form, placements);
#pragma once

#include <span>
#include <string_view>

#include "platform/surface.h"

namespace tabulon::platform {

// Where boxes stand that take the focus but are not seen.
inline constexpr Bounds beside_surface{-1500, 0, 150, 150};

struct Placement {
  std::string_view name;
  Bounds bounds;
  std::string_view text = {};
  Font font = {};
};

// A control array in rows of `per_row`, `right` and `down` apart.
struct ArrayPlacement {
  std::string_view name;
  Bounds first;
  int per_row = 1;
  Twips right = 0, down = 0;
  std::string_view text = {};
  Font font = {};
};

// Every name must be a control of the surface.
void place(Surface& surface, std::span<const Placement> placements);
void place(Surface& surface, std::span<const ArrayPlacement> placements);

}  // namespace tabulon::platform
