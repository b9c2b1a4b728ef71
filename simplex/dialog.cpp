#include "simplex/dialog.h"

#include "numbers/conversions.h"

namespace tabulon {

using platform::Control;
using platform::Task;
using platform::VScrollBar;
namespace key = platform::key;
namespace modifier = platform::modifier;

namespace {

constexpr platform::Colour current_colour = platform::rgb(255, 245, 204);
constexpr int large_step = 5;

}  // namespace

Dialog::Dialog(Surface& owner, std::string_view name, platform::Twips width, platform::Twips height,
               std::string_view caption, basSafeCtl& model)
    : FocusForm(owner, name, width, height, caption), model_(model) {}

void Dialog::add_spin_bar(VScrollBar& bar, Control& display, std::string_view name) {
  spins_.push_back({&bar, &display, name});
  bar.set_spoken_name(name);
  display.set_role(platform::Role::Number);
  bar.set_tab(static_cast<int>(spins_.size()), true);
}

void Dialog::start_spin_bar(VScrollBar& bar, int top, int bottom, int value) {
  bar.set_enabled(false);
  bar.set_range(top, bottom);
  bar.set_steps(bar.small_change(), large_step * bar.small_change());
  bar.set_value(value);
  bar.set_enabled(true);
  show_number(*spin_of(&bar));
}

void Dialog::set_ends(VScrollBar& bar, int top, int bottom) {
  bar.set_range(top, bottom);
  bar.set_value(bar.value());
}

void Dialog::finish_tab_order() {
  const int behind = static_cast<int>(spins_.size());
  OKButton.set_tab(behind + 1, true);
  if (cancel_button != &OKButton) cancel_button->set_tab(behind + 2, true);
}

void Dialog::on_load() {
  model_.DialoogOK = false;
}

Task<> Dialog::on_activate() {
  co_await FocusForm::on_activate();
  if (!spins_.empty()) make_current(spins_.front());
}

Task<> Dialog::on_click(Control& control) {
  if (control.kind() != platform::Kind::CommandButton) co_return;
  const bool confirmed = &control == &OKButton;
  if (confirmed) on_ok();
  model_.DialoogOK = confirmed;
  unload();
}

void Dialog::on_change(Control& control) {
  FocusForm::on_change(control);
  const Spin* const spin = spin_of(&control);
  if (!spin) return;
  show_number(*spin);
  if (spin->bar->enabled()) on_spin(*spin->bar);
  if (current_ == spin->bar) make_current(*spin);
}

Task<> Dialog::on_got_focus(Control& control) {
  const Spin* const spin = spin_of(&control);
  if (!spin) co_return;
  make_current(*spin);
  co_await set_focus(txtFocus);
}

Task<> Dialog::on_key_down(platform::KeyPress& press, bool& used) {
  if (active() != &txtFocus || !current_) co_return;
  if (press.code == key::tab && (press.shift & ~modifier::shift) == 0) {
    used = true;
    co_await tab(press.shift == modifier::shift);
  } else if (press.shift == modifier::none) {
    used = turn(*spin_of(current_)->bar, press.code);
  }
}

// Tab goes on from the current bar, which has passed the focus on.
Task<> Dialog::tab(bool backward) {
  Control* next = tab_neighbour(current_, backward);
  if (!next) next = tab_neighbour(nullptr, backward);
  if (next) co_await set_focus(*next);
}

bool Dialog::turn(VScrollBar& bar, int code) {
  switch (code) {
    case key::up:
      bar.set_value(bar.stepped(-bar.small_change()));
      return true;
    case key::down:
      bar.set_value(bar.stepped(bar.small_change()));
      return true;
    case key::page_up:
      bar.set_value(bar.stepped(-bar.large_change()));
      return true;
    case key::page_down:
      bar.set_value(bar.stepped(bar.large_change()));
      return true;
    case key::home:
      bar.set_value(bar.min());
      return true;
    case key::end:
      bar.set_value(bar.max());
      return true;
    default:
      return false;
  }
}

const Dialog::Spin* Dialog::spin_of(const Control* control) const {
  for (const Spin& spin : spins_)
    if (spin.bar == control) return &spin;
  return nullptr;
}

void Dialog::show_number(const Spin& spin) {
  spin.display->set_text(numbers::digits(spin.bar->value()));
}

void Dialog::make_current(const Spin& spin) {
  current_ = spin.bar;
  for (const Spin& each : spins_) {
    const bool is_current = each.bar == current_;
    each.display->set_back_colour(is_current ? current_colour : platform::system_colour::window);
    each.display->set_role(is_current ? platform::Role::CurrentNumber : platform::Role::Number);
  }
  txtFocus.set_spoken_name(std::string(spin.name) + " " + numbers::digits(spin.bar->value()));
}

}  // namespace tabulon
