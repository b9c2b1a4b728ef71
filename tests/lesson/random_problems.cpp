#include "tests/lesson/random_problems.h"

#include <algorithm>
#include <array>

namespace tabulon::lesson {

namespace {

constexpr std::array names = {"x", "E",  "D",   "e",     "brood", "één", "x_1",
                              "α", "x₁", "Pi2", "sqrtx", "M2",    "_",   "mina"};
constexpr std::array labels = {"", "", "", "hout", "uren per dag", "max 3", "é"};

}  // namespace

RandomProblems::Counts RandomProblems::any_counts() {
  const int rows = random_.between(0, most_rows);
  const int greater = random_.between(0, rows), equal = random_.between(0, rows - greater);
  return {random_.between(1, most_columns - rows - greater), rows - greater - equal, greater, equal};
}

Rational RandomProblems::any_number() {
  switch (random_.between(0, 7)) {
    case 0:
      return {};
    case 1:
      return {random_.between(-300, 300), random_.between(1, 60)};
    case 2:
      return rational_near(random_.tableau_number() * 1e-3);
    case 3:
      return Rational(static_cast<std::int64_t>(random_.bits()) >> random_.between(1, 60));
    case 4:
      return {random_.between(-99999, 99999), 1000};
    default:
      return Rational(random_.between(-20, 20));
  }
}

// One that words can say: a row that only says x >= 0 is none.
ProblemRow RandomProblems::row(RowKind kind, std::size_t variables) {
  ProblemRow row{.kind = kind, .coefficients = {}, .right = {}, .label = {}, .turned = false, .from = {}};
  for (std::size_t i = 0; i < variables; ++i) row.coefficients.push_back(any_number());
  const Rational right = any_number();
  row.right = right.sign() < 0 ? -right : right;
  if (kind == RowKind::GreaterEqual && row.right.is_zero()) row.coefficients.front() = Rational(7);
  row.label = labels[random_.bits() % labels.size()];
  return row;
}

std::string RandomProblems::name(int number) {
  const std::string chosen = names[random_.bits() % names.size()];
  return chosen + "a" + std::to_string(number);
}

Problem RandomProblems::problem() {
  const Counts counts = any_counts();
  Problem problem;
  problem.minimise = random_.between(0, 1) == 1;
  problem.goal = random_.between(0, 1) == 0 ? "F" : "winst";
  problem.constant = random_.between(0, 3) == 0 ? any_number() : Rational();
  problem.big_m = random_.between(0, 2) == 0 ? random_.between(1, 32767) : 100;
  for (int i = 1; i <= counts.variables; ++i) {
    problem.variables.push_back(name(i));
    problem.objective.push_back(any_number());
  }
  const auto add = [&](RowKind kind, int count) {
    for (; count > 0; --count) problem.rows.push_back(row(kind, problem.variables.size()));
  };
  add(RowKind::LessEqual, counts.less);
  add(RowKind::GreaterEqual, counts.greater);
  add(RowKind::Equal, counts.equal);
  return problem;
}

Problem RandomProblems::textbook_problem() {
  Problem problem;
  problem.minimise = random_.between(0, 3) == 0;
  problem.big_m = 10000;
  const int variables = random_.between(1, 4), rows = random_.between(1, 5);
  const int others = random_.between(0, 1) == 0 ? 0 : random_.between(0, rows);
  for (int i = 1; i <= variables; ++i) {
    problem.variables.push_back("x" + std::to_string(i));
    problem.objective.emplace_back(random_.between(-2, 9));
  }
  for (int i = 1; i <= rows; ++i) {
    ProblemRow row{.kind = i <= rows - others      ? RowKind::LessEqual
                           : random_.between(0, 2) ? RowKind::GreaterEqual
                                                   : RowKind::Equal,
                   .coefficients = {},
                   .right = Rational(random_.between(0, 4) == 0 ? 0 : random_.between(1, 24)),
                   .label = {},
                   .turned = false,
                   .from = {}};
    for (int j = 0; j < variables; ++j) row.coefficients.emplace_back(random_.between(-1, 6));
    problem.rows.push_back(std::move(row));
  }
  std::ranges::sort(problem.rows, {}, &ProblemRow::kind);
  return problem;
}

}  // namespace tabulon::lesson
