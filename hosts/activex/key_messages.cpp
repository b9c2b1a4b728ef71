#include "hosts/activex/key_messages.h"

#include "platform/keys.h"

namespace tabulon::activex {

namespace modifier = platform::modifier;

bool is_key_press(UINT message) {
  return message == WM_KEYDOWN || message == WM_SYSKEYDOWN;
}

bool is_key_message(UINT message) {
  return is_key_press(message) || message == WM_KEYUP || message == WM_SYSKEYUP || message == WM_CHAR;
}

MSG current_message(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
  return {window, message, wparam, lparam, static_cast<DWORD>(GetMessageTime()), {}};
}

bool is_down(int key) {
  return GetKeyState(key) < 0;
}

int pressed_modifiers() {
  return (is_down(VK_SHIFT) ? modifier::shift : 0) + (is_down(VK_CONTROL) ? modifier::ctrl : 0) +
         (is_down(VK_MENU) ? modifier::alt : 0);
}

}  // namespace tabulon::activex
