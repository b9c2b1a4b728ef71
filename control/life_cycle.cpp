#include "control/LPctrl.h"

namespace tabulon {

using platform::Task;

Result<> LPctrl::UserControl_Initialize() {
  CellenBewerkbaar = true;
  m_blnScrollActief = true;
  EersteKeer = true;
  model_.StartKolom = 1;
  model_.StartRij = 1;
  model_.Breuken = false;
  mnu_Breuken.set_checked(false);
  if (auto counted = model_.set_derived_counts(); !counted) return counted;
  if (auto laid_out = InitTableau(); !laid_out) return laid_out;
  mnu_Tableau_Invullen.set_checked(true);
  mnu_Tableau_Invullen_Afsluiten.set_checked(false);
  mnu_Grafiek.set_checked(false);
  return {};
}

Task<> LPctrl::UserControl_Show() {
  if (EersteKeer) {
    co_await set_focus(txtFocus);
    EersteKeer = false;
  }
  model_.StartKolom = 1;
  model_.StartRij = 1;
  model_.Breuken = false;
  mnu_Breuken.set_checked(false);
  report(model_.set_derived_counts());
  redraw();
  set_scroll_ranges();
  offer_graph();
}

}  // namespace tabulon
