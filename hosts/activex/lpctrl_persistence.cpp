// Loads the parameters of a page. The control itself saves nothing.
#include "hosts/activex/errors.h"
#include "hosts/activex/lpctrl_object.h"

namespace tabulon::activex {

namespace {

// A page's parameters as texts. Numbers and booleans are converted; anything else counts as missing.
class Bag : public PropertyBag {
 public:
  Bag(IPropertyBag* bag, IErrorLog* log) : bag_(bag), log_(log) {}

  std::optional<std::string> read(std::string_view key) const override {
    Variant value, text;
    if (!bag_ || FAILED(bag_->Read(wide(key).c_str(), &value, log_))) return std::nullopt;
    const bool is_nothing = value.vt == VT_EMPTY || value.vt == VT_NULL;
    if (is_nothing || FAILED(VariantChangeTypeEx(&text, &value, program_locale, 0, VT_BSTR)))
      return std::nullopt;
    return text_of(text.bstrVal);
  }

 private:
  IPropertyBag* bag_;
  IErrorLog* log_;
};

void note(IErrorLog* log, const RunTimeError& error) {
  EXCEPINFO exception{};
  raise(error, &exception);
  if (log) log->AddError(wide(error.subject).c_str(), &exception);
  SysFreeString(exception.bstrSource);
  SysFreeString(exception.bstrDescription);
}

}  // namespace

Result<> LPctrlObject::read(const PropertyBag& bag) {
  return run([&] {
    const Result<> result = control_.UserControl_ReadProperties(bag);
    // A control that is already visible starts again, as when it appeared.
    if (view_.window())
      host().desk().call(control_, control_.UserControl_Show());
    else
      host().desk().flush();
    return result;
  });
}

HRESULT LPctrlObject::load_defaults() {
  return answer(read(Bag(nullptr, nullptr)), nullptr);
}

STDMETHODIMP LPctrlObject::GetClassID(CLSID* id) {
  if (!id) return E_POINTER;
  *id = CLSID_LPctrl;
  return S_OK;
}

STDMETHODIMP LPctrlObject::InitNew() {
  return load_defaults();
}

STDMETHODIMP LPctrlObject::Load(IPropertyBag* bag, IErrorLog* log) {
  if (!bag) return E_POINTER;
  const Result<> result = read(Bag(bag, log));
  if (!result) note(log, result.error());
  return answer(result, nullptr);
}

STDMETHODIMP LPctrlObject::Save(IPropertyBag* bag, BOOL, BOOL) {
  return bag ? S_OK : E_POINTER;
}

STDMETHODIMP LPctrlObject::Load(IStream* stream) {
  return stream ? load_defaults() : E_POINTER;
}

STDMETHODIMP LPctrlObject::Save(IStream* stream, BOOL) {
  return stream ? S_OK : E_POINTER;
}

STDMETHODIMP LPctrlObject::GetSizeMax(ULARGE_INTEGER* size) {
  if (!size) return E_POINTER;
  size->QuadPart = 0;
  return S_OK;
}

STDMETHODIMP LPctrlObject::InitNew(IStorage* storage) {
  return storage ? load_defaults() : E_POINTER;
}

STDMETHODIMP LPctrlObject::Load(IStorage* storage) {
  return storage ? load_defaults() : E_POINTER;
}

STDMETHODIMP LPctrlObject::Save(IStorage* storage, BOOL) {
  return storage ? S_OK : E_POINTER;
}

}  // namespace tabulon::activex
