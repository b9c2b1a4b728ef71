#include "scenario.h"

#include <algorithm>
#include <charconv>
#include <utility>

namespace tabulon::scenarios {

namespace {

// ---- Lines

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

// ---- Words

template <class Number>
std::optional<Number> number_in(std::string_view text) {
  Number number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  return error == std::errc() && end == text.data() + text.size() ? std::optional(number) : std::nullopt;
}

// Nothing where the text is no whole number; a sign is allowed.
std::optional<int> whole_number(std::string_view text) {
  if (text.starts_with('+')) text.remove_prefix(1);
  return number_in<int>(text);
}

int known_number(std::string_view text) {
  const std::optional<int> number = whole_number(text);
  expect(number.has_value(), in_quotes(text) + " is no whole number");
  return *number;
}

// What a script of the page would write: a text in quotes, true or false, a number, else a text.
PropertyValue script_value(const std::string& text, bool quoted) {
  if (quoted) return text;
  if (text == "true" || text == "false") return text == "true";
  if (const auto number = number_in<double>(text)) return *number;
  return text;
}

bool is_letter_or_digit(std::string_view key) {
  return key.size() == 1 && ((key[0] >= 'A' && key[0] <= 'Z') || (key[0] >= '0' && key[0] <= '9'));
}

platform::KeyPress key_press(std::string_view word) {
  platform::KeyPress press;
  std::string_view rest = word;
  const auto held = [&](const KeyWord& each) { return rest.starts_with(each.word) && rest != each.word; };
  for (auto found = std::ranges::find_if(modifier_words, held); found != std::end(modifier_words);
       found = std::ranges::find_if(modifier_words, held)) {
    press.shift |= found->code;
    rest.remove_prefix(found->word.size());
  }
  const auto named = std::ranges::find(key_words, rest, &KeyWord::word);
  const bool is_named = named != std::end(key_words);
  expect(is_named || is_letter_or_digit(rest), "there is no key " + in_quotes(word));
  press.code = is_named ? named->code : rest[0];
  return press;
}

template <class Table>
const auto& row_of(const Table& table, std::string_view word) {
  const auto found = std::ranges::find(table, word, [](const auto& row) { return row.word; });
  expect(found != std::end(table), "nothing is known of " + in_quotes(word));
  return *found;
}

// ---- Sentences

// Goes along a command beside the form of a sentence.
class Reader {
 public:
  explicit Reader(const Command& command) : command_(command) {}

  // Whether the command is such a sentence, whatever its words are.
  bool fits(std::string_view form) {
    at_ = 0;
    value_read_ = below_read_ = false;
    for (const std::string_view word : form::words(form)) {
      const Placeholder* const found = placeholder(word);
      if (found ? !skip(found->takes, word.starts_with('"')) : !is_literally(word)) return false;
    }
    return at_ == command_.words.size() && value_read_ == command_.value.has_value() &&
           below_read_ == !command_.below.empty();
  }

  Arguments read(std::string_view form) {
    at_ = 0;
    value_read_ = false;
    Arguments given;
    for (const std::string_view word : form::words(form)) {
      if (const Placeholder* const found = placeholder(word))
        given.push_back(argument(found->takes));
      else
        is_literally(word);
    }
    return given;
  }

 private:
  bool is_literally(std::string_view word) {
    if (word == "=") return value_read_ = command_.value.has_value();
    if (at_ == command_.words.size() || command_.quoted[at_] || command_.words[at_] != word) return false;
    ++at_;
    return true;
  }

  bool skip(Takes takes, bool quoted) {
    if (takes == Takes::Parameters) return below_read_ = !command_.below.empty();
    if (value_read_) return true;
    if (at_ == command_.words.size() || (quoted && !command_.quoted[at_])) return false;
    if (takes == Takes::Control)
      control();
    else
      at_ = takes == Takes::Keys ? command_.words.size() : at_ + 1;
    return true;
  }

  Named control() {
    const std::string& name = command_.words[at_++];
    const bool has_more = at_ < command_.words.size() && !command_.quoted[at_];
    const std::optional<int> index = has_more ? whole_number(command_.words[at_]) : std::nullopt;
    if (index) ++at_;
    return {name, index.value_or(0)};
  }

  const std::string& text() { return value_read_ ? *command_.value : command_.words[at_++]; }

  Keys rest_as_keys() {
    Keys presses;
    while (at_ < command_.words.size()) presses.push_back(key_press(command_.words[at_++]));
    return presses;
  }

  Parameters parameters() const {
    Parameters all;
    for (const Command& line : command_.below) {
      expect(line.words.size() == 1 && line.value, "a parameter is written as name = text");
      all.emplace_back(line.words[0], *line.value);
    }
    return all;
  }

  Argument argument(Takes takes) {
    switch (takes) {
      case Takes::Control:
        return control();
      case Takes::Text:
        return text();
      case Takes::Number:
        return known_number(text());
      case Takes::Keys:
        return rest_as_keys();
      case Takes::Value:
        return script_value(text(), command_.value_quoted);
      case Takes::Look:
        return row_of(look_words, text());
      case Takes::State:
        return row_of(state_words, text());
      case Takes::Parameters:
        break;
    }
    return parameters();
  }

  const Command& command_;
  std::size_t at_ = 0;
  bool value_read_ = false, below_read_ = false;
};

// How the sentences go that begin like it.
std::string help_for(const Command& command) {
  const std::string first = command.words.empty() ? std::string() : command.words.front();
  std::string all;
  for (const Sentence& sentence : sentences)
    if (first == *form::words(sentence.form).begin())
      all += (all.empty() ? "it is " : ", or ") + std::string(sentence.form);
  return all.empty() ? "unknown command " + in_quotes(first) : all;
}

}  // namespace

std::string in_quotes(std::string_view text) {
  return "\"" + std::string(text) + "\"";
}

void expect(bool holds, const std::string& what) {
  if (!holds) throw Failure{what};
}

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

Said understand(const Command& command) {
  Reader reader(command);
  for (const Sentence& sentence : sentences)
    if (reader.fits(sentence.form)) return {&sentence, reader.read(sentence.form)};
  throw Failure{help_for(command)};
}

}  // namespace tabulon::scenarios
