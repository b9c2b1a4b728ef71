#include "numbers/conversions.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <string>
#include <string_view>

#include "tests/numbers/random_numbers.h"

namespace tabulon::numbers {
namespace {

constexpr double kLargest = std::numeric_limits<double>::max();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

void expect_whole(std::string_view text, int number) {
  const auto result = to_int16(text);
  ASSERT_TRUE(result.has_value()) << text;
  EXPECT_EQ(*result, number) << text;
}

void expect_whole(double number, int rounded) {
  const auto result = to_int16(number);
  ASSERT_TRUE(result.has_value()) << number;
  EXPECT_EQ(*result, rounded) << number;
}

void expect_error(const Result<std::int16_t>& result, ErrorNumber number, std::string_view text) {
  ASSERT_FALSE(result.has_value()) << text;
  EXPECT_EQ(result.error().number, number) << text;
}

void expect_mismatch(std::string_view text) {
  expect_error(to_int16(text), ErrorNumber::TypeMismatch, text);
}
void expect_overflow(std::string_view text) {
  expect_error(to_int16(text), ErrorNumber::Overflow, text);
}
void expect_overflow(double number) {
  expect_error(to_int16(number), ErrorNumber::Overflow, std::to_string(number));
}

TEST(Str, BeginsWithABlankOrAMinus) {
  EXPECT_EQ(Str(100.0), " 100");
  EXPECT_EQ(Str(0.0), " 0");
  EXPECT_EQ(Str(-0.0), " 0");
  EXPECT_EQ(Str(-7.0), "-7");
  EXPECT_EQ(Str(12.5), " 12.5");
}

TEST(Str, WritesNoZeroBeforeThePoint) {
  EXPECT_EQ(Str(0.5), " .5");
  EXPECT_EQ(Str(-0.25), "-.25");
  EXPECT_EQ(Str(0.001), " .001");
}

TEST(Str, ShowsUpToFifteenSignificantDigits) {
  EXPECT_EQ(Str(1.0 / 3), " .333333333333333");
  EXPECT_EQ(Str(2.0 / 3), " .666666666666667");
  EXPECT_EQ(Str(0.1 + 0.2), " .3");
  EXPECT_EQ(Str(3.14159265358979323846), " 3.14159265358979");
  EXPECT_EQ(Str(123456789012345.0), " 123456789012345");
  EXPECT_EQ(Str(-12345678901234.5), "-12345678901234.5");
}

TEST(Str, TakesAnExponentFromTenToTheFifteenthOn) {
  EXPECT_EQ(Str(999999999999999.0), " 999999999999999");
  EXPECT_EQ(Str(999999999999999.9), " 1E+15");
  EXPECT_EQ(Str(1e15), " 1E+15");
  EXPECT_EQ(Str(-1234567890123456.0), "-1.23456789012346E+15");
  EXPECT_EQ(Str(1e20), " 1E+20");
  EXPECT_EQ(Str(1e100), " 1E+100");
  EXPECT_EQ(Str(kLargest), " 1.79769313486232E+308");
}

TEST(Str, TakesAnExponentWhenFifteenDecimalsDoNotHoldAllDigits) {
  EXPECT_EQ(Str(1e-15), " .000000000000001");
  EXPECT_EQ(Str(1e-16), " 1E-16");
  EXPECT_EQ(Str(1.5e-14), " .000000000000015");
  EXPECT_EQ(Str(1.5e-15), " 1.5E-15");
  EXPECT_EQ(Str(1.0 / 30), " 3.33333333333333E-02");
  EXPECT_EQ(Str(-1.0 / 30), "-3.33333333333333E-02");
  EXPECT_EQ(Str(5e-324), " 4.94065645841247E-324");
}

TEST(Str, NamesWhatIsNotFinite) {
  EXPECT_EQ(Str(kInfinity), " Inf");
  EXPECT_EQ(Str(-kInfinity), "-Inf");
  EXPECT_EQ(Str(std::numeric_limits<double>::quiet_NaN()), " NaN");
}

TEST(Str, WritesWholeNumbers) {
  EXPECT_EQ(Str(std::int16_t{2}), " 2");
  EXPECT_EQ(Str(std::int16_t{-3}), "-3");
  EXPECT_EQ(Str(std::int16_t{0}), " 0");
  EXPECT_EQ(Str(std::numeric_limits<std::int16_t>::min()), "-32768");
}

TEST(Str, ReadsBackAsTheSameTextAndNearlyTheSameNumber) {
  RandomNumbers random;
  SCOPED_TRACE(random.seed_text());
  for (int i = 0; i < 300'000; ++i) {
    const double number = i % 2 == 0 ? random.any_finite() : random.tableau_number();
    const std::string text = Str(number);
    const double back = Val(text);
    if (std::fabs(number) < 1e308) ASSERT_EQ(Str(back), text);
    ASSERT_LE(std::fabs(back - number), std::fabs(number) * 1e-14 + 5e-324) << text;
  }
}

TEST(Val, ReadsTheLeadingNumber) {
  EXPECT_EQ(Val(" 3"), 3);
  EXPECT_EQ(Val("-2.5"), -2.5);
  EXPECT_EQ(Val("+4"), 4);
  EXPECT_EQ(Val("12abc"), 12);
  EXPECT_EQ(Val("1,5"), 1);
}

TEST(Val, DoesNotEvaluateExpressions) {
  EXPECT_EQ(Val("1/2"), 1);
  EXPECT_EQ(Val("2pi"), 2);
  EXPECT_EQ(Val("3-1"), 3);
}

TEST(Val, SkipsBlanksWhereverTheyStand) {
  EXPECT_EQ(Val("   7"), 7);
  EXPECT_EQ(Val(" - 1 2 . 5 E 1"), -125);
  EXPECT_EQ(Val("1 000"), 1000);
}

TEST(Val, ReadsExponents) {
  for (const std::string_view text : {"2.5E-3", "2.5D-3", "2.5e-3", "2.5d-3", ".25E-2", "25E-4"}) {
    EXPECT_EQ(Val(text), 0.0025) << text;
  }
  EXPECT_EQ(Val("2E+2"), 200);
}

TEST(Val, EndsBeforeAnExponentWithoutDigits) {
  EXPECT_EQ(Val("2E"), 2);
  EXPECT_EQ(Val("2E+"), 2);
  EXPECT_EQ(Val("2Ex"), 2);
}

TEST(Val, NoNumberGivesZero) {
  for (const std::string_view text : {"", " ", "abc", "-", "+", ".", "-.", "E5", "--5", ",5", "(1)"}) {
    EXPECT_EQ(Val(text), 0) << text;
  }
  EXPECT_FALSE(std::signbit(Val("-0")));
}

TEST(Val, AcceptsOnePoint) {
  EXPECT_EQ(Val("1.2.3"), 1.2);
  EXPECT_EQ(Val("5."), 5);
  EXPECT_EQ(Val("-.5"), -0.5);
}

TEST(Val, StaysFiniteForEveryText) {
  EXPECT_EQ(Val("1E308"), 1e308);
  EXPECT_EQ(Val("1E309"), kLargest);
  EXPECT_EQ(Val("-1E999999999999"), -kLargest);
  EXPECT_EQ(Val("1E-999"), 0);
  EXPECT_EQ(Val(std::string(400, '9')), kLargest);
}

TEST(Val, AgreesWithTheCLibraryOnNumbersItWrote) {
  RandomNumbers random;
  SCOPED_TRACE(random.seed_text());
  for (int i = 0; i < 200'000; ++i) {
    const std::string text = Str(random.tableau_number());
    ASSERT_EQ(Val(text), std::strtod(text.c_str(), nullptr)) << text;
  }
}

TEST(ToInt16OfText, ReadsWholeNumbers) {
  expect_whole(" 100", 100);
  expect_whole("100 ", 100);
  expect_whole("+5", 5);
  expect_whole("-7", -7);
  expect_whole("2.0", 2);
  expect_whole("1E2", 100);
  expect_whole("1.5e1", 15);
  expect_whole("0", 0);
  expect_whole("-0", 0);
}

TEST(ToInt16OfText, EndsAtTheLimitsOfSixteenBits) {
  expect_whole("32767", 32767);
  expect_whole("-32768", -32768);
  expect_overflow("32768");
  expect_overflow("-32769");
  expect_overflow("1E400");
  expect_overflow("-99999999999999999999");
}

TEST(ToInt16OfText, RefusesWhatIsNoWholeNumber) {
  for (const std::string_view text : {"", "  ", "drie", "2.5", "0.5", "1/2", "5x", "1 0", "+ 5", "--5", "-",
                                      ".", "1E", "1E-1", "1E-400", "2,0"}) {
    expect_mismatch(text);
  }
}

TEST(ToInt16OfNumber, RoundsHalvesToTheEvenNumber) {
  expect_whole(2.5, 2);
  expect_whole(3.5, 4);
  expect_whole(-2.5, -2);
  expect_whole(-3.5, -4);
  expect_whole(0.5, 0);
  expect_whole(2.51, 3);
  expect_whole(-2.49, -2);
  expect_whole(7.0, 7);
}

TEST(ToInt16OfNumber, EndsAtTheLimitsOfSixteenBits) {
  expect_whole(32767.49, 32767);
  expect_whole(-32768.5, -32768);
  expect_overflow(32767.5);
  expect_overflow(-32768.51);
  expect_overflow(1e300);
  expect_overflow(kInfinity);
  expect_overflow(-kInfinity);
  expect_overflow(std::numeric_limits<double>::quiet_NaN());
}

}  // namespace
}  // namespace tabulon::numbers
