// Paints a whole surface as one picture where it has no windows: on paper, or on a form in a designer.
//
//   paint_surface(dc, control, {10, 10}, 96);
#pragma once

#include <windows.h>

#include "platform/surface.h"

namespace tabulon::activex {

// `origin`: the top left corner in `dc`. `dpi`: pixels per inch of the surface.
void paint_surface(HDC dc, const platform::Surface& surface, POINT origin, int dpi);

}  // namespace tabulon::activex
