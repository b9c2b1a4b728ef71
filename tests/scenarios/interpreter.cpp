#include "interpreter.h"

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <utility>

namespace tabulon::scenarios {

using namespace platform;

namespace {

std::string in_quotes(std::string_view text) {
  return "\"" + std::string(text) + "\"";
}

template <class Number>
std::optional<Number> number_in(std::string_view text) {
  Number number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  return error == std::errc() && end == text.data() + text.size() ? std::optional(number) : std::nullopt;
}

// Nothing where the text is no whole number; a sign is allowed.
std::optional<int> whole_number(std::string_view text) {
  if (text.starts_with('+')) text.remove_prefix(1);
  return number_in<int>(text);
}

// What a script of the page would write: a text in quotes, true or false, a number, else a text.
PropertyValue script_value(const Command& command) {
  if (command.value_quoted) return command.value;
  if (command.value == "true" || command.value == "false") return command.value == "true";
  if (const auto number = number_in<double>(command.value)) return *number;
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

constexpr NamedKey modifier_keys[] = {
    {"Shift+", modifier::shift}, {"Ctrl+", modifier::ctrl}, {"Alt+", modifier::alt}};

std::optional<KeyPress> key_press(std::string_view name) {
  KeyPress press;
  for (bool more = true; more;) {
    more = false;
    for (const NamedKey& held : modifier_keys) {
      if (!name.starts_with(held.name) || name.size() == held.name.size()) continue;
      press.shift |= held.code;
      name.remove_prefix(held.name.size());
      more = true;
    }
  }
  const auto found = std::ranges::find(named_keys, name, &NamedKey::name);
  if (found != std::end(named_keys))
    press.code = found->code;
  else if (name.size() == 1 && ((name[0] >= 'A' && name[0] <= 'Z') || (name[0] >= '0' && name[0] <= '9')))
    press.code = name[0];
  else
    return std::nullopt;
  return press;
}

// Empty where there are not so many words.
std::string word_at(const Command& command, std::size_t at) {
  return at < command.words.size() ? command.words[at] : std::string();
}

const std::string& last_word(const Command& command, std::size_t count, const std::string& question) {
  expect(command.words.size() == count, question);
  return command.words.back();
}

const std::string& word_after(std::string_view keyword, const Command& command, const std::string& question) {
  expect(word_at(command, 1) == keyword, question);
  return last_word(command, 3, question);
}

int number_of(const Command& command, std::size_t at, const std::string& question) {
  const std::optional<int> number = whole_number(word_at(command, at));
  expect(number.has_value(), question);
  return *number;
}

int last_number(const Command& command, std::size_t count, const std::string& question) {
  last_word(command, count, question);
  return number_of(command, count - 1, question);
}

// The control that words[at] names, with its index if one follows; moves `at` behind them.
Named take_name(const Command& command, std::size_t& at) {
  expect(at < command.words.size(), "a name is missing");
  const std::string& name = command.words[at++];
  const bool has_more = at < command.words.size() && !command.quoted[at];
  const std::optional<int> index = has_more ? whole_number(command.words[at]) : std::nullopt;
  if (index) ++at;
  return {name, index.value_or(0)};
}

Named named(const Command& command, std::size_t at) {
  return take_name(command, at);
}

struct State {
  std::string_view word;
  bool Looks::* is_so;
  bool wanted;
};

constexpr State states[] = {
    {"locked", &Looks::locked, true},     {"unlocked", &Looks::locked, false},
    {"checked", &Looks::checked, true},   {"unchecked", &Looks::checked, false},
    {"disabled", &Looks::disabled, true}, {"enabled", &Looks::disabled, false},
};

struct Property {
  std::string_view word;
  std::string Looks::* shown;
};

constexpr Property properties[] = {{"back", &Looks::back}, {"tip", &Looks::tip}, {"value", &Looks::value}};

}  // namespace

std::optional<std::string> bytes_of(const std::string& file) {
  std::ifstream stream(file, std::ios::binary);
  if (!stream) return std::nullopt;
  std::ostringstream bytes;
  bytes << stream.rdbuf();
  return bytes.str();
}

void expect(bool holds, const std::string& what) {
  if (!holds) throw Failure{what};
}

const Interpreter::Entry Interpreter::entries[] = {
    {"page", [](auto& it, auto& line) { it.read_parameters(line); }},
    {"show", [](auto& it, auto&) { it.show(); }},
    {"click", [](auto& it, auto& line) { it.click(named(line, 1)); }},
    {"choose", [](auto& it, auto& line) { it.choose(last_word(line, 2, "choose what?")); }},
    {"hover", [](auto& it, auto& line) { it.hover(last_word(line, 2, "hover over what?")); }},
    {"press", [](auto& it, auto& line) { it.press_keys(line); }},
    {"type", [](auto& it, auto& line) { it.type(last_word(line, 2, "type one word, or a text in quotes")); }},
    {"script",
     [](auto& it, auto& line) { it.script(last_word(line, 2, "script name = value"), script_value(line)); }},
    {"call", [](auto& it, auto& line) { it.call(last_word(line, 2, "call which method?"), line.value); }},
    {"wait", [](auto& it, auto& line) { it.wait(last_number(line, 2, "wait how many seconds?")); }},
    {"scroll", [](auto& it, auto& line) { it.scroll_bar(line); }},
    {"drag", [](auto& it, auto& line) { it.drag_control(line); }},
    {"save", [](auto& it, auto& line) { it.save_as(word_after("as", line, "save as which name?")); }},
    {"open", [](auto& it, auto& line) { it.open_project_file(line); }},
    {"cancel",
     [](auto& it, auto& line) {
       expect(last_word(line, 2, "cancel file") == "file", "cancel file");
       it.cancel_file();
     }},
    {"dump", [](auto& it, auto& line) { it.dump(last_word(line, 2, "dump under what name?")); }},
    {"see", [](auto& it, auto& line) { it.see(line); }},
};

const Interpreter::Entry Interpreter::seen_entries[] = {
    {"no", [](auto& it, auto& line) { it.see_no(line); }},
    {"form", [](auto& it, auto& line) { it.see_form(line); }},
    {"menu", [](auto& it, auto& line) { it.see_menu(line); }},
    {"focus", [](auto& it, auto& line) { it.see_focus(line); }},
    {"error", [](auto& it, auto& line) { it.see_error(line); }},
    {"busy", [](auto& it, auto&) { expect(it.is_busy(), "the control is not busy"); }},
    {"idle", [](auto& it, auto&) { expect(!it.is_busy(), "the control is busy"); }},
    {"file", [](auto& it, auto& line) { it.see_file(line); }},
};

void Interpreter::play(const Command& command) {
  if (word_at(command, 0) != "see") end();
  line_ = command.line;
  attempt([&] { run(command); });
}

void Interpreter::end() {
  attempt([&] { expect_no_error(); });
}

void Interpreter::attempt(const std::function<void()>& part) {
  try {
    part();
  } catch (const Failure& failure) {
    failures_.push_back("line " + std::to_string(line_) + ": " + failure.what);
  }
}

void Interpreter::run(const Command& command) {
  const std::string word = word_at(command, 0);
  const auto found = std::ranges::find(entries, word, &Entry::word);
  expect(found != std::end(entries), "unknown command " + in_quotes(word));
  expect(command.below.empty() || word == "page", "only page has lines below it");
  found->run(*this, command);
  if (word != "see" && word != "dump" && word != "page") wait_until_idle();
}

void Interpreter::note(int number, std::string subject) {
  error_ = Error{number, std::move(subject)};
}

void Interpreter::expect_no_error() {
  collect_errors();
  if (const auto error = std::exchange(error_, {}))
    throw Failure{"error " + std::to_string(error->number) +
                  (error->subject.empty() ? "" : " (" + error->subject + ")") + " that nobody looks at"};
}

std::string Interpreter::project_file(const std::string& path) const {
  auto bytes = bytes_of(project_ + path);
  expect(bytes.has_value(), "there is no file " + path);
  return *std::move(bytes);
}

// ---- Commands

void Interpreter::read_parameters(const Command& command) {
  for (const Command& line : command.below)
    parameter(last_word(line, 1, "a parameter is written as name = text"), line.value);
}

void Interpreter::press_keys(const Command& command) {
  expect(command.words.size() > 1, "press what?");
  for (std::size_t at = 1; at < command.words.size(); ++at) {
    const std::optional<KeyPress> key = key_press(command.words[at]);
    expect(key.has_value(), "there is no key " + in_quotes(command.words[at]));
    press(*key);
    wait_until_idle();
  }
}

void Interpreter::scroll_bar(const Command& command) {
  std::size_t at = 1;
  const Named bar = take_name(command, at);
  const std::string how = word_at(command, at);
  const int number = number_of(command, at + 1, "scroll how far?");
  if (how == "to") return scroll_to(bar, number);
  expect(how == "arrow" || how == "page", "scroll by arrow, page or to");
  for (int turn = 0; turn < std::abs(number); ++turn) {
    scroll(bar, how == "arrow" ? Step::Arrow : Step::Page, number > 0);
    wait_until_idle();
  }
}

void Interpreter::drag_control(const Command& command) {
  constexpr const char* question = "drag by how many pixels to the right and down?";
  std::size_t at = 1;
  const Named what = take_name(command, at);
  expect(word_at(command, at) == "by" && at + 3 == command.words.size(), question);
  drag(what, number_of(command, at + 1, question), number_of(command, at + 2, question));
}

void Interpreter::open_project_file(const Command& command) {
  const std::string& path = word_after("file", command, "open file of which path?");
  const std::string bytes = project_file(path), name = std::filesystem::path(path).filename().string();
  open_file(name, bytes);
  brought_[name] = bytes;
}

// ---- What must be seen

void Interpreter::see(const Command& command) {
  expect(command.words.size() > 1, "see what?");
  const auto found = std::ranges::find(seen_entries, command.words[1], &Entry::word);
  eventually([&] { found == std::end(seen_entries) ? see_control(command) : found->run(*this, command); });
}

void Interpreter::see_no(const Command& command) {
  constexpr const char* question = "see no form, see no menu, or see no file";
  const std::string& what = last_word(command, 3, question);
  if (what == "form") return expect(!top_form(), "a form is open");
  if (what == "menu") return expect(open_menus().empty(), "a menu is open");
  if (what == "file") return expect(files() == brought_, "a file was written");
  throw Failure{question};
}

void Interpreter::see_form(const Command& command) {
  expect(command.words.size() > 2, "see which form?");
  const std::optional<OpenForm> form = top_form();
  expect(form.has_value(), "no form is open");
  expect(form->name == command.words[2], "the open form is " + form->name);
  expect(command.words.size() == 3 || form->caption == command.words[3],
         "the form's caption is " + in_quotes(form->caption));
}

void Interpreter::see_menu(const Command& command) {
  const std::string& wanted = last_word(command, 3, "see which menu?");
  const std::vector<std::string> open = open_menus();
  expect(!open.empty(), "no menu is open");
  expect(std::ranges::find(open, wanted) != open.end(), "the open menu is " + open.front());
}

void Interpreter::see_focus(const Command& command) {
  const std::string wanted = named(command, 2).in_dumps(), found = focus();
  expect(found == wanted, found.empty() ? "nothing has the focus" : "the focus is on " + found);
}

void Interpreter::see_error(const Command& command) {
  const int number = last_number(command, 3, "see which error?");
  collect_errors();
  expect(error_.has_value(), "there was no error");
  expect(error_->number == number, "it was error " + std::to_string(error_->number));
  error_.reset();
}

void Interpreter::see_file(const Command& command) {
  expect(command.words.size() == 5 && command.words[3] == "like", "see file NAME like PATH");
  const std::string &name = command.words[2], &path = command.words[4];
  const std::string wanted = project_file(path);
  const Files there = files();
  const auto written = there.find(name);
  expect(written != there.end(), "no file " + name + " was written");
  expect(written->second == wanted, name + " is not like " + path);
}

void Interpreter::see_control(const Command& command) {
  std::size_t at = 1;
  const Named what = take_name(command, at);
  expect(at < command.words.size(), "see what of " + what.called() + "?");
  const std::string& word = command.words[at];
  const bool is_text = command.quoted[at];
  if (!is_text && (word == "hidden" || word == "shown"))
    return expect(is_shown(what) == (word == "shown"), what.called() + " is not " + word);
  const Looks looks = look_at(what);
  const auto expect_equal = [&](const std::string& shown, const std::string& wanted) {
    expect(shown == wanted, what.called() + " shows " + in_quotes(shown) + ", not " + in_quotes(wanted));
  };
  if (is_text) return expect_equal(looks.text, word);
  if (const auto state = std::ranges::find(states, word, &State::word); state != std::end(states))
    return expect(looks.*state->is_so == state->wanted, what.called() + " is not " + word);
  const auto property = std::ranges::find(properties, word, &Property::word);
  expect(property != std::end(properties) && at + 1 < command.words.size(),
         "nothing is known of " + in_quotes(word));
  expect_equal(looks.*property->shown, command.words[at + 1]);
}

}  // namespace tabulon::scenarios
