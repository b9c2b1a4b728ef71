#include "hosts/activex/drawing.h"

#include <algorithm>
#include <cmath>

#include "hosts/activex/colours.h"
#include "hosts/activex/pictures.h"
#include "hosts/activex/pixels.h"
#include "hosts/activex/smooth_line.h"
#include "hosts/activex/text.h"
#include "platform/look.h"

namespace tabulon::activex {

namespace stroke = platform::stroke;
using platform::Colour;
using platform::Point;

namespace {

constexpr double dots_per_inch = platform::measure::pixels_per_inch;

// Whole pixels, as for every other line of the control.
int line_width(int dpi) {
  return std::max(1, dpi / platform::measure::pixels_per_inch);
}

// What is smoothed is paler than what is sharp, so it is a little thicker where a line is thin.
constexpr double least_smooth_width = 1.5;

// The side of a dot, in a box so many pixels long. The box itself was rounded to whole pixels; a dot grows
// with it, so that dots which touch at one density touch at every one.
double dot_side(int dpi, long length) {
  const double pixels = static_cast<double>(std::max(length, 1L));
  return dpi / dots_per_inch * pixels / (pixels - 0.5);
}

// Fills with the colour of the DC's own brush.
void fill(HDC dc, double left, double top, double right, double bottom) {
  const RECT box{nearest_edge(left), nearest_edge(top), nearest_edge(right), nearest_edge(bottom)};
  FillRect(dc, &box, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
}

HPEN make_pen(int width, COLORREF colour) {
  if (width == 1) return CreatePen(PS_SOLID, 1, colour);
  const LOGBRUSH ink{BS_SOLID, colour, 0};
  return ExtCreatePen(PS_GEOMETRIC | PS_SOLID | PS_ENDCAP_FLAT, static_cast<DWORD>(width), &ink, 0, nullptr);
}

void pen_line(HDC dc, Point from, Point to, COLORREF colour, int width) {
  const HPEN pen = make_pen(width, colour);
  const HGDIOBJ before = SelectObject(dc, pen);
  const POINT end{nearest_edge(to.x), nearest_edge(to.y)};
  MoveToEx(dc, nearest_edge(from.x), nearest_edge(from.y), nullptr);
  LineTo(dc, end.x, end.y);
  SelectObject(dc, before);
  DeleteObject(pen);
}

void slanting_line(HDC dc, Point from, Point to, COLORREF colour, int width) {
  const auto middle = [width](Point dot) -> Point { return {dot.x + width / 2.0, dot.y + width / 2.0}; };
  from = middle(from);
  to = middle(to);
  if (!paint_smooth_line(dc, from, to, colour, std::max<double>(width, least_smooth_width)))
    pen_line(dc, from, to, colour, width);
}

class Strokes {
 public:
  Strokes(HDC dc, SIZE size, const platform::Scale& scale, int dpi)
      : dc_(dc),
        scale_(pixel_scale(scale, size)),
        dot_{dot_side(dpi, size.cx), dot_side(dpi, size.cy)},
        dpi_(dpi) {}

  void operator()(const stroke::Dots& dots) {
    SetDCBrushColor(dc_, colour_ref(dots.colour));
    for (const Point& point : dots.points) dot(scale_.pixels(point));
  }

  void operator()(const stroke::DotRuns& dots) {
    SetDCBrushColor(dc_, colour_ref(dots.colour));
    const Point step{dots.step.x * scale_.unit_x, dots.step.y * scale_.unit_y};
    for (const stroke::DotRuns::Run& run : dots.runs) this->run(scale_.pixels(run.first), run.count, step);
  }

  void operator()(const stroke::Segment& line) {
    paint_line(dc_, scale_.pixels(line.from), scale_.pixels(line.to), line.colour, dpi_);
  }

  void operator()(const stroke::Text& text) {
    const Point at = scale_.pixels(text.at);
    const std::wstring letters = wide(text.text);
    SetTextColor(dc_, colour_ref(text.colour));
    TextOutW(dc_, nearest_edge(at.x), nearest_edge(at.y), letters.data(), static_cast<int>(letters.size()));
  }

  void operator()(const stroke::Stamp& stamp) {
    const Point at = scale_.pixels(stamp.at);
    const double width = std::abs(stamp.size.x * scale_.unit_x);
    const double height = std::abs(stamp.size.y * scale_.unit_y);
    paint_picture(
        dc_,
        {nearest_edge(at.x), nearest_edge(at.y), nearest_edge(at.x + width), nearest_edge(at.y + height)},
        stamp.picture, stamp.raster);
  }

 private:
  void dot(Point at) { fill(dc_, at.x, at.y, at.x + dot_.x, at.y + dot_.y); }

  bool touching(Point step) const {
    return (step.x == 0 && std::abs(step.y) <= dot_.y) || (step.y == 0 && std::abs(step.x) <= dot_.x);
  }

  // Dots that touch along an axis are one rectangle.
  void run(Point first, std::uint32_t count, Point step) {
    if (count == 0) return;
    const Point last{first.x + step.x * (count - 1), first.y + step.y * (count - 1)};
    if (touching(step))
      fill(dc_, std::min(first.x, last.x), std::min(first.y, last.y), std::max(first.x, last.x) + dot_.x,
           std::max(first.y, last.y) + dot_.y);
    else
      for (std::uint32_t at = 0; at < count; ++at) dot({first.x + at * step.x, first.y + at * step.y});
  }

  HDC dc_;
  PixelScale scale_;
  Point dot_;
  int dpi_;
};

}  // namespace

void paint_drawing(HDC dc, const RECT& box, const platform::Scale& scale,
                   const platform::DisplayList& drawing, HFONT letters, int dpi) {
  const int before = SaveDC(dc);
  IntersectClipRect(dc, box.left, box.top, box.right, box.bottom);
  OffsetViewportOrgEx(dc, box.left, box.top, nullptr);
  SelectObject(dc, letters);
  SetBkMode(dc, TRANSPARENT);
  SetTextAlign(dc, TA_LEFT | TA_TOP);
  Strokes strokes(dc, {box.right - box.left, box.bottom - box.top}, scale, dpi);
  for (const platform::Stroke& each : drawing.strokes()) std::visit(strokes, each);
  RestoreDC(dc, before);
}

// A line covers the dots of its points.
void paint_line(HDC dc, Point from, Point to, Colour colour, int dpi) {
  constexpr double straight = 0.01;
  const int width = line_width(dpi);
  const double left = std::min(from.x, to.x), top = std::min(from.y, to.y);
  const double across = std::abs(from.x - to.x), down = std::abs(from.y - to.y);
  if (across >= straight && down >= straight) return slanting_line(dc, from, to, colour_ref(colour), width);
  SetDCBrushColor(dc, colour_ref(colour));
  fill(dc, left, top, left + width + (across < straight ? 0 : across),
       top + width + (down < straight ? 0 : down));
}

}  // namespace tabulon::activex
