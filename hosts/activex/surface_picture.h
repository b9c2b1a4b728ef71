// A surface without windows: all of it as one picture, on paper or on a form that is being designed.
//
//   paint_surface(dc, control, {10, 10}, 96);
#pragma once

#include <windows.h>

#include "platform/surface.h"

namespace tabulon::activex {

// `origin`: the place of its corner in `dc`. `dpi`: how many pixels are an inch of the surface.
void paint_surface(HDC dc, const platform::Surface& surface, POINT origin, int dpi);

}  // namespace tabulon::activex
