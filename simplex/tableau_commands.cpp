#include "simplex/tableau_commands.h"

#include "numbers/conversions.h"
#include "platform/desk.h"
#include "simplex/column_dialog.h"
#include "simplex/frmBasis_Oplossing.h"
#include "simplex/pivot.h"
#include "simplex/sweep.h"

namespace tabulon {

using platform::Task;

namespace {

// More than any ordinary problem needs, and few enough to look at the clock between them.
constexpr int sweeps_between_yields = 64;

}  // namespace

Task<> TableauCommands::rest_focus() {
  co_await around_.surface.set_focus(around_.txtFocus);
}

// ---- Fill-in mode

void TableauCommands::set_fill_in(bool on) {
  around_.fill_in.CellenBewerkbaar = on;
  around_.tableau.redraw();
}

void TableauCommands::open_fill_in() {
  around_.fill_in.offered = true;
  set_fill_in(true);
}

void TableauCommands::close_fill_in() {
  around_.fill_in.offered = false;
  set_fill_in(false);
}

// ---- Sweeping

Task<bool> TableauCommands::BasisoplossingOpvragen() {
  const auto done = canonicalise(model());
  around_.surface.report(done);
  model().DialoogOK = false;
  if (done) model().tell({ChangeCause::BasicSolution});
  if (model().rows() > 0) close_fill_in();
  around_.tableau.follow_grid();
  co_await rest_focus();
  co_return done.has_value();
}

void TableauCommands::KolomNormeren() {
  if (!model().DialoogOK) return;
  const auto done = normalise_column(model());
  around_.surface.report(done);
  if (done) model().tell({.cause = ChangeCause::Normalise, .column = model().NormeerKolom});
  close_fill_in();
}

bool TableauCommands::KolomVegen(ChangeCause cause) {
  if (!model().DialoogOK) return false;
  const TableauChange change{.cause = cause, .column = model().PivotKolom, .row = model().PivotRij};
  const auto done = sweep_column(model());
  around_.surface.report(done);
  if (done) model().tell(change);
  model().DialoogOK = false;
  close_fill_in();
  return done.has_value();
}

// The dialog has gone when the operation begins.
Task<> TableauCommands::ask(const ColumnDialogDesign& design) {
  ColumnDialog form(around_.surface, design, model());
  co_await desk().show_modal(form);
}

Task<> TableauCommands::mnu_Kolommen_Normeren_Click() {
  co_await ask(frmKolommen_normeren);
  KolomNormeren();
  co_await rest_focus();
  around_.graph.rebuild();
}

Task<> TableauCommands::mnu_Kolommen_vegen_Click() {
  co_await ask(frmKolommen_vegen);
  KolomVegen(ChangeCause::Sweep);
  co_await rest_focus();
  around_.graph.rebuild();
}

// ---- The basic solution and the pivot element

Task<> TableauCommands::mnu_Basisoplossing_Click() {
  if (!co_await BasisoplossingOpvragen()) co_return;
  {
    frmBasis_Oplossing form(around_.surface, model());
    co_await desk().show_modal(form);
  }
  co_await rest_focus();
}

Task<> TableauCommands::mnu_Pivot_element_Click() {
  if (!co_await BasisoplossingOpvragen()) co_return;
  if (co_await ZoekPivotElement()) co_await around_.messages.ShowfrmPivotelement();
  co_await rest_focus();
}

Task<bool> TableauCommands::ZoekPivotElement() {
  const auto shape = model().shape();
  around_.surface.report(shape);
  if (!shape) co_return false;
  const PivotChoice choice = find_pivot(model(), *shape);
  model().PivotRij = static_cast<std::int16_t>(choice.pivot.row);
  model().PivotKolom = static_cast<std::int16_t>(choice.pivot.column);
  if (choice.search == PivotSearch::Found) {
    around_.tableau.scroll_to(choice.pivot.row, choice.pivot.column);
    around_.tableau.follow_grid();
    around_.tableau.redraw();
    co_return true;
  }
  co_await around_.messages.show(choice.search == PivotSearch::Optimal ? Messages::optimum_found
                                                                       : Messages::model_error);
  co_return false;
}

// ---- By themselves

// The clock returns to 0 at midnight; a pause that began just before does not end then.
Task<> TableauCommands::pause_one_second() {
  platform::Host& host = desk().host();
  const float end = host.seconds_since_midnight() + 1.0F;
  co_await desk().pending_events();
  for (float now = host.seconds_since_midnight(); now < end; now = host.seconds_since_midnight())
    co_await desk().wait_milliseconds(static_cast<double>(end - now) * 1000.0);
}

Task<> TableauCommands::mnu_Automatisch_vegen_Click() {
  co_await around_.messages.announce("Basisoplossing opvragen");
  if (!co_await BasisoplossingOpvragen()) co_return;
  co_await pause_one_second();
  while (co_await ZoekPivotElement()) {
    co_await around_.messages.announce("Kolom" + numbers::Str(model().PivotKolom) + " vegen met rij" +
                                       numbers::Str(model().PivotRij));
    model().DialoogOK = true;
    if (!KolomVegen(ChangeCause::AutomaticSweep)) co_return;
    around_.graph.rebuild();
    co_await pause_one_second();
  }
}

Task<> TableauCommands::mnu_optimaliseren_Click() {
  if (!co_await BasisoplossingOpvragen()) co_return;
  auto search = optimise(model(), sweeps_between_yields);
  while (search && *search == PivotSearch::Found) {
    co_await desk().yield();
    search = optimise(model(), sweeps_between_yields);
  }
  around_.surface.report(search);
  if (search) model().tell({ChangeCause::Optimise});
  around_.tableau.redraw();
  around_.tableau.follow_grid();
  if (search) co_await ZoekPivotElement();
  co_await rest_focus();
  around_.graph.rebuild();
}

// ---- The tableau as it was, and as it is written

void TableauCommands::mnu_Reset_Click() {
  around_.surface.report(restore_first_tableau(model()));
  model().StartKolom = 1;
  model().StartRij = 1;
  model().PivotRij = 0;
  model().PivotKolom = 0;
  open_fill_in();
  around_.tableau.reset_scroll_bars();
  around_.graph.rebuild();
  model().tell({ChangeCause::Reset});
}

void TableauCommands::mnu_Breuken_Click() {
  model().Breuken = !model().Breuken;
  around_.surface.report(rewrite_texts(model()));
  around_.tableau.redraw();
  around_.graph.numbers_rewritten();
  model().tell({ChangeCause::Fractions});
}

}  // namespace tabulon
