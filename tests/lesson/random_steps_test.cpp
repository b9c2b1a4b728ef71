// Random steps on random tableaus: the operations that the log tells are the ones that the control has done,
// and the judgement agrees with the method.
#include <gtest/gtest.h>

#include <cmath>

#include "lesson/changes.h"
#include "lesson/first_tableau.h"
#include "lesson/judgement.h"
#include "lesson/reasons.h"
#include "lesson/twin.h"
#include "simplex/sweep.h"
#include "tests/lesson/random_problems.h"

namespace tabulon::lesson {
namespace {

const CellRow& row_of(const basSafeCtl& model, int row) {
  return row == 0 ? model.current.row_F() : model.current.row(row);
}

CellRow& row_of(basSafeCtl& model, int row) {
  return row == 0 ? model.current.row_F() : model.current.row(row);
}

// As a reader of the log would do it on paper.
void do_as_told(basSafeCtl& model, const std::vector<RowOperation>& operations) {
  for (const RowOperation& each : operations) {
    CellRow& row = row_of(model, each.row);
    const auto change = [&](int column) {
      const double other = each.other == 0 ? 0 : model.current.row(each.other).value(column);
      row.write(column, (row.value(column) + each.multiple * other) / each.divisor);
    };
    for (int column = 1; column <= model.columns(); ++column) change(column);
    change(CellRow::right_hand_side);
  }
}

void expect_same_numbers(const basSafeCtl& told, const basSafeCtl& done) {
  for (int row = 0; row <= done.rows(); ++row)
    for (int column = 1; column <= CellRow::right_hand_side; ++column) {
      if (column > done.columns() && column != CellRow::right_hand_side) continue;
      const double expected = row_of(done, row).value(column);
      ASSERT_NEAR(row_of(told, row).value(column), expected, 1e-6 * std::max(1.0, std::fabs(expected)))
          << "row " << row << ", column " << column;
    }
}

void set_pivot(basSafeCtl& model, Pivot pivot) {
  model.PivotRij = static_cast<std::int16_t>(pivot.row);
  model.PivotKolom = static_cast<std::int16_t>(pivot.column);
}

Pivot random_pivot(const basSafeCtl& model, numbers::RandomNumbers& random) {
  return {.row = random.between(1, model.rows()), .column = random.between(1, model.columns())};
}

TEST(RandomStep, IsToldAsItWasDone) {
  RandomProblems random;
  const int rounds = rounds_asked(1500);
  for (int round = 1; round <= rounds && !testing::Test::HasFailure(); ++round) {
    basSafeCtl model = first_tableau(random.textbook_problem());
    for (int step = 1; step <= 4; ++step) {
      SCOPED_TRACE("round " + std::to_string(round) + ", step " + std::to_string(step));
      const Pivot pivot = random_pivot(model, random.numbers());
      if (std::fabs(model.current.row(pivot.row).value(pivot.column)) < 1e-3) continue;
      basSafeCtl told = twin_of(model);
      do_as_told(told, operations_of_sweep(model, pivot));
      set_pivot(model, pivot);
      ASSERT_TRUE(sweep_column(model).has_value());
      expect_same_numbers(told, model);
    }
    const int column = random.numbers().between(1, model.columns());
    basSafeCtl told = twin_of(model);
    do_as_told(told, operations_of_normalising(model, column));
    model.NormeerKolom = static_cast<std::int16_t>(column);
    ASSERT_TRUE(normalise_column(model).has_value());
    expect_same_numbers(told, model);
  }
}

// The reasons name the pivot that the control finds, and the judge praises it; a step that is praised keeps
// the right-hand sides from going below 0, unless the control itself passes over a row.
TEST(RandomStep, OfTheMethodIsPraisedAndExplained) {
  RandomProblems random;
  int praised = 0, blamed = 0;
  const int rounds = rounds_asked(1500);
  for (int round = 1; round <= rounds && !testing::Test::HasFailure(); ++round) {
    basSafeCtl model = first_tableau(random.textbook_problem());
    ASSERT_TRUE(canonicalise(model).has_value());
    for (int step = 1; step <= 6; ++step) {
      SCOPED_TRACE("round " + std::to_string(round) + ", step " + std::to_string(step));
      const auto reasons = reasons_for(model);
      ASSERT_TRUE(reasons.has_value());
      EXPECT_TRUE(reasons->rows_to_bring_in_order.empty());
      EXPECT_FALSE(sentences_of(model, *reasons).empty());
      const PivotChoice choice = find_pivot(model, *model.shape());
      EXPECT_EQ(reasons->column == 0, choice.search == PivotSearch::Optimal);
      if (choice.search != PivotSearch::Found) break;
      EXPECT_EQ(reasons->column, choice.pivot.column);
      for (const RowQuotient& each : reasons->quotients)
        EXPECT_EQ(each.reason == RowReason::Smallest, each.row == choice.pivot.row);
      EXPECT_TRUE(judge_sweep(model, choice.pivot).right);
      const Pivot other = random_pivot(model, random.numbers());
      (judge_sweep(model, other).right ? praised : blamed) += 1;
      set_pivot(model, choice.pivot);
      ASSERT_TRUE(sweep_column(model).has_value());
    }
  }
  EXPECT_GT(praised, rounds / 20);
  EXPECT_GT(blamed, rounds / 4);
}

}  // namespace
}  // namespace tabulon::lesson
