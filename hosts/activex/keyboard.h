// The keys pressed in a surface's windows: a script may change them, then the desk may use them, and Tab may
// lead out of the control.
//
//   Keyboard keyboard(view);
//   if (keyboard.handle(key)) return 0;   // used
#pragma once

#include <windows.h>

#include "hosts/activex/view_state.h"

namespace tabulon::activex {

class Keyboard {
 public:
  explicit Keyboard(const ViewState& view) : view_(view) {}
  Keyboard(const Keyboard&) = delete;

  // Handles a press, a release or a character; true if nothing else may come of it. A script may replace the
  // character in `key`.
  bool handle(MSG& key);
  // True if the key was used here or by the container.
  bool press(const MSG& key);

 private:
  bool release(const MSG& key);
  bool write(MSG& key);
  bool offer(const MSG& key);
  bool leave_by_tab(const MSG& key);

  const ViewState& view_;
  bool alt_used_ = false;  // with a key of ours, so that releasing Alt opens no menu of the container
  MSG refused_{};          // the last key not used here, so that it is not offered twice
};

}  // namespace tabulon::activex
