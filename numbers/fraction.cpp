#include "numbers/fraction.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
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

struct Fraction {
  double p;
  double q;
};

// The walk between 0/1 and 1/1 to a fraction within `tolerance` of `target`, which lies between them. The
// lower and the upper bound jump in turn, the lower one first.
class Walk {
 public:
  Walk() = default;
  Walk(double target, double tolerance)
      : target_(target), tolerance_(tolerance), distances_{target, 1 - target} {}

  bool ended() const { return ended_; }
  Fraction found() const { return bounds_[1 - mover_]; }
  double largest_denominator() const { return std::max(bounds_[0].q, bounds_[1].q); }

  double next_steps() const { return whole_part(scaled_distance() / distances_[1 - mover_]); }

  // Whether next_steps is certainly `steps`, however its division is rounded.
  bool surely_goes(double steps) const {
    constexpr double rounding = 1e-15;
    const double distance = scaled_distance(), step = distances_[1 - mover_];
    return (steps == 0 || steps * step <= distance * (1 - rounding)) &&
           distance * (1 + rounding) < (steps + 1) * step;
  }

  // What a search is made of is inlined also where the compiler counts bytes: this, Parts, and value_of.
  [[gnu::always_inline]] void jump(double steps) {
    Fraction& bound = bounds_[mover_];
    const Fraction& towards = bounds_[1 - mover_];
    bound.p += steps * towards.p;
    bound.q += steps * towards.q;
    const double target_above = bound.q * target_ - bound.p;
    distances_[mover_] = mover_ == 0 ? target_above : -target_above;
    ended_ = bound.q * tolerance_ >= distances_[mover_];
    mover_ = 1 - mover_;
  }

 private:
  double scaled_distance() const { return distances_[mover_] * kNoiseAllowance; }

  double target_ = 0;
  double tolerance_ = 0;
  std::array<Fraction, 2> bounds_{{{0, 1}, {1, 1}}};
  std::array<double, 2> distances_{};  // how far q times the target lies from p
  std::size_t mover_ = 0;
  bool ended_ = false;
};

void write_sign(bool negative, TextBuffer& text) {
  text.append(negative ? '-' : ' ');
}

double read_back(double whole) {
  TextBuffer text;
  write_magnitude(whole, text);
  const double value = Val(text.view());
  const bool too_large = value == std::numeric_limits<double>::max();  // rounded up beyond every Double
  return too_large ? whole : value;
}

// What the text of a whole number reads back as: from 1E15 on it shows 15 digits of it.
double as_written(double whole) {
  constexpr double first_rounded = 1e15;
  return whole < first_rounded ? whole : read_back(whole);
}

// A number taken apart: what is left to be found between 0 and 1, if the number is not whole within the
// tolerance.
struct Parts {
  double whole;
  double part;
  double tolerance;
  bool is_whole = false;

  [[gnu::always_inline]] explicit Parts(double number)
      : whole(whole_part(std::fabs(number))),
        part(std::fabs(number) - whole),
        tolerance(tolerance_for(std::fabs(number))) {
    const double below = number < 0 ? (part > 0 ? -whole - 1 : -whole) : whole;
    const bool is_above = number - below <= tolerance;
    is_whole = is_above || below + 1 - number <= tolerance;
    if (is_whole) whole = std::fabs(is_above ? below : below + 1);
  }
};

MixedNumber form_of(double number, const Parts& parts, const Fraction& fraction) {
  return {parts.whole, fraction.p, fraction.q, number < 0};
}

MixedNumber whole_form(double number, const Parts& parts) {
  return {.whole = parts.whole, .negative = number < 0 && parts.whole != 0};
}

// One number's way to its fraction, with the jumps that it took.
struct Search {
  static constexpr std::size_t kMostJumps = 40;

  double number = 0;
  Parts parts{0};
  Walk walk;
  std::size_t count = 0;
  std::array<double, kMostJumps> jumps;

  void jump() {
    const double steps = walk.next_steps();
    if (count < kMostJumps) jumps[count] = steps;
    ++count;
    walk.jump(steps);
  }
};

// Whether a search for `value`, which the fraction of another search says, certainly finds that fraction too.
bool finds_the_same(const Search& search, double value) {
  if (std::fabs(value) <= kLargestWithoutFraction) return false;
  const Parts parts(value);
  if (parts.is_whole || parts.whole != search.parts.whole || search.count > Search::kMostJumps) return false;
  Walk walk(parts.part, parts.tolerance);
  for (std::size_t at = 0; at < search.count; ++at) {
    if (walk.ended() || !walk.surely_goes(search.jumps[at])) return false;
    walk.jump(search.jumps[at]);
  }
  return walk.ended();
}

Snapped snapped_to_whole(double number, const Parts& parts) {
  const double value = value_of(whole_form(number, parts));
  return {value, std::fabs(value) == parts.whole};
}

Snapped result_of(const Search& search) {
  const double value = value_of(form_of(search.number, search.parts, search.walk.found()));
  return {value, value == search.number || finds_the_same(search, value)};
}

}  // namespace

FractionSearch find_mixed_number(double number, double largest_denominator) {
  const Parts parts(number);
  if (parts.is_whole) return {whole_form(number, parts), true};
  Walk walk(parts.part, parts.tolerance);
  while (!walk.ended()) {
    if (walk.largest_denominator() > largest_denominator) return {};
    walk.jump(walk.next_steps());
  }
  const Fraction fraction = walk.found();
  if (fraction.q > largest_denominator) return {};
  return {form_of(number, parts, fraction), true};
}

MixedNumber mixed_number(double number) {
  return find_mixed_number(number, kEveryDenominator).form;
}

void snap_to_fractions(std::span<const double> numbers, std::span<Snapped> snapped) {
  std::array<Search, kSearchedTogether> searches;
  std::array<std::size_t, kSearchedTogether> going;
  std::size_t count = 0;
  for (std::size_t at = 0; at < numbers.size(); ++at) {
    Search& search = searches[at];
    const Parts parts(numbers[at]);
    if (parts.is_whole) {
      snapped[at] = snapped_to_whole(numbers[at], parts);
    } else {
      search.number = numbers[at];
      search.parts = parts;
      search.walk = Walk(parts.part, parts.tolerance);
      going[count++] = at;
    }
  }
  while (count > 0) {
    for (std::size_t lane = 0; lane < count;) {
      Search& search = searches[going[lane]];
      search.jump();
      if (!search.walk.ended()) {
        ++lane;
        continue;
      }
      snapped[going[lane]] = result_of(search);
      going[lane] = going[--count];
    }
  }
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

[[gnu::always_inline]] double value_of(const MixedNumber& form) {
  const double magnitude =
      form.numerator == 0 ? as_written(form.whole) : form.whole + form.numerator / form.denominator;
  return form.negative ? -magnitude : magnitude;
}

}  // namespace tabulon::numbers
