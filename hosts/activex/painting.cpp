#include "hosts/activex/painting.h"

#include <algorithm>
#include <string>

#include "hosts/activex/colours.h"
#include "hosts/activex/pictures.h"
#include "hosts/activex/pixels.h"
#include "hosts/activex/text.h"
#include "platform/look.h"

namespace tabulon::activex {

using namespace platform;

namespace {

constexpr Twips menu_bar = measure::menu_bar * measure::twips_per_pixel;

// The colours of platform/look.def.
struct Palette {
#define COLOUR(name, hex) COLORREF name;
#include "platform/look.def"
};

constexpr Palette usual{
#define COLOUR(name, hex) look::name.value,
#include "platform/look.def"
};

// Who has asked the system for strong contrast gets the system's colours only.
Palette of_strong_contrast() {
  const COLORREF window = GetSysColor(COLOR_WINDOW), text = GetSysColor(COLOR_WINDOWTEXT);
  return {.ground = window,
          .band = window,
          .form = GetSysColor(COLOR_BTNFACE),
          .edge = text,
          .ink = text,
          .button = GetSysColor(COLOR_BTNFACE),
          .button_edge = GetSysColor(COLOR_BTNTEXT),
          .grip_dot = GetSysColor(COLOR_BTNTEXT),
          .box_edge = text,
          .locked_edge = GetSysColor(COLOR_GRAYTEXT),
          .accent = GetSysColor(COLOR_HIGHLIGHT)};
}

Palette palette() {
  HIGHCONTRASTW contrast{};
  contrast.cbSize = sizeof contrast;
  const bool is_strong = SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof contrast, &contrast, 0) &&
                         (contrast.dwFlags & HCF_HIGHCONTRASTON) != 0;
  return is_strong ? of_strong_contrast() : usual;
}

// `part` percent of the one colour over the other.
COLORREF blend(COLORREF over, COLORREF under, int part) {
  const auto mix = [part](int one, int other) { return (one * part + other * (100 - part)) / 100; };
  return RGB(mix(GetRValue(over), GetRValue(under)), mix(GetGValue(over), GetGValue(under)),
             mix(GetBValue(over), GetBValue(under)));
}

constexpr UINT in_the_middle = DT_WORDBREAK | DT_VCENTER;
constexpr UINT alignments[] = {DT_LEFT, DT_RIGHT, DT_CENTER};

UINT alignment(const Font& font) {
  return alignments[static_cast<std::size_t>(font.align)];
}

RECT moved(RECT box, POINT by) {
  OffsetRect(&box, by.x, by.y);
  return box;
}

// The colours that the letters and grounds of a button go through as it is pointed at and pressed.
int shade(const Control& button, ButtonState state) {
  const bool is_pressed = state.pressed || button.role() == Role::MenuOpen;
  return is_pressed ? measure::press_shade : state.hot ? measure::hover_shade : 0;
}

// In a label that wraps, a gap as wide as this was made to end the line, however wide the letters are.
std::string lines_of(std::string text) {
  constexpr std::size_t wide_gap = 10;
  for (std::size_t at = 0; (at = text.find(std::string(wide_gap, ' '), at)) != std::string::npos; ++at) {
    const std::size_t end = std::min(text.find_first_not_of(' ', at), text.size());
    text.replace(at, end - at, "\n");
  }
  return text;
}

// What is chosen for a light ground, or a dark one, is read on it whatever colours the person's system has.
COLORREF ink_on(Colour ink, Colour ground) {
  if (!ink.is_system() || ground.is_system() || is_transparent(ground)) return colour_ref(ink);
  if (ink == system_colour::grey_text) return colour_ref(ink);
  const COLORREF back = colour_ref(ground);
  const int brightness = 299 * GetRValue(back) + 587 * GetGValue(back) + 114 * GetBValue(back);
  return brightness > 128 * 1000 ? RGB(0, 0, 0) : RGB(255, 255, 255);
}

bool is_number(const Control& control) {
  return control.role() == Role::Number || control.role() == Role::CurrentNumber;
}

// What shows where a control has nothing of its own.
COLORREF ground_of(const Control& control) {
  const Colour back = control.back_colour();
  return is_transparent(back) ? ground_behind(control) : colour_ref(back);
}

// Selects what it is given for as long as it lives.
class Selected {
 public:
  Selected(HDC dc, HGDIOBJ object) : dc_(dc), before_(SelectObject(dc, object)) {}
  Selected(const Selected&) = delete;
  ~Selected() { SelectObject(dc_, before_); }

 private:
  HDC dc_;
  HGDIOBJ before_;
};

}  // namespace

bool is_handle(const Control& control) {
  return control.name() == "cmdFrame";
}

int text_height(HDC dc, HFONT font) {
  const Selected selected(dc, font);
  TEXTMETRICW metric{};
  GetTextMetricsW(dc, &metric);
  return metric.tmHeight;
}

