#include "hosts/activex/pictures.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <span>

#include "hosts/activex/bitmap.h"
#include "hosts/activex/colours.h"
#include "hosts/activex/pixels.h"
#include "platform/pictures.h"

namespace tabulon::activex {

using platform::Picture;
using platform::Raster;
using platform::picture::Shape, platform::picture::Spot;

namespace {

// ---- Drawing them, larger, to be made smaller

constexpr int fineness = 4;  // pixels of the fine picture in one of the screen, each way

class Brush {
 public:
  Brush(HDC dc, SIZE size)
      : dc_(dc), x_(size.cx / platform::picture::square), y_(size.cy / platform::picture::square) {}

  void paint(const Shape& shape) const {
    SetDCBrushColor(dc_, colour_ref(shape.ink));
    if (shape.form == platform::picture::Form::Line) return line(shape);
    SelectObject(dc_, GetStockObject(DC_BRUSH));
    SelectObject(dc_, GetStockObject(NULL_PEN));
    if (shape.form == platform::picture::Form::Disc) return discs(shape);
    const auto places = placed(shape);
    Polygon(dc_, places.data(), static_cast<int>(shape.spots.size()));
  }

 private:
  using Places = std::array<POINT, platform::picture::most_spots()>;

  POINT place(double x, double y) const { return {nearest_edge(x * x_), nearest_edge(y * y_)}; }

  Places placed(const Shape& shape) const {
    Places places{};
    std::ranges::transform(shape.spots, places.begin(), [this](Spot spot) { return place(spot.x, spot.y); });
    return places;
  }

  void line(const Shape& shape) const {
    const LOGBRUSH colour{BS_SOLID, colour_ref(shape.ink), 0};
    const int width = std::max(1, nearest_edge(shape.width * std::min(x_, y_)));
    const HPEN pen = ExtCreatePen(PS_GEOMETRIC | PS_SOLID | PS_ENDCAP_ROUND | PS_JOIN_ROUND,
                                  static_cast<DWORD>(width), &colour, 0, nullptr);
    const HGDIOBJ before = SelectObject(dc_, pen);
    const auto places = placed(shape);
    Polyline(dc_, places.data(), static_cast<int>(shape.spots.size()));
    SelectObject(dc_, before);
    DeleteObject(pen);
  }

  void discs(const Shape& shape) const {
    const double half = shape.width / 2;
    for (const auto& [x, y] : shape.spots) {
      const POINT from = place(x - half, y - half), to = place(x + half, y + half);
      Ellipse(dc_, from.x, from.y, to.x + 1, to.y + 1);  // without a pen it is one pixel smaller
    }
  }

  HDC dc_;
  double x_, y_;
};

// What is in the fine picture where each pixel of the coarse one is.
void enlarge(const MemoryBitmap& coarse, const MemoryBitmap& fine) {
  const auto from = coarse.pixels(), to = fine.pixels();
  const auto width = static_cast<std::size_t>(fine.size().cx);
  for (std::size_t at = 0; at < to.size(); ++at) {
    const std::size_t row = at / width / fineness, column = at % width / fineness;
    to[at] = from[row * (width / fineness) + column];
  }
}

// The mean of the fine picture's pixels that one coarse pixel covers, from the pixel at their top left on.
std::array<std::uint32_t, 3> mean(const std::uint32_t* pixel, std::size_t width) {
  std::array<std::uint32_t, 3> sums{};
  for (std::size_t row = 0; row < fineness; ++row)
    for (std::size_t column = 0; column < fineness; ++column)
      for (unsigned channel = 0; channel < 3; ++channel)
        sums[channel] += pixel[row * width + column] >> (8 * channel) & 0xFFU;
  for (std::uint32_t& sum : sums) sum = (sum + fineness * fineness / 2) / (fineness * fineness);
  return sums;
}

// The pixel that shows: the picture itself, or what it leaves of the light from below.
std::uint32_t composed(const std::array<std::uint32_t, 3>& channels, std::uint32_t below, Raster raster) {
  std::uint32_t pixel = 0;
  for (unsigned channel = 0; channel < 3; ++channel) {
    const std::uint32_t lit = raster == Raster::And ? below >> (8 * channel) & 0xFFU : 255;
    pixel |= (channels[channel] * lit + 127) / 255 << (8 * channel);
  }
  return pixel;
}

void reduce(const MemoryBitmap& fine, const MemoryBitmap& coarse, Raster raster) {
  const auto from = fine.pixels(), to = coarse.pixels();
  const auto width = static_cast<std::size_t>(coarse.size().cx);
  for (std::size_t at = 0; at < to.size(); ++at) {
    const std::uint32_t* const corner =
        &from[at / width * fineness * width * fineness + at % width * fineness];
    to[at] = composed(mean(corner, width * fineness), to[at], raster);
  }
}

}  // namespace

void paint_picture(HDC dc, const RECT& box, Picture picture, Raster raster) {
  const SIZE size{box.right - box.left, box.bottom - box.top};
  const std::span<const Shape> shapes = platform::picture::shapes_of(picture);
  if (shapes.empty() || size.cx <= 0 || size.cy <= 0) return;
  const MemoryBitmap coarse(size), fine({size.cx * fineness, size.cy * fineness});
  if (!coarse.made() || !fine.made()) return;
  // A printer cannot be read: what is below counts as white there.
  PatBlt(coarse.dc(), 0, 0, size.cx, size.cy, WHITENESS);
  BitBlt(coarse.dc(), 0, 0, size.cx, size.cy, dc, box.left, box.top, SRCCOPY);
  if (raster == Raster::And)
    PatBlt(fine.dc(), 0, 0, fine.size().cx, fine.size().cy, WHITENESS);
  else
    enlarge(coarse, fine);
  const Brush brush(fine.dc(), fine.size());
  for (const Shape& shape : shapes) brush.paint(shape);
  reduce(fine, coarse, raster);
  BitBlt(dc, box.left, box.top, size.cx, size.cy, coarse.dc(), 0, 0, SRCCOPY);
}

}  // namespace tabulon::activex
