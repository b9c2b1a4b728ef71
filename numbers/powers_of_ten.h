// Powers of ten as 128-bit numbers, for both directions between Doubles and decimal texts.
//
//   PowerOfTen thousand = power_of_ten(3);   // 1000 * 2^118 in 128 bits, exponent -118, exact
//
// Kept small: the powers 10^0..10^27 are exact in 64 bits (without their factors 2), and every other power
// is one of them times one of 26 coarse steps of 10^28. Both tables are computed by the compiler.
#pragma once

#include "numbers/wide_product.h"

namespace tabulon::numbers {

inline constexpr int kLowestPowerOfTen = -364;
inline constexpr int kHighestPowerOfTen = 363;

// 10^k = significand * 2^exponent, the top bit of the significand set. When not exact the significand is
// too small, by less than three units.
struct PowerOfTen {
  WideNumber significand;
  int exponent = 0;
  bool exact = false;
};

// k in kLowestPowerOfTen..kHighestPowerOfTen.
PowerOfTen power_of_ten(int k);

// number * power / 2^64, rounded down. For an inexact power the true product is larger by less than
// kProductSlack units.
WideNumber scaled_product(std::uint64_t number, const PowerOfTen& power);
inline constexpr std::uint64_t kProductSlack = 4;

}  // namespace tabulon::numbers
