#include "simplex/new_problem_commands.h"

#include "platform/desk.h"
#include "simplex/new_problem_dialog.h"

namespace tabulon {

using platform::Task;

Task<> NewProblemCommands::mnu_Nieuw_Simplex_Click() {
  frmNieuw_Simplex form(surface_, model_);
  co_await start_new_problem(form);
}

Task<> NewProblemCommands::mnu_Nieuw_Big_M_Click() {
  frmNieuw_Big_M form(surface_, model_);
  co_await start_new_problem(form);
}

Task<> NewProblemCommands::start_new_problem(platform::Form& dialog) {
  co_await surface_.set_focus(txtFocus_);
  co_await surface_.desk().pending_events();
  co_await surface_.desk().show_modal(dialog);
  if (model_.DialoogOK) {
    surface_.report(problem_.start_problem());
    co_await problem_.show_problem();
    tableau_.open_fill_in();
  }
  co_await surface_.set_focus(txtFocus_);
}

}  // namespace tabulon
