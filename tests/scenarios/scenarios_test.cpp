// Plays every scenario of this folder on the headless host.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "for_browser.h"
#include "player.h"

namespace tabulon::scenarios {
namespace {

std::vector<std::filesystem::path> scenario_files() {
  std::vector<std::filesystem::path> files;
  for (const auto& entry : std::filesystem::directory_iterator(TABULON_SOURCE_DIR "/tests/scenarios"))
    if (entry.path().extension() == ".txt") files.push_back(entry.path());
  std::ranges::sort(files);
  return files;
}

std::string contents_of(const std::filesystem::path& file) {
  std::ostringstream text;
  text << std::ifstream(file, std::ios::binary).rdbuf();
  return text.str();
}

// What the browser plays, and what it must see, goes to TABULON_SCENARIO_DUMPS, if that is set.
void keep(const std::string& name, const std::string& bytes) {
  if (const char* const folder = std::getenv("TABULON_SCENARIO_DUMPS"))
    std::ofstream(std::filesystem::path(folder) / name, std::ios::binary) << bytes;
}

class Language : public testing::Environment {
  void SetUp() override { keep("language.json", language_for_browser()); }
};
const testing::Environment* const language = testing::AddGlobalTestEnvironment(new Language);

class Scenario : public testing::TestWithParam<std::filesystem::path> {};

TEST_P(Scenario, IsSeenAsItSays) {
  const std::vector<Command> commands = read_scenario(contents_of(GetParam()));
  ASSERT_FALSE(commands.empty());
  EXPECT_TRUE(std::ranges::any_of(commands, [](const Command& command) {
    return command.words.front() == "see";
  })) << "a scenario says what must be seen";
  Player player;
  for (const Command& command : commands) player.play(command);
  player.end();
  for (const std::string& failure : player.failures())
    ADD_FAILURE() << GetParam().filename().string() << " " << failure;
  const std::string name = GetParam().stem().string();
  keep(name + ".dump", player.dumps());
  keep(name + ".json", steps_for_browser(commands));
}

std::string test_name(const testing::TestParamInfo<std::filesystem::path>& info) {
  std::string name = info.param.stem().string();
  std::ranges::replace_if(name, [](unsigned char letter) { return !std::isalnum(letter); }, '_');
  return name;
}

INSTANTIATE_TEST_SUITE_P(All, Scenario, testing::ValuesIn(scenario_files()), test_name);

}  // namespace
}  // namespace tabulon::scenarios
