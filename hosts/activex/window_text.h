// Texts of windows, and answers to those who ask for them.
#pragma once

#include <windows.h>

#include <string>

#include "platform/controls.h"

namespace tabulon::activex {

// A window's text.
std::wstring window_text(HWND window);

// Answers hosts/activex/names.h's name message: the control's name, with its index: "txtTableau[3]".
LRESULT answer_name(const platform::Control& control, WPARAM at);
LRESULT answer_text(std::string_view text, WPARAM at);

}  // namespace tabulon::activex
