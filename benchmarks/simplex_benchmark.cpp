// How long the method takes, from building a problem to its optimum, and one sweep alone; beside it the same
// pivots by bare arithmetic on a two-dimensional array, which knows no texts, no modes and no errors.
//
//   benchmarks --benchmark_filter=optimise
//
// The times of BM_optimise... and BM_bare... are per problem, over the same 64 problems; the counter `sweeps`
// is the number of sweeps per problem.
#include <benchmark/benchmark.h>

#include <array>
#include <cmath>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include "benchmarks/problems.h"
#include "control/basSafeCtl.h"
#include "simplex/pivot.h"
#include "simplex/sweep.h"

namespace tabulon {
namespace {

using namespace benchmarks;  // NOLINT: the problems, by their short names

std::size_t make_grid_texts(const basSafeCtl& model) {
  constexpr int grid_rows = 7, grid_columns = 5;
  std::size_t length = model.current.row_F().text(CellRow::right_hand_side).size();
  for (int column = 1; column <= grid_columns; ++column) {
    length += model.current.row_F().text(column).size();
    for (int row = 1; row <= grid_rows; ++row) length += model.current.row(row).text(column).size();
  }
  for (int row = 1; row <= grid_rows; ++row)
    length += model.current.row(row).text(CellRow::right_hand_side).size();
  return length;
}

enum class Texts { Unasked, Grid };

void optimise_problems(benchmark::State& state, int variables, bool fractions, bool (*optimiser)(basSafeCtl&),
                       Texts texts) {
  basSafeCtl model;
  model.Breuken = fractions;
  std::size_t at = 0;
  std::int64_t sweeps = 0;
  for (auto _ : state) {
    if (!build(model, problems(variables)[at]) || !optimiser(model)) return state.SkipWithError("no optimum");
    if (texts == Texts::Grid) benchmark::DoNotOptimize(make_grid_texts(model));
    sweeps += model.NrTableau - 1;
    at = (at + 1) % problem_count;
  }
  state.counters["sweeps"] =
      benchmark::Counter(static_cast<double>(sweeps), benchmark::Counter::kAvgIterations);
}

// The part of the above that builds.
void build_problems(benchmark::State& state, int variables) {
  basSafeCtl model;
  std::size_t at = 0;
  for (auto _ : state) {
    if (!build(model, problems(variables)[at])) return state.SkipWithError("not built");
    benchmark::ClobberMemory();
    at = (at + 1) % problem_count;
  }
}

// ---- Bare arithmetic: row 0 is F, the last column the right-hand sides

template <int columns>
using BareTableau = double[rows + 1][columns + 1];

template <int columns>
void build_bare(BareTableau<columns>& tableau, const Problem& problem) {
  for (int row = 0; row <= rows; ++row)
    for (int column = 0; column <= columns; ++column) tableau[row][column] = 0;
  for (int column = 0; column < columns - rows; ++column) {
    const auto at = static_cast<std::size_t>(column);
    tableau[0][column] = problem.objective[at];
    for (int row = 1; row <= rows; ++row)
      tableau[row][column] = problem.coefficients[static_cast<std::size_t>(row - 1)][at];
  }
  for (int row = 1; row <= rows; ++row) {
    tableau[row][columns - rows + row - 1] = 1;
    tableau[row][columns] = problem.right[static_cast<std::size_t>(row - 1)];
  }
}

template <int columns>
void pivot_bare(BareTableau<columns>& tableau, int pivot_row, int pivot_column) {
  const double inverse = 1 / tableau[pivot_row][pivot_column];
  for (int column = 0; column <= columns; ++column) tableau[pivot_row][column] *= inverse;
  for (int row = 0; row <= rows; ++row) {
    if (row == pivot_row) continue;
    const double factor = tableau[row][pivot_column];
    for (int column = 0; column <= columns; ++column)
      tableau[row][column] -= factor * tableau[pivot_row][column];
  }
}

template <int columns>
int optimise_bare(BareTableau<columns>& tableau) {
  for (int pivots = 0;; ++pivots) {
    int pivot_column = -1, pivot_row = 0;
    double smallest = -1e-10, quotient = INFINITY;
    for (int column = 0; column < columns; ++column)
      if (tableau[0][column] < smallest) smallest = tableau[0][column], pivot_column = column;
    if (pivot_column < 0) return pivots;
    for (int row = 1; row <= rows; ++row)
      if (tableau[row][pivot_column] > 1e-8 && tableau[row][columns] / tableau[row][pivot_column] < quotient)
        quotient = tableau[row][columns] / tableau[row][pivot_column], pivot_row = row;
    if (pivot_row == 0) return pivots;
    pivot_bare<columns>(tableau, pivot_row, pivot_column);
  }
}

template <int columns>
void optimise_bare_problems(benchmark::State& state) {
  BareTableau<columns> tableau;
  std::size_t at = 0;
  std::int64_t sweeps = 0;
  for (auto _ : state) {
    build_bare<columns>(tableau, problems(columns - rows)[at]);
    sweeps += optimise_bare<columns>(tableau);
    benchmark::DoNotOptimize(tableau);
    at = (at + 1) % problem_count;
  }
  state.counters["sweeps"] =
      benchmark::Counter(static_cast<double>(sweeps), benchmark::Counter::kAvgIterations);
}

// ---- One sweep, back and forth between two basic variables of the same row

void sweep_back_and_forth(benchmark::State& state, bool fractions) {
  basSafeCtl model;
  model.Breuken = fractions;
  if (!build(model, problems(20)[0]) || !canonicalise(model)) return state.SkipWithError("not built");
  std::int16_t column = 1;
  for (auto _ : state) {
    model.PivotRij = 1;
    model.PivotKolom = column;
    if (!sweep_column(model)) return state.SkipWithError("not swept");
    column = column == 1 ? 21 : 1;  // 21 is the slack variable of row 1
  }
}

BENCHMARK_CAPTURE(sweep_back_and_forth, decimals, false)->Name("BM_sweep_10x30/decimals");
BENCHMARK_CAPTURE(sweep_back_and_forth, fractions, true)->Name("BM_sweep_10x30/fractions");

BENCHMARK(optimise_bare_problems<20>)->Name("BM_bare_10x10");
BENCHMARK_CAPTURE(build_problems, , 10)->Name("BM_build_10x10");
BENCHMARK_CAPTURE(optimise_problems, , 10, false, optimise_at_once, Texts::Unasked)
    ->Name("BM_optimise_10x10");
BENCHMARK_CAPTURE(optimise_problems, , 10, false, optimise_by_steps, Texts::Unasked)
    ->Name("BM_optimise_10x10/by_steps");
BENCHMARK_CAPTURE(optimise_problems, , 10, false, optimise_at_once, Texts::Grid)
    ->Name("BM_optimise_10x10/texts");
BENCHMARK_CAPTURE(optimise_problems, , 10, true, optimise_at_once, Texts::Grid)
    ->Name("BM_optimise_10x10/fractions_texts");

BENCHMARK(optimise_bare_problems<30>)->Name("BM_bare_10x30");
BENCHMARK_CAPTURE(build_problems, , 20)->Name("BM_build_10x30");
BENCHMARK_CAPTURE(optimise_problems, , 20, false, optimise_at_once, Texts::Unasked)
    ->Name("BM_optimise_10x30");
BENCHMARK_CAPTURE(optimise_problems, , 20, false, optimise_by_steps, Texts::Unasked)
    ->Name("BM_optimise_10x30/by_steps");
BENCHMARK_CAPTURE(optimise_problems, , 20, false, optimise_at_once, Texts::Grid)
    ->Name("BM_optimise_10x30/texts");
BENCHMARK_CAPTURE(optimise_problems, , 20, true, optimise_at_once, Texts::Grid)
    ->Name("BM_optimise_10x30/fractions_texts");

}  // namespace
}  // namespace tabulon
