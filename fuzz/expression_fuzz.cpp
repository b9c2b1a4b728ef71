// Any text through the scanner, the evaluator and back through every display text. What must hold for all of
// them is checked by require(); the first failure stops the run.

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "fuzz/require.h"
#include "numbers/conversions.h"
#include "numbers/display.h"
#include "numbers/expression.h"

namespace {

using namespace tabulon::numbers;
using tabulon::fuzz::require;

bool begins_with_sign_or_blank(std::string_view text) {
  return text.starts_with('-') || text.starts_with(' ');
}

void check_scan(std::string_view text, const ScanResult& scan, const TokenList& list) {
  require(scan.code == kNoError || scan.code == kRefused || scan.code == kOpenParenthesis ||
          scan.code == kTooLong);
  require(scan.position >= 1 && static_cast<std::size_t>(scan.position) <= text.size() + 1);
  require(list.postfix_count >= 0 && list.postfix_count <= kPostfixCapacity);
  require(list.operator_count >= 0 && list.operator_count <= kOperatorCapacity);
  require(scan.code != kNoError || list.operator_count == 0);
}

// A well-formed text leaves exactly one value, unless it is blank; refused operations leave the value alone.
void check_evaluation(const TokenList& list, double x, const Memory& memory) {
  double value = 4321;
  const std::int16_t code = BerekenExpressie(list, x, memory, value);
  require(code == kNoError || code == kRefused);
  if (code == kNoError) require(std::isfinite(value));
  if (code == kRefused) require(value == (list.postfix_count == 0 ? 0 : 4321));
}

// The decimal text says the number to two digits at least; written again it is the same text.
void check_decimals(double number) {
  const std::string text = GetalNaarDecimaal(number);
  require(begins_with_sign_or_blank(text) && text.size() <= 10);
  const bool cut = number < 0 && (std::fabs(number) >= 9.99e99 || std::fabs(number) < 1e-99);
  if (cut) return;
  const double shown = evaluate(text).value_or(Val(text));
  require(std::fabs(shown - number) <= std::fabs(number) * 0.34 + 5e-324);
}

// Snapping moves a number by no more than the noise that the search overlooks (two decimals of a tiny one),
// hardly moves it again, and the shown fraction has the snapped value.
void check_fractions(double number) {
  double snapped = number;
  const std::string text = strSoortGetal(kFractions, snapped);
  require(!text.empty() && text.size() <= 10);
  require(std::fabs(snapped - number) <=
          std::fabs(number) * (std::fabs(number) > 1e-7 ? 2e-9 : 6e-3) + 5e-324);
  std::int16_t success = -1;
  const bool shown = GetalNaarBreuk(success, number) == text;
  require(!shown || evaluate(text).value_or(snapped) == snapped);
  double again = snapped;
  strSoortGetal(kFractions, again);
  require(std::fabs(again - snapped) <= std::fabs(snapped) * 2e-9);
}

void check_conversions(double number) {
  const double back = Val(Str(number));
  require(std::fabs(back - number) <= std::fabs(number) * 1e-14 + 5e-324);
  const auto whole = to_int16(number);
  require(whole.has_value() == (number >= -32768.5 && number < 32767.5));
  if (whole) require(std::fabs(*whole - number) <= 0.5);
}

void check_number(double number) {
  check_decimals(number);
  check_fractions(number);
  check_conversions(number);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  const auto input = evaluate(text);
  if (input) check_number(*input);
  const double leading = Val(text);
  require(std::isfinite(leading));
  check_number(leading);
  const auto whole = to_int16(text);
  if (whole) require(*whole == Val(text));

  constexpr std::array<double, 6> cells = {1, -2, 3, 0.5, 0, 1e10};
  const ScanLimits limits{.x_allowed = -1, .row_limit = 2, .column_limit = 3, .cells = {cells.data(), 3}};
  constexpr Memory memory = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10};
  TokenList list;
  const ScanResult scan = OntleedExpressie(text, limits, list);
  check_scan(text, scan, list);
  if (scan.code == kNoError) check_evaluation(list, leading, memory);
  return 0;
}
