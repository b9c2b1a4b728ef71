// The person goes on where a busy system loses what was done.
#include <gtest/gtest.h>

#include <utility>

#include "eyes.h"
#include "patience.h"
#include "stage.h"

namespace tabulon::activex {
namespace {

bool once = false;
WNDPROC frame_procedure = nullptr;

LRESULT CALLBACK eat_a_press_once(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
  if (message == WM_MOUSEACTIVATE && !std::exchange(once, true)) return MA_NOACTIVATEANDEAT;
  return CallWindowProcW(frame_procedure, window, message, wparam, lparam);
}

// Before the letter comes.
LRESULT CALLBACK let_go_of_alt_once(int code, WPARAM message, LPARAM data) {
  const auto& key = *reinterpret_cast<const KBDLLHOOKSTRUCT*>(data);
  if (code == HC_ACTION && key.vkCode == 'B' && !std::exchange(once, true))
    keybd_event(VK_MENU, 0, KEYEVENTF_KEYUP, 0);
  return CallNextHookEx(nullptr, code, message, data);
}

bool has_focus(const Container& container, HWND window) {
  GUITHREADINFO thread{};
  thread.cbSize = sizeof thread;
  GetGUIThreadInfo(GetWindowThreadProcessId(container.frame(), nullptr), &thread);
  return thread.hwndFocus == window;
}

class APerson : public testing::Test {
 protected:
  void SetUp() override { once = false; }
};

TEST_F(APerson, ClicksAgainWhereTheClickWasEaten) {
  on_stage({}, [](Container& container, Person& person) {
    EXPECT_TRUE(container.thread().run([&] {
      container.show({});
      frame_procedure = reinterpret_cast<WNDPROC>(
          SetWindowLongPtrW(container.frame(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&eat_a_press_once)));
    }));
    RECT box{};
    GetWindowRect(container.own_box(), &box);
    person.click({(box.left + box.right) / 2, (box.top + box.bottom) / 2});
    EXPECT_TRUE(person.wait_until_idle());
    EXPECT_TRUE(once);
    EXPECT_TRUE(has_focus(container, container.own_box()));
  });
}

TEST_F(APerson, PressesAgainWhereTheHeldKeyWasLetGo) {
  on_stage({}, [](Container& container, Person& person) {
    HHOOK hook = nullptr;
    EXPECT_TRUE(container.thread().run([&] {
      container.show({});
      hook = SetWindowsHookExW(WH_KEYBOARD_LL, let_go_of_alt_once, GetModuleHandleW(nullptr), 0);
    }));
    const Eyes eyes(container.surface());
    person.press({'B', Person::alt});
    EXPECT_TRUE(person.wait_until_idle());
    EXPECT_TRUE(once);
    EXPECT_TRUE(comes([&] { return !eyes.menus().empty(); }));
    person.press({VK_ESCAPE});
    EXPECT_TRUE(person.wait_until_idle());
    UnhookWindowsHookEx(hook);
  });
}

}  // namespace
}  // namespace tabulon::activex
