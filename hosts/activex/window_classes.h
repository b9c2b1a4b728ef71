// Registers our own window classes for the lifetime of this object.
#pragma once

#include <windows.h>

namespace tabulon::activex {

class WindowClasses {
 public:
  // `surfaces`: the window procedure of controls and forms.
  explicit WindowClasses(WNDPROC surfaces);
  WindowClasses(const WindowClasses&) = delete;
  ~WindowClasses();
};

}  // namespace tabulon::activex
