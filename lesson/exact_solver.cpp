#include "lesson/exact_solver.h"

#include <algorithm>
#include <span>
#include <utility>

namespace tabulon::lesson {

namespace {

using Numbers = std::vector<Whole>;

// The least number that makes whole numbers of all.
Whole common_denominator(std::span<const Rational> numbers) {
  Whole common(1);
  for (const Rational& each : numbers)
    common = common * (each.denominator() / greatest_common_divisor(common, each.denominator()));
  return common;
}

Whole times(const Rational& number, const Whole& multiple) {
  return number.numerator() * (multiple / number.denominator());
}

// Rows of cells over one positive denominator, the right-hand side last. The rows behind those of the problem
// are objectives: the same operations, but never a pivot row. Artificial variables have no column; they only
// leave.
class IntegerTableau {
 public:
  IntegerTableau(std::size_t columns, std::size_t rows) : columns_(columns), basis_(rows, artificial) {}

  static constexpr std::size_t artificial = static_cast<std::size_t>(-1);

  void add_row(Numbers cells) { cells_.push_back(std::move(cells)); }
  void set_basis(std::size_t row, std::size_t column) { basis_[row] = column; }

  std::size_t rows() const { return basis_.size(); }
  std::size_t columns() const { return columns_; }
  std::size_t basis(std::size_t row) const { return basis_[row]; }
  const Whole& cell(std::size_t row, std::size_t column) const { return cells_[row][column]; }
  const Whole& right(std::size_t row) const { return cells_[row][columns_]; }
  Rational value(std::size_t row) const { return {right(row), denominator_}; }
  const Whole& denominator() const { return denominator_; }
  bool is_basic(std::size_t column) const { return std::ranges::find(basis_, column) != basis_.end(); }

  void pivot(std::size_t row, std::size_t column) {
    if (cell(row, column).is_negative())
      for (Whole& each : cells_[row]) each = -each;
    const Whole entry = cell(row, column);
    for (std::size_t i = 0; i < cells_.size(); ++i) {
      if (i == row) continue;
      const Whole factor = cells_[i][column];
      for (std::size_t j = 0; j <= columns_; ++j)
        cells_[i][j] = (cells_[i][j] * entry - factor * cells_[row][j]) / denominator_;
    }
    denominator_ = entry;
    basis_[row] = column;
  }

 private:
  std::size_t columns_;
  std::vector<Numbers> cells_;
  std::vector<std::size_t> basis_;
  Whole denominator_{1};
};

// Raises an objective as far as it goes, entering allowed columns alone.
class Ascent {
 public:
  Ascent(IntegerTableau& tableau, std::size_t objective) : tableau_(tableau), objective_(objective) {}

  void forbid(std::size_t column) { forbidden_.push_back(column); }

  // False: there is no end to it.
  bool run() {
    for (;;) {
      const std::size_t column = entering();
      if (column == tableau_.columns()) return true;
      const std::size_t row = leaving(column);
      if (row == tableau_.rows()) return false;
      tableau_.pivot(row, column);
    }
  }

 private:
  // Bland: always the first column, and among equal quotients the variable that comes first.
  std::size_t entering() const {
    std::size_t column = 0;
    while (column < tableau_.columns() &&
           (!tableau_.cell(objective_, column).is_negative() || is_forbidden(column)))
      ++column;
    return column;
  }

  bool is_forbidden(std::size_t column) const {
    return std::ranges::find(forbidden_, column) != forbidden_.end();
  }

  std::size_t leaving(std::size_t column) const {
    std::size_t chosen = tableau_.rows();
    for (std::size_t row = 0; row < tableau_.rows(); ++row)
      if (tableau_.cell(row, column).sign() > 0 && (chosen == tableau_.rows() || better(row, chosen, column)))
        chosen = row;
    return chosen;
  }

  bool better(std::size_t row, std::size_t than, std::size_t column) const {
    const auto order = tableau_.right(row) * tableau_.cell(than, column) <=>
                       tableau_.right(than) * tableau_.cell(row, column);
    return order < 0 || (order == 0 && tableau_.basis(row) < tableau_.basis(than));
  }

  IntegerTableau& tableau_;
  std::size_t objective_;
  std::vector<std::size_t> forbidden_;
};

class ExactSolver {
 public:
  explicit ExactSolver(const Problem& problem)
      : problem_(problem),
        variables_(problem.variables.size()),
        scale_(common_denominator(problem.objective)),
        tableau_(columns_of(problem), problem.rows.size()) {
    for (const ProblemRow& row : problem_.rows) add_row(row);
    add_objective();
    add_feasibility();
  }

