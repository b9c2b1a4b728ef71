#include "platform/layout.h"

namespace tabulon::platform {

void place(Surface& surface, std::span<const Placement> placements) {
  for (const Placement& placement : placements) {
    Control& control = *surface.find(placement.name);
    control.set_bounds(placement.bounds);
    control.set_text(placement.text);
    control.set_font(placement.font);
  }
}

void place(Surface& surface, std::span<const ArrayPlacement> placements) {
  for (const ArrayPlacement& placement : placements) {
    for (int at = 0; Control* const control = surface.find(placement.name, at + 1); ++at) {
      Bounds bounds = placement.first;
      bounds.left += placement.right * (at % placement.per_row);
      bounds.top += placement.down * (at / placement.per_row);
      control->set_bounds(bounds);
      control->set_text(placement.text);
      control->set_font(placement.font);
    }
  }
}

}  // namespace tabulon::platform
