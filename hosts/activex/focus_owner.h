// Which surface of the process has the keyboard, as the surfaces' windows ask and report it.
#pragma once

#include "platform/surface.h"

namespace tabulon::activex {

class FocusOwner {
 public:
  virtual ~FocusOwner() = default;

  virtual bool form_is_open() const = 0;
  // True while the host itself is moving the focus.
  virtual bool moves_focus() const = 0;
  virtual void focus_came(platform::Surface& surface) = 0;
  virtual void focus_went(platform::Surface& surface) = 0;
  // Whether a key that repeats was first pressed while the same surface was on top.
  virtual bool is_meant_for_top(bool repeated) = 0;
};

}  // namespace tabulon::activex
