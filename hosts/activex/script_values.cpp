#include "hosts/activex/script_values.h"

#include "hosts/activex/com.h"

namespace tabulon::activex {

namespace {

Result<> convert(VARIANT& given, VARTYPE type, Variant& value) {
  Variant itself;
  if (FAILED(VariantCopyInd(&itself, &given)) ||
      FAILED(VariantChangeTypeEx(&value, &itself, program_locale, 0, type)))
    return fail(ErrorNumber::TypeMismatch);
  return {};
}

}  // namespace

VARIANT* argument(const DISPPARAMS& given, UINT place) {
  for (UINT at = 0; at < given.cNamedArgs; ++at)
    if (given.rgdispidNamedArgs[at] == static_cast<DISPID>(place)) return &given.rgvarg[at];
  return place < given.cArgs - given.cNamedArgs ? &given.rgvarg[given.cArgs - 1 - place] : nullptr;
}

Result<double> number_of(VARIANT& given) {
  Variant number;
  const auto converted = convert(given, VT_R8, number);
  if (!converted) return std::unexpected(converted.error());
  return number.dblVal;
}

Result<std::string> text_in(VARIANT& given) {
  Variant text;
  const auto converted = convert(given, VT_BSTR, text);
  if (!converted) return std::unexpected(converted.error());
  return text_of(text.bstrVal);
}

Result<PropertyValue> value_of(VARIANT& given, const PropertyValue& nothing) {
  Variant value;
  if (FAILED(VariantCopyInd(&value, &given))) return fail(ErrorNumber::TypeMismatch);
  if (value.vt == VT_EMPTY) return nothing;
  if (value.vt == VT_BSTR) return text_of(value.bstrVal);
  if (value.vt == VT_BOOL) return value.boolVal != VARIANT_FALSE;
  return number_of(value);
}

void give_back(VARIANT& given, double number) {
  const bool is_variable = given.vt == (VT_BYREF | VT_VARIANT);
  VARIANT& place = is_variable ? *given.pvarVal : given;
  if (place.vt == (VT_BYREF | VT_R8)) {
    *place.pdblVal = number;
  } else if (is_variable) {
    VariantClear(&place);
    place.vt = VT_R8;
    place.dblVal = number;
  }
}

}  // namespace tabulon::activex
