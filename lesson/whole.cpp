#include "lesson/whole.h"

#include <algorithm>
#include <bit>
#include <utility>

namespace tabulon::lesson {

namespace {

constexpr int limb_bits = 32;

std::uint32_t low_limb(std::uint64_t number) {
  return static_cast<std::uint32_t>(number);
}

void drop_zeros(std::vector<std::uint32_t>& limbs) {
  while (!limbs.empty() && limbs.back() == 0) limbs.pop_back();
}

// Divides in place by a number of one limb; the remainder.
std::uint32_t divide_by_limb(std::vector<std::uint32_t>& limbs, std::uint32_t divisor) {
  std::uint64_t remainder = 0;
  for (std::size_t at = limbs.size(); at-- > 0;) {
    remainder = (remainder << limb_bits) | limbs[at];
    limbs[at] = low_limb(remainder / divisor);
    remainder %= divisor;
  }
  drop_zeros(limbs);
  return low_limb(remainder);
}

// Shifted by fewer bits than a limb has, with one limb more than before.
std::vector<std::uint32_t> shifted_left(const std::vector<std::uint32_t>& limbs, int count) {
  std::vector<std::uint32_t> shifted(limbs.size() + 1);
  std::uint64_t carry = 0;
  for (std::size_t at = 0; at < limbs.size(); ++at) {
    carry |= static_cast<std::uint64_t>(limbs[at]) << count;
    shifted[at] = low_limb(carry);
    carry >>= limb_bits;
  }
  shifted.back() = low_limb(carry);
  return shifted;
}

void shift_right(std::vector<std::uint32_t>& limbs, int count) {
  std::uint64_t from_above = 0;
  for (std::size_t at = limbs.size(); at-- > 0;) {
    const std::uint64_t both = (from_above << limb_bits) | limbs[at];
    from_above = limbs[at];
    limbs[at] = low_limb(both >> count);
  }
  drop_zeros(limbs);
}

// One digit of long division: how often `divisor` goes into the limbs of `rest` from `at` on, which it is
// then taken from. (Knuth's algorithm D: a guess from the first two limbs is at most one too large, once it
// has been held against the third.)
std::uint32_t take_digit(std::vector<std::uint32_t>& rest, const std::vector<std::uint32_t>& divisor,
                         std::size_t at) {
  const std::size_t n = divisor.size();
  const std::uint64_t top = (static_cast<std::uint64_t>(rest[at + n]) << limb_bits) | rest[at + n - 1];
  std::uint64_t guess = top / divisor[n - 1];
  std::uint64_t remainder = top % divisor[n - 1];
  while ((guess >> limb_bits) != 0 ||
         guess * divisor[n - 2] > ((remainder << limb_bits) | rest[at + n - 2])) {
    --guess;
    remainder += divisor[n - 1];
    if ((remainder >> limb_bits) != 0) break;
  }
  std::uint64_t product = 0;
  std::int64_t borrow = 0;
  for (std::size_t i = 0; i < n; ++i) {
    product += guess * divisor[i];
    borrow += static_cast<std::int64_t>(rest[at + i]) - low_limb(product);
    rest[at + i] = low_limb(static_cast<std::uint64_t>(borrow));
    borrow >>= limb_bits;
    product >>= limb_bits;
  }
  borrow += static_cast<std::int64_t>(rest[at + n]) - static_cast<std::int64_t>(product);
  rest[at + n] = low_limb(static_cast<std::uint64_t>(borrow));
  if (borrow >= 0) return low_limb(guess);
  std::uint64_t carry = 0;  // one too many has been taken
  for (std::size_t i = 0; i < n; ++i) {
    carry += static_cast<std::uint64_t>(rest[at + i]) + divisor[i];
    rest[at + i] = low_limb(carry);
    carry >>= limb_bits;
  }
  rest[at + n] = low_limb(rest[at + n] + carry);
  return low_limb(guess - 1);
}

}  // namespace

struct Whole::Division {
  Whole quotient, remainder;
};

Whole::Whole(std::int64_t value) : negative_(value < 0) {
  auto left = static_cast<std::uint64_t>(value);
  if (value < 0) left = 0 - left;
  for (; left != 0; left >>= limb_bits) limbs_.push_back(low_limb(left));
}

Whole::Whole(Limbs limbs, bool negative) : limbs_(std::move(limbs)), negative_(negative) {
  drop_zeros(limbs_);
  if (limbs_.empty()) negative_ = false;
}

int Whole::bits() const {
  if (is_zero()) return 0;
  return static_cast<int>(limbs_.size()) * limb_bits - std::countl_zero(limbs_.back());
}

std::string Whole::digits() const {
  if (is_zero()) return "0";
  std::string reversed;
  for (Limbs left = limbs_; !left.empty();) {
    std::uint32_t group = divide_by_limb(left, 1'000'000'000);
    for (int digit = 0; digit < 9 && (group != 0 || !left.empty()); ++digit, group /= 10)
      reversed += static_cast<char>('0' + static_cast<int>(group % 10));
  }
  if (negative_) reversed += '-';
  std::ranges::reverse(reversed);
  return reversed;
}

std::strong_ordering Whole::compare(const Limbs& left, const Limbs& right) {
  if (left.size() != right.size()) return left.size() <=> right.size();
  for (std::size_t at = left.size(); at-- > 0;)
    if (left[at] != right[at]) return left[at] <=> right[at];
  return std::strong_ordering::equal;
}

Whole::Limbs Whole::sum(const Limbs& left, const Limbs& right) {
  if (left.size() < right.size()) return sum(right, left);
  Limbs result = left;
  std::uint64_t carry = 0;
  for (std::size_t at = 0; at < result.size() && (at < right.size() || carry != 0); ++at) {
    carry += static_cast<std::uint64_t>(result[at]) + (at < right.size() ? right[at] : 0);
    result[at] = low_limb(carry);
    carry >>= limb_bits;
  }
  if (carry != 0) result.push_back(low_limb(carry));
  return result;
}

Whole::Limbs Whole::difference(const Limbs& larger, const Limbs& smaller) {
  Limbs result = larger;
  std::int64_t borrow = 0;
  for (std::size_t at = 0; at < result.size() && (at < smaller.size() || borrow != 0); ++at) {
    borrow += static_cast<std::int64_t>(result[at]) - (at < smaller.size() ? smaller[at] : 0);
    result[at] = low_limb(static_cast<std::uint64_t>(borrow));
    borrow >>= limb_bits;
  }
  return result;
}

Whole Whole::operator-() const {
  return {limbs_, !negative_};
}

Whole operator+(const Whole& left, const Whole& right) {
  if (left.negative_ == right.negative_) return {Whole::sum(left.limbs_, right.limbs_), left.negative_};
  if (Whole::compare(left.limbs_, right.limbs_) < 0)
    return {Whole::difference(right.limbs_, left.limbs_), right.negative_};
  return {Whole::difference(left.limbs_, right.limbs_), left.negative_};
}

Whole operator-(const Whole& left, const Whole& right) {
  return left + -right;
}

Whole operator*(const Whole& left, const Whole& right) {
  Whole::Limbs product(left.limbs_.size() + right.limbs_.size());
  for (std::size_t i = 0; i < left.limbs_.size(); ++i) {
    std::uint64_t carry = 0;
    for (std::size_t j = 0; j < right.limbs_.size(); ++j) {
      carry += static_cast<std::uint64_t>(left.limbs_[i]) * right.limbs_[j] + product[i + j];
      product[i + j] = low_limb(carry);
      carry >>= limb_bits;
    }
    product[i + right.limbs_.size()] = low_limb(carry);
  }
  return {std::move(product), left.negative_ != right.negative_};
}

Whole::Division Whole::divided(const Whole& left, const Whole& right) {
  if (compare(left.limbs_, right.limbs_) < 0) return {Whole{}, left};
  const bool negative = left.negative_ != right.negative_;
  if (right.limbs_.size() == 1) {
    Limbs quotient = left.limbs_;
    const std::uint32_t remainder = divide_by_limb(quotient, right.limbs_.front());
    return {{std::move(quotient), negative}, {Limbs{remainder}, left.negative_}};
  }
  const int shift = std::countl_zero(right.limbs_.back());
  Limbs divisor = shifted_left(right.limbs_, shift);
  drop_zeros(divisor);
  Limbs rest = shifted_left(left.limbs_, shift);
  Limbs quotient(rest.size() - divisor.size());
  for (std::size_t at = quotient.size(); at-- > 0;) quotient[at] = take_digit(rest, divisor, at);
  shift_right(rest, shift);
  return {{std::move(quotient), negative}, {std::move(rest), left.negative_}};
}

Whole operator/(const Whole& left, const Whole& right) {
  return Whole::divided(left, right).quotient;
}

Whole operator%(const Whole& left, const Whole& right) {
  return Whole::divided(left, right).remainder;
}

std::strong_ordering operator<=>(const Whole& left, const Whole& right) {
  if (left.negative_ != right.negative_) return right.negative_ <=> left.negative_;
  return left.negative_ ? Whole::compare(right.limbs_, left.limbs_)
                        : Whole::compare(left.limbs_, right.limbs_);
}

Whole magnitude(const Whole& number) {
  return number.is_negative() ? -number : number;
}

Whole greatest_common_divisor(Whole left, Whole right) {
  while (!right.is_zero()) left = std::exchange(right, left % right);
  return magnitude(left);
}

Whole power_of_ten(int exponent) {
  Whole power(1);
  for (; exponent >= 9; exponent -= 9) power = power * Whole(1'000'000'000);
  for (; exponent > 0; --exponent) power = power * Whole(10);
  return power;
}

}  // namespace tabulon::lesson
