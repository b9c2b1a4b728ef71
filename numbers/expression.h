// Arithmetic expressions such as 3/4, -2.5E3, sqrt(2), 2*pi or (1+1/2)pi: a scanner that turns the text into
// a list in postfix order, and an evaluator that runs through the list with a stack of values.
//
//   evaluate("(1+1/2)pi");   // 4.71238898038469
//   evaluate("2+").error();  // 1
//
// A caller that allows x, memory values or cell references runs the two stages itself:
//
//   TokenList list;
//   if (OntleedExpressie("2x+1", {.x_allowed = -1}, list).code == kNoError) {
//     double value = 0;
//     BerekenExpressie(list, 3, kEmptyMemory, value);   // value 7
//   }
//
// Decided here: operators of equal priority apply from left to right, "^" too (2^3^2 is 64). The unary minus
// is a prefix operator, so it binds to what follows it: 2^-3 is 0.125, 2*-3 is -6. Blanks never matter, not
// even within a number or a name. Values that are not finite are refused wherever they arise.
#pragma once

#include <array>
#include <cstdint>
#include <expected>
#include <string_view>

namespace tabulon::numbers {

// The limits of the token list. What exceeds one is refused with kTooLong.
inline constexpr int kOperatorCapacity = 41;
inline constexpr int kPostfixCapacity = 198;
inline constexpr int kStackCapacity = 51;
inline constexpr int kMemorySlots = 10;

// Error codes of both stages. Callers reject any other code than 0 of the scanner, and code 1 and codes of 5
// and above of the evaluator, which accepts a text without ever using 2, 3 or 4.
inline constexpr std::int16_t kNoError = 0;
inline constexpr std::int16_t kRefused = 1;
inline constexpr std::int16_t kOpenParenthesis = 3;
inline constexpr std::int16_t kTooLong = 7;

// The codes in a token list.
enum Code : std::int16_t {
  kNumber = 1,
  kConstant = 2,
  kPi = 3,
  kVariable = 4,
  kParenthesis = 5,
  kSubtract = 7,
  kAdd = 8,
  kDivide = 9,
  kMultiply = 10,
  kNegate = 11,
  kJoin = 12,  // the multiplication of two neighbours: 2pi, 3(2)
  kPower = 13,
  kSin = 14,
  kCos = 15,
  kTan = 16,
  kAtn = 17,
  kExp = 18,
  kAbs = 19,
  kInt = 20,
  kLog = 21,
  kSqrt = 22,
  kSgn = 23,
  kLn = 24,
  kAsn = 25,
  kAcs = 26,
  kSqr = 27,
  kFirstMemory = 30,  // to 39: the memory values a, b, c, d, p, q, r, s, g, n
};

struct TokenList {
  std::array<std::int16_t, kOperatorCapacity> operator_codes;
  std::array<std::int16_t, kOperatorCapacity> operator_priorities;
  std::array<std::int16_t, kPostfixCapacity + 1> postfix_codes;  // used from 0 on
  std::array<double, kPostfixCapacity + 1> postfix_values;
  std::int16_t operator_count;
  std::int16_t postfix_count;

  // Only the counts: clearing two kilobytes would take longer than scanning a cell.
  TokenList() : operator_count(0), postfix_count(0) {}
};

// The values that m(row;column) may look up, row by row; row and column count from 1.
struct CellView {
  const double* first = nullptr;  // row 1, column 1
  int row_stride = 0;             // from a cell to the one below it, in Doubles
};

// What a text may contain besides numbers, constants and functions. The defaults are those of cell input.
struct ScanLimits {
  std::int16_t x_allowed = 0;  // 0: an x is refused
  std::int16_t row_limit = 0;  // 0: every cell reference is refused
  std::int16_t column_limit = 0;
  CellView cells = {};  // at least row_limit rows and column_limit columns
};

struct ScanResult {
  std::int16_t code = kNoError;
  // On code 1 the first byte of the faulty item, counted from 1 (of the operator that lacks its operand when
  // the text ends too early); otherwise where the scan stopped. At most 32767.
  std::int16_t position = 1;
};

using Memory = std::array<double, kMemorySlots>;
inline constexpr Memory kEmptyMemory{};

// Scans a text (UTF-8) into `list`. An empty or blank text gives an empty list and code 0. Codes: 0 well
// formed, 1 not an expression (or a number too large for a Double), 3 an open parenthesis at the end, 7 more
// than 41 waiting operators or 198 entries.
ScanResult OntleedExpressie(std::string_view text, const ScanLimits& limits, TokenList& list);

// Evaluates a list. Codes: 0 and the value is written; 1 an operation was refused and the value stays as it
// was (an empty list writes 0); 7 more than 51 values would wait on the stack, and the value stays.
std::int16_t BerekenExpressie(const TokenList& list, double x, const Memory& memory, double& value);

// Both stages as cell input runs them: no x, no cell references, empty memory. The value, or the code of the
// stage that refused the text.
std::expected<double, std::int16_t> evaluate(std::string_view text);

}  // namespace tabulon::numbers
