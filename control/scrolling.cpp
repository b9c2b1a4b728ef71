#include "control/LPctrl.h"

namespace tabulon {

void LPctrl::set_scroll_ranges() {
  m_blnScrollActief = false;
  HScroll.set_range(1, model_.columns() - (grid_columns - 1));
  HScroll.set_value(1);
  VScroll.set_range(1, model_.rows() - (grid_rows - 1));
  VScroll.set_value(1);
  m_blnScrollActief = true;
}

void LPctrl::follow_grid() {
  m_blnScrollActief = false;
  HScroll.set_value(model_.StartKolom);
  VScroll.set_value(model_.StartRij);
  m_blnScrollActief = true;
}

void LPctrl::HScroll_Change() {
  if (!m_blnScrollActief) return;
  model_.StartKolom = static_cast<std::int16_t>(HScroll.value());
  redraw();
}

void LPctrl::VScroll_Change() {
  if (!m_blnScrollActief) return;
  model_.StartRij = static_cast<std::int16_t>(VScroll.value());
  redraw();
}

}  // namespace tabulon
