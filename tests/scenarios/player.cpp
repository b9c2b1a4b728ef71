#include "player.h"

#include <algorithm>
#include <utility>

#include "hosts/headless/visible_state.h"
#include "platform/captions.h"

namespace tabulon::scenarios {

using namespace platform;

namespace {

std::string back_text(Colour colour) {
  if (colour == system_colour::transparent) return "none";
  if (colour.is_system()) return "system";
  return std::to_string(colour.red()) + "," + std::to_string(colour.green()) + "," +
         std::to_string(colour.blue());
}

std::string shown_text(const Control& control) {
  const bool captioned = control.kind() == Kind::CommandButton || control.kind() == Kind::Menu;
  return captioned ? plain_caption(control.text()) : control.text();
}

Named named(const Control& control) {
  return {std::string(control.name()), control.index()};
}

bool is_bar(const Control& control) {
  return control.kind() == Kind::HScrollBar || control.kind() == Kind::VScrollBar;
}
bool is_locked(const Control& control) {
  return control.kind() == Kind::TextBox && static_cast<const TextBox&>(control).locked();
}
bool is_checked(const Control& control) {
  return control.kind() == Kind::Menu && static_cast<const Menu&>(control).checked();
}

}  // namespace

Player::Player() : Interpreter(TABULON_SOURCE_DIR "/") {
  note(control_.UserControl_Initialize());
}

Player::~Player() {
  host_.desk().abandon(control_);
}

void Player::note(const Result<>& result) {
  if (!result) Interpreter::note(static_cast<int>(result.error().number), result.error().subject);
}

void Player::wait_until_idle() {
  if (!std::exchange(has_typed_, false)) typing_in_ = nullptr;
  expect(host_.answer_all(), "it goes on without end");
}

void Player::collect_errors() {
  if (reports_seen_ < host_.reports.size()) note(std::unexpected(host_.reports.back().error));
  reports_seen_ = host_.reports.size();
}

Surface& Player::top() {
  if (Form* const form = host_.top_form()) return *form;
  return control_;
}

Control& Player::find(const Named& what) {
  Control* found = top().find(what.name, what.index);
  if (!found) found = control_.find(what.name, what.index);
  expect(found, "there is no " + what.called());
  return *found;
}

Control& Player::find_shown(const Named& what) {
  Control& found = find(what);
  expect(found.shown(), what.called() + " is not shown");
  return found;
}

ScrollBar& Player::find_bar(const Named& what) {
  Control& found = find_shown(what);
  expect(is_bar(found), what.called() + " is no bar");
  return static_cast<ScrollBar&>(found);
}

Menu& Player::open_item(const std::string& name) {
  expect(host_.open_menu(), "no menu is open");
  for (const Menu* menu : host_.open_menu()->open())
    for (Menu* item : menu->items())
      if (item->name() == name) return *item;
  throw Failure{"no open menu has " + name};
}

// ---- Commands

void Player::parameter(const std::string& name, const std::string& text) {
  page_.add(name, text);
}

void Player::show() {
  note(control_.UserControl_ReadProperties(page_));
  host_.desk().call(control_, control_.UserControl_Show());
}

void Player::click(const Named& what) {
  Control& control = find_shown(what);
  Desk& desk = host_.desk();
  if (host_.open_menu()) return desk.menu_dismiss();
  if (!host_.top_form()) desk.enter(control_);
  if (control.kind() == Kind::TextBox) desk.focus(control);
  desk.click(control);
}

void Player::leave() {
  host_.desk().leave(control_);
}

void Player::choose(const std::string& name) {
  Menu& item = open_item(name);
  host_.desk().menu_point_at(item);
  host_.desk().menu_choose(item);
}

void Player::hover(const std::string& name) {
  host_.desk().menu_point_at(open_item(name));
}

void Player::press_key(const KeyPress& key) {
  const bool used = host_.desk().key(top(), key);
  host_.answer_all();
  if (used) return;
  if (key.code == key::tab) return host_.desk().leave(top());
  const Control* const active = top().active();
  expect(!active || active->kind() != Kind::TextBox || key.shift != modifier::none || key.code < '0',
         "a letter would be written into " + focus() + "; use type");
}

void Player::type(const std::string& letters) {
  Control* const active = top().active();
  expect(active && active->kind() == Kind::TextBox, "no text box has the focus");
  auto& box = static_cast<TextBox&>(*active);
  std::string text = typing_in_ == active ? box.text() : std::string();
  typing_in_ = active;
  has_typed_ = true;
  for (const char letter : letters) {
    text += letter;
    host_.desk().type(box, text);
    text = box.text();
  }
}

void Player::script(const std::string& property, const PropertyValue& value) {
  const auto result = control_.set_property(property, value);
  expect(result.has_value(), "there is no property " + property);
  note(*result);
  host_.desk().flush();
}

void Player::call(const std::string& name) {
  struct Method {
    std::string_view name;
    Task<> (LPctrl::*run)();
  };
  static constexpr Method methods[] = {
      {"ShowAboutBox", &LPctrl::ShowAboutBox},
      {"ShowfrmMelding", &LPctrl::ShowfrmMelding},
      {"ShowfrmFoutmelding", &LPctrl::ShowfrmFoutmelding},
      {"ShowfrmPivotelement", &LPctrl::ShowfrmPivotelement},
  };
  if (name == "InitTableau") return note(control_.InitTableau());
  const auto found = std::ranges::find(methods, name, &Method::name);
  expect(found != std::end(methods), "there is no method " + name);
  host_.desk().call(control_, (control_.*found->run)());
}

void Player::call_with_file(const std::string& name, const std::string& file) {
  if (name == "SchrijfTableau") return note(control_.SchrijfTableau(file));
  if (name == "LeesTableau") return note(control_.LeesTableau(file));
  throw Failure{"there is no method " + name + " that takes a file"};
}

void Player::wait(int seconds) {
  host_.advance(seconds);
}

void Player::scroll(const Named& what, Step step, bool forward) {
  ScrollBar& bar = find_bar(what);
  const int change = step == Step::Arrow ? bar.small_change() : bar.large_change();
  host_.desk().scroll(bar, bar.stepped(forward ? change : -change));
}

void Player::scroll_to(const Named& what, int place) {
  host_.desk().scroll(find_bar(what), place, true);
}

// A pixel is 15 units, on the surface and in its pictures.
void Player::drag(const Named& what, int right, int down) {
  using Action = Pointer::Action;
  Control& control = find_shown(what);
  const double x = control.bounds().width / 2, y = control.bounds().height / 2;
  Desk& desk = host_.desk();
  desk.pointer(control, {Action::Down, true, x, y});
  desk.pointer(control, {Action::Move, true, x + 15 * right, y + 15 * down});
  desk.pointer(control, {Action::Up, false, x, y});
  host_.answer_all();
  desk.click(control);
}

void Player::expect_file_dialog(std::optional<FileDialog::Purpose> purpose) {
  const auto& asked = host_.file_dialog();
  expect(asked && (!purpose || asked->purpose == *purpose), "nothing asks for such a file");
}

void Player::save_as(const std::string& file) {
  expect_file_dialog(FileDialog::Purpose::Save);
  host_.answer_file_dialog(file);
}

void Player::bring_file(const std::string& name, const std::string& bytes) {
  expect_file_dialog(FileDialog::Purpose::Open);
  host_.memory_files.contents[name] = bytes;
  host_.answer_file_dialog(name);
}

void Player::cancel_file() {
  expect_file_dialog({});
  host_.cancel_file_dialog();
}

void Player::dump(const std::string& label) {
  dumps_ += "== " + label + "\n" + visible_state(host_, control_);
}

// ---- What is there

bool Player::is_shown(const Named& what) {
  return find(what).shown();
}

Looks Player::look_at(const Named& what) {
  const Control& control = find(what).kind() == Kind::Menu ? open_item(what.name) : find_shown(what);
  return {.text = shown_text(control),
          .back = back_text(control.back_colour()),
          .tip = control.tool_tip(),
          .value = is_bar(control) ? std::to_string(static_cast<const ScrollBar&>(control).value()) : "",
          .locked = is_locked(control),
          .checked = is_checked(control),
          .disabled = !control.enabled()};
}

std::optional<Interpreter::OpenForm> Player::top_form() {
  const Form* const form = host_.top_form();
  return form ? std::optional(OpenForm{std::string(form->name()), form->caption()}) : std::nullopt;
}

std::vector<std::string> Player::open_menus() {
  std::vector<std::string> names;
  if (host_.open_menu())
    for (const Menu* menu : host_.open_menu()->open()) names.emplace_back(menu->name());
  return names;
}

std::string Player::focus() {
  const Control* const active = top().has_focus() ? top().active() : nullptr;
  return active ? named(*active).in_dumps() : "";
}

bool Player::is_busy() {
  return host_.is_busy(control_);
}

Files Player::files() {
  return host_.memory_files.contents;
}

}  // namespace tabulon::scenarios
