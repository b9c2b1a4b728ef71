#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <numbers>
#include <string_view>

#include "numbers/decimal.h"
#include "numbers/expression.h"
#include "platform/texts.h"

namespace tabulon::numbers {
namespace {

struct FunctionName {
  std::string_view name;
  std::int16_t code;
};

// In the order in which they are tried: a name stands before every other name that it begins with.
constexpr std::array<FunctionName, 14> kFunctions = {{
    {"SQRT", kSqrt},
    {"SIN", kSin},
    {"COS", kCos},
    {"TAN", kTan},
    {"ATN", kAtn},
    {"EXP", kExp},
    {"ABS", kAbs},
    {"INT", kInt},
    {"LOG", kLog},
    {"SQR", kSqr},
    {"SGN", kSgn},
    {"ASN", kAsn},
    {"ACS", kAcs},
    {"LN", kLn},
}};
constexpr std::size_t kLongestName = 4;

constexpr std::string_view kMemoryLetters = "abcdpqrsgn";
constexpr std::string_view kPiCharacter = "\u00E3";  // what the letter pi of old symbol fonts comes in as

struct BinaryOperator {
  char character;
  std::int16_t code;
  std::int16_t priority;
};

constexpr std::array<BinaryOperator, 5> kBinaryOperators = {{
    {'-', kSubtract, 1},
    {'+', kAdd, 1},
    {'/', kDivide, 2},
    {'*', kMultiply, 2},
    {'^', kPower, 4},
}};
constexpr std::int16_t kPrefixPriority = 3;  // of the unary minus and of neighbours
constexpr std::int16_t kNoPriority = 0;      // of parentheses and functions, which wait for ")"

// A name packed into the high bytes of a word, so that one comparison tells a match.
constexpr std::uint32_t packed(std::string_view name) {
  std::uint32_t word = 0;
  for (std::size_t i = 0; i < kLongestName; ++i) {
    word = (word << 8) | (i < name.size() ? static_cast<unsigned char>(name[i]) : 0U);
  }
  return word;
}

constexpr std::uint32_t mask_of(std::size_t length) {
  return ~std::uint32_t{0} << (8 * (kLongestName - length));
}

struct PackedName {
  std::uint32_t word;
  std::uint32_t mask;
};

constexpr auto kPackedNames = [] {
  std::array<PackedName, kFunctions.size()> names{};
  for (std::size_t i = 0; i < names.size(); ++i) {
    names[i] = {packed(kFunctions[i].name), mask_of(kFunctions[i].name.size())};
  }
  return names;
}();

constexpr bool is_letter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}
constexpr bool may_continue_number(char c) {
  return c == '.' || c == 'E' || c == 'D' || c == ' ';
}
constexpr char capital(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

class Scanner {
 public:
  Scanner(std::string_view text, const ScanLimits& limits, TokenList& list)
      : text_(text), limits_(limits), list_(list) {}

  ScanResult run() {
    list_.operator_count = 0;
    list_.postfix_count = 0;
    for (skip_blanks(); at_ < text_.size(); skip_blanks()) {
      item_ = at_;
      const std::int16_t code = operand_expected_ ? scan_operand() : scan_operator();
      if (code != kNoError) return stopped(code);
    }
    return stopped(finish());
  }

 private:
  ScanResult stopped(std::int16_t code) const {
    constexpr std::size_t highest = 32767;
    const std::size_t position = (code == kRefused ? item_ : at_) + 1;
    return {code, static_cast<std::int16_t>(position < highest ? position : highest)};
  }

  // The end of the text closes every pending operator, but no parenthesis.
  std::int16_t finish() {
    if (operand_required_) return kRefused;
    for (int i = 0; i < list_.operator_count; ++i) {
      if (list_.operator_codes[static_cast<std::size_t>(i)] == kParenthesis) return kOpenParenthesis;
    }
    return release(kNoPriority);
  }

  std::int16_t scan_operand() {
    const char c = text_[at_];
    if (is_digit(c) || c == '.') return scan_number_operand();
    if (is_letter(c)) return scan_word();
    if (c == '(') return open_parenthesis();
    if (c == '-' || c == '+') return scan_sign();
    if (text_.substr(at_).starts_with(kPiCharacter)) {
      at_ += kPiCharacter.size();
      return push_operand(kPi, std::numbers::pi);
    }
    return kRefused;
  }

  std::int16_t scan_number_operand() {
    const std::size_t digits = scan_short_whole_number();
    if (digits > 0) return push_operand(kNumber, static_cast<double>(short_number_));
    const NumberText number = scan_number(text_.substr(at_), ExponentLetters::Capitals);
    at_ += number.length;
    if (!number.has_digits || number.marker_without_digits) return kRefused;
    const double value = to_double(number);
    return std::isfinite(value) ? push_operand(kNumber, value) : kRefused;
  }

  // Most numbers of a cell are a few digits and nothing more. Reads such a number into short_number_ and
  // returns how many digits it has; 0: not such a number, and nothing is read.
  std::size_t scan_short_whole_number() {
    constexpr std::size_t most_digits = 9;
    std::uint32_t number = 0;
    std::size_t at = at_;
    for (; at < text_.size() && is_digit(text_[at]); ++at)
      number = number * 10 + static_cast<std::uint32_t>(text_[at] - '0');
    const std::size_t digits = at - at_;
    if (digits > most_digits || (at < text_.size() && may_continue_number(text_[at]))) return 0;
    short_number_ = number;
    at_ = at;
    return digits;
  }

  std::int16_t scan_sign() {
    const bool minus = text_[at_++] == '-';
    operand_required_ = true;
    return minus ? push_operator(kNegate, kPrefixPriority) : kNoError;
  }

  std::int16_t open_parenthesis() {
    ++at_;
    operand_required_ = false;  // a text that ends here lacks its ")"
    return push_operator(kParenthesis, kNoPriority);
  }

  std::int16_t scan_word() {
    const char letter = text_[at_];
    const char second = next_character(at_ + 1);
    if (capital(letter) == 'P' && capital(second) == 'I') return scan_pi();
    if (is_letter(second)) {
      const int function = find_function();
      if (function >= 0) return scan_function(kFunctions[static_cast<std::size_t>(function)].code);
    }
    ++at_;
    if (letter == 'e') return push_operand(kConstant, std::numbers::e);
    if (letter == 'x' || letter == 'X') return limits_.x_allowed != 0 ? push_operand(kVariable, 0) : kRefused;
    if (letter == 'm' || letter == 'M') return scan_cell();
    const std::size_t slot = kMemoryLetters.find(letter);
    if (slot == std::string_view::npos) return kRefused;
    return push_operand(static_cast<std::int16_t>(kFirstMemory + static_cast<int>(slot)), 0);
  }

  std::int16_t scan_pi() {
    ++at_;
    skip_blanks();
    ++at_;
    return push_operand(kPi, std::numbers::pi);
  }

  // The function whose name stands here, in any case; reads past the name. -1: none, and nothing is read.
  int find_function() {
    std::array<std::size_t, kLongestName> ends;
    std::uint32_t word = 0;
    std::size_t at = at_;
    for (std::size_t& end : ends) {
      while (at < text_.size() && text_[at] == ' ') ++at;
      const char c = at < text_.size() ? capital(text_[at++]) : '\0';
      word = (word << 8) | static_cast<unsigned char>(c);
      end = at;
    }
    for (std::size_t i = 0; i < kPackedNames.size(); ++i) {
      if ((word & kPackedNames[i].mask) != kPackedNames[i].word) continue;
      at_ = ends[kFunctions[i].name.size() - 1];
      return static_cast<int>(i);
    }
    return -1;
  }

  std::int16_t scan_function(std::int16_t code) {
    if (!at_character('(')) return kRefused;
    const std::int16_t pushed = push_operator(code, kNoPriority);
    return pushed == kNoError ? open_parenthesis() : pushed;
  }

  // The rest of m(row;column).
  std::int16_t scan_cell() {
    int row = 0;
    int column = 0;
    if (limits_.cells.first == nullptr || !take('(') || !scan_index(limits_.row_limit, row)) return kRefused;
    if (!take(';') && !take(',')) return kRefused;
    if (!scan_index(limits_.column_limit, column) || !take(')')) return kRefused;
    const std::ptrdiff_t offset = std::ptrdiff_t{row - 1} * limits_.cells.row_stride + (column - 1);
    return push_operand(kConstant, limits_.cells.first[offset]);
  }

  // An optional "+" and a whole number in 1..limit.
  bool scan_index(int limit, int& index) {
    constexpr int beyond_every_limit = 100'000;
    take('+');
    index = 0;
    for (skip_blanks(); at_ < text_.size() && is_digit(text_[at_]); skip_blanks()) {
      index = index * 10 + (text_[at_++] - '0');
      if (index > beyond_every_limit) index = beyond_every_limit;
    }
    return index >= 1 && index <= limit;
  }

  std::int16_t scan_operator() {
    const char c = text_[at_];
    if (c == ')') return close_parenthesis();
    for (const BinaryOperator& binary : kBinaryOperators) {
      if (binary.character != c) continue;
      ++at_;
      return push_binary(binary.code, binary.priority);
    }
    return push_binary(kJoin, kPrefixPriority);  // whatever stands here is read again, as an operand
  }

  std::int16_t push_binary(std::int16_t code, std::int16_t priority) {
    const std::int16_t released = release(priority);
    if (released != kNoError) return released;
    operand_expected_ = true;
    operand_required_ = true;
    return push_operator(code, priority);
  }

  std::int16_t close_parenthesis() {
    const std::int16_t released = release(1);
    if (released != kNoError) return released;
    if (list_.operator_count == 0) return kRefused;
    ++at_;
    --list_.operator_count;
    const bool function = list_.operator_count > 0 && top_code() >= kSin;
    return function ? release_top() : kNoError;
  }

  std::int16_t top_code() const {
    return list_.operator_codes[static_cast<std::size_t>(list_.operator_count - 1)];
  }

  // Moves the waiting operators that bind at least as strongly as `priority` to the postfix list.
  std::int16_t release(std::int16_t priority) {
    while (list_.operator_count > 0) {
      if (list_.operator_priorities[static_cast<std::size_t>(list_.operator_count - 1)] < priority) break;
      if (release_top() != kNoError) return kTooLong;
    }
    return kNoError;
  }

  std::int16_t release_top() {
    const std::int16_t code = top_code();
    --list_.operator_count;
    return push_postfix(code, 0);
  }

  std::int16_t push_operator(std::int16_t code, std::int16_t priority) {
    if (list_.operator_count == kOperatorCapacity) return kTooLong;
    const auto at = static_cast<std::size_t>(list_.operator_count++);
    list_.operator_codes[at] = code;
    list_.operator_priorities[at] = priority;
    return kNoError;
  }

  std::int16_t push_operand(std::int16_t code, double value) {
    operand_expected_ = false;
    operand_required_ = false;
    return push_postfix(code, value);
  }

  std::int16_t push_postfix(std::int16_t code, double value) {
    if (list_.postfix_count == kPostfixCapacity) return kTooLong;
    const auto at = static_cast<std::size_t>(list_.postfix_count++);
    list_.postfix_codes[at] = code;
    list_.postfix_values[at] = value;
    return kNoError;
  }

  void skip_blanks() {
    while (at_ < text_.size() && text_[at_] == ' ') ++at_;
  }

  char next_character(std::size_t at) const {
    while (at < text_.size() && text_[at] == ' ') ++at;
    return at < text_.size() ? text_[at] : '\0';
  }

  bool at_character(char c) {
    skip_blanks();
    return at_ < text_.size() && text_[at_] == c;
  }

  bool take(char c) {
    if (!at_character(c)) return false;
    ++at_;
    return true;
  }

  std::string_view text_;
  const ScanLimits& limits_;
  TokenList& list_;
  std::size_t at_ = 0;
  std::uint32_t short_number_ = 0;
  std::size_t item_ = 0;           // where the item being read begins
  bool operand_expected_ = true;   // what comes next is read as an operand
  bool operand_required_ = false;  // a text that ended here would lack an operand
};

}  // namespace

ScanResult OntleedExpressie(std::string_view text, const ScanLimits& limits, TokenList& list) {
  return Scanner(text, limits, list).run();
}

}  // namespace tabulon::numbers
