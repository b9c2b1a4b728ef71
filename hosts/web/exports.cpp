// What the page calls. Surfaces and controls are named by number; a call for one that is gone does nothing.
//
// A text goes in through `argument` (room for its bytes) just before the call that takes it. A call that
// may fail returns the error's number, 0 when all is well, and leaves the subject as the answer; so does a
// call that gives a text.
#include <algorithm>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "control/LPctrl.h"
#include "hosts/web/page_parameters.h"
#include "hosts/web/web_host.h"
#include "numbers/conversions.h"

#define TABULON_EXPORT(name) [[clang::export_name(#name)]]

namespace tabulon::web {

using namespace platform;

namespace {

// One page: the elements on it, the person at it, and the model that the elements share.
struct Page {
  WebHost host;
  Desk desk{host};
  basSafeCtl model;
  std::map<int, std::unique_ptr<LPctrl>> elements;
  std::string argument, answer;

  LPctrl* element(int id) const {
    const auto found = elements.find(id);
    return found != elements.end() ? found->second.get() : nullptr;
  }
  std::string take_argument() { return std::exchange(argument, {}); }
  int finish(const Result<>& result) {
    desk.flush();
    answer = result ? std::string() : result.error().subject;
    return result ? 0 : static_cast<int>(result.error().number);
  }
};

// Lives as long as the page does; nothing is there to tidy up after it.
[[clang::no_destroy]] Page page;

// The methods that may wait for the person. `given` is what the script gives.
struct Method {
  std::string_view name;
  Task<> (*run)(LPctrl& element, const std::string& given);
};

constexpr Method methods[] = {
    {"ShowAboutBox", [](LPctrl& element, const std::string&) { return element.ShowAboutBox(); }},
    {"ShowfrmMelding", [](LPctrl& element, const std::string&) { return element.ShowfrmMelding(); }},
    {"ShowfrmFoutmelding", [](LPctrl& element, const std::string&) { return element.ShowfrmFoutmelding(); }},
    {"ShowfrmPivotelement",
     [](LPctrl& element, const std::string&) { return element.ShowfrmPivotelement(); }},
};

// Cuts "name NUL rest" in two.
std::pair<std::string, std::string> cut(const std::string& listing) {
  const std::size_t end = std::min(listing.find('\0'), listing.size());
  return {listing.substr(0, end), listing.substr(std::min(end + 1, listing.size()))};
}

Menu* menu_item(int id) {
  const MenuSession* const menu = page.desk.open_menu();
  if (!menu) return nullptr;
  const std::vector<Control*>& controls = menu->surface().controls();
  if (id < 0 || id >= static_cast<int>(controls.size())) return nullptr;
  Control* const control = controls[static_cast<std::size_t>(id)];
  return control->kind() == Kind::Menu ? static_cast<Menu*>(control) : nullptr;
}

Control* control_of(int surface, int control, Kind kind) {
  Control* const found = page.host.control(surface, control);
  return found && found->kind() == kind ? found : nullptr;
}

ScrollBar* bar_of(int surface, int control) {
  Control* found = control_of(surface, control, Kind::HScrollBar);
  if (!found) found = control_of(surface, control, Kind::VScrollBar);
  return static_cast<ScrollBar*>(found);
}

}  // namespace

extern "C" {

// ---- Texts in and out

TABULON_EXPORT(argument) char* tabulon_argument(std::size_t size) {
  page.argument.resize(size);
  return page.argument.data();
}

TABULON_EXPORT(answer_at) const char* tabulon_answer_at() {
  return page.answer.data();
}
TABULON_EXPORT(answer_size) std::size_t tabulon_answer_size() {
  return page.answer.size();
}

// ---- An element's life

TABULON_EXPORT(create) int tabulon_create() {
  auto element = std::make_unique<LPctrl>(page.desk, page.model);
  const int id = page.host.add(*element);
  page.elements.emplace(id, std::move(element));
  return id;
}

// Initialize, the parameters (the argument, see PageParameters), Show. The error is that of the parameters;
// the answer is its subject, or else the names of the parameters that nobody reads.
TABULON_EXPORT(start) int tabulon_start(int id) {
  const PageParameters parameters(page.take_argument());
  LPctrl* const element = page.element(id);
  if (!element) return 0;
  // What another element of the page has left may be too large; the parameters decide.
  static_cast<void>(element->UserControl_Initialize());
  const Result<> read = element->UserControl_ReadProperties(parameters);
  page.desk.call(*element, element->UserControl_Show());
  const int number = page.finish(read);
  if (number == 0) page.answer = parameters.not_asked_for();
  return number;
}

// The element has left the page; it may come back.
TABULON_EXPORT(abandon) void tabulon_abandon(int id) {
  LPctrl* const element = page.element(id);
  if (!element) return;
  page.desk.abandon(*element);
  page.desk.leave(*element);
}

TABULON_EXPORT(destroy) void tabulon_destroy(int id) {
  LPctrl* const element = page.element(id);
  if (!element) return;
  page.desk.abandon(*element);
  element->UserControl_Terminate();
  page.host.remove(*element);
  page.elements.erase(id);
}

// ---- Scripts

// The argument: the property's name, and after a NUL its text. `kind`: 0 a number, 1 a truth value, 2 a text.
TABULON_EXPORT(set_property) int tabulon_set_property(int id, int kind, double number) {
  const auto [name, text] = cut(page.take_argument());
  LPctrl* const element = page.element(id);
  if (!element) return 0;
  const PropertyValue value = kind == 2   ? PropertyValue(text)
                              : kind == 1 ? PropertyValue(number != 0)
                                          : PropertyValue(number);
  return page.finish(element->set_property(name, value).value_or(Result<>{}));
}

TABULON_EXPORT(InitTableau) int tabulon_InitTableau(int id) {
  LPctrl* const element = page.element(id);
  return element ? page.finish(element->InitTableau()) : 0;
}

// The argument: the file's name.
TABULON_EXPORT(SchrijfTableau) int tabulon_SchrijfTableau(int id) {
  const std::string name = page.take_argument();
  LPctrl* const element = page.element(id);
  return element ? page.finish(element->SchrijfTableau(name)) : 0;
}
TABULON_EXPORT(LeesTableau) int tabulon_LeesTableau(int id) {
  const std::string name = page.take_argument();
  LPctrl* const element = page.element(id);
  return element ? page.finish(element->LeesTableau(name)) : 0;
}

// The answer is the text.
TABULON_EXPORT(strSoortGetal) int tabulon_strSoortGetal(int id, double Soort, double Getal) {
  const LPctrl* const element = page.element(id);
  const Result<std::int16_t> kind = numbers::to_int16(Soort);
  if (!element) return 0;
  if (!kind) return page.finish(fail(kind.error().number, "strSoortGetal"));
  page.answer = element->strSoortGetal(*kind, Getal);
  return 0;
}

// The argument: the method's name, and after a NUL what is given. 0 when it has ended already, else a number
// for which the page is told when it has.
TABULON_EXPORT(call) int tabulon_call(int id) {
  const auto [name, given] = cut(page.take_argument());
  LPctrl* const element = page.element(id);
  if (!element) return 0;
  for (const Method& method : methods)
    if (method.name == name) return page.desk.call(*element, method.run(*element, given));
  return 0;
}

// ---- Events; a `control` of -1 is the surface itself

TABULON_EXPORT(click) bool tabulon_click(int surface, int control) {
  if (Control* const found = page.host.control(surface, control)) return page.desk.click(*found);
  Surface* const on = page.host.surface(surface);
  return on && page.desk.click(*on);
}

TABULON_EXPORT(type) bool tabulon_type(int surface, int control) {
  std::string text = page.take_argument();
  Control* const box = control_of(surface, control, Kind::TextBox);
  return box && page.desk.type(static_cast<TextBox&>(*box), std::move(text));
}

TABULON_EXPORT(focus) bool tabulon_focus(int surface, int control) {
  Control* const found = page.host.control(surface, control);
  return found && page.desk.focus(*found);
}

TABULON_EXPORT(key) bool tabulon_key(int surface, int code, int shift) {
  Surface* const on = page.host.surface(surface);
  return on && page.desk.key(*on, {code, shift});
}

TABULON_EXPORT(scroll) bool tabulon_scroll(int surface, int control, int value, bool dragging) {
  ScrollBar* const bar = bar_of(surface, control);
  return bar && page.desk.scroll(*bar, value, dragging);
}

// One arrow, or with `page_wise` one page, towards the bar's end (1) or its beginning (-1).
TABULON_EXPORT(scroll_step)
bool tabulon_scroll_step(int surface, int control, int direction, bool page_wise) {
  ScrollBar* const bar = bar_of(surface, control);
  if (!bar) return false;
  return page.desk.scroll(*bar,
                          bar->stepped(direction * (page_wise ? bar->large_change() : bar->small_change())));
}

TABULON_EXPORT(pointer)
bool tabulon_pointer(int surface, int control, int action, bool left_button, double x, double y) {
  Control* const found = page.host.control(surface, control);
  return found && page.desk.pointer(*found, {static_cast<Pointer::Action>(action), left_button, x, y});
}

TABULON_EXPORT(enter) void tabulon_enter(int surface) {
  if (Surface* const on = page.host.surface(surface)) page.desk.enter(*on);
}

TABULON_EXPORT(leave) void tabulon_leave(int surface) {
  if (Surface* const on = page.host.surface(surface)) page.desk.leave(*on);
}

TABULON_EXPORT(menu_point_at) void tabulon_menu_point_at(int item) {
  if (Menu* const found = menu_item(item)) page.desk.menu_point_at(*found);
}

TABULON_EXPORT(menu_choose) void tabulon_menu_choose(int item) {
  if (Menu* const found = menu_item(item)) page.desk.menu_choose(*found);
}

TABULON_EXPORT(menu_dismiss) void tabulon_menu_dismiss() {
  page.desk.menu_dismiss();
}

// ---- Answers

TABULON_EXPORT(answer) void tabulon_answer(int ticket) {
  page.desk.answer(ticket, page.take_argument());
}

// The argument: a file's name, and after a NUL its bytes.
TABULON_EXPORT(put_file) void tabulon_put_file() {
  auto [name, content] = cut(page.take_argument());
  page.host.web_files().put(name, std::move(content));
}
}

}  // namespace tabulon::web

#undef TABULON_EXPORT
