// The keys that come to a surface's windows: a script may change them, the desk has the first use of them,
// and Tab may lead out of the control.
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

  // A press, a release or a character; true when it is not to do anything else. A script may have made it
  // another character.
  bool handle(MSG& key);
  // True when the key was used or passed on.
  bool press(const MSG& key);

 private:
  bool release(const MSG& key);
  bool write(MSG& key);
  bool offer(const MSG& key);
  bool leave_by_tab(const MSG& key);

  const ViewState& view_;
  bool alt_used_ = false;  // Alt was held for a key of ours, so letting it go opens no menu of the container
  MSG refused_{};          // the last key that was of no use here, so that it is offered once
};

}  // namespace tabulon::activex
