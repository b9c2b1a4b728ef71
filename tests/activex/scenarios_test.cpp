// Plays every scenario on the control in a container, with real input; what is seen must be what the headless
// host shows, to the letter. A process plays one scenario, because all controls of a process share one model.
//
// Containers differ: every other scenario is played in one that reads the page's parameters into the control
// before it stands in a window, and offers each key to the control first. What can be set:
//
//   TABULON_ORDER=load-first        the first of these for all, or show-first
//   TABULON_KEYS=offered            the second for all, or dispatched
//   TABULON_SHOT=<folder>           a picture of the screen goes there at each dump
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>
#include <sstream>

#include "com_player.h"
#include "own_clock.h"
#include "stage.h"
#include "tests/scenarios/player.h"

namespace tabulon::activex {
namespace {

using scenarios::Command;

// The folder of this project as this system writes it, with a separator at its end. Where Windows is a guest,
// Z: is the root of the host's files.
std::string project_folder() {
  const std::string folder = TABULON_SOURCE_DIR "/";
  return folder.starts_with("/") ? "Z:" + folder : folder;
}

std::vector<std::string> scenario_names() {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(project_folder() + "tests/scenarios"))
    if (entry.path().extension() == ".txt") names.push_back(entry.path().stem().string());
  std::ranges::sort(names);
  return names;
}

std::string contents_of(const std::string& file) {
  std::ostringstream text;
  text << std::ifstream(file, std::ios::binary).rdbuf();
  return text.str();
}

// From "== label" on until the next: what was dumped under that label.
std::map<std::string, std::string, std::less<>> read_dumps(const std::string& text) {
  std::map<std::string, std::string, std::less<>> dumps;
  std::istringstream lines(text);
  std::string label;
  for (std::string line; std::getline(lines, line);) {
    if (line.starts_with("== "))
      label = line.substr(3);
    else
      dumps[label] += line + "\n";
  }
  return dumps;
}

bool is_set(const char* variable, std::string_view value, bool otherwise) {
  const char* const text = std::getenv(variable);
  return text ? text == value : otherwise;
}

// A folder of the test's own, empty, as the process's current one; and gone afterwards.
class Scratch {
 public:
  explicit Scratch(const std::string& name)
      : before_(std::filesystem::current_path()),
        folder_(std::filesystem::temp_directory_path() / ("tabulon-" + name)) {
    std::filesystem::remove_all(folder_);
    std::filesystem::create_directories(folder_);
    std::filesystem::current_path(folder_);
  }
  ~Scratch() {
    std::error_code ignored;
    std::filesystem::current_path(before_, ignored);
    std::filesystem::remove_all(folder_, ignored);
  }
  std::string path() const { return folder_.string() + "\\"; }

 private:
  std::filesystem::path before_, folder_;
};

class ScenarioInWindows : public testing::TestWithParam<std::string> {
 protected:
  static Container::Options container_options() {
    const std::vector<std::string> names = scenario_names();
    const bool is_other = (std::ranges::find(names, GetParam()) - names.begin()) % 2 == 1;
    const bool loads_first = is_set("TABULON_ORDER", "load-first", is_other);
    return {loads_first ? Container::Order::LoadFirst : Container::Order::ShowFirst,
            is_set("TABULON_KEYS", "offered", is_other)};
  }

  static std::map<std::string, std::string, std::less<>> headless_dumps(
      const std::vector<Command>& commands) {
    scenarios::Player player;
    for (const Command& command : commands) player.play(command);
    player.end();
    for (const std::string& failure : player.failures()) ADD_FAILURE() << "on the headless host: " << failure;
    return read_dumps(player.dumps());
  }
};

std::vector<std::string> played(const std::vector<Command>& commands, const ComPlayer::Options& options,
                                const Container::Options& container_options) {
  constexpr std::size_t enough_failures = 2;  // each has been waited for
  std::vector<std::string> failures;
  on_stage(container_options, [&](Container& container, Person& person) {
    std::optional<OwnClock> clock;  // a pause that begins just before midnight does not end
    ComPlayer player(container, person, options);
    for (const Command& command : commands) {
      player.play(command);
      if (!clock && GetModuleHandleW(L"Tabulon.ocx")) clock.emplace(noon_clock);
      if (player.failures().size() >= enough_failures) break;
    }
    player.end();
    failures = player.failures();
    EXPECT_TRUE(clock && *clock);
  });
  return failures;
}

TEST_P(ScenarioInWindows, IsSeenAsItSays) {
  static bool has_played = false;
  ASSERT_FALSE(std::exchange(has_played, true)) << "each scenario wants a process of its own";
  const std::vector<Command> commands =
      scenarios::read_scenario(contents_of(project_folder() + "tests/scenarios/" + GetParam() + ".txt"));
  ASSERT_FALSE(commands.empty());
  std::filesystem::current_path(project_folder());  // the headless player's files are on that drive
  ComPlayer::Options options{
      .dumps = headless_dumps(commands), .folder = {}, .project = project_folder(), .pictures = {}};
  const Scratch scratch(GetParam());
  options.folder = scratch.path();
  if (const char* const folder = std::getenv("TABULON_SHOT"))
    options.pictures = std::string(folder) + "/" + GetParam() + "-";

  for (const std::string& failure : played(commands, options, container_options()))
    ADD_FAILURE() << GetParam() << " " << failure;
}

std::string test_name(const testing::TestParamInfo<std::string>& info) {
  std::string name = info.param;
  std::ranges::replace_if(name, [](unsigned char letter) { return !std::isalnum(letter); }, '_');
  return name;
}

INSTANTIATE_TEST_SUITE_P(All, ScenarioInWindows, testing::ValuesIn(scenario_names()), test_name);

}  // namespace
}  // namespace tabulon::activex
