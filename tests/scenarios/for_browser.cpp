#include "for_browser.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <set>

namespace tabulon::scenarios {

namespace {

std::string json(std::string_view text) {
  constexpr std::string_view hexadecimal = "0123456789abcdef";
  std::string quoted = "\"";
  for (const char letter : text) {
    const auto code = static_cast<unsigned char>(letter);
    if (letter == '"' || letter == '\\') quoted += '\\';
    if (code >= ' ')
      quoted += letter;
    else
      quoted += std::string("\\u00") + hexadecimal[code / 16U] + hexadecimal[code % 16U];
  }
  return quoted + "\"";
}

std::string json(const std::string& text) {
  return json(std::string_view(text));
}

// As many digits as it takes to read the same number.
std::string json(double number) {
  std::array<char, 32> digits;
  return {digits.data(), std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr};
}

std::string json(int number) {
  return std::to_string(number);
}

std::string json(bool truth) {
  return truth ? "true" : "false";
}

std::string json(const platform::KeyPress& press);
std::string json(const Argument& argument);

template <class Range>
std::string json_list(const Range& range) {
  std::string list;
  for (const auto& each : range) list += (list.empty() ? "" : ",") + json(each);
  return "[" + list + "]";
}

std::string json(const Named& control) {
  return "{\"name\":" + json(control.name) + ",\"index\":" + json(control.index) + "}";
}

std::string key_on_page(int code) {
  const auto named = std::ranges::find(key_words, code, &KeyWord::code);
  if (named != std::end(key_words)) return std::string(named->on_page);
  return {static_cast<char>(std::tolower(code))};
}

std::string json(const platform::KeyPress& press) {
  std::vector<std::string_view> held;
  for (const KeyWord& modifier : modifier_words)
    if ((press.shift & modifier.code) != 0) held.push_back(modifier.on_page);
  return "{\"key\":" + json(key_on_page(press.code)) + ",\"held\":" + json_list(held) + "}";
}

std::string json(const Keys& keys) {
  return json_list(keys);
}

std::string json(const PropertyValue& value) {
  return std::visit([](const auto& given) { return json(given); }, value);
}

std::string json(const Look& look) {
  return json(look.word);
}

std::string json(const State& state) {
  return "{\"word\":" + json(state.word) + ",\"seen\":" + json(state.seen) +
         ",\"wanted\":" + json(state.wanted) + "}";
}

std::string json(const Parameters& parameters) {
  std::string list;
  for (const auto& [name, text] : parameters)
    list += (list.empty() ? "" : ",") + json(name) + ":" + json(text);
  return "{" + list + "}";
}

std::string json(const Argument& argument) {
  return std::visit([](const auto& given) { return json(given); }, argument);
}

std::string json(const Command& command) {
  const auto [sentence, given] = understand(command);
  return "{\"line\":" + json(command.line) + ",\"says\":" + json(sentence->form) +
         ",\"given\":" + json_list(given) + "}";
}

}  // namespace

std::string steps_for_browser(const std::vector<Command>& commands) {
  std::string steps;
  for (const Command& command : commands) {
    try {
      steps += (steps.empty() ? "" : ",\n") + json(command);
    } catch (const Failure&) {
      continue;
    }
  }
  return "[" + steps + "]\n";
}

std::string language_for_browser() {
  std::vector<std::string_view> forms;
  std::set<std::string_view> seen{"text"};
  for (const Sentence& sentence : sentences) forms.push_back(sentence.form);
  for (const Look& look : look_words) seen.insert(look.word);
  for (const State& state : state_words) seen.insert(state.seen);
  return "{\"sentences\":" + json_list(forms) + ",\"seen\":" + json_list(seen) + "}\n";
}

}  // namespace tabulon::scenarios
