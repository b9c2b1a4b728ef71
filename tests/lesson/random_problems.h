// Random problems as teachers and testers could state them.
//
//   RandomProblems random;
//   Problem problem = random.problem();
#pragma once

#include <cstdlib>

#include "lesson/problem.h"
#include "tests/numbers/random_numbers.h"

namespace tabulon::lesson {

// How many rounds; TABULON_ROUNDS in the environment asks for more than every day's.
inline int rounds_asked(int everyday) {
  const char* given = std::getenv("TABULON_ROUNDS");
  return given != nullptr ? std::atoi(given) : numbers::rounds(everyday);
}

class RandomProblems {
 public:
  numbers::RandomNumbers& numbers() { return random_; }

  // Every shape, name and number that words can say.
  Problem problem();
  // As they stand in schoolbooks: few variables and rows, small whole numbers.
  Problem textbook_problem();

 private:
  struct Counts {
    int variables, less, greater, equal;
  };
  Counts any_counts();
  Rational any_number();
  ProblemRow row(RowKind kind, std::size_t variables);
  std::string name(int number);

  numbers::RandomNumbers random_;
};

}  // namespace tabulon::lesson
