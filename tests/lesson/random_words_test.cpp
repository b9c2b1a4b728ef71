// Random problems printed and read again. TABULON_ROUNDS=1000000 asks for a million of them.
#include <gtest/gtest.h>

#include "lesson/printer.h"
#include "lesson/reader.h"
#include "tests/lesson/random_problems.h"

namespace tabulon::lesson {
namespace {

TEST(RandomProblem, IsTheSameWhenItHasBeenPrintedAndRead) {
  RandomProblems random;
  const int rounds = rounds_asked(3000);
  for (int round = 1; round <= rounds; ++round) {
    const Problem problem = random.problem();
    const std::string words = print_problem(problem);
    const Reading reading = read_problem(words);
    ASSERT_TRUE(reading.problem) << words << spoken(reading.mistakes.front());
    ASSERT_TRUE(*reading.problem == problem) << "round " << round << "\n"
                                             << words << print_problem(*reading.problem);
  }
}

}  // namespace
}  // namespace tabulon::lesson
