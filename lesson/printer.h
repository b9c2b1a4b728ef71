// A problem as words that read back as the same problem.
//
//   print_problem(problem);
//   // max F = 3x + 5y
//   // x <= 4
//   // 2y <= 12
//   // 3x + 2y <= 18
//   // x, y >= 0
#pragma once

#include <string>

#include "lesson/problem.h"

namespace tabulon::lesson {

std::string print_problem(const Problem& problem);

// "3x + 5y", "-x + 0.5 brood", "0x" when there is nothing else.
std::string print_sum(const std::vector<std::string>& variables, const std::vector<Rational>& coefficients);

}  // namespace tabulon::lesson
