// The control's properties and methods, and ILPctrl for early-bound callers.
#include "hosts/activex/errors.h"
#include "hosts/activex/file_names.h"
#include "hosts/activex/lpctrl_object.h"
#include "hosts/activex/members.h"
#include "hosts/activex/script_origin.h"

namespace tabulon::activex {

// ---- What both ways of calling do

Result<> LPctrlObject::set(DISPID property, const PropertyValue& value) {
  return run([&] { return *control_.set_property(property_name(property), value); });
}

Result<> LPctrlObject::build() {
  return run([&] { return control_.InitTableau(); });
}

// The control says that it is safe for scripts: those of a page that nobody trusts get no say over files, and
// those of a browser none over other hosts, which would learn who is at the machine. A page's script may make
// a control that has no site to ask; a browser asks such a one to be safe.
Result<> LPctrlObject::admit_file(const std::string& name) const {
  const ScriptOrigin origin = origin_of(site_.get());
  const bool admitted = (origin == ScriptOrigin::Program && !asked_to_be_safe_) ||
                        (origin == ScriptOrigin::TrustedPage && !is_on_another_host(wide(name)));
  return admitted ? Result<>() : fail(ErrorNumber::PermissionDenied, name);
}

Result<> LPctrlObject::with_file(const std::string& name, Result<> (LPctrl::*method)(std::string_view)) {
  const ComPtr<ILPctrl> alive(this);  // whoever is asked for the page may release the control
  TRY(admit_file(name));
  return run([&] { return (control_.*method)(name); });
}

// Returns to the script when the form has closed. Meanwhile the user may close the control's container.
Result<> LPctrlObject::show(platform::Task<> form) {
  const ComPtr<ILPctrl> alive(this);
  host().take_error();
  host().wait_for(control_, std::move(form));
  return reported();
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
  const OwnArithmetic arithmetic;
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
