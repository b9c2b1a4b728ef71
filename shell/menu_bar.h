// The buttons at the top of the control and the menus that they open.
//
//   MenuBar menu_bar(surface, resting, commands);
//   menu_bar.update();                               // marks and enabled items, before they are shown
//   if (co_await menu_bar.clicked(control)) ...;     // it was one of the buttons
#pragma once

#include <vector>

#include "platform/surface.h"
#include "shell/actions.h"
#include "shell/resting_focus.h"

namespace tabulon {

class MenuBar {
 public:
  MenuBar(platform::Surface& surface, RestingFocus& resting, const Commands& commands);

  void update();
  platform::Task<bool> clicked(const platform::Control& control);
  // Opens the menu of a button whose access key this is; `used` tells whether there is one.
  platform::Task<> alt_pressed(int code, bool& used);
  bool has(const platform::Control* control) const { return buttons_.find(control) < buttons_.size(); }

 private:
  class Opened;

  void add_menus();
  platform::Task<> open_by_mouse(std::size_t button);
  // The chosen item; null where none was.
  platform::Task<const platform::Menu*> choice_in(std::size_t button, platform::Twips left);
  platform::Task<> pop_up(std::size_t button, platform::Twips left);
  platform::Task<> run(const platform::Menu& item);
  platform::Twips left_of(std::size_t button) const;

  platform::Surface& surface_;
  RestingFocus& resting_;
  Commands commands_;
  platform::ControlList<platform::CommandButton> buttons_;
  platform::ControlList<platform::Menu> menus_;  // one for each action
  std::vector<platform::Menu*> pop_ups_;         // one for each button
};

}  // namespace tabulon
