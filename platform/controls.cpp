#include "platform/controls.h"

#include <algorithm>
#include <cmath>

namespace tabulon::platform {

int ControlOwner::add(Control& control) {
  controls_.push_back(&control);
  return static_cast<int>(controls_.size()) - 1;
}

Control::Control(ControlOwner& owner, Kind kind, std::string_view name, int index, const Control* container)
    : owner_(owner), name_(name), container_(container), index_(index), id_(owner.add(*this)), kind_(kind) {}

void Control::mark(Property property) {
  changes_.add(property);
  owner_.mark_changed();
}

void Control::set_text(std::string_view text) {
  if (change_text(text_, text, Property::Text) && kind_ == Kind::TextBox) tell_change();
}

namespace {

// What stands in a picture's units counts with the picture.
Bounds place_on_surface(const Control& control) {
  Bounds place = control.bounds();
  for (const Control* outer = control.container(); outer; outer = outer->container()) {
    const bool in_units = outer->kind() == Kind::PictureBox;
    const Bounds& around = outer->bounds();
    place = in_units ? around
                     : Bounds{around.left + place.left, around.top + place.top, place.width, place.height};
  }
  return place;
}

}  // namespace

bool Control::shown() const {
  for (const Control* control = this; control; control = control->container_)
    if (!control->visible_) return false;
  const Bounds place = place_on_surface(*this);
  return place.left + place.width > 0 && place.top + place.height > 0 && place.left < owner_.width() &&
         place.top < owner_.height();
}

// A visible control that stands beside the surface is not seen, but it can take the focus.
Rendering Control::rendering() const {
  if (!visible_) return Rendering::None;
  if (container_ || shown()) return Rendering::Seen;
  return can_take_focus() ? Rendering::Aside : Rendering::None;
}

// Where a control stands decides whether it is seen.
void Control::set_bounds(const Bounds& bounds) {
  const Rendering before = rendering();
  if (change(bounds_, bounds, Property::Bounds) && rendering() != before) mark(Property::Visible);
}

bool Control::can_take_focus() const {
  if (kind_ == Kind::Frame || kind_ == Kind::Label || kind_ == Kind::Line || kind_ == Kind::Image ||
      kind_ == Kind::Menu)
    return false;
  for (const Control* control = this; control; control = control->container_)
    if (!control->visible_ || !control->enabled_) return false;
  return true;
}

void ScrollBar::set_range(int min, int max) {
  Range range = range_;
  range.min = min;
  range.max = max;
  change(range_, range, Property::Range);
}

void ScrollBar::set_steps(int small_change, int large_change) {
  Range range = range_;
  range.small_change = small_change;
  range.large_change = large_change;
  change(range_, range, Property::Range);
}

void ScrollBar::set_value(int value) {
  Range range = range_;
  range.value = std::clamp(value, std::min(range.min, range.max), std::max(range.min, range.max));
  if (change(range_, range, Property::Range)) tell_change();
}

int ScrollBar::stepped(int change) const {
  const int towards_max = range_.max >= range_.min ? change : -change;
  return std::clamp(range_.value + towards_max, std::min(range_.min, range_.max),
                    std::max(range_.min, range_.max));
}

void Line::set_ends(Point from, Point to) {
  if (!change(ends_, {from, to}, Property::Ends)) return;
  set_bounds(
      {std::min(from.x, to.x), std::min(from.y, to.y), std::abs(to.x - from.x), std::abs(to.y - from.y)});
}

Menu::Menu(ControlOwner& owner, std::string_view name, std::string_view caption, Menu* parent)
    : Control(owner, Kind::Menu, name, 0, parent), parent_(parent) {
  set_text(caption);
  if (parent) parent->items_.push_back(this);
}

std::size_t OwnedControls::find(const Control* control) const {
  std::size_t place = 0;
  while (place < size() && &at(place) != control) ++place;
  return place;
}

Control& OwnedControls::own(std::unique_ptr<Control> control) {
  return *controls_.emplace_back(std::move(control));
}

}  // namespace tabulon::platform
