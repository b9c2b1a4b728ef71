// Reads the commands of a scenario, has them done, and notes what is not as the scenario says. Who does them
// and looks, on the headless host or in windows, derives from it; a command or a word is added here, for all.
//
//   class Player final : public Interpreter { void click(const Named& what) override; ... };
//   Player player;
//   for (const Command& command : read_scenario(text)) player.play(command);
//   player.end();
//   player.failures();     // "line 12: txtRL 1 shows \" 4\", not \" 5\""
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "control/LPctrl.h"
#include "platform/keys.h"
#include "scenario.h"

namespace tabulon::scenarios {

using Files = std::map<std::string, std::string, std::less<>>;  // their bytes, by name

// Nothing where the file cannot be read.
std::optional<std::string> bytes_of(const std::string& file);

// What is not as it must be.
struct Failure {
  std::string what;
};

void expect(bool holds, const std::string& what);

// A control as a scenario names it.
struct Named {
  std::string name;
  int index = 0;  // from 1 in a control array, else 0

  std::string called() const { return index == 0 ? name : name + " " + std::to_string(index); }
  std::string in_dumps() const { return index == 0 ? name : name + "[" + std::to_string(index) + "]"; }
};

// What a person sees of a control.
struct Looks {
  std::string text, back, tip;
  std::string value{};  // of a scroll bar
  bool locked = false, checked = false, disabled = false;
};

class Interpreter {
 public:
  void play(const Command& command);
  // After the last command: an error that nobody looked at is a failure.
  void end();
  const std::vector<std::string>& failures() const { return failures_; }

 protected:
  enum class Step { Arrow, Page };
  struct OpenForm {
    std::string name, caption;
  };

  // The folder of this project, with a separator at its end.
  explicit Interpreter(std::string project) : project_(std::move(project)) {}
  ~Interpreter() = default;

  // The run-time error that a command ended in.
  void note(int number, std::string subject = {});

 private:
  // ---- What is done. Each throws a Failure where it cannot be.
  virtual void parameter(const std::string& name, const std::string& text) = 0;
  virtual void show() = 0;
  virtual void click(const Named& what) = 0;
  virtual void choose(const std::string& item) = 0;
  virtual void hover(const std::string& item) = 0;
  virtual void press(const platform::KeyPress& key) = 0;
  virtual void type(const std::string& text) = 0;
  virtual void script(const std::string& property, const PropertyValue& value) = 0;
  virtual void call(const std::string& method, const std::string& file) = 0;
  virtual void wait(int seconds) = 0;
  virtual void scroll(const Named& bar, Step step, bool forward) = 0;
  virtual void scroll_to(const Named& bar, int value) = 0;
  virtual void drag(const Named& what, int right, int down) = 0;  // in pixels
  virtual void save_as(const std::string& name) = 0;
  virtual void open_file(const std::string& name, const std::string& bytes) = 0;
  virtual void cancel_file() = 0;
  virtual void dump(const std::string& label) = 0;
  // Until all that was begun is done.
  virtual void wait_until_idle() = 0;

  // ---- What is there
  virtual bool is_shown(const Named& what) = 0;
  // A Failure where it is not shown.
  virtual Looks look_at(const Named& what) = 0;
  virtual std::optional<OpenForm> top_form() = 0;
  virtual std::vector<std::string> open_menus() = 0;
  // As a dump names it; empty where nothing has the focus.
  virtual std::string focus() = 0;
  virtual bool is_busy() = 0;
  // Those that were saved, and those brought to be opened.
  virtual Files files() = 0;
  // Notes an error that has come since.
  virtual void collect_errors() = 0;
  // Until `check` fails no more, or patience ends.
  virtual void eventually(const std::function<void()>& check) { check(); }

  using Handler = void (*)(Interpreter&, const Command&);
  struct Entry {
    std::string_view word;
    Handler run;
  };
  struct Error {
    int number;
    std::string subject;
  };
  static const Entry entries[];
  static const Entry seen_entries[];

  void attempt(const std::function<void()>& part);
  void run(const Command& command);
  void expect_no_error();
  std::string project_file(const std::string& path) const;

  void read_parameters(const Command& command);
  void press_keys(const Command& command);
  void scroll_bar(const Command& command);
  void drag_control(const Command& command);
  void open_project_file(const Command& command);
  void see(const Command& command);
  void see_no(const Command& command);
  void see_form(const Command& command);
  void see_menu(const Command& command);
  void see_focus(const Command& command);
  void see_error(const Command& command);
  void see_file(const Command& command);
  void see_control(const Command& command);

  std::string project_;
  Files brought_;  // files to open
  std::optional<Error> error_;
  int line_ = 0;
  std::vector<std::string> failures_;
};

}  // namespace tabulon::scenarios
