// The classes of the windows that are not the system's own, registered for as long as this lives.
#pragma once

#include <windows.h>

namespace tabulon::activex {

class WindowClasses {
 public:
  // `surfaces`: the procedure of the windows of controls and forms.
  explicit WindowClasses(WNDPROC surfaces);
  WindowClasses(const WindowClasses&) = delete;
  ~WindowClasses();
};

}  // namespace tabulon::activex
