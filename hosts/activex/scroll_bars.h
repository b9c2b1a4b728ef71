// Scroll bars of the system. Their values grow towards the end, so a bar whose values fall uses the
// negatives.
//
//   show_range(window, bar);
//   if (const auto value = value_after(SB_LINEDOWN, window, bar)) desk.scroll(bar, *value);
#pragma once

#include <windows.h>

#include <optional>

#include "platform/controls.h"

namespace tabulon::activex {

void show_range(HWND window, const platform::ScrollBar& bar);
// The value that an SB_ code asks for; nothing if the code changes no value.
std::optional<int> value_after(int code, HWND window, const platform::ScrollBar& bar);

}  // namespace tabulon::activex
