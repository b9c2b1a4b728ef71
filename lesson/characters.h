// UTF-8 as characters, and what each is in a problem in words: a letter, a digit, a blank, or one of the
// signs that mathematicians write in more than one way.
//
//   const Character first = character_at("≤ 8", 0);   // code 0x2264, 3 bytes
//   plain_sign(first.code);                           // "<="
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace tabulon::lesson {

struct Character {
  std::uint32_t code = 0;
  std::size_t bytes = 1;
};

// The character that begins at `at`, within the text. A byte that begins none is a character by itself.
Character character_at(std::string_view text, std::size_t at);
// How many characters stand before `at`.
int characters_before(std::string_view text, std::size_t at);

bool is_digit(std::uint32_t code);
// Letters of Latin and Greek, digits written low, and "_".
bool is_letter(std::uint32_t code);
bool is_blank(std::uint32_t code);
// The sign of the keyboard for another way of writing it ("≤" is "<=", "−" is "-", "·" is "*"); empty for
// none.
std::string_view plain_sign(std::uint32_t code);

}  // namespace tabulon::lesson
