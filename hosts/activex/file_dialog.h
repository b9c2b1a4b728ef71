// The system's Open and Save dialogs.
//
//   const std::string name = ask_for_file(window, {platform::FileDialog::Purpose::Open, "Openen",
//                                                  "Simplex tableau|*.tbl", "*.tbl"});
//
// Returns when the user has chosen; until then it dispatches the messages of all windows.
#pragma once

#include <windows.h>

#include <string>

#include "platform/host.h"

namespace tabulon::activex {

// The name chosen, or the one in `dialog` if the user cancelled.
std::string ask_for_file(HWND owner, const platform::FileDialog& dialog);

}  // namespace tabulon::activex
