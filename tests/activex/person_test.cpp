// The person goes on where a busy system loses what was done.
#include <gtest/gtest.h>

#include <string>

#include "eyes.h"
#include "patience.h"
#include "stage.h"

namespace tabulon::activex {
namespace {

// As a busy system loses several in a row.
constexpr int times = 5;
int lost = 0;
WNDPROC frame_procedure = nullptr;

LRESULT CALLBACK eat_presses(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
  if (message == WM_MOUSEACTIVATE && lost < times) {
    ++lost;
    return MA_NOACTIVATEANDEAT;
  }
  return CallWindowProcW(frame_procedure, window, message, wparam, lparam);
}

// Before the letter comes.
LRESULT CALLBACK let_go_of_alt(int code, WPARAM message, LPARAM data) {
  const auto& key = *reinterpret_cast<const KBDLLHOOKSTRUCT*>(data);
  const bool is_pressed = code == HC_ACTION && key.vkCode == 'B' && (key.flags & LLKHF_UP) == 0;
  if (is_pressed && lost < times) {
    ++lost;
    keybd_event(VK_MENU, 0, KEYEVENTF_KEYUP, 0);
  }
  return CallNextHookEx(nullptr, code, message, data);
}

HWND focus_of(const Container& container) {
  GUITHREADINFO thread{};
  thread.cbSize = sizeof thread;
  GetGUIThreadInfo(GetWindowThreadProcessId(container.frame(), nullptr), &thread);
  return thread.hwndFocus;
}

std::string class_of(HWND window) {
  char name[64] = "none";
  GetClassNameA(window, name, sizeof name);
  return name;
}

class APerson : public testing::Test {
 protected:
  void SetUp() override { lost = 0; }
};

TEST_F(APerson, ClicksAgainWhereTheClickWasEaten) {
  on_stage({}, [](Container& container, Person& person) {
    EXPECT_TRUE(container.thread().run([&] {
      container.show({});
      frame_procedure = reinterpret_cast<WNDPROC>(
          SetWindowLongPtrW(container.frame(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&eat_presses)));
    }));
    RECT box{};
    GetWindowRect(container.own_box(), &box);
    person.click({(box.left + box.right) / 2, (box.top + box.bottom) / 2});
    EXPECT_TRUE(person.wait_until_idle());
    EXPECT_EQ(lost, times);
    EXPECT_TRUE(comes([&] { return focus_of(container) == container.own_box(); }))
        << "the focus is in a window of the class " << class_of(focus_of(container));
  });
}

TEST_F(APerson, PressesAgainWhereTheHeldKeyWasLetGo) {
  on_stage({}, [](Container& container, Person& person) {
    HHOOK hook = nullptr;
    EXPECT_TRUE(container.thread().run([&] {
      container.show({});
      hook = SetWindowsHookExW(WH_KEYBOARD_LL, let_go_of_alt, GetModuleHandleW(nullptr), 0);
    }));
    const Eyes eyes(container.surface());
    person.press({'B', Person::alt});
    EXPECT_TRUE(person.wait_until_idle());
    EXPECT_EQ(lost, times);
    EXPECT_TRUE(comes([&] { return !eyes.menus().empty(); }));
    person.press({VK_ESCAPE});
    EXPECT_TRUE(person.wait_until_idle());
    UnhookWindowsHookEx(hook);
  });
}

}  // namespace
}  // namespace tabulon::activex
