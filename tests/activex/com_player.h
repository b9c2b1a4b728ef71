// Plays a scenario on the control in a container, by keys and mouse, and notes what is not as the scenario
// says.
//
//   Container container({});
//   Person person(container.thread());
//   ComPlayer player(container, person, {.dumps = headless_dumps});
//   for (const Command& command : commands) player.play(command);   // on a thread of its own
//   player.failures();             // "line 12: txtRL 1 shows \" 4\", not \" 5\""
//
// What must be seen is looked for until it is there, for as long as a person would wait. Time is real.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "container.h"
#include "eyes.h"
#include "person.h"
#include "tests/scenarios/scenario.h"

namespace tabulon::activex {

class ComPlayer {
 public:
  using Command = scenarios::Command;
  struct Options {
    // What each dump must be, by its label.
    std::map<std::string, std::string, std::less<>> dumps;
    // Where files are saved and opened: a folder of this test's own, with a separator at its end.
    std::string folder;
    // The folder of this project, with a separator at its end.
    std::string project;
    // Where a picture of the screen goes at each dump, with the picture's name so far; empty: nowhere.
    std::string pictures;
  };

  ComPlayer(Container& container, Person& person, Options options);

  void play(const Command& command);
  // After the last command: an error that nobody looked at is a failure.
  void end();
  const std::vector<std::string>& failures() const { return failures_; }

 private:
  // What is not as it must be.
  struct Failure {
    std::string what;
  };
  using Handler = void (ComPlayer::*)(const Command&);
  struct Entry {
    std::string_view word;
    Handler run;
  };
  struct State {
    std::string_view word;
    bool (*holds)(const Seen&);
  };
  struct Named {
    std::string name;
    int index;
    std::size_t next;  // the word after the name and the index
    std::string called() const { return index == 0 ? name : name + " " + std::to_string(index); }
  };
  static const Entry entries[];
  static const Entry seen_entries[];
  static const State states[];

  void run(const Command& command);
  void settle();
  void expect_no_error();
  // Until `check` fails no more, or patience ends.
  void eventually(const std::function<void()>& check);
  const Eyes& eyes() const;

  Named named(const Command& command, std::size_t at) const;
  // What is shown under that name; a failure when it is not there or not shown.
  Seen find(const Named& named) const;
  Seen find_item(const Command& command) const;
  bool is_shown(const Named& what) const;

  void page(const Command& command);
  void show(const Command& command);
  void click(const Command& command);
  void choose(const Command& command);
  void hover(const Command& command);
  void press(const Command& command);
  void type(const Command& command);
  void script(const Command& command);
  void call(const Command& command);
  void wait(const Command& command);
  void scroll(const Command& command);
  void drag(const Command& command);
  void save(const Command& command);
  void open(const Command& command);
  void cancel(const Command& command);
  void see(const Command& command);
  void dump(const Command& command);

  void see_no(const Command& command);
  void see_form(const Command& command);
  void see_menu(const Command& command);
  void see_focus(const Command& command);
  void see_error(const Command& command);
  void see_busy(const Command& command);
  void see_idle(const Command& command);
  void see_file(const Command& command);
  void see_control(const Command& command);

  void scroll_to(const Named& bar, int value);
  HWND file_dialog();
  void answer_file_dialog(const std::string& name);
  void note(HRESULT answer);

  Container& container_;
  Person& person_;
  Options options_;
  std::optional<Eyes> eyes_;  // once there is something to see
  Container::Parameters parameters_;
  std::map<std::string, std::string> brought_;  // files to open, by name
  // How the last call of a script ended; shared, because a call may last longer than this player.
  std::shared_ptr<std::optional<HRESULT>> called_;
  std::optional<int> error_;
  int last_line_ = 0;
  std::vector<std::string> failures_;
};

}  // namespace tabulon::activex
