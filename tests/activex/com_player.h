// Plays a scenario on the control in a container, by keys and mouse.
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
#include "tests/scenarios/interpreter.h"

namespace tabulon::activex {

class ComPlayer final : public scenarios::Interpreter {
 public:
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

 private:
  using Named = scenarios::Named;

  void parameter(const std::string& name, const std::string& text) override;
  void show() override;
  void click(const Named& what) override;
  void leave() override;
  void choose(const std::string& name) override;
  void hover(const std::string& name) override;
  void press_key(const platform::KeyPress& key) override;
  void type(const std::string& text) override;
  void script(const std::string& property, const PropertyValue& value) override;
  void call(const std::string& method) override;
  void call_with_file(const std::string& method, const std::string& file) override;
  void wait(int seconds) override;
  void scroll(const Named& bar, Step step, bool forward) override;
  void scroll_to(const Named& bar, int place) override;
  void drag(const Named& what, int right, int down) override;
  void save_as(const std::string& file) override;
  void bring_file(const std::string& name, const std::string& bytes) override;
  void cancel_file() override;
  void dump(const std::string& label) override;
  void wait_until_idle() override;

  // A control that was never seen has no window.
  bool is_shown(const Named& what) override;
  scenarios::Looks look_at(const Named& what) override;
  std::optional<OpenForm> top_form() override;
  std::vector<std::string> open_menus() override;
  std::string focus() override;
  bool is_busy() override;
  scenarios::Files files() override;
  void collect_errors() override;
  void eventually(const std::function<void()>& check) override;

  const Eyes& eyes() const;
  // What is shown under that name; a failure when it is not there or not shown.
  Seen find(const Named& what) const;
  Seen find_bar(const Named& what) const;
  Seen find_item(const std::string& name) const;
  void begin_call(const std::string& method, const std::optional<std::string>& file);
  HWND file_dialog();
  void answer_file_dialog(const std::string& name);
  void note(HRESULT answer);

  Container& container_;
  Person& person_;
  Options options_;
  std::optional<Eyes> eyes_;  // once there is something to see
  Container::Parameters parameters_;
  // How the last call of a script ended; shared, because a call may last longer than this player.
  std::shared_ptr<std::optional<HRESULT>> called_;
};

}  // namespace tabulon::activex
