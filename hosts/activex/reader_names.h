// Accessible names for windows whose text alone does not say enough.
//
//   names.set(box, "rij 2, kolom 3");
#pragma once

#include <windows.h>

#include <oleacc.h>

#include <set>
#include <string_view>

namespace tabulon::activex {

class ReaderNames {
 public:
  // Has no effect on systems without such names. An empty name restores the window's text.
  void set(HWND window, std::string_view words);
  // To be called when the window is destroyed.
  void forget(HWND window);

 private:
  // Obtained once and never released: COM may have been uninitialised by then.
  IAccPropServices* service_ = nullptr;
  bool asked_ = false;
  std::set<HWND> named_;
};

}  // namespace tabulon::activex
