#include "hosts/activex/smooth_line.h"

#include <algorithm>
#include <cmath>

#include "hosts/activex/bitmap.h"

namespace tabulon::activex {

using platform::Point;

namespace {

// A line as its middle, its direction and half its sides.
struct Stripe {
  Point middle, along;
  double half_length, half_width;

  // How much of the pixel around `centre` lies on the stripe, from 0 to 1.
  double coverage(Point centre) const {
    const Point off{centre.x - middle.x, centre.y - middle.y};
    const auto within = [](double half, double distance) {
      return std::clamp(half + 0.5 - std::abs(distance), 0.0, 1.0);
    };
    return within(half_length, off.x * along.x + off.y * along.y) *
           within(half_width, off.x * along.y - off.y * along.x);
  }
};

// As the system blends: each part of the colour times how much of it there is.
std::uint32_t ink_of(COLORREF colour, double coverage) {
  const auto alpha = static_cast<std::uint32_t>(std::lround(coverage * 255));
  const auto part = [alpha](std::uint32_t whole) { return (whole * alpha + 127) / 255; };
  return alpha << 24U | part(GetRValue(colour)) << 16U | part(GetGValue(colour)) << 8U |
         part(GetBValue(colour));
}

// The pixels that a line may touch, as far as they are painted at all.
RECT touched(HDC dc, Point from, Point to, double width) {
  const auto before = [&](double one, double other) {
    return static_cast<LONG>(std::floor(std::min(one, other) - width));
  };
  const auto behind = [&](double one, double other) {
    return static_cast<LONG>(std::ceil(std::max(one, other) + width));
  };
  const RECT all{before(from.x, to.x), before(from.y, to.y), behind(from.x, to.x), behind(from.y, to.y)};
  RECT clip{}, both{};
  GetClipBox(dc, &clip);
  IntersectRect(&both, &all, &clip);
  return both;
}

// A metafile is played at another size: there a line stays a line.
bool is_of_pixels(HDC dc) {
  const DWORD kind = GetObjectType(dc);
  return kind == OBJ_DC || kind == OBJ_MEMDC;
}

}  // namespace

bool paint_smooth_line(HDC dc, Point from, Point to, COLORREF colour, double width) {
  if (!is_of_pixels(dc)) return false;
  const RECT box = touched(dc, from, to, width);
  const int across = box.right - box.left, down = box.bottom - box.top;
  const MemoryBitmap ink({across, down});
  if (!ink.made()) return false;
  const double length = std::hypot(to.x - from.x, to.y - from.y);
  const Stripe stripe{{(from.x + to.x) / 2, (from.y + to.y) / 2},
                      {(to.x - from.x) / length, (to.y - from.y) / length},
                      (length + 1) / 2,
                      width / 2};
  const auto pixels = ink.pixels();
  for (int y = 0; y < down; ++y)
    for (int x = 0; x < across; ++x)
      pixels[static_cast<std::size_t>(y * across + x)] =
          ink_of(colour, stripe.coverage({box.left + x + 0.5, box.top + y + 0.5}));
  const BLENDFUNCTION over{AC_SRC_OVER, 0, 255, AC_SRC_ALPHA};
  return GdiAlphaBlend(dc, box.left, box.top, across, down, ink.dc(), 0, 0, across, down, over);
}

}  // namespace tabulon::activex
