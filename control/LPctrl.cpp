#include "control/LPctrl.h"

#include "numbers/display.h"

namespace tabulon {

using platform::Task;

LPctrl::LPctrl(platform::Desk& desk, basSafeCtl& model)
    : Surface(desk, "LPctrl", fixed_width, fixed_height), model_(model) {
  lay_out();
}

const LPctrl::Command LPctrl::commands[] = {
    {"cmd_Bestand", &LPctrl::cmd_Bestand_Click},
    {"cmd_Bewerken", &LPctrl::cmd_Bewerken_Click},
    {"cmd_Opties", &LPctrl::cmd_Opties_Click},
    {"cmd_Help", &LPctrl::cmd_Help_Click},
    {"mnu_Nieuw_Simplex", &LPctrl::mnu_Nieuw_Simplex_Click},
    {"mnu_Nieuw_Big_M", &LPctrl::mnu_Nieuw_Big_M_Click},
    {"mnu_Openen", &LPctrl::mnu_Openen_Click},
    {"mnu_Tableau_Opslaan_Als", &LPctrl::mnu_Tableau_Opslaan_Als_Click},
    {"mnu_Tableau_Invullen", &LPctrl::mnu_Tableau_Invullen_Click},
    {"mnu_Tableau_Invullen_Afsluiten", &LPctrl::mnu_Tableau_Invullen_Afsluiten_Click},
    {"mnu_Pivot_element", &LPctrl::mnu_Pivot_element_Click},
    {"mnu_Basisoplossing", &LPctrl::mnu_Basisoplossing_Click},
    {"mnu_Kolommen_Normeren", &LPctrl::mnu_Kolommen_Normeren_Click},
    {"mnu_Kolommen_vegen", &LPctrl::mnu_Kolommen_vegen_Click},
    {"mnu_Automatisch_vegen", &LPctrl::mnu_Automatisch_vegen_Click},
    {"mnu_optimaliseren", &LPctrl::mnu_optimaliseren_Click},
    {"mnu_Reset", &LPctrl::mnu_Reset_Click},
    {"mnu_Breuken", &LPctrl::mnu_Breuken_Click},
    {"mnu_Grafiek", &LPctrl::mnu_Grafiek_Click},
    {"mnu_About", &LPctrl::mnu_About_Click},
    {"cmdReset", &LPctrl::cmdReset_Click},
    {"cmdKopieren", &LPctrl::cmdKopieren_Click},
    {"cmdSluiten", &LPctrl::cmdSluiten_Click},
    {"cmdFrame", &LPctrl::cmdFrame_Click},
};

Task<> LPctrl::run_command(std::string_view name) {
  for (const Command& command : commands)
    if (command.name == name) co_return co_await (this->*command.run)();
}

Task<> LPctrl::on_click(platform::Control& control) {
  if (control.name() == FrameHead.name() || control.container() == &FrameHead) KleurFrameHead(-1);
  if (control.kind() == platform::Kind::CommandButton) co_return co_await run_command(control.name());
  if (co_await PictureLN_Click(control)) co_return;
  co_await UserControl_Click();
}

void LPctrl::on_change(platform::Control& control) {
  if (&control == &HScroll) HScroll_Change();
  if (&control == &VScroll) VScroll_Change();
  if (&control == &txtFocus || &control == &txtTab || &control == &txtShiftTab) control.set_text("");
}

Task<> LPctrl::on_scroll(platform::ScrollBar&) {
  co_await desk().pending_events();
}

std::string LPctrl::strSoortGetal(std::int16_t Soort, double& Getal) const {
  return numbers::strSoortGetal(Soort, Getal);
}

void LPctrl::redraw() {
  report(ToonTableau(model_.StartKolom, model_.StartRij));
}

}  // namespace tabulon
