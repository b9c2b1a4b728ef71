// A line of a problem in words as numbers, names and signs. Decimals may have a comma or a point, and signs
// may be written as mathematicians do.
//
//   tokens_of("2,5x ≤ 8", line)   // Number 2.5, Name "x", Sign "<=", Number 8, End
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "lesson/finding.h"
#include "lesson/rational.h"

namespace tabulon::lesson {

enum class TokenKind : std::uint8_t { Number, Name, Sign, End };

struct Token {
  TokenKind kind = TokenKind::End;
  std::string text = {};  // of a sign as it is on the keyboard: "<="
  std::string as_written = {};
  Rational value = {};  // of a number
  Place place = {};
};

// The list ends with one token End. `begin` is where the text begins. `notes` gets what may have been meant
// otherwise.
Found<std::vector<Token>> tokens_of(std::string_view text, Place begin, std::vector<Finding>& notes);

}  // namespace tabulon::lesson
