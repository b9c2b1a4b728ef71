// A picture of what is on the screen, for whoever wants to look at a test.
//
//   save_picture_of(frame, "first-tableau.bmp");
#pragma once

#include <windows.h>

#include <string>

namespace tabulon::activex {

// The screen where the window lies, with what lies over it. False where it cannot be written.
bool save_picture_of(HWND window, const std::string& file);

}  // namespace tabulon::activex
