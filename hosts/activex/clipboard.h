// The system's clipboard.
//
//   clear_clipboard(window);
//   if (!copy_picture(window, picture, letters, 96)) return;   // another program holds it
#pragma once

#include <windows.h>

#include "platform/host.h"

namespace tabulon::activex {

// `owner`: a window of this process, which then owns the content.
void clear_clipboard(HWND owner);
// Replaces the content by the drawing on a white background, at `dpi` pixels per inch; `letters` is the font
// of its texts at that density. False if the system refuses: the clipboard is then unchanged or empty.
bool copy_picture(HWND owner, const platform::ClipboardPicture& picture, HFONT letters, int dpi);

}  // namespace tabulon::activex
