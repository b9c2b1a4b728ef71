// Random problems in whole numbers, compared with exact whole-number arithmetic.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <set>
#include <utility>

#include "graph/geometry.h"
#include "tests/graph/problems.h"
#include "tests/numbers/random_numbers.h"

namespace tabulon::graph {

namespace {

using numbers::RandomNumbers;
using Whole = std::int64_t;

constexpr int problems = 300;
constexpr double rounding_noise = 1e-9;

Whole whole(double number) {
  return static_cast<Whole>(number);
}

Constraints random_problem(RandomNumbers& random) {
  Constraints constraints;
  for (int row = random.between(1, 5); row > 0; --row)
    constraints.push_back(
        {static_cast<RowKind>(random.between(0, 2)), static_cast<double>(random.between(-6, 9)),
         static_cast<double>(random.between(-6, 9)), static_cast<double>(random.between(-20, 60))});
  return constraints;
}

// Below 0, 0 or above 0 as the point of the 201 by 201 lies below, on or above the line; the range is whole.
Whole side_of(const Constraint& line, int column, int row, double range) {
  return whole(line.a1) * column * whole(range) + whole(line.a2) * row * whole(range) -
         200 * whole(line.right);
}

bool holds(RowKind kind, Whole side_of_line) {
  if (kind == RowKind::LessEqual) return side_of_line <= 0;
  return kind == RowKind::GreaterEqual ? side_of_line >= 0 : side_of_line == 0;
}

using Dots = std::set<std::pair<int, int>>;

Dots drawn_dots(const Constraints& constraints, double range) {
  Dots drawn;
  const auto dots = feasible_dots(constraints, range, {});
  EXPECT_EQ(dots.step, (Point{0, 15}));
  for (const auto& run : dots.runs)
    for (std::uint32_t at = 0; at < run.count; ++at)
      EXPECT_TRUE(drawn
                      .emplace(static_cast<int>(run.first.x / 15),
                               static_cast<int>(run.first.y / 15) + static_cast<int>(at))
                      .second);
  return drawn;
}

// On a line the arithmetic of the drawing has the last word; everywhere else there is only one answer.
void expect_dots(const Constraints& constraints, double range) {
  const Dots drawn = drawn_dots(constraints, range);
  for (int column = 0; column <= 200; ++column)
    for (int row = 0; row <= 200; ++row) {
      bool feasible = true, on_a_line = false;
      for (const Constraint& each : constraints) {
        const Whole side_of_line = side_of(each, column, row, range);
        feasible = feasible && holds(each.kind, side_of_line);
        on_a_line = on_a_line || side_of_line == 0;
      }
      const PlanePoint point{column * 15 / 3000.0 * range, row * 15 / 3000.0 * range};
      const bool wanted = on_a_line ? is_feasible(constraints, point) : feasible;
      ASSERT_EQ(drawn.contains({column, row}), wanted) << column << ", " << row;
    }
}

bool on_the_edge(Point point) {
  return point.x == 0 || point.y == 0 || point.x == side || point.y == side;
}

// A slanting line crosses the square exactly when the square's corners lie on both sides of it.
void expect_segment(const Constraint& line, double range) {
  Whole lowest = 0, highest = 0;
  for (const auto& [column, row] : {std::pair(0, 0), {0, 200}, {200, 0}, {200, 200}}) {
    const Whole at = side_of(line, column, row, range);
    lowest = std::min(lowest, at);
    highest = std::max(highest, at);
  }
  const auto segment = constraint_segment(line, range);
  ASSERT_EQ(segment.has_value(), lowest < 0 && highest > 0);
  if (!segment) return;
  EXPECT_NE(segment->from, segment->to);
  for (const Point end : {segment->from, segment->to}) {
    EXPECT_TRUE(on_the_edge(end));
    const PlanePoint point = problem_point(end, range);
    EXPECT_NEAR(line.a1 * point.x1 + line.a2 * point.x2, line.right, rounding_noise * range);
  }
}

}  // namespace

TEST(RandomProblems, TheRegionHoldsExactlyTheFeasibleDots) {
  RandomNumbers random;
  SCOPED_TRACE(random.seed_text());
  for (int problem = 0; problem < problems; ++problem) {
    const Constraints constraints = random_problem(random);
    const double range = axis_range(constraints);
    if (range != std::floor(range)) continue;
    expect_dots(constraints, range);
    if (HasFatalFailure()) FAIL() << "problem " << problem;
  }
}

TEST(RandomProblems, EveryLineThatCrossesTheSquareIsDrawnFromEdgeToEdge) {
  RandomNumbers random;
  SCOPED_TRACE(random.seed_text());
  for (int problem = 0; problem < problems; ++problem) {
    const Constraints constraints = random_problem(random);
    const double range = std::ceil(axis_range(constraints));
    for (const Constraint& line : constraints)
      if (line.a1 != 0 && line.a2 != 0) expect_segment(line, range);
    if (HasFatalFailure()) FAIL() << "problem " << problem;
  }
}

TEST(RandomProblems, NoInterceptLiesBeyondTheRangeAndOneIsNear) {
  RandomNumbers random;
  SCOPED_TRACE(random.seed_text());
  for (int problem = 0; problem < problems; ++problem) {
    const Constraints constraints = random_problem(random);
    const double range = axis_range(constraints);
    bool one_is_near = false, any = false;
    for (const Constraint& each : constraints)
      for (const double coefficient : {each.a1, each.a2}) {
        if (coefficient == 0 || each.right / coefficient <= 0) continue;
        any = true;
        EXPECT_LE(each.right / coefficient, range);
        one_is_near = one_is_near || 2 * (each.right / coefficient) >= range * (1 - rounding_noise);
      }
    EXPECT_TRUE(any ? one_is_near : range == 100) << "problem " << problem;
  }
}

TEST(RandomProblems, TheLevelLineOfAPointInTheSquareGoesThroughIt) {
  RandomNumbers random;
  SCOPED_TRACE(random.seed_text());
  for (int problem = 0; problem < problems; ++problem) {
    const double range = random.between(1, 900);
    const PlanePoint point{range * random.between(1, 199) / 200, range * random.between(1, 199) / 200};
    const Objective objective{static_cast<double>(random.between(-9, 9)),
                              static_cast<double>(random.between(-9, 9))};
    const auto line = level_line(objective, point, range);
    ASSERT_EQ(line.has_value(), objective.c1 != 0 || objective.c2 != 0) << "problem " << problem;
    if (!line) continue;
    EXPECT_TRUE(line->visible);
    const auto [from, to] = line->segment;
    EXPECT_TRUE(on_the_edge(from) && on_the_edge(to)) << "problem " << problem;
    ASSERT_GT(std::hypot(to.x - from.x, to.y - from.y), 1) << "problem " << problem;
    const Point at = drawing_point(point, range);
    const double off = (to.x - from.x) * (at.y - from.y) - (to.y - from.y) * (at.x - from.x);
    EXPECT_NEAR(off / std::hypot(to.x - from.x, to.y - from.y), 0, 1e-6) << "problem " << problem;
  }
}

}  // namespace tabulon::graph
