#include "hosts/activex/scroll_bars.h"

namespace tabulon::activex {

using platform::ScrollBar;

namespace {

int sign_of(const ScrollBar& bar) {
  return bar.min() > bar.max() ? -1 : 1;
}

// The value under the thumb while it is dragged.
int dragged_to(HWND window, const ScrollBar& bar) {
  SCROLLINFO info{};
  info.cbSize = sizeof info;
  info.fMask = SIF_TRACKPOS;
  GetScrollInfo(window, SB_CTL, &info);
  return sign_of(bar) * info.nTrackPos;
}

}  // namespace

void show_range(HWND window, const ScrollBar& bar) {
  const int sign = sign_of(bar);
  SCROLLINFO info{};
  info.cbSize = sizeof info;
  info.fMask = SIF_ALL | SIF_DISABLENOSCROLL;
  info.nMin = sign * bar.min();
  info.nMax = sign * bar.max() + bar.large_change() - 1;
  info.nPage = static_cast<UINT>(bar.large_change());
  info.nPos = sign * bar.value();
  SetScrollInfo(window, SB_CTL, &info, TRUE);
}

std::optional<int> value_after(int code, HWND window, const ScrollBar& bar) {
  switch (code) {
    case SB_LINEUP:
      return bar.stepped(-bar.small_change());
    case SB_LINEDOWN:
      return bar.stepped(bar.small_change());
    case SB_PAGEUP:
      return bar.stepped(-bar.large_change());
    case SB_PAGEDOWN:
      return bar.stepped(bar.large_change());
    case SB_TOP:
      return bar.min();
    case SB_BOTTOM:
      return bar.max();
    case SB_THUMBTRACK:
    case SB_THUMBPOSITION:
      return dragged_to(window, bar);
    default:
      return std::nullopt;
  }
}

}  // namespace tabulon::activex
