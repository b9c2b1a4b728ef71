// What will happen in class: how the method as the control has it works out for a problem, held against the
// truth.
//
//   const Verdict verdict = judge(problem);
//   if (!verdict.ends_right) warn();
//   for (const std::string& each : sentences_of(problem, verdict)) tell(each);
//   // "De methode eindigt na 2 stappen bij F = 24, maar het maximum is 18."
#pragma once

#include <string>
#include <vector>

#include "lesson/course.h"
#include "lesson/exact_solver.h"
#include "lesson/problem.h"

namespace tabulon::lesson {

struct Verdict {
  Truth truth;
  Course course;
  double value = 0;             // of the objective where the method ends, its constant included
  std::vector<double> point;    // of the variables there
  std::vector<int> artificial;  // the rows whose artificial variable stays, above 0
  std::vector<int> negative;    // the rows that end with a negative right-hand side
  bool ends_right = false;      // where the truth is
  int better_m = 0;             // with which it would; 0 where M is not to blame
};

Verdict judge(const Problem& problem);

// Dutch, for the teacher. The first says how it ends.
std::vector<std::string> sentences_of(const Problem& problem, const Verdict& verdict);

}  // namespace tabulon::lesson
