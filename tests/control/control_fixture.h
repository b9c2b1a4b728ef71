// A control on a headless host with a person in front of it, so that a test reads as what the person does
// and sees.
//
//   TEST_F(ControlTest, OptimisingShowsTheOptimum) {
//     open(two_products);
//     choose("mnu_optimaliseren");
//     EXPECT_EQ(text("lblMelding"), "Optimale oplossing gevonden!");
//     press("Enter");
//     EXPECT_EQ(text("lblFRL"), " 36");
//   }
//
// Names are looked up on the form on top, or on the control when no form is open.
#pragma once

#include <gtest/gtest.h>

#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "hosts/headless/headless_host.h"
#include "tests/support/tested_control.h"

namespace tabulon {

// A page's parameters.
using Parameters = std::map<std::string, std::string, std::less<>>;

inline ParameterList page_with(const Parameters& parameters) {
  ParameterList page;
  for (const auto& [name, text] : parameters) page.add(name, text);
  return page;
}

// Maximise 3 x1 + 5 x2 with x1 <= 4, 2 x2 <= 12, 3 x1 + 2 x2 <= 18: two steps to F = 36 in (2, 6).
inline const Parameters two_products{
    {"prmNrBeslisVar", "2"},        {"prmNrKleinerGelijkVglen", "3"},
    {"prmSTR_DLfunctie", "-3, -5"}, {"prmSTR_KleinerGelijkVglen", " 1, 0, 0, 2, 3, 2"},
    {"prmSTR_RL", " 4, 12, 18"},
};

// Every kind of variable twice: 10 columns, 6 rows.
inline const Parameters every_kind{
    {"prmNrBeslisVar", "2"},
    {"prmNrKleinerGelijkVglen", "2"},
    {"prmNrGroterGelijkVglen", "2"},
    {"prmNrGelijkVglen", "2"},
};

// `rows` rows of `variables` coefficients, each telling where it belongs: " 203" in row 2, column 3.
inline std::string numbered_coefficients(int rows, int variables) {
  std::string list;
  for (int row = 1; row <= rows; ++row)
    for (int column = 1; column <= variables; ++column)
      list += (list.empty() ? " " : ", ") + std::to_string(row * 100 + column);
  return list;
}

// Row F holds 1.., the rows 101.., 201.., the right-hand sides 1000, 2000..
inline Parameters numbered(int variables, int rows) {
  std::string objective, right;
  for (int column = 1; column <= variables; ++column)
    objective += (column == 1 ? " " : ", ") + std::to_string(column);
  for (int row = 1; row <= rows; ++row) right += (row == 1 ? " " : ", ") + std::to_string(row * 1000);
  return {{"prmNrBeslisVar", std::to_string(variables)},
          {"prmNrKleinerGelijkVglen", std::to_string(rows)},
          {"prmSTR_DLfunctie", objective},
          {"prmSTR_KleinerGelijkVglen", numbered_coefficients(rows, variables)},
          {"prmSTR_RL", right}};
}

// "Ctrl+Left", "Shift+Tab", "Alt+B", "Enter".
inline platform::KeyPress key_named(std::string_view name) {
  static const std::map<std::string_view, int> codes{
      {"Tab", 9},  {"Enter", 13}, {"Escape", 27}, {"Space", 32}, {"PageUp", 33}, {"PageDown", 34},
      {"End", 35}, {"Home", 36},  {"Left", 37},   {"Up", 38},    {"Right", 39},  {"Down", 40}};
  static const std::map<std::string_view, int> shifts{{"Shift", 1}, {"Ctrl", 2}, {"Alt", 4}};
  platform::KeyPress press;
  for (std::size_t plus = name.find('+'); plus != std::string_view::npos; plus = name.find('+')) {
    press.shift += shifts.at(name.substr(0, plus));
    name.remove_prefix(plus + 1);
  }
  press.code = name.size() == 1 ? name.front() : codes.at(name);
  return press;
}

// A person in front of one control.
class Person {
 public:
  Person(platform::HeadlessHost& host, platform::Surface& control) : host_(host), control_(control) {}

  // ---- What the person does; false where the control did not take the event.
  bool click(std::string_view name, int index = 0) {
    platform::Control& control = on_front(name, index);
    const bool taken =
        control.kind() == platform::Kind::TextBox ? host_.desk().focus(control) : host_.desk().click(control);
    host_.answer_all();
    return taken;
  }
  bool press(std::string_view key) {
    const bool used = host_.desk().key(front(), key_named(key));
    host_.answer_all();
    return used;
  }
  // Replaces the text of the box that has the focus.
  bool type(std::string_view words) {
    platform::Control* const box = front().active();
    if (!box || box->kind() != platform::Kind::TextBox) return false;
    return host_.desk().type(static_cast<platform::TextBox&>(*box), std::string(words));
  }
  bool enter_text(std::string_view name, int index, std::string_view words) {
    return click(name, index) && type(words);
  }
  bool scroll(std::string_view bar, int value, bool dragging = false) {
    return host_.desk().scroll(static_cast<platform::ScrollBar&>(on_front(bar, 0)), value, dragging);
  }
  // Opens the item's menu with its button and clicks the item; false when it cannot be chosen.
  bool choose(std::string_view item_name) {
    auto& item = static_cast<platform::Menu&>(on_control(item_name, 0));
    const platform::Menu* top = &item;
    while (top->parent()) top = top->parent();
    click("cmd_" + std::string(top->name().substr(4)));
    if (!host_.open_menu()) return false;
    if (item.parent() != top) host_.desk().menu_choose(*item.parent());
    host_.desk().menu_choose(item);
    const bool chosen = host_.open_menu() == nullptr;
    host_.desk().menu_dismiss();
    host_.answer_all();
    return chosen;
  }

