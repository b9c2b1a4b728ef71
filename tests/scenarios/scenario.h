// A scenario: a script that a person can read, as a list of commands. tests/scenarios/README.md has the
// language.
//
//   std::vector<Command> commands = read_scenario("click cmd_Bewerken\nsee menu mnu_Bewerken\n");
//   commands[1].words == {"see", "menu", "mnu_Bewerken"}
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tabulon::scenarios {

struct Command {
  int line = 0;  // from 1
  // A quoted part is one word, without its quotes.
  std::vector<std::string> words{};
  // Whether words[at] was quoted.
  std::vector<bool> quoted{};
  // What follows "= " as it is written, or without its quotes.
  std::string value{};
  bool value_quoted = false;
  // The indented lines below it.
  std::vector<Command> below{};
};

std::vector<Command> read_scenario(std::string_view text);

}  // namespace tabulon::scenarios
