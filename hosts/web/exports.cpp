#include "hosts/web/exports.h"

#include <algorithm>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "control/LPctrl.h"
#include "hosts/web/page_parameters.h"
#include "hosts/web/tableau_record.h"
#include "hosts/web/web_host.h"
#include "numbers/conversions.h"
#include "platform/look.h"

namespace tabulon::web {

using namespace platform;

static_assert(LPctrl::fixed_width == measure::control_width * measure::twips_per_pixel &&
              LPctrl::fixed_height == measure::control_height * measure::twips_per_pixel);

namespace {

// One page: the elements on it, the person at it, and the model that the elements share.
struct Page {
  WebHost host;
  Desk desk{host};
  basSafeCtl model;
  std::vector<std::unique_ptr<LPctrl>> elements;
  std::string argument, answer;

  Page() { model.observer = &host; }

  LPctrl* element(int id) const {
    const auto found = std::ranges::find(elements, host.surface(id), &std::unique_ptr<LPctrl>::get);
    return found != elements.end() ? found->get() : nullptr;
  }
  std::string take_argument() { return std::exchange(argument, {}); }
  int finish(const Result<>& result) {
    desk.flush();
    answer = result ? std::string() : result.error().subject;
    return result ? 0 : static_cast<int>(result.error().number);
  }
};

// Lives as long as the page does; nothing is there to tidy up after it.
[[clang::no_destroy]] Page this_page;

Task<> start_method(LPctrl& element, Method method) {
  switch (method) {
    case Method::ShowAboutBox:
      return element.ShowAboutBox();
    case Method::ShowfrmMelding:
      return element.ShowfrmMelding();
    case Method::ShowfrmFoutmelding:
      return element.ShowfrmFoutmelding();
    case Method::ShowfrmPivotelement:
      return element.ShowfrmPivotelement();
  }
}

PropertyValue value_of(Given given, double number, const std::string& text) {
  switch (given) {
    case Given::Number:
      return number;
    case Given::Truth:
      return number != 0;
    case Given::Text:
      return text;
  }
}

// Cuts "name NUL rest" in two.
std::pair<std::string, std::string> cut(const std::string& listing) {
  const std::size_t end = std::min(listing.find('\0'), listing.size());
  return {listing.substr(0, end), listing.substr(std::min(end + 1, listing.size()))};
}

Menu* menu_item(int id) {
  const MenuSession* const menu = this_page.desk.open_menu();
  if (!menu) return nullptr;
  const std::vector<Control*>& controls = menu->surface().controls();
  if (id < 0 || id >= static_cast<int>(controls.size())) return nullptr;
  Control* const control = controls[static_cast<std::size_t>(id)];
  return control->kind() == Kind::Menu ? static_cast<Menu*>(control) : nullptr;
}

Control* control_of(int surface, int control, Kind kind) {
  Control* const found = this_page.host.control(surface, control);
  return found && found->kind() == kind ? found : nullptr;
}

ScrollBar* bar_of(int surface, int control) {
  Control* found = control_of(surface, control, Kind::HScrollBar);
  if (!found) found = control_of(surface, control, Kind::VScrollBar);
  return static_cast<ScrollBar*>(found);
}

}  // namespace

// ---- Texts in and out

address Exports::argument(size length) {
  this_page.argument.resize(length);
  return reinterpret_cast<address>(this_page.argument.data());
}

address Exports::answer_at() {
  return reinterpret_cast<address>(this_page.answer.data());
}
size Exports::answer_size() {
  return this_page.answer.size();
}

// ---- An element's life

int Exports::create() {
  this_page.elements.push_back(std::make_unique<LPctrl>(this_page.desk, this_page.model));
  return this_page.host.add(*this_page.elements.back());
}

int Exports::start(int id) {
  const ParameterList parameters = parameters_in(this_page.take_argument());
  LPctrl* const element = this_page.element(id);
  if (!element) return 0;
  // What another element of the page has left may be too large; the parameters decide.
  static_cast<void>(element->UserControl_Initialize());
  const Result<> read = element->UserControl_ReadProperties(parameters);
  this_page.desk.call(*element, element->UserControl_Show());
  const int number = this_page.finish(read);
  if (number == 0) this_page.answer = not_asked_for(parameters);
  return number;
}

void Exports::abandon(int id) {
  LPctrl* const element = this_page.element(id);
  if (!element) return;
  this_page.desk.abandon(*element);
  this_page.desk.leave(*element);
}

void Exports::destroy(int id) {
  LPctrl* const element = this_page.element(id);
  if (!element) return;
  this_page.desk.abandon(*element);
  element->UserControl_Terminate();
  this_page.host.remove(*element);
  std::erase_if(this_page.elements, [&](const auto& each) { return each.get() == element; });
}

// ---- Scripts

int Exports::set_property(int id, Given given, double number) {
  const auto [name, text] = cut(this_page.take_argument());
  LPctrl* const element = this_page.element(id);
  if (!element) return 0;
  return this_page.finish(element->set_property(name, value_of(given, number, text)).value_or(Result<>{}));
}

int Exports::InitTableau(int id) {
  LPctrl* const element = this_page.element(id);
  return element ? this_page.finish(element->InitTableau()) : 0;
}

int Exports::SchrijfTableau(int id) {
  const std::string name = this_page.take_argument();
  LPctrl* const element = this_page.element(id);
  return element ? this_page.finish(element->SchrijfTableau(name)) : 0;
}
int Exports::LeesTableau(int id) {
  const std::string name = this_page.take_argument();
  LPctrl* const element = this_page.element(id);
  return element ? this_page.finish(element->LeesTableau(name)) : 0;
}

int Exports::restore(int id) {
  const std::string saved = this_page.take_argument();
  LPctrl* const element = this_page.element(id);
  return element ? this_page.finish(element->restore(saved).about("restore")) : 0;
}

int Exports::tableau() {
  Record record;
  const int number = this_page.finish(write_tableau_record(record, this_page.model).about("tableau"));
  if (number == 0) this_page.answer.assign(reinterpret_cast<const char*>(record.data()), record.size());
  return number;
}

int Exports::strSoortGetal(int id, double Soort, double Getal) {
  const LPctrl* const element = this_page.element(id);
  const Result<std::int16_t> kind = numbers::to_int16(Soort);
  if (!element) return 0;
  if (!kind) return this_page.finish(fail(kind.error().number, "strSoortGetal"));
  this_page.answer = element->strSoortGetal(*kind, Getal);
  return 0;
}

int Exports::call(int id, Method method) {
  LPctrl* const element = this_page.element(id);
  return element ? this_page.desk.call(*element, start_method(*element, method)) : 0;
}

// ---- Events

void Exports::click(int surface, int control) {
  if (Control* const found = this_page.host.control(surface, control))
    this_page.desk.click(*found);
  else if (Surface* const on = this_page.host.surface(surface))
    this_page.desk.click(*on);
}

bool Exports::type(int surface, int control) {
  const std::string text = this_page.take_argument();
  Control* const box = control_of(surface, control, Kind::TextBox);
  if (!box) return false;
  this_page.host.set_typed({box, text});
  this_page.desk.type(static_cast<TextBox&>(*box), text);
  this_page.host.set_typed({});
  return box == this_page.host.control(surface, control) && box->text() == text;
}

void Exports::focus(int surface, int control) {
  if (Control* const found = this_page.host.control(surface, control)) this_page.desk.focus(*found);
}

bool Exports::key(int surface, int code, int modifiers) {
  Surface* const on = this_page.host.surface(surface);
  return on && this_page.desk.key(*on, {code, modifiers});
}

void Exports::scroll(int surface, int control, int value, bool dragging) {
  if (ScrollBar* const bar = bar_of(surface, control)) this_page.desk.scroll(*bar, value, dragging);
}

void Exports::scroll_step(int surface, int control, int direction, bool page_wise) {
  ScrollBar* const bar = bar_of(surface, control);
  if (!bar) return;
  const int change = page_wise ? bar->large_change() : bar->small_change();
  this_page.desk.scroll(*bar, bar->stepped(direction * change));
}

void Exports::pointer(int surface, int control, PointerAction action, bool left_button, double x, double y) {
  if (Control* const found = this_page.host.control(surface, control))
    this_page.desk.pointer(*found, {action, left_button, x, y});
}

void Exports::enter(int surface) {
  if (Surface* const on = this_page.host.surface(surface)) this_page.desk.enter(*on);
}

void Exports::leave(int surface) {
  if (Surface* const on = this_page.host.surface(surface)) this_page.desk.leave(*on);
}

void Exports::menu_point_at(int item) {
  if (Menu* const found = menu_item(item)) this_page.desk.menu_point_at(*found);
}

void Exports::menu_choose(int item) {
  if (Menu* const found = menu_item(item)) this_page.desk.menu_choose(*found);
}

void Exports::menu_dismiss() {
  this_page.desk.menu_dismiss();
}

// ---- Answers

void Exports::answer(int ticket) {
  this_page.desk.answer(ticket, this_page.take_argument());
}

void Exports::put_file() {
  auto [name, content] = cut(this_page.take_argument());
  this_page.host.web_files().put(name, std::move(content));
}

}  // namespace tabulon::web
