// Random problems and random steps, in both modes, compared with the step-by-step reference after every
// step: every number bit for bit, every text, the basis and the counters.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>
#include <string>

#include "simplex/pivot.h"
#include "simplex/sweep.h"
#include "tests/numbers/random_numbers.h"
#include "tests/simplex/problems.h"
#include "tests/simplex/reference_tableau.h"

namespace tabulon {
namespace {

using numbers::RandomNumbers;

struct Coefficient {
  double value;
  std::string text;
};

// Small whole numbers (degenerate problems), typed fractions, decimals, and numbers of every size.
Coefficient random_coefficient(RandomNumbers& random, int kind) {
  const double whole = random.between(-9, 9);
  const int denominator = random.between(2, 12);
  double value = whole;
  if (kind == 1) return {whole / denominator, std::to_string(random.between(0, 9)) + "/3"};
  if (kind == 2) value = random.between(-10000, 10000) / 100.0;
  if (kind == 3) value = random.tableau_number();
  if (kind == 4) value = random.between(0, 3) == 0 ? whole : 0;
  if (kind == 5) value = static_cast<double>(random.bits() >> 11) * 0x1p-53 * 10;
  return {value, numbers::GetalNaarDecimaal(value)};
}

Counts random_counts(RandomNumbers& random, bool small) {
  const int rows = random.between(1, small ? 4 : most_rows);
  Counts counts{.less_equal = rows};
  if (random.between(0, 1) == 0) {
    counts.greater_equal = random.between(0, rows);
    counts.equal = random.between(0, rows - counts.greater_equal);
    counts.less_equal = rows - counts.greater_equal - counts.equal;
    counts.big_m = std::array{100, 1000, 32767, -5}[random.bits() % 4];
  }
  const int others = rows + counts.greater_equal;
  counts.variables = random.between(1, std::min(small ? 4 : 20, most_columns - others));
  return counts;
}

void fill_at_random(basSafeCtl& model, RandomNumbers& random) {
  const int kind = random.between(0, 5);
  const bool typed = random.between(0, 1) == 0;
  const auto write = [&](CellRow& row, int column, double sign) {
    Coefficient coefficient = random_coefficient(random, kind);
    if (sign != 0) coefficient.value = sign * std::fabs(coefficient.value);
    if (typed) return row.write(column, coefficient.value, coefficient.text);
    row.write(column, coefficient.value);
  };
  const double sign = random.between(0, 1);
  for (int column = 1; column <= model.NrBeslisVar; ++column) {
    write(model.current.row_F(), column, -sign);
    for (int row = 1; row <= model.rows(); ++row) write(model.current.row(row), column, sign);
  }
  for (int row = 1; row <= model.rows(); ++row) write(model.current.row(row), CellRow::right_hand_side, sign);
}

// Something beside the problem, as a larger earlier problem leaves it.
void fill_beside(basSafeCtl& model) {
  for (int row = 1; row <= most_rows; ++row)
    for (int column = 1; column <= most_columns; ++column)
      if (row > model.rows() || column > model.columns())
        model.current.row(row).write(column, 7.5 + row, " oud");
  for (int column = model.columns() + 1; column <= most_columns; ++column)
    model.current.row_F().write(column, -99.0);
}

class RandomSteps : public testing::Test {
 protected:
  // One step of the pupil or of the method, taken twice.
  void take_step(basSafeCtl& model, ReferenceTableau& expected) {
    switch (random_.between(0, 9)) {
      case 0:
        return sweep_at(model, expected, random_.between(-1, 11), random_.between(-1, 31));
      case 1:
      case 2:
        return sweep_at(model, expected, random_.between(1, expected.m), random_.between(1, expected.N));
      case 3:
        return normalise(model, expected, random_.between(1, expected.N));
      case 4:
        return canonicalise_both(model, expected);
      case 5:
        return optimise_both(model, expected, random_.between(0, 8));
      case 6:
        return type_in(model, expected);
      default:
        return sweep_found_pivot(model, expected);
    }
  }

  static bool beside(const ReferenceTableau& expected, int row, int column) {
    return row > expected.m || column > expected.N;
  }

