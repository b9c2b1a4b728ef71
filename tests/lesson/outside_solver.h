// A linear-programming solver that is not ours (GLPK), to hold ours against.
//
//   OutsideSolver solver(problem);
//   solver.solve().value;
#pragma once

#include <glpk.h>

#include <stdexcept>

#include "lesson/exact_solver.h"
#include "lesson/problem.h"

namespace tabulon::lesson {

class OutsideSolver {
 public:
  struct Answer {
    Outcome outcome;
    double value = 0;
  };

  explicit OutsideSolver(const Problem& problem) : minimise_(problem.minimise) {
    glp_term_out(GLP_OFF);
    const int columns = static_cast<int>(problem.variables.size());
    glp_add_cols(solver_, columns);
    for (int column = 1; column <= columns; ++column) glp_set_col_bnds(solver_, column, GLP_LO, 0, 0);
    set_objective(problem.objective);
    for (const ProblemRow& row : problem.rows) add_row(row);
  }
  OutsideSolver(const OutsideSolver&) = delete;
  OutsideSolver& operator=(const OutsideSolver&) = delete;
  ~OutsideSolver() { glp_delete_prob(solver_); }

  Answer solve() { return solve(minimise_ ? GLP_MIN : GLP_MAX); }

  // Among the optima, given their value: how far apart the values of a variable lie.
  double spread_at(const std::vector<Rational>& objective, double value, int variable) {
    ProblemRow optimal{.kind = RowKind::Equal,
                       .coefficients = objective,
                       .right = rational_near(value),
                       .label = {},
                       .turned = false,
                       .from = {}};
    if (!fixed_) add_row(optimal);
    fixed_ = true;
    std::vector<Rational> one(objective.size());
    one[static_cast<std::size_t>(variable)] = Rational(1);
    set_objective(one);
    const Answer least = solve(GLP_MIN), most = solve(GLP_MAX);
    if (least.outcome != Outcome::Optimal) throw std::runtime_error("the optimum is not there");
    return most.outcome == Outcome::Optimal ? most.value - least.value : 1e30;
  }

 private:
  void set_objective(const std::vector<Rational>& coefficients) {
    for (std::size_t i = 0; i < coefficients.size(); ++i)
      glp_set_obj_coef(solver_, static_cast<int>(i) + 1, to_double(coefficients[i]));
  }

  void add_row(const ProblemRow& row) {
    const int number = glp_add_rows(solver_, 1);
    std::vector<int> columns{0};
    std::vector<double> values{0};
    for (std::size_t i = 0; i < row.coefficients.size(); ++i) {
      columns.push_back(static_cast<int>(i) + 1);
      values.push_back(to_double(row.coefficients[i]));
    }
    glp_set_mat_row(solver_, number, static_cast<int>(row.coefficients.size()), columns.data(),
                    values.data());
    const int bounds = row.kind == RowKind::LessEqual ? GLP_UP : row.kind == RowKind::Equal ? GLP_FX : GLP_LO;
    glp_set_row_bnds(solver_, number, bounds, to_double(row.right), to_double(row.right));
  }

  Answer solve(int direction) {
    glp_set_obj_dir(solver_, direction);
    glp_smcp settings;
    glp_init_smcp(&settings);
    settings.msg_lev = GLP_MSG_OFF;
    glp_std_basis(solver_);
    if (glp_simplex(solver_, &settings) != 0) throw std::runtime_error("the outside solver has given up");
    switch (glp_get_status(solver_)) {
      case GLP_OPT:
        return {Outcome::Optimal, glp_get_obj_val(solver_)};
      case GLP_UNBND:
        return {Outcome::Unbounded};
      case GLP_NOFEAS:
        return {Outcome::Infeasible};
      default:
        throw std::runtime_error("the outside solver does not know");
    }
  }

  glp_prob* solver_ = glp_create_prob();
  bool minimise_;
  bool fixed_ = false;
};

}  // namespace tabulon::lesson
