#include "control/basSafeCtl.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <initializer_list>
#include <numbers>
#include <string>
#include <string_view>
#include <vector>

#include "numbers/display.h"
#include "tests/simplex/problems.h"

namespace tabulon {
namespace {

constexpr int RL = CellRow::right_hand_side;

using CellTexts = std::vector<std::string>;

CellTexts texts_of(const CellRow& row, int columns) {
  CellTexts texts;
  for (int column = 1; column <= columns; ++column) texts.push_back(row.text(column));
  return texts;
}

// CellTexts of the columns and, last, of the right-hand side, and the numbers that belong to them.
void expect_row(const CellRow& row, const CellTexts& columns_and_right) {
  const int columns = static_cast<int>(columns_and_right.size()) - 1;
  CellTexts texts = texts_of(row, columns);
  texts.push_back(row.text(RL));
  EXPECT_EQ(texts, columns_and_right);
  for (int column = 1; column <= columns; ++column)
    EXPECT_EQ(row.value(column), std::stod(row.text(column))) << "column " << column;
  EXPECT_EQ(row.right(), std::stod(row.text(RL)));
}

// Both copies.
void expect_tableau(const basSafeCtl& model, const CellTexts& row_F, std::initializer_list<CellTexts> rows,
                    std::initializer_list<int> basis) {
  for (const TableauState* tableau : {&model.current, &model.first}) {
    expect_row(tableau->row_F(), row_F);
    int row = 0;
    for (const CellTexts& texts : rows) expect_row(tableau->row(++row), texts);
    row = 0;
    for (const int column : basis) EXPECT_EQ(tableau->basis(++row), column);
  }
}

void expect_error(const Result<>& result, ErrorNumber number) {
  ASSERT_FALSE(result.has_value());
  EXPECT_EQ(result.error().number, number);
}

CellTexts names_of(const basSafeCtl& model) {
  CellTexts names;
  for (int column = 1; column <= model.columns(); ++column) names.push_back(model.variable_name(column));
  return names;
}

// ---- Start-up

TEST(Model, StartsWithTwoVariablesAndTwoRows) {
  const basSafeCtl model;
  EXPECT_EQ(model.NrBeslisVar, 2);
  EXPECT_EQ(model.NrKleinerGelijkVglen, 2);
  EXPECT_EQ(model.NrGroterGelijkVglen, 0);
  EXPECT_EQ(model.NrGelijkVglen, 0);
  EXPECT_EQ(model.NrSpelingsVar, 2);
  EXPECT_EQ(model.NrSurplusVar, 0);
  EXPECT_EQ(model.NrKunstmatigeVar, 0);
  EXPECT_EQ(model.BigM, 100);
}

TEST(Model, StartsSafeAndInDecimals) {
  const basSafeCtl model;
  EXPECT_TRUE(model.SafeForScripting);
  EXPECT_TRUE(model.SafeForInitializing);
  EXPECT_FALSE(model.Breuken);
}

// ---- Counts

TEST(DerivedCounts, FollowTheRows) {
  basSafeCtl model;
  set_counts(model, {.variables = 1, .less_equal = 3, .greater_equal = 2, .equal = 4});
  EXPECT_EQ(model.NrSpelingsVar, 3);
  EXPECT_EQ(model.NrSurplusVar, 2);
  EXPECT_EQ(model.NrKunstmatigeVar, 6);
  EXPECT_EQ(model.rows(), 9);
  EXPECT_EQ(model.columns(), 12);
}

TEST(DerivedCounts, Beyond16BitsAreError6) {
  for (const int sign : {1, -1}) {
    basSafeCtl model;
    model.NrKleinerGelijkVglen = 7;
    model.NrGroterGelijkVglen = model.NrGelijkVglen = static_cast<std::int16_t>(sign * 20000);
    expect_error(model.set_derived_counts(), ErrorNumber::Overflow);
    EXPECT_EQ(model.NrSpelingsVar, 2);
    EXPECT_EQ(model.NrSurplusVar, 0);
    EXPECT_EQ(model.NrKunstmatigeVar, 0);
  }
}

// ---- Names

TEST(Names, OfSlackVariablesContinueThoseOfTheDecisionVariables) {
  EXPECT_EQ(names_of(basSafeCtl{}), (CellTexts{"x  1", "x  2", "x  3", "x  4"}));
}

TEST(Names, OfAllKinds) {
  const basSafeCtl model = problem({.variables = 1, .less_equal = 1, .greater_equal = 2, .equal = 2});
  EXPECT_EQ(names_of(model), (CellTexts{"x  1", "x  2", "s  1", "s  2", "q  1", "q  2", "r  1", "r  2"}));
}

TEST(Names, AreMissingBesideTheProblem) {
  EXPECT_EQ(basSafeCtl{}.variable_name(0), "");
  EXPECT_EQ(basSafeCtl{}.variable_name(5), "");
}

// ---- The first tableau

TEST(InitTableau, OfTheStartUpCounts) {
  basSafeCtl model;
  ASSERT_TRUE(InitTableau(model).has_value());
  expect_tableau(model, {" 0", " 0", " 0", " 0", " 0"},
                 {{" 0", " 0", " 1", " 0", " 0"}, {" 0", " 0", " 0", " 1", " 0"}}, {3, 4});
  EXPECT_EQ(model.NrTableau, 1);
  EXPECT_EQ(model.TableauGestart, 1);
}

TEST(InitTableau, OfOneVariableAndOneEquality) {
  const basSafeCtl model = problem({.variables = 1, .equal = 1});
  EXPECT_EQ(names_of(model), (CellTexts{"x  1", "r  1"}));
  expect_tableau(model, {" 0", " 100", " 0"}, {{" 0", " 1", " 0"}}, {2});
}

TEST(InitTableau, OfTwoGreaterEqualRows) {
  const basSafeCtl model = problem({.variables = 1, .greater_equal = 2, .equal = 1});
  EXPECT_EQ(names_of(model), (CellTexts{"x  1", "s  1", "s  2", "q  1", "q  2", "r  1"}));
  expect_tableau(model, {" 0", " 0", " 0", " 100", " 100", " 100", " 0"},
                 {{" 0", "-1", " 0", " 1", " 0", " 0", " 0"},
                  {" 0", " 0", "-1", " 0", " 1", " 0", " 0"},
                  {" 0", " 0", " 0", " 0", " 0", " 1", " 0"}},
                 {4, 5, 6});
}

TEST(InitTableau, OfOneRowOfEachKind) {
  const basSafeCtl model = problem({.variables = 2, .less_equal = 1, .greater_equal = 1, .equal = 1});
  expect_tableau(model, {" 0", " 0", " 0", " 0", " 100", " 100", " 0"},
                 {{" 0", " 0", " 1", " 0", " 0", " 0", " 0"},
                  {" 0", " 0", " 0", "-1", " 1", " 0", " 0"},
                  {" 0", " 0", " 0", " 0", " 0", " 1", " 0"}},
                 {3, 5, 6});
}

TEST(InitTableau, WritesANegativeMWithItsSign) {
  const basSafeCtl model = problem({.variables = 1, .greater_equal = 1, .equal = 1, .big_m = -5});
  expect_row(model.current.row_F(), {" 0", " 0", "-5", "-5", " 0"});
}

TEST(InitTableau, WritesEveryMOf16Bits) {
  for (const int big_m : {0, 1, 1000, 32767, -32768}) {
    const basSafeCtl model = problem({.variables = 1, .equal = 1, .big_m = big_m});
    EXPECT_EQ(model.current.row_F().value(2), big_m);
    EXPECT_EQ(model.current.row_F().text(2), (big_m < 0 ? "" : " ") + std::to_string(big_m));
  }
}

// In the storage's last row and column too.
TEST(InitTableau, OfTheLargestProblem) {
  const basSafeCtl model = problem({.variables = 10, .greater_equal = 10});
  EXPECT_EQ(model.current.row(10).value(20), -1);
  EXPECT_EQ(model.current.row(10).value(30), 1);
  EXPECT_EQ(model.current.basis(10), 30);
  EXPECT_EQ(model.current.row_F().value(30), 100);
}

TEST(InitTableau, ClearsTheProblemAndLeavesItsNeighbours) {
  basSafeCtl model = problem({.variables = 20, .less_equal = 10});
  for (TableauState* tableau : {&model.current, &model.first}) {
    for (int column = 1; column <= RL; ++column) {
      tableau->row_F().write(column, 7, "zeven");
      for (int row = 1; row <= most_rows; ++row) tableau->row(row).write(column, 7, "zeven");
    }
  }
  set_counts(model, {.variables = 2, .less_equal = 2});
  ASSERT_TRUE(InitTableau(model).has_value());
  expect_tableau(model, {" 0", " 0", " 0", " 0", " 0"},
                 {{" 0", " 0", " 1", " 0", " 0"}, {" 0", " 0", " 0", " 1", " 0"}}, {3, 4});
  for (const TableauState* tableau : {&model.current, &model.first}) {
    for (const CellRow* row : {&tableau->row_F(), &tableau->row(1), &tableau->row(2)}) {
      EXPECT_EQ(row->text(5), "zeven");
      EXPECT_EQ(row->value(30), 7);
    }
    EXPECT_EQ(tableau->row(3).text(1), "zeven");
    EXPECT_EQ(tableau->row(3).text(RL), "zeven");
    EXPECT_EQ(tableau->basis(3), 23);
  }
}

TEST(InitTableau, LeavesPivotAndScrollPosition) {
  basSafeCtl model;
  model.PivotRij = model.PivotKolom = model.StartRij = model.StartKolom = 2;
  ASSERT_TRUE(InitTableau(model).has_value());
  for (const std::int16_t place : {model.PivotRij, model.PivotKolom, model.StartRij, model.StartKolom})
    EXPECT_EQ(place, 2);
}

void expect_error_9_and_nothing_written(const Counts& counts) {
  basSafeCtl model;
  ASSERT_TRUE(InitTableau(model).has_value());
  model.current.row(1).write(1, 7, "zeven");
  model.first.row(1).write(1, 7, "zeven");
  model.NrTableau = 5;
  set_counts(model, counts);
  expect_error(InitTableau(model), ErrorNumber::SubscriptOutOfRange);
  model.current.row(1).write(2, 8, "acht");
  expect_error(restore_first_tableau(model), ErrorNumber::SubscriptOutOfRange);
  expect_error(rewrite_texts(model), ErrorNumber::SubscriptOutOfRange);
  EXPECT_EQ(model.NrTableau, 5);
  EXPECT_EQ(texts_of(model.current.row(1), 4), (CellTexts{"zeven", "acht", " 1", " 0"}));
  EXPECT_EQ(texts_of(model.first.row(1), 4), (CellTexts{"zeven", " 0", " 1", " 0"}));
}

TEST(InitTableau, BeyondTheStorageIsError9) {
  expect_error_9_and_nothing_written({.variables = 40, .less_equal = 2});
  expect_error_9_and_nothing_written({.variables = 29, .less_equal = 2});
  expect_error_9_and_nothing_written({.variables = 1, .less_equal = 11});
  expect_error_9_and_nothing_written({.variables = 11, .greater_equal = 10});
  expect_error_9_and_nothing_written({.variables = 32767, .less_equal = 32767});
}

TEST(InitTableau, OfNoRowsAndNoColumnsIsEmpty) {
  const basSafeCtl model = problem({.variables = 0});
  EXPECT_EQ(shape_of(model).rows, 0);
  EXPECT_EQ(shape_of(model).columns, 0);
}

TEST(InitTableau, OfNegativeCountsWritesNoCell) {
  basSafeCtl model;
  model.current.row(1).write(1, 7, "zeven");
  model.NrBeslisVar = -3;
  model.NrKleinerGelijkVglen = -2;
  ASSERT_TRUE(model.set_derived_counts().has_value());
  ASSERT_TRUE(InitTableau(model).has_value());
  EXPECT_EQ(model.current.row(1).text(1), "zeven");
}

// ---- Back to the first tableau

TEST(RestoreFirstTableau, UndoesWhatWasChanged) {
  basSafeCtl model = problem({.variables = 1, .less_equal = 1, .equal = 1});
  model.first.row(2).write(1, 0.5, "1/2");
  model.current.row(2).write(1, 3.0);
  model.current.row(1).write(RL, 4.0);
  model.current.row_F().write(RL, 5.0);
  model.current.row_F().write(3, 6.0);
  model.current.set_basis(2, 1);
  model.NrTableau = 9;
  ASSERT_TRUE(restore_first_tableau(model).has_value());
  expect_row(model.current.row_F(), {" 0", " 0", " 100", " 0"});
  EXPECT_EQ(texts_of(model.current.row(2), 3), (CellTexts{"1/2", " 0", " 1"}));
  EXPECT_EQ(model.current.row(2).value(1), 0.5);
  EXPECT_EQ(model.current.row(1).right(), 0);
  EXPECT_EQ(model.current.basis(2), 3);
  EXPECT_EQ(model.NrTableau, 1);
}

TEST(RestoreFirstTableau, RightAfterInitTableauChangesNothing) {
  basSafeCtl model = problem({.variables = 2, .less_equal = 1, .greater_equal = 1, .equal = 1});
  ASSERT_TRUE(restore_first_tableau(model).has_value());
  expect_tableau(model, {" 0", " 0", " 0", " 0", " 100", " 100", " 0"},
                 {{" 0", " 0", " 1", " 0", " 0", " 0", " 0"},
                  {" 0", " 0", " 0", "-1", " 1", " 0", " 0"},
                  {" 0", " 0", " 0", " 0", " 0", " 1", " 0"}},
                 {3, 5, 6});
}

TEST(RestoreFirstTableau, LeavesWhatStandsBesideTheProblem) {
  basSafeCtl model = problem({.variables = 2, .less_equal = 2});
  model.current.row(1).write(5, 7, "zeven");
  model.current.row(3).write(1, 7, "zeven");
  ASSERT_TRUE(restore_first_tableau(model).has_value());
  EXPECT_EQ(model.current.row(1).text(5), "zeven");
  EXPECT_EQ(model.current.row(3).text(1), "zeven");
}

// ---- Cells and their texts

TEST(Cell, KeepsTheTextThatIsTyped) {
  CellRow row;
  row.write(1, 1.0 / 3, "1/3");
  EXPECT_EQ(row.value(1), 1.0 / 3);
  EXPECT_EQ(row.text(1), "1/3");
}

TEST(Cell, HasTheDecimalTextOfItsNumber) {
  CellRow row;
  row.write(30, 1.0 / 3);
  row.write(RL, -2.0);
  EXPECT_EQ(row.text(30), " 0.333333");
  EXPECT_EQ(row.text(RL), "-2");
}

TEST(Cell, KeepsATextThatWasNotMadeYetWhenTheNumberGoes) {
  CellRow row;
  row.write(1, 1.0 / 3);
  row.write_value(1, 5);
  EXPECT_EQ(row.value(1), 5);
  EXPECT_EQ(row.text(1), " 0.333333");
}

TEST(Cell, KeepsItsNumberWhenTheTextGoes) {
  CellRow row;
  row.write(1, 2.0);
  row.write_text(1, "1+1");
  EXPECT_EQ(row.value(1), 2);
  EXPECT_EQ(row.text(1), "1+1");
}

TEST(Cell, TextsMadeLateAreThoseMadeAtOnce) {
  for (const double value :
       {0.0, -0.0, 1.0, -0.5, 1.0 / 3, 12345.678, 2.5e-7, -1234567.0, 1e300, 999999.96}) {
    CellRow row;
    row.write(1, value);
    EXPECT_EQ(row.text(1), numbers::GetalNaarDecimaal(value));
    row.write(2, value, "getypt");
    row.rewrite(2, false);
    EXPECT_EQ(row.text(2), numbers::GetalNaarDecimaal(value));
  }
}

TEST(Cell, RewrittenInFractionsBecomesItsFraction) {
  CellRow row;
  row.write(1, 0.1 + 0.2, "getypt");
  row.rewrite(1, true);
  EXPECT_EQ(row.value(1), 0.3);
  EXPECT_EQ(row.text(1), " 3/10");
}

TEST(Cell, RewrittenAsMultipleOfPiKeepsItsNumber) {
  CellRow row;
  row.write(1, std::numbers::pi / 2);
  row.rewrite(1, true);
  EXPECT_EQ(row.value(1), std::numbers::pi / 2);
  EXPECT_EQ(row.text(1), "(1/2)pi");
}

TEST(Cell, ChangesItsTextWithTheMode) {
  CellRow row;
  row.write(1, 0.75);
  for (const int time : {1, 2}) {
    SCOPED_TRACE(time);
    row.rewrite(1, true);
    EXPECT_EQ(row.text(1), " 3/4");
    row.rewrite(1, false);
    EXPECT_EQ(row.text(1), " 0.75");
  }
}

TEST(Cell, WrittenAnewAfterItWasAFractionIsRewrittenAnew) {
  CellRow row;
  row.write(1, 0.75);
  row.rewrite(1, true);
  row.write_value(1, 0.25);
  row.rewrite(1, true);
  EXPECT_EQ(row.text(1), " 1/4");
  row.write_text(1, "getypt");
  row.rewrite(1, true);
  EXPECT_EQ(row.text(1), " 1/4");
  row.write(1, 0.5);
  row.rewrite(1, true);
  EXPECT_EQ(row.text(1), " 1/2");
  row.clear(1);
  row.rewrite(1, true);
  EXPECT_EQ(row.text(1), " 0");
}

TEST(Row, RewritesTheColumnsAskedFor) {
  CellRow row;
  for (int column = 1; column <= RL; ++column) row.write(column, 0.5, "getypt");
  row.rewrite_columns(2, true);
  EXPECT_EQ(texts_of(row, 4), (CellTexts{" 1/2", " 1/2", "getypt", "getypt"}));
  EXPECT_EQ(row.text(RL), "getypt");
  row.rewrite_row(3, false);
  EXPECT_EQ(texts_of(row, 4), (CellTexts{" 0.5", " 0.5", " 0.5", "getypt"}));
  EXPECT_EQ(row.text(RL), " 0.5");
}

CellRow row_of_fractions(bool fractions) {
  CellRow row;
  for (int column = 1; column <= RL; ++column) row.write(column, column / 4.0, "getypt");
  row.rewrite_row(7, fractions);
  return row;
}

TEST(Row, AddsAMultipleOfAnother) {
  for (const bool fractions : {false, true}) {
    CellRow row = row_of_fractions(fractions);
    CellRow other;
    other.write(2, 1.0);
    other.write(RL, -3.0);
    other.write(8, 100.0);
    row.add_multiple(0.5, other, 7, fractions);
    EXPECT_EQ(row.value(1), 0.25);
    EXPECT_EQ(row.text(1), fractions ? " 1/4" : " 0.25");
    EXPECT_EQ(row.value(2), 1);
    EXPECT_EQ(row.text(2), " 1");
    EXPECT_EQ(row.right(), RL / 4.0 - 1.5);
    EXPECT_EQ(row.text(RL), fractions ? " 6+1/4" : " 6.25");
    EXPECT_EQ(row.value(8), 2);
    EXPECT_EQ(row.text(8), "getypt");
  }
}

TEST(Row, IsDivided) {
  for (const bool fractions : {false, true}) {
    CellRow row = row_of_fractions(fractions);
    row.divide(-0.5, 7, fractions);
    EXPECT_EQ(row.value(1), -0.5);
    EXPECT_EQ(row.text(1), fractions ? "-1/2" : "-0.5");
    EXPECT_EQ(row.right(), RL / -2.0);
    EXPECT_EQ(row.text(RL), fractions ? "-15-1/2" : "-15.5");
    EXPECT_EQ(row.value(8), 2);
    EXPECT_EQ(row.text(8), "getypt");
  }
}

TEST(Row, KeepsTheTextOfAFractionThatIsMadeLater) {
  CellRow row;
  row.write(1, 1 / 3.0);
  row.rewrite_row(1, true);
  row.write_value(1, 2.0);
  EXPECT_EQ(row.text(1), " 1/3");
  row.rewrite_row(1, true);
  row.write_text(1, "getypt");
  EXPECT_EQ(row.text(1), "getypt");
  row.rewrite_row(1, true);
  row.write(1, 0.25);
  EXPECT_EQ(row.text(1), " 0.25");
}

TEST(Row, IsInDecimalsAgainAfterFractions) {
  CellRow row = row_of_fractions(true);
  row.rewrite_row(7, false);
  CellRow other;
  row.add_multiple(1, other, 7, false);
  EXPECT_EQ(row.text(1), " 0.25");
}

TEST(Row, DividedByOneStillGetsItsTexts) {
  for (const bool fractions : {false, true}) {
    CellRow row;
    row.write(1, 0.5, "getypt");
    row.divide(1, 1, fractions);
    EXPECT_EQ(row.text(1), fractions ? " 1/2" : " 0.5");
  }
}

TEST(Row, KnowsItsLargestMagnitude) {
  for (int columns = 0; columns <= most_columns; ++columns) {
    for (int largest = 1; largest <= RL; ++largest) {
      CellRow row;
      row.write(largest, -8.0);
      const bool counts = largest <= columns || largest == RL;
      EXPECT_EQ(row.largest_magnitude(columns), counts ? 8 : 0) << columns << " columns, " << largest;
    }
  }
}

TEST(RewriteTexts, GivesEveryNumberItsTextInTheMode) {
  basSafeCtl model = problem({.variables = 1, .less_equal = 1});
  for (CellRow* row : {&model.current.row_F(), &model.current.row(1)})
    for (const int column : {1, 2, RL}) row->write(column, 0.5, "getypt");
  model.Breuken = true;
  ASSERT_TRUE(rewrite_texts(model).has_value());
  for (const CellRow* row : {&model.current.row_F(), &model.current.row(1)}) {
    EXPECT_EQ(texts_of(*row, 2), (CellTexts{" 1/2", " 1/2"}));
    EXPECT_EQ(row->text(RL), " 1/2");
  }
  EXPECT_EQ(model.first.row(1).text(2), " 1");
}

}  // namespace
}  // namespace tabulon
