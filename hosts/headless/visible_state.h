// What a person sees of a control, its open forms and its open menu, as text.
//
//   visible_state(host, control) ==
//       "LPctrl 600x296\n"
//       "txtRL[1] text \" 12\" at 493,105 82x23 back 218,220,254 locked\n"
//       ...
//       "focus txtFocus\n"
//
// It holds what every host can show: of each shown control its name, kind, text, place in pixels, back
// colour, tool tip, and whether it is locked or disabled; controls stand in the order of name and index.
// Scroll bars show their lowest and highest number and their value, menus their items. A test on another host
// writes the same from what that host shows, and the two texts must be equal.
#pragma once

#include <string>

#include "hosts/headless/headless_host.h"

namespace tabulon::platform {

std::string visible_state(const HeadlessHost& host, const Surface& control);

}  // namespace tabulon::platform
