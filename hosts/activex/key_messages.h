// The keyboard as messages have it.
//
//   if (is_key_message(message)) ...
#pragma once

#include <windows.h>

namespace tabulon::activex {

bool is_key_press(UINT message);
// A press, a release, or the character that came of a press.
bool is_key_message(UINT message);
// The message as a loop of messages would have it, of the event that is being handled.
MSG current_message(HWND window, UINT message, WPARAM wparam, LPARAM lparam);

bool is_down(int key);
// The modifiers that are held, as platform/keys.h has them.
int pressed_modifiers();

}  // namespace tabulon::activex
