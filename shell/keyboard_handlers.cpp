// Keys inside the control: the menus' shortcuts, and the walk through the cells.
#include <array>

#include "control/LPctrl.h"

namespace tabulon {

using platform::KeyPress;
using platform::Task;
namespace key = platform::key;
namespace modifier = platform::modifier;

namespace {

struct StepKey {
  KeyPress press;
  Step step;
};

constexpr StepKey step_keys[] = {
    {{key::tab, modifier::none}, Step::Forward},   {{key::enter, modifier::none}, Step::Forward},
    {{key::right, modifier::ctrl}, Step::Forward}, {{key::tab, modifier::shift}, Step::Backward},
    {{key::left, modifier::ctrl}, Step::Backward}, {{key::down, modifier::none}, Step::Down},
    {{key::up, modifier::none}, Step::Up},
};

std::optional<Step> step_of(KeyPress press) {
  for (const StepKey& each : step_keys)
    if (each.press.code == press.code && each.press.shift == press.shift) return each.step;
  return {};
}

}  // namespace

Task<> LPctrl::on_key_down(KeyPress& press, bool& used) {
  if (press.shift == modifier::alt) co_return co_await open_menu_by_key(press.code, used);
  if (press.code == key::escape && press.shift == modifier::none) co_return co_await leave_cell(used);
  const std::optional<GridBox> box = grid_box(active());
  if (moved_by_key(press)) {
    used = true;
  } else if (box && press.code == key::enter && press.shift == modifier::ctrl) {
    used = true;
    co_await validate_in_place(*active());
  } else if (box && press.code != key::tab && step_of(press)) {
    used = true;
    co_await NavigeerCel(*box, press);
  } else if (active() == &txtFocus && press.code == key::tab && press.shift == modifier::none && !escaped_) {
    used = co_await set_focus(txtRij_F(1));
  } else if (press.code == key::enter && press.shift == modifier::none) {
    used = !active() || active()->kind() != platform::Kind::CommandButton;
  }
}

Task<> LPctrl::open_menu_by_key(int code, bool& used) {
  struct Shortcut {
    int code;
    platform::Menu& menu;
    const platform::CommandButton& button;
  };
  const Shortcut shortcuts[] = {{'B', mnu_Bestand, cmd_Bestand},
                                {'W', mnu_Bewerken, cmd_Bewerken},
                                {'O', mnu_Opties, cmd_Opties},
                                {'H', mnu_Help, cmd_Help}};
  for (const Shortcut& shortcut : shortcuts) {
    if (shortcut.code != code) continue;
    used = true;
    if (co_await set_focus(txtFocus)) co_await pop_up(shortcut.menu, menu_left(shortcut.button));
    co_return;
  }
}

// Escape undoes what was typed, when the cell is validated on losing the focus; after it, Tab leaves the
// control.
Task<> LPctrl::leave_cell(bool& used) {
  used = true;
  m_intLaatsteToets = key::escape;
  co_await set_focus(txtFocus);
  m_intLaatsteToets = 0;
  escaped_ = true;
}

Task<> LPctrl::validate_in_place(platform::Control& box) {
  if (co_await set_focus(txtFocus)) co_await set_focus(box);
}

Task<> LPctrl::NavigeerCel(GridBox from, KeyPress press) {
  const std::optional<Step> step = step_of(press);
  if (!step) co_return;
  if (active() == &box_of(from)) {
    bool refused = false;
    co_await on_validate(*active(), refused);
    if (refused) {
      model_.CelFout = false;
      co_return;
    }
  }
  const GridView view{model_.StartKolom, model_.StartRij, model_.NrBeslisVar, model_.rows()};
  const std::optional<Landing> landing = step_from(from, *step, view);
  if (!landing) co_return;
  model_.StartKolom = static_cast<std::int16_t>(landing->first_column);
  model_.StartRij = static_cast<std::int16_t>(landing->first_row);
  if (landing->first_column != view.first_column || landing->first_row != view.first_row) redraw();
  follow_grid();
  co_await set_focus(txtFocus);
  co_await set_focus(box_of(landing->box));
}

// ---- The traps beside the cells in the tab order: the focus that Tab takes out of a cell lands in one of
// them, which sends it where the walk goes on.

void LPctrl::open_traps(bool open) {
  txtShiftTab.set_tab(before_cells, open);
  txtTab.set_tab(behind_cells, open);
}

Task<> LPctrl::txtTab_GotFocus() {
  co_await walk_on(txtTab, {key::tab, modifier::none});
  forget_tab_cell(-1);
}

Task<> LPctrl::txtShiftTab_GotFocus() {
  co_await walk_on(txtShiftTab, {key::tab, modifier::shift});
  forget_tab_cell(0);
}

// A walk that leads nowhere leaves the focus in the cell, as it does for the keys that need no trap.
Task<> LPctrl::walk_on(platform::TextBox& trap, KeyPress press) {
  const auto from = tab_cell();
  if (!from) co_return;
  co_await NavigeerCel(*from, press);
  if (active() == &trap) co_await set_focus(box_of(*from));
}

std::optional<GridBox> LPctrl::tab_cell() const {
  return grid_box(find(m_strTabCel, m_intTabIndex));
}

void LPctrl::forget_tab_cell(std::int16_t no_index) {
  m_strTabCel.clear();
  m_intTabIndex = no_index;
}

}  // namespace tabulon
