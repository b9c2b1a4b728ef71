#include "control/LPctrl.h"

#include "files/tableau_text.h"
#include "numbers/display.h"

namespace tabulon {

using platform::Control;
using platform::Task;

LPctrl::LPctrl(platform::Desk& desk, basSafeCtl& model)
    : Surface(desk, "LPctrl", fixed_width, fixed_height), model_(model) {}

LPctrl::~LPctrl() {
  desk().retire(*this);
}

std::string LPctrl::strSoortGetal(std::int16_t Soort, double& Getal) const {
  return numbers::strSoortGetal(Soort, Getal);
}

// ---- Life cycle

Result<> LPctrl::UserControl_Initialize() {
  fill_in_.CellenBewerkbaar = true;
  EersteKeer = true;
  keyboard_.walk();
  return_to_start();
  TRY(model_.set_derived_counts());
  TRY(InitTableau());
  cells_.drop_entry(active());
  graph_.close();
  update();
  return {};
}

Result<> LPctrl::UserControl_ReadProperties(const PropertyBag& page) {
  const auto done = parameters_.read(page);
  model_.tell({ChangeCause::Parameters});
  return done;
}

std::optional<Result<>> LPctrl::set_property(std::string_view name, const PropertyValue& value) {
  const auto done = parameters_.set(name, value);
  if (done && *done) model_.tell({ChangeCause::Parameters});
  return done;
}

Task<> LPctrl::UserControl_Show() {
  if (EersteKeer) {
    co_await resting_.take_focus();
    EersteKeer = false;
  }
  return_to_start();
  report(model_.set_derived_counts());
  grid_.redraw();
  grid_.reset_scroll_bars();
  graph_.close();
  // Closing the graph may have hidden what has the focus.
  if (active() && !active()->can_take_focus()) co_await resting_.take_focus();
}

void LPctrl::return_to_start() {
  model_.StartKolom = 1;
  model_.StartRij = 1;
  model_.Breuken = false;
}

Task<> LPctrl::show_problem() {
  co_await UserControl_Show();
  model_.tell({ChangeCause::Problem});
}

Result<> LPctrl::restore(std::string_view saved) {
  TRY(restore_tableau(model_, saved));
  show_opened_tableau();
  return {};
}

void LPctrl::show_opened_tableau() {
  model_.PivotRij = 0;
  model_.PivotKolom = 0;
  if (model_.NrTableau == 1)
    commands_.open_fill_in();
  else
    commands_.close_fill_in();
  grid_.reset_scroll_bars();
  grid_.follow_grid();
  graph_.close();
  model_.tell({ChangeCause::Restore});
}

// ---- Events

Task<> LPctrl::on_click(Control& control) {
  if (&control == &resting_.FrameHead || control.container() == &resting_.FrameHead)
    resting_.KleurFrameHead(-1);
  if (co_await menu_bar_.clicked(control)) co_return;
  if (co_await graph_.clicked(control)) co_return;
  co_await UserControl_Click();
}

void LPctrl::on_change(Control& control) {
  if (grid_.is_scroll_bar(&control)) grid_.scrolled(control);
  if (&control == &resting_.txtFocus || keyboard_.is_trap(&control)) control.set_text("");
}

Task<> LPctrl::on_scroll(platform::ScrollBar&) {
  return desk().pending_events();
}

Task<> LPctrl::on_pointer(Control& control, platform::Pointer pointer) {
  return graph_.pointer_moved(control, pointer);
}

Task<> LPctrl::on_key_down(platform::KeyPress& press, bool& used) {
  if (press.shift == platform::modifier::alt) return menu_bar_.alt_pressed(press.code, used);
  if (graph_.key_pressed(press)) {
    used = true;
    return Surface::on_key_down(press, used);
  }
  return keyboard_.key_pressed(press, used);
}

// ---- Focus

Task<> LPctrl::on_got_focus(Control& control) {
  if (co_await keyboard_.got_focus(control)) co_return;
  if (const auto cell = grid_.cell_of(&control)) {
    cells_.got_focus(*cell);
    keyboard_.cell_got_focus();
  }
  if (&control == &resting_.txtFocus) {
    resting_.txtFocus_GotFocus();
    keyboard_.forget_tab_cell(-1);
    co_return;
  }
  keyboard_.walk();
  if (grid_.is_scroll_bar(&control)) co_await resting_.take_focus();
}

Task<> LPctrl::on_lost_focus(Control& control) {
  if (const auto cell = grid_.cell_of(&control)) keyboard_.cell_lost_focus(*cell);
  return {};
}

Task<> LPctrl::on_validate(Control& control, bool& refused) {
  return cells_.validate(control, keyboard_.take_escape(), refused);
}

// A cell keeps the focus when the control is clicked beside it, and so do most buttons.
bool LPctrl::keeps_focus(const Control* active) const {
  return grid_.cell_of(active) || menu_bar_.has(active) || graph_.keeps_focus(active);
}

Task<> LPctrl::UserControl_Click() {
  keyboard_.walk();
  if (keeps_focus(active())) co_return;
  co_await resting_.take_focus();
  resting_.KleurFrameHead(-1);
}

Task<> LPctrl::UserControl_EnterFocus() {
  resting_.KleurFrameHead(-1);
  co_await UserControl_Click();
  co_await cells_.control_entered(active());
}

Task<> LPctrl::on_exit() {
  resting_.KleurFrameHead(0);
  cells_.control_left(active());
  return {};
}

}  // namespace tabulon
