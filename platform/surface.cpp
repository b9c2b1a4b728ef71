#include "platform/surface.h"

#include <algorithm>

#include "platform/captions.h"

namespace tabulon::platform {

Surface::Surface(SurfaceOwner& owner, std::string_view name, Twips width, Twips height)
    : ControlOwner(width, height), owner_(owner), name_(name) {
  owner_.add(*this);
}

Surface::~Surface() {
  owner_.remove(*this);
}

void Surface::report(const RunTimeError& error) {
  owner_.report(*this, error);
}

Control* Surface::find(std::string_view name, int index) const {
  const auto found = std::ranges::find_if(controls(), [&](const Control* control) {
    return control->name() == name && control->index() == index;
  });
  return found != controls().end() ? *found : nullptr;
}

Task<bool> Surface::set_focus(Control& target) {
  if (&target == active_) co_return true;
  if (!target.can_take_focus()) co_return false;
  if (!has_focus_) has_focus_ = owner_.take_focus(*this);
  if (active_) {
    bool refused = false;
    co_await on_validate(*active_, refused);
    if (refused) co_return false;
    if (&target == active_) co_return true;  // somebody moved the focus while Validate waited
    if (!target.can_take_focus()) co_return false;
  }
  Control* const before = std::exchange(active_, &target);
  mark_changed();
  if (before) co_await on_lost_focus(*before);
  if (has_focus_ && active_ == &target) co_await on_got_focus(target);
  co_return true;
}

Control* Surface::tab_neighbour(const Control* from, bool backward) const {
  const auto place = [](const Control* control) { return std::pair(control->tab_index(), control->id()); };
  const auto comes_first = [&](const Control* one, const Control* other) {
    return backward ? place(one) > place(other) : place(one) < place(other);
  };
  Control* nearest = nullptr;
  for (Control* control : controls()) {
    if (!control->tab_stop() || !control->can_take_focus()) continue;
    if (from && !comes_first(from, control)) continue;
    if (!nearest || comes_first(control, nearest)) nearest = control;
  }
  return nearest;
}

Task<> Surface::clicked(Control& control) {
  if (!control.enabled()) co_return;
  if (control.kind() == Kind::CommandButton && (!control.can_take_focus() || !co_await set_focus(control)))
    co_return;
  co_await on_click(control);
}

Task<> Surface::typed(TextBox& box, std::string text) {
  if (!co_await set_focus(box) || box.locked()) co_return;
  box.set_text(text);
}

Task<> Surface::focus_wanted(Control& control) {
  co_await set_focus(control);
  mark_changed();  // the host's own focus may have moved already: it is put where the surface's is
}

Task<> Surface::pressed_key(KeyPress press, bool& used) {
  co_await on_key_down(press, used);
  if (!used) co_await default_key(press, used);
}

Task<> Surface::scrolled(ScrollBar& bar, int value, bool dragging) {
  if (!co_await set_focus(bar)) co_return;
  bar.set_value(value);
  if (dragging) co_await on_scroll(bar);
}

Task<> Surface::entered() {
  if (has_focus_) co_return;
  has_focus_ = true;
  co_await on_enter();
}

Task<> Surface::left() {
  if (!has_focus_) co_return;
  has_focus_ = false;
  co_await on_exit();
}

Task<> Surface::default_key(KeyPress press, bool& used) {
  if (press.code == key::tab && (press.shift & ~modifier::shift) == 0) {
    Control* const neighbour = tab_neighbour(active_, press.shift == modifier::shift);
    used = neighbour != nullptr;
    if (neighbour) co_await set_focus(*neighbour);
  } else if (press.shift == modifier::alt) {
    for (Control* control : controls()) {
      if (control->kind() != Kind::CommandButton || !control->shown() ||
          access_key(control->text()) != press.code)
        continue;
      used = true;
      co_await clicked(*control);
      co_return;
    }
  } else if (press.shift == modifier::none && (press.code == key::enter || press.code == key::space)) {
    if (!active_ || active_->kind() != Kind::CommandButton) co_return;
    used = true;
    co_await clicked(*active_);
  }
}

Task<> Surface::on_click(Control&) {
  return {};
}
Task<> Surface::on_surface_click() {
  return {};
}
void Surface::on_change(Control&) {}
Task<> Surface::on_scroll(ScrollBar&) {
  return {};
}
Task<> Surface::on_got_focus(Control&) {
  return {};
}
Task<> Surface::on_lost_focus(Control&) {
  return {};
}
Task<> Surface::on_validate(Control&, bool&) {
  return {};
}
Task<> Surface::on_key_down(KeyPress&, bool&) {
  return {};
}
Task<> Surface::on_pointer(Control&, Pointer) {
  return {};
}
Task<> Surface::on_enter() {
  return {};
}
Task<> Surface::on_exit() {
  return {};
}

Task<> Surface::on_failure(const RunTimeError& error) {
  report(error);
  return {};
}

void Form::set_caption(std::string_view caption) {
  if (caption_ == caption) return;
  caption_ = caption;
  mark_changed();
}

Form::Form(Surface& owner, std::string_view name, Twips width, Twips height)
    : Surface(owner.owner_, name, width, height), opener_(owner) {}

Point Form::place() const {
  constexpr Twips title_height = 510;  // with what hosts draw around it, and rather more than less
  return form_place({width(), height() + title_height}, {opener_.width(), opener_.height()},
                    opener_.kept_free());
}

Task<> Form::on_activate() {
  return {};
}

void Form::update() {
  if (!default_button) return;
  const bool other_has_focus =
      active() && active() != default_button && active()->kind() == Kind::CommandButton;
  default_button->set_role(other_has_focus ? Role::None : Role::Default);
}

Task<> Form::default_key(KeyPress press, bool& used) {
  co_await Surface::default_key(press, used);
  if (used) co_return;
  if (press.code == key::tab) co_return co_await wrap_focus(press.shift == modifier::shift, used);
  if (press.shift != modifier::none) co_return;
  CommandButton* const button = press.code == key::enter    ? default_button
                                : press.code == key::escape ? cancel_button
                                                            : nullptr;
  if (!button) co_return;
  used = true;
  co_await clicked(*button);
}

// On a form the tab order is a ring: the focus stays on it.
Task<> Form::wrap_focus(bool backward, bool& used) {
  used = true;
  if (Control* const first = tab_neighbour(nullptr, backward)) co_await set_focus(*first);
}

}  // namespace tabulon::platform
