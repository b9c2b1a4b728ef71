// Where the keyboard is among the surfaces of the process, as a surface's windows tell and ask it.
#pragma once

#include "platform/surface.h"

namespace tabulon::activex {

class FocusOwner {
 public:
  virtual ~FocusOwner() = default;

  virtual bool form_is_open() const = 0;
  // True while the host itself moves the focus.
  virtual bool moves_focus() const = 0;
  virtual void focus_came(platform::Surface& surface) = 0;
  virtual void focus_went(platform::Surface& surface) = 0;
  // Whether a key that is held down was first pressed on what is on top now.
  virtual bool is_meant_for_top(bool repeated) = 0;
};

}  // namespace tabulon::activex
