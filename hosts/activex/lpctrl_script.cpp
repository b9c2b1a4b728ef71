// The control as scripts and forms call it: by name through IDispatch, or directly through ILPctrl.
#include <cstdint>
#include <optional>

#include "hosts/activex/errors.h"
#include "hosts/activex/lpctrl_object.h"
#include "numbers/conversions.h"

namespace tabulon::activex {

namespace {

// The members' numbers, as Tabulon.idl has them.
namespace member {
enum : DISPID {
  first_property = 1,
  prmNrBeslisVar = first_property,
  prmNrKleinerGelijkVglen,
  prmNrGroterGelijkVglen,
  prmNrGelijkVglen,
  prmBigM,
  prmShow,
  prmDLfunctie,  // the first of the lists
  prmKleinerGelijkVglen,
  prmGroterGelijkVglen,
  prmGelijkVglen,
  prmRL,
  last_property = prmRL,
  InitTableau,
  strSoortGetal,
  ShowAboutBox = DISPID_ABOUTBOX,
  ShowfrmMelding = 15,
  ShowfrmFoutmelding,
  ShowfrmPivotelement,
  SchrijfTableau,
  LeesTableau,
};
}  // namespace member

constexpr std::string_view property_names[] = {"prmNrBeslisVar",
                                               "prmNrKleinerGelijkVglen",
                                               "prmNrGroterGelijkVglen",
                                               "prmNrGelijkVglen",
                                               "prmBigM",
                                               "prmShow",
                                               "prmDLfunctie",
                                               "prmKleinerGelijkVglen",
                                               "prmGroterGelijkVglen",
                                               "prmGelijkVglen",
                                               "prmRL"};

bool is_property(DISPID id) {
  return id >= member::first_property && id <= member::last_property;
}

std::string_view name_of(DISPID property) {
  return property_names[property - member::first_property];
}

// How many arguments a method takes; nothing where there is no such method.
std::optional<UINT> arguments_of(DISPID method) {
  switch (method) {
    case member::InitTableau:
    case member::ShowAboutBox:
    case member::ShowfrmMelding:
    case member::ShowfrmFoutmelding:
    case member::ShowfrmPivotelement:
      return 0;
    case member::SchrijfTableau:
    case member::LeesTableau:
      return 1;
    case member::strSoortGetal:
      return 2;
    default:
      return std::nullopt;
  }
}

// The argument at that place, from 0: one that is named by its place, or one of the others, which stand last
// first.
VARIANT* argument(const DISPPARAMS& given, UINT place) {
  for (UINT at = 0; at < given.cNamedArgs; ++at)
    if (given.rgdispidNamedArgs[at] == static_cast<DISPID>(place)) return &given.rgvarg[at];
  return place < given.cArgs - given.cNamedArgs ? &given.rgvarg[given.cArgs - 1 - place] : nullptr;
}

// What stands in it, as that type.
Result<> convert(VARIANT& given, VARTYPE type, Variant& value) {
  Variant itself;
  if (FAILED(VariantCopyInd(&itself, &given)) ||
      FAILED(VariantChangeTypeEx(&value, &itself, program_locale, 0, type)))
    return fail(ErrorNumber::TypeMismatch);
  return {};
}

Result<double> number_of(VARIANT& given) {
  Variant number;
  const auto converted = convert(given, VT_R8, number);
  if (!converted) return std::unexpected(converted.error());
  return number.dblVal;
}

Result<std::string> words_of(VARIANT& given) {
  Variant words;
  const auto converted = convert(given, VT_BSTR, words);
  if (!converted) return std::unexpected(converted.error());
  return text_of(words.bstrVal);
}

// A variable without a value is what `nothing` says.
Result<PropertyValue> value_of(VARIANT& given, const PropertyValue& nothing) {
  Variant value;
  if (FAILED(VariantCopyInd(&value, &given))) return fail(ErrorNumber::TypeMismatch);
  if (value.vt == VT_EMPTY) return nothing;
  if (value.vt == VT_BSTR) return text_of(value.bstrVal);
  if (value.vt == VT_BOOL) return value.boolVal != VARIANT_FALSE;
  return number_of(value);
}

// A script's variable that was lent, or the value itself.
VARIANT* lent(VARIANT* given) {
  return given->vt == (VT_BYREF | VT_VARIANT) ? given->pvarVal : given;
}

Result<> about(Result<> result, std::string_view subject) {
  if (!result && result.error().subject.empty()) result.error().subject = subject;
  return result;
}

}  // namespace

HRESULT LPctrlObject::own_type(ITypeInfo** out) {
  if (!own_type_)
    if (const HRESULT found = type_info(IID_ILPctrl, own_type_.receive()); FAILED(found)) return found;
  own_type_->AddRef();
  *out = own_type_.get();
  return S_OK;
}

// ---- IDispatch

STDMETHODIMP LPctrlObject::GetTypeInfoCount(UINT* count) {
  if (!count) return E_POINTER;
  *count = 1;
  return S_OK;
}

STDMETHODIMP LPctrlObject::GetTypeInfo(UINT at, LCID, ITypeInfo** out) {
  if (!out) return E_POINTER;
  *out = nullptr;
  return at == 0 ? own_type(out) : DISP_E_BADINDEX;
}

STDMETHODIMP LPctrlObject::GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
  if (reserved != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
  if (!names || !ids) return E_POINTER;
  ComPtr<ITypeInfo> type;
  const HRESULT found = own_type(type.receive());
  return SUCCEEDED(found) ? DispGetIDsOfNames(type.get(), names, count, ids) : found;
}

STDMETHODIMP LPctrlObject::Invoke(DISPID member, REFIID reserved, LCID, WORD flags, DISPPARAMS* parameters,
                                  VARIANT* result, EXCEPINFO* exception, UINT*) {
  if (reserved != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
  if (!parameters) return E_POINTER;
  const auto wanted = is_property(member) ? 1 : arguments_of(member);
  const bool can_be_done = (flags & (is_property(member) ? DISPATCH_PROPERTYPUT : DISPATCH_METHOD)) != 0;
  if (!wanted || !can_be_done) return DISP_E_MEMBERNOTFOUND;
  if (parameters->cArgs != *wanted) return DISP_E_BADPARAMCOUNT;
  if (is_property(member)) return answer(set(member, parameters->rgvarg[0]), exception);
  for (UINT place = 0; place < *wanted; ++place)
    if (!argument(*parameters, place)) return DISP_E_PARAMNOTFOUND;
  return answer(call(member, *parameters, result), exception);
}

Result<> LPctrlObject::call(DISPID method, DISPPARAMS& given, VARIANT* answer) {
  switch (method) {
    case member::InitTableau:
      return build();
    case member::ShowAboutBox:
      return show(control_.ShowAboutBox());
    case member::ShowfrmMelding:
      return show(control_.ShowfrmMelding());
    case member::ShowfrmFoutmelding:
      return show(control_.ShowfrmFoutmelding());
    case member::ShowfrmPivotelement:
      return show(control_.ShowfrmPivotelement());
    case member::strSoortGetal:
      return about(display_text(argument(given, 0), argument(given, 1), answer), "strSoortGetal");
    default: {
      const bool saves = method == member::SchrijfTableau;
      const auto name = words_of(*argument(given, 0));
      if (!name) return about(std::unexpected(name.error()), saves ? "SchrijfTableau" : "LeesTableau");
      return with_file(*name, saves ? &LPctrl::SchrijfTableau : &LPctrl::LeesTableau);
    }
  }
}

// ---- What both ways of calling do

Result<> LPctrlObject::set(DISPID property, VARIANT& given) {
  const bool is_list = property >= member::prmDLfunctie;
  const auto converted = value_of(given, is_list ? PropertyValue(std::string()) : PropertyValue(0.0));
  return converted ? set(property, *converted) : about(std::unexpected(converted.error()), name_of(property));
}

Result<> LPctrlObject::set(DISPID property, const PropertyValue& value) {
  return run([&] { return *control_.set_property(name_of(property), value); });
}

Result<> LPctrlObject::build() {
  return run([&] { return control_.InitTableau(); });
}

Result<> LPctrlObject::with_file(const std::string& name, Result<> (LPctrl::*method)(std::string_view)) {
  return run([&] { return (control_.*method)(name); });
}

// The script goes on when the form has closed. Meanwhile the person may close what the control stands on.
Result<> LPctrlObject::show(platform::Task<> form) {
  const ComPtr<ILPctrl> alive(this);
  host().take_error();
  host().wait_for(control_, std::move(form));
  return reported();
}

Result<> LPctrlObject::display_text(VARIANT* kind, VARIANT* number, VARIANT* answer) {
  const auto kind_number = number_of(*kind);
  const auto value = number_of(*number);
  if (!kind_number || !value) return fail(ErrorNumber::TypeMismatch);
  const auto mode = numbers::to_int16(*kind_number);
  if (!mode) return std::unexpected(mode.error());
  double shown = *value;
  const std::string text = control_.strSoortGetal(*mode, shown);
  VARIANT* const variable = lent(number);
  if (variable->vt == (VT_BYREF | VT_R8)) {
    *variable->pdblVal = shown;
  } else if (variable != number) {
    VariantClear(variable);
    variable->vt = VT_R8;
    variable->dblVal = shown;
  }
  if (!answer) return {};
  VariantInit(answer);
  answer->vt = VT_BSTR;
  answer->bstrVal = new_text(text);
  return {};
}

// ---- ILPctrl

STDMETHODIMP LPctrlObject::put_prmNrBeslisVar(short value) {
  return answer(set(member::prmNrBeslisVar, static_cast<double>(value)), nullptr);
}
STDMETHODIMP LPctrlObject::put_prmNrKleinerGelijkVglen(short value) {
  return answer(set(member::prmNrKleinerGelijkVglen, static_cast<double>(value)), nullptr);
}
STDMETHODIMP LPctrlObject::put_prmNrGroterGelijkVglen(short value) {
  return answer(set(member::prmNrGroterGelijkVglen, static_cast<double>(value)), nullptr);
}
STDMETHODIMP LPctrlObject::put_prmNrGelijkVglen(short value) {
  return answer(set(member::prmNrGelijkVglen, static_cast<double>(value)), nullptr);
}
STDMETHODIMP LPctrlObject::put_prmBigM(short value) {
  return answer(set(member::prmBigM, static_cast<double>(value)), nullptr);
}
STDMETHODIMP LPctrlObject::put_prmShow(VARIANT_BOOL value) {
  return answer(set(member::prmShow, value != VARIANT_FALSE), nullptr);
}
STDMETHODIMP LPctrlObject::put_prmDLfunctie(BSTR value) {
  return answer(set(member::prmDLfunctie, text_of(value)), nullptr);
}
STDMETHODIMP LPctrlObject::put_prmKleinerGelijkVglen(BSTR value) {
  return answer(set(member::prmKleinerGelijkVglen, text_of(value)), nullptr);
}
STDMETHODIMP LPctrlObject::put_prmGroterGelijkVglen(BSTR value) {
  return answer(set(member::prmGroterGelijkVglen, text_of(value)), nullptr);
}
STDMETHODIMP LPctrlObject::put_prmGelijkVglen(BSTR value) {
  return answer(set(member::prmGelijkVglen, text_of(value)), nullptr);
}
STDMETHODIMP LPctrlObject::put_prmRL(BSTR value) {
  return answer(set(member::prmRL, text_of(value)), nullptr);
}

STDMETHODIMP LPctrlObject::InitTableau() {
  return answer(build(), nullptr);
}

STDMETHODIMP LPctrlObject::strSoortGetal(VARIANT_BOOL Soort, double* Getal, BSTR* text) {
  if (!Getal || !text) return E_POINTER;
  *text = new_text(control_.strSoortGetal(Soort, *Getal));
  return S_OK;
}

STDMETHODIMP LPctrlObject::ShowAboutBox() {
  return answer(show(control_.ShowAboutBox()), nullptr);
}
STDMETHODIMP LPctrlObject::ShowfrmMelding() {
  return answer(show(control_.ShowfrmMelding()), nullptr);
}
STDMETHODIMP LPctrlObject::ShowfrmFoutmelding() {
  return answer(show(control_.ShowfrmFoutmelding()), nullptr);
}
STDMETHODIMP LPctrlObject::ShowfrmPivotelement() {
  return answer(show(control_.ShowfrmPivotelement()), nullptr);
}

STDMETHODIMP LPctrlObject::SchrijfTableau(BSTR* strFile) {
  return strFile ? answer(with_file(text_of(*strFile), &LPctrl::SchrijfTableau), nullptr) : E_POINTER;
}
STDMETHODIMP LPctrlObject::LeesTableau(BSTR* strFile) {
  return strFile ? answer(with_file(text_of(*strFile), &LPctrl::LeesTableau), nullptr) : E_POINTER;
}

}  // namespace tabulon::activex
