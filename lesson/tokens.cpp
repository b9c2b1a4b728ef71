#include "lesson/tokens.h"

#include <array>
#include <cstdlib>
#include <utility>

#include "lesson/characters.h"

namespace tabulon::lesson {

namespace {

constexpr int most_digits = 80;
constexpr int largest_exponent = 80;

// A number as it is written: digits with commas and points, and an exponent.
struct Written {
  std::string text;  // with "." for each comma
  int digits = 0;
  int separators = 0;
  std::size_t decimals = 0;  // behind the last separator
  int exponent = 0;
  bool has_exponent = false;
};

std::string in_quotes(std::string_view text) {
  return "\"" + std::string(text) + "\"";
}

bool digit_at(std::string_view text, std::size_t at) {
  return at < text.size() && is_digit(static_cast<unsigned char>(text[at]));
}

bool is_separator(char c) {
  return c == '.' || c == ',';
}

// The exponent behind a number: E or D, a sign and digits, without blanks. How many characters; 0 for none.
std::size_t exponent_length(std::string_view text) {
  if (text.empty() || (text[0] != 'E' && text[0] != 'D')) return 0;
  std::size_t at = 1;
  if (at < text.size() && (text[at] == '+' || text[at] == '-')) ++at;
  if (!digit_at(text, at)) return 0;
  while (digit_at(text, at)) ++at;
  return at;
}

std::size_t scan_written(std::string_view text, std::size_t at, Written& number) {
  const std::size_t begin = at;
  for (; at < text.size() && (digit_at(text, at) || (is_separator(text[at]) && digit_at(text, at + 1)));
       ++at) {
    const bool separates = is_separator(text[at]);
    number.text += separates ? '.' : text[at];
    number.separators += separates ? 1 : 0;
    number.digits += separates ? 0 : 1;
    number.decimals = separates ? 0 : number.decimals + 1;
  }
  const std::size_t exponent = exponent_length(text.substr(at));
  number.has_exponent = exponent > 0;
  for (std::size_t i = 1; i < exponent; ++i)
    if (digit_at(text, at + i) && number.exponent <= largest_exponent)
      number.exponent = number.exponent * 10 + (text[at + i] - '0');
  if (exponent > 0 && text[at + 1] == '-') number.exponent = -number.exponent;
  return at + exponent - begin;
}

// Without the separators between its thousands: "1.000,50" is 1000.50.
std::string without_thousands(std::string_view written) {
  const std::size_t last = written.find_last_of(".,");
  const bool decimals = last != std::string_view::npos && written.find_first_of(".,") != last &&
                        written.find(written[last]) == last;
  std::string plain;
  for (std::size_t at = 0; at < written.size(); ++at)
    if (!is_separator(written[at]) || (decimals && at == last)) plain += written[at];
  return plain;
}

Rational value_of(const Written& number) {
  Whole digits;
  for (const char c : number.text)
    if (c != '.') digits = digits * Whole(10) + Whole(c - '0');
  const int exponent =
      number.exponent - static_cast<int>(number.separators > 0 ? number.decimals : std::size_t{0});
  const Whole power = power_of_ten(std::abs(exponent));
  return exponent < 0 ? Rational(std::move(digits), power) : Rational(digits * power, Whole(1));
}

class Scanner {
 public:
  Scanner(std::string_view text, Place begin, std::vector<Finding>& notes)
      : text_(text), begin_(begin), notes_(notes) {}

  Found<std::vector<Token>> run() {
    while (at_ < text_.size()) TRY(scan_token());
    tokens_.push_back({.place = place()});
    return std::move(tokens_);
  }

 private:
  Place place() const { return {begin_.line, begin_.column + counted_}; }

  Found<void> scan_token() {
    const Character character = character_at(text_, at_);
    if (is_blank(character.code)) {
      joined_ = false;
      advance(character.bytes);
      return {};
    }
    const bool begins_number =
        is_digit(character.code) || (is_separator(text_[at_]) && digit_at(text_, at_ + 1) && !after_word());
    if (begins_number) return scan_number();
    if (is_letter(character.code)) return scan_name();
    return scan_sign(character);
  }

  // A comma right behind a name or number separates; it begins no number.
  bool after_word() const { return joined_ && !tokens_.empty() && tokens_.back().kind != TokenKind::Sign; }

