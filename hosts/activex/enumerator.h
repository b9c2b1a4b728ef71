// COM enumerators over a snapshot of items.
//
//   return Enumerator<IEnumConnections, CONNECTDATA>::create(std::move(connections), out);
#pragma once

#include <windows.h>

#include <algorithm>
#include <utility>
#include <vector>

#include "hosts/activex/com.h"
#include "hosts/activex/library.h"

namespace tabulon::activex {

// The caller receives a reference of its own.
inline IConnectionPoint* handed_out(const ComPtr<IConnectionPoint>& held) {
  held->AddRef();
  return held.get();
}
inline CONNECTDATA handed_out(const std::pair<DWORD, ComPtr<IUnknown>>& held) {
  held.second->AddRef();
  return {held.second.get(), held.first};
}

// `Interface` hands out what handed_out makes of an `Item`.
template <class Interface, class Item>
class Enumerator final : public Counted<Interface> {
 public:
  using Given = decltype(handed_out(std::declval<Item>()));

  static HRESULT create(std::vector<Item> items, Interface** out, std::size_t at = 0) {
    if (!out) return E_POINTER;
    *out = new Enumerator(std::move(items), at);
    return S_OK;
  }

  STDMETHODIMP QueryInterface(REFIID id, void** out) override {
    const Offered offered[] = {{&IID_IUnknown, this}, {&__uuidof(Interface), this}};
    return answer_query(offered, id, out);
  }
  STDMETHODIMP Next(ULONG wanted, Given* out, ULONG* fetched) override {
    if (!out || (wanted != 1 && !fetched)) return E_POINTER;
    const ULONG count = std::min<ULONG>(wanted, static_cast<ULONG>(items_.size() - at_));
    for (ULONG each = 0; each < count; ++each) out[each] = handed_out(items_[at_++]);
    if (fetched) *fetched = count;
    return count == wanted ? S_OK : S_FALSE;
  }
  STDMETHODIMP Skip(ULONG count) override {
    const auto skipped = std::min<std::size_t>(count, items_.size() - at_);
    at_ += skipped;
    return skipped == count ? S_OK : S_FALSE;
  }
  STDMETHODIMP Reset() override {
    at_ = 0;
    return S_OK;
  }
  STDMETHODIMP Clone(Interface** out) override { return create(items_, out, at_); }

 private:
  Enumerator(std::vector<Item> items, std::size_t at) : items_(std::move(items)), at_(at) {}

  LibraryUser keeps_library_;
  std::vector<Item> items_;
  std::size_t at_;
};

}  // namespace tabulon::activex
