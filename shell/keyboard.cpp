#include "shell/keyboard.h"

#include "platform/layout.h"

namespace tabulon {

using platform::Control;
using platform::KeyPress;
using platform::Task;
namespace key = platform::key;
namespace modifier = platform::modifier;

namespace {

constexpr platform::Placement traps[] = {
    {"txtShiftTab", platform::beside_surface},
    {"txtTab", platform::beside_surface},
};

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
    if (each.press == press) return each.step;
  return {};
}

}  // namespace

Keyboard::Keyboard(platform::Surface& surface, basSafeCtl& model, RestingFocus& resting, WalkedCells& cells)
    : surface_(surface), model_(model), resting_(resting), cells_(cells) {
  platform::place(surface_, traps);
  open_traps(false);
}

Task<> Keyboard::key_pressed(KeyPress press, bool& used) {
  Control* const active = surface_.active();
  const std::optional<GridBox> cell = cells_.cell_of(active);
  if (press == KeyPress{key::escape}) {
    used = true;
    co_await leave_cell();
  } else if (cell && press == KeyPress{key::enter, modifier::ctrl}) {
    used = true;
    co_await validate_in_place(*active);
  } else if (cell && press.code != key::tab && step_of(press)) {
    used = true;
    co_await NavigeerCel(*cell, press);
  } else if (active == &resting_.txtFocus && press.code == key::tab) {
    const bool leaves = std::exchange(escaped_, false) || press.shift != modifier::none;
    if (!leaves) used = co_await surface_.set_focus(cells_.box_of({CellArray::RowF, 1}));
  } else if (press == KeyPress{key::enter}) {
    used = !active || active->kind() != platform::Kind::CommandButton;
  }
}

// After Escape the next Tab leaves the control. Only that one: a host that has nowhere else to go hands the
// keys back to the cells.
Task<> Keyboard::leave_cell() {
  m_intLaatsteToets = key::escape;
  co_await resting_.take_focus();
  m_intLaatsteToets = 0;
  escaped_ = true;
}

bool Keyboard::take_escape() {
  return std::exchange(m_intLaatsteToets, std::int16_t{0}) == key::escape;
}

Task<> Keyboard::validate_in_place(Control& box) {
  if (co_await resting_.take_focus()) co_await surface_.set_focus(box);
}

Task<> Keyboard::NavigeerCel(GridBox from, KeyPress press) {
  const std::optional<Step> step = step_of(press);
  if (!step) co_return;
  if (surface_.active() == &cells_.box_of(from) && !co_await cells_.accept(from)) {
    model_.CelFout = false;
    co_return;
  }
  const GridView view{model_.StartKolom, model_.StartRij, model_.NrBeslisVar, model_.rows()};
  const std::optional<Landing> landing = step_from(from, *step, view);
  if (!landing) co_return;
  cells_.show_from(landing->first_column, landing->first_row);
  co_await resting_.take_focus();
  co_await surface_.set_focus(cells_.box_of(landing->box));
}

// ---- The traps

void Keyboard::open_traps(bool open) {
  txtShiftTab.set_tab(before_cells, open);
  txtTab.set_tab(behind_cells, open);
}

void Keyboard::cell_got_focus() {
  open_traps(true);
}

void Keyboard::cell_lost_focus(GridBox cell) {
  open_traps(false);
  if (!is_trap(surface_.active())) return forget_tab_cell(-1);
  m_strTabCel = cell.array;
  m_intTabIndex = static_cast<std::int16_t>(cell.index);
}

Task<bool> Keyboard::got_focus(const Control& control) {
  if (!is_trap(&control)) co_return false;
  const bool forward = &control == &txtTab;
  co_await walk_on(forward ? txtTab : txtShiftTab, {key::tab, forward ? modifier::none : modifier::shift});
  forget_tab_cell(forward ? -1 : 0);
  co_return true;
}

// A walk that leads nowhere leaves the focus in the cell, as it does for the keys that need no trap.
Task<> Keyboard::walk_on(const platform::TextBox& trap, KeyPress press) {
  if (!m_strTabCel) co_return;
  const GridBox from{*m_strTabCel, m_intTabIndex};
  co_await NavigeerCel(from, press);
  if (surface_.active() == &trap) co_await surface_.set_focus(cells_.box_of(from));
}

void Keyboard::forget_tab_cell(std::int16_t no_index) {
  m_strTabCel.reset();
  m_intTabIndex = no_index;
}

}  // namespace tabulon
