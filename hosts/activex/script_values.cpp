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

constexpr int deepest = 8;  // nesting of arrays; far more than any list has

Result<std::string> joined(SAFEARRAY* array, int depth);

// An item may itself be a reference to a variable, or an array.
Result<std::string> item_text(VARIANT& item, int depth) {
  Variant value;
  if (FAILED(VariantCopyInd(&value, &item))) return fail(ErrorNumber::TypeMismatch);
  return (value.vt & VT_ARRAY) != 0 ? joined(value.parray, depth) : text_in(value);
}

// An array holds items of one type, or variants of any.
HRESULT get_item(SAFEARRAY* array, LONG at, Variant& item) {
  VARTYPE type = VT_EMPTY;
  if (const HRESULT known = SafeArrayGetVartype(array, &type); FAILED(known)) return known;
  if (type == VT_VARIANT) return SafeArrayGetElement(array, &at, &item);
  if (SafeArrayGetElemsize(array) > sizeof item.llVal) return E_INVALIDARG;
  const HRESULT got = SafeArrayGetElement(array, &at, &item.llVal);
  if (SUCCEEDED(got)) item.vt = type;
  return got;
}

// "-3,0.5", the way scripts convert an array to text.
Result<std::string> joined(SAFEARRAY* array, int depth) {
  LONG first = 0, last = 0;
  if (depth == deepest || SafeArrayGetDim(array) != 1 || FAILED(SafeArrayGetLBound(array, 1, &first)) ||
      FAILED(SafeArrayGetUBound(array, 1, &last)))
    return fail(ErrorNumber::TypeMismatch);
  std::string text;
  for (LONG at = first; at <= last; ++at) {
    Variant item;
    if (FAILED(get_item(array, at, item))) return fail(ErrorNumber::TypeMismatch);
    const auto words = item_text(item, depth + 1);
    if (!words) return words;
    text += (at == first ? "" : ",") + *words;
  }
  return text;
}

}  // namespace

bool is_sound(const DISPPARAMS& given) {
  return given.cNamedArgs <= given.cArgs && (given.rgvarg || given.cArgs == 0) &&
         (given.rgdispidNamedArgs || given.cNamedArgs == 0);
}

VARIANT* argument(const DISPPARAMS& given, UINT place) {
  for (UINT at = 0; at < given.cNamedArgs; ++at)
    if (given.rgdispidNamedArgs[at] == static_cast<DISPID>(place)) return &given.rgvarg[at];
  return place < given.cArgs - given.cNamedArgs ? &given.rgvarg[given.cArgs - 1 - place] : nullptr;
}

Result<double> number_of(VARIANT& given) {
  Variant number;
  TRY(convert(given, VT_R8, number));
  return number.dblVal;
}

Result<std::string> text_in(VARIANT& given) {
  Variant text;
  TRY(convert(given, VT_BSTR, text));
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

Result<PropertyValue> list_of(VARIANT& given) {
  Variant value;
  if (FAILED(VariantCopyInd(&value, &given))) return fail(ErrorNumber::TypeMismatch);
  const bool has_items = (value.vt & VT_ARRAY) != 0 || value.vt == VT_DISPATCH || value.vt == VT_UNKNOWN;
  if (!has_items) return value_of(value, std::string());
  return TRY(item_text(value, 0));
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
