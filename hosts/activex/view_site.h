// What stands around the windows of a control: the form or page that it was put on, and the scripts there.
#pragma once

#include <windows.h>

#include <oaidl.h>

namespace tabulon::activex {

class ViewSite {
 public:
  virtual ~ViewSite() = default;

  virtual void focus_changed(bool has_focus) = 0;
  // A modal form opens (false) or has closed.
  virtual void enable_modeless(bool enabled) = 0;
  // A key that the control has no use for; true when the container had.
  virtual bool pass_on(const MSG& key) = 0;
  // Without windows the control is a picture, and that is to be drawn anew.
  virtual void picture_changed() = 0;

  // ---- Events. `modifiers` has 1 for Shift, 2 for Ctrl, 4 for Alt; `x` and `y` are pixels from the
  // control's corner.
  virtual void fire_click(DISPID event) = 0;
  // The key's code, or the character's; a script may change it, and 0 keeps it from the control.
  virtual short fire_key(DISPID event, short code, short modifiers) = 0;
  virtual void fire_mouse(DISPID event, short button, short modifiers, POINT at) = 0;
};

}  // namespace tabulon::activex
