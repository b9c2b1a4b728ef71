// The system's dialogs that ask for the name of a file.
//
//   const std::string name = ask_for_file(window, {platform::FileDialog::Purpose::Open, "Openen",
//                                                  "Simplex tableau|*.tbl", "*.tbl"});
//
// Returns when the person has chosen; until then it runs the messages of every window.
#pragma once

#include <windows.h>

#include <string>

#include "platform/host.h"

namespace tabulon::activex {

// The name that the person chose, or that of `dialog` when there was none.
std::string ask_for_file(HWND owner, const platform::FileDialog& dialog);

}  // namespace tabulon::activex
