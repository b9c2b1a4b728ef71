#include "numbers/fraction.h"

#include <cmath>
#include <cstdint>

#include "numbers/conversions.h"

namespace tabulon::numbers {
namespace {

// A jump that is a whole number but for rounding noise shall come out whole.
constexpr double kNoiseAllowance = 1.000000001;

double tolerance_for(double magnitude) {
  if (magnitude > 0.0001) return magnitude * 1e-13;
  if (magnitude > kLargestWithoutFraction) return magnitude * 1e-14;
  return 1e-8;
}

// Int for numbers that are not negative, without a library call where the processor has no instruction.
double whole_part(double number) {
  constexpr double all_are_whole_from = 4503599627370496.0;  // 2^52
  return number < all_are_whole_from ? static_cast<double>(static_cast<std::int64_t>(number)) : number;
}

// p/q, and how far q times the target lies from p.
struct Bound {
  double p;
  double q;

  double below(double target) const { return q * target - p; }
  double above(double target) const { return p - q * target; }
  void jump(double steps, const Bound& towards) {
    p += steps * towards.p;
    q += steps * towards.q;
  }
};

struct Fraction {
  double p = 0;
  double q = 0;  // 0: none up to the largest denominator
};

// The walk between 0/1 and 1/1 to a fraction within `tolerance` of `target`, which lies between them.
Fraction simplest_fraction(double target, double tolerance, double largest_denominator) {
  Bound lower{0, 1};
  Bound upper{1, 1};
  while (lower.q <= largest_denominator && upper.q <= largest_denominator) {
    lower.jump(whole_part(lower.below(target) * kNoiseAllowance / upper.above(target)), upper);
    if (lower.q * tolerance >= lower.below(target)) return {lower.p, lower.q};
    upper.jump(whole_part(upper.above(target) * kNoiseAllowance / lower.below(target)), lower);
    if (upper.q * tolerance >= upper.above(target)) return {upper.p, upper.q};
  }
  return {};
}

FractionSearch whole_number(double number) {
  return {{.whole = std::fabs(number), .negative = number < 0}, true};
}

void write_sign(bool negative, TextBuffer& text) {
  text.append(negative ? '-' : ' ');
}

// What the text of a whole number reads back as: from 1E15 on it shows 15 digits of it.
double as_written(double whole) {
  constexpr double first_rounded = 1e15;
  if (whole < first_rounded) return whole;
  TextBuffer text;
  write_magnitude(whole, text);
  const double value = Val(text.view());
  const bool too_large = value == std::numeric_limits<double>::max();  // rounded up beyond every Double
  return too_large ? whole : value;
}

}  // namespace

FractionSearch find_mixed_number(double number, double largest_denominator) {
  const double magnitude = std::fabs(number);
  const double tolerance = tolerance_for(magnitude);
  const double whole = whole_part(magnitude);
  const double below = number < 0 ? (magnitude > whole ? -whole - 1 : -whole) : whole;
  if (number - below <= tolerance) return whole_number(below);
  if (below + 1 - number <= tolerance) return whole_number(below + 1);
  const Fraction fraction = simplest_fraction(magnitude - whole, tolerance, largest_denominator);
  if (!(fraction.q > 0 && fraction.q <= largest_denominator)) return {};
  return {{whole, fraction.p, fraction.q, number < 0}, true};
}

MixedNumber mixed_number(double number) {
  return find_mixed_number(number, kEveryDenominator).form;
}

void write_mixed_number(const MixedNumber& form, TextBuffer& text) {
  write_sign(form.negative, text);
  if (form.whole != 0 || form.numerator == 0) write_magnitude(form.whole, text);
  if (form.numerator == 0) return;
  if (form.whole != 0) text.append(form.negative ? '-' : '+');
  write_magnitude(form.numerator, text);
  text.append('/');
  write_magnitude(form.denominator, text);
}

double value_of(const MixedNumber& form) {
  const double magnitude =
      form.numerator == 0 ? as_written(form.whole) : form.whole + form.numerator / form.denominator;
  return form.negative ? -magnitude : magnitude;
}

}  // namespace tabulon::numbers
