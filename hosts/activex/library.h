// The library while it is loaded: the one desk and the one model that all its controls share.
//
//   library().model.NrBeslisVar;
#pragma once

#include <windows.h>

#include <string>

#include "control/basSafeCtl.h"
#include "hosts/activex/surface_view.h"
#include "hosts/activex/windows_host.h"

namespace tabulon::activex {

struct Library {
  explicit Library(HINSTANCE loaded) : module(loaded), classes(loaded) {}

  std::wstring path() const;

  HINSTANCE module;
  WindowClasses classes;
  basSafeCtl model;
  WindowsHost host;
  LONG users = 0;  // objects, and locks of who wants the library to stay
};

Library& library();

// Keeps the library loaded as long as it lives.
class LibraryUser {
 public:
  LibraryUser() { InterlockedIncrement(&library().users); }
  LibraryUser(const LibraryUser&) = delete;
  ~LibraryUser() { InterlockedDecrement(&library().users); }
};

}  // namespace tabulon::activex
