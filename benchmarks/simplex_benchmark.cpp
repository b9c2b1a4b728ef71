// How long the method takes, from building a problem to its optimum, and one sweep alone.
//
//   benchmarks --benchmark_filter=optimise
//
// The times are per problem, over the same 64 problems; the counter `sweeps`
// is the number of sweeps per problem.
#include <benchmark/benchmark.h>

#include <cstdint>

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

BENCHMARK_CAPTURE(sweep_back_and_forth, decimals, false)->Name("sweep 10x30");
BENCHMARK_CAPTURE(sweep_back_and_forth, fractions, true)->Name("sweep 10x30 in fractions");

BENCHMARK_CAPTURE(build_problems, , 10)->Name("build 10x10");
BENCHMARK_CAPTURE(optimise_problems, , 10, false, optimise_at_once, Texts::Unasked)->Name("optimise 10x10");
BENCHMARK_CAPTURE(optimise_problems, , 10, false, optimise_by_steps, Texts::Unasked)
    ->Name("optimise 10x10 by steps");
BENCHMARK_CAPTURE(optimise_problems, , 10, false, optimise_at_once, Texts::Grid)
    ->Name("optimise 10x10 with texts");
BENCHMARK_CAPTURE(optimise_problems, , 10, true, optimise_at_once, Texts::Grid)
    ->Name("optimise 10x10 in fractions");

BENCHMARK_CAPTURE(build_problems, , 20)->Name("build 10x30");
BENCHMARK_CAPTURE(optimise_problems, , 20, false, optimise_at_once, Texts::Unasked)->Name("optimise 10x30");
BENCHMARK_CAPTURE(optimise_problems, , 20, false, optimise_by_steps, Texts::Unasked)
    ->Name("optimise 10x30 by steps");
BENCHMARK_CAPTURE(optimise_problems, , 20, false, optimise_at_once, Texts::Grid)
    ->Name("optimise 10x30 with texts");
BENCHMARK_CAPTURE(optimise_problems, , 20, true, optimise_at_once, Texts::Grid)
    ->Name("optimise 10x30 in fractions");

}  // namespace
}  // namespace tabulon
