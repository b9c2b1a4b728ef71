#include "hosts/activex/keyboard.h"

#include <olectl.h>

#include <algorithm>
#include <iterator>
#include <utility>

#include "hosts/activex/key_messages.h"
#include "platform/keys.h"

namespace tabulon::activex {

using namespace platform;

namespace {

// The keys that surfaces handle; platform/keys.h uses the system's key codes.
constexpr int known_keys[] = {key::back,    key::tab,       key::enter, key::escape, key::space,
                              key::page_up, key::page_down, key::end,   key::home,   key::left,
                              key::up,      key::right,     key::down,  key::f10};

bool is_known(int code) {
  return (code >= '0' && code <= '9') || (code >= 'A' && code <= 'Z') ||
         std::ranges::find(known_keys, code) != std::end(known_keys);
}

bool is_repeated(const MSG& key) {
  return (key.lParam & (1 << 30)) != 0;
}

bool is_same(const MSG& one, const MSG& other) {
  return one.hwnd == other.hwnd && one.message == other.message && one.wParam == other.wParam &&
         one.lParam == other.lParam && one.time == other.time;
}

// Removes the characters that the key has already put in the queue.
void drop_characters(HWND window) {
  MSG character;
  while (PeekMessageW(&character, window, WM_CHAR, WM_DEADCHAR, PM_REMOVE) ||
         PeekMessageW(&character, window, WM_SYSCHAR, WM_SYSDEADCHAR, PM_REMOVE)) {
  }
}

}  // namespace

bool Keyboard::handle(MSG& key) {
  if (is_key_press(key.message)) return press(key);
  if (!view_.surface) return false;
  refused_ = {};
  return key.message == WM_CHAR ? write(key) : release(key);
}

bool Keyboard::press(const MSG& key) {
  if (!view_.surface || is_same(key, refused_)) return false;
  const bool used = view_.services.dispatcher.handle([&] {
    const bool taken = offer(key);
    if (taken) drop_characters(key.hwnd);
    if (!taken) refused_ = key;
    return taken;
  });
  return used || leave_by_tab(key);
}

bool Keyboard::offer(const MSG& pressed) {
  const int modifiers = pressed_modifiers();
  int code = static_cast<int>(pressed.wParam);
  if (view_.is_control())
    code = view_.site.fire_key(DISPID_KEYDOWN, static_cast<short>(code), static_cast<short>(modifiers));
  if (code == 0 || !view_.surface) return true;
  if (!is_known(code)) return false;
  const bool used = !view_.services.focus.is_meant_for_top(is_repeated(pressed)) ||
                    view_.services.desk.key(*view_.surface, {code, modifiers});
  alt_used_ = used && (modifiers & modifier::alt) != 0;
  return used;
}

bool Keyboard::release(const MSG& key) {
  if (view_.is_control())
    view_.site.fire_key(DISPID_KEYUP, static_cast<short>(key.wParam),
                        static_cast<short>(pressed_modifiers()));
  return key.wParam == VK_MENU && std::exchange(alt_used_, false);
}

// A single-line box only beeps at the characters of Tab, Enter and Escape.
bool Keyboard::write(MSG& key) {
  if (key.wParam == VK_TAB || key.wParam == VK_RETURN || key.wParam == VK_ESCAPE) return true;
  if (view_.is_control())
    key.wParam = static_cast<WORD>(view_.site.fire_key(DISPID_KEYPRESS, static_cast<short>(key.wParam), 0));
  return key.wParam == 0;
}

// Leaves the control for its neighbour in the container's tab order.
bool Keyboard::leave_by_tab(const MSG& key) {
  if (key.wParam != VK_TAB || !view_.is_control() || is_down(VK_CONTROL) || is_down(VK_MENU)) return false;
  if (view_.site.pass_on(key)) return true;
  HWND const window = view_.window;
  HWND const next = GetNextDlgTabItem(GetAncestor(window, GA_ROOT), window, is_down(VK_SHIFT));
  if (next && next != window && !IsChild(window, next) && !IsChild(next, window)) SetFocus(next);
  return true;
}

}  // namespace tabulon::activex
