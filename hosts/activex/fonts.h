// The fonts of the control, for each size and density once.
//
//   SelectObject(dc, fonts.of({.points = 9, .bold = true}, 144));
#pragma once

#include <windows.h>

#include <map>
#include <tuple>

#include "platform/geometry.h"

namespace tabulon::activex {

class Fonts {
 public:
  Fonts() = default;
  Fonts(const Fonts&) = delete;
  ~Fonts();

  // A font that stays for as long as this does. `dpi`: dots to an inch, of the screen or of a picture.
  HFONT of(const platform::Font& font, int dpi);

 private:
  std::map<std::tuple<int, bool, int>, HFONT> fonts_;
};

}  // namespace tabulon::activex
