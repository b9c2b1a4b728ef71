// Text between Tabulon and the system: UTF-8 here, UTF-16 there.
//
//   SetWindowTextW(window, wide("Maximum – keuze").c_str());
//   const std::string name = narrow(buffer);
//
// Invalid input becomes U+FFFD.
#pragma once

#include <string>
#include <string_view>

namespace tabulon::activex {

std::wstring wide(std::string_view utf8);
std::string narrow(std::wstring_view utf16);

}  // namespace tabulon::activex
