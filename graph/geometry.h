// What there is to draw of a problem with two decision variables, as numbers.
//
//   const auto constraints = *constraints_of(model);      // of the first tableau
//   const double range = axis_range(constraints);         // where both axes end
//   constraint_segment(constraints[0], range);            // {{0, 2700}, {1800, 0}} for 3 x1 + 2 x2 <= 18
//   level_line(objective_of(model), basic_point(model), range);
//
// Problem points are (x1, x2); drawing points are in user units, in a square of 3000 by 3000 with the origin
// at the bottom left. Both axes end at the same value, the range.
#pragma once

#include <optional>
#include <span>
#include <vector>

#include "control/basSafeCtl.h"
#include "platform/display_list.h"

namespace tabulon::graph {

using platform::Point;

inline constexpr double side = 3000;                  // of the drawing square
inline constexpr double dot_pitch = 15;               // between the dots of the feasible region
inline constexpr double cross_size = 225;             // of the cross that marks the point
inline constexpr double cross_half = cross_size / 2;  // from its top left to its centre

struct PlanePoint {
  double x1 = 0, x2 = 0;
  friend bool operator==(const PlanePoint&, const PlanePoint&) = default;
};

// a1 x1 + a2 x2, and how it compares with the right-hand side.
struct Constraint {
  RowKind kind = RowKind::LessEqual;
  double a1 = 0, a2 = 0, right = 0;
};

// The first two numbers of row F: the objective's coefficients with the opposite sign.
struct Objective {
  double c1 = 0, c2 = 0;
};

struct Segment {
  Point from, to;
  friend bool operator==(const Segment&, const Segment&) = default;
};

// ---- From the model
// The constraints as they were first entered. Error 9 when the counts are beyond the storage.
Result<std::vector<Constraint>> constraints_of(const basSafeCtl& model);
Objective objective_of(const basSafeCtl& model);  // likewise
// The current basic solution. Error 9 as above.
Result<PlanePoint> basic_point(const basSafeCtl& model);

// ---- The axes
// The farthest positive intercept of any constraint, rounded up to the next leading digit: 6 gives 7 and 45
// gives 50. 100 when there is none. Finite and above 0.
double axis_range(std::span<const Constraint> constraints);
Point drawing_point(PlanePoint point, double range);
PlanePoint problem_point(Point point, double range);

// ---- The feasible region
// Equations are compared exactly.
bool is_feasible(std::span<const Constraint> constraints, PlanePoint point);
// The feasible points among the 201 by 201 of the square, in columns from left to right, each upwards.
platform::stroke::DotRuns feasible_dots(std::span<const Constraint> constraints, double range,
                                        platform::Colour colour);

// ---- Lines
// The part of the constraint's line that is drawn; nothing when it passes the square by. A horizontal or
// vertical line is drawn over the whole square's length wherever it lies.
std::optional<Segment> constraint_segment(const Constraint& constraint, double range);

double objective_value(Objective objective, PlanePoint point);

// A new state of the level line. Its ends count also where it is not visible.
struct LevelLine {
  bool visible = true;
  Segment segment;
};
// The line through the point on which the objective has one value. Nothing when the line stays as it is:
// without an objective, and where the line does not reach the square.
std::optional<LevelLine> level_line(Objective objective, PlanePoint point, double range);

// ---- The cross; its place is its top left in the drawing
Point cross_place(PlanePoint point, double range);
// The nearest place that keeps the cross's centre in the square.
Point kept_in_square(Point place);
// The point that the cross stands for, rounded as it is shown.
PlanePoint point_under_cross(Point place, double range);

// To the number of decimals that suits the range: one for 7 and 50, none for 100, three for 0.6.
double rounded(double value, double range);
// So many smallest steps to the right and upwards of a rounded point, within the square.
PlanePoint stepped(PlanePoint point, int right, int up, double range);

}  // namespace tabulon::graph
