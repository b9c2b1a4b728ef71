#include "hosts/activex/pictures.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <span>

#include "hosts/activex/bitmap.h"
#include "hosts/activex/drawing.h"

namespace tabulon::activex {

using platform::Picture;
using platform::Raster;

namespace {

// ---- What the pictures consist of

constexpr double square = 24;  // the width and height in which the tables place things

struct Spot {
  double x, y;
};

enum class Form : std::uint8_t {
  Area,  // filled
  Line,  // with round ends and corners
  Disc,  // about each spot
};

struct Shape {
  Form form;
  COLORREF colour;
  std::span<const Spot> spots;
  double width = 0;  // of a line, across a disc
};

constexpr COLORREF ink = RGB(0x4B, 0x55, 0x63), faint = RGB(0xD7, 0xDB, 0xE2), pale = RGB(0xDC, 0xEB, 0xFF);
constexpr COLORREF marked = RGB(0xB9, 0xD4, 0xFB), accent = RGB(0x1F, 0x5F, 0xBF);
constexpr COLORREF amber = RGB(0xF2, 0xB0, 0x1E), umber = RGB(0x33, 0x27, 0x0A);
constexpr COLORREF paper = RGB(0xEE, 0xF4, 0xFF), sea = RGB(0x00, 0xA0, 0xA0);
constexpr COLORREF red = RGB(0xC0, 0, 0), bright_red = RGB(0xE0, 0x31, 0x31);

// A table of three by three, in one line that never leaves the paper.
constexpr Spot grid[] = {{4, 4},      {20, 4},    {20, 20}, {4, 20},    {4, 4},    {4, 9.33},  {20, 9.33},
                         {20, 14.67}, {4, 14.67}, {4, 20},  {9.33, 20}, {9.33, 4}, {14.67, 4}, {14.67, 20}};
constexpr Spot first_column[] = {{4, 4}, {9.33, 4}, {9.33, 20}, {4, 20}};
constexpr Spot middle_column[] = {{9.33, 4}, {14.67, 4}, {14.67, 20}, {9.33, 20}};
constexpr Spot middle_row[] = {{4, 9.33}, {20, 9.33}, {20, 14.67}, {4, 14.67}};
constexpr Spot middle_cell[] = {{9.33, 9.33}, {14.67, 9.33}, {14.67, 14.67}, {9.33, 14.67}};

constexpr Spot triangle[] = {{12, 4.2}, {20.6, 19.6}, {3.4, 19.6}, {12, 4.2}};
constexpr Spot exclamation[] = {{12, 8.6}, {12, 14.6}};
constexpr Spot point[] = {{12, 17.9}};
constexpr Shape warning[] = {{Form::Area, amber, triangle},
                             {Form::Line, amber, triangle, 3.2},
                             {Form::Line, umber, exclamation, 2.2},
                             {Form::Disc, umber, point, 2.6}};

constexpr Spot falling[] = {{5, 5}, {19, 19}}, rising[] = {{19, 5}, {5, 19}};
constexpr Shape cross[] = {{Form::Line, red, falling, 2.6}, {Form::Line, red, rising, 2.6}};

constexpr Spot region[] = {{5, 19}, {5, 7}, {11, 5}, {18, 11}, {18, 19}},
               axes[] = {{5, 3}, {5, 19}, {21, 19}};
constexpr Spot edge[] = {{5, 7}, {11, 5}, {18, 11}, {18, 19}};
constexpr Shape simplex[] = {
    {Form::Area, pale, region}, {Form::Line, ink, axes, 1.2}, {Form::Line, accent, edge, 1.8}};

constexpr Spot field[] = {{4, 4}, {20, 4}, {20, 20}, {4, 20}};
constexpr Spot letter_m[] = {{7, 17}, {7, 7}, {12, 13}, {17, 7}, {17, 17}};
constexpr Shape big_m[] = {{Form::Area, pale, field}, {Form::Line, accent, letter_m, 2.2}};

constexpr Shape marked_column[] = {{Form::Area, marked, middle_column}, {Form::Line, ink, grid, 1.2}};
constexpr Shape marked_row[] = {{Form::Area, marked, middle_row}, {Form::Line, ink, grid, 1.2}};

constexpr Spot in_first_cell[] = {{6.7, 6.7}};
constexpr Shape basis[] = {{Form::Area, marked, first_column},
                           {Form::Line, ink, grid, 1.2},
                           {Form::Disc, accent, in_first_cell, 2.4}};

constexpr Shape pivot[] = {{Form::Area, faint, middle_column},
                           {Form::Area, faint, middle_row},
                           {Form::Area, bright_red, middle_cell},
                           {Form::Line, ink, grid, 1.2}};

constexpr Spot sheet[] = {{3, 3}, {21, 3}, {21, 21}, {3, 21}},
               sheet_axes[] = {{6, 3.5}, {6, 18.5}, {21, 18.5}};
constexpr Spot constraint[] = {{6, 8}, {11, 6.5}, {18.5, 11.5}, {18.5, 18.5}},
               level[] = {{8.5, 21}, {21, 8.5}};
constexpr Shape about[] = {{Form::Area, paper, sheet},
                           {Form::Line, ink, sheet_axes, 1.2},
                           {Form::Line, accent, constraint, 1.8},
                           {Form::Line, sea, level, 1.5}};

// In the order of platform::Picture.
constexpr std::span<const Shape> pictures[] = {{},         warning, cross, simplex, big_m, marked_column,
                                               marked_row, basis,   pivot, about};

// ---- Drawing them, larger, to be made smaller

constexpr int fineness = 4;  // pixels of the fine picture in one of the screen, each way

class Brush {
 public:
  Brush(HDC dc, SIZE size) : dc_(dc), x_(size.cx / square), y_(size.cy / square) {}

  void paint(const Shape& shape) const {
    SetDCBrushColor(dc_, shape.colour);
    if (shape.form == Form::Line) return line(shape);
    SelectObject(dc_, GetStockObject(DC_BRUSH));
    SelectObject(dc_, GetStockObject(NULL_PEN));
    if (shape.form == Form::Disc) return discs(shape);
    const auto places = placed(shape);
    Polygon(dc_, places.data(), static_cast<int>(shape.spots.size()));
  }

 private:
  using Places = std::array<POINT, std::size(grid)>;

  POINT place(double x, double y) const { return {nearest_edge(x * x_), nearest_edge(y * y_)}; }

  Places placed(const Shape& shape) const {
    Places places{};
    std::ranges::transform(shape.spots, places.begin(), [this](Spot spot) { return place(spot.x, spot.y); });
    return places;
  }

  void line(const Shape& shape) const {
    const LOGBRUSH colour{BS_SOLID, shape.colour, 0};
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
  const std::span<const Shape> shapes = pictures[static_cast<std::size_t>(picture)];
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
