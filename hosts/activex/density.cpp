#include "hosts/activex/density.h"

namespace tabulon::activex {

namespace {

// Null on older systems, which lack the function.
template <class Function>
Function function_of_user(const char* name) {
  return reinterpret_cast<Function>(
      reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"user32.dll"), name)));
}

}  // namespace

int dpi_of(HWND window) {
  using GetDpi = UINT(WINAPI*)(HWND);
  static const auto get_dpi = function_of_user<GetDpi>("GetDpiForWindow");
  if (window && get_dpi)
    if (const UINT dpi = get_dpi(window)) return static_cast<int>(dpi);
  HDC const screen = GetDC(nullptr);
  const int dpi = GetDeviceCaps(screen, LOGPIXELSY);
  ReleaseDC(nullptr, screen);
  return dpi;
}

void add_frame(RECT& place, DWORD style, DWORD extended_style, int dpi) {
  using AdjustForDpi = BOOL(WINAPI*)(LPRECT, DWORD, BOOL, DWORD, UINT);
  static const auto adjust_for_dpi = function_of_user<AdjustForDpi>("AdjustWindowRectExForDpi");
  if (!adjust_for_dpi || !adjust_for_dpi(&place, style, FALSE, extended_style, static_cast<UINT>(dpi)))
    AdjustWindowRectEx(&place, style, FALSE, extended_style);
}

}  // namespace tabulon::activex
