// The library while it is loaded: the one desk and the one model that all its controls share.
//
//   library().model.NrBeslisVar;
#pragma once

#include "control/basSafeCtl.h"
#include "hosts/activex/window_classes.h"
#include "hosts/activex/windows_host.h"

namespace tabulon::activex {

struct Library {
  Library() = default;
  Library(const Library&) = delete;

  WindowClasses classes{SurfaceView::procedure};
  basSafeCtl model;
  WindowsHost host;
  long users = 0;  // objects, and locks of who wants the library to stay
};

Library& library();

// Keeps the library loaded as long as it lives.
class LibraryUser {
 public:
  LibraryUser() { ++library().users; }
  LibraryUser(const LibraryUser&) = delete;
  ~LibraryUser() {
    if (--library().users == 0) library().host.rest();
  }
};

}  // namespace tabulon::activex
