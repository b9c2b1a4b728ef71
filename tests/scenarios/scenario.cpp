#include "scenario.h"

#include <utility>

namespace tabulon::scenarios {

namespace {

bool is_quoted(std::string_view text) {
  return text.size() >= 2 && text.front() == '"' && text.back() == '"';
}

std::string_view take_word(std::string_view& rest) {
  const std::size_t end = rest.front() == '"' ? rest.find('"', 1) : rest.find(' ');
  const std::size_t length = end == rest.npos ? rest.size() : rest.front() == '"' ? end + 1 : end;
  const std::string_view word = rest.substr(0, length);
  rest.remove_prefix(length);
  return word;
}

std::string_view without_quotes(std::string_view text) {
  return is_quoted(text) ? text.substr(1, text.size() - 2) : text;
}

Command read_line(std::string_view text, int number) {
  Command command{.line = number};
  while (!text.empty()) {
    if (text.front() == ' ') {
      text.remove_prefix(1);
    } else if (text.starts_with("= ")) {
      text.remove_prefix(2);
      command.value = without_quotes(text);
      command.value_quoted = is_quoted(text);
      break;
    } else {
      const std::string_view word = take_word(text);
      command.words.emplace_back(without_quotes(word));
      command.quoted.push_back(is_quoted(word));
    }
  }
  return command;
}

}  // namespace

std::vector<Command> read_scenario(std::string_view text) {
  std::vector<Command> commands;
  for (int number = 1; !text.empty(); ++number) {
    const std::size_t end = text.find('\n');
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(end == text.npos ? text.size() : end + 1);
    const std::size_t begin = line.find_first_not_of(' ');
    if (begin == line.npos || line[begin] == '#') continue;
    Command command = read_line(line.substr(begin), number);
    if (begin > 0 && !commands.empty())
      commands.back().below.push_back(std::move(command));
    else
      commands.push_back(std::move(command));
  }
  return commands;
}

}  // namespace tabulon::scenarios
