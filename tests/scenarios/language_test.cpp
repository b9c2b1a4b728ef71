// What scenarios can say, and what is told of those that say something else.
#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <utility>

#include "for_browser.h"
#include "player.h"

namespace tabulon::scenarios {
namespace {

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
  EXPECT_EQ(failures_of("show\nwait long\n"), "line 2: \"long\" is no whole number\n");
  EXPECT_EQ(failures_of("show\nsave here\n"), "line 2: it is save as FILE\n");
  EXPECT_EQ(failures_of("show\nscroll HScroll\n"),
            "line 2: it is scroll BAR arrow STEPS, or scroll BAR page STEPS, or scroll BAR to PLACE\n");
  EXPECT_EQ(failures_of("show\n  prmBigM = 3\n"), "line 1: it is show\n");
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

// ---- The README

using Row = std::pair<std::string, std::string>;

// As the formatter of such tables would have it: every column as wide as its widest cell.
std::string table(const Row& heading, const std::vector<Row>& rows) {
  const auto wider = [](const Row& one, const Row& other) {
    return Row{std::string(std::max(one.first.size(), other.first.size()), '-'),
               std::string(std::max(one.second.size(), other.second.size()), '-')};
  };
  const Row rule = std::accumulate(rows.begin(), rows.end(), wider(heading, heading), wider);
  const auto line = [&](const Row& row) {
    return "| " + row.first + std::string(rule.first.size() - row.first.size(), ' ') + " | " + row.second +
           std::string(rule.second.size() - row.second.size(), ' ') + " |\n";
  };
  std::string text = line(heading) + line(rule);
  for (const Row& row : rows) text += line(row);
  return text;
}

std::string code(std::string_view words) {
  return "`" + std::string(words) + "`";
}

template <class Table>
std::string list(const Table& words) {
  std::string all;
  for (const auto& row : words) all += (all.empty() ? "" : ", ") + code(row.word);
  return all;
}

std::string readme() {
  return bytes_of(TABULON_SOURCE_DIR "/tests/scenarios/README.md").value_or("");
}

void expect_in_readme(const std::string& part) {
  EXPECT_TRUE(readme().contains(part)) << "tests/scenarios/README.md must have this:\n\n" << part;
}

TEST(ScenarioReadme, HasEverySentence) {
  std::vector<Row> rows;
  for (const Sentence& sentence : sentences) rows.emplace_back(code(sentence.form), sentence.does);
  expect_in_readme(table({"sentence", "what it does, or what must be seen"}, rows));
}

TEST(ScenarioReadme, HasEveryPlaceholder) {
  std::vector<Row> rows;
  for (const Placeholder& each : placeholders) rows.emplace_back(code(each.word), each.is);
  expect_in_readme(table({"in its place", "stands"}, rows));
}

TEST(ScenarioReadme, HasEveryWordForWhatIsSeen) {
  std::vector<Row> rows;
  for (const Look& look : look_words) rows.emplace_back(code(look.word), look.is);
  expect_in_readme(table({"look", "what is seen"}, rows));
  expect_in_readme("States: " + list(state_words) + ".\n");
}

TEST(ScenarioReadme, HasEveryKey) {
  expect_in_readme("Keys: " + list(key_words) + ", a capital letter, a digit.\n");
  expect_in_readme("Held with them: " + list(modifier_words) + ".\n");
}

// ---- The browser's player

TEST(ScenarioForBrowser, IsWhatWasUnderstood) {
  const auto steps = [](std::string_view text) { return steps_for_browser(read_scenario(text)); };
  EXPECT_EQ(steps("press Ctrl+Left O"),
            R"([{"line":1,"says":"press KEY...","given":[[{"key":"ArrowLeft","held":["Control"]},)"
            R"({"key":"o","held":[]}]]}])"
            "\n");
  EXPECT_EQ(steps("show\njump\nsee txtRL 2 locked\n"),
            "[{\"line\":1,\"says\":\"show\",\"given\":[]},\n"
            R"({"line":3,"says":"see CONTROL STATE","given":[{"name":"txtRL","index":2},)"
            R"({"word":"locked","seen":"locked","wanted":true}]}])"
            "\n");
  EXPECT_EQ(steps("script prmBigM = 0.1\nscript prmShow = true\nscript prmRL = \"1\"\n"),
            R"([{"line":1,"says":"script PROPERTY = VALUE","given":["prmBigM",0.1]},)"
            "\n"
            R"({"line":2,"says":"script PROPERTY = VALUE","given":["prmShow",true]},)"
            "\n"
            R"({"line":3,"says":"script PROPERTY = VALUE","given":["prmRL","1"]}])"
            "\n");
  EXPECT_EQ(steps("page\n  prmRL = \\ \x01\n"),
            R"([{"line":1,"says":"page PARAMETERS","given":[{"prmRL":"\\ \u0001"}]}])"
            "\n");
}

}  // namespace
}  // namespace tabulon::scenarios
