// Whole numbers of any size: what exact arithmetic is made of.
//
//   Whole factorial(1);
//   for (int i = 2; i <= 30; ++i) factorial = factorial * Whole(i);
//   factorial.digits();   // "265252859812191058636308480000000"
#pragma once

#include <compare>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace tabulon::lesson {

class Whole {
 public:
  Whole() = default;
  explicit Whole(std::int64_t value);

  bool is_zero() const { return limbs_.empty(); }
  bool is_negative() const { return negative_; }
  // -1, 0 or 1.
  int sign() const { return is_zero() ? 0 : negative_ ? -1 : 1; }
  bool is_even() const { return is_zero() || limbs_.front() % 2 == 0; }
  // Of the magnitude; 0 for 0.
  int bits() const;
  // In decimals, with "-" in front of a negative number.
  std::string digits() const;

  Whole operator-() const;
  friend Whole operator+(const Whole& left, const Whole& right);
  friend Whole operator-(const Whole& left, const Whole& right);
  friend Whole operator*(const Whole& left, const Whole& right);
  // Towards zero, as built-in numbers divide; the remainder has the sign of the left one. Not by 0.
  friend Whole operator/(const Whole& left, const Whole& right);
  friend Whole operator%(const Whole& left, const Whole& right);
  friend bool operator==(const Whole&, const Whole&) = default;
  friend std::strong_ordering operator<=>(const Whole& left, const Whole& right);

 private:
  struct Division;
  using Limbs = std::vector<std::uint32_t>;

  Whole(Limbs limbs, bool negative);
  static std::strong_ordering compare(const Limbs& left, const Limbs& right);
  static Limbs sum(const Limbs& left, const Limbs& right);
  static Limbs difference(const Limbs& larger, const Limbs& smaller);
  static Division divided(const Whole& left, const Whole& right);

  Limbs limbs_;  // of the magnitude, least significant first, no zeros at the end
  bool negative_ = false;
};

Whole magnitude(const Whole& number);
Whole greatest_common_divisor(Whole left, Whole right);
// 10^exponent, exponent >= 0.
Whole power_of_ten(int exponent);

}  // namespace tabulon::lesson
