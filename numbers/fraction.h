// The simplest fraction near a number, as pupils write it: the whole part separate, 2+1/3.
//
//   MixedNumber form = mixed_number(2.5);   // 2 + 1/2
//   TextBuffer text;
//   write_mixed_number(form, text);         // " 2+1/2"
//   value_of(form);                         // exactly what the expression 2+1/2 evaluates to
//
// Near means within a tolerance that is relative to the number: 1E-13 of it, 1E-14 of it up to 0.0001. The
// fraction is found by walking down the Stern-Brocot tree from both sides with jumps, which is the method of
// continued fractions. Its jumps overlook noise of one part in 10^9, so a number that near to a much simpler
// fraction can become it: 0.10000000000614 is written 1/10.
#pragma once

#include <cstddef>
#include <limits>
#include <span>

#include "numbers/text_buffer.h"

namespace tabulon::numbers {

struct MixedNumber {
  double whole = 0;      // >= 0
  double numerator = 0;  // 0: a whole number
  double denominator = 1;
  bool negative = false;
};

inline constexpr double kEveryDenominator = std::numeric_limits<double>::infinity();

// A magnitude above 0 and up to this is too small for the search; it is written in scientific form.
inline constexpr double kLargestWithoutFraction = 1e-7;

struct FractionSearch {
  MixedNumber form;
  bool found = false;  // false: the denominator would exceed the one allowed
};

// The simplest fraction near a finite `number` that is 0 or beyond kLargestWithoutFraction. A caller that
// has no use for denominators above some limit saves their search by giving it.
FractionSearch find_mixed_number(double number, double largest_denominator);

// The same without a limit. The search always ends: each round at least adds the two denominators, and the
// tolerance is far wider than the rounding of its steps.
MixedNumber mixed_number(double number);

// What a number becomes that is written as its fraction.
struct Snapped {
  double value = 0;
  bool settled = false;  // the value has the same fraction again; false also where that is not plain at once
};

// As many searches as a processor keeps in sight: their divisions need not wait for each other.
inline constexpr std::size_t kSearchedTogether = 8;

// For at most that many finite numbers that are 0 or beyond kLargestWithoutFraction, each in its place. A
// second search seldom differs from the first, and to see that it does not takes no division.
void snap_to_fractions(std::span<const double> numbers, std::span<Snapped> snapped);

// " 2+1/2", "-2-1/2", " 3/4", "-3": whole numbers by the rule of Str without its blank, one blank in front
// unless negative.
void write_mixed_number(const MixedNumber& form, TextBuffer& text);

// The value of the text that write_mixed_number writes, computed in the evaluator's order.
double value_of(const MixedNumber& form);

}  // namespace tabulon::numbers
