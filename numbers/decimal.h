// Doubles as decimals of 15 significant digits, and decimal texts as Doubles, both correctly rounded and
// both independent of the locale of the process.
//
//   Decimal third = to_decimal(1.0 / 3);   // digits 333333333333333, exponent -1
//   NumberText read = scan_number("2.5E-3 ml", ExponentLetters::Capitals);
//   to_double(read);                       // 0.0025, from the first 7 characters
//
// Both directions multiply by a 128-bit power of ten and know how far the product can be off. Only when that
// leaves a halfway point within reach, exact arithmetic decides. (Clinger's fast path, and the observation of
// Eisel and Lemire that 128 bits nearly always suffice.)
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace tabulon::numbers {

inline constexpr int kSignificantDigits = 15;

// digits * 10^(exponent - 14); digits has exactly 15 digits, so `exponent` is the power of ten of the first.
// For the number 0 both are 0.
struct Decimal {
  std::uint64_t digits = 0;
  int exponent = 0;
  bool negative = false;
};

// The 15-digit decimal nearest to a finite number; halfway goes to the even digit. The sign of -0 is dropped.
Decimal to_decimal(double number);

// Which letters may mark an exponent: "E" and "D", or "e" and "d" as well.
enum class ExponentLetters { Capitals, BothCases };

// An unsigned number as it stands in a text: digits with at most one "." and an optional exponent. Blanks
// within it do not count.
struct NumberText {
  std::size_t length = 0;              // how many characters belong to it, blanks behind it too
  std::string_view mantissa_text;      // all but the exponent, for exact arithmetic
  std::uint64_t mantissa = 0;          // the first 19 significant digits
  std::int64_t exponent = 0;           // the value is mantissa * 10^exponent, a little more when cut
  std::int64_t written_exponent = 0;   // what stands behind the marker
  bool has_digits = false;             // without a digit the text holds no number
  bool cut = false;                    // a digit other than 0 did not fit the mantissa
  bool marker_without_digits = false;  // an exponent marker with no number behind it
};

// Reads the number at the start of a text. A marker without digits does not belong to it.
NumberText scan_number(std::string_view text, ExponentLetters letters);

// The Double nearest to the number, halfway to the even one; infinite when it is too large for a Double.
double to_double(const NumberText& number);

}  // namespace tabulon::numbers
