#include "hosts/activex/events.h"

#include <windows.h>

#include <olectl.h>

#include <Tabulon_idl.h>

#include <algorithm>

#include "hosts/activex/enumerator.h"

namespace tabulon::activex {

void Events::fire(DISPID event, std::span<VARIANT> arguments) {
  if (frozen_ != 0) return;
  std::vector<VARIANT> last_first(arguments.rbegin(), arguments.rend());
  DISPPARAMS parameters{last_first.data(), nullptr, static_cast<UINT>(last_first.size()), 0};
  const auto listeners = listeners_;  // a copy: one may connect or disconnect in its handler
  for (const auto& [cookie, listener] : listeners)
    listener->Invoke(event, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters, nullptr, nullptr,
                     nullptr);
}

STDMETHODIMP Events::QueryInterface(REFIID id, void** out) {
  const Offered offered[] = {{&IID_IUnknown, this}, {&IID_IConnectionPoint, this}};
  return answer_query(offered, id, out);
}

STDMETHODIMP Events::GetConnectionInterface(IID* id) {
  if (!id) return E_POINTER;
  *id = DIID__LPctrlEvents;
  return S_OK;
}

STDMETHODIMP Events::GetConnectionPointContainer(IConnectionPointContainer** container) {
  if (!container) return E_POINTER;
  owner_.AddRef();
  *container = &owner_;
  return S_OK;
}

STDMETHODIMP Events::Advise(IUnknown* sink, DWORD* cookie) {
  if (!cookie) return E_POINTER;
  *cookie = 0;
  if (!sink) return E_POINTER;
  auto listener = ComPtr<IDispatch>::from(sink, DIID__LPctrlEvents);
  if (!listener) listener = ComPtr<IDispatch>::from(sink, IID_IDispatch);
  if (!listener) return CONNECT_E_CANNOTCONNECT;
  listeners_.emplace_back(*cookie = ++last_cookie_, std::move(listener));
  return S_OK;
}

STDMETHODIMP Events::Unadvise(DWORD cookie) {
  const auto left = std::erase_if(listeners_, [&](const auto& each) { return each.first == cookie; });
  return left != 0 ? S_OK : CONNECT_E_NOCONNECTION;
}

STDMETHODIMP Events::EnumConnections(IEnumConnections** out) {
  std::vector<std::pair<DWORD, ComPtr<IUnknown>>> connections;
  for (const auto& [cookie, listener] : listeners_)
    connections.emplace_back(cookie, ComPtr<IUnknown>(listener.get()));
  return Enumerator<IEnumConnections, std::pair<DWORD, ComPtr<IUnknown>>>::create(std::move(connections),
                                                                                  out);
}

}  // namespace tabulon::activex
