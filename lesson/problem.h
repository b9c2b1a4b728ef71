// A linear problem as a teacher states it, in the order of the control: first the "<=" rows, then ">=", then
// "=", no right-hand side below 0.
//
//   Problem problem;
//   problem.variables = {"x", "y"};
//   problem.objective = {Rational(3), Rational(5)};
//   problem.rows.push_back({.kind = RowKind::LessEqual, .coefficients = {Rational(1), Rational(2)}, ...});
#pragma once

#include <string>
#include <vector>

#include "control/basSafeCtl.h"
#include "lesson/rational.h"

namespace tabulon::lesson {

// Where something stands in a text: lines and characters count from 1.
struct Place {
  int line = 0;
  int column = 0;
};

struct ProblemRow {
  RowKind kind = RowKind::LessEqual;
  std::vector<Rational> coefficients;  // one for each variable
  Rational right;                      // >= 0
  std::string label;                   // what the teacher calls it; may be empty
  bool turned = false;                 // both sides have been multiplied by -1
  Place from;                          // where the teacher wrote it

  // Where it came from does not make it another row.
  friend bool operator==(const ProblemRow& one, const ProblemRow& other) {
    return one.kind == other.kind && one.coefficients == other.coefficients && one.right == other.right &&
           one.label == other.label;
  }
};

struct Problem {
  bool minimise = false;
  std::string goal = "F";              // what is made as large or small as possible
  std::vector<std::string> variables;  // at least one
  std::vector<Rational> objective;     // one for each variable, as it was written: not negated for a minimum
  Rational constant;                   // what the objective adds; no tableau holds it
  std::vector<ProblemRow> rows;
  int big_m = 100;  // 1..32767

  int rows_of(RowKind kind) const;
  // Of the tableau: variables, slack, surplus and artificial ones.
  int columns() const;

  friend bool operator==(const Problem&, const Problem&) = default;
};

}  // namespace tabulon::lesson
