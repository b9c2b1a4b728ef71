#include "shell/menu_bar.h"

#include <array>
#include <optional>

#include "platform/captions.h"
#include "platform/desk.h"
#include "platform/layout.h"

namespace tabulon {

using platform::Menu;
using platform::Role;
using platform::Task;
using platform::Twips;

namespace font = platform::font;

namespace {

constexpr Twips menu_top = 285;   // just under the buttons
constexpr Twips menu_inset = 60;  // from the left of the button that opens it

struct ButtonDesign {
  platform::Placement placement;
  std::optional<Twips> menu_by_mouse = {};  // where it stands then; none: at the button
  bool lets_events_pass = false;
};

constexpr ButtonDesign designs[] = {
    {.placement = {"cmd_Bestand", {60, 0, 1065, 285}, "&Bestand", font::centred}},
    {.placement = {"cmd_Bewerken", {1155, 0, 1245, 285}, "Be&werken", font::centred}},
    {.placement = {"cmd_Opties", {2445, 0, 1065, 285}, "&Opties", font::centred}, .menu_by_mouse = 2530},
    {.placement = {"cmd_Help", {3570, 0, 855, 285}, "&Help", font::centred},
     .menu_by_mouse = 3645,
     .lets_events_pass = true},
};

}  // namespace

MenuBar::MenuBar(platform::Surface& surface, RestingFocus& resting, const Commands& commands)
    : surface_(surface), resting_(resting), commands_(commands) {
  for (const ButtonDesign& design : designs) {
    buttons_.add(surface_, design.placement.name);
    platform::place(surface_, std::array{design.placement});
    buttons_[buttons_.size() - 1].set_role(Role::OpensMenu);
  }
  add_menus();
}

void MenuBar::add_menus() {
  std::array<Menu*, 3> last{};  // of each depth
  for (const MenuAction& action : actions()) {
    const auto depth = static_cast<std::size_t>(action.depth);
    Menu* const parent = depth == 0 ? nullptr : last[depth - 1];
    Menu& menu = menus_.add(surface_, action.name, action.caption, parent);
    last[depth] = &menu;
    if (depth == 0) pop_ups_.push_back(&menu);
    if (action.state.is_marked) menu.set_checkable();
  }
}

void MenuBar::update() {
  for (std::size_t at = 0; at < menus_.size(); ++at) {
    const MenuAction::State& state = actions()[at].state;
    if (state.is_enabled) menus_[at].set_enabled(state.is_enabled(commands_));
    if (state.is_marked) menus_[at].set_checked(state.is_marked(commands_));
  }
}

Task<bool> MenuBar::clicked(const platform::Control& control) {
  const std::size_t button = buttons_.find(&control);
  if (button == buttons_.size()) co_return false;
  co_await open_by_mouse(button);
  co_return true;
}

// A cell that holds bad input keeps the focus, and then no menu opens.
Task<> MenuBar::open_by_mouse(std::size_t button) {
  const ButtonDesign& design = designs[button];
  if (!co_await resting_.take_focus()) co_return;
  if (design.lets_events_pass) co_await surface_.desk().pending_events();
  co_await pop_up(button, design.menu_by_mouse.value_or(left_of(button)));
  if (design.lets_events_pass) co_await resting_.take_focus();
}

Task<> MenuBar::alt_pressed(int code, bool& used) {
  for (std::size_t at = 0; at < buttons_.size(); ++at) {
    if (platform::access_key(buttons_[at].text()) != code) continue;
    used = true;
    if (co_await resting_.take_focus()) co_await pop_up(at, left_of(at));
    co_return;
  }
}

Twips MenuBar::left_of(std::size_t button) const {
  return buttons_[button].bounds().left + menu_inset;
}

// The button shows that its menu is open, also where that ends unexpectedly.
class MenuBar::Opened {
 public:
  explicit Opened(platform::Control& button) : button_(button) { button_.set_role(Role::MenuOpen); }
  Opened(const Opened&) = delete;
  ~Opened() { button_.set_role(Role::OpensMenu); }

 private:
  platform::Control& button_;
};

Task<const Menu*> MenuBar::choice_in(std::size_t button, Twips left) {
  const Opened opened(buttons_[button]);
  co_return co_await surface_.desk().show_menu(*pop_ups_[button], left, menu_top);
}

Task<> MenuBar::pop_up(std::size_t button, Twips left) {
  const Menu* const chosen = co_await choice_in(button, left);
  if (chosen) co_await run(*chosen);
}

Task<> MenuBar::run(const Menu& item) {
  const MenuAction::Work& work = actions()[menus_.find(&item)].work;
  if (work.at_once) work.at_once(commands_);
  if (work.task) co_await work.task(commands_);
}

}  // namespace tabulon
