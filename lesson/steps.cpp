#include "lesson/steps.h"

#include <utility>

#include "lesson/changes.h"
#include "lesson/judgement.h"
#include "lesson/reasons.h"
#include "lesson/words.h"

namespace tabulon::lesson {

namespace {

using Sentences = std::vector<std::string>;

bool all_in_order(const basSafeCtl& model) {
  for (int row = 1; row <= model.rows(); ++row)
    if (!is_in_order(model, row)) return false;
  return true;
}

std::string value_of_F(const basSafeCtl& model) {
  return "F = " + shown(model.current.row_F().right(), model.Breuken);
}

Sentences sentences_of_basic_solution(const basSafeCtl& before, const basSafeCtl& after) {
  Sentences sentences;
  if (!all_in_order(before))
    sentences.emplace_back("De basis is in orde gebracht: elke basiskolom is met haar eigen rij geveegd.");
  Sentences values;
  for (int row = 1; row <= after.rows(); ++row)
    values.push_back(column_name(after, after.current.basis(row)) + " = " +
                     shown(after.current.row(row).right(), after.Breuken));
  sentences.push_back("De basisoplossing: " + listed(values) + "; " + value_of_F(after) + ".");
  return sentences;
}

std::string end_of_optimising(const basSafeCtl& after) {
  switch (find_pivot(after, after.shape().value_or(Shape{})).search) {
    case PivotSearch::Optimal:
      return "In rij F staat geen negatief getal meer: " + value_of_F(after) + ".";
    case PivotSearch::Unbounded:
      return "Er is nog een kolom met een negatief getal in rij F, maar geen rij met een positief quotiënt.";
    case PivotSearch::Found:
      break;
  }
  return "Er staat nog een negatief getal in rij F.";
}

Sentences sentences_of_optimising(const basSafeCtl& before, const basSafeCtl& after) {
  const std::string steps = counted(after.NrTableau - before.NrTableau, "stap", "stappen");
  return {"Het control heeft zelf " + steps + " gedaan.", end_of_optimising(after)};
}

std::string sentence_of_problem(const basSafeCtl& model) {
  return "Er staat een nieuwe opgave, met " + counted(model.NrBeslisVar, "variabele", "variabelen") + " en " +
         counted(model.rows(), "rij", "rijen") + ".";
}

Pivot pivot_of(const TableauChange& change) {
  return {.row = change.row, .column = change.column};
}

int place_of(const TableauChange& change) {
  return change.column == 0 ? CellRow::right_hand_side : change.column;
}

// ---- Judging what is not swept

StepJudgement no_step(std::string sentence) {
  return {std::nullopt, {std::move(sentence)}};
}

StepJudgement judge_normalising(const basSafeCtl& before, const basSafeCtl& after) {
  StepJudgement judgement = no_step("Een rij door een getal delen mag altijd: de oplossing blijft dezelfde.");
  Sentences broken;
  for (int row = 1; row <= after.rows(); ++row)
    if (is_in_order(before, row) && !is_in_order(after, row))
      broken.push_back(column_name(after, after.current.basis(row)));
  if (!broken.empty())
    judgement.sentences.push_back("Maar de basis is nu niet meer in orde: in " +
                                  std::string(broken.size() == 1 ? "de kolom van " : "de kolommen van ") +
                                  listed(broken) + " staat geen 1 meer in de eigen rij.");
  return judgement;
}

StepJudgement judge_pivot(const basSafeCtl& before, Pivot pivot) {
  Judgement judgement = judge_sweep(before, pivot);
  return {judgement.right, std::move(judgement.sentences)};
}

}  // namespace

std::vector<std::string> sentences_of_change(const basSafeCtl& before, const basSafeCtl& after,
                                             const TableauChange& change) {
  switch (change.cause) {
    case ChangeCause::Cell:
      return {sentence_of_cell(before, after, change.row, place_of(change))};
    case ChangeCause::Sweep:
    case ChangeCause::AutomaticSweep:
      return sentences_of_sweep(before, pivot_of(change));
    case ChangeCause::Normalise:
      return sentences_of_normalising(before, change.column);
    case ChangeCause::BasicSolution:
      return sentences_of_basic_solution(before, after);
    case ChangeCause::Optimise:
      return sentences_of_optimising(before, after);
    case ChangeCause::Reset:
      return {"Het eerste tableau is teruggezet."};
    case ChangeCause::Fractions:
      return {after.Breuken ? "De getallen staan er nu als breuken."
                            : "De getallen staan er nu als decimale getallen."};
    case ChangeCause::Parameters:
    case ChangeCause::Problem:
      return {sentence_of_problem(after)};
    case ChangeCause::Restore:
      return {"Een bewaard tableau is teruggezet."};
  }
  return {};
}

StepJudgement judge_change(const basSafeCtl& before, const basSafeCtl& after, const TableauChange& change) {
  switch (change.cause) {
    case ChangeCause::Sweep:
    case ChangeCause::AutomaticSweep:
      return judge_pivot(before, pivot_of(change));
    case ChangeCause::Normalise:
      return judge_normalising(before, after);
    case ChangeCause::BasicSolution:
      return no_step("De basis in orde brengen mag altijd: de oplossing blijft dezelfde.");
    case ChangeCause::Cell:
      return no_step("Een getal invullen is geen stap van de methode.");
    case ChangeCause::Optimise:
      return no_step("Die stappen heeft het control zelf gedaan.");
    default:
      return no_step("Dat was geen stap van de methode.");
  }
}

}  // namespace tabulon::lesson
