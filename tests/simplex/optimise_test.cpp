#include <gtest/gtest.h>

#include <cstdint>

#include "simplex/pivot.h"
#include "simplex/sweep.h"
#include "tests/simplex/problems.h"
#include "tests/simplex/reference_tableau.h"

namespace tabulon {
namespace {

constexpr int enough = 100;

struct Optimum {
  double x1, x2, F;
};

double value_of_variable(const basSafeCtl& model, int column) {
  for (int row = 1; row <= model.rows(); ++row)
    if (model.current.basis(row) == column) return model.current.row(row).right();
  return 0;
}

void expect_outcome(basSafeCtl& model, PivotSearch outcome) {
  ASSERT_TRUE(canonicalise(model).has_value());
  const auto search = optimise(model, enough);
  ASSERT_TRUE(search.has_value());
  EXPECT_EQ(*search, outcome);
}

void expect_optimum(basSafeCtl (*make_problem)(), const Optimum& expected, int tableaus) {
  for (const bool fractions : {false, true}) {
    basSafeCtl worked = make_problem();
    worked.Breuken = fractions;
    expect_outcome(worked, PivotSearch::Optimal);
    EXPECT_NEAR(value_of_variable(worked, 1), expected.x1, 1e-9);
    EXPECT_NEAR(value_of_variable(worked, 2), expected.x2, 1e-9);
    EXPECT_NEAR(worked.current.row_F().right(), expected.F, 1e-9);
    EXPECT_EQ(worked.NrTableau, tableaus);
  }
}

// maximise 3 x1 + 5 x2, x1 <= 4, 2 x2 <= 12, 3 x1 + 2 x2 <= 18: both last rows bind in (2, 6), F = 36.
// Column 2 enters in row 2 (12/2 = 6 against 18/2 = 9), then column 1 in row 3 (6/3 = 2 against 4/1).
TEST(Optimise, FindsTheCornerOfThreeRows) {
  expect_optimum(three_rows, {2, 6, 36}, 3);
}

// maximise 5 x1 + 4 x2, 6 x1 + 4 x2 <= 24, x1 + 2 x2 <= 6, x2 - x1 <= 1, x2 <= 2: the first two rows bind
// in (3, 3/2), F = 21. Column 1 enters in row 1 (24/6 = 4 against 6), then column 2 in row 2
// ((6 - 4) / (2 - 4/6) = 3/2 is the smallest).
basSafeCtl four_rows() {
  basSafeCtl model = problem({.variables = 2, .less_equal = 4});
  fill_row_F(model, {-5, -4});
  fill_row(model, 1, {6, 4}, 24);
  fill_row(model, 2, {1, 2}, 6);
  fill_row(model, 3, {-1, 1}, 1);
  fill_row(model, 4, {0, 1}, 2);
  return model;
}

TEST(Optimise, FindsACornerWithAFraction) {
  expect_optimum(four_rows, {3, 1.5, 21}, 3);
}

// minimise 4 x1 + x2, x1 + 2 x2 <= 4, 4 x1 + 3 x2 >= 6, 3 x1 + x2 = 3. On the line x2 = 3 - 3 x1 the
// objective is 3 + x1, and the first row asks for x1 >= 2/5: the optimum is (2/5, 9/5) with 17/5. As the
// method maximises, F is the negative of that.
basSafeCtl all_kinds_of_rows() {
  basSafeCtl model = problem({.variables = 2, .less_equal = 1, .greater_equal = 1, .equal = 1, .big_m = 100});
  fill_row_F(model, {4, 1});
  fill_row(model, 1, {1, 2}, 4);
  fill_row(model, 2, {4, 3}, 6);
  fill_row(model, 3, {3, 1}, 3);
  return model;
}

TEST(Optimise, FindsTheOptimumOfAllKindsOfRows) {
  expect_optimum(all_kinds_of_rows, {0.4, 1.8, -3.4}, 4);
}

// minimise 2 x1 + 3 x2, x1 + x2 >= 4, x1 + 3 x2 >= 6: the corners are (6, 0) with 12, (0, 4) with 12 and
// (3, 1) with 9.
basSafeCtl diet() {
  basSafeCtl model = problem({.variables = 2, .greater_equal = 2, .big_m = 1000});
  fill_row_F(model, {2, 3});
  fill_row(model, 1, {1, 1}, 4);
  fill_row(model, 2, {1, 3}, 6);
  return model;
}

TEST(Optimise, FindsTheOptimumOfADiet) {
  expect_optimum(diet, {3, 1, -9}, 3);
}

TEST(Optimise, OfAnOptimalTableauMakesNoStep) {
  basSafeCtl model = three_rows();
  expect_outcome(model, PivotSearch::Optimal);
  ReferenceTableau before(model);
  expect_outcome(model, PivotSearch::Optimal);
  expect_same(model, before);
}

// maximise x1 + x2 with x1 - x2 <= 1: column 1 enters in row 1, then column 2 has only -1.
TEST(Optimise, OfAnUnboundedProblemEndsAfterTheStepsMade) {
  basSafeCtl model = problem({.variables = 2, .less_equal = 1});
  fill_row_F(model, {-1, -1});
  fill_row(model, 1, {1, -1}, 1);
  expect_outcome(model, PivotSearch::Unbounded);
  EXPECT_EQ(model.NrTableau, 2);
  EXPECT_EQ(model.current.row_F().value(2), -2);
  EXPECT_EQ(model.current.row_F().right(), 1);
}

TEST(Optimise, StopsAfterTheSweepsItMayMake) {
  basSafeCtl model = three_rows();
  ASSERT_TRUE(canonicalise(model).has_value());
  for (int tableau = 1; tableau <= 3; ++tableau) {
    EXPECT_EQ(model.NrTableau, tableau);
    const auto search = optimise(model, 1);
    ASSERT_TRUE(search.has_value());
    EXPECT_EQ(*search, tableau < 2 ? PivotSearch::Found : PivotSearch::Optimal);
  }
}

TEST(Optimise, WithoutSweepsOnlyLooks) {
  basSafeCtl model = three_rows();
  ASSERT_TRUE(canonicalise(model).has_value());
  const ReferenceTableau before(model);
  const auto search = optimise(model, 0);
  ASSERT_TRUE(search.has_value());
  EXPECT_EQ(*search, PivotSearch::Found);
  expect_same(model, before);
}

TEST(Optimise, ForgetsPivotAndDialog) {
  basSafeCtl model = three_rows();
  model.DialoogOK = true;
  model.PivotRij = model.PivotKolom = 1;
  expect_outcome(model, PivotSearch::Optimal);
  EXPECT_FALSE(model.DialoogOK);
  EXPECT_EQ(model.PivotRij, 0);
  EXPECT_EQ(model.PivotKolom, 0);
}

}  // namespace
}  // namespace tabulon
