// The module (DLL) that this code is in.
//
//   CreateWindowExW(0, surface_class, nullptr, style, 0, 0, 0, 0, parent, nullptr, this_module(), nullptr);
#pragma once

#include <windows.h>

#include <string>

namespace tabulon::activex {

HINSTANCE this_module();
// The path of its file.
std::wstring module_path();

}  // namespace tabulon::activex
