// The control's fonts, each created once per size and density.
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

  // The font belongs to this object. `dpi`: dots per inch, of the screen or of a picture.
  HFONT of(const platform::Font& font, int dpi);

 private:
  std::map<std::tuple<int, bool, int>, HFONT> fonts_;
};

}  // namespace tabulon::activex
