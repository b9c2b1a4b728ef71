// The display texts of numbers: decimals, fractions and multiples of pi. A text that does not begin with "-"
// begins with one blank, so that signs line up; "." is the decimal point whatever the locale.
//
//   double value = 0.1 + 0.2;
//   strSoortGetal(kDecimals, value);    // " 0.3"
//   strSoortGetal(kFractions, value);   // " 3/10", and value is now exactly 3/10
//
// Infinities and not-a-numbers, which no model holds, are written " Inf", "-Inf" and " NaN".
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "numbers/fraction.h"
#include "numbers/text_buffer.h"

namespace tabulon::numbers {

inline constexpr std::int16_t kDecimals = 0;
inline constexpr std::int16_t kFractions = -1;

// The display text by mode; the empty text for any other mode than kDecimals and kFractions.
// In fractions mode a short multiple of pi is written as such ("(1/2)pi", " 2pi", "-pi"); otherwise `Getal`
// becomes exactly the value of its fraction, so that later arithmetic works on what is shown, and a fraction
// of more than 9 characters gives way to the decimal text of that value.
std::string strSoortGetal(std::int16_t Soort, double& Getal);

// At most 6 decimals, fewer for larger numbers, halves away from zero on the 15-digit decimal form; in
// scientific form below 1E-6 and from 1E6 on. Cut, not rounded, to 9 characters before the blank is put in
// front (so "-1.23E+100" loses its last digit).
std::string GetalNaarDecimaal(double getal);

// The simplest fraction, of any length. A magnitude above 0 and up to 1E-7 is written in scientific form and
// sets `gelukt` to 0 (False), which is otherwise left as it is.
std::string GetalNaarBreuk(std::int16_t& gelukt, double getal);

// Two decimals and a signed exponent of at least two digits: " 1.23E+06", "-1.00E-07", " 1.00E+100".
std::string GetalNaarWetenschappelijk(double getal);

// What strSoortGetal makes of numbers in fractions mode, each in its place, without the texts. Where a value
// is settled it stays what it is from then on, and its text is that of the number.
void snap(std::span<const double> getallen, std::span<Snapped> snapped);

// The first two without the string: the same texts, appended to a buffer.
void write_display_text(std::int16_t Soort, double& Getal, TextBuffer& text);
void write_decimal(double getal, TextBuffer& text);

}  // namespace tabulon::numbers
