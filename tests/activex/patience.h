// How long the tests wait for what must come. It comes at once on a quiet machine; a busy one may take its
// time, and only a test that fails waits to the end.
//
//   EXPECT_TRUE(comes([&] { return visit.seen("HScroll").value >= 4; }));
#pragma once

#include <windows.h>

#include <chrono>

namespace tabulon::activex {

inline constexpr std::chrono::seconds patience{30};
inline constexpr UINT patience_in_milliseconds = std::chrono::milliseconds(patience).count();

// On a thread that has no windows: nothing is dispatched meanwhile.
template <class Is>
bool comes(Is is) {
  for (const auto end = std::chrono::steady_clock::now() + patience; !is(); Sleep(10))
    if (std::chrono::steady_clock::now() > end) return false;
  return true;
}

}  // namespace tabulon::activex
