#include "numbers/big_natural.h"

#include <cassert>

namespace tabulon::numbers {

BigNatural::BigNatural(std::uint64_t value) {
  for (; value != 0; value >>= 32) push_limb(static_cast<std::uint32_t>(value));
}

void BigNatural::push_limb(std::uint32_t limb) {
  assert(size_ < kLimbs);
  if (size_ < kLimbs) limbs_[static_cast<std::size_t>(size_++)] = limb;
}

void BigNatural::multiply_add(std::uint32_t factor, std::uint32_t term) {
  std::uint64_t carry = term;
  for (int i = 0; i < size_; ++i) {
    std::uint32_t& limb = limbs_[static_cast<std::size_t>(i)];
    carry += std::uint64_t{limb} * factor;
    limb = static_cast<std::uint32_t>(carry);
    carry >>= 32;
  }
  if (carry != 0) push_limb(static_cast<std::uint32_t>(carry));
}

void BigNatural::multiply_by_power_of_ten(int exponent) {
  for (; exponent >= 9; exponent -= 9) multiply_add(1'000'000'000, 0);
  for (; exponent > 0; --exponent) multiply_add(10, 0);
}

void BigNatural::shift_left(int bits) {
  for (; bits >= 31; bits -= 31) multiply_add(std::uint32_t{1} << 31, 0);
  multiply_add(std::uint32_t{1} << bits, 0);
}

std::strong_ordering compare(const BigNatural& left, const BigNatural& right) {
  if (left.size_ != right.size_) return left.size_ <=> right.size_;
  for (int i = left.size_ - 1; i >= 0; --i) {
    const auto at = static_cast<std::size_t>(i);
    if (left.limbs_[at] != right.limbs_[at]) return left.limbs_[at] <=> right.limbs_[at];
  }
  return std::strong_ordering::equal;
}

std::strong_ordering compare_scaled(BigNatural left, int power_of_ten, int power_of_two, BigNatural right) {
  left.multiply_by_power_of_ten(power_of_ten);
  right.multiply_by_power_of_ten(-power_of_ten);
  left.shift_left(power_of_two > 0 ? power_of_two : 0);
  right.shift_left(power_of_two < 0 ? -power_of_two : 0);
  return compare(left, right);
}

}  // namespace tabulon::numbers
