// From twips and user units to pixels of a density (dots per inch).
//
//   pixels_at(9000, 96);                       // 600: the control's width on most screens
//   bounds_in_pixels(lpctrl.imgCross, 144);
#pragma once

#include <windows.h>

#include "platform/controls.h"

namespace tabulon::activex {

// From the user coordinates of a container to pixels from its corner. The unit of an axis that grows
// leftwards or upwards is negative.
struct PixelScale {
  double unit_x = 0, unit_y = 0;  // pixels in a user unit
  platform::Point origin;         // the user coordinates of the corner

  platform::Point pixels(platform::Point user) const {
    return {(user.x - origin.x) * unit_x, (user.y - origin.y) * unit_y};
  }
};

// The scale of a picture box with this size in pixels.
PixelScale pixel_scale(const platform::Scale& scale, const SIZE& pixels);
// The scale of containers without one of their own: twips from the corner.
PixelScale twip_scale(int dpi);
// The scale inside a container; null for the surface itself.
PixelScale scale_inside(const platform::Control* container, int dpi);
// The nearest boundary between two pixels, halves rounded up.
int nearest_edge(double pixels);

int pixels_at(platform::Twips twips, int dpi);
// The bounds of a control in its container's window.
RECT bounds_in_pixels(const platform::Control& control, int dpi);

}  // namespace tabulon::activex
