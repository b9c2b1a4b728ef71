// IDispatch, for late-bound callers such as scripts.
#include <optional>

#include "hosts/activex/errors.h"
#include "hosts/activex/lpctrl_object.h"
#include "hosts/activex/members.h"
#include "hosts/activex/script_values.h"
#include "numbers/conversions.h"

namespace tabulon::activex {

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
  const auto wanted = argument_count(member);
  const bool can_be_done = (flags & (is_property(member) ? DISPATCH_PROPERTYPUT : DISPATCH_METHOD)) != 0;
  if (!wanted || !can_be_done) return DISP_E_MEMBERNOTFOUND;
  if (parameters->cArgs != *wanted) return DISP_E_BADPARAMCOUNT;
  if (!is_sound(*parameters)) return E_INVALIDARG;
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
      return display_text(argument(given, 0), argument(given, 1), answer).about("strSoortGetal");
    default: {
      const bool saves = method == member::SchrijfTableau;
      const std::string name =
          TRY(text_in(*argument(given, 0)).about(saves ? "SchrijfTableau" : "LeesTableau"));
      return with_file(name, saves ? &LPctrl::SchrijfTableau : &LPctrl::LeesTableau);
    }
  }
}

// ---- Values

Result<> LPctrlObject::set(DISPID property, VARIANT& given) {
  auto value = is_list(property) ? list_of(given) : value_of(given, 0.0);
  return set(property, TRY(std::move(value).about(property_name(property))));
}

Result<> LPctrlObject::display_text(VARIANT* kind, VARIANT* number, VARIANT* answer) {
  const OwnArithmetic arithmetic;
  const auto kind_number = number_of(*kind);
  const auto value = number_of(*number);
  if (!kind_number || !value) return fail(ErrorNumber::TypeMismatch);
  const std::int16_t mode = TRY(numbers::to_int16(*kind_number));
  double shown = *value;
  const std::string text = control_.strSoortGetal(mode, shown);
  give_back(*number, shown);
  if (!answer) return {};
  VariantInit(answer);
  answer->vt = VT_BSTR;
  answer->bstrVal = new_text(text);
  return {};
}

}  // namespace tabulon::activex
