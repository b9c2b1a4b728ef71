// A pop-up menu while it is open: what is highlighted, which submenus stand open, and what keys do.
//
//   MenuSession session(mnu_Bewerken, 60, 285);
//   session.key({'O'});                       // the access key of "&Optimaliseren"
//   session.over() && session.chosen() == &mnu_optimaliseren;
//
// Disabled items can be highlighted, so that everybody learns that they exist, but not chosen.
#pragma once

#include <vector>

#include "platform/controls.h"
#include "platform/keys.h"

namespace tabulon::platform {

class MenuSession {
 public:
  // `x` and `y` are the place of the pop-up's top left corner on its surface, in twips.
  MenuSession(Menu& menu, Twips x, Twips y) : x_(x), y_(y), open_{&menu} {}

  Twips x() const { return x_; }
  Twips y() const { return y_; }
  Surface& surface() const { return open_.front()->surface(); }
  // The pop-up and the submenus that stand open in it, outermost first.
  const std::vector<Menu*>& open() const { return open_; }
  // The item in the innermost open menu that the keyboard acts on; null at first.
  Menu* highlighted() const { return highlighted_; }

  bool over() const { return over_; }
  Menu* chosen() const { return chosen_; }  // null when the menu was dismissed

  void key(const KeyPress& press);
  void point_at(Menu& item);  // the pointer rests on the item
  void choose(Menu& item);    // a click or tap on the item
  void dismiss() { over_ = true; }

 private:
  void step(int direction);
  void jump(bool to_last);
  void letter(int code);
  void open_submenu(Menu& item);
  void close_submenu();
  bool holds(const Menu& item) const;

  Twips x_, y_;
  std::vector<Menu*> open_;
  Menu* highlighted_ = nullptr;
  Menu* chosen_ = nullptr;
  bool over_ = false;
};

}  // namespace tabulon::platform
