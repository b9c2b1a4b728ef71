#include "lesson/changes.h"

#include <gtest/gtest.h>

#include "lesson/first_tableau.h"
#include "lesson/judgement.h"
#include "lesson/reader.h"
#include "lesson/reasons.h"
#include "lesson/twin.h"
#include "simplex/sweep.h"

namespace tabulon::lesson {
namespace {

basSafeCtl tableau_of(std::string_view words) {
  const Reading reading = read_problem(words);
  EXPECT_TRUE(reading.problem) << words;
  return first_tableau(reading.problem.value_or(Problem{}));
}

// The optimum of this one is F = 36, at x = 2 and y = 6, in two steps.
basSafeCtl well_known() {
  return tableau_of("max 3x + 5y; x <= 4; 2y <= 12; 3x + 2y <= 18");
}

void sweep(basSafeCtl& model, Pivot pivot) {
  model.PivotRij = static_cast<std::int16_t>(pivot.row);
  model.PivotKolom = static_cast<std::int16_t>(pivot.column);
  EXPECT_TRUE(sweep_column(model).has_value());
}

std::string lines(const std::vector<std::string>& sentences) {
  std::string text;
  for (const std::string& each : sentences) text += each + "\n";
  return text;
}

// ---- What was done

TEST(SweepInSentences, NamesTheVariablesAndWhatEachRowBecomes) {
  EXPECT_EQ(lines(sentences_of_sweep(well_known(), {.row = 2, .column = 2})),
            "x 2 komt in de basis, x 4 gaat eruit.\n"
            "rij F := rij F + 2.5 × rij 2\n"
            "rij 3 := rij 3 − 1 × rij 2\n"
            "rij 2 := rij 2 : 2\n");
}

TEST(SweepInSentences, ShowsNumbersInTheModeOfTheControl) {
  basSafeCtl model = well_known();
  model.Breuken = true;
  EXPECT_EQ(lines(sentences_of_sweep(model, {.row = 3, .column = 1})),
            "x 1 komt in de basis, x 5 gaat eruit.\n"
            "rij F := rij F + 1 × rij 3\n"
            "rij 1 := rij 1 − (1/3) × rij 3\n"
            "rij 3 := rij 3 : 3\n");
}

TEST(SweepInSentences, SaysThatAPivotOfZeroChangesNothing) {
  EXPECT_EQ(lines(sentences_of_sweep(well_known(), {.row = 1, .column = 2})),
            "Het pivot-element is 0: er is niets veranderd.\n");
  EXPECT_EQ(lines(sentences_of_sweep(well_known(), {.row = 7, .column = 2})),
            "Het pivot-element is 0: er is niets veranderd.\n");
}

TEST(SweepInSentences, TellsOfAVariableThatWasBasicAlready) {
  EXPECT_EQ(lines(sentences_of_sweep(tableau_of("max x; x = 2"), {.row = 1, .column = 2})),
            "r 1 was al de basisvariabele van rij 1.\n"
            "rij F := rij F − 100 × rij 1\n");
}

TEST(NormalisingInSentences, NamesTheRowsThatAreDivided) {
  EXPECT_EQ(lines(sentences_of_normalising(well_known(), 2)),
            "Kolom x 2 is genormeerd.\n"
            "rij 2 := rij 2 : 2\n"
            "rij 3 := rij 3 : 2\n");
  EXPECT_EQ(lines(sentences_of_normalising(well_known(), 3)),
            "Kolom x 3 is genormeerd. Er was niets te delen.\n");
  EXPECT_EQ(lines(sentences_of_normalising(tableau_of("max x; -0.5x <= 2"), 1)),
            "Kolom x 1 is genormeerd.\n"
            "rij 1 := rij 1 : (-0.5)\n");
}

TEST(CellInSentences, TellsWhereItStandsAndWhatStoodThere) {
  const basSafeCtl before = well_known();
  basSafeCtl after = twin_of(before);
  after.current.row(2).write(1, 0.75, "3/4");
  after.current.row_F().write(1, -4.0);
  after.current.row(1).write(CellRow::right_hand_side, 6.0);
  EXPECT_EQ(sentence_of_cell(before, after, 2, 1), "In rij 2, kolom x 1, is 3/4 ingevuld; er stond 0.");
  EXPECT_EQ(sentence_of_cell(before, after, 0, 1), "In rij F, kolom x 1, is -4 ingevuld; er stond -3.");
  EXPECT_EQ(sentence_of_cell(before, after, 1, CellRow::right_hand_side),
            "Rechts in rij 1 is 6 ingevuld; er stond 4.");
}

// ---- Why

std::string reasons_in(const basSafeCtl& model) {
  const auto reasons = reasons_for(model);
  return reasons ? lines(sentences_of(model, *reasons)) : "error";
}

TEST(Reasons, NameTheColumnTheQuotientsAndThePivot) {
  EXPECT_EQ(reasons_in(well_known()),
            "Kolom x 2: daar staat in rij F het meest negatieve getal, -5; minder negatief is x 1 met -3.\n"
            "Rij 1: in kolom x 2 staat 0, dus deze rij telt niet mee.\n"
            "Rij 2: 12 : 2 = 6, het kleinste positieve quotiënt.\n"
            "Rij 3: 18 : 2 = 9, dat is groter.\n"
            "De pivot staat in kolom x 2, rij 2.\n");
}

TEST(Reasons, AreThoseOfTheTableauThatStands) {
  basSafeCtl model = well_known();
  sweep(model, {.row = 2, .column = 2});
  EXPECT_EQ(reasons_in(model),
            "Kolom x 1: daar staat in rij F het enige negatieve getal, -3.\n"
            "Rij 1: 4 : 1 = 4, dat is groter.\n"
            "Rij 2: in kolom x 1 staat 0, dus deze rij telt niet mee.\n"
            "Rij 3: 6 : 3 = 2, het kleinste positieve quotiënt.\n"
            "De pivot staat in kolom x 1, rij 3.\n");
  sweep(model, {.row = 3, .column = 1});
  EXPECT_EQ(reasons_in(model), "In rij F staat geen negatief getal meer: het tableau is optimaal.\n");
}

TEST(Reasons, TellEqualColumnsAndRowsAndQuotientsThatDoNotCount) {
  EXPECT_EQ(
      reasons_in(tableau_of("max 2x + 2y + z; 3x <= 6; 2x <= 4; x - y <= 0; y - x <= 3")),
      "Kolom x 1: daar staat in rij F het meest negatieve getal, -2; minder negatief is x 3 met -1; even "
      "negatief is x 2 met -2, en dan wint de eerste kolom.\n"
      "Rij 1: 6 : 3 = 2, het kleinste positieve quotiënt.\n"
      "Rij 2: 4 : 2 = 2, even groot; dan wint de bovenste rij.\n"
      "Rij 3: 0 : 1 = 0; een quotiënt 0 telt niet mee.\n"
      "Rij 4: 3 : (-1) = -3; een negatief quotiënt telt niet mee.\n"
      "De pivot staat in kolom x 1, rij 1.\n");
}

TEST(Reasons, TellThatNoRowCounts) {
  EXPECT_EQ(reasons_in(tableau_of("max x; y - x <= 3")),
            "Kolom x 1: daar staat in rij F het enige negatieve getal, -1.\n"
            "Rij 1: 3 : (-1) = -3; een negatief quotiënt telt niet mee.\n"
            "Geen enkele rij heeft een positief quotiënt: er is geen pivot-element.\n");
}

TEST(Reasons, HaveWordsForAQuotientThatIsTooLarge) {
  basSafeCtl model = well_known();
  model.current.row(2).write(2, 1e-7);
  model.current.row(2).write(CellRow::right_hand_side, 1e305);
  EXPECT_TRUE(
      reasons_in(model).contains("Rij 2: 1.00E+305 : (1.00E-07) = een te groot getal, dat is groter.\n"))
      << reasons_in(model);
}

TEST(Reasons, WaitUntilTheBasisIsInOrder) {
  EXPECT_EQ(reasons_in(tableau_of("max x; x = 2; x <= 3")),
            "Breng eerst de basis in orde: in de kolom van r 1 hoort 1 te staan in de eigen rij en 0 "
            "daarbuiten, ook "
            "in rij F. Veeg elke kolom met haar eigen rij, of vraag de basisoplossing op.\n");
}

TEST(Reasons, OfCountsBeyondTheStorageAreAnError) {
  basSafeCtl model;
  model.NrKleinerGelijkVglen = 11;
  EXPECT_FALSE(reasons_for(model).has_value());
}

// ---- Was it right

std::string judgement_on(const basSafeCtl& before, Pivot pivot) {
  const Judgement judgement = judge_sweep(before, pivot);
  return (judgement.right ? "right\n" : "wrong\n") + lines(judgement.sentences);
}

TEST(Judgement, PraisesTheStepOfTheMethod) {
  EXPECT_EQ(
      judgement_on(well_known(), {.row = 2, .column = 2}),
      "right\nDat klopt: het meest negatieve getal van rij F, en daarin het kleinste positieve quotiënt.\n");
}

TEST(Judgement, AllowsAnotherColumn) {
  EXPECT_EQ(
      judgement_on(well_known(), {.row = 1, .column = 1}),
      "right\nDat klopt: kolom x 1 mag, al is -3 in rij F niet het meest negatieve getal: dat staat in kolom "
      "x 2.\n");
}

TEST(Judgement, TellsTheRowThatHadASmallerQuotientAndWhatCameOfIt) {
  EXPECT_EQ(judgement_on(well_known(), {.row = 3, .column = 2}),
            "wrong\nHet quotiënt van rij 2 was kleiner (6) dan dat van rij 3 (9).\n"
            "Nu staat rechts in rij 2 een negatief getal: -6.\n");
}

TEST(Judgement, TellsThatFWentDown) {
  basSafeCtl model = well_known();
  sweep(model, {.row = 2, .column = 2});
  EXPECT_EQ(
      judgement_on(model, {.row = 2, .column = 4}),
      "wrong\nIn rij F stond in kolom x 4 geen negatief getal maar 2.5.\nF ging omlaag, van 30 naar 0.\n");
  sweep(model, {.row = 3, .column = 1});
  EXPECT_EQ(judgement_on(model, {.row = 3, .column = 5}),
            "wrong\nHet tableau was al optimaal: in rij F stond geen negatief getal meer.\n"
            "F ging omlaag, van 36 naar 30.\n");
}

TEST(Judgement, TellsThatNothingCameOfIt) {
  EXPECT_EQ(judgement_on(well_known(), {.row = 1, .column = 2}),
            "wrong\nHet pivot-element is 0: er is niets veranderd, alleen het nummer van het tableau.\n");
  EXPECT_EQ(judgement_on(well_known(), {.row = 1, .column = 3}),
            "wrong\nKolom x 3 was al de basiskolom van rij 1: deze stap brengt niets verder.\n");
}

TEST(Judgement, PraisesBringingTheBasisInOrder) {
  EXPECT_EQ(judgement_on(tableau_of("max x; x = 2"), {.row = 1, .column = 2}),
            "right\nDat klopt: r 1 is een basisvariabele, en haar kolom moest nog in orde komen.\n");
}

TEST(Judgement, AllowsTheOnlyRowHoweverLargeItsQuotient) {
  basSafeCtl model = tableau_of("max x; y + x <= 3");
  model.current.row(1).write(1, 1e-7);
  model.current.row(1).write(CellRow::right_hand_side, 1e305);
  EXPECT_TRUE(judge_sweep(model, {.row = 1, .column = 1}).right);
}

TEST(Judgement, AllowsARowWithZeroThatTheControlPassesOver) {
  const basSafeCtl model = tableau_of("max x; x - y <= 0; x <= 5");
  EXPECT_EQ(
      judgement_on(model, {.row = 1, .column = 1}),
      "right\nDat klopt: rechts in rij 1 stond 0, en zo blijven alle rechterleden wat ze waren. Het control "
      "zelf slaat een quotiënt 0 over.\n");
  EXPECT_EQ(
      judgement_on(model, {.row = 2, .column = 1}),
      "right\nDat klopt: het meest negatieve getal van rij F, en daarin het kleinste positieve quotiënt.\n"
      "Nu staat rechts in rij 1 een negatief getal: -5.\n");
}

TEST(Judgement, TellsOfANegativeQuotient) {
  EXPECT_EQ(judgement_on(tableau_of("max x; y - x <= 3; x <= 2"), {.row = 1, .column = 1}),
            "wrong\nHet quotiënt van rij 1 was negatief (-3) en telt niet mee.\n"
            "Nu staat rechts in rij 1 een negatief getal: -3.\nF ging omlaag, van 0 naar -3.\n");
}

}  // namespace
}  // namespace tabulon::lesson
