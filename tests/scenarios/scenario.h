// A scenario: a script that a person can read, as a list of commands. language.h has what a command can say.
//
//   std::vector<Command> commands = read_scenario("click cmd_Bewerken\nsee menu mnu_Bewerken\n");
//   commands[1].words == {"see", "menu", "mnu_Bewerken"}
//   understand(commands[1]).sentence->form == "see menu MENU"
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "language.h"

namespace tabulon::scenarios {

struct Command {
  int line = 0;  // from 1
  // A quoted part is one word, without its quotes.
  std::vector<std::string> words{};
  // Whether words[at] was quoted.
  std::vector<bool> quoted{};
  // What follows "= " as it is written, or without its quotes.
  std::optional<std::string> value{};
  bool value_quoted = false;
  // The indented lines below it.
  std::vector<Command> below{};
};

// As the messages about a scenario write its words.
std::string in_quotes(std::string_view text);

std::vector<Command> read_scenario(std::string_view text);

// What is not as it must be.
struct Failure {
  std::string what;
};

void expect(bool holds, const std::string& what);

struct Said {
  const Sentence* sentence;
  Arguments given;
};

// A Failure where the command is no sentence, or one of its words is not known.
Said understand(const Command& command);

}  // namespace tabulon::scenarios
