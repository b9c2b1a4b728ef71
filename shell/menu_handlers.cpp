// The buttons at the top, their pop-up menus, and the shell's own commands.
#include "control/LPctrl.h"

namespace tabulon {

using platform::Menu;
using platform::Task;
using platform::Twips;

namespace {

constexpr Twips menu_top = 285;   // just under the buttons
constexpr Twips menu_inset = 60;  // from the left of the button that opens it
constexpr Twips opties_by_mouse = 2530, help_by_mouse = 3645;

}  // namespace

Twips LPctrl::menu_left(const platform::CommandButton& button) {
  return button.bounds().left + menu_inset;
}

Task<> LPctrl::pop_up(Menu& menu, Twips left) {
  const Menu* const chosen = co_await desk().show_menu(menu, left, menu_top);
  if (chosen) co_await run_command(chosen->name());
}

// A cell that holds bad input keeps the focus, and then no menu opens.
Task<> LPctrl::cmd_Bestand_Click() {
  if (co_await set_focus(txtFocus)) co_await pop_up(mnu_Bestand, menu_left(cmd_Bestand));
}

Task<> LPctrl::cmd_Bewerken_Click() {
  if (co_await set_focus(txtFocus)) co_await pop_up(mnu_Bewerken, menu_left(cmd_Bewerken));
}

Task<> LPctrl::cmd_Opties_Click() {
  if (co_await set_focus(txtFocus)) co_await pop_up(mnu_Opties, opties_by_mouse);
}

Task<> LPctrl::cmd_Help_Click() {
  if (!co_await set_focus(txtFocus)) co_return;
  co_await desk().pending_events();
  co_await pop_up(mnu_Help, help_by_mouse);
  co_await set_focus(txtFocus);
}

Task<> LPctrl::mnu_About_Click() {
  co_await set_focus(txtFocus);
  co_await desk().pending_events();
  co_await ShowAboutBox();
  co_await set_focus(txtFocus);
}

Task<> LPctrl::mnu_Reset_Click() {
  report(restore_first_tableau(model_));
  model_.StartKolom = 1;
  model_.StartRij = 1;
  model_.PivotRij = 0;
  model_.PivotKolom = 0;
  redraw();
  set_scroll_ranges();
  CellenBewerkbaar = true;
  mnu_Tableau_Invullen.set_checked(false);
  co_await mnu_Tableau_Invullen_Click();
  enable_fill_in(true);
  rebuild_graph();
}

}  // namespace tabulon
