// The connection point for the control's events, and its listeners.
//
//   Events events(owner);                       // owner: the control, of which this is a part
//   events.fire(DISPID_CLICK, {});
#pragma once

#include <windows.h>

#include <ocidl.h>

#include <span>
#include <utility>
#include <vector>

#include "hosts/activex/com.h"

namespace tabulon::activex {

class Events final : public IConnectionPoint {
 public:
  explicit Events(IConnectionPointContainer& owner) : owner_(owner) {}

  // `arguments` are in the order of their declaration.
  void fire(DISPID event, std::span<VARIANT> arguments);
  // A container freezes events while it is not ready for them. Calls nest.
  void freeze(bool freeze) { frozen_ += freeze ? 1 : frozen_ > 0 ? -1 : 0; }

  // ---- IUnknown: counted with its owner, but an identity of its own
  STDMETHODIMP QueryInterface(REFIID id, void** out) override;
  STDMETHODIMP_(ULONG) AddRef() override { return owner_.AddRef(); }
  STDMETHODIMP_(ULONG) Release() override { return owner_.Release(); }

  // ---- IConnectionPoint
  STDMETHODIMP GetConnectionInterface(IID* id) override;
  STDMETHODIMP GetConnectionPointContainer(IConnectionPointContainer** container) override;
  STDMETHODIMP Advise(IUnknown* sink, DWORD* cookie) override;
  STDMETHODIMP Unadvise(DWORD cookie) override;
  STDMETHODIMP EnumConnections(IEnumConnections** out) override;

 private:
  IConnectionPointContainer& owner_;
  std::vector<std::pair<DWORD, ComPtr<IDispatch>>> listeners_;
  DWORD last_cookie_ = 0;
  int frozen_ = 0;
};

}  // namespace tabulon::activex
