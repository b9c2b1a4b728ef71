// Random problems of 10 rows, the same on every platform and in every run, and how each is built and solved.
//
//   for (const Problem& problem : problems(10)) { build(model, problem); optimise_at_once(model); }
#pragma once

#include <array>
#include <cstdint>
#include <random>
#include <vector>

#include "control/basSafeCtl.h"
#include "simplex/pivot.h"
#include "simplex/sweep.h"

namespace tabulon::benchmarks {

inline constexpr int rows = 10;
inline constexpr int problem_count = 64;
inline constexpr unsigned seed = 20;

// Positive coefficients with two decimals: every problem is bounded, and few pivots are ties.
struct Problem {
  int variables = 0;
  std::array<double, 20> objective{};
  std::array<std::array<double, 20>, rows> coefficients{};
  std::array<double, rows> right{};
};

inline Problem random_problem(int variables, std::mt19937& engine) {
  const auto number = [&engine](int low, int high) {
    return static_cast<double>(low + static_cast<int>(engine() % static_cast<unsigned>(high - low + 1))) /
           100;
  };
  Problem problem{.variables = variables};
  for (std::size_t column = 0; column < static_cast<std::size_t>(variables); ++column) {
    problem.objective[column] = -number(100, 2000);
    for (auto& row : problem.coefficients) row[column] = number(10, 1000);
  }
  for (double& right : problem.right) right = number(1000, 10000);
  return problem;
}

inline const std::vector<Problem>& problems(int variables) {
  const auto made = [](int count) {
    std::mt19937 engine(seed);
    std::vector<Problem> all;
    for (int i = 0; i < problem_count; ++i) all.push_back(random_problem(count, engine));
    return all;
  };
  static const std::vector<Problem> ten = made(10), twenty = made(20);
  return variables == 10 ? ten : twenty;
}

// ---- The model

inline void write_row(basSafeCtl& model, CellRow& (*row_of)(TableauState&, int), int row,
                      const double* numbers) {
  for (TableauState* tableau : {&model.current, &model.first})
    for (int column = 1; column <= model.NrBeslisVar; ++column)
      row_of(*tableau, row).write(column, numbers[column - 1]);
}

// The current and the first tableau, as the page's parameters fill them.
inline bool build(basSafeCtl& model, const Problem& problem) {
  model.NrBeslisVar = static_cast<std::int16_t>(problem.variables);
  model.NrKleinerGelijkVglen = rows;
  if (!model.set_derived_counts() || !InitTableau(model)) return false;
  write_row(
      model, [](TableauState& tableau, int) -> CellRow& { return tableau.row_F(); }, 0,
      problem.objective.data());
  for (int row = 1; row <= rows; ++row) {
    const auto at = static_cast<std::size_t>(row - 1);
    write_row(
        model, [](TableauState& tableau, int i) -> CellRow& { return tableau.row(i); }, row,
        problem.coefficients[at].data());
    model.current.row(row).write(CellRow::right_hand_side, problem.right[at]);
    model.first.row(row).write(CellRow::right_hand_side, problem.right[at]);
  }
  return true;
}

// A step at a time, as the handlers of the step-by-step commands call.
inline bool optimise_by_steps(basSafeCtl& model) {
  const auto shape = model.shape();
  if (!shape || !canonicalise(model)) return false;
  for (;;) {
    const PivotChoice choice = find_pivot(model, *shape);
    if (choice.search != PivotSearch::Found) return choice.search == PivotSearch::Optimal;
    model.PivotRij = static_cast<std::int16_t>(choice.pivot.row);
    model.PivotKolom = static_cast<std::int16_t>(choice.pivot.column);
    if (!sweep_column(model)) return false;
  }
}

// All at once, and one more search.
inline bool optimise_at_once(basSafeCtl& model) {
  constexpr int more_than_enough = 10000;
  if (!canonicalise(model)) return false;
  const auto search = optimise(model, more_than_enough);
  return search && find_pivot(model, {rows, model.columns()}).search == PivotSearch::Optimal;
}

}  // namespace tabulon::benchmarks
