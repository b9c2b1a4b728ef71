#include "hosts/activex/control_painting.h"

#include "hosts/activex/bitmap.h"
#include "hosts/activex/painting.h"

namespace tabulon::activex {

using namespace platform;

namespace {

// Paints the parent's content, as far as it lies behind this window.
void print_behind(HWND window, HDC dc) {
  HWND const behind = GetParent(window);
  POINT corner{}, before{};
  MapWindowPoints(window, behind, &corner, 1);
  OffsetViewportOrgEx(dc, -corner.x, -corner.y, &before);
  SendMessageW(behind, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(dc), PRF_CLIENT);
  SetViewportOrgEx(dc, before.x, before.y, nullptr);
}

}  // namespace

// Paints off screen first, so that a half-drawn picture is never seen.
void ControlPainting::paint(HWND window) {
  PAINTSTRUCT painting{};
  HDC const screen = BeginPaint(window, &painting);
  RECT all{};
  GetClientRect(window, &all);
  const MemoryBitmap picture({all.right, all.bottom});
  print(window, picture.dc());
  BitBlt(screen, 0, 0, all.right, all.bottom, picture.dc(), 0, 0, SRCCOPY);
  EndPaint(window, &painting);
}

void ControlPainting::print(HWND window, HDC dc) {
  RECT all{};
  GetClientRect(window, &all);
  const Painter painter(dc, view_.services.fonts, view_.dpi);
  switch (control_.kind()) {
    case Kind::Label:
      return painter.label(control_, all);
    case Kind::CommandButton:
      return painter.button(control_, all, {hot_.is(window), pointer_.holds(), GetFocus() == window});
    case Kind::Image:
      print_behind(window, dc);
      return painter.image(static_cast<const Image&>(control_), all);
    case Kind::PictureBox:
      picture_box(window, dc, all);
      return painter.lines(control_.surface(), &control_, {0, 0});
    default:
      painter.frame(control_, all);
      return painter.lines(control_.surface(), &control_, {0, 0});
  }
}

void ControlPainting::picture_box(HWND window, HDC dc, const RECT& all) {
  kept_picture_.show(dc, {all.right, all.bottom}, ground_behind(control_), [&](HDC paper) {
    Painter(paper, view_.services.fonts, view_.dpi)
        .picture_box(static_cast<const PictureBox&>(control_), all, GetFocus() == window);
  });
}

}  // namespace tabulon::activex