  Found<void> scan_number() {
    Written number;
    const std::size_t length = scan_written(text_, at_, number);
    const std::string as_written(text_.substr(at_, length));
    if (number.separators > 1)
      return mistake(place(), in_quotes(as_written) +
                                  " heeft meer dan één komma of punt; schrijf duizendtallen zonder: " +
                                  without_thousands(as_written) + ".");
    if (number.digits > most_digits || std::abs(number.exponent) > largest_exponent)
      return mistake(place(), "dit getal is te lang of te groot: neem ten hoogste 80 cijfers.");
    note_about(number, as_written);
    push(
        {.kind = TokenKind::Number, .text = number.text, .as_written = as_written, .value = value_of(number)},
        length);
    return {};
  }

  // What a reader may have meant otherwise.
  void note_about(const Written& number, const std::string& as_written) {
    const bool like_thousands = number.separators == 1 && number.decimals == 3 && number.digits <= 6 &&
                                number.text[0] != '0' && number.text[0] != '.' && !number.has_exponent;
    if (like_thousands)
      notes_.push_back({place(), as_written + " is gelezen als een getal met drie decimalen; schrijf " +
                                     without_thousands_of_one(as_written) + " als u duizendtallen bedoelt."});
    if (number.has_exponent)
      notes_.push_back({place(), as_written + " is gelezen als een getal met een macht van tien."});
  }

  static std::string without_thousands_of_one(std::string text) {
    std::erase_if(text, is_separator);
    return text;
  }

  Found<void> scan_name() {
    std::size_t end = at_;
    while (end < text_.size()) {
      const Character next = character_at(text_, end);
      if (!is_letter(next.code) && !is_digit(next.code)) break;
      end += next.bytes;
    }
    const std::string name(text_.substr(at_, end - at_));
    push({.kind = TokenKind::Name, .text = name, .as_written = name}, end - at_);
    return {};
  }

  Found<void> scan_sign(Character character) {
    constexpr std::array<std::string_view, 4> pairs = {"<=", ">=", "=<", "=>"};
    for (const std::string_view pair : pairs)
      if (text_.substr(at_).starts_with(pair))
        return push_sign(pair.starts_with('=') ? turned(pair) : pair, 2);
    constexpr std::string_view single = "+-*/^()=,:";
    if (single.contains(text_[at_])) return push_sign(text_.substr(at_, 1), 1);
    return scan_other_way_of_writing(character);
  }

  Found<void> scan_other_way_of_writing(Character character) {
    const std::string_view plain = plain_sign(character.code);
    if (plain.empty()) return refuse(character);
    if (plain != "pi" && plain != "^2") return push_sign(plain, character.bytes);
    if (plain == "pi") {
      push({.kind = TokenKind::Name, .text = "pi", .as_written = "π"}, character.bytes);
    } else {
      push({.kind = TokenKind::Sign, .text = "^", .as_written = "²"}, 0);
      push({.kind = TokenKind::Number, .text = "2", .as_written = "²", .value = Rational(2)},
           character.bytes);
    }
    return {};
  }

  static std::string_view turned(std::string_view pair) { return pair == "=<" ? "<=" : ">="; }

  Found<void> push_sign(std::string_view sign, std::size_t bytes) {
    push({.kind = TokenKind::Sign,
          .text = std::string(sign),
          .as_written = std::string(text_.substr(at_, bytes))},
         bytes);
    return {};
  }

  Found<void> refuse(Character character) {
    const std::string sign(text_.substr(at_, character.bytes));
    if (sign == "<" || sign == ">")
      return mistake(place(), in_quotes(sign) + " kan hier niet; bedoelt u " + sign + "= ?");
    if (sign == "√") return mistake(place(), "schrijf een wortel als sqrt(...).");
    if (sign == "[" || sign == "{") return mistake(place(), "gebruik ronde haakjes: ( en ).");
    const bool shown = character.code >= ' ' && character.code != 0x7F && character.code != 0xFFFD;
    return mistake(place(), (shown ? in_quotes(sign) : std::string("dit teken")) +
                                " hoort niet in een probleem in woorden.");
  }

  void push(Token token, std::size_t bytes) {
    token.place = place();
    tokens_.push_back(std::move(token));
    joined_ = true;
    advance(bytes);
  }

  void advance(std::size_t bytes) {
    counted_ += characters_before(text_.substr(at_, bytes), bytes);
    at_ += bytes;
  }

  std::string_view text_;
  Place begin_;
  std::vector<Finding>& notes_;
  std::vector<Token> tokens_;
  std::size_t at_ = 0;
  int counted_ = 0;  // characters before at_
  bool joined_ = false;
};

}  // namespace

Found<std::vector<Token>> tokens_of(std::string_view text, Place begin, std::vector<Finding>& notes) {
  return Scanner(text, begin, notes).run();
}

}  // namespace tabulon::lesson
