#include "hosts/web/mirror.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace tabulon::web {

using namespace platform;

namespace {

// The bit beside the properties that says: this control is new, and here is what it is.
constexpr std::uint32_t introduced = 1U << 31U;

enum class Rendering : std::uint8_t { None, Seen, Aside };

// A visible control that stands beside the surface is not seen, but it can take the focus.
Rendering rendering_of(const Control& control) {
  if (!control.visible()) return Rendering::None;
  if (control.container() || control.shown()) return Rendering::Seen;
  return control.can_take_focus() ? Rendering::Aside : Rendering::None;
}

template <class C>
const C& as(const Control& control) {
  return static_cast<const C&>(control);
}

void write_bounds(Record& record, const Bounds& bounds) {
  record.f32(bounds.left);
  record.f32(bounds.top);
  record.f32(bounds.width);
  record.f32(bounds.height);
}

void write_font(Record& record, const Font& font) {
  record.u8(font.points);
  record.flag(font.bold);
  record.u8(static_cast<std::uint8_t>(font.align));
  record.flag(font.wraps);
}

void write_range(Record& record, const ScrollBar& bar) {
  for (const int number : {bar.min(), bar.max(), bar.value(), bar.large_change()}) record.i32(number);
}

void write_ends(Record& record, const Line& line) {
  for (const double number : {line.from().x, line.from().y, line.to().x, line.to().y}) record.f32(number);
}

bool is_any(const Control&) {
  return true;
}
bool is_box(const Control& control) {
  return control.kind() == Kind::TextBox;
}
bool is_selected(const Control& control) {
  return is_box(control) && control.surface().active() == &control;
}
bool is_bar(const Control& control) {
  return control.kind() == Kind::HScrollBar || control.kind() == Kind::VScrollBar;
}

// What the page takes a new control to be; then nothing need be said of it.
bool is_seen(const Control& control) {
  return rendering_of(control) == Rendering::Seen;
}
bool is_enabled(const Control& control) {
  return control.enabled();
}
bool has_no_text(const Control& control) {
  return control.text().empty();
}
bool has_no_tool_tip(const Control& control) {
  return control.tool_tip().empty();
}
bool has_no_spoken_name(const Control& control) {
  return control.spoken_name().empty();
}
bool is_unlocked(const Control& control) {
  return !as<TextBox>(control).locked();
}
bool never(const Control&) {
  return false;
}

struct Writer {
  Property property;
  bool (*has)(const Control&);             // whether the control has such a property
  bool (*is_as_expected)(const Control&);  // of a new control
  void (*write)(Record&, const Control&);
};

// In the order of the bits.
constexpr Writer writers[] = {
    {Property::Visible, is_any, is_seen,
     [](Record& record, const Control& each) { record.u8(static_cast<std::uint8_t>(rendering_of(each))); }},
    {Property::Enabled, is_any, is_enabled,
     [](Record& record, const Control& each) { record.flag(each.enabled()); }},
    {Property::Bounds, is_any, never,
     [](Record& record, const Control& each) { write_bounds(record, each.bounds()); }},
    {Property::Text, is_any, has_no_text,
     [](Record& record, const Control& each) { record.text(each.text()); }},
    {Property::Colours, is_any, never,
     [](Record& record, const Control& each) {
       record.u32(each.back_colour().value);
       record.u32(each.fore_colour().value);
     }},
    {Property::ToolTip, is_any, has_no_tool_tip,
     [](Record& record, const Control& each) { record.text(each.tool_tip()); }},
    {Property::SpokenName, is_any, has_no_spoken_name,
     [](Record& record, const Control& each) { record.text(each.spoken_name()); }},
    {Property::Font, is_any, never,
     [](Record& record, const Control& each) { write_font(record, each.font()); }},
    {Property::Locked, is_box, is_unlocked,
     [](Record& record, const Control& each) { record.flag(as<TextBox>(each).locked()); }},
    {Property::Selection, is_selected, never, [](Record&, const Control&) {}},
    {Property::Range, is_bar, never,
     [](Record& record, const Control& each) { write_range(record, as<ScrollBar>(each)); }},
    {Property::Picture, [](const Control& each) { return each.kind() == Kind::Image; }, never,
     [](Record& record, const Control& each) {
       record.u8(static_cast<std::uint8_t>(as<Image>(each).picture()));
     }},
    {Property::Ends, [](const Control& each) { return each.kind() == Kind::Line; }, never,
     [](Record& record, const Control& each) { write_ends(record, as<Line>(each)); }},
    {Property::Drawing, [](const Control& each) { return each.kind() == Kind::PictureBox; }, never,
     [](Record& record, const Control& each) {
       write_drawing(record, as<PictureBox>(each).scale(), as<PictureBox>(each).drawing());
     }},
};

Properties present(const Control& control, Properties marked, bool is_new) {
  // Where a control stands decides whether it is seen.
  if (marked.has(Property::Bounds)) marked.add(Property::Visible);
  Properties kept;
  for (const Writer& writer : writers) {
    if (!marked.has(writer.property) || !writer.has(control)) continue;
    if (!is_new || !writer.is_as_expected(control)) kept.add(writer.property);
  }
  return kept;
}

void introduce(Record& record, const Control& control) {
  record.u8(static_cast<std::uint8_t>(control.kind()));
  record.u16(static_cast<std::uint16_t>(control.index()));
  record.i32(control.container() ? control.container()->id() : -1);
  record.text(control.name());
}

void write_control(Record& record, Control& control, Known& known) {
  const bool is_new = known == Known::Not;
  const bool is_hidden = rendering_of(control) == Rendering::None;
  Properties marked = control.take_changes();
  if (known == Known::Wholly) {
    marked = present(control, marked, false);
  } else {
    marked = is_hidden ? Properties() : present(control, Properties::all(), true);
    if (is_hidden == is_new) marked.add(Property::Visible);
    known = is_hidden ? Known::ByName : Known::Wholly;
  }
  if (marked.none() && !is_new) return;
  record.u16(static_cast<std::uint16_t>(control.id()));
  record.u32(marked.bits() | (is_new ? introduced : 0));
  if (is_new) introduce(record, control);
  for (const Writer& writer : writers)
    if (marked.has(writer.property)) writer.write(record, control);
}

void write_point(Record& record, Point point) {
  record.f64(point.x);
  record.f64(point.y);
}

void write_stroke(Record& record, const stroke::Dots& dots) {
  record.u32(dots.colour.value);
  record.u32(static_cast<std::uint32_t>(dots.points.size()));
  for (const Point point : dots.points) write_point(record, point);
}

void write_stroke(Record& record, const stroke::DotRuns& dots) {
  record.u32(dots.colour.value);
  write_point(record, dots.step);
  record.u32(static_cast<std::uint32_t>(dots.runs.size()));
  for (const stroke::DotRuns::Run& run : dots.runs) {
    write_point(record, run.first);
    record.u32(run.count);
  }
}

void write_stroke(Record& record, const stroke::Segment& segment) {
  record.u32(segment.colour.value);
  write_point(record, segment.from);
  write_point(record, segment.to);
}

void write_stroke(Record& record, const stroke::Text& text) {
  record.u32(text.colour.value);
  write_point(record, text.at);
  record.text(text.text);
}

void write_stroke(Record& record, const stroke::Stamp& stamp) {
  write_point(record, stamp.at);
  write_point(record, stamp.size);
  record.u8(static_cast<std::uint8_t>(stamp.picture));
  record.u8(static_cast<std::uint8_t>(stamp.raster));
}

// Which of a menu item's states are on, one bit each.
std::uint8_t item_state(const Menu& item, const MenuSession& menu) {
  const bool stands_open = std::ranges::find(menu.open(), &item) != menu.open().end();
  const bool states[] = {item.is_separator(),   item.enabled(), item.checkable(),           item.checked(),
                         !item.items().empty(), stands_open,    menu.highlighted() == &item};
  std::uint8_t bits = 0;
  for (std::size_t bit = 0; bit < std::size(states); ++bit)
    if (states[bit]) bits = static_cast<std::uint8_t>(bits | 1U << bit);
  return bits;
}

}  // namespace

