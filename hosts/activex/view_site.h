// What surrounds a control's windows: the form or page that contains it, and the scripts listening there.
#pragma once

#include <windows.h>

#include <oaidl.h>

namespace tabulon::activex {

class ViewSite {
 public:
  virtual ~ViewSite() = default;

  virtual void focus_changed(bool has_focus) = 0;
  // Called with false before a modal form opens, with true after it has closed.
  virtual void enable_modeless(bool enabled) = 0;
  // Offers the container a key that the control did not use; true if it used it.
  virtual bool pass_on(const MSG& key) = 0;
  // Called when the control's picture, shown where it has no windows, must be redrawn.
  virtual void picture_changed() = 0;

  // ---- Events. `modifiers` has 1 for Shift, 2 for Ctrl, 4 for Alt; `x` and `y` are pixels from the
  // control's corner.
  virtual void fire_click(DISPID event) = 0;
  // Answers the code of the key or character, which a script may have changed; 0 suppresses it.
  virtual short fire_key(DISPID event, short code, short modifiers) = 0;
  virtual void fire_mouse(DISPID event, short button, short modifiers, POINT at) = 0;
};

}  // namespace tabulon::activex
