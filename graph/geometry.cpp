#include "graph/geometry.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "numbers/decimal.h"

namespace tabulon::graph {

namespace {

constexpr double intercept_without_any = 99;
constexpr int dots_per_side = static_cast<int>(side / dot_pitch) + 1;

// What the drag reads the centre with. The half unit to cross_half makes the corner of the square a hair
// less than 0, which the rounding takes away.
constexpr double read_half = 112;

}  // namespace

// ---- From the model

Result<std::vector<Constraint>> constraints_of(const basSafeCtl& model) {
  const Shape shape = TRY(model.shape());
  std::vector<Constraint> constraints;
  for (int row = 1; row <= shape.rows; ++row) {
    const CellRow& cells = model.first.row(row);
    constraints.push_back({model.kind_of_row(row), cells.value(1), cells.value(2), cells.right()});
  }
  return constraints;
}

Objective objective_of(const basSafeCtl& model) {
  return {model.first.row_F().value(1), model.first.row_F().value(2)};
}

Result<PlanePoint> basic_point(const basSafeCtl& model) {
  const Shape shape = TRY(model.shape());
  PlanePoint point;
  for (int row = 1; row <= shape.rows; ++row) {
    if (model.current.basis(row) == 1) point.x1 = model.current.row(row).right();
    if (model.current.basis(row) == 2) point.x2 = model.current.row(row).right();
  }
  return point;
}

// ---- The axes

namespace {

// 0 where the line does not meet the axis, or beyond what a number can hold.
double intercept(double right, double coefficient) {
  const double at = coefficient != 0 ? right / coefficient : 0;
  return std::isfinite(at) ? at : 0;
}

double up_to_next_digit(double number) {
  const double unit = std::pow(10.0, numbers::to_decimal(number).exponent);
  const double up = std::floor(number / unit + 1) * unit;
  return std::isfinite(up) && up > 0 ? up : number;
}

}  // namespace

double axis_range(std::span<const Constraint> constraints) {
  double farthest = 0;
  for (const Constraint& each : constraints)
    farthest = std::max({farthest, intercept(each.right, each.a1), intercept(each.right, each.a2)});
  return up_to_next_digit(farthest != 0 ? farthest : intercept_without_any);
}

Point drawing_point(PlanePoint point, double range) {
  return {side * point.x1 / range, side * point.x2 / range};
}

PlanePoint problem_point(Point point, double range) {
  return {point.x / side * range, point.y / side * range};
}

// ---- The feasible region

bool is_feasible(std::span<const Constraint> constraints, PlanePoint point) {
  return std::ranges::all_of(constraints, [point](const Constraint& each) {
    const double left = each.a1 * point.x1 + each.a2 * point.x2;
    switch (each.kind) {
      case RowKind::LessEqual:
        return left <= each.right;
      case RowKind::GreaterEqual:
        return left >= each.right;
      case RowKind::Equal:
        break;
    }
    return left == each.right;
  });
}

platform::stroke::DotRuns feasible_dots(std::span<const Constraint> constraints, double range,
                                        platform::Colour colour) {
  platform::stroke::DotRuns dots{{0, dot_pitch}, {}, colour};
  for (int column = 0; column < dots_per_side; ++column) {
    bool in_run = false;
    for (int row = 0; row < dots_per_side; ++row) {
      const Point at{column * dot_pitch, row * dot_pitch};
      const bool feasible = is_feasible(constraints, problem_point(at, range));
      if (feasible && in_run) ++dots.runs.back().count;
      if (feasible && !in_run) dots.runs.push_back({at, 1});
      in_run = feasible;
    }
  }
  return dots;
}

// ---- Lines

namespace {

// Where a line meets one edge of the square: `free` is the coordinate along that edge.
struct Crossing {
  PlanePoint at;
  double free;
  bool owns_start, owns_end;  // a corner belongs to one of its two edges
};

std::array<Crossing, 4> crossings(double a1, double a2, double right, double range) {
  const double x2_axis = right / a2, x1_axis = right / a1;
  const double right_edge = (right - a1 * range) / a2, top_edge = (right - a2 * range) / a1;
  return {{{{0, x2_axis}, x2_axis, false, true},
           {{x1_axis, 0}, x1_axis, true, false},
           {{range, right_edge}, right_edge, true, false},
           {{top_edge, range}, top_edge, false, true}}};
}

bool on_own_edge(const Crossing& crossing, double range) {
  return (crossing.owns_start ? crossing.free >= 0 : crossing.free > 0) &&
         (crossing.owns_end ? crossing.free <= range : crossing.free < range);
}

bool on_edge(const Crossing& crossing, double range) {
  return crossing.free >= 0 && crossing.free <= range;
}

// What two calculations of one corner may differ by, in user units.
constexpr double same_corner = 1e-6;

bool same(Point one, Point other) {
  return std::hypot(one.x - other.x, one.y - other.y) < same_corner;
}

// From the first accepted crossing to the second. A corner that both of its edges accept is one end; where
// the line only touches it, both.
std::optional<Segment> between_crossings(const std::array<Crossing, 4>& all, double range,
                                         bool (*accepted)(const Crossing&, double)) {
  std::optional<Point> from, touched;
  for (const Crossing& each : all) {
    if (!accepted(each, range)) continue;
    const Point at = drawing_point(each.at, range);
    if (from && !same(*from, at)) return Segment{*from, at};
    (from ? touched : from) = at;
  }
  return touched ? std::optional(Segment{*from, *touched}) : std::nullopt;
}

// Over the whole length of the square, at x2 or x1; nothing where no number can say where that is.
std::optional<Segment> horizontal(double x2, double range) {
  const double at = side * x2 / range;
  if (!std::isfinite(at)) return {};
  return Segment{{0, at}, {side, at}};
}

std::optional<Segment> vertical(double x1, double range, double from, double to) {
  const double at = side * x1 / range;
  if (!std::isfinite(at)) return {};
  return Segment{{at, from}, {at, to}};
}

}  // namespace

std::optional<Segment> constraint_segment(const Constraint& constraint, double range) {
  const auto [kind, a1, a2, right] = constraint;
  if (a1 == 0 && a2 == 0) return {};
  if (a1 == 0) return horizontal(right / a2, range);
  if (a2 == 0) return vertical(right / a1, range, 0, side);
  return between_crossings(crossings(a1, a2, right, range), range, on_own_edge);
}

double objective_value(Objective objective, PlanePoint point) {
  return -(objective.c1 * point.x1 + objective.c2 * point.x2);
}

std::optional<LevelLine> level_line(Objective objective, PlanePoint point, double range) {
  const auto [c1, c2] = objective;
  if (c1 == 0 && c2 == 0) return {};
  const double right = -objective_value(objective, point);
  const bool straight = c1 == 0 || c2 == 0;
  const double at = c1 == 0 ? right / c2 : right / c1;
  const auto segment = c1 == 0   ? horizontal(at, range)
                       : c2 == 0 ? vertical(at, range, side, 0)
                                 : between_crossings(crossings(c1, c2, right, range), range, on_edge);
  if (!segment) return {};
  // A level line that lies in an axis is not shown.
  return LevelLine{!straight || at != 0, *segment};
}

// ---- The cross

Point cross_place(PlanePoint point, double range) {
  const Point centre = drawing_point(point, range);
  return {centre.x - cross_half, centre.y + cross_half};
}

Point kept_in_square(Point place) {
  return {std::clamp(place.x, -cross_half, side - cross_half),
          std::clamp(place.y, cross_half, side + cross_half)};
}

PlanePoint point_under_cross(Point place, double range) {
  const PlanePoint point = problem_point({place.x + read_half, place.y - read_half}, range);
  return {rounded(point.x1, range), rounded(point.x2, range)};
}

namespace {

// How many of the smallest shown steps there are in 1.
double steps_in_one(double range) {
  return std::pow(10.0, 2 - std::floor(std::log10(range) + 0.2));
}

}  // namespace

double rounded(double value, double range) {
  const double steps = steps_in_one(range);
  return std::isfinite(steps) ? std::floor(steps * value + 0.5) / steps : value;
}

PlanePoint stepped(PlanePoint point, int right, int up, double range) {
  const double step = 1 / steps_in_one(range);
  const auto moved = [&](double value, int by) {
    return std::clamp(rounded(value + by * step, range), 0.0, range);
  };
  return {moved(point.x1, right), moved(point.x2, up)};
}

}  // namespace tabulon::graph
