// Listens to the control's events: logs them, and may change a key.
//
//   EventListener listener;
//   point->Advise(&listener, &cookie);
//   listener.when("Click", [&] { control->ShowAboutBox(); });
//   listener.take_events();   // {"MouseUp(1, 0, 300., 270.)", "Click()"}
#pragma once

#include <windows.h>

#include <ole2.h>

#include <optional>
#include <string>
#include <utility>

#include "tests/activex/call_log.h"

namespace tabulon::client {

class EventListener final : public IDispatch {
 public:
  ULONG references = 1;
  std::optional<short> other_key, other_character;

  Calls take_events() { return log_.take(); }
  // Runs while the listener is being told of that event.
  void when(std::string event, CallLog::Action act) { log_.when(std::move(event), std::move(act)); }

  STDMETHODIMP QueryInterface(REFIID id, void** answer) override;
  STDMETHODIMP_(ULONG) AddRef() override { return ++references; }
  STDMETHODIMP_(ULONG) Release() override { return --references; }
  STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
  STDMETHODIMP Invoke(DISPID event, REFIID, LCID, WORD, DISPPARAMS* given, VARIANT*, EXCEPINFO*,
                      UINT*) override;

 private:
  CallLog log_;
};

}  // namespace tabulon::client
