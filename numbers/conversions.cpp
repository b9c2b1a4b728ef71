#include "numbers/conversions.h"

#include <cmath>
#include <limits>
#include <string>

#include "numbers/decimal.h"
#include "platform/texts.h"

namespace tabulon::numbers {
namespace {

constexpr int kMostPlainDecimals = 15;
constexpr double kFirstMagnitudeWithExponent = 1e15;

// The 15 digits without the zeros at their end.
struct Digits {
  std::uint64_t number = 0;
  int count = kSignificantDigits;
};

Digits without_trailing_zeros(std::uint64_t digits) {
  Digits result{digits};
  if (result.number % 100'000'000 == 0) {
    result.number /= 100'000'000;
    result.count -= 8;
  }
  while (result.number % 10 == 0) {
    result.number /= 10;
    --result.count;
  }
  return result;
}

void write_with_point(const Digits& digits, int digits_before_point, TextBuffer& text) {
  TextBuffer all;
  all.append_whole(digits.number);
  const auto before = static_cast<std::size_t>(digits_before_point);
  text.append(all.view().substr(0, before));
  text.append('.');
  text.append(all.view().substr(before));
}

void write_plain(const Digits& digits, int exponent, TextBuffer& text) {
  const int before_point = exponent + 1;
  if (before_point <= 0) {
    text.append('.');
    text.append(static_cast<std::size_t>(-before_point), '0');
    text.append_whole(digits.number);
  } else if (digits.count > before_point) {
    write_with_point(digits, before_point, text);
  } else {
    text.append_whole(digits.number);
    text.append(static_cast<std::size_t>(before_point - digits.count), '0');
  }
}

void write_with_exponent(const Digits& digits, int exponent, TextBuffer& text) {
  if (digits.count == 1) {
    text.append_whole(digits.number);
  } else {
    write_with_point(digits, 1, text);
  }
  text.append('E');
  text.append(exponent < 0 ? '-' : '+');
  text.append_whole(static_cast<std::uint64_t>(exponent < 0 ? -exponent : exponent), 2);
}

double signed_number(double magnitude, bool negative) {
  return negative && magnitude != 0 ? -magnitude : magnitude;
}

// Infinite where it is too large.
double leading_number(std::string_view text) {
  while (text.starts_with(' ')) text.remove_prefix(1);
  const bool negative = text.starts_with('-');
  if (negative || text.starts_with('+')) text.remove_prefix(1);
  return signed_number(to_double(scan_number(text, ExponentLetters::BothCases)), negative);
}

}  // namespace

void write_not_finite(double number, TextBuffer& text) {
  if (std::isnan(number)) return text.append(" NaN");
  text.append(number < 0 ? "-Inf" : " Inf");
}

void write_magnitude(double magnitude, TextBuffer& text) {
  if (magnitude < kFirstMagnitudeWithExponent) {
    const auto whole = static_cast<std::uint64_t>(magnitude);
    if (static_cast<double>(whole) == magnitude) return text.append_whole(whole);
  }
  const Decimal decimal = to_decimal(magnitude);
  const Digits digits = without_trailing_zeros(decimal.digits);
  const int decimals = digits.count - 1 - decimal.exponent;
  const bool plain = decimal.exponent < kSignificantDigits && decimals <= kMostPlainDecimals;
  if (plain) return write_plain(digits, decimal.exponent, text);
  write_with_exponent(digits, decimal.exponent, text);
}

std::string Str(double number) {
  TextBuffer text;
  if (!std::isfinite(number)) {
    write_not_finite(number, text);
  } else {
    text.append(number < 0 ? '-' : ' ');
    write_magnitude(std::fabs(number), text);
  }
  return std::string(text.view());
}

std::string Str(std::int16_t number) {
  return Str(static_cast<double>(number));
}

std::string digits(int number) {
  std::string text = Str(static_cast<double>(number));
  if (text.starts_with(' ')) text.erase(0, 1);
  return text;
}

double Val(std::string_view text) {
  const double number = leading_number(text);
  return std::isfinite(number) ? number : std::copysign(std::numeric_limits<double>::max(), number);
}

Result<> fits_double(std::string_view text) {
  if (!std::isfinite(leading_number(text))) return fail(ErrorNumber::Overflow);
  return {};
}

Result<std::int16_t> to_int16(std::string_view text) {
  std::string_view rest = trimmed(text);
  if (rest.contains(' ')) return fail(ErrorNumber::TypeMismatch);
  const bool negative = rest.starts_with('-');
  if (negative || rest.starts_with('+')) rest.remove_prefix(1);
  const NumberText number = scan_number(rest, ExponentLetters::BothCases);
  if (!number.has_digits || number.length != rest.size()) return fail(ErrorNumber::TypeMismatch);
  const double magnitude = to_double(number);
  const bool vanished = magnitude == 0 && number.mantissa != 0;
  if (vanished || magnitude != std::floor(magnitude)) return fail(ErrorNumber::TypeMismatch);
  return to_int16(signed_number(magnitude, negative));
}

Result<std::int16_t> to_int16(double number) {
  if (!(std::fabs(number) < 1e9)) return fail(ErrorNumber::Overflow);
  const double below = std::floor(number);
  const auto whole = static_cast<std::int32_t>(below);
  const double rest = number - below;
  const bool up = rest > 0.5 || (rest == 0.5 && whole % 2 != 0);
  const std::int32_t rounded = whole + (up ? 1 : 0);
  if (rounded < -32768 || rounded > 32767) return fail(ErrorNumber::Overflow);
  return static_cast<std::int16_t>(rounded);
}

}  // namespace tabulon::numbers
