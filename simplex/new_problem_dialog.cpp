#include "simplex/new_problem_dialog.h"

#include <algorithm>
#include <array>

#include "numbers/conversions.h"
#include "platform/layout.h"

namespace tabulon {

using platform::Align;
using platform::Bounds;
using platform::Label;
using platform::Placement;
using platform::Twips;
using platform::VScrollBar;

namespace font = platform::font;

namespace {

constexpr int most_choices = 10, fewest_constraints = 2, most_constraints = 10;
constexpr int most_M = 1000, least_M = 5, step_of_M = 5;

constexpr platform::Font counted_heading{.points = 11, .bold = true};

// Two columns of numbers: those that are chosen, and on the right those that follow from them.
constexpr Twips dialog_width = 7860, first_row = 1020, question_pitch = 420, row_height = 330;
constexpr Twips texts = 270, numbers = 3060, bars = 3555, derived_texts = 4170, derived_numbers = 7110;
constexpr Twips number_width = 480;

constexpr Twips top_of(int row) {
  return first_row + (row - 1) * question_pitch;
}
constexpr Bounds text_at(int row) {
  return {texts, top_of(row) + 45, 2760, 255};
}
constexpr Bounds number_at(int row) {
  return {numbers, top_of(row), number_width, row_height};
}
constexpr Bounds bar_at(int row) {
  return {bars, top_of(row), 285, row_height};
}
constexpr Bounds derived_text_at(int row) {
  return {derived_texts, top_of(row) + 45, 2880, 255};
}
constexpr Bounds derived_number_at(int row) {
  return {derived_numbers, top_of(row), number_width, row_height};
}
constexpr Bounds button_at(int row, int place) {
  return {2475 + place * 1530.0, top_of(row) + 180, 1380, 375};
}
constexpr Twips height_for(int rows) {
  return top_of(rows + 1) + 180 + 375 + 195;
}

constexpr Placement shared[] = {
    {"imgMethode", {270, 240, 480, 480}},
    {"lblBeslisVar", text_at(1), "Aantal beslissingsvariabelen :", font::plain},
    {"lblNrBeslisVarM", number_at(1), "", font::centred},
    {"VScroll_NrBeslisVarM", bar_at(1)},
    {"lblNrKleinerGelijkVglenM", number_at(2), "", font::centred},
    {"VScroll_NrKleinerGelijkVglenM", bar_at(2)},
    {"lblSlackVar", derived_text_at(2), "Aantal spelingsvariabelen :", font::plain},
    {"lblNrSlackVar", derived_number_at(2), "", font::centred},
};

constexpr Placement in_simplex[] = {
    {"lblMethode", {960, 330, 5760, 330}, "De Standaard Simplex-methode", counted_heading},
    {"OKButton", button_at(3, 0), "OK", font::centred},
    {"CancelButton", button_at(3, 1), "&Annuleren", font::centred},
};

constexpr Placement in_big_M[] = {
    {"lblMethode", {960, 330, 5760, 330}, "De \"Big-M\"-methode", counted_heading},
    {"lblNrGroterGelijkVglenM", number_at(3), "", font::centred},
    {"VScroll_NrGroterGelijkVglenM", bar_at(3)},
    {"lblGelijk", text_at(4), "Aantal = restricties :", font::plain},
    {"lblNrGelijkVglenM", number_at(4), "", font::centred},
    {"VScroll_NrGelijkVglenM", bar_at(4)},
    {"lblBigM", text_at(5), "Big M =", font::plain},
    {"lblNrBigMM", number_at(5), "", font::centred},
    {"VScroll_NrBigMM", bar_at(5)},
    {"lblSurplusVar", derived_text_at(3), "Aantal surplusvariabelen :", font::plain},
    {"lblNrSurplusVar", derived_number_at(3), "", font::centred},
    {"lblKunstmatigeVar", derived_text_at(4), "Aantal kunstmatige variabelen :", font::plain},
    {"lblNrKunstmatigeVar", derived_number_at(4), "", font::centred},
    {"lblNrKunstmatigeVarA", derived_number_at(5), "", font::centred},
    {"OKButton", button_at(6, 0), "OK", font::centred},
    {"CancelButton", button_at(6, 1), "&Annuleren", font::centred},
};

// "Aantal", the relation sign, "restricties :".
void place_relation(platform::ControlArray<Label, 3>& labels, int row, std::string_view sign) {
  // A blank apart, with the letters that hosts take.
  constexpr std::array<Twips, 3> lefts{texts, texts + 525, texts + 840}, widths{540, 300, 1500};
  const std::array<std::string_view, 3> words{"Aantal", sign, "restricties :"};
  for (int at = 1; at <= 3; ++at) {
    const auto part = static_cast<std::size_t>(at - 1);
    labels(at).set_bounds({lefts[part], top_of(row) + 45, widths[part], 255});
    labels(at).set_text(words[part]);
    labels(at).set_font(at == 2 ? font::centred : font::plain);
  }
}

void show(Label& label, int number) {
  label.set_text(numbers::digits(number));
}

std::int16_t count(const VScrollBar& bar) {
  return static_cast<std::int16_t>(bar.value());
}

}  // namespace

NewProblemDialog::NewProblemDialog(Surface& owner, std::string_view name, Twips width, Twips height,
                                   basSafeCtl& model)
    : Dialog(owner, name, width, height, " Simplex-tableau initialiseren", model) {
  platform::place(*this, shared);
  place_relation(lblKleinerGelijk, 2, "<=");
  cancel_button = &CancelButton;
  add_spin_bar(VScroll_NrBeslisVarM, lblNrBeslisVarM, "Aantal beslissingsvariabelen");
  add_spin_bar(VScroll_NrKleinerGelijkVglenM, lblNrKleinerGelijkVglenM, "Aantal <= restricties");
}

// ---- The standard method

frmNieuw_Simplex::frmNieuw_Simplex(Surface& owner, basSafeCtl& model)
    : NewProblemDialog(owner, "frmNieuw_Simplex", dialog_width, height_for(2), model) {
  platform::place(*this, in_simplex);
  imgMethode.set_picture(platform::Picture::Simplex);
  finish_tab_order();
}

void frmNieuw_Simplex::on_load() {
  Dialog::on_load();
  start_spin_bar(VScroll_NrBeslisVarM, most_choices, 2, model().NrBeslisVar);
  start_spin_bar(VScroll_NrKleinerGelijkVglenM, most_choices, fewest_constraints,
                 model().NrKleinerGelijkVglen);
  show(lblNrSlackVar, VScroll_NrKleinerGelijkVglenM.value());
}

void frmNieuw_Simplex::on_spin(const VScrollBar&) {
  show(lblNrSlackVar, VScroll_NrKleinerGelijkVglenM.value());
}

void frmNieuw_Simplex::on_ok() {
  model().NrBeslisVar = count(VScroll_NrBeslisVarM);
  model().NrKleinerGelijkVglen = count(VScroll_NrKleinerGelijkVglenM);
  model().NrGroterGelijkVglen = 0;
  model().NrGelijkVglen = 0;
}

// ---- The Big-M method

frmNieuw_Big_M::frmNieuw_Big_M(Surface& owner, basSafeCtl& model)
    : NewProblemDialog(owner, "frmNieuw_Big_M", dialog_width, height_for(5), model) {
  platform::place(*this, in_big_M);
  place_relation(lblGroterGelijk, 3, ">=");
  imgMethode.set_picture(platform::Picture::BigM);
  add_spin_bar(VScroll_NrGroterGelijkVglenM, lblNrGroterGelijkVglenM, "Aantal >= restricties");
  add_spin_bar(VScroll_NrGelijkVglenM, lblNrGelijkVglenM, "Aantal = restricties");
  VScroll_NrBigMM.set_steps(step_of_M, step_of_M);
  add_spin_bar(VScroll_NrBigMM, lblNrBigMM, "Big M");
  finish_tab_order();
}

void frmNieuw_Big_M::on_load() {
  Dialog::on_load();
  start_spin_bar(VScroll_NrBeslisVarM, most_choices, 2, model().NrBeslisVar);
  start_spin_bar(VScroll_NrKleinerGelijkVglenM, most_choices, 0, model().NrKleinerGelijkVglen);
  start_spin_bar(VScroll_NrGroterGelijkVglenM, most_choices, 0, model().NrGroterGelijkVglen);
  start_spin_bar(VScroll_NrGelijkVglenM, most_choices, 0, model().NrGelijkVglen);
  start_spin_bar(VScroll_NrBigMM, most_M, least_M, model().BigM);
  narrow();
  show_derived();
}

void frmNieuw_Big_M::on_spin(const VScrollBar& bar) {
  if (&bar == &VScroll_NrBeslisVarM || &bar == &VScroll_NrBigMM) return;
  narrow();
  show_derived();
}

// Each bar leaves room for the constraints of the two others.
void frmNieuw_Big_M::narrow() {
  VScrollBar* const constraint_bars[] = {&VScroll_NrKleinerGelijkVglenM, &VScroll_NrGroterGelijkVglenM,
                                         &VScroll_NrGelijkVglenM};
  for (VScrollBar* bar : constraint_bars) {
    int others = -bar->value();
    for (const VScrollBar* each : constraint_bars) others += each->value();
    set_ends(*bar, most_constraints - others, std::max(0, fewest_constraints - others));
  }
}

void frmNieuw_Big_M::show_derived() {
  const int greater = VScroll_NrGroterGelijkVglenM.value();
  const int artificial = greater + VScroll_NrGelijkVglenM.value();
  show(lblNrSlackVar, VScroll_NrKleinerGelijkVglenM.value());
  show(lblNrSurplusVar, greater);
  show(lblNrKunstmatigeVar, artificial);
  show(lblNrKunstmatigeVarA, artificial);
}

void frmNieuw_Big_M::on_ok() {
  model().NrBeslisVar = count(VScroll_NrBeslisVarM);
  model().NrKleinerGelijkVglen = count(VScroll_NrKleinerGelijkVglenM);
  model().NrGroterGelijkVglen = count(VScroll_NrGroterGelijkVglenM);
  model().NrGelijkVglen = count(VScroll_NrGelijkVglenM);
  model().BigM = count(VScroll_NrBigMM);
}

}  // namespace tabulon
