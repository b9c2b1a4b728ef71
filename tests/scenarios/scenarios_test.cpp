// Plays every scenario of this folder on the headless host.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

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

// Where the dumps go, for comparison with the browser's: TABULON_SCENARIO_DUMPS, if it is set.
void keep(const std::string& name, const std::string& dumps) {
  if (const char* const folder = std::getenv("TABULON_SCENARIO_DUMPS"))
    std::ofstream(std::filesystem::path(folder) / (name + ".dump"), std::ios::binary) << dumps;
}

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
  keep(GetParam().stem().string(), player.dumps());
}

std::string test_name(const testing::TestParamInfo<std::filesystem::path>& info) {
  std::string name = info.param.stem().string();
  std::ranges::replace_if(name, [](unsigned char letter) { return !std::isalnum(letter); }, '_');
  return name;
}

INSTANTIATE_TEST_SUITE_P(All, Scenario, testing::ValuesIn(scenario_files()), test_name);

// ---- The language itself

// The failures of a scenario, joined.
std::string failures_of(std::string_view text) {
  Player player;
  for (const Command& command : read_scenario(text)) player.play(command);
  player.end();
  std::string all;
  for (const std::string& failure : player.failures()) all += failure + "\n";
  return all;
}

TEST(ScenarioLanguage, WhatIsNotKnownIsAFailureWithItsLine) {
  EXPECT_EQ(failures_of("show\n\njump\n"), "line 3: unknown command \"jump\"\n");
  EXPECT_EQ(failures_of("show\nclick cmd_Nothing\n"), "line 2: there is no cmd_Nothing\n");
  EXPECT_EQ(failures_of("show\nsee txtTableau 36 \"x\"\n"), "line 2: there is no txtTableau 36\n");
  EXPECT_EQ(failures_of("show\nsee lblFRL red\n"), "line 2: nothing is known of \"red\"\n");
  EXPECT_EQ(failures_of("show\npress Hyper\n"), "line 2: there is no key \"Hyper\"\n");
  EXPECT_EQ(failures_of("show\nscript prmNothing = 1\n"), "line 2: there is no property prmNothing\n");
  EXPECT_EQ(failures_of("show\nchoose mnu_Reset\n"), "line 2: no menu is open\n");
}

TEST(ScenarioLanguage, AFileThatNobodyAsksForIsAFailure) {
  EXPECT_EQ(failures_of("show\nsave as a.tbl\n"), "line 2: nothing asks for such a file\n");
  EXPECT_EQ(failures_of("show\ncancel file\n"), "line 2: nothing asks for such a file\n");
  EXPECT_EQ(failures_of("show\nopen file nowhere.tbl\n"), "line 2: there is no file nowhere.tbl\n");
  EXPECT_EQ(failures_of("show\nsee file a.tbl like README.md\n"), "line 2: no file a.tbl was written\n");
  EXPECT_EQ(failures_of("show\ncall SchrijfTableau = a.tbl\nsee no file\n"), "line 3: a file was written\n");
  EXPECT_EQ(failures_of("show\ncall SchrijfTableau = a.tbl\nsee file a.tbl like README.md\n"),
            "line 3: a.tbl is not like README.md\n");
}

TEST(ScenarioLanguage, WhatIsSeenOtherwiseIsAFailure) {
  EXPECT_EQ(failures_of("show\nsee lblFRL \" 7\"\n"), "line 2: lblFRL shows \" 0\", not \" 7\"\n");
  EXPECT_EQ(failures_of("show\nsee form frmMelding\n"), "line 2: no form is open\n");
  EXPECT_EQ(failures_of("show\nclick cmd_Help\nsee no menu\n"), "line 3: a menu is open\n");
  EXPECT_EQ(failures_of("show\nsee txtTableau 1 locked\n"), "line 2: txtTableau 1 is not locked\n");
  EXPECT_EQ(failures_of("show\nsee txtTableau 5 shown\n"), "line 2: txtTableau 5 is not shown\n");
  EXPECT_EQ(failures_of("show\nsee error 9\n"), "line 2: there was no error\n");
}

TEST(ScenarioLanguage, AnErrorThatNobodyLooksAtIsAFailure) {
  EXPECT_EQ(failures_of("show\nscript prmNrBeslisVar = drie\nsee error 13\n"), "");
  EXPECT_NE(failures_of("show\nscript prmNrBeslisVar = drie\n"), "");
}

TEST(ScenarioLanguage, QuotesKeepBlanks) {
  const auto commands =
      read_scenario("page\n  prmSTR_RL = \" 3, 5\"\n  prmBigM =  7\n# nothing\nsee lblFRL \"  \"\n");
  ASSERT_EQ(commands.size(), 2U);
  ASSERT_EQ(commands[0].below.size(), 2U);
  EXPECT_EQ(commands[0].below[0].words, std::vector<std::string>{"prmSTR_RL"});
  EXPECT_EQ(commands[0].below[0].value, " 3, 5");
  EXPECT_EQ(commands[0].below[1].value, " 7");
  EXPECT_EQ(commands[1].words.back(), "  ");
  EXPECT_EQ(commands[1].line, 5);
}

}  // namespace
}  // namespace tabulon::scenarios
