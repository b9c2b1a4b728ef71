// The controls of a surface, as plain state that a host mirrors.
//
//   class frmMelding : public Form {
//     Label lblMelding{*this, "lblMelding"};
//     CommandButton cmdOK{*this, "cmdOK"};
//     ...
//   };
//
// Setting a property to what it already is does nothing; otherwise the property is marked, and the host
// is handed the marked properties once, when the handler is done or waits.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/display_list.h"
#include "platform/enums.h"
#include "platform/geometry.h"

namespace tabulon::platform {

class Surface;

// One bit for each group of properties that is mirrored together, in the order of the table.
enum class PropertyNumber : std::uint8_t {
#define PROPERTY(name, fields) name,
#include "platform/properties.def"
};
enum class Property : std::uint32_t {
#define PROPERTY(name, fields) name = 1U << static_cast<std::uint32_t>(PropertyNumber::name),
#include "platform/properties.def"
};

class Properties {
 public:
  constexpr Properties() = default;
  static constexpr Properties all() {
    Properties every;
#define PROPERTY(name, fields) every.add(Property::name);
#include "platform/properties.def"
    return every;
  }
  constexpr bool has(Property property) const { return (bits_ & static_cast<std::uint32_t>(property)) != 0; }
  constexpr void add(Property property) { bits_ |= static_cast<std::uint32_t>(property); }
  constexpr void remove(Property property) { bits_ &= ~static_cast<std::uint32_t>(property); }
  constexpr bool none() const { return bits_ == 0; }
  constexpr std::uint32_t bits() const { return bits_; }

 private:
  std::uint32_t bits_ = 0;
};

class Control;

// What a control needs of the surface on which it stands.
class ControlOwner {
 public:
  ControlOwner(Twips width, Twips height) : width_(width), height_(height) {}
  ControlOwner(const ControlOwner&) = delete;
  ControlOwner& operator=(const ControlOwner&) = delete;
  virtual ~ControlOwner() = default;

  virtual Surface& surface() = 0;
  // Runs at once, also for changes made by code.
  virtual void on_change(Control& control) = 0;

  Twips width() const { return width_; }
  Twips height() const { return height_; }
  // Before it is shown.
  void set_height(Twips height) { height_ = height; }
  const std::vector<Control*>& controls() const { return controls_; }

  void mark_changed() { changed_ = true; }
  // True once for each time that something changed since the last call.
  bool take_changed() { return std::exchange(changed_, false); }

 private:
  friend class Control;
  int add(Control& control);

  Twips width_, height_;
  std::vector<Control*> controls_;
  bool changed_ = true;
};

// Where a control stands in the table that its surface shows, for who hears it and does not see it.
struct TablePlace {
  TablePart part = TablePart::None;
  std::uint8_t row = 0, column = 0;  // from 1
};

// What every control has. `text` is the caption of a label, button, frame or menu item and the content of
// a text box; "&" in the caption of a button or menu item marks its access key.
class Control {
 public:
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;
  virtual ~Control() = default;

  Kind kind() const { return kind_; }
  std::string_view name() const { return name_; }
  int index() const { return index_; }  // from 1 in a control array, else 0
  int id() const { return id_; }        // its place among the surface's controls
  Surface& surface() const { return owner_.surface(); }
  const Control* container() const { return container_; }

  const Bounds& bounds() const { return bounds_; }
  const std::string& text() const { return text_; }
  Colour back_colour() const { return back_colour_; }
  Colour fore_colour() const { return fore_colour_; }
  const std::string& tool_tip() const { return tool_tip_; }
  const std::string& spoken_name() const { return spoken_name_; }
  const Font& font() const { return font_; }
  bool visible() const { return visible_; }
  bool enabled() const { return enabled_; }
  Role role() const { return role_; }
  const TablePlace& table_place() const { return table_place_; }
  // Visible, in visible containers, and with some part of it on the surface.
  bool shown() const;
  // How a host shows it, as it stands in its container.
  Rendering rendering() const;

