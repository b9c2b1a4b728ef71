// Screenshots, for looking at what a test shows.
//
//   save_picture_of(frame, "first-tableau.bmp");
#pragma once

#include <windows.h>

#include <string>

namespace tabulon::activex {

// Saves the part of the screen with the window, and anything over it. False if the file cannot be written.
bool save_picture_of(HWND window, const std::string& file);

}  // namespace tabulon::activex
