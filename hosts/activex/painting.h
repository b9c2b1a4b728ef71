// What the control looks like where the system does not draw it itself: grounds, labels, buttons, the edges
// of boxes, lines and frames. The same drawing serves the windows and the picture of a control that is not
// active.
//
//   const Painter painter(dc, fonts, dpi);
//   painter.label(label, box);
#pragma once

#include <windows.h>

#include <string>

#include "hosts/activex/drawing.h"
#include "hosts/activex/fonts.h"
#include "platform/surface.h"

namespace tabulon::activex {

struct ButtonState {
  bool hot = false, pressed = false, focused = false;
};

class Painter {
 public:
  Painter(HDC dc, Fonts& fonts, int dpi) : dc_(dc), fonts_(fonts), dpi_(dpi) {}

  void label(const platform::Control& label, const RECT& box) const;
  void button(const platform::Control& button, const RECT& box, ButtonState state) const;
  // The edge of a text box, and its ground.
  void box_edge(const platform::TextBox& box, const RECT& bounds, bool focused) const;
  void frame(const platform::Control& frame, const RECT& box) const;
  void picture_box(const platform::PictureBox& picture, const RECT& box, bool focused) const;
  void image(const platform::Image& image, const RECT& box) const;
  // The lines that stand on a surface (`container` null), in a frame or a picture box.
  void lines(const platform::Surface& surface, const platform::Control* container, POINT origin) const;
  // What a surface shows where no control stands.
  void ground(const platform::Surface& surface, POINT origin) const;

  // ---- What the system draws in a window, and nobody elsewhere
  void text_box(const platform::TextBox& box, const RECT& bounds) const;
  void scroll_bar(const platform::ScrollBar& bar, RECT box) const;

 private:
  void dots(const RECT& box) const;
  // The edge of a number that a spin bar turns.
  void number_edge(const platform::Control& number, const RECT& box) const;
  // `thickness` in pixels at 96 dots to an inch.
  void rounded(const RECT& box, COLORREF face, COLORREF edge, int thickness) const;
  void fill(const RECT& box, COLORREF colour) const;
  void outline(const RECT& box, COLORREF colour, int width) const;
  void words(const std::string& text, RECT box, const platform::Font& font, COLORREF colour,
             UINT format) const;
  int hair() const { return dpi_ / 96 > 1 ? dpi_ / 96 : 1; }

  HDC dc_;
  Fonts& fonts_;
  int dpi_;
};

// Whether it is there to be taken hold of and moved.
bool is_handle(const platform::Control& control);
// What shows through a control without a ground of its own.
COLORREF ground_behind(const platform::Control& control);
// The brush of a control's ground, and its letters' colour in the device context, as the system asks for
// them.
HBRUSH ground_brush(HDC dc, const platform::Control& control);
int text_height(HDC dc, HFONT font);

}  // namespace tabulon::activex