COLORREF ground_behind(const Control& control) {
  for (const Control* outer = control.container(); outer; outer = outer->container())
    if (!is_transparent(outer->back_colour())) return colour_ref(outer->back_colour());
  if (control.surface().is_form()) return palette().form;
  return control.bounds().top < menu_bar && !control.container() ? palette().band : palette().ground;
}

HBRUSH ground_brush(HDC dc, const Control& control) {
  const Colour back = control.back_colour();
  SetTextColor(dc, ink_on(control.fore_colour(), back));
  if (is_transparent(back)) {
    SetBkMode(dc, TRANSPARENT);
    return static_cast<HBRUSH>(GetStockObject(NULL_BRUSH));
  }
  SetBkColor(dc, colour_ref(back));
  if (back.is_system()) return GetSysColorBrush(static_cast<int>(back.value & 0xFFU));
  SetDCBrushColor(dc, colour_ref(back));
  return static_cast<HBRUSH>(GetStockObject(DC_BRUSH));
}

// ---- Strokes

void Painter::fill(const RECT& box, COLORREF colour) const {
  SetBkColor(dc_, colour);
  ExtTextOutW(dc_, 0, 0, ETO_OPAQUE, &box, nullptr, 0, nullptr);
}

void Painter::outline(const RECT& box, COLORREF colour, int width) const {
  fill({box.left, box.top, box.right, box.top + width}, colour);
  fill({box.left, box.bottom - width, box.right, box.bottom}, colour);
  fill({box.left, box.top, box.left + width, box.bottom}, colour);
  fill({box.right - width, box.top, box.right, box.bottom}, colour);
}

void Painter::words(const std::string& text, RECT box, const Font& font, COLORREF colour, UINT format) const {
  const Selected selected(dc_, fonts_.of(font, dpi_));
  SetTextColor(dc_, colour);
  SetBkMode(dc_, TRANSPARENT);
  const std::wstring wide_text = wide(text);
  // The system centres one line alone.
  if ((format & in_the_middle) == in_the_middle) {
    RECT needed = box;
    DrawTextW(dc_, wide_text.c_str(), static_cast<int>(wide_text.size()), &needed, format | DT_CALCRECT);
    box.top += std::max(0L, (box.bottom - needed.bottom) / 2);
  }
  DrawTextW(dc_, wide_text.c_str(), static_cast<int>(wide_text.size()), &box, format);
}

// ---- Controls

void Painter::label(const Control& label, const RECT& box) const {
  fill(box, ground_of(label));
  const Font& font = label.font();
  const UINT layout = font.middle ? in_the_middle : font.wraps ? DT_WORDBREAK : DT_SINGLELINE | DT_VCENTER;
  const COLORREF ink =
      ink_on(label.enabled() ? label.fore_colour() : system_colour::grey_text, label.back_colour());
  words(font.wraps ? lines_of(label.text()) : label.text(), box, font, ink,
        layout | DT_NOPREFIX | alignment(font));
  if (is_number(label)) number_edge(label, box);
}

// Alike in boxes and labels; the one that the keys turn looks as if it had the focus.
void Painter::number_edge(const Control& number, const RECT& box) const {
  const bool is_current = number.role() == Role::CurrentNumber;
  outline(box, is_current ? palette().accent : palette().box_edge, is_current ? 2 * hair() : hair());
}

void Painter::button(const Control& button, const RECT& box, ButtonState state) const {
  const Palette colours = palette();
  const bool is_flat = !button.surface().is_form() && !button.container();
  const COLORREF behind = ground_behind(button);
  const COLORREF face = is_flat ? behind : colours.button;
  const bool is_marked = state.focused || button.role() == Role::Default;
  const COLORREF edge = is_marked ? colours.accent : is_flat ? behind : colours.button_edge;
  fill(box, behind);
  rounded(box, blend(colours.ink, face, shade(button, state)), edge, state.focused ? 2 : 1);
  // What stands at the edge of the control carries a piece of it.
  if (is_flat && button.bounds().top <= 0)
    fill({box.left, box.top, box.right, box.top + hair()}, colours.edge);
  if (is_handle(button)) {
    const int side = (box.right - box.left) * 2 / 5;
    dots({box.left, box.top, box.left + side, box.bottom});
    dots({box.right - side, box.top, box.right, box.bottom});
  }
  const COLORREF ink = colour_ref(button.enabled() ? button.fore_colour() : system_colour::grey_text);
  words(button.text(), box, button.font(), ink, DT_SINGLELINE | DT_VCENTER | DT_CENTER);
}

