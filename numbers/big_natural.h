// A natural number of up to 4224 bits without heap memory: the judge in the rare cases where 128 bits
// cannot tell on which side of a halfway point a number lies.
//
//   BigNatural left(5), right(1);
//   left.multiply_by_power_of_ten(2);
//   right.shift_left(9);
//   compare(left, right);   // less: 500 < 512
//
// The capacity is what the longest comparison needs: 801 decimal digits (2661 bits) scaled by 2^1075, or
// a 54-bit number scaled by 10^1145 (3804 bits).
#pragma once

#include <array>
#include <compare>
#include <cstdint>

namespace tabulon::numbers {

class BigNatural {
 public:
  explicit BigNatural(std::uint64_t value);

  // this * factor + term; the caller keeps within the capacity.
  void multiply_add(std::uint32_t factor, std::uint32_t term);
  void multiply_by_power_of_ten(int exponent);
  void shift_left(int bits);

  friend std::strong_ordering compare(const BigNatural& left, const BigNatural& right);

 private:
  static constexpr int kLimbs = 132;

  void push_limb(std::uint32_t limb);

  std::array<std::uint32_t, kLimbs> limbs_;  // least significant first; only the first size_ mean anything
  int size_ = 0;                             // no leading zero limbs; 0 is the number 0
};

// Compares left * 10^power_of_ten * 2^power_of_two with right; both powers may be negative.
std::strong_ordering compare_scaled(BigNatural left, int power_of_ten, int power_of_two, BigNatural right);

}  // namespace tabulon::numbers
