// The pictures that forms and drawings name, drawn here so that they are smooth at any density.
//
//   paint_picture(dc, {14, 18, 46, 50}, platform::Picture::Warning, platform::Raster::Copy);
#pragma once

#include <windows.h>

#include "platform/display_list.h"

namespace tabulon::activex {

// In a box of pixels of `dc`. Copy paints over what is there; And only darkens it, as if the picture were
// printed on it.
void paint_picture(HDC dc, const RECT& box, platform::Picture picture, platform::Raster raster);

}  // namespace tabulon::activex