void write_surface(Record& record, int id, Surface& surface, std::vector<Known>& known) {
  known.resize(surface.controls().size());
  record.i32(id);
  record.i32(surface.active() ? surface.active()->id() : -1);
  record.text(surface.is_form() ? std::string_view(static_cast<Form&>(surface).caption())
                                : std::string_view());
  for (Control* control : surface.controls())
    if (control->kind() != Kind::Menu)
      write_control(record, *control, known[static_cast<std::size_t>(control->id())]);
}

void write_menu(Record& record, int surface, const MenuSession& menu) {
  record.i32(surface);
  record.f64(menu.x());
  record.f64(menu.y());
  record.u8(static_cast<std::uint8_t>(menu.open().size()));
  for (const Menu* open : menu.open()) {
    record.i32(open->id());
    record.text(open->text());
    record.u16(static_cast<std::uint16_t>(
        std::ranges::count_if(open->items(), [](const Menu* item) { return item->visible(); })));
    for (const Menu* item : open->items()) {
      if (!item->visible()) continue;
      record.i32(item->id());
      record.u8(item_state(*item, menu));
      record.text(item->name());
      record.text(item->text());
    }
  }
}

void write_drawing(Record& record, const Scale& scale, const DisplayList& drawing) {
  write_point(record, scale.top_left);
  write_point(record, scale.bottom_right);
  record.u32(static_cast<std::uint32_t>(drawing.strokes().size()));
  for (const Stroke& stroke : drawing.strokes()) {
    record.u8(static_cast<std::uint8_t>(stroke.index()));
    if (const auto* const dots = std::get_if<stroke::Dots>(&stroke)) write_stroke(record, *dots);
    if (const auto* const runs = std::get_if<stroke::DotRuns>(&stroke)) write_stroke(record, *runs);
    if (const auto* const segment = std::get_if<stroke::Segment>(&stroke)) write_stroke(record, *segment);
    if (const auto* const text = std::get_if<stroke::Text>(&stroke)) write_stroke(record, *text);
    if (const auto* const stamp = std::get_if<stroke::Stamp>(&stroke)) write_stroke(record, *stamp);
  }
}

}  // namespace tabulon::web
