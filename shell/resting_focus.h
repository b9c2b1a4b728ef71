// Where the focus rests while no cell is being edited: txtFocus, a box that cannot be seen and in which
// typing changes nothing. The title bar above the tableau shows whether the control has the focus at all.
//
//   if (co_await resting.take_focus()) co_await ...;   // false: a cell with bad input keeps the focus
#pragma once

#include "platform/surface.h"

namespace tabulon {

class RestingFocus {
 public:
  explicit RestingFocus(platform::Surface& surface);

  // Validates the cell that is being edited, which may refuse.
  platform::Task<bool> take_focus() { return surface_.set_focus(txtFocus); }
  void txtFocus_GotFocus();
  platform::Surface& surface() const { return surface_; }
  // Colours the title bar: -1 with the focus, 0 without; any other value changes nothing.
  void KleurFrameHead(std::int16_t Aan);

 private:
  platform::Surface& surface_;

 public:
  platform::Frame FrameHead{surface_, "FrameHead"};
  platform::TextBox txtFocus{surface_, "txtFocus"};
};

}  // namespace tabulon
