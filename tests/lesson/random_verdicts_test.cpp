// Random problems of schoolbooks: the exact solver and the verdict held against a solver that is not ours.
// TABULON_ROUNDS=100000 asks for a hundred thousand of them.
#include <gtest/gtest.h>

#include <cmath>
#include <map>

#include "lesson/printer.h"
#include "lesson/verdict.h"
#include "tests/lesson/outside_solver.h"
#include "tests/lesson/random_problems.h"

namespace tabulon::lesson {
namespace {

bool is_near(double one, double other) {
  return std::fabs(one - other) <= 1e-6 * std::max(1.0, std::fabs(other));
}

Rational value_at(const Problem& problem, const std::vector<Rational>& point) {
  Rational value;
  for (std::size_t i = 0; i < point.size(); ++i) value = value + problem.objective[i] * point[i];
  return value;
}

bool fits(const ProblemRow& row, const std::vector<Rational>& point) {
  Rational left;
  for (std::size_t i = 0; i < point.size(); ++i) left = left + row.coefficients[i] * point[i];
  return row.kind == RowKind::LessEqual ? left <= row.right
         : row.kind == RowKind::Equal   ? left == row.right
                                        : left >= row.right;
}

void expect_optimum_at(const Problem& problem, const Truth& truth, const std::vector<Rational>& point) {
  EXPECT_EQ(value_at(problem, point), truth.value);
  for (const Rational& each : point) EXPECT_GE(each, Rational());
  for (const ProblemRow& row : problem.rows) EXPECT_TRUE(fits(row, point));
}

// Whether any variable has more than one value among the optima, by the other solver.
bool has_alternatives(const Problem& problem, const Truth& truth) {
  OutsideSolver solver(problem);
  for (std::size_t i = 0; i < problem.variables.size(); ++i)
    if (solver.spread_at(problem.objective, to_double(truth.value), static_cast<int>(i)) > 1e-5) return true;
  return false;
}

// The end of the method as the verdict tells it, held against the outside value.
void expect_right_end(const Verdict& verdict, const OutsideSolver::Answer& answer) {
  if (!verdict.ends_right || answer.outcome != Outcome::Optimal) return;
  EXPECT_EQ(verdict.course.end, CourseEnd::Optimal);
  EXPECT_TRUE(is_near(verdict.value, answer.value)) << verdict.value << " is not " << answer.value;
}

TEST(RandomTextbookProblem, HasTheOutcomeThatAnotherSolverFinds) {
  RandomProblems random;
  std::map<Outcome, int> outcomes;
  int wrong_ends = 0;
  const int rounds = rounds_asked(3000);
  for (int round = 1; round <= rounds && !HasFailure(); ++round) {
    const Problem problem = random.textbook_problem();
    SCOPED_TRACE(print_problem(problem));
    const Verdict verdict = judge(problem);
    const auto answer = OutsideSolver(problem).solve();
    ASSERT_EQ(verdict.truth.outcome, answer.outcome);
    ++outcomes[answer.outcome];
    wrong_ends += verdict.ends_right ? 0 : 1;
    EXPECT_FALSE(sentences_of(problem, verdict).empty());
    expect_right_end(verdict, answer);
    if (answer.outcome != Outcome::Optimal) continue;
    EXPECT_TRUE(is_near(to_double(verdict.truth.value), answer.value));
    expect_optimum_at(problem, verdict.truth, verdict.truth.point);
    if (!verdict.truth.another.empty()) expect_optimum_at(problem, verdict.truth, verdict.truth.another);
    if (round % 4 == 0) EXPECT_EQ(verdict.truth.alternatives, has_alternatives(problem, verdict.truth));
  }
  std::printf("%d optimal, %d unbounded, %d infeasible; the method ends wrongly on %d\n",
              outcomes[Outcome::Optimal], outcomes[Outcome::Unbounded], outcomes[Outcome::Infeasible],
              wrong_ends);
  EXPECT_GT(outcomes[Outcome::Optimal], rounds / 4);
  EXPECT_GT(outcomes[Outcome::Unbounded], rounds / 50);
  EXPECT_GT(outcomes[Outcome::Infeasible], rounds / 50);
  EXPECT_GT(wrong_ends, 0);
}

}  // namespace
}  // namespace tabulon::lesson
