// The commands that ask something first: normalise, sweep, basic solution, pivot element, new problem.
#include "control/LPctrl.h"
#include "simplex/frmBasis_Oplossing.h"
#include "simplex/frmKolommen_normeren.h"
#include "simplex/frmKolommen_vegen.h"
#include "simplex/frmPivot_element.h"
#include "simplex/new_problem_dialog.h"
#include "simplex/sweep.h"

namespace tabulon {

using platform::Task;

void LPctrl::KolomNormeren() {
  if (!model_.DialoogOK) return;
  report(normalise_column(model_));
  close_fill_in();
}

Task<> LPctrl::mnu_Kolommen_Normeren_Click() {
  {
    frmKolommen_normeren form(*this, model_);
    co_await desk().show_modal(form);
  }
  KolomNormeren();
  co_await set_focus(txtFocus);
  rebuild_graph();
}

Task<> LPctrl::mnu_Kolommen_vegen_Click() {
  {
    frmKolommen_vegen form(*this, model_);
    co_await desk().show_modal(form);
  }
  KolomVegen();
  co_await set_focus(txtFocus);
  rebuild_graph();
}

Task<> LPctrl::mnu_Basisoplossing_Click() {
  if (!co_await BasisoplossingOpvragen()) co_return;
  {
    frmBasis_Oplossing form(*this, model_);
    co_await desk().show_modal(form);
  }
  co_await set_focus(txtFocus);
}

Task<> LPctrl::mnu_Pivot_element_Click() {
  if (!co_await BasisoplossingOpvragen()) co_return;
  if (co_await ZoekPivotElement()) co_await ShowfrmPivotelement();
  co_await set_focus(txtFocus);
}

Task<> LPctrl::ShowfrmPivotelement() {
  frmPivot_element form(*this, model_);
  co_await desk().show_modal(form);
}

Task<> LPctrl::mnu_Nieuw_Simplex_Click() {
  frmNieuw_Simplex form(*this, model_);
  co_await start_new_problem(form);
}

Task<> LPctrl::mnu_Nieuw_Big_M_Click() {
  frmNieuw_Big_M form(*this, model_);
  co_await start_new_problem(form);
}

Task<> LPctrl::start_new_problem(platform::Form& dialog) {
  co_await set_focus(txtFocus);
  co_await desk().pending_events();
  co_await desk().show_modal(dialog);
  if (model_.DialoogOK) {
    report(UserControl_Initialize());
    co_await UserControl_Show();
    mnu_Tableau_Invullen.set_checked(false);
    co_await mnu_Tableau_Invullen_Click();
    enable_fill_in(true);
  }
  co_await set_focus(txtFocus);
}

}  // namespace tabulon
