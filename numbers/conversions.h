// Numbers to texts and back by the classic BASIC rules of files, parameters and scripts. "." is the decimal
// point whatever the locale of the process.
//
//   Str(0.5);              // " .5"
//   Val(" 3.5 bv");        // 3.5
//   to_int16(" 100");      // 100
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "numbers/text_buffer.h"
#include "platform/run_time_error.h"

namespace tabulon::numbers {

// A blank or "-", then the shortest form of up to 15 significant digits, without a zero before the point:
// " .5", "-.25", " 100", " .333333333333333". With an exponent of a sign and at least two digits (" 1E+20",
// " 3.33333333333333E-02") when the magnitude is 1E15 or more, or when the plain form would need more than 15
// digits behind the point. -0 is written as 0. Infinities and not-a-numbers, which no model holds, are
// written " Inf", "-Inf" and " NaN".
std::string Str(double number);

// The same for a whole number: " 2", "-3".
std::string Str(std::int16_t number);

// A whole number without the blank: "2", "-3".
std::string digits(int number);

// The leading number of a text: blanks are skipped wherever they stand, an optional sign, digits with at most
// one ".", an optional exponent (E or D, either case, with at least one digit). The first other character
// ends it; a text that begins with no number gives 0. Always finite: a number too large for a Double gives
// the largest Double of its sign.
double Val(std::string_view text);

// Error 6 when the leading number of a text is too large for a Double.
Result<> fits_double(std::string_view text);

// A text that is a whole number, as a page parameter must be: " 100", "+5", "2.0", "1E2", with blanks around
// it but none inside. Error 13 when it is no number or not whole, error 6 when it lies outside -32768..32767.
Result<std::int16_t> to_int16(std::string_view text);

// A script's number, rounded to the nearest whole number, halves to the even one (2.5 gives 2). Error 6 when
// that lies outside -32768..32767 or the number is not finite.
Result<std::int16_t> to_int16(double number);

// Str's digits for a magnitude (not negative), without the leading blank.
void write_magnitude(double magnitude, TextBuffer& text);

// Writes " Inf", "-Inf" or " NaN".
void write_not_finite(double number, TextBuffer& text);

}  // namespace tabulon::numbers
