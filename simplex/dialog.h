// What the dialogs that ask for something have in common: DialoogOK tells how they were closed, and spin bars
// show their number in a box or label beside them.
//
// A spin bar that gets the focus passes it on and becomes the current one: the arrow keys, Page Up and
// Page Down, Home and End turn it, Tab goes to the next bar or button.
#pragma once

#include <string>
#include <vector>

#include "control/basSafeCtl.h"
#include "simplex/focus_form.h"

namespace tabulon {

class Dialog : public FocusForm {
 public:
  void on_load() override;  // DialoogOK is False until OK is pressed
  platform::Task<> on_activate() override;
  platform::Task<> on_click(platform::Control& control) override;
  void on_change(platform::Control& control) override;
  platform::Task<> on_got_focus(platform::Control& control) override;
  platform::Task<> on_key_down(platform::KeyPress& press, bool& used) override;

 protected:
  Dialog(Surface& owner, std::string_view name, platform::Twips width, platform::Twips height,
         std::string_view caption, basSafeCtl& model);

  // Adds a spin bar: its largest number at the top, the number shown in `display`, `name` its spoken name.
  void add_spin_bar(platform::VScrollBar& bar, platform::Control& display, std::string_view name);
  // Gives a bar its ends and its value; a value beyond an end starts at that end.
  void start_spin_bar(platform::VScrollBar& bar, int top, int bottom, int value);
  void set_ends(platform::VScrollBar& bar, int top, int bottom);
  // Puts the buttons in the tab order behind the bars.
  void finish_tab_order();

  basSafeCtl& model() { return model_; }
  // Hands the result to the model; DialoogOK is set afterwards.
  virtual void on_ok() {}
  virtual void on_spin(const platform::VScrollBar&) {}

 private:
  struct Spin {
    platform::VScrollBar* bar;
    platform::Control* display;
    std::string_view name;
  };
  const Spin* spin_of(const platform::Control* control) const;
  void show_number(const Spin& spin);
  void make_current(const Spin& spin);
  platform::Task<> tab(bool backward);
  bool turn(platform::VScrollBar& bar, int code);

  basSafeCtl& model_;
  std::vector<Spin> spins_;
  const platform::VScrollBar* current_ = nullptr;
};

}  // namespace tabulon
