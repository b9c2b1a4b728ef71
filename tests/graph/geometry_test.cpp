#include "graph/geometry.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>

#include "tests/graph/problems.h"

namespace tabulon::graph {

namespace {

constexpr double rounding_noise = 1e-9;

void expect_point(Point actual, Point wanted) {
  EXPECT_NEAR(actual.x, wanted.x, rounding_noise);
  EXPECT_NEAR(actual.y, wanted.y, rounding_noise);
}

void expect_segment(const std::optional<Segment>& actual, Point from, Point to) {
  ASSERT_TRUE(actual);
  expect_point(actual->from, from);
  expect_point(actual->to, to);
}

void expect_line(const std::optional<LevelLine>& actual, Point from, Point to) {
  ASSERT_TRUE(actual);
  EXPECT_TRUE(actual->visible);
  expect_segment(actual->segment, from, to);
}

std::optional<Segment> segment_of(double a1, double a2, double right, double range) {
  return constraint_segment(at_most(a1, a2, right), range);
}

// The problem as a model holds it once it has been entered.
basSafeCtl model_of(const Constraints& constraints, Objective objective) {
  basSafeCtl model;
  const auto count = [&](RowKind kind) {
    return static_cast<std::int16_t>(
        std::ranges::count_if(constraints, [kind](const Constraint& each) { return each.kind == kind; }));
  };
  model.NrKleinerGelijkVglen = count(RowKind::LessEqual);
  model.NrGroterGelijkVglen = count(RowKind::GreaterEqual);
  model.NrGelijkVglen = count(RowKind::Equal);
  EXPECT_TRUE(model.set_derived_counts());
  EXPECT_TRUE(InitTableau(model));
  for (std::size_t at = 0; at < constraints.size(); ++at) {
    CellRow& row = model.first.row(static_cast<int>(at) + 1);
    row.write(1, constraints[at].a1);
    row.write(2, constraints[at].a2);
    row.write(CellRow::right_hand_side, constraints[at].right);
  }
  model.first.row_F().write(1, objective.c1);
  model.first.row_F().write(2, objective.c2);
  return model;
}

}  // namespace

// ---- From the model

TEST(FromTheModel, ConstraintsAreThoseOfTheFirstTableauWithTheirKinds) {
  basSafeCtl model = model_of(blend, {-2, -1});
  model.current.row(1).write(1, 77);
  const auto constraints = constraints_of(model);
  ASSERT_TRUE(constraints);
  ASSERT_EQ(constraints->size(), 3U);
  for (std::size_t at = 0; at < 3; ++at) {
    EXPECT_EQ((*constraints)[at].kind, blend[at].kind);
    EXPECT_EQ((*constraints)[at].a1, blend[at].a1);
    EXPECT_EQ((*constraints)[at].a2, blend[at].a2);
    EXPECT_EQ((*constraints)[at].right, blend[at].right);
  }
}

TEST(FromTheModel, TheObjectiveIsThatOfTheFirstTableau) {
  basSafeCtl model = model_of(blend, {-2, -1});
  model.current.row_F().write(1, 0);
  EXPECT_EQ(objective_of(model).c1, -2);
  EXPECT_EQ(objective_of(model).c2, -1);
}

TEST(FromTheModel, ThePointIsTheCurrentBasicSolutionAndWhatIsNotBasicIsZero) {
  basSafeCtl model = model_of(two_products, {-3, -5});
  EXPECT_EQ(basic_point(model), (PlanePoint{0, 0}));
  model.current.set_basis(2, 2);
  model.current.row(2).write(CellRow::right_hand_side, 6);
  EXPECT_EQ(basic_point(model), (PlanePoint{0, 6}));
  model.current.set_basis(3, 1);
  model.current.row(3).write(CellRow::right_hand_side, 2);
  EXPECT_EQ(basic_point(model), (PlanePoint{2, 6}));
}

TEST(FromTheModel, CountsBeyondTheStorageAreErrorNine) {
  basSafeCtl model;
  model.NrKleinerGelijkVglen = 11;
  EXPECT_EQ(constraints_of(model).error().number, ErrorNumber::SubscriptOutOfRange);
  EXPECT_EQ(basic_point(model).error().number, ErrorNumber::SubscriptOutOfRange);
}

// ---- The axes

TEST(AxisRange, IsTheFarthestInterceptRoundedUpToTheNextLeadingDigit) {
  const std::pair<double, double> examples[] = {{6, 7},     {45, 50},    {99, 100},    {0.5, 0.6},
                                                {8, 9},     {9, 10},     {10, 20},     {1, 2},
                                                {100, 200}, {999, 1000}, {1000, 2000}, {0.045, 0.05}};
  for (const auto [intercept, range] : examples)
    EXPECT_DOUBLE_EQ(axis_range(Constraints{at_most(1, 0, intercept)}), range) << intercept;
}

TEST(AxisRange, TakesTheFarthestOfAllInterceptsOnBothAxes) {
  EXPECT_DOUBLE_EQ(axis_range(two_products), 10);
  EXPECT_DOUBLE_EQ(axis_range(diet), 7);
  EXPECT_DOUBLE_EQ(axis_range(blend), 6);
  EXPECT_DOUBLE_EQ(axis_range(unbounded), 5);
  EXPECT_DOUBLE_EQ(axis_range(redundant), 20);
}

TEST(AxisRange, IsHundredWithoutAPositiveIntercept) {
  EXPECT_DOUBLE_EQ(axis_range({}), 100);
  EXPECT_DOUBLE_EQ(axis_range(Constraints{at_most(0, 0, 5)}), 100);
  EXPECT_DOUBLE_EQ(axis_range(Constraints{at_most(1, 2, 0)}), 100);
  EXPECT_DOUBLE_EQ(axis_range(Constraints{at_most(1, 2, -6)}), 100);
}

TEST(AxisRange, CountsAPositiveInterceptOfTwoNegativeNumbers) {
  EXPECT_DOUBLE_EQ(axis_range(Constraints{at_least(-2, 0, -12)}), 7);
}

TEST(AxisRange, IsFiniteAndPositiveAtTheEndsOfTheNumbers) {
  const double largest = std::numeric_limits<double>::max();
  const double smallest = std::numeric_limits<double>::denorm_min();
  for (const Constraint& extreme : {at_most(1, 0, largest), at_most(smallest, 1, 1), at_most(1, 0, smallest),
                                    at_most(1, largest, smallest)}) {
    const double range = axis_range(Constraints{extreme});
    EXPECT_TRUE(std::isfinite(range)) << extreme.a1;
    EXPECT_GT(range, 0) << extreme.a1;
  }
}

TEST(DrawingPoint, MapsTheRangeToTheSquareAndBack) {
  expect_point(drawing_point({2, 6}, 10), {600, 1800});
  expect_point(drawing_point({10, 0}, 10), {3000, 0});
  EXPECT_EQ(problem_point({600, 1800}, 10), (PlanePoint{2, 6}));
}

// ---- The feasible region

TEST(Feasible, EachKindOfRowComparesItsOwnWay) {
  EXPECT_TRUE(is_feasible(Constraints{at_most(1, 1, 3)}, {1, 2}));
  EXPECT_FALSE(is_feasible(Constraints{at_most(1, 1, 3)}, {1, 2.5}));
  EXPECT_TRUE(is_feasible(Constraints{at_least(1, 1, 3)}, {1, 2}));
  EXPECT_FALSE(is_feasible(Constraints{at_least(1, 1, 3)}, {1, 1.5}));
  EXPECT_TRUE(is_feasible(Constraints{exactly(1, 1, 3)}, {1, 2}));
  EXPECT_FALSE(is_feasible(Constraints{exactly(1, 1, 3)}, {1, 2.0000000001}));
}

TEST(Feasible, EveryRowMustHold) {
  EXPECT_TRUE(is_feasible(two_products, {2, 6}));
  EXPECT_FALSE(is_feasible(two_products, {4, 6}));
  EXPECT_TRUE(is_feasible({}, {4, 6}));
}

// ---- The lines of constraints

TEST(ConstraintSegment, OfTwoProducts) {
  expect_segment(constraint_segment(two_products[0], 10), {1200, 0}, {1200, 3000});
  expect_segment(constraint_segment(two_products[1], 10), {0, 1800}, {3000, 1800});
  expect_segment(constraint_segment(two_products[2], 10), {0, 2700}, {1800, 0});
}

TEST(ConstraintSegment, OfTheDiet) {
  expect_segment(constraint_segment(diet[0], 7), {0, 12000.0 / 7}, {12000.0 / 7, 0});
  expect_segment(constraint_segment(diet[1], 7), {0, 6000.0 / 7}, {18000.0 / 7, 0});
}

TEST(ConstraintSegment, OfTheBlendWithAnEquation) {
  expect_segment(constraint_segment(blend[0], 6), {0, 2500}, {2500, 0});
  expect_segment(constraint_segment(blend[1], 6), {500, 0}, {500, 3000});
  expect_segment(constraint_segment(blend[2], 6), {500, 0}, {3000, 2500});
}

TEST(ConstraintSegment, WithNegativeCoefficientsOfTheUnboundedProblem) {
  expect_segment(constraint_segment(unbounded[0], 5), {0, 1200}, {1800, 3000});
  expect_segment(constraint_segment(unbounded[1], 5), {2400, 0}, {3000, 300});
}

TEST(ConstraintSegment, OfARedundantConstraintIsDrawnToo) {
  expect_segment(constraint_segment(redundant[2], 20), {0, 1500}, {1500, 0});
}

TEST(ConstraintSegment, WithoutCoefficientsThereIsNone) {
  EXPECT_FALSE(segment_of(0, 0, 5, 10));
  EXPECT_FALSE(segment_of(0, 0, 0, 10));
}

TEST(ConstraintSegment, AHorizontalOrVerticalLineIsDrawnWhereverItLies) {
  expect_segment(segment_of(0, 2, 0, 10), {0, 0}, {3000, 0});
  expect_segment(segment_of(0, 2, -1, 10), {0, -150}, {3000, -150});
  expect_segment(segment_of(0, 1, 12, 10), {0, 3600}, {3000, 3600});
  expect_segment(segment_of(-4, 0, 2, 10), {-150, 0}, {-150, 3000});
}

TEST(ConstraintSegment, OfALineOutsideTheSquareThereIsNone) {
  EXPECT_FALSE(segment_of(1, 1, -3, 5));
  EXPECT_FALSE(segment_of(1, 1, 11, 5));
  EXPECT_FALSE(segment_of(-1, 1, 6, 5));
  EXPECT_FALSE(segment_of(1, -1, 6, 5));
}

TEST(ConstraintSegment, ALineThatOnlyTouchesACornerIsNotDrawn) {
  EXPECT_FALSE(segment_of(1, 1, 0, 5));
  EXPECT_FALSE(segment_of(1, 1, 10, 5));
  EXPECT_FALSE(segment_of(-1, 1, 5, 5));
  EXPECT_FALSE(segment_of(1, -1, 5, 5));
}

TEST(ConstraintSegment, ALineThroughTwoCornersHasEachOnce) {
  expect_segment(segment_of(1, 1, 5, 5), {0, 3000}, {3000, 0});
  expect_segment(segment_of(1, -1, 0, 5), {0, 0}, {3000, 3000});
  expect_segment(segment_of(-1, 1, 0, 5), {0, 0}, {3000, 3000});
}

TEST(ConstraintSegment, ALineThroughOneCornerHasItOnce) {
  expect_segment(segment_of(2, -1, 0, 4), {0, 0}, {1500, 3000});
  expect_segment(segment_of(1, 2, 8, 4), {0, 3000}, {3000, 1500});
  expect_segment(segment_of(2, 1, 8, 4), {3000, 0}, {1500, 3000});
}

TEST(ConstraintSegment, ThatNoNumberCanSayIsNotDrawn) {
  const double largest = std::numeric_limits<double>::max();
  EXPECT_FALSE(segment_of(0, 1e-300, largest, 10));
  EXPECT_FALSE(segment_of(1e-300, 0, largest, 10));
}

// ---- The level line

TEST(LevelLine, OfTwoProductsRunsThroughTheOptimum) {
  EXPECT_DOUBLE_EQ(objective_value({-3, -5}, {2, 6}), 36);
  expect_line(level_line({-3, -5}, {2, 6}, 10), {0, 2160}, {3000, 360});
}

TEST(LevelLine, OfAMinimumRunsThroughTheOptimum) {
  EXPECT_DOUBLE_EQ(objective_value({2, 3}, {3, 1}), -9);
  expect_line(level_line({2, 3}, {3, 1}, 7), {0, 9000.0 / 7}, {13500.0 / 7, 0});
}

TEST(LevelLine, OfAnObjectiveWithBothSigns) {
  expect_line(level_line({-1, 1}, {3, 2}, 5), {600, 0}, {3000, 2400});
  expect_line(level_line({1, -1}, {1, 2}, 5), {0, 600}, {2400, 3000});
}

TEST(LevelLine, WithoutAnObjectiveStaysAsItIs) {
  EXPECT_FALSE(level_line({0, 0}, {2, 6}, 10));
}

TEST(LevelLine, OfX2AloneIsHorizontalAndOfX1AloneVertical) {
  expect_line(level_line({0, -5}, {2, 6}, 10), {0, 1800}, {3000, 1800});
  expect_line(level_line({-3, 0}, {2, 6}, 10), {600, 3000}, {600, 0});
}

TEST(LevelLine, InAnAxisIsNotVisible) {
  for (const Objective objective : {Objective{0, -5}, Objective{-3, 0}}) {
    const auto line = level_line(objective, {0, 0}, 10);
    ASSERT_TRUE(line);
    EXPECT_FALSE(line->visible);
  }
}

TEST(LevelLine, CountsACornerThatItOnlyTouches) {
  expect_line(level_line({-1, -1}, {10, 10}, 10), {3000, 3000}, {3000, 3000});
  expect_line(level_line({-1, -2}, {0, 0}, 10), {0, 0}, {0, 0});
}

TEST(LevelLine, ThroughACornerRunsOnToTheOtherEdge) {
  expect_line(level_line({-1, 1}, {4, 4}, 10), {0, 0}, {3000, 3000});
  expect_line(level_line({-5, -3}, {7, 5}, 10), {3000, 0}, {1200, 3000});
  expect_line(level_line({-1, -2}, {4, 8}, 10), {0, 3000}, {3000, 1500});
  expect_line(level_line({-1, -1}, {10, 0}, 10), {0, 3000}, {3000, 0});
}

TEST(LevelLine, ThatDoesNotReachTheSquareStaysAsItIs) {
  EXPECT_FALSE(level_line({-1, -1}, {-2, -3}, 10));
  EXPECT_FALSE(level_line({-1, -1}, {11, 12}, 10));
}

// ---- The cross

TEST(Cross, StandsWithItsCentreOnThePoint) {
  EXPECT_EQ(cross_place({2, 6}, 10), (Point{487.5, 1912.5}));
  EXPECT_EQ(cross_place({0, 0}, 10), (Point{-112.5, 112.5}));
}

TEST(Cross, KeepsItsCentreInTheSquare) {
  EXPECT_EQ(kept_in_square({-900, 50}), (Point{-112.5, 112.5}));
  EXPECT_EQ(kept_in_square({2999, 4000}), (Point{2887.5, 3112.5}));
  EXPECT_EQ(kept_in_square({487.5, 1912.5}), (Point{487.5, 1912.5}));
}

TEST(Cross, StandsForExactlyTheValuesAtTheEdges) {
  for (const double range : {7.0, 50.0, 100.0, 0.6, 6.0, 2000.0}) {
    EXPECT_EQ(point_under_cross({-112.5, 112.5}, range), (PlanePoint{0, 0})) << range;
    const PlanePoint end = point_under_cross({2887.5, 3112.5}, range);
    EXPECT_DOUBLE_EQ(end.x1, range);
    EXPECT_DOUBLE_EQ(end.x2, range);
  }
}

TEST(Cross, IsReadWithTheHalfUnitThatRoundingTakesAway) {
  // In whole numbers, five drawing units each: 502.25 is 100.45, and 502.75 is 100.55.
  EXPECT_EQ(point_under_cross({390.25, 614.75}, 600), (PlanePoint{100, 101}));
}

TEST(Rounding, FollowsTheRange) {
  EXPECT_DOUBLE_EQ(rounded(2.34567, 7), 2.3);
  EXPECT_DOUBLE_EQ(rounded(23.4567, 50), 23.5);
  EXPECT_DOUBLE_EQ(rounded(23.4567, 100), 23);
  EXPECT_DOUBLE_EQ(rounded(0.234567, 0.6), 0.235);
  EXPECT_DOUBLE_EQ(rounded(2.34567, 6), 2.35);
  EXPECT_DOUBLE_EQ(rounded(0.234567, 0.7), 0.23);
  EXPECT_DOUBLE_EQ(rounded(1234.5, 7000), 1200);
}

TEST(Rounding, GoesUpFromTheHalf) {
  EXPECT_EQ(rounded(22.5, 100), 23);
  EXPECT_EQ(rounded(-0.4, 100), 0);
  EXPECT_FALSE(std::signbit(rounded(-0.4, 100)));
  EXPECT_EQ(rounded(-0.5, 100), 0);
  EXPECT_EQ(rounded(-0.6, 100), -1);
}

TEST(Stepping, GoesByTheSmallestShownStep) {
  EXPECT_EQ(stepped({2.3, 4}, 1, 0, 7), (PlanePoint{2.4, 4}));
  EXPECT_EQ(stepped({2.3, 4}, 0, -1, 7), (PlanePoint{2.3, 3.9}));
  EXPECT_EQ(stepped({23, 40}, -10, 10, 100), (PlanePoint{13, 50}));
}

TEST(Stepping, StaysInTheSquare) {
  EXPECT_EQ(stepped({0, 7}, -1, 1, 7), (PlanePoint{0, 7}));
  EXPECT_EQ(stepped({6.9, 0.1}, 10, -10, 7), (PlanePoint{7, 0}));
}

TEST(Stepping, ReachesEveryShownValueExactly) {
  for (const double range : {7.0, 6.0, 0.6, 50.0, 60.0, 900.0}) {
    const double step = stepped({0, 0}, 1, 0, range).x1;
    PlanePoint point;
    const long last = std::lround(range / step);
    for (long k = 1; k <= last; ++k) {
      point = stepped(point_under_cross(cross_place(point, range), range), 1, 1, range);
      const double shown = rounded(static_cast<double>(k) * step, range);
      ASSERT_EQ(point, (PlanePoint{shown, shown})) << range;
    }
    EXPECT_DOUBLE_EQ(point.x1, range);
  }
}

}  // namespace tabulon::graph
