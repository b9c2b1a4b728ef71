// A property bag with a control's parameters, filled by a test.
//
//   const ComPtr<Bag> bag = Bag::of({{L"prmBigM", 50}});
//   persist->Load(bag.Get(), nullptr);
//   bag->asked()          // the keys in the order in which they were read
#pragma once

#include <windows.h>

#include <comutil.h>
#include <ocidl.h>
#include <wrl/client.h>

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace tabulon::client {

using Microsoft::WRL::ComPtr;

// Answers as a browser's property bag does: a missing key is E_INVALIDARG.
class Bag : public IPropertyBag {
 public:
  using Given = std::map<std::wstring, _variant_t>;
  static ComPtr<Bag> of(Given given) { return new Bag(std::move(given)); }

  const std::vector<std::wstring>& asked() const { return asked_; }
  const std::vector<std::wstring>& written() const { return written_; }

  STDMETHODIMP QueryInterface(REFIID id, void** answer) override {
    const bool known = id == IID_IUnknown || id == IID_IPropertyBag;
    *answer = known ? this : nullptr;
    if (known) AddRef();
    return known ? S_OK : E_NOINTERFACE;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return ++references_; }
  STDMETHODIMP_(ULONG) Release() override {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
  }
  // Converts to the type asked for, if there is one.
  STDMETHODIMP Read(LPCOLESTR key, VARIANT* value, IErrorLog*) override {
    asked_.emplace_back(key);
    const auto found = given_.find(key);
    if (found == given_.end()) return E_INVALIDARG;
    const VARTYPE wanted = V_VT(value);
    VariantInit(value);
    return wanted == VT_EMPTY || wanted == V_VT(&found->second)
               ? VariantCopy(value, &found->second)
               : VariantChangeTypeEx(value, &found->second, LOCALE_INVARIANT, VARIANT_ALPHABOOL, wanted);
  }
  STDMETHODIMP Write(LPCOLESTR key, VARIANT*) override {
    written_.emplace_back(key);
    return S_OK;
  }

 private:
  explicit Bag(Given given) : given_(std::move(given)) {}
  virtual ~Bag() = default;

  ULONG references_ = 0;
  Given given_;
  std::vector<std::wstring> asked_, written_;
};

}  // namespace tabulon::client
