// exp, log and pow, and what sin and cos take off an angle, without the C library's tables.
//
// Every page would have to load those tables, which hardly deflate. Here the functions are series
// whose coefficients the compiler works out: log m is 2 artanh((m - 1) / (m + 1)), exp r is Taylor's series
// about 0, and a large angle is reduced by Payne and Hanek's method. What must be known beyond the digits of
// a Double, the logarithm in a power above all, is the sum of two (Dekker's and Knuth's exact sums and
// products). The results are within one unit in the last place of the C library's, and a power that a Double
// can hold is that Double; tests/module compares.
#include <array>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <numbers>

#include "numbers/wide_product.h"

namespace {

using tabulon::numbers::wide_product;
using tabulon::numbers::WideNumber;

constexpr double infinity = std::numeric_limits<double>::infinity();

// high + low, of which high alone is the nearest Double.
struct Pair {
  double high, low;
};

constexpr Pair ln2{0x1.62e42fee00000p-1, 0x1.a39ef35793c76p-33};  // an exponent times the high part is exact
constexpr Pair half_pi{0x1.921fb54442d18p+0, 0x1.1a62633145c07p-54};
constexpr Pair two_thirds{0x1.5555555555555p-1, 0x1.5555555555555p-55};

// Where |left| is not below |right|, or left is 0.
Pair quick_sum(double left, double right) {
  const double high = left + right;
  return {high, right - (high - left)};
}

Pair exact_sum(double left, double right) {
  const double high = left + right;
  const double rest = high - left;
  return {high, (left - (high - rest)) + (right - rest)};
}

// Its first 26 bits, which times another's are exact.
double upper_half(double number) {
  return std::bit_cast<double>(std::bit_cast<std::uint64_t>(number) & ~((std::uint64_t{1} << 27) - 1));
}

Pair exact_product(double left, double right) {
  const double high = left * right;
  const double left_high = upper_half(left), left_low = left - left_high;
  const double right_high = upper_half(right), right_low = right - right_high;
  return {high, ((left_high * right_high - high) + left_high * right_low + left_low * right_high) +
                    left_low * right_low};
}

Pair product(Pair left, Pair right) {
  const auto [high, low] = exact_product(left.high, right.high);
  return {high, low + (left.high * right.low + left.low * right.high)};
}

// 2^exponent, of a Double's own exponents.
double power_of_two(int exponent) {
  return std::bit_cast<double>(static_cast<std::uint64_t>(exponent + 1023) << 52);
}

template <std::size_t count>
double series(const std::array<double, count>& coefficients, double argument) {
  double sum = 0;
  for (std::size_t i = count; i-- > 0;) sum = sum * argument + coefficients[i];
  return sum;
}

// 2 artanh s = 2 s + s (2/3 z + 2/5 z^2 + 2/7 z^3 ...), with z = s^2 at most 0.03; this is from 2/5 on.
constexpr auto artanh_coefficients = [] {
  std::array<double, 10> result{};
  for (int i = 0; i < 10; ++i) result[static_cast<std::size_t>(i)] = 2.0 / (2 * i + 5);
  return result;
}();

// (m - 1) / (m + 1)
Pair artanh_argument(double m) {
  const double numerator = m - 1;
  const Pair denominator = {m + 1, m - ((m + 1) - 1)};
  const double high = numerator / denominator.high;
  const auto [taken, rest] = exact_product(high, denominator.high);
  return {high, ((numerator - taken) - rest - high * denominator.low) / denominator.high};
}

// Of a positive number that is finite.
Pair log_of(double number) {
  constexpr std::uint64_t root_half = 0x3fe6'a09e'667f'3bcd;
  int exponent = 0;
  if (number < std::numeric_limits<double>::min()) number *= 0x1p54, exponent = -54;
  const auto bits = std::bit_cast<std::uint64_t>(number);
  const auto steps = static_cast<std::int64_t>(bits - root_half) >> 52;
  exponent += static_cast<int>(steps);
  const Pair s = artanh_argument(std::bit_cast<double>(bits - (static_cast<std::uint64_t>(steps) << 52)));

  Pair z = exact_product(s.high, s.high);
  z.low += 2 * s.high * s.low;
  Pair sum = quick_sum(two_thirds.high, z.high * series(artanh_coefficients, z.high));
  sum.low += two_thirds.low;
  const Pair rest = product(s, product(z, sum));

  const Pair first = exact_sum(exponent * ln2.high, 2 * s.high);
  const Pair second = exact_sum(first.high, rest.high);
  return quick_sum(second.high, second.low + (first.low + (exponent * ln2.low + 2 * s.low + rest.low)));
}

// 1/2!, 1/3! ...
constexpr auto exp_coefficients = [] {
  std::array<double, 13> result{};
  double factorial = 1;
  for (int i = 0; i < 13; ++i) result[static_cast<std::size_t>(i)] = 1 / (factorial *= i + 2);
  return result;
}();

double exp_of(Pair exponent) {
  if (exponent.high > 710) return infinity;
  if (exponent.high < -746) return 0;
  const double twos = __builtin_nearbyint(exponent.high * std::numbers::log2e);
  const auto [r, rest] = exact_sum(exponent.high - twos * ln2.high, exponent.low - twos * ln2.low);
  const Pair beyond_one = quick_sum(r, r * r * series(exp_coefficients, r));
  const Pair sum = quick_sum(1, beyond_one.high);
  const double result = sum.high + (sum.low + (beyond_one.low + (rest + rest * r)));
  // In two steps: neither 2^1024 nor 2^-1075 is a Double, and what becomes one of them may be.
  const int half = static_cast<int>(twos) / 2;
  return result * power_of_two(half) * power_of_two(static_cast<int>(twos) - half);
}

bool is_whole(double number) {
  return number == __builtin_floor(number);
}

bool is_odd(double number) {
  return is_whole(number) && !is_whole(number / 2);
}

// Of a base that is not negative; and 0 and infinity have their logarithms too.
double power(double base, double exponent) {
  const Pair log = base == 0 ? Pair{-infinity, 0} : base == infinity ? Pair{infinity, 0} : log_of(base);
  if (log.high == 0) return 1;
  const double approximately = exponent * log.high;
  if (!(__builtin_fabs(approximately) < 800)) return approximately < 0 ? 0 : infinity;
  const auto [high, low] = exact_product(exponent, log.high);
  return exp_of(quick_sum(high, low + exponent * log.low));
}

// 64 zeros, and then 2 / pi.
constexpr std::array<std::uint64_t, 21> two_over_pi = {0,  //
                                                       0xa2f9836e4e441529,
                                                       0xfc2757d1f534ddc0,
                                                       0xdb6295993c439041,
                                                       0xfe5163abdebbc561,  //
                                                       0xb7246e3a424dd2e0,
                                                       0x06492eea09d1921c,
                                                       0xfe1deb1cb129a73e,
                                                       0xe88235f52ebb4484,  //
                                                       0xe99c7026b45f7e41,
                                                       0x3991d639835339f4,
                                                       0x9c845f8bbdf9283b,
                                                       0x1ff897ffde05980f,  //
                                                       0xef2f118b5a0a6d1f,
                                                       0x6d367ecf27cb09b7,
                                                       0x4f463f669e5fea2d,
                                                       0x7527bac7ebe5f17b,  //
                                                       0x3d0739f78a5292ea,
                                                       0x6bfb5fb11f8d5d08,
                                                       0x56033046fc7b6bab,
                                                       0xf0cfbc209af4361d};

// The 64 bits of a row of words that begin after so many.
std::uint64_t bits_after(const std::uint64_t* words, int count) {
  const std::uint64_t* const word = words + count / 64;
  const int used = count % 64;
  return used ? word[0] << used | word[1] >> (64 - used) : word[0];
}

// Of a fraction between 0 and 1, by its first 128 bits.
Pair to_pair(std::uint64_t high, std::uint64_t low) {
  const std::uint64_t bits[] = {high, low, 0};
  const int zeros = std::countl_zero(high);
  const std::uint64_t first = bits_after(bits, zeros), second = bits_after(bits + 1, zeros);
  const double unit = power_of_two(-53 - zeros);
  return {static_cast<double>(first >> 11) * unit,
          static_cast<double>(first << 53 | second >> 11) * (unit * 0x1p-64)};
}

}  // namespace

