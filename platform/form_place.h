// Where a form opens over a surface: in its middle, or as near to that as leaves what must be seen there
// free.
//
//   form_place({600, 300}, {9000, 4440}, {});                        // in the middle
//   form_place({600, 300}, {9000, 4440}, {4200, 2100, 900, 285});    // beside the cell in the middle
//
// All in twips from the surface's top left corner; the form's size is with its title. A place may lie beyond
// the surface's edges where there is no room within.
#pragma once

#include "platform/display_list.h"
#include "platform/geometry.h"

namespace tabulon::platform {

struct Size {
  Twips width = 0, height = 0;
};

// `kept_free` without a size: nothing must be seen.
Point form_place(Size form, Size surface, const Bounds& kept_free);

}  // namespace tabulon::platform
