#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <expected>
#include <limits>
#include <numbers>
#include <string_view>

#include "numbers/expression.h"

namespace tabulon::numbers {
namespace {

constexpr double kSmallestDivisor = 5e-11;
constexpr double kSmallestCosine = 1e-9;      // below it there is no tangent
constexpr double kSmallestMagnitude = 1e-15;  // results below it are rounding noise and count as 0

double without_noise(double value) {
  return std::fabs(value) < kSmallestMagnitude ? 0 : value;
}

// Each operation writes its result over its (left) operand; false: refused.

bool divide(double& left, double right) {
  if (std::fabs(right) < kSmallestDivisor) return false;
  left /= right;
  return true;
}

bool power(double& base, double exponent) {
  const bool whole = exponent == std::floor(exponent);
  if (base < 0 && !whole) return false;
  if (base == 0 && exponent == 0) return false;
  base = std::pow(base, exponent);
  return true;
}

bool tangent(double& value) {
  const double cosine = std::cos(value);
  if (std::fabs(cosine) < kSmallestCosine) return false;
  value = without_noise(std::sin(value) / cosine);
  return true;
}

bool logarithm(double& value, double logarithm_of_base) {
  if (value <= 0) return false;
  value = std::log(value) / logarithm_of_base;
  return true;
}

bool square_root(double& value) {
  if (value < 0) return false;
  value = without_noise(std::sqrt(value));
  return true;
}

double sign(double value) {
  if (std::fabs(value) < kSmallestMagnitude) return 0;
  return value < 0 ? -1 : 1;
}

bool arcsine(double& value) {
  if (std::fabs(value) > 1) return false;
  if (std::fabs(value) == 1) {
    value *= std::numbers::pi / 2;
  } else {
    value = std::atan(value / std::sqrt(1 - value * value));
  }
  return true;
}

bool arccosine(double& value) {
  if (!arcsine(value)) return false;
  value = std::numbers::pi / 2 - value;
  return true;
}

bool apply_binary(int code, double& left, double right) {
  switch (code) {
    case kSubtract:
      left -= right;
      return true;
    case kAdd:
      left += right;
      return true;
    case kDivide:
      return divide(left, right);
    case kMultiply:
    case kJoin:
      left *= right;
      return true;
    case kPower:
      return power(left, right);
    default:
      return false;
  }
}

bool apply_unary(int code, double& value) {
  constexpr double logarithm_of_e = 1;
  switch (code) {
    case kNegate:
      value = -value;
      return true;
    case kSin:
      value = without_noise(std::sin(value));
      return true;
    case kCos:
      value = without_noise(std::cos(value));
      return true;
    case kTan:
      return tangent(value);
    case kAtn:
      value = std::atan(value);
      return true;
    case kExp:
      value = std::exp(value);
      return true;
    case kAbs:
      value = std::fabs(value);
      return true;
    case kInt:
      value = std::floor(value);
      return true;
    case kLog:
      return logarithm(value, std::numbers::ln10);
    case kSqrt:
      return square_root(value);
    case kSgn:
      value = sign(value);
      return true;
    case kLn:
      return logarithm(value, logarithm_of_e);
    case kAsn:
      return arcsine(value);
    case kAcs:
      return arccosine(value);
    case kSqr:
      value *= value;
      return true;
    default:
      return false;
  }
}

bool is_operand(int code) {
  return code <= kVariable || code >= kFirstMemory;
}

bool is_binary(int code) {
  return (code >= kSubtract && code <= kMultiply) || code == kJoin || code == kPower;
}

// The operand of entry `at`; not a number for a code that no scanner writes.
double operand(const TokenList& list, std::size_t at, double x, const Memory& memory) {
  const int code = list.postfix_codes[at];
  if (code == kVariable) return x;
  if (code >= kNumber && code <= kPi) return list.postfix_values[at];
  const int slot = code - kFirstMemory;
  return slot >= 0 && slot < kMemorySlots ? memory[static_cast<std::size_t>(slot)]
                                          : std::numeric_limits<double>::quiet_NaN();
}

class ValueStack {
 public:
  ValueStack() : depth_(0) {}

  bool full() const { return depth_ == kStackCapacity; }
  double top() const { return values_[static_cast<std::size_t>(depth_ - 1)]; }
  void push(double value) { values_[static_cast<std::size_t>(depth_++)] = value; }

  bool apply(int code) {
    const bool binary = is_binary(code);
    if (depth_ < (binary ? 2 : 1)) return false;
    const auto last = static_cast<std::size_t>(depth_ - 1);
    if (!binary) return apply_unary(code, values_[last]);
    --depth_;
    return apply_binary(code, values_[last - 1], values_[last]);
  }

 private:
  std::array<double, kStackCapacity> values_;
  int depth_;
};

}  // namespace

std::int16_t BerekenExpressie(const TokenList& list, double x, const Memory& memory, double& value) {
  if (list.postfix_count <= 0) {
    value = 0;
    return kRefused;
  }
  if (list.postfix_count > kPostfixCapacity) return kTooLong;
  ValueStack stack;
  for (std::size_t at = 0; at < static_cast<std::size_t>(list.postfix_count); ++at) {
    const int code = list.postfix_codes[at];
    if (is_operand(code)) {
      if (stack.full()) return kTooLong;
      stack.push(operand(list, at, x, memory));
    } else if (!stack.apply(code)) {
      return kRefused;
    }
    if (!std::isfinite(stack.top())) return kRefused;
  }
  value = stack.top();
  return kNoError;
}

std::expected<double, std::int16_t> evaluate(std::string_view text) {
  TokenList list;
  const ScanResult scan = OntleedExpressie(text, {}, list);
  if (scan.code != kNoError) return std::unexpected(scan.code);
  double value = 0;
  const std::int16_t code = BerekenExpressie(list, 0, kEmptyMemory, value);
  const bool accepted = code == kNoError || (code >= 2 && code <= 4);
  if (!accepted) return std::unexpected(code);
  return value;
}

}  // namespace tabulon::numbers
