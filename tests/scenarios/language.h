// What a scenario can say: every sentence, key and state, once for all players.
//
//   "drag CONTROL by RIGHT DOWN"   ->   Words::drag(control, right, down)
//
// A new sentence is a row of `sentences` and a member of Words. Then the players in C++ that lack it do not
// compile, nor does a row whose placeholders are not what its member takes; the browser's player, which is
// given what was understood here, and the README fail a test that names it.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <ranges>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <variant>
#include <vector>

#include "control/property_bag.h"
#include "platform/keys.h"

namespace tabulon::scenarios {

// ---- What is said of what

// A control as a scenario names it.
struct Named {
  std::string name;
  int index = 0;  // from 1 in a control array, else 0

  std::string called() const { return index == 0 ? name : name + " " + std::to_string(index); }
  std::string in_dumps() const { return index == 0 ? name : name + "[" + std::to_string(index) + "]"; }
};

// What a person sees of a control that is shown.
struct Looks {
  std::string text, back, tip;
  std::string value{};  // of a scroll bar
  bool locked = false, checked = false, disabled = false;
};

struct Look {
  std::string_view word;
  std::string Looks::* shown;
  std::string_view is;
};

inline constexpr Look look_words[] = {
    {"back", &Looks::back, "the back colour: `255,0,0`, `system` or `none`"},
    {"tip", &Looks::tip, "the tool tip"},
    {"value", &Looks::value, "where a scroll bar stands"},
};

struct State {
  std::string_view word;
  std::string_view seen;  // what the browser's eyes call it
  bool Looks::* is_so;    // null: whether it is shown at all
  bool wanted;
};

inline constexpr State state_words[] = {
    {"shown", "shown", nullptr, true},
    {"hidden", "shown", nullptr, false},
    {"locked", "locked", &Looks::locked, true},
    {"unlocked", "locked", &Looks::locked, false},
    {"enabled", "disabled", &Looks::disabled, false},
    {"disabled", "disabled", &Looks::disabled, true},
    {"checked", "checked", &Looks::checked, true},
    {"unchecked", "checked", &Looks::checked, false},
};

// ---- Keys

struct KeyWord {
  std::string_view word;
  int code;
  std::string_view on_page;  // as browsers call it
};

// A letter or a digit is a key too, by itself.
inline constexpr KeyWord key_words[] = {
    {"Tab", platform::key::tab, "Tab"},           {"Enter", platform::key::enter, "Enter"},
    {"Escape", platform::key::escape, "Escape"},  {"Space", platform::key::space, " "},
    {"Up", platform::key::up, "ArrowUp"},         {"Down", platform::key::down, "ArrowDown"},
    {"Left", platform::key::left, "ArrowLeft"},   {"Right", platform::key::right, "ArrowRight"},
    {"Home", platform::key::home, "Home"},        {"End", platform::key::end, "End"},
    {"PageUp", platform::key::page_up, "PageUp"}, {"PageDown", platform::key::page_down, "PageDown"},
    {"F10", platform::key::f10, "F10"},           {"Backspace", platform::key::back, "Backspace"},
};

inline constexpr KeyWord modifier_words[] = {
    {"Shift+", platform::modifier::shift, "Shift"},
    {"Ctrl+", platform::modifier::ctrl, "Control"},
    {"Alt+", platform::modifier::alt, "Alt"},
};

// ---- Placeholders: what stands in a sentence in capitals

using Keys = std::vector<platform::KeyPress>;
using Parameters = std::vector<std::pair<std::string, std::string>>;
using Argument = std::variant<Named, std::string, int, Keys, PropertyValue, Look, State, Parameters>;
using Arguments = std::vector<Argument>;

enum class Takes : std::uint8_t {
  Control,
  Text,
  Number,
  Keys,
  Value,
  Look,
  State,
  Parameters
};  // as Argument

struct Placeholder {
  std::string_view word;
  Takes takes;
  std::string_view is;
};

inline constexpr Placeholder placeholders[] = {
    {"CONTROL", Takes::Control, "a control's name, and in a control array its index: `txtRL 2`"},
    {"BAR", Takes::Control, "a scroll bar's name"},
    {"ITEM", Takes::Text, "the name of a menu item"},
    {"MENU", Takes::Text, "the name of a menu or submenu"},
    {"FORM", Takes::Text, "the name of a form"},
    {"PROPERTY", Takes::Text, "a property that a script can set"},
    {"METHOD", Takes::Text, "a method that a script can call"},
    {"VALUE", Takes::Value,
     "a number, `true`, `false`, or a text; as it stands, quotes keep blanks at its ends"},
    {"FILE", Takes::Text, "a file's name"},
    {"PATH", Takes::Text, "a file of this project"},
    {"LABEL", Takes::Text, "a name to find it again by"},
    {"TEXT", Takes::Text, "a word, or a text in quotes; where the sentence has quotes, only that"},
    {"SECONDS", Takes::Number, "a whole number"},
    {"STEPS", Takes::Number, "a whole number, below 0 up or to the left"},
    {"PLACE", Takes::Number, "a whole number"},
    {"RIGHT", Takes::Number, "a whole number of pixels, also below 0"},
    {"DOWN", Takes::Number, "a whole number of pixels, also below 0"},
    {"NUMBER", Takes::Number, "a whole number"},
    {"LOOK", Takes::Look, "one of those below"},
    {"STATE", Takes::State, "one of those below"},
    {"KEY...", Takes::Keys, "one key or more, of those below"},
    {"PARAMETERS", Takes::Parameters, "a line each, indented: `prmName = text`"},
};

constexpr const Placeholder* placeholder(std::string_view word) {
  if (word.starts_with('"')) word = word.substr(1, word.size() - 2);
  const auto* const found = std::ranges::find(placeholders, word, &Placeholder::word);
  return found != std::end(placeholders) ? found : nullptr;
}

// ---- Sentences

class Words {
 public:
  virtual void page(const Parameters& parameters) = 0;
  virtual void show() = 0;
  virtual void click(const Named& what) = 0;
  virtual void leave() = 0;
  virtual void choose(const std::string& item) = 0;
  virtual void hover(const std::string& item) = 0;
  virtual void press(const Keys& keys) = 0;
  virtual void type(const std::string& text) = 0;
  virtual void script(const std::string& property, const PropertyValue& value) = 0;
  virtual void call(const std::string& method) = 0;
  virtual void call_with_file(const std::string& method, const std::string& file) = 0;
  virtual void wait(int seconds) = 0;
  virtual void scroll_by_arrow(const Named& bar, int steps) = 0;
  virtual void scroll_by_page(const Named& bar, int steps) = 0;
  virtual void scroll_to(const Named& bar, int place) = 0;
  virtual void drag(const Named& what, int right, int down) = 0;
  virtual void save_as(const std::string& file) = 0;
  virtual void open_file(const std::string& path) = 0;
  virtual void cancel_file() = 0;
  virtual void dump(const std::string& label) = 0;

