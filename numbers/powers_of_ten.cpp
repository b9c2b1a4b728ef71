#include "numbers/powers_of_ten.h"

#include <array>
#include <bit>
#include <cassert>
#include <cstdint>

namespace tabulon::numbers {
namespace {

constexpr int kStep = 28;  // 5^27 is the largest power of five in 64 bits
constexpr int kLowestStep = kLowestPowerOfTen / kStep;
constexpr int kStepCount = (kHighestPowerOfTen + 1) / kStep - kLowestStep;

constexpr auto kSmallPowersOfFive = [] {
  std::array<std::uint64_t, kStep> powers{};
  std::uint64_t power = 1;
  for (auto& entry : powers) {
    entry = power << std::countl_zero(power);
    power *= 5;  // the product after 5^27 wraps and is not used
  }
  return powers;
}();

// 5^28 in factors of 32 bits, so that the compiler has few steps to go.
constexpr std::uint32_t kFactors[] = {1'220'703'125, 1'220'703'125, 25};

// A natural number for the compiler's own arithmetic, 32 bits a limb, least significant first.
struct Workpiece {
  static constexpr int kLimbs = 32;
  std::uint32_t limbs[kLimbs] = {};

  constexpr void multiply_by(std::uint32_t factor) {
    std::uint64_t carry = 0;
    for (int i = 0; i < kLimbs; ++i) {
      carry += std::uint64_t{limbs[i]} * factor;
      limbs[i] = static_cast<std::uint32_t>(carry);
      carry >>= 32;
    }
  }

  // Rounding down at each of several divisions is rounding down once.
  constexpr void divide_by(std::uint32_t divisor) {
    std::uint64_t rest = 0;
    for (int i = kLimbs - 1; i >= 0; --i) {
      rest = (rest << 32) | limbs[i];
      limbs[i] = static_cast<std::uint32_t>(rest / divisor);
      rest %= divisor;
    }
  }

  // 64 bits, of which `number` is the highest; what would lie below the number is 0.
  constexpr std::uint64_t bits_down_from(int number) const {
    std::uint64_t result = 0;
    for (int i = number; i > number - 64; --i) {
      const bool bit = i >= 0 && ((limbs[i / 32] >> (i % 32)) & 1) != 0;
      result = (result << 1) | (bit ? 1 : 0);
    }
    return result;
  }

  constexpr WideNumber top_128_bits() const {
    int limb = kLimbs - 1;
    while (limbs[limb] == 0) --limb;
    const int top = limb * 32 + 31 - std::countl_zero(limbs[limb]);
    return {bits_down_from(top), bits_down_from(top - 64)};
  }
};

constexpr auto kCoarsePowersOfFive = [] {
  std::array<WideNumber, kStepCount> powers{};
  Workpiece up;
  up.limbs[0] = 1;
  for (int step = 0; step < kStepCount + kLowestStep; ++step) {
    powers[static_cast<std::size_t>(step - kLowestStep)] = up.top_128_bits();
    for (const std::uint32_t factor : kFactors) up.multiply_by(factor);
  }
  Workpiece down;
  down.limbs[Workpiece::kLimbs - 1] = 1;
  for (int step = -1; step >= kLowestStep; --step) {
    for (const std::uint32_t factor : kFactors) down.divide_by(factor);
    powers[static_cast<std::size_t>(step - kLowestStep)] = down.top_128_bits();
  }
  return powers;
}();

// floor(log2(10^k)); the factor is log2(10) * 2^16, exact enough for the whole range.
constexpr int binary_exponent(int k) {
  return (217706 * k) >> 16;
}

WideNumber coarse_times_small(const WideNumber& coarse, std::uint64_t small) {
  const WideNumber tail = wide_product(coarse.low, small);
  const WideNumber product = sum(wide_product(coarse.high, small), tail.high);
  if ((product.high >> 63) != 0) return product;
  return {(product.high << 1) | (product.low >> 63), (product.low << 1) | (tail.low >> 63)};
}

}  // namespace

// Where the whole program is linked at once, as the page's module is, what is called for every text
// is inlined; the linker that counts bytes would not.
[[gnu::always_inline]] PowerOfTen power_of_ten(int k) {
  assert(k >= kLowestPowerOfTen && k <= kHighestPowerOfTen);
  const int exponent = binary_exponent(k) - 127;
  const auto shifted = static_cast<unsigned>(k - kLowestPowerOfTen);
  const std::uint64_t small = kSmallPowersOfFive[shifted % kStep];
  if (k >= 0 && k < kStep) return {{small, 0}, exponent, true};
  return {coarse_times_small(kCoarsePowersOfFive[shifted / kStep], small), exponent, false};
}

[[gnu::always_inline]] WideNumber scaled_product(std::uint64_t number, const PowerOfTen& power) {
  const WideNumber top = wide_product(number, power.significand.high);
  if (power.significand.low == 0) return top;
  return sum(top, wide_product(number, power.significand.low).high);
}

}  // namespace tabulon::numbers
