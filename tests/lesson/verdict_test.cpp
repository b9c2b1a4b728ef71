#include "lesson/verdict.h"

#include <gtest/gtest.h>

#include "lesson/reader.h"

namespace tabulon::lesson {
namespace {

Problem problem_in(std::string_view words) {
  const Reading reading = read_problem(words);
  EXPECT_TRUE(reading.problem) << words;
  return reading.problem.value_or(Problem{});
}

std::string verdict_on(std::string_view words) {
  const Problem problem = problem_in(words);
  std::string text;
  for (const std::string& each : sentences_of(problem, judge(problem))) text += each + "\n";
  return text;
}

TEST(Verdict, TellsTheOptimumAndTheNumberOfSteps) {
  EXPECT_EQ(verdict_on("max F = 3x + 5y; x <= 4; 2y <= 12; 3x + 2y <= 18"),
            "De methode komt in 2 stappen bij het optimum: F = 36, met x = 2 en y = 6.\n");
  EXPECT_EQ(verdict_on("max F = 3x; x <= 4"),
            "De methode komt in 1 stap bij het optimum: F = 12, met x = 4.\n");
  EXPECT_EQ(verdict_on("max F = -x; x <= 4"), "Het eerste tableau is al optimaal: F = 0, met x = 0.\n");
}

TEST(Verdict, CountsAMinimumAndALooseNumberInTheTeachersTerms) {
  EXPECT_EQ(verdict_on("min K = 2x + 3y + 10; x + y >= 4; x <= 3; M = 1000"),
            "De methode komt in 2 stappen bij het optimum: K = 19, met x = 3 en y = 1.\n");
}

TEST(Verdict, ShowsThirdsAsTheControlDoes) {
  EXPECT_EQ(verdict_on("max 1/3x; 2x <= 1/3"),
            "De methode komt in 1 stap bij het optimum: F = 0.055556, met x = 0.166667.\n");
}

TEST(Verdict, NamesTheTieThatLeadsToAWrongCorner) {
  EXPECT_EQ(
      verdict_on("max 3x + 9y; x + 4y <= 8; x + 2y <= 4"),
      "Let op: de methode eindigt na 2 stappen bij F = 24, maar het maximum is 18, met x = 0 en y = 2.\n"
      "Aan het eind staat rechts in rij 2 een negatief getal: -4.\n"
      "Stap 1: rij 1 en rij 2 hebben hetzelfde quotiënt; daarna staat rechts in rij 2 een 0.\n"
      "Stap 2: in rij 2 staat rechts 0, met in kolom x 1 een positief getal (0.5). Die rij had de pivot-rij "
      "moeten zijn, maar een quotiënt 0 telt niet mee: haar rechterlid wordt -4.\n");
}

TEST(Verdict, NamesARightHandSideOfZeroThatIsThereFromTheBeginning) {
  EXPECT_EQ(verdict_on("max x; x - y <= 0; x <= 5; x + y <= 8"),
            "Let op: de methode eindigt na 1 stap bij F = 5, maar het maximum is 4, met x = 4 en y = 4.\n"
            "Aan het eind staat rechts in rij 1 een negatief getal: -5.\n"
            "Stap 1: in rij 1 staat rechts 0 van het begin af, met in kolom x 1 een positief getal (1). Die "
            "rij had "
            "de pivot-rij moeten zijn, maar een quotiënt 0 telt niet mee: haar rechterlid wordt -5.\n");
}

TEST(Verdict, NamesAZeroForWhichTheMethodSaysModelfout) {
  EXPECT_EQ(
      verdict_on("max x; x - y <= 0; y <= 5"),
      "Let op: de methode zegt na 0 stappen \"Modelfout!\", maar het maximum is 5, met x = 5 en y = 5.\n"
      "Aan het eind staat in rij 1 rechts 0, met in kolom x 1 een positief getal. Die rij had de pivot-rij "
      "moeten zijn, maar een quotiënt 0 telt niet mee.\n");
}

TEST(Verdict, TellsOfOtherOptima) {
  EXPECT_EQ(verdict_on("max x + y; x + y <= 4; x <= 3"),
            "De methode komt in 2 stappen bij het optimum: F = 4, met x = 3 en y = 1.\n"
            "Er zijn meer optimale oplossingen, bijvoorbeeld x = 0 en y = 4.\n");
}

TEST(Verdict, TellsThatThereIsNoEnd) {
  EXPECT_EQ(verdict_on("max 2x + y; x - y <= 10; 2x <= 40"),
            "F kan onbegrensd groot worden. De methode zegt na 2 stappen \"Modelfout!\".\n");
  EXPECT_EQ(verdict_on("min K = -x; y <= 4"),
            "K kan onbegrensd klein worden. De methode zegt na 0 stappen \"Modelfout!\".\n");
}

TEST(Verdict, NamesAZeroAlsoWhereItDoesNoHarm) {
  EXPECT_EQ(
      verdict_on("max 6x + 8y; -x + y <= 0"),
      "F kan onbegrensd groot worden. De methode zegt na 0 stappen \"Modelfout!\".\n"
      "Aan het eind staat in rij 1 rechts 0, met in kolom x 2 een positief getal. Die rij had de pivot-rij "
      "moeten zijn, maar een quotiënt 0 telt niet mee.\n");
}

TEST(Verdict, NamesEveryArtificialVariableThatStays) {
  EXPECT_EQ(verdict_on("min x; x = 2; x = 4; x = 6"),
            "Geen enkel punt voldoet aan alle beperkingen. De methode eindigt na 1 stap; daarin blijven de "
            "kunstmatige variabelen r 2 = 2 en r 3 = 4 in de basis.\n");
}

TEST(Verdict, TellsThatNothingFitsAllConstraints) {
  EXPECT_EQ(verdict_on("max x; x <= 4; x >= 6"),
            "Geen enkel punt voldoet aan alle beperkingen. De methode eindigt na 1 stap; daarin blijft de "
            "kunstmatige variabele q 1 = 2 in de basis.\n");
}

TEST(Verdict, FindsThatMIsTooSmallAndWhichWouldDo) {
  EXPECT_EQ(verdict_on("min K = 150x; x >= 2"),
            "Let op: de methode eindigt na 0 stappen bij K = 200, maar het minimum is 300, met x = 2.\n"
            "M = 100 is te klein; met M = 1000 komt de methode wel goed uit.\n");
}

// ---- The truth by itself

TEST(ExactSolver, DoesNotGoInCircles) {
  // Beale's example, on which the rule of the most negative number goes in circles.
  const Truth truth = solve_exactly(problem_in(
      "max 0.75a - 150b + 0.02c - 6d; 0.25a - 60b - 0.04c + 9d <= 0; 0.5a - 90b - 0.02c + 3d <= 0; c <= 1"));
  ASSERT_EQ(truth.outcome, Outcome::Optimal);
  EXPECT_EQ(truth.value, Rational(1, 20));
}

TEST(ExactSolver, IsExact) {
  const Truth truth = solve_exactly(problem_in("max 1/3x + 1/7y; x + 1/3y <= 1/11; 1/13x + y <= 1/17"));
  ASSERT_EQ(truth.outcome, Outcome::Optimal);
  // Where x + y/3 = 1/11 and x/13 + y = 1/17.
  EXPECT_EQ(truth.point[0] + truth.point[1] / Rational(3), Rational(1, 11));
  EXPECT_EQ(truth.point[0] / Rational(13) + truth.point[1], Rational(1, 17));
  EXPECT_EQ(truth.value, truth.point[0] / Rational(3) + truth.point[1] / Rational(7));
}

TEST(ExactSolver, GetsAlongWithConstraintsThatSayTheSame) {
  const Truth truth = solve_exactly(problem_in("max x + y; x + y = 4; 2x + 2y = 8; x - y = 0"));
  ASSERT_EQ(truth.outcome, Outcome::Optimal);
  EXPECT_EQ(truth.value, Rational(4));
  EXPECT_FALSE(truth.alternatives);
  EXPECT_EQ(solve_exactly(problem_in("max x + y; x + y = 4; 2x + 2y = 9")).outcome, Outcome::Infeasible);
}

TEST(ExactSolver, KnowsOneOptimumFromMany) {
  EXPECT_FALSE(solve_exactly(problem_in("max x + 2y; x + y <= 4; x + 3y <= 6")).alternatives);
  EXPECT_TRUE(solve_exactly(problem_in("max x + y; x + y <= 4; x + 3y <= 6")).alternatives);
  // A corner with more constraints than it needs is one optimum all the same.
  EXPECT_FALSE(solve_exactly(problem_in("max x; x <= 4; y <= 0; x + y <= 4; x - y <= 4")).alternatives);
  const Truth without_end = solve_exactly(problem_in("max x; x <= 4; x - y <= 4"));
  EXPECT_TRUE(without_end.alternatives);
}

}  // namespace
}  // namespace tabulon::lesson
