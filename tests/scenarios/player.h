// Plays a scenario on the headless host, and notes what is not as the scenario says.
//
//   Player player;
//   for (const Command& command : read_scenario(text)) player.play(command);
//   player.failures();     // "line 12: txtRL 1 shows \" 4\", not \" 5\""
//   player.dumps();        // what `dump` wrote, for comparison with other hosts
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "control/LPctrl.h"
#include "hosts/headless/headless_host.h"
#include "hosts/headless/page_parameters.h"
#include "scenario.h"

namespace tabulon::scenarios {

class Player {
 public:
  Player();
  ~Player();

  void play(const Command& command);
  // After the last command: an error that nobody looked at is a failure.
  void end() { expect_no_error(last_line_); }
  const std::vector<std::string>& failures() const { return failures_; }
  const std::string& dumps() const { return dumps_; }

 private:
  using Words = std::vector<std::string>;
  using Handler = void (Player::*)(const Command&);
  struct Entry {
    std::string_view word;
    Handler run;
  };
  struct State {
    std::string_view word;
    bool (*holds)(const platform::Control&);
  };
  struct Found {
    platform::Control* control;
    std::size_t next;  // the word after the name and the index
  };
  static const Entry entries[];
  static const Entry seen_entries[];
  static const State states[];

  void fail(std::string what);
  void expect(bool holds, std::string what);
  void expect_no_error(int line);
  void note(const Result<>& result);
  // The control that words[at] names, with its index if one follows; null, and a failure, when there is none.
  Found find(const Command& command, std::size_t at);
  platform::Surface& top();

  void page(const Command& command);
  void show(const Command& command);
  void click(const Command& command);
  void choose(const Command& command);
  void hover(const Command& command);
  void press(const Command& command);
  void press_key(const std::string& name);
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
  bool see_property(const Command& command, const Found& found);

  platform::Menu* open_item(const std::string& name);
  // Whether the person is asked for a file, for this purpose; a failure when not.
  bool asks_for_file(std::optional<platform::FileDialog::Purpose> purpose);
  void call_with_file(const Command& command);

  platform::HeadlessHost host_;
  basSafeCtl model_;
  LPctrl control_{host_.desk(), model_};
  PageParameters page_;
  std::map<std::string, std::string, std::less<>> brought_;  // files to open, by name
  platform::Control* typing_in_ = nullptr;                   // typing goes on behind what was typed there
  std::optional<RunTimeError> error_;
  std::size_t reports_seen_ = 0;
  int line_ = 0, last_line_ = 0;
  std::vector<std::string> failures_;
  std::string dumps_;
};

}  // namespace tabulon::scenarios
