#include "platform/form_place.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace tabulon::platform {

namespace {

constexpr Twips gap = 90;  // between a form and what is kept free

bool overlap(Point place, Size form, const Bounds& free) {
  return place.x < free.left + free.width && free.left < place.x + form.width &&
         place.y < free.top + free.height && free.top < place.y + form.height;
}

// How far a form would stand out of the surface.
Twips beyond(Point place, Size form, Size surface) {
  return std::max({-place.x, -place.y, place.x + form.width - surface.width,
                   place.y + form.height - surface.height, 0.0});
}

}  // namespace

Point form_place(Size form, Size surface, const Bounds& kept_free) {
  const Point middle{(surface.width - form.width) / 2, (surface.height - form.height) / 2};
  if (kept_free.width <= 0 || !overlap(middle, form, kept_free)) return middle;
  const Bounds& free = kept_free;
  const std::array beside{
      Point{free.left + free.width + gap, middle.y}, Point{free.left - gap - form.width, middle.y},
      Point{middle.x, free.top + free.height + gap}, Point{middle.x, free.top - gap - form.height}};
  return std::ranges::min(beside, {}, [&](Point place) {
    return std::pair(beyond(place, form, surface), std::hypot(place.x - middle.x, place.y - middle.y));
  });
}

}  // namespace tabulon::platform
