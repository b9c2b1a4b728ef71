// Pop-up menus of the system.
//
//   if (Menu* const chosen = track_popup_menu(session, window, 96)) desk.menu_choose(*chosen);
#pragma once

#include <windows.h>

#include "platform/menu_session.h"

namespace tabulon::activex {

// Shows the session's menu over its surface's window and returns the item chosen, or null if the menu was
// dismissed. Messages are dispatched meanwhile.
platform::Menu* track_popup_menu(const platform::MenuSession& session, HWND window, int dpi);
// Closes the menu that is open over this window, if any.
void end_menu_over(HWND window);

}  // namespace tabulon::activex
