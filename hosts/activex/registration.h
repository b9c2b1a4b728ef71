// Registers the control, and unregisters it.
//
//   register_library(Whose::Machine);   // S_OK, or why the system refused
#pragma once

#include <windows.h>

#include <cstdint>

namespace tabulon::activex {

enum class Whose : std::uint8_t { Machine, Person };

// Writes all keys, replacing those of an earlier registration.
HRESULT register_library(Whose whose);
// Removes everything that `register_library` writes, except what it shares with the 32-bit or 64-bit library
// while that one is registered. It is no error if there is nothing to remove.
HRESULT unregister_library(Whose whose);

}  // namespace tabulon::activex
