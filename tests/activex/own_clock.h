// A clock of the test's own: while it lives, the control's library asks it for the time of the day.
//
//   const OwnClock clock(noon_clock);   // in a process that has loaded the control
//   ASSERT_TRUE(clock);
#pragma once

#include <windows.h>

namespace tabulon::activex {

class OwnClock {
 public:
  using LocalTime = void(WINAPI*)(LPSYSTEMTIME);

  explicit OwnClock(LocalTime tell);
  ~OwnClock();
  OwnClock(const OwnClock&) = delete;
  OwnClock& operator=(const OwnClock&) = delete;
  // Whether the control's library is there and asks.
  explicit operator bool() const { return place_ != nullptr; }

 private:
  void write(LocalTime function);

  LocalTime* place_;
};

// Goes as the machine's clock does, and was at noon when it was asked first: midnight is far away.
void WINAPI noon_clock(LPSYSTEMTIME now);

}  // namespace tabulon::activex
