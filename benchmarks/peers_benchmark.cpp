// Others at the same work, to hold ours against in the same run: a solver (GLPK) and an evaluator of
// expressions (muParser) as the distribution has them, the standard library's own reader of numbers, and the
// same pivots by bare arithmetic on a two-dimensional array, which knows no texts, no modes and no errors.
#include <benchmark/benchmark.h>
#include <glpk.h>
#include <muParserDLL.h>

#include <charconv>
#include <cmath>
#include <cstddef>
#include <initializer_list>
#include <string_view>
#include <vector>

#include "benchmarks/problems.h"
#include "control/basSafeCtl.h"

namespace tabulon {
namespace {

using namespace benchmarks;  // NOLINT: the problems, by their short names

// ---- Expressions

void evaluate_by_muparser(benchmark::State& state, const char* text) {
  muParserHandle_t parser = mupCreate(muBASETYPE_FLOAT);
  for (auto _ : state) {
    benchmark::DoNotOptimize(text);
    mupSetExpr(parser, text);
    benchmark::DoNotOptimize(mupEval(parser));
  }
  if (mupError(parser)) state.SkipWithError(mupGetErrorMsg(parser));
  mupRelease(parser);
}

// It knows no product without a sign.
BENCHMARK_CAPTURE(evaluate_by_muparser, root, "sqrt(2)*3/4")->Name("muParser sqrt(2)*3/4");
BENCHMARK_CAPTURE(evaluate_by_muparser, pi, "(1+1/2)*_pi")->Name("muParser (1+1/2)pi");
BENCHMARK_CAPTURE(evaluate_by_muparser, exponent, "2.5E-3")->Name("muParser 2.5E-3");
BENCHMARK_CAPTURE(evaluate_by_muparser, whole, "12")->Name("muParser 12");

// The numbers of an expression alone, each read where it is known to stand: less cannot be done.
void read_by_from_chars(benchmark::State& state, std::initializer_list<std::string_view> texts) {
  for (auto _ : state)
    for (std::string_view text : texts) {
      benchmark::DoNotOptimize(text);
      double number = 0;
      benchmark::DoNotOptimize(std::from_chars(text.data(), text.data() + text.size(), number));
      benchmark::DoNotOptimize(number);
    }
}

void read_root(benchmark::State& state) {
  read_by_from_chars(state, {"2", "3", "4"});
}
void read_pi(benchmark::State& state) {
  read_by_from_chars(state, {"1", "1", "2"});
}
void read_exponent(benchmark::State& state) {
  read_by_from_chars(state, {"2.5E-3"});
}
void read_whole(benchmark::State& state) {
  read_by_from_chars(state, {"12"});
}
BENCHMARK(read_root)->Name("from_chars sqrt(2)*3/4");
BENCHMARK(read_pi)->Name("from_chars (1+1/2)pi");
BENCHMARK(read_exponent)->Name("from_chars 2.5E-3");
BENCHMARK(read_whole)->Name("from_chars 12");

// ---- GLPK

// A row's or column's numbers count from 1.
void add_row(glp_prob* solver, const Problem& problem, std::size_t row) {
  std::vector<int> columns{0};
  std::vector<double> values{0};
  for (int column = 1; column <= problem.variables; ++column) {
    columns.push_back(column);
    values.push_back(problem.coefficients[row][static_cast<std::size_t>(column - 1)]);
  }
  const int number = glp_add_rows(solver, 1);
  glp_set_row_bnds(solver, number, GLP_UP, 0, problem.right[row]);
  glp_set_mat_row(solver, number, problem.variables, columns.data(), values.data());
}

// Row F has the objective with opposite sign.
void build_glpk(glp_prob* solver, const Problem& problem) {
  glp_set_obj_dir(solver, GLP_MIN);
  glp_add_cols(solver, problem.variables);
  for (int column = 1; column <= problem.variables; ++column) {
    glp_set_col_bnds(solver, column, GLP_LO, 0, 0);
    glp_set_obj_coef(solver, column, problem.objective[static_cast<std::size_t>(column - 1)]);
  }
  for (std::size_t row = 0; row < rows; ++row) add_row(solver, problem, row);
}

// The optimum; NAN where there is none.
double optimise_by_glpk(glp_prob* solver, const Problem& problem) {
  glp_erase_prob(solver);
  build_glpk(solver, problem);
  glp_smcp settings;
  glp_init_smcp(&settings);
  settings.msg_lev = GLP_MSG_OFF;
  const bool is_solved = glp_simplex(solver, &settings) == 0 && glp_get_status(solver) == GLP_OPT;
  return is_solved ? -glp_get_obj_val(solver) : NAN;
}

// They solve the same: what is faster and wrong is no peer.
bool is_our_optimum(double optimum, const Problem& problem) {
  static basSafeCtl model;
  const bool is_solved = build(model, problem) && optimise_at_once(model);
  const double ours = model.current.row_F().right();
  return is_solved && std::abs(optimum - ours) <= 1e-6 * std::abs(ours);
}

void optimise_glpk_problems(benchmark::State& state, int variables) {
  glp_term_out(GLP_OFF);
  glp_prob* solver = glp_create_prob();
  for (const Problem& problem : problems(variables))
    if (!is_our_optimum(optimise_by_glpk(solver, problem), problem)) state.SkipWithError("another optimum");
  std::size_t at = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(optimise_by_glpk(solver, problems(variables)[at]));
    at = (at + 1) % problem_count;
  }
  glp_delete_prob(solver);
}

BENCHMARK_CAPTURE(optimise_glpk_problems, ten, 10)->Name("GLPK 10x10");
BENCHMARK_CAPTURE(optimise_glpk_problems, twenty, 20)->Name("GLPK 10x30");

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
void optimise_bare(BareTableau<columns>& tableau) {
  for (;;) {
    int pivot_column = -1, pivot_row = 0;
    double smallest = -1e-10, quotient = INFINITY;
    for (int column = 0; column < columns; ++column)
      if (tableau[0][column] < smallest) smallest = tableau[0][column], pivot_column = column;
    if (pivot_column < 0) return;
    for (int row = 1; row <= rows; ++row)
      if (tableau[row][pivot_column] > 1e-8 && tableau[row][columns] / tableau[row][pivot_column] < quotient)
        quotient = tableau[row][columns] / tableau[row][pivot_column], pivot_row = row;
    if (pivot_row == 0) return;
    pivot_bare<columns>(tableau, pivot_row, pivot_column);
  }
}

template <int columns>
void optimise_bare_problems(benchmark::State& state) {
  BareTableau<columns> tableau;
  for (const Problem& problem : problems(columns - rows)) {
    build_bare<columns>(tableau, problem);
    optimise_bare<columns>(tableau);
    if (!is_our_optimum(tableau[0][columns], problem)) state.SkipWithError("another optimum");
  }
  std::size_t at = 0;
  for (auto _ : state) {
    build_bare<columns>(tableau, problems(columns - rows)[at]);
    optimise_bare<columns>(tableau);
    benchmark::DoNotOptimize(tableau);
    at = (at + 1) % problem_count;
  }
}

BENCHMARK(optimise_bare_problems<20>)->Name("bare doubles 10x10");
BENCHMARK(optimise_bare_problems<30>)->Name("bare doubles 10x30");

}  // namespace
}  // namespace tabulon
