#include "hosts/activex/pixels.h"

#include <cmath>

#include "platform/look.h"

namespace tabulon::activex {

using namespace platform;

namespace {

double units(double pixels, double from, double to) {
  return to == from ? pixels : pixels / (to - from);
}

}  // namespace

PixelScale pixel_scale(const Scale& scale, const SIZE& pixels) {
  const auto& [from, to] = scale;
  return {units(static_cast<double>(pixels.cx), from.x, to.x),
          units(static_cast<double>(pixels.cy), from.y, to.y), from};
}

PixelScale twip_scale(int dpi) {
  constexpr double twips_per_inch = measure::twips_per_pixel * measure::pixels_per_inch;
  return {dpi / twips_per_inch, dpi / twips_per_inch, {}};
}

PixelScale scale_inside(const Control* container, int dpi) {
  if (!container || container->kind() != Kind::PictureBox) return twip_scale(dpi);
  const Bounds& bounds = container->bounds();
  return pixel_scale(static_cast<const PictureBox*>(container)->scale(),
                     {pixels_at(bounds.width, dpi), pixels_at(bounds.height, dpi)});
}

int nearest_edge(double pixels) {
  return static_cast<int>(std::floor(pixels + 0.5));
}

int pixels_at(Twips twips, int dpi) {
  return nearest_edge(twip_scale(dpi).unit_x * twips);
}

RECT bounds_in_pixels(const Control& control, int dpi) {
  const auto [unit_x, unit_y, origin] = scale_inside(control.container(), dpi);
  const Bounds& bounds = control.bounds();
  const int left = nearest_edge((bounds.left - origin.x) * unit_x),
            top = nearest_edge((bounds.top - origin.y) * unit_y);
  return {left, top, left + nearest_edge(std::abs(bounds.width * unit_x)),
          top + nearest_edge(std::abs(bounds.height * unit_y))};
}

}  // namespace tabulon::activex
