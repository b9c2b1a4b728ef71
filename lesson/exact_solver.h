// The truth about a problem, in whole numbers of any size: independent of the method that the control
// teaches, and of rounding.
//
//   const Truth truth = solve_exactly(problem);
//   if (truth.outcome == Outcome::Optimal) truth.value;   // 36
//
// The simplex method in two phases with Bland's rule, which never goes in circles, on tableaus of whole
// numbers over one denominator (Edmonds' integer pivoting).
#pragma once

#include <cstdint>
#include <vector>

#include "lesson/problem.h"

namespace tabulon::lesson {

enum class Outcome : std::uint8_t { Optimal, Unbounded, Infeasible };

struct Truth {
  Outcome outcome = Outcome::Infeasible;
  Rational value = {};                 // of the objective, its constant included
  std::vector<Rational> point = {};    // of the variables; empty unless there is an optimum
  bool alternatives = false;           // there are other points with the same value
  std::vector<Rational> another = {};  // one of them; empty when none is a corner
};

Truth solve_exactly(const Problem& problem);

}  // namespace tabulon::lesson
