#include "lesson/steps.h"

#include <gtest/gtest.h>

#include "lesson/first_tableau.h"
#include "lesson/reader.h"
#include "lesson/twin.h"
#include "simplex/sweep.h"

namespace tabulon::lesson {
namespace {

constexpr std::string_view furniture = "max 3x + 5y; x <= 4; 2y <= 12; 3x + 2y <= 18";

basSafeCtl stated(std::string_view words) {
  const Reading reading = read_problem(words);
  EXPECT_TRUE(reading.problem) << words;
  return first_tableau(reading.problem.value_or(Problem{}));
}

basSafeCtl swept_with(const basSafeCtl& before, int row, int column) {
  basSafeCtl after = twin_of(before);
  after.PivotRij = static_cast<std::int16_t>(row);
  after.PivotKolom = static_cast<std::int16_t>(column);
  EXPECT_TRUE(sweep_column(after).has_value());
  return after;
}

std::string in_lines(const std::vector<std::string>& sentences) {
  std::string text;
  for (const std::string& each : sentences) text += each + "\n";
  return text;
}

std::string told_of(const basSafeCtl& before, const basSafeCtl& after, TableauChange change) {
  return in_lines(sentences_of_change(before, after, change));
}

TEST(AChangeInSentences, OfACellNamesItsPlaceAndBothTexts) {
  const basSafeCtl before = stated(furniture);
  basSafeCtl after = twin_of(before);
  after.current.row(2).write(CellRow::right_hand_side, 2.5, " 5/2");
  after.current.row_F().write(1, -4, "-4");
  EXPECT_EQ(told_of(before, after, {ChangeCause::Cell, 0, 2}),
            "Rechts in rij 2 is 5/2 ingevuld; er stond 12.\n");
  EXPECT_EQ(told_of(before, after, {ChangeCause::Cell, 1, 0}),
            "In rij F, kolom x 1, is -4 ingevuld; er stond -3.\n");
}

TEST(AChangeInSentences, ByTheControlItselfReadsAsAPupilsSweep) {
  const basSafeCtl before = stated(furniture);
  const basSafeCtl after = swept_with(before, 2, 2);
  EXPECT_EQ(told_of(before, after, {ChangeCause::AutomaticSweep, 2, 2}),
            told_of(before, after, {ChangeCause::Sweep, 2, 2}));
}

TEST(AChangeInSentences, OfTheBasicSolutionNamesItsValuesAndWhatWasPutInOrder) {
  const basSafeCtl before = stated("max x; x = 2");
  basSafeCtl after = twin_of(before);
  ASSERT_TRUE(canonicalise(after).has_value());
  EXPECT_EQ(told_of(before, after, {ChangeCause::BasicSolution}),
            "De basis is in orde gebracht: elke basiskolom is met haar eigen rij geveegd.\n"
            "De basisoplossing: r 1 = 2; F = -200.\n");
  EXPECT_EQ(told_of(after, after, {ChangeCause::BasicSolution}), "De basisoplossing: r 1 = 2; F = -200.\n");
}

TEST(AChangeInSentences, OfOptimisingCountsTheStepsAndSaysHowItEnds) {
  const basSafeCtl before = stated(furniture);
  basSafeCtl after = twin_of(before);
  ASSERT_TRUE(optimise(after, 9).has_value());
  EXPECT_EQ(told_of(before, after, {ChangeCause::Optimise}),
            "Het control heeft zelf 2 stappen gedaan.\nIn rij F staat geen negatief getal meer: F = 36.\n");
  const basSafeCtl unbounded = stated("max x; -x <= 2");
  EXPECT_EQ(
      told_of(unbounded, unbounded, {ChangeCause::Optimise}),
      "Het control heeft zelf 0 stappen gedaan.\n"
      "Er is nog een kolom met een negatief getal in rij F, maar geen rij met een positief quotiënt.\n");
  EXPECT_EQ(told_of(before, before, {ChangeCause::Optimise}),
            "Het control heeft zelf 0 stappen gedaan.\nEr staat nog een negatief getal in rij F.\n");
}

TEST(AChangeInSentences, OfWhatIsNoArithmeticSaysWhatItWas) {
  basSafeCtl model = stated(furniture);
  EXPECT_EQ(told_of(model, model, {ChangeCause::Reset}), "Het eerste tableau is teruggezet.\n");
  EXPECT_EQ(told_of(model, model, {ChangeCause::Restore}), "Een bewaard tableau is teruggezet.\n");
  EXPECT_EQ(told_of(model, model, {ChangeCause::Fractions}),
            "De getallen staan er nu als decimale getallen.\n");
  EXPECT_EQ(told_of(model, model, {ChangeCause::Problem}),
            "Er staat een nieuwe opgave, met 2 variabelen en 3 rijen.\n");
  EXPECT_EQ(told_of(model, model, {ChangeCause::Parameters}), told_of(model, model, {ChangeCause::Problem}));
  model.Breuken = true;
  EXPECT_EQ(told_of(model, model, {ChangeCause::Fractions}), "De getallen staan er nu als breuken.\n");
}

TEST(AJudgedChange, IsRightOrWrongWhereItIsASweep) {
  const basSafeCtl before = stated(furniture);
  EXPECT_EQ(judge_change(before, swept_with(before, 2, 2), {ChangeCause::Sweep, 2, 2}).right, true);
  const StepJudgement wrong = judge_change(before, swept_with(before, 3, 2), {ChangeCause::Sweep, 2, 3});
  EXPECT_EQ(wrong.right, false);
  EXPECT_EQ(wrong.sentences.front(), "Het quotiënt van rij 2 was kleiner (6) dan dat van rij 3 (9).");
}

TEST(AJudgedChange, IsNeitherWhereItIsNoStep) {
  const basSafeCtl model = stated(furniture);
  for (const ChangeCause cause :
       {ChangeCause::Cell, ChangeCause::BasicSolution, ChangeCause::Optimise, ChangeCause::Reset,
        ChangeCause::Fractions, ChangeCause::Problem, ChangeCause::Restore}) {
    const StepJudgement judgement = judge_change(model, model, {cause});
    EXPECT_FALSE(judgement.right.has_value()) << words_of(cause);
    EXPECT_EQ(judgement.sentences.size(), 1U) << words_of(cause);
  }
}

TEST(AJudgedChange, OfNormalisingNamesTheBasicColumnThatWentOutOfOrder) {
  const basSafeCtl before = stated(furniture);
  basSafeCtl after = twin_of(before);
  after.NormeerKolom = 2;
  ASSERT_TRUE(normalise_column(after).has_value());
  EXPECT_EQ(in_lines(judge_change(before, after, {ChangeCause::Normalise, 2}).sentences),
            "Een rij door een getal delen mag altijd: de oplossing blijft dezelfde.\n"
            "Maar de basis is nu niet meer in orde: in de kolommen van x 4 en x 5 staat geen 1 meer in de "
            "eigen rij.\n");
  EXPECT_EQ(judge_change(before, before, {ChangeCause::Normalise, 1}).sentences.size(), 1U);
}

}  // namespace
}  // namespace tabulon::lesson