  Truth solve() {
    Ascent(tableau_, feasibility()).run();
    if (!tableau_.right(feasibility()).is_zero()) return {.outcome = Outcome::Infeasible};
    drive_out_artificials();
    if (!Ascent(tableau_, objective()).run()) return {.outcome = Outcome::Unbounded};
    const Rational largest = tableau_.value(objective()) / Rational(scale_, Whole(1));
    Truth truth{.outcome = Outcome::Optimal,
                .value = (problem_.minimise ? -largest : largest) + problem_.constant,
                .point = point()};
    look_for_another(truth);
    return truth;
  }

 private:
  static std::size_t columns_of(const Problem& problem) {
    return problem.variables.size() + problem.rows.size() -
           static_cast<std::size_t>(problem.rows_of(RowKind::Equal));
  }
  std::size_t objective() const { return tableau_.rows(); }
  std::size_t feasibility() const { return tableau_.rows() + 1; }

  void add_row(const ProblemRow& row) {
    std::vector<Rational> all = row.coefficients;
    all.push_back(row.right);
    const Whole multiple = common_denominator(all);
    Numbers cells(tableau_.columns() + 1);
    for (std::size_t i = 0; i < variables_; ++i) cells[i] = times(row.coefficients[i], multiple);
    cells.back() = times(row.right, multiple);
    if (row.kind != RowKind::Equal) cells[next_slack_] = Whole(row.kind == RowKind::LessEqual ? 1 : -1);
    if (row.kind == RowKind::LessEqual) tableau_.set_basis(next_row_, next_slack_);
    if (row.kind != RowKind::Equal) ++next_slack_;
    ++next_row_;
    tableau_.add_row(std::move(cells));
  }

  void add_objective() {
    Numbers cells(tableau_.columns() + 1);
    for (std::size_t i = 0; i < variables_; ++i) {
      const Whole coefficient = times(problem_.objective[i], scale_);
      cells[i] = problem_.minimise ? coefficient : -coefficient;
    }
    tableau_.add_row(std::move(cells));
  }

  // The opposite of the sum of the artificial variables, which is 0 at most.
  void add_feasibility() {
    Numbers cells(tableau_.columns() + 1);
    for (std::size_t row = 0; row < tableau_.rows(); ++row)
      for (std::size_t j = 0; j < cells.size(); ++j)
        if (tableau_.basis(row) == IntegerTableau::artificial) cells[j] = cells[j] - tableau_.cell(row, j);
    tableau_.add_row(std::move(cells));
  }

  // What remains of them is 0. A row in which nothing else stands says nothing, and stays.
  void drive_out_artificials() {
    for (std::size_t row = 0; row < tableau_.rows(); ++row) {
      if (tableau_.basis(row) != IntegerTableau::artificial) continue;
      for (std::size_t column = 0; column < tableau_.columns(); ++column) {
        if (tableau_.cell(row, column).is_zero()) continue;
        tableau_.pivot(row, column);
        break;
      }
    }
  }

  std::vector<Rational> point() const {
    std::vector<Rational> values(variables_);
    for (std::size_t row = 0; row < tableau_.rows(); ++row)
      if (tableau_.basis(row) < variables_) values[tableau_.basis(row)] = tableau_.value(row);
    return values;
  }

  // Another optimum has a variable above 0 that is not basic here and costs nothing: as much of those as
  // there can be.
  void look_for_another(Truth& truth) {
    Numbers sum(tableau_.columns() + 1);
    const std::size_t row = tableau_.rows() + 2;
    Ascent ascent(tableau_, row);
    for (std::size_t column = 0; column < tableau_.columns(); ++column) {
      if (!tableau_.cell(objective(), column).is_zero())
        ascent.forbid(column);
      else if (!tableau_.is_basic(column))
        sum[column] = -tableau_.denominator();
    }
    tableau_.add_row(std::move(sum));
    const bool ended = ascent.run();
    truth.alternatives = !ended || tableau_.right(row).sign() > 0;
    if (truth.alternatives && point() != truth.point) truth.another = point();
  }

  const Problem& problem_;
  std::size_t variables_;
  Whole scale_;
  IntegerTableau tableau_;
  std::size_t next_row_ = 0;
  std::size_t next_slack_ = problem_.variables.size();
};

}  // namespace

Truth solve_exactly(const Problem& problem) {
  return ExactSolver(problem).solve();
}

}  // namespace tabulon::lesson
