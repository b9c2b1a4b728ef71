// The functions of expressions, for elementary.test.mjs: with the page's own exp, log and pow in one module,
// and with the C library's in another.
#include <cmath>

#include "numbers/display.h"

#define TABULON_EXPORT(name) extern "C" [[clang::export_name(name)]]

TABULON_EXPORT("exp") double exp_of(double number) {
  return std::exp(number);
}

TABULON_EXPORT("log") double log_of(double number) {
  return std::log(number);
}

TABULON_EXPORT("pow") double pow_of(double base, double exponent) {
  return std::pow(base, exponent);
}

TABULON_EXPORT("sin") double sin_of(double angle) {
  return std::sin(angle);
}

TABULON_EXPORT("cos") double cos_of(double angle) {
  return std::cos(angle);
}

TABULON_EXPORT("show_the_same") bool show_the_same(double left, double right) {
  return tabulon::numbers::GetalNaarDecimaal(left) == tabulon::numbers::GetalNaarDecimaal(right);
}
