#include "player.h"

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <utility>

#include "hosts/headless/visible_state.h"
#include "platform/captions.h"

namespace tabulon::scenarios {

using namespace platform;

namespace {

std::string in_quotes(std::string_view text) {
  return "\"" + std::string(text) + "\"";
}

// Nothing where the text is no whole number; a sign is allowed.
std::optional<int> whole_number(std::string_view text) {
  if (text.starts_with('+')) text.remove_prefix(1);
  int number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  return error == std::errc() && end == text.data() + text.size() ? std::optional(number) : std::nullopt;
}

std::optional<double> decimal_number(std::string_view text) {
  double number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  return error == std::errc() && end == text.data() + text.size() ? std::optional(number) : std::nullopt;
}

// What a script of the page would write: a text in quotes, true or false, a number, else a text.
PropertyValue script_value(const Command& command) {
  if (command.value_quoted) return command.value;
  if (command.value == "true" || command.value == "false") return command.value == "true";
  if (const auto number = decimal_number(command.value)) return *number;
  return command.value;
}

struct NamedKey {
  std::string_view name;
  int code;
};

constexpr NamedKey named_keys[] = {
    {"Tab", key::tab},   {"Enter", key::enter},    {"Escape", key::escape},  {"Space", key::space},
    {"Up", key::up},     {"Down", key::down},      {"Left", key::left},      {"Right", key::right},
    {"Home", key::home}, {"End", key::end},        {"PageUp", key::page_up}, {"PageDown", key::page_down},
    {"F10", key::f10},   {"Backspace", key::back},
};

constexpr NamedKey held_keys[] = {{"Shift+", held::shift}, {"Ctrl+", held::ctrl}, {"Alt+", held::alt}};

std::optional<KeyPress> key_press(std::string_view name) {
  KeyPress press;
  for (bool more = true; more;) {
    more = false;
    for (const NamedKey& held : held_keys) {
      if (!name.starts_with(held.name) || name.size() == held.name.size()) continue;
      press.shift += held.code;
      name.remove_prefix(held.name.size());
      more = true;
    }
  }
  const auto found = std::ranges::find(named_keys, name, &NamedKey::name);
  if (found != std::end(named_keys))
    press.code = found->code;
  else if (name.size() == 1 && name[0] >= '0' && name[0] <= 'Z')
    press.code = name[0];
  else
    return std::nullopt;
  return press;
}

// A file of this project, by its path in it; nothing where there is none.
std::optional<std::string> project_file(const std::string& path) {
  std::ifstream stream(TABULON_SOURCE_DIR "/" + path, std::ios::binary);
  std::ostringstream bytes;
  if (!(bytes << stream.rdbuf())) return std::nullopt;
  return bytes.str();
}

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

std::string described(const Control& control) {
  const std::string name(control.name());
  return control.index() == 0 ? name : name + " " + std::to_string(control.index());
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

const Player::Entry Player::entries[] = {
    {"page", &Player::page},     {"show", &Player::show},     {"click", &Player::click},
    {"choose", &Player::choose}, {"hover", &Player::hover},   {"press", &Player::press},
    {"type", &Player::type},     {"script", &Player::script}, {"call", &Player::call},
    {"wait", &Player::wait},     {"scroll", &Player::scroll}, {"see", &Player::see},
    {"dump", &Player::dump},     {"save", &Player::save},     {"open", &Player::open},
    {"cancel", &Player::cancel}, {"drag", &Player::drag},
};

const Player::Entry Player::seen_entries[] = {
    {"no", &Player::see_no},       {"form", &Player::see_form},   {"menu", &Player::see_menu},
    {"focus", &Player::see_focus}, {"error", &Player::see_error}, {"busy", &Player::see_busy},
    {"idle", &Player::see_idle},   {"file", &Player::see_file},
};

const Player::State Player::states[] = {
    {"locked", is_locked},
    {"unlocked", [](const Control& control) { return !is_locked(control); }},
    {"checked", is_checked},
    {"unchecked", [](const Control& control) { return !is_checked(control); }},
    {"enabled", [](const Control& control) { return control.enabled(); }},
    {"disabled", [](const Control& control) { return !control.enabled(); }},
};

Player::Player() {
  if (const auto done = control_.UserControl_Initialize(); !done) note(done);
}

Player::~Player() {
  host_.desk().abandon(control_);
}

void Player::fail(std::string what) {
  failures_.push_back("line " + std::to_string(line_) + ": " + std::move(what));
}

void Player::expect(bool holds, std::string what) {
  if (!holds) fail(std::move(what));
}

void Player::expect_no_error(int line) {
  if (!error_) return;
  line_ = line;
  fail("error " + std::to_string(static_cast<int>(error_->number)) + " (" + error_->subject +
       ") that nobody looks at");
  error_.reset();
}

void Player::note(const Result<>& result) {
  if (!result) error_ = result.error();
}

void Player::play(const Command& command) {
  line_ = command.line;
  if (command.words.empty()) return fail("no command");
  const std::string& word = command.words.front();
  if (word != "see") expect_no_error(last_line_);
  line_ = last_line_ = command.line;
  const auto found = std::ranges::find(entries, word, &Entry::word);
  if (found == std::end(entries)) return fail("unknown command " + in_quotes(word));
  if (!command.below.empty() && word != "page") return fail("only page has lines below it");
  if (word != "type" && word != "see" && word != "dump") typing_in_ = nullptr;
  (this->*found->run)(command);
  expect(host_.answer_all(), "it goes on without end");
  if (reports_seen_ < host_.reports.size()) error_ = host_.reports.back().error;
  reports_seen_ = host_.reports.size();
}

Surface& Player::top() {
  if (Form* const form = host_.top_form()) return *form;
  return control_;
}

Player::Found Player::find(const Command& command, std::size_t at) {
  if (at >= command.words.size()) {
    fail("a name is missing");
    return {nullptr, at};
  }
  const std::string& name = command.words[at];
  const bool has_more = at + 1 < command.words.size() && !command.quoted[at + 1];
  const std::optional<int> index = has_more ? whole_number(command.words[at + 1]) : std::nullopt;
  Control* found = top().find(name, index.value_or(0));
  if (!found) found = control_.find(name, index.value_or(0));
  if (!found) fail("there is no " + name + (index ? " " + command.words[at + 1] : ""));
  return {found, at + (index ? 2 : 1)};
}

// ---- Commands

void Player::page(const Command& command) {
  for (const Command& parameter : command.below) {
    if (parameter.words.size() == 1)
      page_.add(parameter.words[0], parameter.value);
    else
      fail("a parameter is written as name = text");
  }
}

void Player::show(const Command&) {
  note(control_.UserControl_ReadProperties(page_));
  host_.desk().call(control_, control_.UserControl_Show());
}

void Player::click(const Command& command) {
  const Found found = find(command, 1);
  if (!found.control) return;
  if (!found.control->shown()) return fail(described(*found.control) + " is not shown");
  if (host_.open_menu()) return host_.desk().menu_dismiss();
  Desk& desk = host_.desk();
  if (found.control->kind() == Kind::TextBox) desk.focus(*found.control);
  desk.click(*found.control);
}

Menu* Player::open_item(const std::string& name) {
  if (!host_.open_menu()) return fail("no menu is open"), nullptr;
  for (const Menu* menu : host_.open_menu()->open())
    for (Menu* item : menu->items())
      if (item->name() == name) return item;
  return fail("no open menu has " + name), nullptr;
}

void Player::choose(const Command& command) {
  Menu* const item = command.words.size() == 2 ? open_item(command.words[1]) : nullptr;
  if (!item) return expect(command.words.size() == 2, "choose what?");
  host_.desk().menu_point_at(*item);
  host_.desk().menu_choose(*item);
}

void Player::hover(const Command& command) {
  Menu* const item = command.words.size() == 2 ? open_item(command.words[1]) : nullptr;
  if (!item) return expect(command.words.size() == 2, "hover over what?");
  host_.desk().menu_point_at(*item);
}

void Player::press(const Command& command) {
  expect(command.words.size() > 1, "press what?");
  for (std::size_t at = 1; at < command.words.size(); ++at) press_key(command.words[at]);
}

void Player::press_key(const std::string& name) {
  const std::optional<KeyPress> press = key_press(name);
  if (!press) return fail("there is no key " + in_quotes(name));
  const bool used = host_.desk().key(top(), *press);
  host_.answer_all();
  if (used) return;
  if (press->code == key::tab) return host_.desk().leave(top());
  const Control* const active = top().active();
  if (active && active->kind() == Kind::TextBox && press->shift == held::none && press->code >= '0')
    fail("the letter " + name + " would be written into " + described(*active) + "; use type");
}

void Player::type(const Command& command) {
  if (command.words.size() != 2) return fail("type one word, or a text in quotes");
  Control* const active = top().active();
  if (!active || active->kind() != Kind::TextBox) return fail("no text box has the focus");
  auto& box = static_cast<TextBox&>(*active);
  std::string text = typing_in_ == active ? box.text() : std::string();
  typing_in_ = active;
  for (const char letter : command.words[1]) {
    text += letter;
    host_.desk().type(box, text);
    text = box.text();
  }
}

void Player::script(const Command& command) {
  if (command.words.size() != 2) return fail("script name = value");
  const auto result = control_.set_property(command.words[1], script_value(command));
  if (!result) return fail("there is no property " + command.words[1]);
  note(*result);
  host_.desk().settle();
}

void Player::call(const Command& command) {
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
  if (command.words.size() != 2) return fail("call which method?");
  if (command.words[1] == "InitTableau") return note(control_.InitTableau());
  if (command.words[1].ends_with("Tableau")) return call_with_file(command);
  const auto found = std::ranges::find(methods, command.words[1], &Method::name);
  if (found == std::end(methods)) return fail("there is no method " + command.words[1]);
  host_.desk().call(control_, (control_.*found->run)());
}

void Player::call_with_file(const Command& command) {
  if (command.words[1] == "SchrijfTableau") return note(control_.SchrijfTableau(command.value));
  if (command.words[1] == "LeesTableau") return note(control_.LeesTableau(command.value));
  fail("there is no method " + command.words[1]);
}

bool Player::asks_for_file(std::optional<FileDialog::Purpose> purpose) {
  const auto& asked = host_.file_dialog();
  const bool does = asked && (!purpose || asked->purpose == *purpose);
  expect(does, "nothing asks for such a file");
  return does;
}

void Player::save(const Command& command) {
  if (command.words.size() != 3 || command.words[1] != "as") return fail("save as which name?");
  if (asks_for_file(FileDialog::Purpose::Save)) host_.answer_file_dialog(command.words[2]);
}

void Player::open(const Command& command) {
  if (command.words.size() != 3 || command.words[1] != "file") return fail("open file of which path?");
  auto bytes = project_file(command.words[2]);
  if (!bytes) return fail("there is no file " + command.words[2]);
  if (!asks_for_file(FileDialog::Purpose::Open)) return;
  const std::string name = std::filesystem::path(command.words[2]).filename().string();
  host_.memory_files.contents[name] = brought_[name] = *std::move(bytes);
  host_.answer_file_dialog(name);
}

void Player::cancel(const Command& command) {
  if (command.words.size() != 2 || command.words[1] != "file") return fail("cancel file");
  if (asks_for_file({})) host_.cancel_file_dialog();
}

void Player::wait(const Command& command) {
  const auto seconds = command.words.size() == 2 ? whole_number(command.words[1]) : std::nullopt;
  if (!seconds) return fail("wait how many seconds?");
  host_.advance(*seconds);
}

void Player::scroll(const Command& command) {
  const Found found = find(command, 1);
  if (!found.control) return;
  if (!is_bar(*found.control) || !found.control->shown()) return fail("no such bar is shown");
  auto& bar = static_cast<ScrollBar&>(*found.control);
  const std::string how = found.next < command.words.size() ? command.words[found.next] : "";
  const auto number =
      found.next + 1 < command.words.size() ? whole_number(command.words[found.next + 1]) : std::nullopt;
  if (!number) return fail("scroll how far?");
  Desk& desk = host_.desk();
  if (how == "arrow" || how == "page") {
    const int step = how == "arrow" ? bar.small_change() : bar.large_change();
    for (int turn = 0; turn < std::abs(*number); ++turn) {
      desk.scroll(bar, bar.stepped(*number > 0 ? step : -step));
      host_.answer_all();
    }
  } else if (how == "to") {
    desk.scroll(bar, *number, true);
  } else {
    fail("scroll by arrow, page or to");
  }
}

// A pixel is 15 units, on the surface and in its pictures.
void Player::drag(const Command& command) {
  using Action = Pointer::Action;
  const Found found = find(command, 1);
  if (!found.control) return;
  if (!found.control->shown()) return fail(described(*found.control) + " is not shown");
  const bool is_told = found.next + 3 == command.words.size() && command.words[found.next] == "by";
  const auto right = is_told ? whole_number(command.words[found.next + 1]) : std::nullopt;
  const auto down = is_told ? whole_number(command.words[found.next + 2]) : std::nullopt;
  if (!right || !down) return fail("drag by how many pixels to the right and down?");
  const Bounds& bounds = found.control->bounds();
  const double x = bounds.width / 2, y = bounds.height / 2;
  Desk& desk = host_.desk();
  desk.pointer(*found.control, {Action::Down, true, x, y});
  desk.pointer(*found.control, {Action::Move, true, x + 15 * *right, y + 15 * *down});
  desk.pointer(*found.control, {Action::Up, false, x, y});
  host_.answer_all();
  desk.click(*found.control);
}

void Player::dump(const Command& command) {
  if (command.words.size() != 2) return fail("dump under what name?");
  dumps_ += "== " + command.words[1] + "\n" + visible_state(host_, control_);
}

// ---- What must be seen

void Player::see(const Command& command) {
  if (command.words.size() < 2) return fail("see what?");
  const auto found = std::ranges::find(seen_entries, command.words[1], &Entry::word);
  (this->*(found == std::end(seen_entries) ? &Player::see_control : found->run))(command);
}

void Player::see_no(const Command& command) {
  const std::string what = command.words.size() == 3 ? command.words[2] : "";
  if (what == "form") return expect(!host_.top_form(), "a form is open");
  if (what == "menu") return expect(!host_.open_menu(), "a menu is open");
  if (what == "file") return expect(host_.memory_files.contents == brought_, "a file was written");
  fail("see no form, see no menu, or see no file");
}

void Player::see_form(const Command& command) {
  if (command.words.size() < 3) return fail("see which form?");
  const Form* const form = host_.top_form();
  if (!form) return fail("no form is open");
  expect(form->name() == command.words[2], "the open form is " + std::string(form->name()));
  if (command.words.size() > 3)
    expect(form->caption() == command.words[3], "the form's caption is " + in_quotes(form->caption()));
}

void Player::see_menu(const Command& command) {
  if (command.words.size() != 3) return fail("see which menu?");
  if (!host_.open_menu()) return fail("no menu is open");
  const std::vector<Menu*>& open = host_.open_menu()->open();
  expect(std::ranges::find(open, command.words[2], &Menu::name) != open.end(),
         "the open menu is " + std::string(open.front()->name()));
}

void Player::see_focus(const Command& command) {
  const Found found = find(command, 2);
  if (!found.control) return;
  const Control* const active = top().has_focus() ? top().active() : nullptr;
  expect(active == found.control, active ? "the focus is on " + described(*active) : "nothing has the focus");
}

void Player::see_error(const Command& command) {
  const auto number = command.words.size() == 3 ? whole_number(command.words[2]) : std::nullopt;
  if (!number) return fail("see which error?");
  if (!error_) return fail("there was no error");
  expect(static_cast<int>(error_->number) == *number,
         "it was error " + std::to_string(static_cast<int>(error_->number)));
  error_.reset();
}

void Player::see_busy(const Command&) {
  expect(host_.is_busy(control_), "the control is not busy");
}
void Player::see_idle(const Command&) {
  expect(!host_.is_busy(control_), "the control is busy");
}

void Player::see_file(const Command& command) {
  if (command.words.size() != 5 || command.words[3] != "like") return fail("see file NAME like PATH");
  const auto wanted = project_file(command.words[4]);
  if (!wanted) return fail("there is no file " + command.words[4]);
  const auto& files = host_.memory_files.contents;
  const auto written = files.find(command.words[2]);
  if (written == files.end()) return fail("no file " + command.words[2] + " was written");
  expect(written->second == *wanted, command.words[2] + " is not like " + command.words[4]);
}

void Player::see_control(const Command& command) {
  const Found found = find(command, 1);
  if (!found.control) return;
  if (found.next >= command.words.size()) return fail("see what of " + command.words[1] + "?");
  const std::string& what = command.words[found.next];
  if (!command.quoted[found.next] && (what == "hidden" || what == "shown"))
    return expect(found.control->shown() == (what == "shown"), described(*found.control) + " is not " + what);
  if (found.control->kind() == Kind::Menu && !open_item(std::string(found.control->name()))) return;
  if (found.control->kind() != Kind::Menu && !found.control->shown())
    return fail(described(*found.control) + " is not shown");
  if (!see_property(command, found)) fail("nothing is known of " + in_quotes(what));
}

bool Player::see_property(const Command& command, const Found& found) {
  const Control& control = *found.control;
  const std::string& what = command.words[found.next];
  const auto equals = [&](const std::string& shown, const std::string& wanted) {
    expect(shown == wanted, described(control) + " shows " + in_quotes(shown) + ", not " + in_quotes(wanted));
    return true;
  };
  if (command.quoted[found.next]) return equals(shown_text(control), what);
  const auto state = std::ranges::find(states, what, &State::word);
  if (state != std::end(states)) {
    expect(state->holds(control), described(control) + " is not " + what);
    return true;
  }
  if (found.next + 1 >= command.words.size()) return false;
  const std::string& wanted = command.words[found.next + 1];
  if (what == "back") return equals(back_text(control.back_colour()), wanted);
  if (what == "tip") return equals(control.tool_tip(), wanted);
  if (what == "value" && is_bar(control))
    return equals(std::to_string(static_cast<const ScrollBar&>(control).value()), wanted);
  return false;
}

}  // namespace tabulon::scenarios
