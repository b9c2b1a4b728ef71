#include "lesson/rational.h"

#include <cmath>
#include <cstdlib>
#include <utility>

#include "numbers/conversions.h"
#include "numbers/decimal.h"

namespace tabulon::lesson {

namespace {

// digits * 10^exponent, without zeros at the end.
struct ShortDecimal {
  std::string digits;
  int exponent = 0;
  bool exact = false;
};

// number * 10^power, rounded to a whole number, halves up.
struct Rounded {
  Whole whole;
  bool exact = false;
};

Rounded rounded(const Rational& number, int power) {
  const Whole factor = power_of_ten(std::abs(power));
  const Whole above = power < 0 ? number.numerator() : number.numerator() * factor;
  const Whole below = power < 0 ? number.denominator() * factor : number.denominator();
  const Whole whole = above / below;
  const Whole rest = above - whole * below;
  return {rest + rest >= below ? whole + Whole(1) : whole, rest.is_zero()};
}

// Of a positive number. The number of bits tells the first digit's place, or one too many.
ShortDecimal short_decimal(const Rational& number) {
  constexpr double log_of_2 = 0.30102999566398120;
  const int bits = number.numerator().bits() - number.denominator().bits();
  int exponent = static_cast<int>(std::floor((bits - 1) * log_of_2)) - numbers::kSignificantDigits + 1;
  const Whole beyond = power_of_ten(numbers::kSignificantDigits);
  Rounded digits = rounded(number, -exponent);
  while (digits.whole >= beyond) digits = rounded(number, -++exponent);
  ShortDecimal form{digits.whole.digits(), exponent, digits.exact};
  for (; form.digits.ends_with('0'); ++form.exponent) form.digits.pop_back();
  return form;
}

Rational size_of(const Rational& number) {
  return number.sign() < 0 ? -number : number;
}

std::string without_exponent(const ShortDecimal& form) {
  if (form.exponent >= 0) return form.digits + std::string(static_cast<std::size_t>(form.exponent), '0');
  const auto decimals = static_cast<std::size_t>(-form.exponent);
  std::string text = form.digits;
  if (text.size() <= decimals) text.insert(0, decimals + 1 - text.size(), '0');
  return text.insert(text.size() - decimals, ".");
}

std::string with_exponent(const ShortDecimal& form) {
  const int exponent = form.exponent + static_cast<int>(form.digits.size()) - 1;
  std::string text = form.digits;
  if (text.size() > 1) text.insert(1, ".");
  return text + (exponent < 0 ? "E-" : "E+") + numbers::digits(std::abs(exponent));
}

std::string write(const ShortDecimal& form) {
  constexpr int longest_run_of_zeros = 6;
  const int first = form.exponent + static_cast<int>(form.digits.size());
  const bool plain = first <= numbers::kSignificantDigits && first > -longest_run_of_zeros;
  return plain ? without_exponent(form) : with_exponent(form);
}

}  // namespace

Rational::Rational(Whole numerator, Whole denominator)
    : numerator_(std::move(numerator)), denominator_(std::move(denominator)) {
  if (denominator_.is_negative()) {
    numerator_ = -numerator_;
    denominator_ = -denominator_;
  }
  if (denominator_ == Whole(1)) return;
  const Whole divisor = greatest_common_divisor(numerator_, denominator_);
  if (divisor == Whole(1)) return;
  numerator_ = numerator_ / divisor;
  denominator_ = denominator_ / divisor;
}

std::string Rational::text() const {
  if (is_zero()) return "0";
  const ShortDecimal form = short_decimal(size_of(*this));
  if (form.exact) return (sign() < 0 ? "-" : "") + write(form);
  return is_whole() ? numerator_.digits() : numerator_.digits() + "/" + denominator_.digits();
}

Rational Rational::operator-() const {
  Rational result = *this;
  result.numerator_ = -result.numerator_;
  return result;
}

Rational operator+(const Rational& left, const Rational& right) {
  return {left.numerator_ * right.denominator_ + right.numerator_ * left.denominator_,
          left.denominator_ * right.denominator_};
}

Rational operator-(const Rational& left, const Rational& right) {
  return left + -right;
}

Rational operator*(const Rational& left, const Rational& right) {
  return {left.numerator_ * right.numerator_, left.denominator_ * right.denominator_};
}

Rational operator/(const Rational& left, const Rational& right) {
  return {left.numerator_ * right.denominator_, left.denominator_ * right.numerator_};
}

std::strong_ordering operator<=>(const Rational& left, const Rational& right) {
  return left.numerator_ * right.denominator_ <=> right.numerator_ * left.denominator_;
}

std::string decimal_text(const Rational& number) {
  if (number.is_zero()) return "0";
  return (number.sign() < 0 ? "-" : "") + write(short_decimal(size_of(number)));
}

bool is_short_decimal(const Rational& number) {
  return number.is_zero() || short_decimal(size_of(number)).exact;
}

double to_double(const Rational& number) {
  return numbers::Val(decimal_text(number));
}

Rational rational_near(double number) {
  const numbers::Decimal decimal = numbers::to_decimal(number);
  const int power = decimal.exponent - numbers::kSignificantDigits + 1;
  const Whole factor = power_of_ten(std::abs(power));
  const Whole digits(static_cast<std::int64_t>(decimal.digits));
  const Rational size = power < 0 ? Rational(digits, factor) : Rational(digits * factor, Whole(1));
  return decimal.negative ? -size : size;
}

}  // namespace tabulon::lesson
