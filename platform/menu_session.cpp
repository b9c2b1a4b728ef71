#include "platform/menu_session.h"

#include <algorithm>

#include "platform/captions.h"

namespace tabulon::platform {

namespace {

int first_letter(const Menu& item) {
  const std::string plain = plain_caption(item.text());
  return plain.empty() ? 0 : access_key("&" + plain);
}

}  // namespace

void MenuSession::key(const KeyPress& press) {
  switch (press.code) {
    case key::down:
      return step(+1);
    case key::up:
      return step(-1);
    case key::home:
      return jump(false);
    case key::end:
      return jump(true);
    case key::left:
      return close_submenu();
    case key::escape:
      return open_.size() > 1 ? close_submenu() : dismiss();
    case key::tab:
    case key::f10:
      return dismiss();
    case key::right:
      if (highlighted_ && !highlighted_->items().empty()) choose(*highlighted_);
      return;
    case key::enter:
    case key::space:
      if (highlighted_) choose(*highlighted_);
      return;
    default:
      if (press.code != 0 && (press.shift & modifier::ctrl) == 0) letter(press.code);
  }
}

void MenuSession::point_at(Menu& item) {
  if (item.is_separator() || !holds(item)) return;
  while (open_.back() != item.parent()) open_.pop_back();
  highlighted_ = &item;
  if (!item.items().empty() && item.enabled()) open_.push_back(&item);
}

void MenuSession::choose(Menu& item) {
  if (item.is_separator() || !item.enabled() || !holds(item)) return;
  if (!item.items().empty()) return open_submenu(item);
  chosen_ = &item;
  over_ = true;
}

bool MenuSession::holds(const Menu& item) const {
  return std::ranges::find(open_, item.parent()) != open_.end();
}

void MenuSession::open_submenu(Menu& item) {
  while (open_.back() != item.parent()) open_.pop_back();
  open_.push_back(&item);
  highlighted_ = nullptr;
  step(+1);
}

void MenuSession::close_submenu() {
  if (open_.size() == 1) return;
  highlighted_ = open_.back();
  open_.pop_back();
}

void MenuSession::step(int direction) {
  const std::vector<Menu*>& items = open_.back()->items();
  const auto count = static_cast<int>(items.size());
  const auto found = std::ranges::find(items, highlighted_);
  int at = found != items.end() ? static_cast<int>(found - items.begin()) : (direction > 0 ? -1 : 0);
  for (int tried = 0; tried < count; ++tried) {
    at = (at + direction + count) % count;
    if (items[static_cast<std::size_t>(at)]->is_separator()) continue;
    highlighted_ = items[static_cast<std::size_t>(at)];
    return;
  }
}

void MenuSession::jump(bool to_last) {
  highlighted_ = nullptr;
  step(to_last ? -1 : +1);
}

void MenuSession::letter(int code) {
  const std::vector<Menu*>& items = open_.back()->items();
  for (Menu* item : items)
    if (access_key(item->text()) == code) return choose(*item);
  const auto count = items.size();
  const auto found = static_cast<std::size_t>(std::ranges::find(items, highlighted_) - items.begin());
  const std::size_t from = found == count ? 0 : found + 1;
  for (std::size_t step = 0; step < count; ++step) {
    Menu* const item = items[(from + step) % count];
    if (first_letter(*item) != code) continue;
    highlighted_ = item;
    return;
  }
}

}  // namespace tabulon::platform
