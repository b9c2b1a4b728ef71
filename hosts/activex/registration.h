// The control in the registry.
//
//   register_library(Whose::Machine);   // S_OK, or the result of what the system refused
#pragma once

#include <windows.h>

#include <cstdint>

namespace tabulon::activex {

enum class Whose : std::uint8_t { Machine, Person };

// Writes all keys; what a registration before has left is overwritten.
HRESULT register_library(Whose whose);
// Removes all that `register_library` writes, but what the library for programs of another size shares with
// this one stays while that is registered. Nothing to remove is no failure.
HRESULT unregister_library(Whose whose);

}  // namespace tabulon::activex
