#include "interpreter.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <utility>

namespace tabulon::scenarios {

namespace {

bool is_seeing(const Sentence& sentence) {
  return sentence.form.starts_with("see ");
}

void expect_shown(const Named& what, const std::string& shown, const std::string& wanted) {
  expect(shown == wanted, what.called() + " shows " + in_quotes(shown) + ", not " + in_quotes(wanted));
}

}  // namespace

std::optional<std::string> bytes_of(const std::string& file) {
  std::ifstream stream(file, std::ios::binary);
  if (!stream) return std::nullopt;
  std::ostringstream bytes;
  bytes << stream.rdbuf();
  return bytes.str();
}

void Interpreter::play(const Command& command) {
  if (command.words.empty() || command.words.front() != "see") end();
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
  const auto [sentence, given] = understand(command);
  if (is_seeing(*sentence)) return eventually([&] { sentence->say(*this, given); });
  sentence->say(*this, given);
  const std::string& word = command.words.front();
  if (word != "dump" && word != "page") wait_until_idle();
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

// ---- What is done

void Interpreter::page(const Parameters& parameters) {
  for (const auto& [name, text] : parameters) parameter(name, text);
}

void Interpreter::press(const Keys& keys) {
  for (const platform::KeyPress& key : keys) {
    press_key(key);
    wait_until_idle();
  }
}

void Interpreter::scroll_by(const Named& bar, Step step, int steps) {
  for (int turn = 0; turn < std::abs(steps); ++turn) {
    scroll(bar, step, steps > 0);
    wait_until_idle();
  }
}

void Interpreter::open_file(const std::string& path) {
  const std::string bytes = project_file(path), name = std::filesystem::path(path).filename().string();
  bring_file(name, bytes);
  brought_[name] = bytes;
}

// ---- What must be seen

void Interpreter::see_form(const std::string& name) {
  const std::optional<OpenForm> form = top_form();
  expect(form.has_value(), "no form is open");
  expect(form->name == name, "the open form is " + form->name);
}

void Interpreter::see_form_with_caption(const std::string& name, const std::string& caption) {
  see_form(name);
  const std::string shown = top_form()->caption;
  expect(shown == caption, "the form's caption is " + in_quotes(shown));
}

void Interpreter::see_no_form() {
  expect(!top_form(), "a form is open");
}

void Interpreter::see_menu(const std::string& name) {
  const std::vector<std::string> open = open_menus();
  expect(!open.empty(), "no menu is open");
  expect(std::ranges::find(open, name) != open.end(), "the open menu is " + open.front());
}

void Interpreter::see_no_menu() {
  expect(open_menus().empty(), "a menu is open");
}

void Interpreter::see_focus(const Named& what) {
  const std::string found = focus();
  expect(found == what.in_dumps(), found.empty() ? "nothing has the focus" : "the focus is on " + found);
}

void Interpreter::see_error(int number) {
  collect_errors();
  expect(error_.has_value(), "there was no error");
  expect(error_->number == number, "it was error " + std::to_string(error_->number));
  error_.reset();
}

void Interpreter::see_file(const std::string& file, const std::string& path) {
  const std::string wanted = project_file(path);
  const Files there = files();
  const auto written = there.find(file);
  expect(written != there.end(), "no file " + file + " was written");
  expect(written->second == wanted, file + " is not like " + path);
}

void Interpreter::see_no_file() {
  expect(files() == brought_, "a file was written");
}

void Interpreter::see_busy() {
  expect(is_busy(), "the control is not busy");
}

void Interpreter::see_idle() {
  expect(!is_busy(), "the control is busy");
}

void Interpreter::see_text(const Named& what, const std::string& text) {
  expect_shown(what, look_at(what).text, text);
}

void Interpreter::see_look(const Named& what, const Look& look, const std::string& text) {
  expect_shown(what, look_at(what).*look.shown, text);
}

void Interpreter::see_state(const Named& what, const State& state) {
  const bool is_so = state.is_so ? look_at(what).*state.is_so : is_shown(what);
  expect(is_so == state.wanted, what.called() + " is not " + std::string(state.word));
}

}  // namespace tabulon::scenarios
