// What a screen reader says of a window whose text alone does not tell enough.
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
  // Nothing happens on a system without such names. No words: the window's text tells enough again.
  void set(HWND window, std::string_view words);
  // The window is going.
  void forget(HWND window);

 private:
  // Asked for once, and kept as long as the process: there may be no COM left to give it back to.
  IAccPropServices* service_ = nullptr;
  bool asked_ = false;
  std::set<HWND> named_;
};

}  // namespace tabulon::activex
