// A pop-up menu of the system.
//
//   if (Menu* const chosen = track_popup_menu(session, window, 96)) desk.menu_choose(*chosen);
#pragma once

#include <windows.h>

#include "platform/menu_session.h"

namespace tabulon::activex {

// Shows the session's menu over the window of its surface, and returns the item that the person has chosen;
// null when the menu was dismissed. Messages go on meanwhile.
platform::Menu* track_popup_menu(const platform::MenuSession& session, HWND window, int dpi);
// The window goes, and a menu over it with it.
void end_menu_over(HWND window);

}  // namespace tabulon::activex
