// Basics of COM: a counting pointer, texts, and QueryInterface from a table.
//
//   ComPtr<IOleInPlaceSite> site;
//   if (FAILED(client->QueryInterface(IID_IOleInPlaceSite, site.put()))) return E_FAIL;
#pragma once

#include <windows.h>

#include <objbase.h>
#include <oleauto.h>

#include <iterator>
#include <string>
#include <string_view>
#include <utility>

#include "hosts/activex/text.h"

namespace tabulon::activex {

template <class Interface>
class ComPtr {
 public:
  ComPtr() = default;
  explicit ComPtr(Interface* held) : held_(held) {
    if (held_) held_->AddRef();
  }
  ComPtr(const ComPtr& other) : ComPtr(other.held_) {}
  ComPtr(ComPtr&& other) noexcept : held_(std::exchange(other.held_, nullptr)) {}
  ComPtr& operator=(ComPtr other) noexcept {
    std::swap(held_, other.held_);
    return *this;
  }
  ~ComPtr() {
    if (held_) held_->Release();
  }

  // Another interface of the same object; null if it does not have it.
  template <class Other>
  static ComPtr from(Other* object, REFIID id) {
    ComPtr found;
    if (object) object->QueryInterface(id, found.put());
    return found;
  }

  Interface* get() const { return held_; }
  Interface* operator->() const { return held_; }
  explicit operator bool() const { return held_ != nullptr; }
  // Hands the reference over to the caller.
  Interface* detach() { return std::exchange(held_, nullptr); }
  // For functions that return a counted pointer. Releases the one held before.
  void** put() {
    *this = ComPtr();
    return reinterpret_cast<void**>(&held_);
  }
  Interface** receive() {
    *this = ComPtr();
    return &held_;
  }

 private:
  Interface* held_ = nullptr;
};

inline std::string text_of(BSTR text) {
  return narrow({text, SysStringLen(text)});
}
inline BSTR new_text(std::string_view text) {
  const std::wstring letters = wide(text);
  return SysAllocStringLen(letters.data(), static_cast<UINT>(letters.size()));
}

// The locale of programs: "." is the decimal point, whatever the user's settings are.
inline constexpr LCID program_locale = MAKELCID(MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US), SORT_DEFAULT);

inline std::wstring text_of(REFGUID id) {
  wchar_t text[40]{};
  StringFromGUID2(id, text, static_cast<int>(std::size(text)));
  return text;
}

// A VARIANT that clears itself.
class Variant : public VARIANT {
 public:
  Variant() { VariantInit(this); }
  Variant(const Variant&) = delete;
  ~Variant() { VariantClear(this); }
};

// An interface of an object: its ID, and the pointer to it.
struct Offered {
  const IID* id;
  IUnknown* as;
};

template <std::size_t count>
HRESULT answer_query(const Offered (&offered)[count], REFIID id, void** out) {
  if (!out) return E_POINTER;
  *out = nullptr;
  for (const Offered& each : offered) {
    if (*each.id != id) continue;
    each.as->AddRef();
    *out = each.as;
    return S_OK;
  }
  return E_NOINTERFACE;
}

// A reference-counted object.
template <class Interface>
class Counted : public Interface {
 public:
  STDMETHODIMP_(ULONG) AddRef() override { return ++references_; }
  STDMETHODIMP_(ULONG) Release() override {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
  }

 protected:
  Counted() = default;
  virtual ~Counted() = default;

 private:
  ULONG references_ = 1;
};

}  // namespace tabulon::activex
