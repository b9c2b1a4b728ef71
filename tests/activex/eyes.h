// What a user sees of the control, read from its windows, menus and tool tips alone.
//
//   Eyes eyes(container.surface());
//   eyes.state();                                // the whole, as the headless host writes it
//   (visible_state.h) eyes.find("txtRL", 2)->text == " 12";
//
// Works from any thread. Whatever the window's thread does not answer in time appears empty.
#pragma once

#include <windows.h>

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "control/LPctrl.h"
#include "hosts/headless/headless_host.h"
#include "simplex/message_form.h"

namespace tabulon::activex {

// A control as its window shows it, or an item of an open menu.
struct Seen {
  std::string name;
  int index = 0;     // from 1 in a control array, else 0
  std::string kind;  // "label", "text", "vscroll", ...; "menu" for an item
  HWND window = nullptr;
  RECT box{};  // on the screen
  bool shown = false, locked = false, disabled = false, checked = false, highlighted = false;
  std::string text, back, tip;
  int low = 0, high = 0, value = 0;  // of a scroll bar
};

// A form or an open menu.
struct Opened {
  std::string name;
  std::string caption;
  HWND window = nullptr;
};

class Eyes {
 public:
  explicit Eyes(HWND surface);

  // Everything, as text.
  std::string state() const;

  // A control of the form on top or of the surface, or an item of an open menu, in that order of preference:
  // item, form, surface. Nothing if there is no such window.
  std::optional<Seen> find(std::string_view name, int index) const;
  // Whether the surface has a control of that name, visible or not.
  bool exists(std::string_view name, int index) const { return control_.find(name, index) != nullptr; }

  std::vector<Opened> forms() const;  // the last one is on top
  std::vector<Opened> menus() const;  // the innermost is last
  // The control that has the focus, named as in a dump; empty if none has it.
  std::string focus() const;
  bool is_busy() const;
  // Pixels of a drawing as pixels of the screen.
  int device(int pixels) const { return MulDiv(pixels, dpi_, 96); }

 private:
  struct OpenMenu {
    HWND window;
    HMENU menu;
  };

  HWND top() const;
  HWND window_of(const std::string& name, HWND ground) const;
  bool is_picture(HWND window) const;
  Seen look_at(HWND window, HWND ground) const;
  const std::string& name_of(HWND window) const;
  std::string tip_of(HWND window, HWND ground) const;
  std::vector<Seen> lines_on(HWND ground) const;
  Seen look_at_line(const platform::Control& line, HWND container) const;
  std::vector<Seen> all_on(HWND ground) const;
  std::string controls_of(HWND ground) const;
  std::string line_of(const Seen& seen, HWND ground) const;
  std::vector<OpenMenu> open_menus() const;
  const platform::Control* item(UINT id) const;
  std::string menu_name(const std::vector<OpenMenu>& open, std::size_t at) const;
  std::string menu_lines() const;
  std::string item_line(const MENUITEMINFOW& info, bool is_highlighted) const;
  std::string size_of(HWND window) const;
  std::string place_of(const RECT& box, HWND ground) const;
  int pixels(LONG device) const;

  HWND surface_;
  DWORD thread_;
  int dpi_;
  mutable std::map<HWND, std::string> names_;
  // Know the names of what the menus show, and the lines.
  platform::HeadlessHost host_;
  basSafeCtl model_;
  LPctrl control_{host_.desk(), model_};
  MessageForm about_{control_, frmAboutLP, model_};
};

}  // namespace tabulon::activex