  void set_bounds(const Bounds& bounds);
  void set_left(Twips left) { set_bounds({left, bounds_.top, bounds_.width, bounds_.height}); }
  void set_text(std::string_view text);
  void set_back_colour(Colour colour) { change(back_colour_, colour, Property::Colours); }
  void set_fore_colour(Colour colour) { change(fore_colour_, colour, Property::Colours); }
  void set_tool_tip(std::string_view tip) { change_text(tool_tip_, tip, Property::ToolTip); }
  // What a screen reader says where the text alone does not tell.
  void set_spoken_name(std::string_view name) { change_text(spoken_name_, name, Property::SpokenName); }
  void set_font(const Font& font) { change(font_, font, Property::Font); }
  void set_visible(bool visible) { change(visible_, visible, Property::Visible); }
  void set_enabled(bool enabled) { change(enabled_, enabled, Property::Enabled); }
  // Before it is shown.
  void set_table_place(const TablePlace& place) { table_place_ = place; }
  void set_role(Role role) { change(role_, role, Property::Role); }

  // The place in the tab order; controls with the same place follow in order of creation. Controls with
  // tab_stop off are skipped by Tab, but their place counts: Tab goes on from there.
  int tab_index() const { return tab_index_; }
  bool tab_stop() const { return tab_stop_; }
  void set_tab(int index, bool stop) { tab_index_ = index, tab_stop_ = stop; }
  bool can_take_focus() const;

  // The properties marked since the last call, for the host.
  Properties take_changes() { return std::exchange(changes_, {}); }

 protected:
  Control(ControlOwner& owner, Kind kind, std::string_view name, int index, const Control* container);

  template <class T>
  bool change(T& field, T value, Property property) {
    if (field == value) return false;
    field = std::move(value);
    mark(property);
    return true;
  }
  bool change_text(std::string& field, std::string_view value, Property property) {
    if (field == value) return false;
    field = value;
    mark(property);
    return true;
  }
  void mark(Property property);
  void tell_change() { owner_.on_change(*this); }

 private:
  ControlOwner& owner_;
  std::string_view name_;
  const Control* container_;
  Bounds bounds_;
  std::string text_, tool_tip_, spoken_name_;
  Colour back_colour_ = system_colour::transparent;
  Colour fore_colour_ = system_colour::button_text;
  Properties changes_ = Properties::all();
  int index_, id_, tab_index_ = 0;
  Font font_;
  Kind kind_;
  Role role_ = Role::None;
  TablePlace table_place_;
  bool visible_ = true, enabled_ = true, tab_stop_ = false;
};

class Frame : public Control {
 public:
  Frame(ControlOwner& owner, std::string_view name, const Control* container = nullptr)
      : Control(owner, Kind::Frame, name, 0, container) {}
};

class Label : public Control {
 public:
  Label(ControlOwner& owner, std::string_view name, int index = 0, const Control* container = nullptr)
      : Control(owner, Kind::Label, name, index, container) {}
};

class CommandButton : public Control {
 public:
  CommandButton(ControlOwner& owner, std::string_view name, const Control* container = nullptr)
      : Control(owner, Kind::CommandButton, name, 0, container) {}
};

class TextBox : public Control {
 public:
  TextBox(ControlOwner& owner, std::string_view name, int index = 0, const Control* container = nullptr)
      : Control(owner, Kind::TextBox, name, index, container) {
    set_back_colour(system_colour::window);
    set_fore_colour(system_colour::window_text);
  }
  bool locked() const { return locked_; }
  void set_locked(bool locked) { change(locked_, locked, Property::Locked); }
  // Asks for the whole text to be selected, each time anew.
  void select_all() { mark(Property::Selection); }

 private:
  bool locked_ = false;
};

// `min` stands at the top (left) end and `max` at the bottom (right) end; `min` may be the larger one, so
// that the up arrow raises the value.
class ScrollBar : public Control {
 public:
  int min() const { return range_.min; }
  int max() const { return range_.max; }
  int value() const { return range_.value; }
  int small_change() const { return range_.small_change; }
  int large_change() const { return range_.large_change; }
  void set_range(int min, int max);
  void set_steps(int small_change, int large_change);
  // Tells the surface of a change, whoever makes it. A value beyond an end stops at that end.
  void set_value(int value);
  // Moves by `steps` arrows towards `max` (or, negative, towards `min`).
  int stepped(int change) const;

 protected:
  using Control::Control;