  // ---- What the person sees
  platform::Surface& front() const {
    if (platform::Form* const form = host_.top_form()) return *form;
    return control_;
  }
  std::string text(std::string_view name, int index = 0) const { return on_front(name, index).text(); }
  std::string tip(std::string_view name, int index = 0) const { return on_front(name, index).tool_tip(); }
  bool shown(std::string_view name, int index = 0) const { return on_front(name, index).shown(); }
  bool enabled(std::string_view name, int index = 0) const { return on_front(name, index).enabled(); }
  double left(std::string_view name) const { return on_front(name, 0).bounds().left; }
  bool locked(std::string_view name, int index = 0) const {
    return static_cast<const platform::TextBox&>(on_front(name, index)).locked();
  }
  bool checked(std::string_view item) const {
    return static_cast<const platform::Menu&>(on_control(item, 0)).checked();
  }
  const platform::ScrollBar& bar(std::string_view name) const {
    return static_cast<const platform::ScrollBar&>(on_front(name, 0));
  }
  // "224, 224, 224", or "window" for that system colour.
  std::string colour(std::string_view name, int index = 0) const {
    const platform::Colour colour = on_front(name, index).back_colour();
    if (colour == platform::system_colour::window) return "window";
    if (colour.is_system()) return "another system colour";
    return std::to_string(colour.red()) + ", " + std::to_string(colour.green()) + ", " +
           std::to_string(colour.blue());
  }
  // "txtTableau 7", "txtFocus".
  std::string focus() const { return named(front().active()); }
  // The form on top, or "".
  std::string form() const { return host_.top_form() ? std::string(host_.top_form()->name()) : ""; }
  std::string form_caption() const { return host_.top_form() ? host_.top_form()->caption() : ""; }
  // The open pop-up, or "".
  std::string menu() const {
    return host_.open_menu() ? std::string(host_.open_menu()->open().front()->name()) : "";
  }

 private:
  static std::string named(const platform::Control* control) {
    if (!control) return "nothing";
    std::string name(control->name());
    return control->index() == 0 ? name : name + " " + std::to_string(control->index());
  }
  static platform::Control& on(platform::Surface& surface, std::string_view name, int index) {
    platform::Control* const found = surface.find(name, index);
    if (!found) throw std::out_of_range(std::string(surface.name()) + " has no " + std::string(name));
    return *found;
  }
  platform::Control& on_front(std::string_view name, int index) const { return on(front(), name, index); }
  platform::Control& on_control(std::string_view name, int index) const { return on(control_, name, index); }

  platform::HeadlessHost& host_;
  platform::Surface& control_;
};

struct Stage {
  platform::HeadlessHost host;
  basSafeCtl model;
  TestedControl control{host.desk(), model};
};

// Creates, initialises and shows a control as a host does.
template <class Control>
Result<> open_control(platform::HeadlessHost& host, Control& control, const Parameters& parameters) {
  static_cast<void>(
      control.UserControl_Initialize());  // what the model held may be too large: the page decides
  auto built = control.UserControl_ReadProperties(page_with(parameters));
  host.desk().call(control, control.UserControl_Show());
  host.answer_all();
  return built;
}

class ControlTest : public testing::Test, public Stage, public Person {
 protected:
  ControlTest() : Person(host, control) {}

  void open(const Parameters& parameters = {}) { EXPECT_TRUE(try_open(parameters)); }
  Result<> try_open(const Parameters& parameters) { return open_control(host, control, parameters); }
  std::optional<Result<>> set(std::string_view property, const PropertyValue& value) {
    auto done = control.set_property(property, value);
    host.answer_all();
    return done;
  }
  // The number of the error that setting a property gives; 0 when it goes well, -1 for no such property.
  int error_of(std::string_view property, const PropertyValue& value) {
    const auto done = set(property, value);
    if (!done) return -1;
    return *done ? 0 : static_cast<int>(done->error().number);
  }

  // The grid as it is seen: cells by grid row and column.
  static int box(int grid_row, int grid_column) { return (grid_row - 1) * 5 + grid_column; }
  std::string cell(int grid_row, int grid_column) const {
    return text("txtTableau", box(grid_row, grid_column));
  }
  bool cell_shown(int grid_row, int grid_column) const {
    return shown("txtTableau", box(grid_row, grid_column));
  }
};

}  // namespace tabulon
