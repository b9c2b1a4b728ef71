// Has the sentences of a scenario done, and notes what is not as the scenario says. Who does them and looks,
// on the headless host or in windows, derives from it. language.h has what can be said.
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
#include <utility>
#include <vector>

#include "scenario.h"

namespace tabulon::scenarios {

using Files = std::map<std::string, std::string, std::less<>>;  // their bytes, by name

// Nothing where the file cannot be read.
std::optional<std::string> bytes_of(const std::string& file);

class Interpreter : public Words {
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
  // ---- What a player does besides what language.h has. Each throws a Failure where it cannot be done.
  virtual void parameter(const std::string& name, const std::string& text) = 0;
  virtual void press_key(const platform::KeyPress& key) = 0;
  virtual void scroll(const Named& bar, Step step, bool forward) = 0;
  virtual void bring_file(const std::string& name, const std::string& bytes) = 0;
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

  struct Error {
    int number;
    std::string subject;
  };
  void attempt(const std::function<void()>& part);
  void run(const Command& command);
  void expect_no_error();
  std::string project_file(const std::string& path) const;
  void scroll_by(const Named& bar, Step step, int steps);

  void page(const Parameters& parameters) final;
  void press(const Keys& keys) final;
  void scroll_by_arrow(const Named& bar, int steps) final { scroll_by(bar, Step::Arrow, steps); }
  void scroll_by_page(const Named& bar, int steps) final { scroll_by(bar, Step::Page, steps); }
  void open_file(const std::string& path) final;
  void see_form(const std::string& name) final;
  void see_form_with_caption(const std::string& name, const std::string& caption) final;
  void see_no_form() final;
  void see_menu(const std::string& name) final;
  void see_no_menu() final;
  void see_focus(const Named& what) final;
  void see_error(int number) final;
  void see_file(const std::string& file, const std::string& path) final;
  void see_no_file() final;
  void see_busy() final;
  void see_idle() final;
  void see_text(const Named& what, const std::string& text) final;
  void see_look(const Named& what, const Look& look, const std::string& text) final;
  void see_state(const Named& what, const State& state) final;

  std::string project_;
  Files brought_;  // files to open
  std::optional<Error> error_;
  int line_ = 0;
  std::vector<std::string> failures_;
};

}  // namespace tabulon::scenarios
