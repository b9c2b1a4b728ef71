// The commands that work on the tableau: automatic sweeping, optimisation, and the fill-in mode that the
// first of them ends.
#include "control/LPctrl.h"
#include "numbers/conversions.h"
#include "simplex/pivot.h"
#include "simplex/sweep.h"

namespace tabulon {

using platform::Task;

namespace {

// Messages of frmMelding by number.
constexpr std::int16_t free_text = 0, optimum_found = 3, model_error = 4;

// More than any ordinary problem needs, and few enough to look at the clock between them.
constexpr int sweeps_between_yields = 64;

}  // namespace

// ---- Fill-in mode

void LPctrl::set_fill_in(bool on) {
  mnu_Tableau_Invullen.set_checked(on);
  mnu_Tableau_Invullen_Afsluiten.set_checked(!on);
  CellenBewerkbaar = on;
  redraw();
}

void LPctrl::enable_fill_in(bool enabled) {
  mnu_Tableau_Invullen.set_enabled(enabled);
  mnu_Tableau_Invullen_Afsluiten.set_enabled(enabled);
}

Task<> LPctrl::mnu_Tableau_Invullen_Click() {
  set_fill_in(!mnu_Tableau_Invullen.checked());
  co_return;
}

Task<> LPctrl::mnu_Tableau_Invullen_Afsluiten_Click() {
  set_fill_in(mnu_Tableau_Invullen_Afsluiten.checked());
  co_return;
}

// Once worked on, the tableau is no longer filled in, until a new problem or Reset.
void LPctrl::close_fill_in() {
  set_fill_in(false);
  enable_fill_in(false);
}

// ---- Sweeping

// Brings the tableau into canonical form for its basis, which counts as no new tableau.
Task<bool> LPctrl::BasisoplossingOpvragen() {
  const auto done = canonicalise(model_);
  report(done);
  model_.DialoogOK = false;
  if (model_.rows() > 0) close_fill_in();
  follow_grid();
  co_await set_focus(txtFocus);
  co_return done.has_value();
}

bool LPctrl::KolomVegen() {
  if (!model_.DialoogOK) return false;
  const auto done = sweep_column(model_);
  report(done);
  model_.DialoogOK = false;
  close_fill_in();
  return done.has_value();
}

// ---- The pivot element

Task<bool> LPctrl::ZoekPivotElement() {
  const auto shape = model_.shape();
  report(shape);
  if (!shape) co_return false;
  const PivotChoice choice = find_pivot(model_, *shape);
  model_.PivotRij = static_cast<std::int16_t>(choice.pivot.row);
  model_.PivotKolom = static_cast<std::int16_t>(choice.pivot.column);
  if (choice.search == PivotSearch::Found) {
    scroll_to(choice.pivot.row, choice.pivot.column);
    redraw();
    co_return true;
  }
  model_.MeldingNr = choice.search == PivotSearch::Optimal ? optimum_found : model_error;
  co_await ShowfrmMelding();
  co_return false;
}

namespace {

// The first shown row or column that brings `wanted` into a view of `span`, moving as little as can be.
std::int16_t scrolled_to(std::int16_t first, int wanted, int span) {
  if (wanted < first) return static_cast<std::int16_t>(wanted);
  return wanted > first + span - 1 ? static_cast<std::int16_t>(wanted - span + 1) : first;
}

}  // namespace

void LPctrl::scroll_to(int row, int column) {
  model_.StartRij = scrolled_to(model_.StartRij, row, grid_rows);
  model_.StartKolom = scrolled_to(model_.StartKolom, column, grid_columns);
  follow_grid();
}

// ---- Commands

Task<> LPctrl::announce(std::string words) {
  model_.MeldingNr = free_text;
  model_.strMelding = std::move(words);
  co_await ShowfrmMelding();
}

// The clock returns to 0 at midnight; a pause that began just before does not end then.
Task<> LPctrl::pause_one_second() {
  platform::Host& host = desk().host();
  const float end = host.seconds_since_midnight() + 1.0F;
  co_await desk().pending_events();
  for (float now = host.seconds_since_midnight(); now < end; now = host.seconds_since_midnight())
    co_await desk().wait_milliseconds(static_cast<double>(end - now) * 1000.0);
}

Task<> LPctrl::mnu_Automatisch_vegen_Click() {
  co_await announce("Basisoplossing opvragen");
  if (!co_await BasisoplossingOpvragen()) co_return;
  co_await pause_one_second();
  while (co_await ZoekPivotElement()) {
    co_await announce("Kolom" + numbers::Str(model_.PivotKolom) + " vegen met rij" +
                      numbers::Str(model_.PivotRij));
    model_.DialoogOK = true;
    if (!KolomVegen()) co_return;
    rebuild_graph();
    co_await pause_one_second();
  }
}

Task<> LPctrl::mnu_optimaliseren_Click() {
  if (!co_await BasisoplossingOpvragen()) co_return;
  auto search = optimise(model_, sweeps_between_yields);
  while (search && *search == PivotSearch::Found) {
    co_await desk().yield();
    search = optimise(model_, sweeps_between_yields);
  }
  report(search);
  redraw();
  follow_grid();
  if (search) co_await ZoekPivotElement();
  co_await set_focus(txtFocus);
  rebuild_graph();
}

}  // namespace tabulon
