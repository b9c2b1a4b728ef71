// The loaded library: the desk and the model that all its controls share.
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
  long users = 0;  // objects and locks, which keep it loaded
  long locks = 0;  // the locks among them
};

Library& library();

// Keeps the library loaded while it exists.
class LibraryUser {
 public:
  LibraryUser() { ++library().users; }
  LibraryUser(const LibraryUser&) = delete;
  ~LibraryUser() {
    if (--library().users == 0) library().host.close_windows();
  }
};

}  // namespace tabulon::activex
