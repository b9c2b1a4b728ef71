// The system's clipboard.
//
//   clear_clipboard(window);
//   if (!copy_picture(window, picture, letters, 96)) return;   // another program holds it
#pragma once

#include <windows.h>

#include "platform/host.h"

namespace tabulon::activex {

// `owner` is a window of this process, to which the content then belongs.
void clear_clipboard(HWND owner);
// Puts the drawing there on white paper, `dpi` pixels to an inch, in place of what was there. `letters` are
// those of its texts, for the same dpi. False when the system refuses: then nothing is changed or all is
// gone.
bool copy_picture(HWND owner, const platform::ClipboardPicture& picture, HFONT letters, int dpi);

}  // namespace tabulon::activex
