#include "numbers/decimal.h"

#include <array>
#include <bit>
#include <limits>

#include "numbers/big_natural.h"
#include "numbers/powers_of_ten.h"
#include "platform/texts.h"

namespace tabulon::numbers {
namespace {

constexpr std::uint64_t kTenTo14 = 100'000'000'000'000;
constexpr std::uint64_t kTenTo15 = 1'000'000'000'000'000;
constexpr int kMantissaBits = 53;
constexpr int kLowestBinaryExponent = -1074;  // of the last bit of the smallest subnormal number
constexpr std::uint64_t kInfinityBits = 0x7FF0'0000'0000'0000;

// mantissa * 2^exponent, the mantissa a whole number.
struct BinaryNumber {
  std::uint64_t mantissa = 0;
  int exponent = 0;
};

BinaryNumber parts_of(double magnitude) {
  const auto bits = std::bit_cast<std::uint64_t>(magnitude);
  const std::uint64_t fraction = bits & ((std::uint64_t{1} << 52) - 1);
  const int biased = static_cast<int>(bits >> 52);
  if (biased == 0) return {fraction, kLowestBinaryExponent};
  return {fraction | (std::uint64_t{1} << 52), biased - 1075};
}

enum class Direction { Down, Tie, Up, Unknown };

// Which way to round away `fraction`, whose halfway point is half * 2^64, when the true fraction is larger
// by less than `slack` units (0: the fraction is exact).
Direction direction(const WideNumber& fraction, std::uint64_t half, std::uint64_t slack) {
  if (fraction.high == half && fraction.low == 0) return slack == 0 ? Direction::Tie : Direction::Unknown;
  if (fraction.high >= half) return Direction::Up;
  if (fraction.high + 1 == half && fraction.low > ~slack) return Direction::Unknown;
  return Direction::Down;
}

bool rounds_up(Direction direction, std::uint64_t whole) {
  return direction == Direction::Up || (direction == Direction::Tie && (whole & 1) != 0);
}

Direction direction_of(std::strong_ordering order) {
  if (order == std::strong_ordering::less) return Direction::Down;
  return order == std::strong_ordering::equal ? Direction::Tie : Direction::Up;
}

// floor(log10(2^exponent)), or so near it that it is never too high; the factor is log10(2) * 2^18.
int decimal_exponent(int binary_exponent) {
  return (binary_exponent * 78913) >> 18;
}

// Where number * 10^scale lies: a whole number and which way the rest rounds.
struct Scaled {
  std::uint64_t whole = 0;
  Direction rest = Direction::Down;
};

Scaled scale(const BinaryNumber& normalized, int decimal_scale) {
  const PowerOfTen power = power_of_ten(decimal_scale);
  const WideNumber product = scaled_product(normalized.mantissa, power);
  const int fraction_bits = -(normalized.exponent + power.exponent + 128);  // of product.high
  const std::uint64_t one = std::uint64_t{1} << fraction_bits;
  const WideNumber fraction{product.high & (one - 1), product.low};
  return {product.high >> fraction_bits, direction(fraction, one >> 1, power.exact ? 0 : kProductSlack)};
}

Direction exact_direction(const BinaryNumber& number, int decimal_scale, std::uint64_t whole) {
  return direction_of(compare_scaled(BigNatural(number.mantissa), decimal_scale, number.exponent + 1,
                                     BigNatural(2 * whole + 1)));
}

Decimal decimal_of(const BinaryNumber& number) {
  const int zeros = std::countl_zero(number.mantissa);
  const BinaryNumber normalized{number.mantissa << zeros, number.exponent - zeros};
  int exponent = decimal_exponent(normalized.exponent + 63);
  Scaled scaled = scale(normalized, kSignificantDigits - 1 - exponent);
  if (scaled.whole >= kTenTo15) {
    ++exponent;
    scaled = scale(normalized, kSignificantDigits - 1 - exponent);
  }
  if (scaled.rest == Direction::Unknown) {
    scaled.rest = exact_direction(number, kSignificantDigits - 1 - exponent, scaled.whole);
  }
  const std::uint64_t digits = scaled.whole + (rounds_up(scaled.rest, scaled.whole) ? 1 : 0);
  if (digits == kTenTo15) return {kTenTo14, exponent + 1, false};
  return {digits, exponent, false};
}

bool is_exponent_marker(char c, ExponentLetters letters) {
  return c == 'E' || c == 'D' || (letters == ExponentLetters::BothCases && (c == 'e' || c == 'd'));
}

std::size_t skip_blanks(std::string_view text, std::size_t at) {
  while (at < text.size() && text[at] == ' ') ++at;
  return at;
}

// Reads the digits and the point. Counts in local variables, which can stay in registers: for all the
// compiler knows a write to the number could change the text.
NumberText scan_mantissa(std::string_view text) {
  constexpr std::uint64_t room = 1'000'000'000'000'000'000;  // below it one more digit fits
  std::uint64_t mantissa = 0;
  std::int64_t exponent = 0;
  bool behind_point = false;
  bool has_digits = false;
  bool cut = false;
  std::size_t at = 0;
  for (; at < text.size(); ++at) {
    const char c = text[at];
    if (is_digit(c)) {
      const auto digit = static_cast<std::uint64_t>(c - '0');
      const bool fits = mantissa < room;
      if (fits) mantissa = mantissa * 10 + digit;
      cut |= !fits && digit != 0;
      exponent += (fits ? 0 : 1) - (behind_point ? 1 : 0);
      has_digits = true;
    } else if (c == '.' && !behind_point) {
      behind_point = true;
    } else if (c != ' ') {
      break;
    }
  }
  return {.length = at,
          .mantissa_text = text.substr(0, at),
          .mantissa = mantissa,
          .exponent = exponent,
          .has_digits = has_digits,
          .cut = cut};
}

// Reads "E", a sign and digits at a marker; returns where they end, or the marker when there are no digits.
std::size_t scan_exponent(std::string_view text, std::size_t marker, NumberText& number) {
  constexpr std::int64_t far_beyond = 1'000'000'000'000;  // whatever the mantissa, 0 or too large
  std::size_t at = skip_blanks(text, marker + 1);
  const bool negative = at < text.size() && text[at] == '-';
  if (at < text.size() && (negative || text[at] == '+')) at = skip_blanks(text, at + 1);
  number.marker_without_digits = at == text.size() || !is_digit(text[at]);
  if (number.marker_without_digits) return marker;
  std::int64_t exponent = 0;
  for (; at < text.size() && is_digit(text[at]); at = skip_blanks(text, at + 1)) {
    if (exponent < far_beyond) exponent = exponent * 10 + (text[at] - '0');
  }
  number.written_exponent = negative ? -exponent : exponent;
  number.exponent += number.written_exponent;
  return at;
}

constexpr std::array<double, 23> kExactPowers = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                 1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                                 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

// Both operands are exact, so the one operation rounds once.
bool is_one_exact_operation(const NumberText& number) {
  constexpr auto reach = static_cast<std::int64_t>(kExactPowers.size()) - 1;
  return !number.cut && number.mantissa <= (std::uint64_t{1} << kMantissaBits) && number.exponent >= -reach &&
         number.exponent <= reach;
}

double one_exact_operation(const NumberText& number) {
  const auto mantissa = static_cast<double>(number.mantissa);
  if (number.exponent < 0) return mantissa / kExactPowers[static_cast<std::size_t>(-number.exponent)];
  return mantissa * kExactPowers[static_cast<std::size_t>(number.exponent)];
}

// The Double at or below a number, and which way the rest rounds.
struct Bracket {
  BinaryNumber below;
  Direction rest = Direction::Down;

