// Problems for tests of the operations.
//
//   basSafeCtl model = problem({.variables = 2, .less_equal = 2});
//   fill_row(model, 1, {1, 2}, 8);
//   fill_row_F(model, {-3, -5});
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <initializer_list>

#include "control/basSafeCtl.h"
#include "numbers/display.h"

namespace tabulon {

struct Counts {
  int variables = 2, less_equal = 0, greater_equal = 0, equal = 0, big_m = 100;
};

inline void set_counts(basSafeCtl& model, const Counts& counts) {
  model.NrBeslisVar = static_cast<std::int16_t>(counts.variables);
  model.NrKleinerGelijkVglen = static_cast<std::int16_t>(counts.less_equal);
  model.NrGroterGelijkVglen = static_cast<std::int16_t>(counts.greater_equal);
  model.NrGelijkVglen = static_cast<std::int16_t>(counts.equal);
  model.BigM = static_cast<std::int16_t>(counts.big_m);
  ASSERT_TRUE(model.set_derived_counts().has_value());
}

// The first tableau of a problem, all coefficients 0.
inline basSafeCtl problem(const Counts& counts) {
  basSafeCtl model;
  set_counts(model, counts);
  EXPECT_TRUE(InitTableau(model).has_value());
  return model;
}

inline void fill(CellRow& row, std::initializer_list<double> coefficients) {
  int column = 0;
  for (const double coefficient : coefficients) row.write(++column, coefficient);
}

inline void fill_row_F(basSafeCtl& model, std::initializer_list<double> coefficients) {
  fill(model.current.row_F(), coefficients);
}

inline void fill_row(basSafeCtl& model, int row, std::initializer_list<double> coefficients, double right) {
  fill(model.current.row(row), coefficients);
  model.current.row(row).write(CellRow::right_hand_side, right);
}

// maximise 3 x1 + 5 x2 with x1 <= 4, 2 x2 <= 12, 3 x1 + 2 x2 <= 18
inline basSafeCtl three_rows() {
  basSafeCtl model = problem({.variables = 2, .less_equal = 3});
  fill_row_F(model, {-3, -5});
  fill_row(model, 1, {1, 0}, 4);
  fill_row(model, 2, {0, 2}, 12);
  fill_row(model, 3, {3, 2}, 18);
  return model;
}

inline void write_typed(CellRow& row, int column, const char* text, double value) {
  row.write(column, value, text);
}

inline Shape shape_of(const basSafeCtl& model) {
  return model.shape().value_or(Shape{});
}

inline void show_fractions(basSafeCtl& model) {
  model.Breuken = true;
  EXPECT_TRUE(rewrite_texts(model).has_value());
}

}  // namespace tabulon
