// Scroll bars of the system. Those rise to their end, so a bar that falls shows the negatives of its numbers.
//
//   show_range(window, bar);
//   if (const auto value = value_after(SB_LINEDOWN, window, bar)) desk.scroll(bar, *value);
#pragma once

#include <windows.h>

#include <optional>

#include "platform/controls.h"

namespace tabulon::activex {

void show_range(HWND window, const platform::ScrollBar& bar);
// What the person wants by an SB_ code; nothing for a code that wants no other value.
std::optional<int> value_after(int code, HWND window, const platform::ScrollBar& bar);

}  // namespace tabulon::activex