  void sweep_at(basSafeCtl& model, ReferenceTableau& expected, int row, int column) {
    if (beside(expected, row, column)) row = column = 0;  // the reference knows no bounds but the storage's
    model.PivotRij = expected.PivotRij = static_cast<std::int16_t>(row);
    model.PivotKolom = expected.PivotKolom = static_cast<std::int16_t>(column);
    expected.KolomVegen();
    ASSERT_TRUE(sweep_column(model).has_value());
  }

  void normalise(basSafeCtl& model, ReferenceTableau& expected, int column) {
    model.NormeerKolom = expected.NormeerKolom = static_cast<std::int16_t>(column);
    expected.KolomNormeren();
    ASSERT_TRUE(normalise_column(model).has_value());
  }

  void canonicalise_both(basSafeCtl& model, ReferenceTableau& expected) {
    expected.BasisoplossingOpvragen();
    ASSERT_TRUE(canonicalise(model).has_value());
  }

  void find_in_both(basSafeCtl& model, ReferenceTableau& expected) {
    expected.ZoekPivotElement();
    const PivotChoice choice = find_pivot(model, shape_of(model));
    ASSERT_EQ(choice.pivot, (Pivot{expected.PivotRij, expected.PivotKolom}));
    model.PivotRij = expected.PivotRij, model.PivotKolom = expected.PivotKolom;
  }

  void sweep_found_pivot(basSafeCtl& model, ReferenceTableau& expected) {
    find_in_both(model, expected);
    if (expected.PivotRij != 0) sweep_at(model, expected, expected.PivotRij, expected.PivotKolom);
  }

  void optimise_both(basSafeCtl& model, ReferenceTableau& expected, int most_sweeps) {
    canonicalise_both(model, expected);
    const auto search = optimise(model, most_sweeps);
    ASSERT_TRUE(search.has_value());
    for (expected.ZoekPivotElement(); expected.PivotRij != 0 && most_sweeps > 0;
         expected.ZoekPivotElement()) {
      expected.KolomVegen();
      --most_sweeps;
    }
    EXPECT_EQ(*search == PivotSearch::Found, expected.PivotRij != 0);
    expected.PivotRij = expected.PivotKolom = 0;
  }

  // A number that the pupil types, or one around the thresholds, and sometimes another basis.
  void type_in(basSafeCtl& model, ReferenceTableau& expected) {
    constexpr std::array values = {1.0 / 3, 4e-10, -1e-9, 2e-9, 1e-8, 0.0};
    const int row = random_.between(1, expected.m), column = random_.between(1, expected.N);
    const double value = values[random_.bits() % values.size()];
    model.current.row(row).write(column, value, "getypt");
    expected.Tableau[row][column] = value, expected.strTableau[row][column] = "getypt";
    if (random_.between(0, 5) == 0) {
      model.current.set_basis(row, static_cast<std::int16_t>(column));
      expected.Basis[row] = static_cast<std::int16_t>(column);
    }
  }

  void work_a_problem(bool fractions) {
    basSafeCtl model = problem(random_counts(random_, fractions && random_.between(0, 9) != 0));
    fill_at_random(model, random_);
    fill_beside(model);
    model.Breuken = fractions;
    if (fractions && random_.between(0, 1) == 0) show_fractions(model);
    model.NrTableau = random_.between(0, 9) == 0 ? 32765 : 1;
    ReferenceTableau expected(model);
    expect_same(model, expected);
    for (int step = 0; step < 10 && !HasFailure(); ++step) {
      take_step(model, expected);
      // Where even the reference overflows there is nothing to compare; other tests look at that.
      ASSERT_TRUE(expected.all_finite());
      expect_same(model, expected);
    }
  }

  void work_problems(int count, bool fractions) {
    SCOPED_TRACE(random_.seed_text());
    for (int number = 1; number <= count && !HasFailure(); ++number) {
      SCOPED_TRACE("problem " + std::to_string(number));
      work_a_problem(fractions);
    }
  }

  RandomNumbers random_;
};

TEST_F(RandomSteps, InDecimalsAreThoseOfTheReference) {
  work_problems(numbers::rounds(3000), false);
}

TEST_F(RandomSteps, InFractionsAreThoseOfTheReference) {
  work_problems(numbers::rounds(1500), true);
}

}  // namespace
}  // namespace tabulon
