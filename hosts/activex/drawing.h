// Paints what a picture box shows, and the lines that lie on it, in the system's pixels.
//
//   paint_drawing(dc, client, box.scale(), box.drawing(), letters, dpi);
//
// A dot is 1/96 inch. What lies along an axis begins and ends between two pixels, so that it is sharp.
#pragma once

#include <windows.h>

#include "platform/display_list.h"
#include "platform/geometry.h"

namespace tabulon::activex {

// Paints the whole list, clipped to the box (in pixels of `dc`). `letters` is the font of its texts.
void paint_drawing(HDC dc, const RECT& box, const platform::Scale& scale,
                   const platform::DisplayList& drawing, HFONT letters, int dpi);
// A line like those in drawings, between two points in pixels of `dc`.
void paint_line(HDC dc, platform::Point from, platform::Point to, platform::Colour colour, int dpi);

}  // namespace tabulon::activex
