// A line between any two points, without steps: its edge is mixed with what lies below.
//
//   if (!paint_smooth_line(dc, {10, 10}, {90, 40}, RGB(0, 0, 255), 1.5)) ...   // not on such a device
#pragma once

#include <windows.h>

#include "platform/display_list.h"

namespace tabulon::activex {

// The points are the middles of its ends, in pixels of `dc`. False where nothing can be mixed: then nothing
// is painted.
bool paint_smooth_line(HDC dc, platform::Point from, platform::Point to, COLORREF colour, double width);

}  // namespace tabulon::activex
