// A clock that is set back while the control counts a second by it: the control waits on, the program around
// it lives, and the control can be taken out of it.
#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <string_view>

#include "com_player.h"
#include "own_clock.h"
#include "patience.h"
#include "stage.h"

namespace tabulon::activex {
namespace {

std::atomic<int> times_asked = 0;

// Right once, and from then on an hour late; counted from noon, for an hour before midnight is no earlier.
void WINAPI set_back_clock(LPSYSTEMTIME now) {
  noon_clock(now);
  if (++times_asked > 1) --now->wHour;
}

TEST(AClockSetBackInAContainer, KeepsTheControlBusyAndLeavesAProgramThatLives) {
  on_stage({}, [](Container& container, Person& person) {
    ComPlayer player(container, person, {});
    const auto play = [&](std::string_view lines) {
      for (const auto& command : scenarios::read_scenario(lines)) player.play(command);
    };
    play(
        "page\n  prmSTR_DLfunctie = \"-1, -1\"\n  prmSTR_KleinerGelijkVglen = \" 1, 0, 0, 1\"\n"
        "  prmSTR_RL = \" 1, 1\"\nshow\npress Alt+W A\nsee form frmMelding");
    times_asked = 0;
    const OwnClock clock(set_back_clock);
    ASSERT_TRUE(clock);
    play("press Enter\nsee no form\nsee busy");
    EXPECT_TRUE(comes([] { return times_asked >= 2; })) << "the control has not looked at the clock again";

    // The program's own box takes the keyboard, and what is typed.
    RECT box{};
    GetWindowRect(container.own_box(), &box);
    person.click({(box.left + box.right) / 2, (box.top + box.bottom) / 2});
    person.type(L"abc");
    EXPECT_TRUE(person.wait_until_idle());
    wchar_t text[8]{};
    GetWindowTextW(container.own_box(), text, 8);
    EXPECT_EQ(std::wstring(text), L"abc");
    play("see busy");
    player.end();
    for (const std::string& failure : player.failures()) ADD_FAILURE() << failure;
  });  // which takes the control out of the container, and ends
}

}  // namespace
}  // namespace tabulon::activex
