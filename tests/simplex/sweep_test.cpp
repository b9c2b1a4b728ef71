#include "simplex/sweep.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>

#include "tests/simplex/problems.h"
#include "tests/simplex/reference_tableau.h"

namespace tabulon {
namespace {

constexpr double huge = std::numeric_limits<double>::max();

Result<> sweep(basSafeCtl& model, int row, int column) {
  model.PivotRij = static_cast<std::int16_t>(row);
  model.PivotKolom = static_cast<std::int16_t>(column);
  return sweep_column(model);
}

Result<> normalise(basSafeCtl& model, int column) {
  model.NormeerKolom = static_cast<std::int16_t>(column);
  return normalise_column(model);
}

void expect_row(const CellRow& row, std::initializer_list<double> values, double right) {
  int column = 0;
  for (const double value : values) EXPECT_EQ(row.value(++column), value) << "column " << column;
  EXPECT_EQ(row.right(), right);
}

void expect_cell(const CellRow& row, int column, double value, const std::string& text) {
  EXPECT_EQ(row.value(column), value);
  EXPECT_EQ(row.text(column), text);
}

void expect_unit_column(const basSafeCtl& model, int column, int own_row) {
  EXPECT_EQ(model.current.row_F().value(column), 0);
  for (int row = 1; row <= model.rows(); ++row)
    EXPECT_EQ(model.current.row(row).value(column), row == own_row ? 1 : 0) << "row " << row;
}

void expect_error(const Result<>& result, ErrorNumber number) {
  ASSERT_FALSE(result.has_value());
  EXPECT_EQ(result.error().number, number);
}

// ---- Normalising

TEST(NormaliseColumn, DividesEveryRowByItsEntry) {
  basSafeCtl model = three_rows();
  ASSERT_TRUE(normalise(model, 2).has_value());
  expect_row(model.current.row(2), {0, 1, 0, 0.5, 0}, 6);
  expect_row(model.current.row(3), {1.5, 1, 0, 0, 0.5}, 9);
}

TEST(NormaliseColumn, LeavesARowWithEntryZeroButForTheTextOfItsRightHandSide) {
  basSafeCtl model = three_rows();
  write_typed(model.current.row(1), 1, "2/2", 1);
  write_typed(model.current.row(1), CellRow::right_hand_side, "8/2", 4);
  ASSERT_TRUE(normalise(model, 2).has_value());
  expect_cell(model.current.row(1), 1, 1, "2/2");
  expect_cell(model.current.row(1), CellRow::right_hand_side, 4, " 4");
}

TEST(NormaliseColumn, LeavesTheNumbersOfRowFButNotTheirTexts) {
  basSafeCtl model = three_rows();
  write_typed(model.current.row_F(), 1, "-6/2", -3);
  write_typed(model.current.row_F(), CellRow::right_hand_side, "3*7", 21);
  ASSERT_TRUE(normalise(model, 1).has_value());
  expect_cell(model.current.row_F(), 1, -3, "-3");
  expect_cell(model.current.row_F(), CellRow::right_hand_side, 21, "3*7");
}

TEST(NormaliseColumn, ByANegativeEntryTurnsTheSigns) {
  basSafeCtl model = three_rows();
  fill_row(model, 1, {-2, 1}, 4);
  ASSERT_TRUE(normalise(model, 1).has_value());
  expect_row(model.current.row(1), {1, -0.5, -0.5, 0, 0}, -2);
}

TEST(NormaliseColumn, SkipsEntriesUpToTheThreshold) {
  basSafeCtl model = three_rows();
  fill_row(model, 1, {1e-9, 1}, 4);
  fill_row(model, 2, {-1e-9, 1}, 4);
  fill_row(model, 3, {1.0000001e-9, 1}, 4);
  ASSERT_TRUE(normalise(model, 1).has_value());
  expect_row(model.current.row(1), {1e-9, 1}, 4);
  expect_row(model.current.row(2), {-1e-9, 1}, 4);
  expect_row(model.current.row(3), {1, 1 / 1.0000001e-9}, 4 / 1.0000001e-9);
}

TEST(NormaliseColumn, ChangesNoCounter) {
  basSafeCtl model = three_rows();
  model.DialoogOK = true;
  model.NrTableau = 5;
  ASSERT_TRUE(normalise(model, 1).has_value());
  EXPECT_TRUE(model.DialoogOK);
  EXPECT_EQ(model.NrTableau, 5);
  EXPECT_EQ(model.NormeerKolom, 1);
}

TEST(NormaliseColumn, OfColumnZeroRewritesTextsAlone) {
  basSafeCtl model = three_rows();
  write_typed(model.current.row(3), CellRow::right_hand_side, "36/2", 18);
  ReferenceTableau expected(model);
  expected.NormeerKolom = 0;
  expected.KolomNormeren();
  ASSERT_TRUE(normalise(model, 0).has_value());
  expect_same(model, expected);
}

TEST(NormaliseColumn, IgnoresWhatStandsBesideTheProblem) {
  basSafeCtl model = three_rows();
  model.current.row(1).write(6, 2.0);
  ASSERT_TRUE(normalise(model, 6).has_value());
  expect_row(model.current.row(1), {1, 0, 1, 0, 0, 2}, 4);
}

TEST(NormaliseColumn, OutsideTheStorageIsError9) {
  for (const int column : {-1, 31, 32767}) {
    basSafeCtl model = three_rows();
    const ReferenceTableau before(model);
    expect_error(normalise(model, column), ErrorNumber::SubscriptOutOfRange);
    model.NormeerKolom = 0;
    expect_same(model, before);
  }
}

TEST(NormaliseColumn, ThatWouldBecomeInfiniteIsError6) {
  for (const bool fractions : {false, true}) {
    basSafeCtl model = three_rows();
    model.Breuken = fractions;
    fill_row(model, 1, {1, 7}, 4);
    fill_row(model, 3, {1e-8, 1}, huge);
    model.NormeerKolom = 1;
    const ReferenceTableau before(model);
    expect_error(normalise_column(model), ErrorNumber::Overflow);
    expect_same(model, before);
  }
}

// ---- Sweeping

TEST(SweepColumn, MakesAUnitColumnAndEntersTheBasis) {
  basSafeCtl model = three_rows();
  ASSERT_TRUE(sweep(model, 2, 2).has_value());
  expect_unit_column(model, 2, 2);
  EXPECT_EQ(model.current.basis(2), 2);
  expect_row(model.current.row_F(), {-3, 0, 0, 2.5, 0}, 30);
  expect_row(model.current.row(1), {1, 0, 1, 0, 0}, 4);
  expect_row(model.current.row(2), {0, 1, 0, 0.5, 0}, 6);
  expect_row(model.current.row(3), {3, 0, 0, -1, 1}, 6);
}

TEST(SweepColumn, CountsATableauAndForgetsThePivot) {
  basSafeCtl model = three_rows();
  ASSERT_TRUE(sweep(model, 2, 2).has_value());
  EXPECT_EQ(model.NrTableau, 2);
  EXPECT_EQ(model.PivotRij, 0);
  EXPECT_EQ(model.PivotKolom, 0);
  EXPECT_EQ(model.NormeerKolom, 5);  // the basis of the last row was the last to be normalised
}

void expect_only_counted(int row, int column) {
  basSafeCtl model = three_rows();
  write_typed(model.current.row(3), 1, "6/2", 3);
  ReferenceTableau before(model);
  ASSERT_TRUE(sweep(model, row, column).has_value());
  before.NrTableau = 2;
  expect_same(model, before);
}

TEST(SweepColumn, WithAZeroPivotOnlyCounts) {
  expect_only_counted(1, 2);
}

TEST(SweepColumn, OutsideTheTableauOnlyCounts) {
  expect_only_counted(0, 1);
  expect_only_counted(1, 0);
  expect_only_counted(-1, 1);
  expect_only_counted(11, 1);
  expect_only_counted(1, -1);
  expect_only_counted(1, 31);
  expect_only_counted(4, 1);
  expect_only_counted(1, 6);
}

TEST(SweepColumn, NeedsAPivotBeyondTheThreshold) {
  basSafeCtl model = three_rows();
  fill_row(model, 1, {1e-9, 1}, 4);
  ASSERT_TRUE(sweep(model, 1, 1).has_value());
  EXPECT_EQ(model.current.basis(1), 3);
  fill_row(model, 1, {1.0000001e-9, 1}, 4);
  ASSERT_TRUE(sweep(model, 1, 1).has_value());
  EXPECT_EQ(model.current.basis(1), 1);
}

// Without a basis no row is normalised afterwards, so that what the sweep itself leaves can be seen.
basSafeCtl without_basis() {
  basSafeCtl model = three_rows();
  for (int row = 1; row <= most_rows; ++row) model.current.set_basis(row, 0);
  return model;
}

TEST(SweepColumn, LeavesTheTextsOfARowWithANegligibleEntry) {
  basSafeCtl model = without_basis();
  write_typed(model.current.row(1), 1, "1E-10", 1e-10);
  write_typed(model.current.row(1), 3, "3/3", 1);
  ASSERT_TRUE(sweep(model, 3, 1).has_value());
  expect_cell(model.current.row(1), 1, 1e-10, "1E-10");
  expect_cell(model.current.row(1), 3, 1, "3/3");
}

TEST(SweepColumn, RewritesTheTextsOfANegligibleRowWhoseBasisIsNormalised) {
  basSafeCtl model = three_rows();
  write_typed(model.current.row(1), 1, "1E-10", 1e-10);
  ASSERT_TRUE(sweep(model, 3, 1).has_value());
  expect_cell(model.current.row(1), 1, 1e-10, " 1.00E-10");
}

// Dividing the pivot row by 1/10 makes 4E-9 of the 4E-10 in the basic column of row 2, whose turn to be
// normalised comes later: that divides the pivot row once more.
TEST(SweepColumn, NormalisesByAnEntryThatGrowsBeyondTheThreshold) {
  basSafeCtl model = three_rows();
  fill_row(model, 1, {0.1, 1, 1, 4e-10}, 4);
  fill_row(model, 3, {0, 2}, 18);
  ReferenceTableau expected(model);
  expected.PivotRij = expected.PivotKolom = 1;
  expected.KolomVegen();
  ASSERT_TRUE(sweep(model, 1, 1).has_value());
  EXPECT_EQ(model.current.row(1).value(4), 1);
  expect_same(model, expected);
}

TEST(SweepColumn, UpdatesRowFHoweverSmallTheMultiplier) {
  basSafeCtl model = three_rows();
  fill_row_F(model, {-1e-12, -5});
  ASSERT_TRUE(sweep(model, 1, 1).has_value());
  expect_row(model.current.row_F(), {0, -5, 1e-12, 0, 0}, 4e-12);
}

TEST(SweepColumn, NormalisesWithARowWhoseBasisIsUnknown) {
  basSafeCtl model = three_rows();
  model.current.set_basis(1, 0);
  ASSERT_TRUE(sweep(model, 2, 2).has_value());
  expect_unit_column(model, 2, 2);
}

TEST(SweepColumn, InFractionsFormatsWhatItTouches) {
  basSafeCtl model = three_rows();
  model.Breuken = true;
  write_typed(model.current.row(3), 4, "1/3", 0.333);
  ASSERT_TRUE(sweep(model, 2, 2).has_value());
  expect_cell(model.current.row(3), 4, -0.667, "-667/1000");
}

TEST(SweepColumn, InFractionsMakesNumbersWhatIsShown) {
  basSafeCtl model = three_rows();
  model.Breuken = true;
  fill_row(model, 2, {1, 3}, 12);
  ASSERT_TRUE(sweep(model, 2, 2).has_value());
  expect_cell(model.current.row(2), 1, 1.0 / 3, " 1/3");
  expect_cell(model.current.row(3), 1, 2 + 1.0 / 3, " 2+1/3");
}

TEST(SweepColumn, CountsNoFurtherThan16Bits) {
  basSafeCtl model = three_rows();
  model.NrTableau = 32766;
  for (int time = 1; time <= 3; ++time) {
    ASSERT_TRUE(sweep(model, 2, 2).has_value());
    EXPECT_EQ(model.NrTableau, 32767);
  }
}

TEST(SweepColumn, WithABasisOutsideTheStorageIsError9) {
  for (const int column : {-1, 31, 32767}) {
    basSafeCtl model = three_rows();
    model.current.set_basis(1, static_cast<std::int16_t>(column));
    ReferenceTableau before(model);
    before.PivotRij = before.PivotKolom = 2;
    expect_error(sweep(model, 2, 2), ErrorNumber::SubscriptOutOfRange);
    expect_same(model, before);
  }
}

void expect_overflow(basSafeCtl& model) {
  for (const bool fractions : {false, true}) {
    model.Breuken = fractions;
    model.PivotRij = model.PivotKolom = 1;
    const ReferenceTableau before(model);
    expect_error(sweep_column(model), ErrorNumber::Overflow);
    expect_same(model, before);
  }
}

TEST(SweepColumn, ThatWouldBecomeInfiniteIsError6) {
  basSafeCtl in_multiplier = three_rows();
  fill_row(in_multiplier, 1, {1e-5, 1}, 4);
  fill_row(in_multiplier, 3, {huge, 1}, 4);
  expect_overflow(in_multiplier);

  basSafeCtl in_sum = three_rows();
  fill_row(in_sum, 1, {1, huge}, 4);
  fill_row(in_sum, 3, {-1, huge}, 4);
  expect_overflow(in_sum);

  // The sum alone is too large: what is added is far from it, and just enough to be more than rounding.
  basSafeCtl in_last_bit = three_rows();
  fill_row(in_last_bit, 1, {1, 1e298}, 4);
  fill_row(in_last_bit, 3, {-100, huge}, 4);
  expect_overflow(in_last_bit);

  // No number is near the largest, but a multiplier times an entry is beyond it.
  basSafeCtl in_product = three_rows();
  fill_row(in_product, 1, {1e-8, 1e151}, 4);
  fill_row(in_product, 3, {1e151, 1}, 4);
  expect_overflow(in_product);

  basSafeCtl in_division = three_rows();
  fill_row(in_division, 1, {1e-5, 1}, huge);
  expect_overflow(in_division);

  // Nothing else changes, so no product tells of it.
  basSafeCtl in_division_alone = three_rows();
  fill_row_F(in_division_alone, {0, -5});
  fill_row(in_division_alone, 1, {1e-5, 1}, 1e304);
  fill_row(in_division_alone, 3, {0, 2}, 18);
  expect_overflow(in_division_alone);

  basSafeCtl in_row_F = three_rows();
  fill_row_F(in_row_F, {-1e300, 0});
  fill_row(in_row_F, 1, {1, 1}, 1e300);
  expect_overflow(in_row_F);
}

TEST(SweepColumn, WorksOnTheLargestNumbersThatStayFinite) {
  basSafeCtl model = three_rows();
  fill_row(model, 1, {1, 1}, 1e300);
  fill_row(model, 3, {3, huge}, 1e308);
  ReferenceTableau expected(model);
  expected.PivotRij = expected.PivotKolom = 1;
  expected.KolomVegen();
  ASSERT_TRUE(expected.all_finite());
  ASSERT_TRUE(sweep(model, 1, 1).has_value());
  expect_same(model, expected);
}

// ---- Canonical form

// -2 x1 + x2 >= 2 and x1 + x2 = 4: M = 100 stands under both artificial variables.
basSafeCtl big_m() {
  basSafeCtl model = problem({.variables = 2, .greater_equal = 1, .equal = 1});
  fill_row_F(model, {3, 5});
  fill_row(model, 1, {-2, 1}, 2);
  fill_row(model, 2, {1, 1}, 4);
  return model;
}

TEST(Canonicalise, SweepsTheArtificialVariablesOutOfRowF) {
  basSafeCtl model = big_m();
  ASSERT_TRUE(canonicalise(model).has_value());
  expect_row(model.current.row_F(), {103, -195, 100, 0, 0}, -600);
}

TEST(Canonicalise, LeavesTheCounterAndForgetsThePivot) {
  basSafeCtl model = big_m();
  model.NrTableau = 32767;
  model.DialoogOK = true;
  model.PivotRij = model.PivotKolom = 1;
  ASSERT_TRUE(canonicalise(model).has_value());
  EXPECT_EQ(model.NrTableau, 32767);
  EXPECT_FALSE(model.DialoogOK);
  EXPECT_EQ(model.PivotRij, 0);
  EXPECT_EQ(model.PivotKolom, 0);
  EXPECT_EQ(model.NormeerKolom, 5);
}

TEST(Canonicalise, WithoutRowsDoesNothing) {
  basSafeCtl model = problem({.variables = 2});
  model.DialoogOK = true;
  model.PivotRij = 3;
  ASSERT_TRUE(canonicalise(model).has_value());
  EXPECT_TRUE(model.DialoogOK);
  EXPECT_EQ(model.PivotRij, 3);
}

TEST(Canonicalise, GivesTheBasicVariablesTheirValues) {
  basSafeCtl model = three_rows();
  model.current.set_basis(1, 1);
  model.current.set_basis(2, 2);
  model.current.set_basis(3, 5);
  ASSERT_TRUE(canonicalise(model).has_value());
  expect_row(model.current.row_F(), {0, 0, 3, 2.5, 0}, 42);
  EXPECT_EQ(model.current.row(3).right(), -6);
}

TEST(Canonicalise, RewritesTypedTextsOfACanonicalTableau) {
  basSafeCtl model = three_rows();
  write_typed(model.current.row(2), 2, "4/2", 2);
  write_typed(model.current.row_F(), CellRow::right_hand_side, "0/1", 0);
  ASSERT_TRUE(canonicalise(model).has_value());
  expect_cell(model.current.row(2), 2, 2, " 2");
  expect_cell(model.current.row_F(), CellRow::right_hand_side, 0, " 0");
}

TEST(Canonicalise, PassesOverARowWithoutBasicVariable) {
  basSafeCtl model = big_m();
  model.current.set_basis(1, 0);
  ASSERT_TRUE(canonicalise(model).has_value());
  expect_row(model.current.row_F(), {-97, -95, 0, 100, 0}, -400);
  EXPECT_EQ(model.current.basis(1), 0);
}

TEST(Canonicalise, WithABasisOutsideTheStorageIsError9) {
  basSafeCtl model = big_m();
  model.current.set_basis(2, 31);
  const ReferenceTableau before(model);
  expect_error(canonicalise(model), ErrorNumber::SubscriptOutOfRange);
  EXPECT_EQ(model.NrTableau, 1);
  expect_row(model.current.row_F(), {3, 5, 0, 100, 100}, 0);
}

TEST(Operations, OnCountsBeyondTheStorageAreError9) {
  for (auto count : {&basSafeCtl::NrBeslisVar, &basSafeCtl::NrGelijkVglen}) {
    basSafeCtl model = three_rows();
    model.*count = 28;
    const CellRow before = model.current.row(2);
    expect_error(sweep(model, 2, 2), ErrorNumber::SubscriptOutOfRange);
    expect_error(normalise(model, 2), ErrorNumber::SubscriptOutOfRange);
    expect_error(canonicalise(model), ErrorNumber::SubscriptOutOfRange);
    EXPECT_FALSE(optimise(model, 1).has_value());
    EXPECT_EQ(model.NrTableau, 1);
    expect_row(model.current.row(2), {0, 2, 0, 1, 0}, 12);
  }
}

}  // namespace
}  // namespace tabulon
