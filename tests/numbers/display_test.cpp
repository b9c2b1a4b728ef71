#include "numbers/display.h"

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <clocale>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <numbers>
#include <string>
#include <string_view>

#include "numbers/conversions.h"
#include "numbers/expression.h"
#include "numbers/fraction.h"
#include "tests/numbers/random_numbers.h"

namespace tabulon::numbers {
namespace {

constexpr double kPiValue = std::numbers::pi;
constexpr double kInfinity = std::numeric_limits<double>::infinity();

struct Example {
  double number;
  std::string_view text;
};

std::string in_decimals(double number) {
  return strSoortGetal(kDecimals, number);
}
std::string in_fractions(double number) {
  return strSoortGetal(kFractions, number);
}

std::string as_fraction(double number) {
  std::int16_t success = -1;
  return GetalNaarBreuk(success, number);
}

double snapped(double number) {
  strSoortGetal(kFractions, number);
  return number;
}

TEST(Decimals, ShowTheExamples) {
  for (const Example& example : {Example{0.5, " 0.5"},
                                 {-2, "-2"},
                                 {1.0 / 3, " 0.333333"},
                                 {12345.678, " 12345.68"},
                                 {2.5e-7, " 2.50E-07"},
                                 {-1234567, "-1.23E+06"},
                                 {5, " 5"},
                                 {0, " 0"},
                                 {-0.0, " 0"},
                                 {-0.5, "-0.5"}}) {
    EXPECT_EQ(in_decimals(example.number), example.text);
    EXPECT_EQ(GetalNaarDecimaal(example.number), example.text);
  }
}

TEST(Decimals, LoseADecimalForEveryDigitBeforeThePoint) {
  for (const Example& example : {Example{1.23456789, " 1.234568"},
                                 {12.3456789, " 12.34568"},
                                 {123.456789, " 123.4568"},
                                 {1234.56789, " 1234.568"},
                                 {12345.6789, " 12345.68"},
                                 {123456.789, " 123456.8"},
                                 {1234567.89, " 1.23E+06"},
                                 {-1.23456789, "-1.234568"},
                                 {-123456.789, "-123456.8"}}) {
    EXPECT_EQ(in_decimals(example.number), example.text);
  }
}

TEST(Decimals, RoundHalvesAwayFromZeroOnTheDecimalForm) {
  for (const Example& example : {Example{0.1234565, " 0.123457"},
                                 {-0.1234565, "-0.123457"},
                                 {12345.675, " 12345.68"},
                                 {1.0000005, " 1.000001"},
                                 {100000.05, " 100000.1"},
                                 {100000.25, " 100000.3"},
                                 {0.00000149999999999999, " 0.000001"},
                                 {0.0000015, " 0.000002"}}) {
    EXPECT_EQ(in_decimals(example.number), example.text);
  }
}

TEST(Decimals, ChooseTheirFormBeforeRounding) {
  for (const Example& example : {Example{9.9999999, " 10"},
                                 {99.9999999, " 100"},
                                 {999999.96, " 1000000"},
                                 {-999999.96, "-1000000"},
                                 {std::nextafter(1e6, 0), " 1000000"},
                                 {1e6, " 1.00E+06"},
                                 {1e-6, " 0.000001"},
                                 {std::nextafter(1e-6, 0), " 1.00E-06"},
                                 {-1e-6, "-0.000001"}}) {
    EXPECT_EQ(in_decimals(example.number), example.text);
  }
}

TEST(Decimals, ChangeFormAtEveryPowerOfTen) {
  for (const Example& example : {Example{std::nextafter(10.0, 0), " 10"},
                                 {10, " 10"},
                                 {10.000005, " 10.00001"},
                                 {100.00005, " 100.0001"},
                                 {1000.0005, " 1000.001"},
                                 {10000.005, " 10000.01"},
                                 {9.999994, " 9.999994"},
                                 {99.99994, " 99.99994"}}) {
    EXPECT_EQ(in_decimals(example.number), example.text);
  }
}

TEST(Decimals, AreCutToNineCharactersBeforeTheBlank) {
  EXPECT_EQ(in_decimals(1e100), " 1.00E+100");
  EXPECT_EQ(in_decimals(-1e100), "-1.00E+10");
  EXPECT_EQ(in_decimals(-1e-100), "-1.00E-10");
}

TEST(Scientific, HasTwoDecimalsAndAtLeastTwoExponentDigits) {
  for (const Example& example : {Example{1234567, " 1.23E+06"},
                                 {-1234567, "-1.23E+06"},
                                 {1e-7, " 1.00E-07"},
                                 {-1e-7, "-1.00E-07"},
                                 {0, " 0.00E+00"},
                                 {5, " 5.00E+00"},
                                 {1.235, " 1.24E+00"},
                                 {9.995, " 1.00E+01"},
                                 {9.994, " 9.99E+00"},
                                 {-1e100, "-1.00E+100"},
                                 {5e-324, " 4.94E-324"},
                                 {std::numeric_limits<double>::max(), " 1.80E+308"}}) {
    EXPECT_EQ(GetalNaarWetenschappelijk(example.number), example.text);
  }
}

TEST(Fractions, ShowTheExamples) {
  for (const Example& example : {Example{0.75, " 3/4"},
                                 {-0.75, "-3/4"},
                                 {2.5, " 2+1/2"},
                                 {-2.5, "-2-1/2"},
                                 {0.1 + 0.2, " 3/10"},
                                 {3.0000000000001, " 3"},
                                 {2.9999999999999, " 3"},
                                 {-3.0000000000001, "-3"},
                                 {-2.9999999999999, "-3"},
                                 {1.0 / 3, " 1/3"},
                                 {2.5e-8, " 2.50E-08"},
                                 {0, " 0"},
                                 {-0.0, " 0"},
                                 {1234.5678, " 1234+2839/5000"}}) {
    EXPECT_EQ(as_fraction(example.number), example.text);
  }
}

TEST(Fractions, ReportFailureOnlyForTinyNumbers) {
  for (const std::int16_t before : {std::int16_t{-1}, std::int16_t{0}, std::int16_t{7}}) {
    std::int16_t success = before;
    EXPECT_EQ(GetalNaarBreuk(success, 0.5), " 1/2");
    EXPECT_EQ(success, before);
  }
  std::int16_t success = -1;
  EXPECT_EQ(GetalNaarBreuk(success, -2.5e-8), "-2.50E-08");
  EXPECT_EQ(success, 0);
}

TEST(Fractions, BeginRightAboveTheTinyNumbers) {
  EXPECT_EQ(as_fraction(1e-7), " 1.00E-07");
  EXPECT_EQ(as_fraction(std::nextafter(1e-7, 1)), " 1/10000000");
  EXPECT_EQ(as_fraction(2e-7), " 1/5000000");
  EXPECT_EQ(as_fraction(0.0001), " 1/10000");
}

TEST(Fractions, WriteLargeNumbersWhole) {
  EXPECT_EQ(as_fraction(123456789012345.0), " 123456789012345");
  EXPECT_EQ(as_fraction(1e15), " 1E+15");
  EXPECT_EQ(as_fraction(-1e20), "-1E+20");
  EXPECT_EQ(as_fraction(1e13 + 0.5), " 10000000000000");
  EXPECT_EQ(as_fraction(std::numeric_limits<double>::max()), " 1.79769313486232E+308");
}

TEST(FractionsMode, ShowsTheExamples) {
  for (const Example& example : {Example{0, " 0"},
                                 {0.1, " 1/10"},
                                 {1234.5678, " 1234.568"},
                                 {1e-8, " 1.00E-08"},
                                 {1, " 1"},
                                 {-0.5, "-1/2"},
                                 {2.0 + 1.0 / 3, " 2+1/3"},
                                 {-1e-100, "-1.00E-10"},
                                 {1e-100, " 1.00E-100"}}) {
    EXPECT_EQ(in_fractions(example.number), example.text);
  }
}

TEST(FractionsMode, ShowsShortMultiplesOfPi) {
  for (const Example& example : {Example{kPiValue, " pi"},
                                 {-kPiValue, "-pi"},
                                 {2 * kPiValue, " 2pi"},
                                 {-3 * kPiValue, "-3pi"},
                                 {kPiValue / 2, "(1/2)pi"},
                                 {-3 * kPiValue / 4, "(-3/4)pi"},
                                 {1.5 * kPiValue, "(1+1/2)pi"},
                                 {-1.5 * kPiValue, "-4.712389"},
                                 {kPiValue / 999, "(1/999)pi"},
                                 {kPiValue / 1000, " 0.003142"},
                                 {-kPiValue / 99, "(-1/99)pi"},
                                 {12 * kPiValue / 97, "(12/97)pi"},
                                 {99999 * kPiValue, " 99999pi"},
                                 {100000 * kPiValue, " 314159.3"}}) {
    EXPECT_EQ(in_fractions(example.number), example.text);
  }
}

TEST(FractionsMode, KeepsTheValueOfAMultipleOfPi) {
  EXPECT_EQ(snapped(kPiValue / 2), kPiValue / 2);
  EXPECT_EQ(snapped(std::nextafter(kPiValue, 4)), std::nextafter(kPiValue, 4));
}

TEST(FractionsMode, SnapsTheValueToItsFraction) {
  EXPECT_EQ(snapped(0.1 + 0.2), 0.3);
  EXPECT_EQ(snapped(0.33333333333333), 1.0 / 3);
  EXPECT_EQ(snapped(3.0000000000001), 3.0);
  EXPECT_EQ(snapped(2.5123e-8), 2.51e-8);
  EXPECT_EQ(snapped(1234567890123456.0), 1234567890123460.0);
  EXPECT_FALSE(std::signbit(snapped(-0.0)));
}

TEST(FractionsMode, KeepsAValueWhoseTextIsTooLargeToReadBack) {
  EXPECT_EQ(snapped(std::numeric_limits<double>::max()), std::numeric_limits<double>::max());
  EXPECT_EQ(snapped(-std::numeric_limits<double>::max()), -std::numeric_limits<double>::max());
}

TEST(DecimalsMode, KeepsTheValue) {
  double number = 0.1 + 0.2;
  EXPECT_EQ(strSoortGetal(kDecimals, number), " 0.3");
  EXPECT_EQ(number, 0.1 + 0.2);
}

TEST(OtherModes, GiveTheEmptyTextAndKeepTheValue) {
  for (const std::int16_t mode : {std::int16_t{1}, std::int16_t{-2}, std::int16_t{32767}}) {
    double number = 0.1 + 0.2;
    EXPECT_EQ(strSoortGetal(mode, number), "");
    EXPECT_EQ(number, 0.1 + 0.2);
  }
}

TEST(NotFinite, IsNamedInEveryForm) {
  EXPECT_EQ(in_decimals(kInfinity), " Inf");
  EXPECT_EQ(in_fractions(-kInfinity), "-Inf");
  EXPECT_EQ(in_fractions(std::nan("")), " NaN");
  EXPECT_EQ(as_fraction(kInfinity), " Inf");
  EXPECT_EQ(GetalNaarWetenschappelijk(-kInfinity), "-Inf");
  EXPECT_EQ(snapped(kInfinity), kInfinity);
}

TEST(Buffer, ReceivesTheSameTextBehindWhatItHolds) {
  TextBuffer text;
  text.append("x =");
  double number = 1234.5678;
  write_display_text(kFractions, number, text);
  EXPECT_EQ(text.view(), "x = 1234.568");
  write_decimal(-1e100, text);
  EXPECT_EQ(text.view(), "x = 1234.568-1.00E+10");
}

// The search written down step by step, texts and evaluator and all, to compare the fast routines with.
namespace plain {

std::string whole_text(double number) {
  const std::string text = Str(number);
  return text.starts_with(' ') ? text.substr(1) : text;
}

std::string blank_in_front(const std::string& text) {
  return text.starts_with('-') ? text : " " + text;
}

double tolerance(double x) {
  double t = 1e-8;
  if (std::fabs(x) > 1e-7) t = std::fabs(x) * 1e-14;
  if (std::fabs(x) > 0.0001) t = std::fabs(x) * 1e-13;
  return t;
}

std::string proper_fraction(double f, double t) {
  double p0 = 0, q0 = 1, p1 = 1, q1 = 1;
  for (;;) {
    double k = std::floor((q0 * f - p0) * 1.000000001 / (p1 - q1 * f));
    p0 += k * p1;
    q0 += k * q1;
    if (q0 * t >= q0 * f - p0) return whole_text(p0) + "/" + whole_text(q0);
    k = std::floor((q1 * f - p1) * 1.000000001 / (p0 - q0 * f));
    p1 += k * p0;
    q1 += k * q0;
    if (q1 * t >= p1 - q1 * f) return whole_text(p1) + "/" + whole_text(q1);
  }
}

std::string fraction(double x) {
  if (x != 0 && std::fabs(x) <= 1e-7) return GetalNaarWetenschappelijk(x);
  const double t = tolerance(x);
  const double n = std::floor(x);
  if (x - n <= t) return blank_in_front(whole_text(n));
  if (n + 1 - x <= t) return blank_in_front(whole_text(n + 1));
  std::string text = x < 0 ? "-" : "";
  const double magnitude = std::fabs(x);
  const double whole = std::floor(magnitude);
  if (whole != 0) text += whole_text(whole) + (x <= 0 ? "-" : "+");
  return blank_in_front(text + proper_fraction(magnitude - whole, t));
}

std::string display(double& x) {
  const double q = x / (4 * std::atan(1.0));
  const std::string r = fraction(q);
  const std::string digits = r.starts_with(' ') ? r.substr(1) : r;
  if (digits.size() < 6 && r != " 0") {
    if (r == " 1") return " pi";
    if (r == "-1") return "-pi";
    const auto single = static_cast<float>(q);
    return single == std::floor(single) ? r + "pi" : "(" + digits + ")pi";
  }
  const std::string text = fraction(x);
  TokenList list;
  if (OntleedExpressie(text, {}, list).code == kNoError) BerekenExpressie(list, 0, kEmptyMemory, x);
  return text.size() <= 9 ? text : GetalNaarDecimaal(x);
}

}  // namespace plain

void expect_as_step_by_step(double number) {
  double fast_value = number;
  double plain_value = number;
  const std::string fast = strSoortGetal(kFractions, fast_value);
  ASSERT_EQ(fast, plain::display(plain_value)) << std::hexfloat << number;
  ASSERT_EQ(fast_value, plain_value) << std::hexfloat << number;
  ASSERT_EQ(as_fraction(number), plain::fraction(number)) << std::hexfloat << number;
}

TEST(FractionsMode, IsTheSameAsStepByStepForTableauNumbers) {
  RandomNumbers random;
  SCOPED_TRACE(random.seed_text());
  for (int i = 0; i < 300'000; ++i) expect_as_step_by_step(random.tableau_number());
}

TEST(FractionsMode, IsTheSameAsStepByStepForNumbersOfEverySize) {
  RandomNumbers random;
  SCOPED_TRACE(random.seed_text());
  for (int i = 0; i < 300'000; ++i) {
    const double number = random.any_finite();
    expect_as_step_by_step(std::fabs(number) < 1e38 ? number : number * 1e-290);
    int exponent = 0;
    expect_as_step_by_step(std::frexp(number, &exponent) * std::pow(10, random.between(-8, 14)));
  }
}

TEST(FractionsMode, IsTheSameAsStepByStepForMultiplesOfPi) {
  RandomNumbers random;
  SCOPED_TRACE(random.seed_text());
  for (int i = 0; i < 200'000; ++i) {
    const double factor = static_cast<double>(random.between(-100'100, 100'100)) / random.between(1, 1100);
    expect_as_step_by_step(factor * kPiValue);
    // The search for a fraction overlooks noise, and so must what decides that there is none.
    expect_as_step_by_step(factor * kPiValue * (1 + random.between(-30, 30) * 1e-10));
  }
}

// As many numbers as a row of the largest tableau has.
void expect_snapped_as_written(const std::array<double, 31>& numbers) {
  std::array<Snapped, 31> all;
  snap(numbers, all);
  for (std::size_t at = 0; at < numbers.size(); ++at) {
    double written = numbers[at];
    const std::string text = strSoortGetal(kFractions, written);
    ASSERT_EQ(std::bit_cast<std::uint64_t>(all[at].value), std::bit_cast<std::uint64_t>(written))
        << std::hexfloat << numbers[at];
    if (!all[at].settled) continue;
    ASSERT_EQ(strSoortGetal(kFractions, written), text) << std::hexfloat << numbers[at];
    ASSERT_EQ(written, all[at].value) << std::hexfloat << numbers[at];
  }
}

TEST(Snapping, MakesOfNumbersWhatTheirTextsMakeOfThem) {
  RandomNumbers random;
  SCOPED_TRACE(random.seed_text());
  std::array<double, 31> numbers;
  for (int i = 0; i < rounds(4'000); ++i) {
    for (double& number : numbers) number = random.tableau_number();
    expect_snapped_as_written(numbers);
    for (double& number : numbers) number = random.any_finite();
    expect_snapped_as_written(numbers);
    for (double& number : numbers)
      number = random.between(-300, 300) / 97.0 * kPiValue * (1 + random.between(-30, 30) * 1e-10);
    expect_snapped_as_written(numbers);
  }
}

TEST(Snapping, LeavesTheTextOfWhatIsNoNumber) {
  std::array<double, 31> numbers{kInfinity, -kInfinity, 1e-8,  -1e-7,
                                 1e-300,    -0.0,       1e300, std::nextafter(1e-7, 1)};
  expect_snapped_as_written(numbers);
}

TEST(Snapping, SettlesWhatAPupilTypes) {
  for (int p = -200; p <= 200; ++p) {
    for (int q = 1; q <= 100; ++q) {
      const std::array<double, 1> number{static_cast<double>(p) / q};
      std::array<Snapped, 1> snapped;
      snap(number, snapped);
      ASSERT_TRUE(snapped[0].settled) << p << "/" << q;
    }
  }
}

TEST(FractionsMode, IsTheSameAsStepByStepAroundItsLimits) {
  for (const double limit : {1e-7, 0.0001, 1.0, 1e6, 1e13, 1e15, kPiValue * 1e-7, kPiValue}) {
    double below = limit;
    double above = limit;
    for (int i = 0; i < 1000; ++i) {
      for (const double number : {below, above}) {
        expect_as_step_by_step(number);
        expect_as_step_by_step(-number);
      }
      below = std::nextafter(below, 0);
      above = std::nextafter(above, 1e300);
    }
  }
}

TEST(DisplayTexts, KeepTheirShapeForEveryNumber) {
  RandomNumbers random;
  SCOPED_TRACE(random.seed_text());
  for (int i = 0; i < 500'000; ++i) {
    const double number = i % 2 == 0 ? random.any_finite() : random.tableau_number();
    const std::string text = in_decimals(number);
    ASSERT_EQ(text.front(), number < 0 ? '-' : ' ') << number;
    ASSERT_LE(text.size(), number < 0 ? 9U : 10U) << number;
    ASSERT_NE(text.back(), '.') << number;
    ASSERT_LE(in_fractions(number).size(), 10U) << number;
  }
}

TEST(DisplayTexts, OfDecimalsLieWithinHalfAUnitOfTheirLastDigit) {
  RandomNumbers random;
  SCOPED_TRACE(random.seed_text());
  for (int i = 0; i < 300'000; ++i) {
    const double number = random.tableau_number();
    const double magnitude = std::fabs(number);
    const bool plain = magnitude >= 1e-6 && magnitude < 1e6;
    const double unit = plain ? (magnitude < 10 ? 1e-6 : std::pow(10, std::floor(std::log10(magnitude)) - 6))
                              : magnitude * 1e-2;
    ASSERT_LE(std::fabs(Val(in_decimals(number)) - number), unit * 0.500001) << number;
  }
}

// The texts of every routine for a few telling numbers.
std::string all_texts() {
  std::string all;
  for (const double number : {0.5, -1234.5678, 1.0 / 3, 2.5e-7, 1e20, kPiValue / 2}) {
    all += in_decimals(number) + in_fractions(number) + GetalNaarWetenschappelijk(number) + Str(number) + "|";
  }
  return all + Str(Val("2.5")) + Str(evaluate("2.5*2").value_or(0)) + Str(evaluate("2,5").value_or(1));
}

TEST(Locale, NeverChangesAText) {
  const std::string expected =
      " 0.5 1/2 5.00E-01 .5|-1234.568-1234.568-1.23E+03-1234.5678| 0.333333 1/3 3.33E-01 .333333333333333| "
      "2.50E-07"
      " 2.50E-07 2.50E-07 .00000025| 1.00E+20 1E+20 1.00E+20 1E+20| 1.570796(1/2)pi 1.57E+00 "
      "1.5707963267949| 2.5 5 1";
  EXPECT_EQ(all_texts(), expected);
  for (const char* name : {"nl_NL.UTF-8", "nl_NL.utf8", "nl_NL", "nl_BE.utf8", "de_DE.UTF-8", "de_DE.utf8",
                           "fr_FR.utf8", "C.UTF-8"}) {
    if (std::setlocale(LC_ALL, name) == nullptr) continue;
    EXPECT_EQ(all_texts(), expected) << name;
  }
  std::setlocale(LC_ALL, "C");
}

}  // namespace
}  // namespace tabulon::numbers
