#include "lesson/characters.h"

#include <algorithm>
#include <array>

namespace tabulon::lesson {

namespace {

constexpr std::uint32_t no_character = 0xFFFD;

bool continues(char byte) {
  return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

struct Range {
  std::uint32_t first, last;
};

// Accented Latin letters without × and ÷, Greek letters but pi, low digits, Latin letters with marks below.
constexpr std::array<Range, 8> letter_ranges = {{{0xC0, 0xD6},
                                                 {0xD8, 0xF6},
                                                 {0xF8, 0x24F},
                                                 {0x391, 0x3BF},
                                                 {0x3C1, 0x3C9},
                                                 {0x2080, 0x2089},
                                                 {0x1E00, 0x1EFF},
                                                 {'_', '_'}}};

struct Sign {
  std::uint32_t code;
  std::string_view plain;
};

constexpr std::array<Sign, 17> signs = {{{0x2264, "<="},
                                         {0x2A7D, "<="},
                                         {0x2265, ">="},
                                         {0x2A7E, ">="},
                                         {0x2212, "-"},
                                         {0x2013, "-"},
                                         {0x2010, "-"},
                                         {0x2011, "-"},
                                         {0xD7, "*"},
                                         {0xB7, "*"},
                                         {0x22C5, "*"},
                                         {0x2217, "*"},
                                         {0xF7, "/"},
                                         {0x2215, "/"},
                                         {0x2044, "/"},
                                         {0x3C0, "pi"},
                                         {0xB2, "^2"}}};

}  // namespace

Character character_at(std::string_view text, std::size_t at) {
  const auto lead = static_cast<unsigned char>(text[at]);
  const std::size_t bytes = lead < 0xC2 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : lead < 0xF5 ? 4 : 1;
  if (bytes == 1) return {lead < 0x80 ? lead : no_character, 1};
  std::uint32_t code = lead & (0xFFU >> (bytes + 1));
  for (std::size_t i = 1; i < bytes; ++i) {
    if (at + i >= text.size() || !continues(text[at + i])) return {no_character, 1};
    code = (code << 6U) | (static_cast<unsigned char>(text[at + i]) & 0x3FU);
  }
  return {code, bytes};
}

int characters_before(std::string_view text, std::size_t at) {
  int count = 0;
  for (std::size_t i = 0; i < at; i += character_at(text, i).bytes) ++count;
  return count;
}

bool is_digit(std::uint32_t code) {
  return code >= '0' && code <= '9';
}

bool is_letter(std::uint32_t code) {
  if ((code >= 'a' && code <= 'z') || (code >= 'A' && code <= 'Z')) return true;
  return std::ranges::any_of(letter_ranges,
                             [code](Range range) { return code >= range.first && code <= range.last; });
}

bool is_blank(std::uint32_t code) {
  return code == ' ' || code == '\t' || code == '\r' || code == 0xA0 || code == 0x202F || code == 0xFEFF ||
         (code >= 0x2000 && code <= 0x200B);
}

std::string_view plain_sign(std::uint32_t code) {
  for (const Sign& sign : signs)
    if (sign.code == code) return sign.plain;
  return {};
}

}  // namespace tabulon::lesson