extern "C" {

double exp(double number) {
  return number != number ? number : exp_of({number, 0});
}

double log(double number) {
  if (number == 0) return -infinity;
  if (number < 0) return std::numeric_limits<double>::quiet_NaN();
  return number < infinity ? log_of(number).high : number;
}

double pow(double base, double exponent) {
  if (exponent == 0 || base == 1) return 1;
  if (base != base || exponent != exponent) return base + exponent;
  const double magnitude = power(__builtin_fabs(base), exponent);
  if (!__builtin_signbit(base)) return magnitude;
  if (base < 0 && base != -infinity && !is_whole(exponent)) return std::numeric_limits<double>::quiet_NaN();
  return is_odd(exponent) ? -magnitude : magnitude;
}

// The C library's own name for what its sin, cos and tan need of an angle beyond pi / 4: what is left after
// the nearest multiple of pi / 2, and which one that is of every four.
int __rem_pio2(double angle, double* left) {
  const auto bits = std::bit_cast<std::uint64_t>(angle);
  const int exponent = static_cast<int>(bits >> 52 & 0x7ff) - 1075;
  const std::uint64_t whole = (bits & 0xf'ffff'ffff'ffff) | std::uint64_t{1} << 52;
  // Bits of 2 / pi before these count whole turns, and those after them nothing.
  const int first = exponent + 62;
  const std::uint64_t* const words = two_over_pi.data();
  const WideNumber lowest = wide_product(whole, bits_after(words, first + 128));
  const WideNumber middle = sum(wide_product(whole, bits_after(words, first + 64)), lowest.high);
  const std::uint64_t highest = whole * bits_after(words, first) + middle.high;

  std::uint64_t high = highest << 2 | middle.low >> 62, low = middle.low << 2 | lowest.low >> 62;
  const bool beyond_half = high >> 63;
  if (beyond_half) high = ~high, low = ~low;
  const auto [rest, rest_low] = product(to_pair(high, low), half_pi);
  const bool negative = angle < 0;
  const double sign = negative != beyond_half ? -1 : 1;
  left[0] = sign * (rest + rest_low);
  left[1] = sign * (rest_low - ((rest + rest_low) - rest));
  const int quarters = static_cast<int>(highest >> 62) + (beyond_half ? 1 : 0);
  return negative ? -quarters : quarters;
}

}  // extern "C"
