#include "graph/drawing.h"

#include <string>

#include "platform/texts.h"

namespace tabulon::graph {

using platform::DisplayList;

namespace {

constexpr int divisions = 10;
constexpr double division = side / divisions, tick = 90;
constexpr double label_advance = 45;  // how far each character brings the x1 axis's value to the left

void add_axes(DisplayList& drawing) {
  drawing.line({0, -tick}, {0, side}, colour::ink);
  drawing.line({-tick, 0}, {side, 0}, colour::ink);
  for (int k = 1; k <= divisions; ++k) {
    const double at = division * k;
    drawing.line({at, 0}, {at, side}, colour::grid);
    drawing.line({at, -tick}, {at, 0}, colour::ink);
    drawing.line({0, at}, {side, at}, colour::grid);
    drawing.line({-tick, at}, {0, at}, colour::ink);
  }
}

void add_labels(DisplayList& drawing, AxisTexts ends) {
  const std::string end_of_x1 = std::string(trimmed(ends.x1));
  drawing.text({3090, 120}, "x 1", colour::ink);
  drawing.text({side - label_advance * static_cast<double>(end_of_x1.size()), -120}, end_of_x1, colour::ink);
  drawing.text({-120, 3270}, "x 2", colour::ink);
  drawing.text({45, 3090}, std::string(trimmed(ends.x2)), colour::ink);
}

}  // namespace

DisplayList problem_drawing(std::span<const Constraint> constraints, double range, AxisTexts ends) {
  DisplayList drawing;
  drawing.dots(feasible_dots(constraints, range, colour::region));
  add_axes(drawing);
  add_labels(drawing, ends);
  for (const Constraint& each : constraints)
    if (const auto segment = constraint_segment(each, range))
      drawing.line(segment->from, segment->to, colour::constraint);
  return drawing;
}

DisplayList copied_drawing(DisplayList drawing, const std::optional<Segment>& level,
                           const std::optional<Point>& cross) {
  if (level) drawing.line(level->from, level->to, colour::level);
  if (cross) drawing.stamp(*cross, {cross_size, cross_size}, platform::Picture::Cross, platform::Raster::And);
  return drawing;
}

}  // namespace tabulon::graph
