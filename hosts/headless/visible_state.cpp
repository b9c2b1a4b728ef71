#include "hosts/headless/visible_state.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/captions.h"

namespace tabulon::platform {

namespace {

constexpr Twips twips_per_pixel = 15;

constexpr std::array<std::string_view, 10> kinds{"frame",   "label", "text",  "button",  "hscroll",
                                                 "vscroll", "line",  "image", "picture", "menu"};

template <std::size_t count, class Named>
std::string_view name_in(const std::array<std::string_view, count>& names, Named which) {
  return names[static_cast<std::size_t>(which)];
}

int pixels(Twips twips) {
  return static_cast<int>(std::floor(twips / twips_per_pixel + 0.5));
}

std::string pair_of(Twips one, char between, Twips other) {
  return std::to_string(pixels(one)) + between + std::to_string(pixels(other));
}

std::string in_quotes(std::string_view text) {
  return "\"" + std::string(text) + "\"";
}

std::string full_name(const Control& control) {
  std::string name(control.name());
  if (control.index() != 0) name += "[" + std::to_string(control.index()) + "]";
  return name;
}

// A line is a pixel thick.
void thicken(Bounds& bounds) {
  bounds.width = std::max(bounds.width, twips_per_pixel);
  bounds.height = std::max(bounds.height, twips_per_pixel);
}

// The place on the surface; nothing for what stands in the user units of a picture box.
std::string place_of(const Control& control) {
  Bounds bounds = control.bounds();
  for (const Control* outer = control.container(); outer; outer = outer->container()) {
    if (outer->kind() == Kind::PictureBox) return {};
    bounds.left += outer->bounds().left;
    bounds.top += outer->bounds().top;
  }
  if (control.kind() == Kind::Line) thicken(bounds);
  return " at " + pair_of(bounds.left, ',', bounds.top) + " " + pair_of(bounds.width, 'x', bounds.height);
}

std::string back_of(Colour colour) {
  if (colour == system_colour::transparent) return " back none";
  if (colour.is_system()) return " back system";
  return " back " + std::to_string(colour.red()) + "," + std::to_string(colour.green()) + "," +
         std::to_string(colour.blue());
}

bool shows_its_back(Kind kind) {
  return kind == Kind::Frame || kind == Kind::Label || kind == Kind::TextBox;
}

std::string text_of(const Control& control) {
  switch (control.kind()) {
    case Kind::Label:
    case Kind::TextBox:
      return " " + in_quotes(control.text());
    case Kind::CommandButton:
      return " " + in_quotes(plain_caption(control.text()));
    case Kind::HScrollBar:
    case Kind::VScrollBar: {
      const auto& bar = static_cast<const ScrollBar&>(control);
      return " " + std::to_string(std::min(bar.min(), bar.max())) + ".." +
             std::to_string(std::max(bar.min(), bar.max())) + " value " + std::to_string(bar.value());
    }
    default:
      return {};
  }
}

std::string line_of(const Control& control) {
  std::string line =
      full_name(control) + " " + std::string(name_in(kinds, control.kind())) + text_of(control);
  line += place_of(control);
  if (shows_its_back(control.kind())) line += back_of(control.back_colour());
  if (!control.tool_tip().empty()) line += " tip " + in_quotes(control.tool_tip());
  if (control.kind() == Kind::TextBox && static_cast<const TextBox&>(control).locked()) line += " locked";
  if (!control.enabled()) line += " disabled";
  return line + "\n";
}

bool is_a_point(const Bounds& bounds) {
  return bounds.width == 0 && bounds.height == 0;
}

// A line that begins where it ends is nothing to see.
bool is_seen(const Control* control) {
  if (control->kind() == Kind::Line && is_a_point(control->bounds())) return false;
  return control->kind() != Kind::Menu && control->shown();
}

std::string controls_of(const Surface& surface) {
  std::vector<const Control*> seen;
  std::ranges::copy_if(surface.controls(), std::back_inserter(seen), is_seen);
  std::ranges::sort(seen, {},
                    [](const Control* control) { return std::pair(control->name(), control->index()); });
  std::string lines;
  for (const Control* control : seen) lines += line_of(*control);
  return lines;
}

std::string size_of(const Surface& surface) {
  return " " + pair_of(surface.width(), 'x', surface.height()) + "\n";
}

std::string item_of(const Menu& item, const Menu* highlighted) {
  if (item.is_separator()) return "  -\n";
  std::string line = "  " + full_name(item) + " " + in_quotes(plain_caption(item.text()));
  if (!item.items().empty()) line += " submenu";
  if (item.checked()) line += " checked";
  if (!item.enabled()) line += " disabled";
  if (&item == highlighted) line += " highlighted";
  return line + "\n";
}

std::string menus_of(const MenuSession& session) {
  std::string lines;
  for (const Menu* menu : session.open()) {
    lines += "menu " + full_name(*menu);
    if (menu == session.open().front()) lines += " at " + pair_of(session.x(), ',', session.y());
    lines += "\n";
    for (const Menu* item : menu->items())
      if (item->visible()) lines += item_of(*item, session.highlighted());
  }
  return lines;
}

std::string focus_of(const Surface& surface) {
  const Control* const active = surface.has_focus() ? surface.active() : nullptr;
  return "focus " + (active ? full_name(*active) : std::string("none")) + "\n";
}

}  // namespace

std::string visible_state(const HeadlessHost& host, const Surface& control) {
  std::string state = std::string(control.name()) + size_of(control) + controls_of(control);
  if (host.is_busy(control)) state += "busy\n";
  const Surface* top = &control;
  for (const Form* form : host.open_forms()) {
    state += "form " + std::string(form->name()) + " " + in_quotes(form->caption()) + size_of(*form) +
             controls_of(*form);
    top = form;
  }
  return state + (host.open_menu() ? menus_of(*host.open_menu()) : focus_of(*top));
}

}  // namespace tabulon::platform
