#include "numbers/display.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <numbers>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "numbers/conversions.h"
#include "numbers/decimal.h"
#include "numbers/expression.h"
#include "numbers/fraction.h"
#include "platform/texts.h"

namespace tabulon::numbers {
namespace {

constexpr std::size_t kLongestDecimal = 9;   // without the blank
constexpr std::size_t kLongestFraction = 9;  // with it
constexpr std::size_t kLongestPiFactor = 5;  // without it

struct DecimalFormat {
  double below;  // magnitudes below this bound, and not below the one before
  int decimals;
};

constexpr int kScientific = -1;
constexpr std::array<DecimalFormat, 8> kDecimalFormats = {
    {{1e-6, kScientific},
     {1e1, 6},
     {1e2, 5},
     {1e3, 4},
     {1e4, 3},
     {1e5, 2},
     {1e6, 1},
     {std::numeric_limits<double>::infinity(), kScientific}}};

constexpr auto kPowersOfTen = [] {
  std::array<std::uint64_t, 19> powers{};
  std::uint64_t power = 1;
  for (auto& entry : powers) {
    entry = power;
    power *= 10;
  }
  return powers;
}();

std::uint64_t power(int exponent) {
  return kPowersOfTen[static_cast<std::size_t>(exponent)];
}

int decimals_for(double magnitude) {
  for (const DecimalFormat& format : kDecimalFormats) {
    if (magnitude < format.below) return format.decimals;
  }
  return kScientific;
}

// Takes `count` digits (at least 1) off the right end of a number, halves away from zero.
std::uint64_t without_digits(std::uint64_t digits, int count) {
  return (digits + power(count) / 2) / power(count);
}

// 1.23E+06 for a finite number, no sign in front.
void write_scientific_magnitude(double number, TextBuffer& text) {
  Decimal decimal = to_decimal(number);
  std::uint64_t three = without_digits(decimal.digits, kSignificantDigits - 3);
  if (three == 1000) {
    three = 100;
    ++decimal.exponent;
  }
  text.append_whole(three / 100);
  text.append('.');
  text.append_whole(three % 100, 2);
  text.append('E');
  text.append(decimal.exponent < 0 ? '-' : '+');
  text.append_whole(static_cast<std::uint64_t>(std::abs(decimal.exponent)), 2);
}

// At least one digit before the point, at most `decimals` (1..6) behind it, no zeros at the end, no bare
// point.
void write_rounded(double magnitude, int decimals, TextBuffer& text) {
  const Decimal decimal = to_decimal(magnitude);
  const int surplus = kSignificantDigits - 1 - decimal.exponent - decimals;
  const auto rounded = static_cast<std::uint32_t>(without_digits(decimal.digits, surplus));
  const auto one = static_cast<std::uint32_t>(power(decimals));
  text.append_whole(rounded / one);
  std::uint32_t fraction = rounded % one;
  if (fraction == 0) return;
  auto width = static_cast<std::size_t>(decimals);
  for (; fraction % 10 == 0; fraction /= 10) --width;
  text.append('.');
  text.append_whole(fraction, width);
}

void write_decimal_magnitude(double magnitude, TextBuffer& text) {
  if (magnitude == 0) return text.append('0');
  const int decimals = decimals_for(magnitude);
  if (decimals == kScientific) return write_scientific_magnitude(magnitude, text);
  const auto whole = static_cast<std::uint32_t>(magnitude);
  if (whole == magnitude) return text.append_whole(whole);
  write_rounded(magnitude, decimals, text);
}

void write_scientific(double number, TextBuffer& text) {
  if (!std::isfinite(number)) return write_not_finite(number, text);
  text.append(number < 0 ? '-' : ' ');
  write_scientific_magnitude(number, text);
}

bool too_small_for_fraction(double number) {
  return number != 0 && std::fabs(number) <= kLargestWithoutFraction;
}

// Single precision holds no fractions from 2^23 on; below that the conversion cannot overflow.
bool is_whole_in_single_precision(double number) {
  constexpr double all_are_whole_from = 8388608;
  if (std::fabs(number) >= all_are_whole_from) return true;
  const auto single = static_cast<float>(number);
  return single == std::floor(single);
}

// The text of `factor` times pi, whose fraction is `form`; false: too long, nothing is written.
bool write_pi_multiple(const MixedNumber& form, double factor, TextBuffer& text) {
  TextBuffer fraction;
  write_mixed_number(form, fraction);
  const std::string_view digits = trimmed(fraction.view());
  if (digits.size() > kLongestPiFactor) return false;
  if (fraction.view() == " 1" || fraction.view() == "-1") {
    text.append(fraction.view().front());
  } else if (is_whole_in_single_precision(factor)) {
    text.append(fraction.view());
  } else {
    text.append('(');
    text.append(digits);
    text.append(')');
  }
  text.append("pi");
  return true;
}

// The fractions of a factor of pi that are short enough to be shown are 1/999, 12/99, -1/99, 1+1/9 and
// shorter: beyond this denominator there is none.
double largest_pi_denominator(double factor) {
  if (factor <= -1 || factor >= 10) return 0;
  if (factor >= 1) return 9;
  if (factor < 0) return 99;
  return factor < 0.09 ? 999 : 99;
}

// Whether `number` is so near to a whole one that the search for a fraction might take it for one. That
// overlooks noise of one part in 10^9.
bool might_be_whole(double number) {
  return std::fabs(number - std::nearbyint(number)) <= number * 1e-8;
}

// Whether the factor might be one of those, seen without a search. A denominator up to 9, and a numerator up
// to 9 where the denominator may be larger, divides 2520. Not seen so are two digits over two.
bool might_be_short_fraction(double factor) {
  constexpr double multiple_of_all_digits = 2520;
  const double magnitude = std::fabs(factor);
  if (magnitude < 0.001) return false;
  if (magnitude >= 1) return might_be_whole(magnitude * multiple_of_all_digits);
  return (factor >= 0.09 && factor < 1) || might_be_whole(multiple_of_all_digits / magnitude);
}

bool write_as_pi_multiple(double number, TextBuffer& text) {
  const double factor = number / std::numbers::pi;
  if (!might_be_short_fraction(factor)) return false;
  const FractionSearch search = find_mixed_number(factor, largest_pi_denominator(factor));
  return search.found && write_pi_multiple(search.form, factor, text);
}

bool is_pi_multiple(double number) {
  TextBuffer text;
  return write_as_pi_multiple(number, text);
}

// Writes the simplest form of a number and sets the number to what that form says. A number too small for a
// fraction is no exception: it becomes the value of its scientific text.
void write_and_snap(double& number, TextBuffer& text) {
  if (too_small_for_fraction(number)) {
    TextBuffer scientific;
    write_scientific(number, scientific);
    text.append(scientific.view());
    number = evaluate(scientific.view()).value_or(number);
  } else {
    const MixedNumber form = mixed_number(number);
    write_mixed_number(form, text);
    number = value_of(form);
  }
}

void write_in_fractions_mode(double& number, TextBuffer& text) {
  if (!std::isfinite(number)) return write_not_finite(number, text);
  if (write_as_pi_multiple(number, text)) return;
  const std::size_t start = text.size();
  write_and_snap(number, text);
  if (text.size() - start <= kLongestFraction) return;
  text.cut(start);
  write_decimal(number, text);
}

// Without a search, where there is something to be said without one.
std::optional<Snapped> snapped_at_once(double number) {
  if (number == 0) return Snapped{0, true};
  if (std::isfinite(number) && !too_small_for_fraction(number)) {
    if (is_pi_multiple(number)) return Snapped{number, true};
    return {};
  }
  strSoortGetal(kFractions, number);
  return Snapped{number, false};
}

void snap_few(std::span<const double> numbers, std::span<Snapped> snapped) {
  std::array<double, kSearchedTogether> searched;
  std::array<Snapped, kSearchedTogether> found;
  std::array<std::size_t, kSearchedTogether> places;
  std::size_t count = 0;
  for (std::size_t at = 0; at < numbers.size(); ++at) {
    if (const auto at_once = snapped_at_once(numbers[at])) {
      snapped[at] = *at_once;
    } else {
      places[count] = at;
      searched[count++] = numbers[at];
    }
  }
  snap_to_fractions(std::span(searched).first(count), std::span(found).first(count));
  for (std::size_t at = 0; at < count; ++at) {
    const auto [value, settled] = found[at];
    snapped[places[at]] = {value, settled && (value == searched[at] || !is_pi_multiple(value))};
  }
}

}  // namespace

void snap(std::span<const double> getallen, std::span<Snapped> snapped) {
  while (!getallen.empty()) {
    const std::size_t count = std::min(kSearchedTogether, getallen.size());
    snap_few(getallen.first(count), snapped.first(count));
    getallen = getallen.subspan(count);
    snapped = snapped.subspan(count);
  }
}

void write_decimal(double getal, TextBuffer& text) {
  if (!std::isfinite(getal)) return write_not_finite(getal, text);
  const std::size_t start = text.size();
  text.append(getal < 0 ? '-' : ' ');
  write_decimal_magnitude(std::fabs(getal), text);
  text.cut(start + kLongestDecimal + (getal < 0 ? 0 : 1));
}

void write_display_text(std::int16_t Soort, double& Getal, TextBuffer& text) {
  if (Soort == kDecimals) return write_decimal(Getal, text);
  if (Soort == kFractions) write_in_fractions_mode(Getal, text);
}

std::string strSoortGetal(std::int16_t Soort, double& Getal) {
  TextBuffer text;
  write_display_text(Soort, Getal, text);
  return std::string(text.view());
}

std::string GetalNaarDecimaal(double getal) {
  TextBuffer text;
  write_decimal(getal, text);
  return std::string(text.view());
}

std::string GetalNaarBreuk(std::int16_t& gelukt, double getal) {
  if (!std::isfinite(getal)) return GetalNaarWetenschappelijk(getal);
  if (too_small_for_fraction(getal)) {
    gelukt = 0;
    return GetalNaarWetenschappelijk(getal);
  }
  TextBuffer text;
  write_mixed_number(mixed_number(getal), text);
  return std::string(text.view());
}

std::string GetalNaarWetenschappelijk(double getal) {
  TextBuffer text;
  write_scientific(getal, text);
  return std::string(text.view());
}

}  // namespace tabulon::numbers
