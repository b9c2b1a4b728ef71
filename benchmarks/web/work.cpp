// The work that is timed in WebAssembly, each piece so often as the caller says; benchmarks/web/*.mjs times
// it.
#include <string_view>

#include "benchmarks/problems.h"
#include "benchmarks/tableau_numbers.h"
#include "numbers/display.h"
#include "numbers/expression.h"

namespace tabulon::benchmarks {
namespace {

// What was worked out goes here, so that it has to be worked out.
volatile double sink;

constexpr std::array<std::string_view, 4> expressions{"sqrt(2)*3/4", "(1+1/2)pi", "2.5E-3", "12"};

basSafeCtl& model() {
  static basSafeCtl shared;
  return shared;
}

}  // namespace

extern "C" {

[[clang::export_name("evaluate_expression")]] void evaluate_expression(int which, int times) {
  for (int i = 0; i < times; ++i) sink = *numbers::evaluate(expressions[static_cast<std::size_t>(which)]);
}

// `mode` is 0 for decimals, -1 for fractions.
[[clang::export_name("display")]] void display(int mode, int times) {
  for (int i = 0; i < times; ++i) {
    double number = tableau_numbers[static_cast<std::size_t>(i) % tableau_numbers.size()];
    sink = static_cast<double>(numbers::strSoortGetal(static_cast<std::int16_t>(mode), number).size());
  }
}

// Sweeps a tableau of 10 rows by 30 columns back and forth.
[[clang::export_name("sweep")]] void sweep(int fractions, int times) {
  model().Breuken = fractions != 0;
  if (!build(model(), problems(20)[0]) || !canonicalise(model())) __builtin_trap();
  for (int i = 0; i < times; ++i) {
    model().PivotRij = 1;
    model().PivotKolom = i % 2 == 0 ? 1 : 21;
    if (!sweep_column(model())) __builtin_trap();
  }
}

// From building to the optimum, 10 rows by `columns` (20 or 30) columns in all.
[[clang::export_name("optimise")]] void optimise(int columns, int times) {
  model().Breuken = false;
  const auto& all = problems(columns - rows);
  for (int i = 0; i < times; ++i)
    if (!build(model(), all[static_cast<std::size_t>(i) % all.size()]) || !optimise_at_once(model()))
      __builtin_trap();
}

// What others are given: problem `at` of that size. Row 0 is F, the last column the right-hand sides.
[[clang::export_name("number_of_problem")]] double number_of_problem(int columns, int at, int row,
                                                                     int column) {
  const Problem& problem = problems(columns - rows)[static_cast<std::size_t>(at)];
  const auto row_at = static_cast<std::size_t>(row - 1), column_at = static_cast<std::size_t>(column);
  if (column == problem.variables) return row == 0 ? 0 : problem.right[row_at];
  return row == 0 ? problem.objective[column_at] : problem.coefficients[row_at][column_at];
}

// Its optimum, which they have to find.
[[clang::export_name("optimum")]] double optimum(int columns, int at) {
  model().Breuken = false;
  const Problem& problem = problems(columns - rows)[static_cast<std::size_t>(at)];
  if (!build(model(), problem) || !optimise_at_once(model())) __builtin_trap();
  return model().current.row_F().right();
}

}  // extern "C"

}  // namespace tabulon::benchmarks
