// The density of this screen; positions in tests are given in pixels at 96 dots per inch.
//
//   MoveWindow(window, scaled(20), scaled(340), scaled(200), scaled(24), TRUE);
#pragma once

#include <windows.h>

namespace tabulon {

inline int dpi_of_screen() {
  HDC const screen = GetDC(nullptr);
  const int dpi = GetDeviceCaps(screen, LOGPIXELSX);
  ReleaseDC(nullptr, screen);
  return dpi;
}

inline int scaled(LONG pixels) {
  return MulDiv(pixels, dpi_of_screen(), 96);
}

}  // namespace tabulon
