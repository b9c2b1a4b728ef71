// Functions of the C library that the page has already (wire/imports.def): they would be a twentieth of the
// module.
namespace {

using f64 = double;

}  // namespace

extern "C" {

#define IMPORT(result, name, parameters) \
  [[clang::import_module("tabulon"), clang::import_name(#name)]] result page_##name parameters;
#include "hosts/web/lesson/wire/imports.def"

double atan(double number) {
  return page_atan(number);
}
double cos(double number) {
  return page_cos(number);
}
double exp(double number) {
  return page_exp(number);
}
double log(double number) {
  return page_log(number);
}
double pow(double base, double exponent) {
  return page_pow(base, exponent);
}
double sin(double number) {
  return page_sin(number);
}

}  // extern "C"
