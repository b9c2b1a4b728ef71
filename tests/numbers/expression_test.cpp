#include "numbers/expression.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdint>
#include <limits>
#include <numbers>
#include <string>
#include <string_view>

namespace tabulon::numbers {
namespace {

constexpr double kPiValue = std::numbers::pi;

struct Example {
  std::string_view text;
  double value;
};

void expect_value(std::string_view text, double value) {
  const auto result = evaluate(text);
  ASSERT_TRUE(result.has_value()) << text << " gave code " << result.error();
  EXPECT_DOUBLE_EQ(*result, value) << text;
}

void expect_refused(std::string_view text, std::int16_t code = kRefused) {
  const auto result = evaluate(text);
  ASSERT_FALSE(result.has_value()) << text << " gave " << *result;
  EXPECT_EQ(result.error(), code) << text;
}

void expect_scan(std::string_view text, std::int16_t code, int position, const ScanLimits& limits = {}) {
  TokenList list;
  const ScanResult result = OntleedExpressie(text, limits, list);
  EXPECT_EQ(result.code, code) << text;
  EXPECT_EQ(result.position, position) << text;
}

void expect_value_with(std::string_view text, const ScanLimits& limits, double x, const Memory& memory,
                       double expected) {
  TokenList list;
  ASSERT_EQ(OntleedExpressie(text, limits, list).code, kNoError) << text;
  double value = 0;
  ASSERT_EQ(BerekenExpressie(list, x, memory, value), kNoError) << text;
  EXPECT_DOUBLE_EQ(value, expected) << text;
}

void expect_postfix(std::string_view text, std::initializer_list<int> codes) {
  TokenList list;
  ASSERT_EQ(OntleedExpressie(text, {.x_allowed = -1}, list).code, kNoError) << text;
  ASSERT_EQ(static_cast<std::size_t>(list.postfix_count), codes.size()) << text;
  std::size_t at = 0;
  for (const int code : codes) EXPECT_EQ(list.postfix_codes[at++], code) << text << " entry " << at - 1;
}

std::string repeated(std::string_view part, int count) {
  std::string text;
  for (; count > 0; --count) text += part;
  return text;
}

TEST(Numbers, AreDigitsWithAtMostOnePoint) {
  for (const Example& example : {Example{"12", 12}, {"0.5", 0.5}, {".5", 0.5}, {"5.", 5}, {"007", 7}}) {
    expect_value(example.text, example.value);
  }
  expect_refused(".");
  expect_refused("1,5");
  expect_refused("1;5");
}

TEST(Numbers, TakeExponentsMarkedWithCapitalEOrD) {
  for (const Example& example :
       {Example{"2.5E-3", 0.0025}, {"2.5D-3", 0.0025}, {"2E3", 2000}, {"2E+3", 2000}, {"-2.5E3", -2500}}) {
    expect_value(example.text, example.value);
  }
}

TEST(Numbers, AreRefusedWhenNoDigitsFollowTheMarker) {
  for (const std::string_view text : {"2.5E", "2.5E-", "2.5E+", "2D", "2Ex", "2EXP(1)", "2E(3)"})
    expect_refused(text);
}

TEST(Numbers, ReadASecondPointAsTheNextNumber) {
  expect_value("1.2.5", 0.6);
}

TEST(Numbers, TooLargeForADoubleAreRefused) {
  expect_value("1E308", 1e308);
  expect_refused("1E309");
  expect_refused("1E999");
  expect_scan("1+1E999", kRefused, 3);
}

TEST(Letters, SmallEIsEulersNumber) {
  expect_value("e", std::numbers::e);
  expect_value("2e", 2 * std::numbers::e);
  expect_value("2e3", 2 * std::numbers::e * 3);
  expect_refused("E");
}

TEST(Letters, PiInAnyCaseAndAsOneCharacter) {
  for (const std::string_view text : {"pi", "PI", "Pi", "pI", "\u00E3", "p i"}) expect_value(text, kPiValue);
  expect_refused("\u00E4");
  expect_refused("\xC3");
  expect_refused("\xE3");
}

TEST(Letters, PWithoutIIsAMemoryValue) {
  expect_value("3p+1", 1);
  expect_refused("P");
  expect_refused("3P+1");
}

TEST(Letters, MemoryValuesAreZeroInCellInput) {
  for (const char letter : std::string_view("abcdpqrsgn")) expect_value(std::string(1, letter), 0);
}

TEST(Letters, MemoryValuesComeInTheOrderOfTheirLetters) {
  const Memory memory = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10};
  double expected = 0;
  for (const char letter : std::string_view("abcdpqrsgn")) {
    expect_value_with(std::string(1, letter), {}, 0, memory, ++expected);
  }
  expect_value_with("2a+b^2", {}, 0, memory, 6);
}

TEST(Letters, AllOthersAreRefused) {
  for (const char letter : std::string_view("fhijkltuvwyzABCDFGHIJKLNOPQRSTUVWYZ"))
    expect_refused(std::string(1, letter));
}

TEST(Variable, IsRefusedInCellInput) {
  expect_refused("x");
  expect_refused("X");
  expect_scan("2x", kRefused, 2);
}

TEST(Variable, TakesTheValueOfTheCallerWhereItIsAllowed) {
  for (const std::string_view text : {"2x+1", "2X+1", "1+x*2"})
    expect_value_with(text, {.x_allowed = -1}, 3, kEmptyMemory, 7);
}

TEST(Variable, MustBeFinite) {
  TokenList list;
  ASSERT_EQ(OntleedExpressie("1/x", {.x_allowed = 1}, list).code, kNoError);
  double value = 5;
  EXPECT_EQ(BerekenExpressie(list, std::numeric_limits<double>::infinity(), kEmptyMemory, value), kRefused);
  EXPECT_EQ(value, 5);
}

TEST(CellReference, IsRefusedInCellInput) {
  expect_refused("m(1;2)");
  expect_refused("M(1,2)");
}

TEST(CellReference, GivesTheCellWithinTheLimits) {
  std::array<double, 300> cells{};
  for (std::size_t i = 0; i < cells.size(); ++i) cells[i] = static_cast<double>(i) + 1;
  const ScanLimits limits{.row_limit = 10, .column_limit = 30, .cells = {cells.data(), 30}};
  for (const Example& example : {Example{"m(1;2)", 2},
                                 {"M(1,2)", 2},
                                 {"m(+2;+1)", 31},
                                 {"m( 10 ; 30 )", 300},
                                 {"m(1;1)m(1;3)", 3},
                                 {"2m(1;3)", 6}}) {
    expect_value_with(example.text, limits, 0, kEmptyMemory, example.value);
  }
  for (const std::string_view text :
       {"m(0;2)", "m(1;0)", "m(11;1)", "m(1;31)", "m(-1;2)", "m(1;-2)", "m(1)", "m(1;2", "m(1.5;2)",
        "m(1;2;3)", "m", "m1;2", "m(;)", "m(99999999999999999999;1)"}) {
    expect_scan(text, kRefused, 1, limits);
  }
  expect_scan("3+m(0;2)", kRefused, 3, limits);
}

TEST(CellReference, IsRefusedWithoutCells) {
  expect_scan("m(1;1)", kRefused, 1, {.row_limit = 10, .column_limit = 30});
}

TEST(Functions, AreComputedByTheirNames) {
  for (const Example& example : {Example{"sin(pi/2)", 1},
                                 {"cos(0)", 1},
                                 {"tan(pi/4)", 1},
                                 {"atn(1)*4", kPiValue},
                                 {"exp(1)", std::numbers::e},
                                 {"abs(-3)", 3},
                                 {"int(2.7)", 2},
                                 {"int(-2.3)", -3},
                                 {"log(100)", 2},
                                 {"ln(e)", 1},
                                 {"sqrt(4)", 2},
                                 {"SQRT(4)", 2},
                                 {"sQrT(4)", 2},
                                 {"sqr(4)", 16},
                                 {"sgn(-7)", -1},
                                 {"sgn(0)", 0},
                                 {"sgn(7)", 1},
                                 {"asn(1)", kPiValue / 2},
                                 {"asn(-1)", -kPiValue / 2},
                                 {"asn(0.5)", kPiValue / 6},
                                 {"acs(1)", 0},
                                 {"acs(-1)", kPiValue},
                                 {"acs(0)", kPiValue / 2},
                                 {"sqrt(sqr(3)+sqr(4))", 5}}) {
    expect_value(example.text, example.value);
  }
}

TEST(Functions, NeedAParenthesis) {
  for (const std::string_view text : {"sin", "sin 1", "sqrt4", "sqrx", "ln2", "exp", "abs", "tan-(1)"})
    expect_refused(text);
}

TEST(Functions, AreRefusedOutsideTheirDomains) {
  for (const std::string_view text :
       {"tan(pi/2)", "tan(-pi/2)", "log(0)", "log(-1)", "ln(0)", "ln(-1)", "sqrt(-1)", "sqrt(-1E-300)",
        "asn(1.0000001)", "asn(-2)", "acs(1.0000001)", "acs(-2)"}) {
    expect_refused(text);
  }
}

TEST(Functions, TurnRoundingNoiseIntoZero) {
  for (const std::string_view text :
       {"sin(pi)", "cos(pi/2)", "tan(pi)", "sin(9E-16)", "sqrt(1E-31)", "sgn(9E-16)", "sgn(-9E-16)"}) {
    expect_value(text, 0);
  }
  expect_value("sin(1.1E-15)", 1.1e-15);
  expect_value("sqrt(1E-28)", 1e-14);
  expect_value("sgn(1.1E-15)", 1);
}

TEST(Functions, RefuseTheTangentBesideItsPoles) {
  expect_refused("tan(pi/2+9E-10)");
  EXPECT_TRUE(evaluate("tan(pi/2+1.1E-9)").has_value());
}

TEST(Priorities, FollowTheTable) {
  for (const Example& example :
       {Example{"1+2*3", 7}, {"2*3+1", 7},  {"8-3-2", 3},   {"8/4/2", 1},  {"8/4*2", 4},    {"2*3^2", 18},
        {"-2^2", -4},        {"(-2)^2", 4}, {"(-2)^3", -8}, {"2^3^2", 64}, {"2^-3", 0.125}, {"2^-1/2", 0.25},
        {"2^-2^2", 0.0625},  {"2*-3", -6},  {"6/-3", -2},   {"5--3", 8},   {"--3", 3},      {"+3", 3},
        {"2*+3", 6},         {"-+-3", 3},   {"-(1+2)", -3}}) {
    expect_value(example.text, example.value);
  }
}

TEST(Priorities, NeighboursBindTighterThanDivision) {
  for (const Example& example : {Example{"1/2pi", 1 / (2 * kPiValue)},
                                 {"2pi/2", kPiValue},
                                 {"3(2)", 6},
                                 {"(1/2)pi", kPiValue / 2},
                                 {"(1+1/2)pi", 1.5 * kPiValue},
                                 {"2(1+1)", 4},
                                 {"(2)(3)", 6},
                                 {"(2)3", 6},
                                 {"pi2", 2 * kPiValue},
                                 {"2sqrt(9)", 6},
                                 {"2pi^2", 2 * kPiValue * kPiValue},
                                 {"-2pi", -2 * kPiValue},
                                 {"2^-3pi", kPiValue / 8},
                                 {"2exp(0)", 2}}) {
    expect_value(example.text, example.value);
  }
}

TEST(Priorities, PutOperatorsBehindTheirOperands) {
  expect_postfix("1+2*3", {kNumber, kNumber, kNumber, kMultiply, kAdd});
  expect_postfix("-2pi", {kNumber, kNegate, kPi, kJoin});
  expect_postfix("sin(x)e", {kVariable, kSin, kConstant, kJoin});
  expect_postfix("1/2a", {kNumber, kNumber, kFirstMemory, kJoin, kDivide});
}

TEST(Blanks, AreSkippedEverywhere) {
  for (const Example& example : {Example{" 1 + 2 ", 3},
                                 {"sqrt (4)", 2},
                                 {"s q r t ( 4 )", 2},
                                 {"2 pi", 2 * kPiValue},
                                 {"1 2", 12},
                                 {"2.5 E - 3", 0.0025},
                                 {"- 1", -1}}) {
    expect_value(example.text, example.value);
  }
  expect_refused("1\t2");
}

TEST(Texts, WithoutAnyOperandGiveAnEmptyListThatIsRefused) {
  for (const std::string_view text : {"", " ", "     "}) {
    TokenList list;
    ASSERT_EQ(OntleedExpressie(text, {}, list).code, kNoError);
    ASSERT_EQ(list.postfix_count, 0);
    double value = 7;
    EXPECT_EQ(BerekenExpressie(list, 0, kEmptyMemory, value), kRefused);
    EXPECT_EQ(value, 0);
    expect_refused(text);
  }
}

TEST(Texts, ThatEndWhereAnOperandIsExpectedAreRefused) {
  for (const std::string_view text : {"1+", "2*", "2^", "-", "+", "1-+", "(1+", "3/ "}) expect_refused(text);
}

TEST(Texts, WithAnOpenParenthesisAreError3) {
  for (const std::string_view text : {"(1+2", "((1)", "(", "sin(", "sin(1", "2(3", "1+("})
    expect_refused(text, kOpenParenthesis);
}

TEST(Texts, WithAnEmptyOrUnopenedParenthesisAreRefused) {
  for (const std::string_view text : {"()", ")", "1)", "(1))", "sin()", "2()", "(+)"}) expect_refused(text);
}

TEST(Texts, WithMisplacedOperatorsAreRefused) {
  for (const std::string_view text : {"*2", "2**3", "2+*3", "/", "^2", "(*2)", "2$", "#", "1=1", "2!"})
    expect_refused(text);
}

TEST(ScanPosition, IsTheStartOfTheFaultyItem) {
  expect_scan("2+sin3", kRefused, 3);
  expect_scan("12 + 2.5E", kRefused, 6);
  expect_scan("1+)", kRefused, 3);
  expect_scan("1)", kRefused, 2);
  expect_scan("2+", kRefused, 2);
  expect_scan("3+k", kRefused, 3);
  expect_scan("3k", kRefused, 2);
  expect_scan("\u00E3+k", kRefused, 4);
}

TEST(ScanPosition, IsTheEndOfAWellFormedText) {
  expect_scan("12", kNoError, 3);
  expect_scan("", kNoError, 1);
  expect_scan("(1", kOpenParenthesis, 3);
}

TEST(ScanPosition, StaysWithinSixteenBits) {
  expect_scan(std::string(40'000, ' ') + "k", kRefused, 32767);
  expect_scan(std::string(40'000, '1') + "E-39999k", kRefused, 32767);
}

TEST(Refusals, DivisionByAlmostZero) {
  expect_value("1/5E-11", 2e10);
  expect_value("1/-5E-11", -2e10);
  for (const std::string_view text : {"1/0", "1/4.9E-11", "1/-4.9E-11", "0/0", "1/sin(pi)"})
    expect_refused(text);
}

TEST(Refusals, PowersThatAreNoRealNumber) {
  for (const std::string_view text : {"(-8)^(1/3)", "0^0", "0^-1", "(-2)^0.5", "0.0^(1-1)"})
    expect_refused(text);
  expect_value("(-2)^-1", -0.5);
  expect_value("0^2", 0);
}

TEST(Refusals, ResultsThatAreNotFinite) {
  for (const std::string_view text : {"exp(1000)", "10^400", "1E308*10", "1E308+1E308", "-1E308-1E308",
                                      "sqr(1E200)", "1/exp(1000)", "1E300/1E-10", "1E308 10"}) {
    expect_refused(text);
  }
}

TEST(Refusals, LeaveTheValueAsItWas) {
  TokenList list;
  ASSERT_EQ(OntleedExpressie("1/0", {}, list).code, kNoError);
  double value = 42;
  EXPECT_EQ(BerekenExpressie(list, 0, kEmptyMemory, value), kRefused);
  EXPECT_EQ(value, 42);
}

TEST(Limits, FortyOneOperatorsMayWait) {
  expect_value(repeated("(", 41) + "1" + repeated(")", 41), 1);
  expect_refused(repeated("(", 42) + "1" + repeated(")", 42), kTooLong);
  expect_value(repeated("-", 41) + "1", -1);
  expect_refused(repeated("-", 42) + "1", kTooLong);
  expect_value(repeated("abs(", 20) + "1" + repeated(")", 20), 1);
  expect_refused(repeated("abs(", 21) + "1" + repeated(")", 21), kTooLong);
}

TEST(Limits, PostfixListHolds198Entries) {
  const std::string sum = "1" + repeated("+1", 98);  // 99 numbers and 98 additions
  expect_value(sum, 99);
  expect_value("-" + sum, 97);
  expect_refused("--" + sum, kTooLong);
  expect_refused(sum + "+1", kTooLong);
  expect_refused(repeated("1+", 5000) + "1", kTooLong);
}

TokenList list_with_stacked_values(int count) {
  TokenList list;
  for (int i = 0; i < count; ++i) {
    list.postfix_codes[static_cast<std::size_t>(i)] = kNumber;
    list.postfix_values[static_cast<std::size_t>(i)] = 1;
  }
  for (int i = count; i < 2 * count - 1; ++i) list.postfix_codes[static_cast<std::size_t>(i)] = kAdd;
  list.postfix_count = static_cast<std::int16_t>(2 * count - 1);
  return list;
}

TEST(Limits, EvaluationStackHolds51Values) {
  double value = 0;
  EXPECT_EQ(BerekenExpressie(list_with_stacked_values(51), 0, kEmptyMemory, value), kNoError);
  EXPECT_EQ(value, 51);
  EXPECT_EQ(BerekenExpressie(list_with_stacked_values(52), 0, kEmptyMemory, value), kTooLong);
  EXPECT_EQ(value, 51);
}

std::int16_t code_of_list(std::initializer_list<std::int16_t> codes) {
  TokenList list;
  for (const std::int16_t code : codes) {
    list.postfix_values[static_cast<std::size_t>(list.postfix_count)] = 1;
    list.postfix_codes[static_cast<std::size_t>(list.postfix_count++)] = code;
  }
  double value = 0;
  return BerekenExpressie(list, 0, kEmptyMemory, value);
}

TEST(HandMadeLists, AreRefusedWhenTheyMakeNoSense) {
  EXPECT_EQ(code_of_list({kNumber, kNumber, kAdd}), kNoError);
  EXPECT_EQ(code_of_list({kAdd}), kRefused);
  EXPECT_EQ(code_of_list({kNumber, kAdd}), kRefused);
  EXPECT_EQ(code_of_list({kNegate}), kRefused);
  EXPECT_EQ(code_of_list({0}), kRefused);
  EXPECT_EQ(code_of_list({kNumber, 6}), kRefused);
  EXPECT_EQ(code_of_list({kNumber, 28}), kRefused);
  EXPECT_EQ(code_of_list({kFirstMemory + 9}), kNoError);
  EXPECT_EQ(code_of_list({kFirstMemory + 10}), kRefused);
  TokenList list;
  list.postfix_count = kPostfixCapacity + 1;
  double value = 3;
  EXPECT_EQ(BerekenExpressie(list, 0, kEmptyMemory, value), kTooLong);
  EXPECT_EQ(value, 3);
}

}  // namespace
}  // namespace tabulon::numbers
