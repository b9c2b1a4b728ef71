#include "hosts/activex/focus_watch.h"

namespace tabulon::activex {

void FocusWatch::arrived(platform::Control* on) const {
  const Services& services = view_.services;
  if (!view_.surface || services.focus.moves_focus()) return;
  services.dispatcher.handle([&] {
    if (!view_.surface->has_focus()) services.focus.focus_came(*view_.surface);
    if (on && view_.surface && on != view_.surface->active()) services.desk.focus(*on);
  });
}

// A window that is deactivated, or waits for a dialog of its own, keeps its focus for when it is active
// again.
void FocusWatch::left(HWND to) const {
  FocusOwner& focus = view_.services.focus;
  if (!view_.is_control() || focus.moves_focus() || focus.form_is_open()) return;
  HWND const window = view_.window;
  if (!to || to == window || IsChild(window, to) || !IsWindowEnabled(GetAncestor(window, GA_ROOT))) return;
  if (GetWindowThreadProcessId(to, nullptr) != GetCurrentThreadId() || !view_.surface->has_focus()) return;
  view_.services.dispatcher.handle([&] { focus.focus_went(*view_.surface); });
}

void FocusWatch::mouse_pressed() const {
  FocusOwner& focus = view_.services.focus;
  if (view_.is_control() && !view_.surface->has_focus() && !focus.form_is_open())
    focus.focus_came(*view_.surface);
}

}  // namespace tabulon::activex
