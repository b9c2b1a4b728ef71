// Texts as people write them.
//
//   trimmed("  36 ") == "36";   same_name("prmShow", "PRMSHOW");
#pragma once

#include <algorithm>
#include <string_view>

namespace tabulon {

// Without the blanks at both ends.
inline std::string_view trimmed(std::string_view text) {
  while (text.starts_with(' ')) text.remove_prefix(1);
  while (text.ends_with(' ')) text.remove_suffix(1);
  return text;
}

constexpr bool is_digit(char letter) {
  return letter >= '0' && letter <= '9';
}

// Names are compared without regard to the case of A to Z.
inline bool same_name(std::string_view one, std::string_view other) {
  const auto lower = [](char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter + ('a' - 'A')) : letter;
  };
  return std::ranges::equal(one, other, {}, lower, lower);
}

}  // namespace tabulon
