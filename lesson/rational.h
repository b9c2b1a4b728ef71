// Fractions of whole numbers of any size: the numbers of a problem as they were meant.
//
//   const Rational third(Whole(1), Whole(3));
//   (third + third).text();      // "2/3"
//   Rational(5, 2).text();       // "2.5"
//   decimal_text(third);         // "0.333333333333333"
#pragma once

#include <compare>
#include <cstdint>
#include <string>

#include "lesson/whole.h"

namespace tabulon::lesson {

// In lowest terms, the denominator positive.
class Rational {
 public:
  Rational() : denominator_(1) {}
  explicit Rational(std::int64_t number) : numerator_(number), denominator_(1) {}
  Rational(std::int64_t numerator, std::int64_t denominator)
      : Rational(Whole(numerator), Whole(denominator)) {}
  // The denominator is not 0.
  Rational(Whole numerator, Whole denominator);

  const Whole& numerator() const { return numerator_; }
  const Whole& denominator() const { return denominator_; }
  bool is_zero() const { return numerator_.is_zero(); }
  bool is_whole() const { return denominator_ == Whole(1); }
  int sign() const { return numerator_.sign(); }

  // Exactly this number as an expression: a decimal where one of at most 15 digits is exact, else a fraction.
  std::string text() const;

  Rational operator-() const;
  friend Rational operator+(const Rational& left, const Rational& right);
  friend Rational operator-(const Rational& left, const Rational& right);
  friend Rational operator*(const Rational& left, const Rational& right);
  // Not by 0.
  friend Rational operator/(const Rational& left, const Rational& right);
  friend bool operator==(const Rational&, const Rational&) = default;
  friend std::strong_ordering operator<=>(const Rational& left, const Rational& right);

 private:
  Whole numerator_;
  Whole denominator_;
};

// The decimal of at most 15 digits that is nearest to the number, halves away from zero: "2.5", "-0.125",
// "1.5E+20". The expressions of cells and the items of lists read it alike.
std::string decimal_text(const Rational& number);
// Whether that decimal is the number itself.
bool is_short_decimal(const Rational& number);

// The Double that a list's item of that decimal becomes.
double to_double(const Rational& number);
// The 15-digit decimal nearest to a finite number.
Rational rational_near(double number);

}  // namespace tabulon::lesson
