#include "simplex/pivot.h"

#include <gtest/gtest.h>

#include <initializer_list>

#include "simplex/sweep.h"
#include "tests/simplex/problems.h"

namespace tabulon {
namespace {

struct Row {
  double x1, x2, right;
};

// Row F, and rows with two decision variables.
basSafeCtl tableau(std::initializer_list<double> row_F, std::initializer_list<Row> rows) {
  basSafeCtl model = problem({.variables = 2, .less_equal = static_cast<int>(rows.size())});
  fill_row_F(model, row_F);
  int row = 0;
  for (const Row& given : rows) fill_row(model, ++row, {given.x1, given.x2}, given.right);
  return model;
}

void expect_pivot(const basSafeCtl& model, int row, int column) {
  const PivotChoice choice = find_pivot(model, shape_of(model));
  EXPECT_EQ(choice.search, PivotSearch::Found);
  EXPECT_EQ(choice.pivot.row, row);
  EXPECT_EQ(choice.pivot.column, column);
}

void expect_no_pivot(const basSafeCtl& model, PivotSearch search) {
  const PivotChoice choice = find_pivot(model, shape_of(model));
  EXPECT_EQ(choice.search, search);
  EXPECT_EQ(choice.pivot, Pivot{});
}

TEST(PivotColumn, HasTheMostNegativeEntryOfRowF) {
  expect_pivot(tableau({-3, -5}, {{1, 2, 8}, {3, 1, 9}}), 1, 2);
  expect_pivot(tableau({-5, -3}, {{1, 2, 8}, {3, 1, 9}}), 2, 1);
}

TEST(PivotColumn, IsTheLowestOfEqualEntries) {
  expect_pivot(tableau({-4, -4}, {{1, 1, 3}}), 1, 1);
}

TEST(PivotColumn, NeedsAnEntryStrictlyBelowTheThreshold) {
  expect_no_pivot(tableau({0, -0.00000000005}, {{1, 1, 3}}), PivotSearch::Optimal);
  expect_no_pivot(tableau({0, -1e-10}, {{1, 1, 3}}), PivotSearch::Optimal);
  expect_pivot(tableau({0, -1.0000001e-10}, {{1, 1, 3}}), 1, 2);
}

TEST(PivotColumn, IsLookedForInTheProblemOnly) {
  basSafeCtl model = tableau({-1, 0}, {{1, 1, 3}});
  model.current.row_F().write(4, -100.0);
  expect_pivot(model, 1, 1);
}

TEST(PivotColumn, IsFoundAtEveryPlace) {
  for (int column = 1; column <= 20; ++column) {
    basSafeCtl model = problem({.variables = 20, .less_equal = 10});
    model.current.row_F().write(column, -1.0);
    model.current.row(10).write(column, 1.0);
    model.current.row(10).write(CellRow::right_hand_side, 1.0);
    expect_pivot(model, 10, column);
  }
}

TEST(PivotRow, HasTheSmallestPositiveQuotient) {
  expect_pivot(tableau({-3, -5}, {{1, 0, 4}, {0, 2, 12}, {3, 2, 18}}), 2, 2);
  expect_pivot(tableau({-1, 0}, {{1, 0, 9}, {2, 0, 8}, {1, 0, 5}}), 2, 1);
}

TEST(PivotRow, IsTheLowestOfEqualQuotients) {
  expect_pivot(tableau({-1, 0}, {{1, 0, 6}, {1, 0, 4}, {2, 0, 8}}), 2, 1);
  expect_pivot(tableau({-1, 0}, {{1, 0, 4}, {2, 0, 8}}), 1, 1);
}

TEST(PivotRow, MayHaveNegativeEntryAndNegativeRightHandSide) {
  expect_pivot(tableau({-1, 0}, {{-2, 0, -4}, {1, 0, 3}}), 1, 1);
  expect_pivot(tableau({-1, 0}, {{-2, 0, -4}}), 1, 1);
}

TEST(PivotRow, NeverHasRightHandSideZero) {
  expect_pivot(tableau({-1, 0}, {{3, 0, 0}, {1, 0, 9}}), 2, 1);
  expect_no_pivot(tableau({-1, 0}, {{3, 0, 0}, {-1, 0, 9}}), PivotSearch::Unbounded);
}

TEST(PivotRow, NeedsAnEntryBeyondTheThreshold) {
  expect_no_pivot(tableau({-1, 0}, {{1e-8, 0, 1}, {-1e-8, 0, -1}}), PivotSearch::Unbounded);
  expect_pivot(tableau({-1, 0}, {{1e-8, 0, 1e-8}, {1.0000001e-8, 0, 9}}), 2, 1);
}

TEST(PivotRow, MayHaveAQuotientTooLargeForADouble) {
  expect_pivot(tableau({-1, 0}, {{0, 0, 1}, {1e-7, 0, 1e308}}), 2, 1);
  expect_pivot(tableau({-1, 0}, {{1e-7, 0, 1e308}, {1, 0, 1e308}}), 2, 1);
}

TEST(PivotRow, IsMissingWithoutRows) {
  basSafeCtl model = problem({.variables = 2});
  fill_row_F(model, {-1, 0});
  expect_no_pivot(model, PivotSearch::Unbounded);
}

TEST(Pivot, StaysTheSameWhenAskedTwice) {
  basSafeCtl model = tableau({-3, -5}, {{1, 0, 4}, {0, 2, 12}, {3, 2, 18}});
  for (int time = 1; time <= 2; ++time) {
    ASSERT_TRUE(canonicalise(model).has_value());
    expect_pivot(model, 2, 2);
    EXPECT_EQ(model.NrTableau, 1);
  }
}

}  // namespace
}  // namespace tabulon