 private:
  struct Range {
    int min = 0, max = 32767, value = 0, small_change = 1, large_change = 1;
    friend bool operator==(const Range&, const Range&) = default;
  };
  Range range_;
};

class HScrollBar : public ScrollBar {
 public:
  HScrollBar(ControlOwner& owner, std::string_view name, const Control* container = nullptr)
      : ScrollBar(owner, Kind::HScrollBar, name, 0, container) {}
};

class VScrollBar : public ScrollBar {
 public:
  VScrollBar(ControlOwner& owner, std::string_view name, const Control* container = nullptr)
      : ScrollBar(owner, Kind::VScrollBar, name, 0, container) {}
};

class Line : public Control {
 public:
  Line(ControlOwner& owner, std::string_view name, int index = 0, const Control* container = nullptr)
      : Control(owner, Kind::Line, name, index, container) {}
  Point from() const { return ends_.first; }
  Point to() const { return ends_.second; }
  // Its bounds become the box around them, without any thickness.
  void set_ends(Point from, Point to);

 private:
  std::pair<Point, Point> ends_;
};

class Image : public Control {
 public:
  Image(ControlOwner& owner, std::string_view name, int index = 0, const Control* container = nullptr)
      : Control(owner, Kind::Image, name, index, container) {}
  Picture picture() const { return picture_; }
  void set_picture(Picture picture) { change(picture_, picture, Property::Picture); }

 private:
  Picture picture_ = Picture::None;
};

class PictureBox : public Control {
 public:
  PictureBox(ControlOwner& owner, std::string_view name, const Control* container = nullptr)
      : Control(owner, Kind::PictureBox, name, 0, container) {}
  const Scale& scale() const { return scale_; }
  const DisplayList& drawing() const { return drawing_; }
  void set_scale(const Scale& scale) { change(scale_, scale, Property::Drawing); }
  void set_drawing(DisplayList drawing) { change(drawing_, std::move(drawing), Property::Drawing); }

 private:
  Scale scale_;
  DisplayList drawing_;
};

// A menu: a pop-up, an item in it, a submenu, or (with the caption "-") a separator line.
class Menu : public Control {
 public:
  Menu(ControlOwner& owner, std::string_view name, std::string_view caption, Menu* parent = nullptr);
  Menu* parent() const { return parent_; }
  const std::vector<Menu*>& items() const { return items_; }
  bool is_separator() const { return text() == "-"; }
  // Whether the item ever carries a check mark.
  bool checkable() const { return checkable_; }
  bool checked() const { return checked_; }
  void set_checkable() { change(checkable_, true, Property::Checked); }
  void set_checked(bool checked) { change(checked_, checked, Property::Checked); }

 private:
  Menu* parent_;
  std::vector<Menu*> items_;
  bool checkable_ = false, checked_ = false;
};

// What ControlList is for controls of every kind, made once.
class OwnedControls {
 public:
  std::size_t size() const { return controls_.size(); }
  // The place of a control; `size()` for any other.
  std::size_t find(const Control* control) const;

 protected:
  Control& own(std::unique_ptr<Control> control);
  Control& at(std::size_t place) const { return *controls_[place]; }

 private:
  std::vector<std::unique_ptr<Control>> controls_;
};

// Controls that a table describes, in its order:  ControlList<Label> labels;  labels.add(form, "lblTitle");
template <class C>
class ControlList : public OwnedControls {
 public:
  template <class... Arguments>
  C& add(Arguments&&... arguments) {
    return static_cast<C&>(own(std::make_unique<C>(std::forward<Arguments>(arguments)...)));
  }
  C& operator[](std::size_t place) const { return static_cast<C&>(at(place)); }
};

// A control array, indexed from 1:  ControlArray<TextBox, 35> txtTableau{*this, "txtTableau"};
template <class C, int count>
class ControlArray {
 public:
  explicit ControlArray(ControlOwner& owner, std::string_view name, const Control* container = nullptr)
      : ControlArray(owner, name, container, std::make_integer_sequence<int, count>{}) {}
  static constexpr int size() { return count; }
  C& operator()(int index) { return controls_[static_cast<std::size_t>(index - 1)]; }
  const C& operator()(int index) const { return controls_[static_cast<std::size_t>(index - 1)]; }
  bool has(const Control* control) const {
    return control && control->index() >= 1 && control->index() <= count &&
           &(*this)(control->index()) == control;
  }
  auto begin() { return controls_.begin(); }
  auto end() { return controls_.end(); }

 private:
  template <int... at>
  ControlArray(ControlOwner& owner, std::string_view name, const Control* container,
               std::integer_sequence<int, at...>)
      : controls_{C(owner, name, at + 1, container)...} {}
  std::array<C, count> controls_;
};

}  // namespace tabulon::platform