  double rounded() const {
    const std::uint64_t mantissa = below.mantissa + (rounds_up(rest, below.mantissa) ? 1 : 0);
    const auto exponent = static_cast<std::uint64_t>(below.exponent - kLowestBinaryExponent);
    const std::uint64_t bits = (exponent << 52) + mantissa;  // a mantissa of 2^53 carries by itself
    return std::bit_cast<double>(bits < kInfinityBits ? bits : kInfinityBits);
  }
};

Bracket smaller_than_every_double(bool perhaps_halfway) {
  return {{0, kLowestBinaryExponent}, perhaps_halfway ? Direction::Unknown : Direction::Down};
}

// mantissa * 10^exponent for a mantissa other than 0 and an exponent in -343..308.
Bracket bracket(std::uint64_t mantissa, int exponent) {
  const int zeros = std::countl_zero(mantissa);
  const PowerOfTen power = power_of_ten(exponent);
  WideNumber product = scaled_product(mantissa << zeros, power);
  int top_bit = 191 + power.exponent - zeros;
  if ((product.high >> 63) == 0) {
    product = {(product.high << 1) | (product.low >> 63), product.low << 1};
    --top_bit;
  }
  int kept_bits = top_bit - kLowestBinaryExponent + 1;
  if (kept_bits < 0) return smaller_than_every_double(kept_bits == -1 && product.high == ~std::uint64_t{0});
  if (kept_bits > kMantissaBits) kept_bits = kMantissaBits;
  const std::uint64_t half = std::uint64_t{1} << (63 - kept_bits);
  const WideNumber fraction{product.high & (2 * half - 1), product.low};
  const std::uint64_t whole = kept_bits == 0 ? 0 : product.high >> (64 - kept_bits);
  return {{whole, top_bit - kept_bits + 1}, direction(fraction, half, power.exact ? 0 : 2 * kProductSlack)};
}

// All digits of a number text as a natural number times a power of ten. Beyond 800 digits only whether
// anything follows can still matter: no halfway point has more.
struct ExactNumber {
  BigNatural digits{0};
  std::int64_t exponent = 0;
};

ExactNumber exact_number(const NumberText& number) {
  constexpr int most_digits = 800;
  ExactNumber exact{BigNatural(0), number.written_exponent};
  int count = 0;
  bool behind_point = false;
  bool more = false;
  for (const char c : number.mantissa_text) {
    if (c == '.') behind_point = true;
    if (!is_digit(c)) continue;
    const bool fits = count < most_digits;
    if (fits) exact.digits.multiply_add(10, static_cast<std::uint32_t>(c - '0'));
    if (fits && (count > 0 || c != '0')) ++count;
    more |= !fits && c != '0';
    exact.exponent += (fits ? 0 : 1) - (behind_point ? 1 : 0);
  }
  if (more) {
    exact.digits.multiply_add(10, 1);
    --exact.exponent;
  }
  return exact;
}

Direction exact_direction(const NumberText& number, const BinaryNumber& below) {
  const ExactNumber exact = exact_number(number);
  return direction_of(compare_scaled(exact.digits, static_cast<int>(exact.exponent), 1 - below.exponent,
                                     BigNatural(2 * below.mantissa + 1)));
}

double nearest_double(const NumberText& number) {
  const int exponent = static_cast<int>(number.exponent);
  Bracket result = bracket(number.mantissa, exponent);
  if (number.cut && result.rest != Direction::Unknown) {
    const Bracket upper = bracket(number.mantissa + 1, exponent);
    const bool same = upper.rest != Direction::Unknown && upper.rounded() == result.rounded();
    if (!same || result.rest == Direction::Tie) result.rest = Direction::Unknown;
  }
  if (result.rest == Direction::Unknown) result.rest = exact_direction(number, result.below);
  return result.rounded();
}

}  // namespace

Decimal to_decimal(double number) {
  if (number == 0) return {};
  const bool negative = number < 0;
  Decimal decimal = decimal_of(parts_of(negative ? -number : number));
  decimal.negative = negative;
  return decimal;
}

NumberText scan_number(std::string_view text, ExponentLetters letters) {
  NumberText number = scan_mantissa(text);
  const std::size_t end = number.length;
  const bool marked = number.has_digits && end < text.size() && is_exponent_marker(text[end], letters);
  if (marked) number.length = scan_exponent(text, end, number);
  return number;
}

double to_double(const NumberText& number) {
  constexpr std::int64_t lowest = -343;  // 19 digits times 10^-344 is below every halfway point
  constexpr std::int64_t highest = 308;
  if (number.mantissa == 0) return 0;
  if (is_one_exact_operation(number)) return one_exact_operation(number);
  if (number.exponent < lowest) return 0;
  if (number.exponent > highest) return std::numeric_limits<double>::infinity();
  return nearest_double(number);
}

}  // namespace tabulon::numbers
