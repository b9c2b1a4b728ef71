// What a picture box shows, as a list of strokes in its user units; a host replays it at any density.
//
//   DisplayList picture;
//   picture.line({0, 0}, {3000, 0}, rgb(0, 0, 0));
//   box.set_drawing(std::move(picture));
#pragma once

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

#include "platform/geometry.h"

namespace tabulon::platform {

struct Point {
  double x = 0, y = 0;
  friend bool operator==(const Point&, const Point&) = default;
};

// The user coordinates of a picture box's corners; y may grow upwards.
struct Scale {
  Point top_left, bottom_right;
  friend bool operator==(const Scale&, const Scale&) = default;
};

// Pictures that every host carries, by name; platform/pictures.h says what they consist of.
enum class Picture : std::uint8_t {
  None,
#define PICTURE(name, shapes) name,
#include "platform/pictures.def"
};

namespace stroke {
struct Dots {  // one point each, the size of a host's pixel at 1x or larger
  std::vector<Point> points;
  Colour colour;
  friend bool operator==(const Dots&, const Dots&) = default;
};
struct DotRuns {  // dots in straight runs: each run's first dot, and so many `step` apart
  struct Run {
    Point first;
    std::uint32_t count = 0;
    friend bool operator==(const Run&, const Run&) = default;
  };
  Point step;
  std::vector<Run> runs;
  Colour colour;
  friend bool operator==(const DotRuns&, const DotRuns&) = default;
};
struct Segment {
  Point from, to;
  Colour colour;
  friend bool operator==(const Segment&, const Segment&) = default;
};
struct Text {  // `at` is the top left of the first letter
  Point at;
  std::string text;
  Colour colour;
  friend bool operator==(const Text&, const Text&) = default;
};
struct Stamp {  // a picture, `at` its top left, `size` in user units
  Point at;
  Point size;
  Picture picture;
  Raster raster;
  friend bool operator==(const Stamp&, const Stamp&) = default;
};
}  // namespace stroke

using Stroke = std::variant<stroke::Dots, stroke::Segment, stroke::Text, stroke::Stamp, stroke::DotRuns>;

class DisplayList {
 public:
  void dots(std::vector<Point> points, Colour colour) {
    strokes_.emplace_back(stroke::Dots{std::move(points), colour});
  }
  void dots(stroke::DotRuns runs) { strokes_.emplace_back(std::move(runs)); }
  void line(Point from, Point to, Colour colour) { strokes_.emplace_back(stroke::Segment{from, to, colour}); }
  void text(Point at, std::string words, Colour colour) {
    strokes_.emplace_back(stroke::Text{at, std::move(words), colour});
  }
  void stamp(Point at, Point size, Picture picture, Raster raster) {
    strokes_.emplace_back(stroke::Stamp{at, size, picture, raster});
  }
  void clear() { strokes_.clear(); }
  const std::vector<Stroke>& strokes() const { return strokes_; }
  friend bool operator==(const DisplayList&, const DisplayList&) = default;

 private:
  std::vector<Stroke> strokes_;
};

}  // namespace tabulon::platform
