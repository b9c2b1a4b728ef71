// Keyboard messages.
//
//   if (is_key_message(message)) ...
#pragma once

#include <windows.h>

namespace tabulon::activex {

bool is_key_press(UINT message);
// A press, a release, or the character that a press produced.
bool is_key_message(UINT message);
// The message being handled, as a message loop would have retrieved it.
MSG current_message(HWND window, UINT message, WPARAM wparam, LPARAM lparam);

bool is_down(int key);
// The modifiers held down, as a combination of those in platform/keys.h.
int pressed_modifiers();

}  // namespace tabulon::activex
