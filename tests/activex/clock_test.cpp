// A clock that is set back while the control counts a second by it: the control waits on, the program around
// it lives, and the control can be taken out of it.
#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <string_view>

#include "com_player.h"
#include "patience.h"
#include "stage.h"

namespace tabulon::activex {
namespace {

using LocalTime = void(WINAPI*)(LPSYSTEMTIME);

std::atomic<int> times_asked = 0;

// Right once, and from then on an hour late.
void WINAPI set_back_clock(LPSYSTEMTIME now) {
  GetLocalTime(now);
  if (++times_asked > 1) now->wHour = static_cast<WORD>((now->wHour + 23) % 24);
}

// The place where a library keeps the address of a function of another that it calls.
template <class Function>
Function* imported(HMODULE library, Function function) {
  auto* const base = reinterpret_cast<std::byte*>(library);
  const auto& dos = *reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
  const auto& headers = *reinterpret_cast<const IMAGE_NT_HEADERS*>(base + dos.e_lfanew);
  const DWORD table = headers.OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT].VirtualAddress;
  for (auto* from = reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR*>(base + table); from->Name != 0; ++from)
    for (auto* place = reinterpret_cast<Function*>(base + from->FirstThunk); *place; ++place)
      if (*place == function) return place;
  return nullptr;
}

// While it lives, the control's library asks the clock that is set back.
class SetBackClock {
 public:
  SetBackClock() : place_(imported<LocalTime>(GetModuleHandleW(L"Tabulon.ocx"), right_clock())) {
    times_asked = 0;
    if (place_) write(set_back_clock);
  }
  ~SetBackClock() {
    if (place_) write(right_clock());
  }
  SetBackClock(const SetBackClock&) = delete;
  SetBackClock& operator=(const SetBackClock&) = delete;
  explicit operator bool() const { return place_ != nullptr; }

 private:
  static LocalTime right_clock() {
    return reinterpret_cast<LocalTime>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"kernel32.dll"), "GetLocalTime")));
  }
  void write(LocalTime function) {
    DWORD before = 0;
    VirtualProtect(static_cast<void*>(place_), sizeof *place_, PAGE_READWRITE, &before);
    *place_ = function;
    VirtualProtect(static_cast<void*>(place_), sizeof *place_, before, &before);
  }

  LocalTime* place_;
};

TEST(AClockSetBackInAContainer, KeepsTheControlBusyAndLeavesAProgramThatLives) {
  on_stage({}, [](Container& container, Person& person) {
    ComPlayer player(container, person, {});
    const auto play = [&](std::string_view lines) {
      for (const auto& command : scenarios::read_scenario(lines)) player.play(command);
    };
    play(
        "page\n  prmSTR_DLfunctie = \"-1, -1\"\n  prmSTR_KleinerGelijkVglen = \" 1, 0, 0, 1\"\n"
        "  prmSTR_RL = \" 1, 1\"\nshow\npress Alt+W A\nsee form frmMelding");
    const SetBackClock clock;
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
