// The full 128-bit product of two 64-bit numbers, for targets with and without a 128-bit integer type.
//
//   WideNumber product = wide_product(1ull << 63, 6);   // high 3, low 0
#pragma once

#include <cstdint>

namespace tabulon::numbers {

// high * 2^64 + low.
struct WideNumber {
  std::uint64_t high = 0;
  std::uint64_t low = 0;

  friend constexpr bool operator==(const WideNumber&, const WideNumber&) = default;
};

// From four 32-bit products; 32-bit processors have nothing wider.
constexpr WideNumber wide_product_by_halves(std::uint64_t left, std::uint64_t right) {
  constexpr std::uint64_t low_half = 0xFFFF'FFFF;
  const std::uint64_t low = (left & low_half) * (right & low_half);
  const std::uint64_t cross = (left >> 32) * (right & low_half) + (low >> 32);
  const std::uint64_t other_cross = (left & low_half) * (right >> 32) + (cross & low_half);
  const std::uint64_t high = (left >> 32) * (right >> 32) + (cross >> 32) + (other_cross >> 32);
  return {high, (other_cross << 32) | (low & low_half)};
}

constexpr WideNumber wide_product(std::uint64_t left, std::uint64_t right) {
#if defined(__SIZEOF_INT128__) && !defined(__wasm__)
  __extension__ using Wide = unsigned __int128;
  const Wide product = static_cast<Wide>(left) * right;
  return {static_cast<std::uint64_t>(product >> 64), static_cast<std::uint64_t>(product)};
#else
  return wide_product_by_halves(left, right);
#endif
}

constexpr WideNumber sum(WideNumber left, std::uint64_t right) {
  const std::uint64_t low = left.low + right;
  return {left.high + (low < right ? 1 : 0), low};
}

}  // namespace tabulon::numbers
