// Where things stand in the system's pixels, which have a density: dots to an inch.
//
//   pixels_at(9000, 96);                       // 600: the control's width on most screens
//   bounds_in_pixels(lpctrl.imgCross, 144);
#pragma once

#include <windows.h>

#include "platform/controls.h"

namespace tabulon::activex {

// From the user coordinates of a container to pixels from its corner; an axis may grow the other way, and
// then its unit is negative.
struct PixelScale {
  double unit_x = 0, unit_y = 0;  // pixels in a user unit
  platform::Point origin;         // the user coordinates of the corner

  platform::Point pixels(platform::Point user) const {
    return {(user.x - origin.x) * unit_x, (user.y - origin.y) * unit_y};
  }
};

// The scale of a picture box of so many pixels.
PixelScale pixel_scale(const platform::Scale& scale, const SIZE& pixels);
// The scale of what has none of its own: twips from the corner.
PixelScale twip_scale(int dpi);
// The scale of what stands in a container, or on the surface itself (null).
PixelScale scale_inside(const platform::Control* container, int dpi);
// Between two pixels, halves upwards.
int nearest_edge(double pixels);

int pixels_at(platform::Twips twips, int dpi);
// Where a control stands in its container's window.
RECT bounds_in_pixels(const platform::Control& control, int dpi);

}  // namespace tabulon::activex
