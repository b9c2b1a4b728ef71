// Plays a scenario on the headless host.
//
//   Player player;
//   for (const Command& command : read_scenario(text)) player.play(command);
//   player.end();
//   player.failures();     // "line 12: txtRL 1 shows \" 4\", not \" 5\""
//   player.dumps();        // what `dump` wrote, for comparison with other hosts
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "control/LPctrl.h"
#include "hosts/headless/headless_host.h"
#include "interpreter.h"

namespace tabulon::scenarios {

class Player final : public Interpreter {
 public:
  Player();
  ~Player();

  const std::string& dumps() const { return dumps_; }

 private:
  void parameter(const std::string& name, const std::string& text) override;
  void show() override;
  void click(const Named& what) override;
  void leave() override;
  void choose(const std::string& item) override;
  void hover(const std::string& item) override;
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

  bool is_shown(const Named& what) override;
  Looks look_at(const Named& what) override;
  std::optional<OpenForm> top_form() override;
  std::vector<std::string> open_menus() override;
  std::string focus() override;
  bool is_busy() override;
  Files files() override;
  void collect_errors() override;

  void note(const Result<>& result);
  platform::Surface& top();
  // Each a failure when there is none.
  platform::Control& find(const Named& what);
  platform::Control& find_shown(const Named& what);
  platform::ScrollBar& find_bar(const Named& what);
  platform::Menu& open_item(const std::string& name);
  // A failure when the person is not asked for a file, for this purpose.
  void expect_file_dialog(std::optional<platform::FileDialog::Purpose> purpose);

  platform::HeadlessHost host_;
  basSafeCtl model_;
  LPctrl control_{host_.desk(), model_};
  ParameterList page_;
  platform::Control* typing_in_ = nullptr;  // typing goes on behind what was typed there
  bool has_typed_ = false;                  // just now
  std::size_t reports_seen_ = 0;
  std::string dumps_;
};

}  // namespace tabulon::scenarios
