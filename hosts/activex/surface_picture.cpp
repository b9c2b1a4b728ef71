#include "hosts/activex/surface_picture.h"

#include "hosts/activex/control_kinds.h"
#include "hosts/activex/fonts.h"
#include "hosts/activex/painting.h"
#include "hosts/activex/pixels.h"

namespace tabulon::activex {

using namespace platform;

namespace {

class SurfacePicture {
 public:
  SurfacePicture(const Surface& surface, const Painter& painter, int dpi)
      : surface_(surface), painter_(painter), dpi_(dpi) {}

  void paint(POINT origin) const {
    painter_.ground(surface_, origin);
    paint_inside(nullptr, origin);
  }

 private:
  // Paints the controls in a container; null for the surface itself.
  void paint_inside(const Control* container, POINT origin) const {
    painter_.lines(surface_, container, origin);
    for (const Control* each : surface_.controls())
      if (each->container() == container && has_window(*each) && each->shown()) paint(*each, origin);
  }

  void paint(const Control& control, POINT origin) const {
    RECT box = bounds_in_pixels(control, dpi_);
    OffsetRect(&box, origin.x, origin.y);
    switch (control.kind()) {
      case Kind::Label:
        return painter_.label(control, box);
      case Kind::CommandButton:
        return painter_.button(control, box, {});
      case Kind::TextBox:
        return painter_.text_box(static_cast<const TextBox&>(control), box);
      case Kind::HScrollBar:
      case Kind::VScrollBar:
        return painter_.scroll_bar(static_cast<const ScrollBar&>(control), box);
      case Kind::Image:
        return painter_.image(static_cast<const Image&>(control), box);
      case Kind::PictureBox:
        painter_.picture_box(static_cast<const PictureBox&>(control), box, false);
        return paint_inside(&control, {box.left, box.top});
      case Kind::Frame:
        painter_.frame(control, box);
        return paint_inside(&control, {box.left, box.top});
      case Kind::Line:
      case Kind::Menu:
        return;
    }
  }

  const Surface& surface_;
  const Painter& painter_;
  int dpi_;
};

}  // namespace

void paint_surface(HDC dc, const Surface& surface, POINT origin, int dpi) {
  Fonts fonts;  // not shared: this size may never be used again
  const Painter painter(dc, fonts, dpi);
  SurfacePicture(surface, painter, dpi).paint(origin);
}

}  // namespace tabulon::activex