  virtual void see_form(const std::string& name) = 0;
  virtual void see_form_with_caption(const std::string& name, const std::string& caption) = 0;
  virtual void see_no_form() = 0;
  virtual void see_menu(const std::string& name) = 0;
  virtual void see_no_menu() = 0;
  virtual void see_focus(const Named& what) = 0;
  virtual void see_error(int number) = 0;
  virtual void see_file(const std::string& file, const std::string& path) = 0;
  virtual void see_no_file() = 0;
  virtual void see_busy() = 0;
  virtual void see_idle() = 0;
  virtual void see_text(const Named& what, const std::string& text) = 0;
  virtual void see_look(const Named& what, const Look& look, const std::string& text) = 0;
  virtual void see_state(const Named& what, const State& state) = 0;

 protected:
  ~Words() = default;
};

struct Sentence {
  std::string_view form, does;
  void (*say)(Words& to, const Arguments& given);
};

namespace form {

template <class Given, std::size_t at = 0>
consteval Takes takes() {
  if constexpr (std::is_same_v<std::variant_alternative_t<at, Argument>, std::remove_cvref_t<Given>>)
    return static_cast<Takes>(at);
  else
    return takes<Given, at + 1>();
}

constexpr auto words(std::string_view form) {
  return form | std::views::split(' ') |
         std::views::transform([](auto&& word) { return std::string_view(word.begin(), word.end()); });
}

template <class... Given>
consteval bool fits(std::string_view form, void (Words::*)(Given...)) {
  std::vector<Takes> wanted{takes<Given>()...}, given;
  for (const std::string_view word : words(form))
    if (const Placeholder* const found = placeholder(word)) given.push_back(found->takes);
  return wanted == given;
}

template <class... Given, std::size_t... at>
void say(void (Words::*member)(Given...), Words& to, const Arguments& given, std::index_sequence<at...>) {
  (to.*member)(std::get<std::remove_cvref_t<Given>>(given[at])...);
}

template <class... Given>
void say(void (Words::*member)(Given...), Words& to, const Arguments& given) {
  say(member, to, given, std::index_sequence_for<Given...>());
}

template <auto member>
consteval Sentence sentence(std::string_view form, std::string_view does) {
  if (!fits(form, member)) throw "the placeholders are not what the member takes";
  return {form, does, [](Words& to, const Arguments& given) { say(member, to, given); }};
}

}  // namespace form

// The first that a line fits is what it says.
inline constexpr Sentence sentences[] = {
    form::sentence<&Words::page>("page PARAMETERS", "the page's parameters, on the lines below"),
    form::sentence<&Words::show>("show", "the page with its control"),
    form::sentence<&Words::click>("click CONTROL", "a click on a text box, button or label"),
    form::sentence<&Words::leave>("leave", "a click beside the control"),
    form::sentence<&Words::choose>("choose ITEM", "a click on an item of the open menu"),
    form::sentence<&Words::hover>("hover ITEM", "the pointer rests on an item of the open menu"),
    form::sentence<&Words::press>("press KEY...", "one key after the other"),
    form::sentence<&Words::type>("type TEXT", "writes into the box that has the focus"),
    form::sentence<&Words::script>("script PROPERTY = VALUE", "a script of the page sets a property"),
    form::sentence<&Words::call_with_file>("call METHOD = FILE",
                                           "a script of the page calls a method for files"),
    form::sentence<&Words::call>("call METHOD", "a script of the page calls a method"),
    form::sentence<&Words::save_as>("save as FILE", "answers the question where to save"),
    form::sentence<&Words::open_file>("open file PATH", "answers the question what to open"),
    form::sentence<&Words::cancel_file>("cancel file", "answers no to the question for a file"),
    form::sentence<&Words::wait>("wait SECONDS", "so many seconds go by"),
    form::sentence<&Words::scroll_by_arrow>("scroll BAR arrow STEPS", "clicks on an arrow"),
    form::sentence<&Words::scroll_by_page>("scroll BAR page STEPS", "clicks on the track"),
    form::sentence<&Words::scroll_to>("scroll BAR to PLACE", "a drag of the thumb"),
    form::sentence<&Words::drag>("drag CONTROL by RIGHT DOWN", "presses in its middle, moves, and lets go"),
    form::sentence<&Words::dump>("dump LABEL", "writes down all that is seen"),
    form::sentence<&Words::see_form_with_caption>("see form FORM TEXT", "the form on top, and its caption"),
    form::sentence<&Words::see_form>("see form FORM", "the form on top"),
    form::sentence<&Words::see_no_form>("see no form", "no form is open"),
    form::sentence<&Words::see_menu>("see menu MENU", "an open menu or submenu"),
    form::sentence<&Words::see_no_menu>("see no menu", "no menu is open"),
    form::sentence<&Words::see_file>("see file FILE like PATH", "what was saved, byte for byte"),
    form::sentence<&Words::see_no_file>("see no file", "nothing was saved"),
    form::sentence<&Words::see_focus>("see focus CONTROL", "what has the focus"),
    form::sentence<&Words::see_error>("see error NUMBER",
                                      "the run-time error that the sentence before ended in"),
    form::sentence<&Words::see_busy>("see busy", "the control works"),
    form::sentence<&Words::see_idle>("see idle", "the control waits for the person"),
    form::sentence<&Words::see_text>("see CONTROL \"TEXT\"", "its text"),
    form::sentence<&Words::see_look>("see CONTROL LOOK TEXT", "what else is seen of it"),
    form::sentence<&Words::see_state>("see CONTROL STATE", "how it is; also of an item of the open menu"),
};

}  // namespace tabulon::scenarios
