#include "hosts/web/mirror.h"

#include <algorithm>
#include <iterator>
#include <variant>

#include "hosts/web/wire.h"

namespace tabulon::web {

using namespace platform;
using namespace wire;

namespace {

template <class C>
const C& as(const Control& control) {
  return static_cast<const C&>(control);
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
  return control.rendering() == Rendering::Seen;
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
bool has_no_role(const Control& control) {
  return control.role() == Role::None;
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

// A row for each of the table of properties, in its order.
constexpr Writer writers[] = {
    {Property::Visible, is_any, is_seen,
     [](Record& record, const Control& each) { write_Visible(record, VisibleValue{each.rendering()}); }},
    {Property::Enabled, is_any, is_enabled,
     [](Record& record, const Control& each) { write_Enabled(record, EnabledValue{each.enabled()}); }},
    {Property::Bounds, is_any, never,
     [](Record& record, const Control& each) { write_Bounds(record, each.bounds()); }},
    {Property::Text, is_any, has_no_text,
     [](Record& record, const Control& each) { write_Text(record, TextValue{each.text()}); }},
    {Property::Colours, is_any, never,
     [](Record& record, const Control& each) {
       write_Colours(record, ColoursValue{each.back_colour(), each.fore_colour()});
     }},
    {Property::ToolTip, is_any, has_no_tool_tip,
     [](Record& record, const Control& each) { write_ToolTip(record, ToolTipValue{each.tool_tip()}); }},
    {Property::SpokenName, is_any, has_no_spoken_name,
     [](Record& record, const Control& each) {
       write_SpokenName(record, SpokenNameValue{each.spoken_name()});
     }},
    {Property::Font, is_any, never,
     [](Record& record, const Control& each) { write_Font(record, each.font()); }},
    {Property::Locked, is_box, is_unlocked,
     [](Record& record, const Control& each) {
       write_Locked(record, LockedValue{as<TextBox>(each).locked()});
     }},
    {Property::Role, is_any, has_no_role,
     [](Record& record, const Control& each) { write_Role(record, RoleValue{each.role()}); }},
    {Property::Selection, is_selected, never,
     [](Record& record, const Control&) { write_Selection(record, SelectionValue{}); }},
    {Property::Range, is_bar, never,
     [](Record& record, const Control& each) {
       const auto& bar = as<ScrollBar>(each);
       write_Range(record, RangeValue{bar.min(), bar.max(), bar.value(), bar.large_change()});
     }},
    {Property::Picture, [](const Control& each) { return each.kind() == Kind::Image; }, never,
     [](Record& record, const Control& each) {
       write_Picture(record, PictureValue{as<Image>(each).picture()});
     }},
    {Property::Ends, [](const Control& each) { return each.kind() == Kind::Line; }, never,
     [](Record& record, const Control& each) {
       write_Ends(record, EndsValue{as<Line>(each).from(), as<Line>(each).to()});
     }},
    {Property::Drawing, [](const Control& each) { return each.kind() == Kind::PictureBox; }, never,
     [](Record& record, const Control& each) {
       const auto& box = as<PictureBox>(each);
       write_Drawing(record, DrawingValue{box.scale(), box.drawing().strokes()});
     }},
};

// Whether every property of the table has its row.
consteval bool writers_follow_the_table() {
  std::size_t at = 0;
#define MENU_PROPERTY(name)
#define PROPERTY(name, fields)                                                          \
  if (at == std::size(writers) || writers[at].property != Property::name) return false; \
  ++at;
#include "platform/properties.def"
  return at == std::size(writers);
}
static_assert(writers_follow_the_table());

Properties present(const Control& control, Properties marked, bool is_new) {
  Properties kept;
  for (const Writer& writer : writers) {
    if (!marked.has(writer.property) || !writer.has(control)) continue;
    if (!is_new || !writer.is_as_expected(control)) kept.add(writer.property);
  }
  return kept;
}

// In a frame that is not seen nothing is.
bool is_out_of_sight(const Control& control) {
  const bool stands_there = control.rendering() != Rendering::None;
  return !stands_there || (control.container() && is_out_of_sight(*control.container()));
}

void write_control(Record& record, Control& control, Known& known, const Typed& typed) {
  const bool is_new = known == Known::Not;
  const bool is_hidden = is_out_of_sight(control);
  Properties marked = control.take_changes();
  if (known == Known::Wholly) {
    if (&control == typed.box && control.text() == typed.text) marked.remove(Property::Text);
    marked = present(control, marked, false);
  } else {
    marked = is_hidden ? Properties() : present(control, Properties::all(), true);
    if (is_hidden == is_new) marked.add(Property::Visible);
    known = is_hidden ? Known::ByName : Known::Wholly;
  }
  if (marked.none() && !is_new) return;
  const int container = control.container() ? control.container()->id() : -1;
  write(record, ControlChange{static_cast<u16>(control.id()), static_cast<u16>(marked.bits()), is_new});
  if (is_new) {
    const auto& [part, row, column] = control.table_place();
    write(record, Introduction{control.kind(), static_cast<u16>(control.index()), container, part, row,
                               column, control.name()});
  }
  for (const Writer& writer : writers)
    if (marked.has(writer.property)) writer.write(record, control);
}

bool is_open(const Menu& item, const MenuSession& menu) {
  return std::ranges::find(menu.open(), &item) != menu.open().end();
}

}  // namespace

void write_surface(Record& record, int id, Surface& surface, std::vector<Known>& known, const Typed& typed) {
  known.resize(surface.controls().size());
  const int active = surface.active() ? surface.active()->id() : -1;
  write(record,
        SurfaceChange{id, active, surface.is_form() ? text(static_cast<Form&>(surface).caption()) : text()});
  for (Control* control : surface.controls())
    if (control->kind() != Kind::Menu)
      write_control(record, *control, known[static_cast<std::size_t>(control->id())], typed);
}

void write_menu(Record& record, int surface, const MenuSession& menu) {
  write(record, MenuChange{surface, menu.x(), menu.y(), static_cast<u8>(menu.open().size())});
  for (const Menu* open : menu.open()) {
    const auto shown = std::ranges::count_if(open->items(), &Menu::visible);
    write(record, OpenMenu{open->id(), open->text(), static_cast<u16>(shown)});
    for (const Menu* item : open->items())
      if (item->visible())
        write(record, MenuItem{.id = item->id(),
                               .name = item->name(),
                               .caption = item->text(),
                               .is_separator = item->is_separator(),
                               .enabled = item->enabled(),
                               .checkable = item->checkable(),
                               .checked = item->checked(),
                               .has_submenu = !item->items().empty(),
                               .stands_open = is_open(*item, menu),
                               .highlighted = menu.highlighted() == item});
  }
}

// The kind of a stroke is its place in the table.
void wire::write_Stroke(Record& record, const Stroke& stroke) {
  u8 kind = 0;
#define STROKE(name, fields)                                                   \
  if (const auto* const each = std::get_if<platform::stroke::name>(&stroke)) { \
    record.u8(kind);                                                           \
    write(record, *each);                                                      \
  }                                                                            \
  ++kind;
#include "hosts/web/wire/records.def"
}

namespace {

// Whether every stroke that there is stands in the table.
consteval std::size_t strokes_in_table() {
  std::size_t count = 0;
#define STROKE(name, fields) ++count;
#include "hosts/web/wire/records.def"
  return count;
}
static_assert(strokes_in_table() == std::variant_size_v<Stroke>);

}  // namespace

}  // namespace tabulon::web
