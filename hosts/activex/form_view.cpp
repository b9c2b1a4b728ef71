#include "hosts/activex/form_view.h"

#include <algorithm>
#include <utility>

#include "hosts/activex/density.h"
#include "hosts/activex/names.h"
#include "hosts/activex/pixels.h"
#include "hosts/activex/text.h"
#include "hosts/activex/window_text.h"

namespace tabulon::activex {

namespace {

constexpr DWORD form_style = WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_CLIPCHILDREN;
constexpr DWORD form_extended_style = WS_EX_DLGMODALFRAME;

// The nearest place that is entirely on the screen.
RECT within_screen(RECT place, HWND near_to) {
  MONITORINFO monitor{};
  monitor.cbSize = sizeof monitor;
  GetMonitorInfoW(MonitorFromWindow(near_to, MONITOR_DEFAULTTONEAREST), &monitor);
  const RECT& screen = monitor.rcWork;
  OffsetRect(&place, std::min(0L, screen.right - place.right), std::min(0L, screen.bottom - place.bottom));
  OffsetRect(&place, std::max(0L, screen.left - place.left), std::max(0L, screen.top - place.top));
  return place;
}

// With its middle where it is wanted.
RECT around(POINT middle, RECT place) {
  OffsetRect(&place, middle.x - (place.left + place.right) / 2, middle.y - (place.top + place.bottom) / 2);
  return place;
}

POINT middle_of(HWND window) {
  RECT place{};
  GetWindowRect(window, &place);
  return {(place.left + place.right) / 2, (place.top + place.bottom) / 2};
}

}  // namespace

FormView::FormView(const Services& services, platform::Form& form, ViewSite& site,
                   std::function<void()> given_up)
    : SurfaceView(services, form, site), given_up_(std::move(given_up)) {}

bool FormView::open_over(HWND over) {
  owner_ = over ? GetAncestor(over, GA_ROOT) : nullptr;
  set_dpi(dpi_of(over));
  RECT place{0, 0, size().cx, size().cy};
  add_edge(place);
  const POINT middle = over ? middle_on(over, place) : middle_of(GetDesktopWindow());
  return create({form_class, form_style, form_extended_style}, within_screen(around(middle, place), over),
                owner_);
}

// The form's own place is that of its window's corner.
POINT FormView::middle_on(HWND over, const RECT& window) const {
  const platform::Point corner = static_cast<const platform::Form&>(*surface()).place();
  POINT middle{pixels_at(corner.x, dpi()) + (window.right - window.left) / 2,
               pixels_at(corner.y, dpi()) + (window.bottom - window.top) / 2};
  ClientToScreen(over, &middle);
  return middle;
}

void FormView::add_edge(RECT& inside) const {
  add_frame(inside, form_style, form_extended_style, dpi());
}

void FormView::show() {
  if (!window() || IsWindowVisible(window())) return;
  disabled_owner_ = owner_ && !EnableWindow(owner_, FALSE);
  ShowWindow(window(), SW_SHOW);
}

// The owner is enabled first: a window that is hidden hands the keyboard to one that accepts it.
void FormView::detach() {
  SurfaceView::detach();
  if (!window()) return;
  if (std::exchange(disabled_owner_, false)) EnableWindow(owner_, TRUE);
  if (owner_ && GetActiveWindow() == window()) SetActiveWindow(owner_);
  ShowWindow(window(), SW_HIDE);
}

void FormView::mirror() {
  if (!surface() || !window()) return;
  mirror_controls();
  const std::wstring caption = wide(static_cast<const platform::Form&>(*surface()).caption());
  if (window_text(window()) != caption) SetWindowTextW(window(), caption.c_str());
}

void FormView::on_destroyed() {
  if (surface()) services().dispatcher.after_event(given_up_);
}

}  // namespace tabulon::activex
