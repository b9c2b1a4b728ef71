#include "numbers/decimal.h"

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cmath>
#include <compare>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <string>
#include <string_view>

#include "numbers/big_natural.h"
#include "numbers/powers_of_ten.h"
#include "numbers/wide_product.h"
#include "tests/numbers/random_numbers.h"

namespace tabulon::numbers {
namespace {

constexpr double kLargest = std::numeric_limits<double>::max();
constexpr double kSmallest = std::numeric_limits<double>::denorm_min();

std::string scientific_of_c_library(double number) {
  std::array<char, 40> text{};
  std::snprintf(text.data(), text.size(), "%.14e", number);
  return text.data();
}

std::string scientific_of(const Decimal& decimal) {
  const std::string digits = decimal.digits == 0 ? std::string(15, '0') : std::to_string(decimal.digits);
  std::string exponent = std::to_string(std::abs(decimal.exponent));
  if (exponent.size() < 2) exponent.insert(0, "0");
  return (decimal.negative ? "-" : "") + digits.substr(0, 1) + "." + digits.substr(1) + "e" +
         (decimal.exponent < 0 ? "-" : "+") + exponent;
}

void expect_digits_of_c_library(double number) {
  ASSERT_EQ(scientific_of(to_decimal(number)), scientific_of_c_library(number)) << std::hexfloat << number;
}

double read(std::string_view text) {
  const NumberText number = scan_number(text, ExponentLetters::BothCases);
  EXPECT_EQ(number.length, text.size()) << text;
  return to_double(number);
}

void expect_read_as_by_c_library(const std::string& text) {
  ASSERT_EQ(read(text), std::strtod(text.c_str(), nullptr)) << text;
}

TEST(ToDecimal, ZeroHasNoDigitsAndNoSign) {
  for (const double zero : {0.0, -0.0}) {
    const Decimal decimal = to_decimal(zero);
    EXPECT_EQ(decimal.digits, 0U);
    EXPECT_EQ(decimal.exponent, 0);
    EXPECT_FALSE(decimal.negative);
  }
}

TEST(ToDecimal, GivesFifteenDigitsAndThePowerOfTheFirst) {
  const Decimal third = to_decimal(-1.0 / 3);
  EXPECT_EQ(third.digits, 333333333333333U);
  EXPECT_EQ(third.exponent, -1);
  EXPECT_TRUE(third.negative);
}

TEST(ToDecimal, HidesTheNoiseBehindFifteenDigits) {
  EXPECT_EQ(to_decimal(0.1 + 0.2).digits, 300000000000000U);
  EXPECT_EQ(to_decimal(2.675).digits, 267500000000000U);
}

TEST(ToDecimal, RoundsUpIntoTheNextPowerOfTen) {
  const Decimal decimal = to_decimal(std::nextafter(1e6, 0));
  EXPECT_EQ(decimal.digits, 100000000000000U);
  EXPECT_EQ(decimal.exponent, 6);
}

TEST(ToDecimal, ExactHalvesGoToTheEvenDigit) {
  EXPECT_EQ(to_decimal(123456789012344.5).digits, 123456789012344U);
  EXPECT_EQ(to_decimal(123456789012345.5).digits, 123456789012346U);
  EXPECT_EQ(to_decimal(1234567890123445.0).digits, 123456789012344U);
  EXPECT_EQ(to_decimal(1234567890123455.0).digits, 123456789012346U);
}

TEST(ToDecimal, AgreesWithTheCLibraryAtTheEdgesOfTheDoubles) {
  for (const double number :
       {kLargest, -kLargest, kSmallest, std::numeric_limits<double>::min(),
        std::nextafter(std::numeric_limits<double>::min(), 0), 2 * kSmallest, 1.0, 1e22, 1e23}) {
    expect_digits_of_c_library(number);
  }
}

TEST(ToDecimal, AgreesWithTheCLibraryAroundEveryPowerOfTenAndTwo) {
  for (int exponent = -323; exponent <= 308; ++exponent) {
    const double power = std::strtod(("1e" + std::to_string(exponent)).c_str(), nullptr);
    for (const double number : {std::nextafter(power, 0), power, std::nextafter(power, kLargest)}) {
      expect_digits_of_c_library(number);
    }
  }
  for (int exponent = -1074; exponent <= 1023; ++exponent) {
    const double power = std::ldexp(1.0, exponent);
    for (const double number : {std::nextafter(power, 0), power, std::nextafter(power, kLargest)}) {
      expect_digits_of_c_library(number);
    }
  }
}

TEST(ToDecimal, AgreesWithTheCLibraryOnMillionsOfNumbers) {
  RandomNumbers random;
  SCOPED_TRACE(random.seed_text());
  for (int i = 0; i < 1'500'000; ++i) expect_digits_of_c_library(random.any_finite());
  for (int i = 0; i < 500'000; ++i) expect_digits_of_c_library(random.tableau_number());
}

TEST(ToDecimal, AgreesWithTheCLibraryOnSubnormalNumbers) {
  RandomNumbers random;
  SCOPED_TRACE(random.seed_text());
  for (int i = 0; i < 200'000; ++i) {
    expect_digits_of_c_library(std::bit_cast<double>(random.bits() >> random.between(12, 63)));
  }
}

TEST(ToDecimal, AgreesWithTheCLibraryOnExactHalves) {
  RandomNumbers random;
  SCOPED_TRACE(random.seed_text());
  for (int i = 0; i < 200'000; ++i) {
    const double whole = 1e14 + static_cast<double>(random.bits() % 900'000'000'000'000);
    const double scale = std::pow(10.0, random.between(0, 12));
    expect_digits_of_c_library(whole + 0.5);
    expect_digits_of_c_library((std::floor(whole / 10) * 10 + 5) * scale);
  }
}

TEST(ToDouble, ReadsDigitsPointAndExponent) {
  EXPECT_EQ(read("12"), 12);
  EXPECT_EQ(read(".5"), 0.5);
  EXPECT_EQ(read("5."), 5);
  EXPECT_EQ(read("2.5E-3"), 0.0025);
  EXPECT_EQ(read("2.5D+3"), 2500);
  EXPECT_EQ(read("1 0 . 2 5 e 1"), 102.5);
  EXPECT_EQ(read("000.000"), 0);
}

void expect_length(std::string_view text, std::size_t length, double value) {
  const NumberText number = scan_number(text, ExponentLetters::Capitals);
  EXPECT_EQ(number.length, length) << text;
  EXPECT_EQ(to_double(number), value) << text;
}

TEST(ToDouble, ReadsSmallMarkersOnlyWhenAsked) {
  expect_length("2e3", 1, 2);
  EXPECT_EQ(read("2e3"), 2000);
}

TEST(ToDouble, LeavesAMarkerWithoutDigitsUnread) {
  for (const std::string_view text : {"2.5E", "2.5E-", "2.5E +", "2.5Ex"}) {
    expect_length(text, 3, 2.5);
    EXPECT_TRUE(scan_number(text, ExponentLetters::Capitals).marker_without_digits) << text;
  }
}

TEST(ToDouble, EndsAtTheFirstOtherCharacter) {
  expect_length("1.2.3", 3, 1.2);
  expect_length("2.5E-3 ml", 7, 0.0025);
}

TEST(ToDouble, FindsNoNumberWithoutDigits) {
  for (const std::string_view text : {"", "x", ".", " ", "E5", ".E5"}) {
    EXPECT_FALSE(scan_number(text, ExponentLetters::Capitals).has_digits) << text;
  }
}

TEST(ToDouble, FindsTheEdgesOfTheDoubles) {
  EXPECT_EQ(read("1.7976931348623157E308"), kLargest);
  EXPECT_EQ(read("1.7976931348623158E308"), kLargest);
  EXPECT_EQ(read("1.7976931348623159E308"), std::numeric_limits<double>::infinity());
  EXPECT_EQ(read("1E309"), std::numeric_limits<double>::infinity());
  EXPECT_EQ(read("5E-324"), kSmallest);
  EXPECT_EQ(read("2.4703282292062328E-324"), kSmallest);
  EXPECT_EQ(read("2.4703282292062327E-324"), 0);
  EXPECT_EQ(read("1E-400"), 0);
  EXPECT_EQ(read("1E99999999999999999999999"), std::numeric_limits<double>::infinity());
  EXPECT_EQ(read("1E-99999999999999999999999"), 0);
  EXPECT_EQ(read("0E99999999999999999999999"), 0);
}

TEST(ToDouble, BalancesManyZerosAgainstTheExponent) {
  EXPECT_EQ(read("0." + std::string(5000, '0') + "1E5001"), 1);
  EXPECT_EQ(read("1" + std::string(5000, '0') + "E-5000"), 1);
}

TEST(ToDouble, DecidesHalvesByTheVeryLastDigit) {
  const std::string half = "9007199254740993";  // between ...992 and ...994
  EXPECT_EQ(read(half), 9007199254740992.0);
  EXPECT_EQ(read(half + "." + std::string(2000, '0')), 9007199254740992.0);
  EXPECT_EQ(read(half + "." + std::string(2000, '0') + "1"), 9007199254740994.0);
  EXPECT_EQ(read("9007199254740992." + std::string(2000, '9')), 9007199254740992.0);
  EXPECT_EQ(read("9007199254740995"), 9007199254740996.0);
}

// All digits of the point halfway between a number and the next larger one.
std::string halfway_above(double number) {
  std::array<char, 1200> text{};
  const long double next = std::nextafter(number, kLargest);
  std::snprintf(text.data(), text.size(), "%.1100Lf", (static_cast<long double>(number) + next) / 2);
  return text.data();
}

TEST(ToDouble, AgreesWithTheCLibraryAtHalvesAndBesideThem) {
  RandomNumbers random;
  SCOPED_TRACE(random.seed_text());
  for (int i = 0; i < 3000; ++i) {
    const bool subnormal = i % 3 == 0;
    const double number = subnormal ? std::bit_cast<double>(random.bits() >> random.between(12, 60))
                                    : std::fabs(random.any_finite());
    const std::string half = halfway_above(number);
    for (const std::string& text :
         {half, half + "1", half.substr(0, half.find_last_not_of('0')), half + "E-3"}) {
      expect_read_as_by_c_library(text);
    }
  }
}

std::string random_number_text(RandomNumbers& random) {
  std::string text;
  for (int digits = random.between(1, random.between(1, 60)); digits > 0; --digits) {
    text += static_cast<char>('0' + random.between(0, 9));
  }
  if (random.between(0, 1) == 0)
    text.insert(static_cast<std::size_t>(random.between(0, static_cast<int>(text.size()))), ".");
  if (random.between(0, 3) != 0) text += "e" + std::to_string(random.between(-350, 330));
  return text;
}

TEST(ToDouble, AgreesWithTheCLibraryOnMillionsOfTexts) {
  RandomNumbers random;
  SCOPED_TRACE(random.seed_text());
  for (int i = 0; i < 1'000'000; ++i) expect_read_as_by_c_library(random_number_text(random));
}

TEST(ToDouble, ReadsEveryDoubleBackFromSeventeenDigits) {
  RandomNumbers random;
  SCOPED_TRACE(random.seed_text());
  for (int i = 0; i < 500'000; ++i) {
    const double number = std::fabs(random.any_finite());
    std::array<char, 40> text{};
    std::snprintf(text.data(), text.size(), "%.16e", number);
    ASSERT_EQ(read(text.data()), number) << text.data();
  }
}

TEST(WideProduct, IsTheSameFromHalvesAsFromTheWideType) {
  EXPECT_EQ(wide_product(std::uint64_t{1} << 63, 6), (WideNumber{3, 0}));
  RandomNumbers random;
  SCOPED_TRACE(random.seed_text());
  for (int i = 0; i < 100'000; ++i) {
    const std::uint64_t left = random.bits() >> random.between(0, 63);
    const std::uint64_t right = random.bits() >> random.between(0, 63);
    ASSERT_EQ(wide_product_by_halves(left, right), wide_product(left, right)) << left << " * " << right;
  }
  const std::uint64_t most = std::numeric_limits<std::uint64_t>::max();
  EXPECT_EQ(wide_product_by_halves(most, most), (WideNumber{most - 1, 1}));
}

// Compares the 128 bits of a power with the power itself, times two to the power that makes both whole.
std::strong_ordering compare_with_power(WideNumber significand, int exponent, int k) {
  BigNatural whole(significand.high);
  for (const int shift : {32, 0}) {
    whole.shift_left(32);
    whole.multiply_add(1, static_cast<std::uint32_t>(significand.low >> shift));
  }
  return compare_scaled(whole, -k, exponent, BigNatural(1));
}

TEST(PowersOfTen, LieLessThanThreeUnitsBelowTheTruth) {
  for (int k = kLowestPowerOfTen; k <= kHighestPowerOfTen; ++k) {
    const PowerOfTen power = power_of_ten(k);
    EXPECT_EQ(power.significand.high >> 63, 1U) << k;
    const auto order = compare_with_power(power.significand, power.exponent, k);
    EXPECT_TRUE(power.exact ? order == 0 : order <= 0) << k;
    EXPECT_TRUE(power.exact || compare_with_power(sum(power.significand, 3), power.exponent, k) > 0) << k;
  }
}

TEST(PowersOfTen, AreExactWhereSixtyFourBitsHoldThem) {
  EXPECT_FALSE(power_of_ten(-1).exact);
  EXPECT_TRUE(power_of_ten(0).exact);
  EXPECT_TRUE(power_of_ten(27).exact);
  EXPECT_FALSE(power_of_ten(28).exact);
}

TEST(BigNatural, ComparesByAllItsDigits) {
  EXPECT_TRUE(compare(BigNatural(0), BigNatural(0)) == 0);
  EXPECT_TRUE(compare(BigNatural(0), BigNatural(1)) < 0);
  EXPECT_TRUE(compare(BigNatural(std::uint64_t{1} << 32), BigNatural(~std::uint32_t{0})) > 0);
  EXPECT_TRUE(compare_scaled(BigNatural(5), 2, 0, BigNatural(500)) == 0);
  EXPECT_TRUE(compare_scaled(BigNatural(500), -2, 3, BigNatural(40)) == 0);
  EXPECT_TRUE(compare_scaled(BigNatural(1), 0, 100, BigNatural(1)) > 0);
  EXPECT_TRUE(compare_scaled(BigNatural(1), 0, -100, BigNatural(1)) < 0);
}

}  // namespace
}  // namespace tabulon::numbers