void Painter::rounded(const RECT& box, COLORREF face, COLORREF edge, int thickness) const {
  const Selected brush(dc_, GetStockObject(DC_BRUSH));
  const Selected pen(dc_, GetStockObject(DC_PEN));
  SetDCBrushColor(dc_, face);
  SetDCPenColor(dc_, edge);
  for (int inset = 0; inset < thickness * hair(); ++inset) {
    const int corner = std::max(6 * hair() - 2 * inset, 0);
    RoundRect(dc_, box.left + inset, box.top + inset, box.right - inset, box.bottom - inset, corner, corner);
  }
}

// Rough ground to take hold of.
void Painter::dots(const RECT& box) const {
  const COLORREF colour = palette().grip_dot;
  const int step = 5 * hair();
  for (int y = box.top + step; y < box.bottom - step / 2; y += step)
    for (int x = box.left + step; x < box.right - step / 2; x += step)
      fill({x, y, x + hair(), y + hair()}, colour);
}

void Painter::box_edge(const TextBox& box, const RECT& bounds, bool focused) const {
  const Palette colours = palette();
  fill(bounds, colour_ref(box.back_colour()));
  if (is_number(box)) return number_edge(box, bounds);
  const COLORREF edge = focused ? colours.accent : box.locked() ? colours.locked_edge : colours.box_edge;
  outline(bounds, edge, focused ? 2 * hair() : hair());
}

void Painter::text_box(const TextBox& box, const RECT& bounds) const {
  box_edge(box, bounds, false);
  const int beside = measure::text_margin * hair();
  const RECT inside{bounds.left + beside, bounds.top, bounds.right - beside, bounds.bottom};
  const COLORREF ink =
      ink_on(box.enabled() ? box.fore_colour() : system_colour::grey_text, box.back_colour());
  words(box.text(), inside, box.font(), ink,
        DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | alignment(box.font()));
}

void Painter::scroll_bar(const ScrollBar& bar, RECT box) const {
  const bool stands = bar.kind() == Kind::VScrollBar;
  const int length = stands ? box.bottom - box.top : box.right - box.left;
  const int thickness =
      std::min(length / 2, static_cast<int>(stands ? box.right - box.left : box.bottom - box.top));
  fill(box, GetSysColor(COLOR_SCROLLBAR));
  RECT first = box, last = box;
  (stands ? first.bottom : first.right) = (stands ? box.top : box.left) + thickness;
  (stands ? last.top : last.left) = (stands ? box.bottom : box.right) - thickness;
  const UINT off = bar.enabled() ? 0 : DFCS_INACTIVE;
  DrawFrameControl(dc_, &first, DFC_SCROLL, (stands ? DFCS_SCROLLUP : DFCS_SCROLLLEFT) | off);
  DrawFrameControl(dc_, &last, DFC_SCROLL, (stands ? DFCS_SCROLLDOWN : DFCS_SCROLLRIGHT) | off);
}

void Painter::frame(const Control& frame, const RECT& box) const {
  fill(box, ground_of(frame));
  if (frame.text().empty()) return;
  outline(box, palette().button_edge, hair());
  const RECT caption{box.left + measure::caption_left * hair(), box.top + measure::caption_top * hair(),
                     box.right, box.bottom};
  words(frame.text(), caption, frame.font(), colour_ref(frame.fore_colour()), DT_SINGLELINE | DT_NOPREFIX);
}

void Painter::picture_box(const PictureBox& picture, const RECT& box, bool focused) const {
  fill(box, ground_of(picture));
  paint_drawing(dc_, box, picture.scale(), picture.drawing(), fonts_.of(picture.font(), dpi_), dpi_);
  outline(box, focused ? palette().accent : palette().edge, focused ? 2 * hair() : hair());
}

void Painter::image(const Image& image, const RECT& box) const {
  paint_picture(dc_, box, image.picture(), Raster::Copy);
}

void Painter::lines(const Surface& surface, const Control* container, POINT origin) const {
  for (const Control* control : surface.controls()) {
    if (control->kind() != Kind::Line || control->container() != container || !control->visible()) continue;
    const auto& line = static_cast<const Line&>(*control);
    const PixelScale scale = scale_inside(container, dpi_);
    const auto place = [&](Point user) -> Point {
      const Point at = scale.pixels(user);
      return {origin.x + at.x, origin.y + at.y};
    };
    paint_line(dc_, place(line.from()), place(line.to()), line.fore_colour(), dpi_);
  }
}

void Painter::ground(const Surface& surface, POINT origin) const {
  const Palette colours = palette();
  const RECT all = moved({0, 0, pixels_at(surface.width(), dpi_), pixels_at(surface.height(), dpi_)}, origin);
  if (surface.is_form()) return fill(all, colours.form);
  fill(all, colours.ground);
  RECT band = all;
  band.bottom = band.top + pixels_at(menu_bar, dpi_);
  fill(band, colours.band);
  outline(all, colours.edge, hair());
}

}  // namespace tabulon::activex
