#include "lesson/whole.h"

#include <gtest/gtest.h>

#include "lesson/rational.h"
#include "numbers/expression.h"
#include "tests/numbers/random_numbers.h"

namespace tabulon::lesson {
namespace {

using numbers::RandomNumbers;

// With limbs of all ones and zeros more often than chance has them: that is where division guesses wrong.
Whole random_whole(RandomNumbers& random, int most_limbs) {
  Whole number;
  for (int limb = random.between(0, most_limbs); limb > 0; --limb) {
    const int kind = random.between(0, 4);
    const std::int64_t part = kind == 0   ? 0
                              : kind == 1 ? 0xFFFFFFFF
                              : kind == 2 ? 0x80000000
                                          : static_cast<std::int64_t>(random.bits() >> 32);
    number = number * Whole(0x100000000) + Whole(part);
  }
  return random.between(0, 1) == 0 ? number : -number;
}

TEST(Whole, IsWrittenInDecimals) {
  EXPECT_EQ(Whole().digits(), "0");
  EXPECT_EQ(Whole(-1).digits(), "-1");
  EXPECT_EQ(Whole(std::numeric_limits<std::int64_t>::min()).digits(), "-9223372036854775808");
  EXPECT_EQ(power_of_ten(30).digits(), "1000000000000000000000000000000");
  Whole factorial(1);
  for (int i = 2; i <= 30; ++i) factorial = factorial * Whole(i);
  EXPECT_EQ(factorial.digits(), "265252859812191058636308480000000");
}

TEST(Whole, DividesTowardsZero) {
  EXPECT_EQ((Whole(-7) / Whole(2)).digits(), "-3");
  EXPECT_EQ((Whole(-7) % Whole(2)).digits(), "-1");
  EXPECT_EQ((Whole(7) % Whole(-2)).digits(), "1");
}

TEST(Whole, ReckonsSmallNumbersAsTheProcessorDoes) {
  RandomNumbers random;
  for (int round = 0; round < numbers::rounds(200000); ++round) {
    const std::int64_t a = static_cast<std::int64_t>(random.bits()) >> random.between(33, 63);
    const std::int64_t b = static_cast<std::int64_t>(random.bits()) >> random.between(33, 63);
    ASSERT_EQ(Whole(a) + Whole(b), Whole(a + b));
    ASSERT_EQ(Whole(a) - Whole(b), Whole(a - b));
    ASSERT_EQ(Whole(a) * Whole(b), Whole(a * b));
    ASSERT_EQ(Whole(a) <=> Whole(b), a <=> b);
    if (b == 0) continue;
    ASSERT_EQ(Whole(a) / Whole(b), Whole(a / b));
    ASSERT_EQ(Whole(a) % Whole(b), Whole(a % b));
  }
}

TEST(Whole, DividesWhatItHasMultiplied) {
  RandomNumbers random;
  for (int round = 0; round < numbers::rounds(100000); ++round) {
    const Whole divisor = random_whole(random, 6), quotient = random_whole(random, 6);
    if (divisor.is_zero()) continue;
    ASSERT_EQ(divisor * quotient / divisor, quotient);
    const Whole any = random_whole(random, 9);
    const Whole remainder = any % divisor;
    ASSERT_EQ(any / divisor * divisor + remainder, any);
    ASSERT_LT(magnitude(remainder), magnitude(divisor));
    ASSERT_TRUE(remainder.is_zero() || remainder.is_negative() == any.is_negative());
  }
}

TEST(Rational, IsInLowestTerms) {
  EXPECT_EQ(Rational(6, -4), Rational(-3, 2));
  EXPECT_EQ(Rational(1, 3) + Rational(1, 6), Rational(1, 2));
  EXPECT_LT(Rational(1, 3), Rational(1, 2));
  EXPECT_LT(Rational(-1, 2), Rational(-1, 3));
}

TEST(Rational, IsWrittenAsADecimalWhereThatIsExact) {
  EXPECT_EQ(Rational(5, 2).text(), "2.5");
  EXPECT_EQ(Rational(-1, 8).text(), "-0.125");
  EXPECT_EQ(Rational(1, 3).text(), "1/3");
  EXPECT_EQ(Rational(-2, 7).text(), "-2/7");
  EXPECT_EQ(Rational(120).text(), "120");
  EXPECT_EQ(Rational(1, 1000000).text(), "0.000001");
  EXPECT_EQ(Rational(3, 100000000).text(), "3E-8");
  EXPECT_EQ(Rational(power_of_ten(20), Whole(1)).text(), "1E+20");
  EXPECT_EQ(Rational(1234567890123456789).text(), "1234567890123456789");
}

TEST(Rational, IsRoundedToFifteenDigitsForTheCells) {
  EXPECT_EQ(decimal_text(Rational(1, 3)), "0.333333333333333");
  EXPECT_EQ(decimal_text(Rational(2, 3)), "0.666666666666667");
  EXPECT_EQ(decimal_text(Rational(9999999999999999)), "1E+16");
  EXPECT_EQ(decimal_text(Rational(-200, 3)), "-66.6666666666667");
  EXPECT_EQ(to_double(Rational(1, 10)), 0.1);
}

TEST(Rational, IsWhatTheCellsReadInItsDecimal) {
  RandomNumbers random;
  for (int round = 0; round < numbers::rounds(20000); ++round) {
    const double number = random.tableau_number();
    const Rational near = rational_near(number);
    ASSERT_NEAR(to_double(near), number, std::fabs(number) * 1e-14);
    ASSERT_TRUE(is_short_decimal(near));
    ASSERT_EQ(numbers::evaluate(decimal_text(near)), to_double(near)) << decimal_text(near);
  }
}

}  // namespace
}  // namespace tabulon::lesson
