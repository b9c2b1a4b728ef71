// A listener to the control's events: writes down what it hears, and may change a key.
//
//   Hearer hearer;
//   point->Advise(&hearer, &cookie);
//   hearer.when("Click", [&] { control->ShowAboutBox(); });
//   hearer.take_heard();   // {"MouseUp(1, 0, 300., 270.)", "Click()"}
#pragma once

#include <windows.h>

#include <ole2.h>

#include <optional>
#include <string>
#include <utility>

#include "tests/activex/notes.h"

namespace tabulon::client {

class Hearer final : public IDispatch {
 public:
  ULONG references = 1;
  std::optional<short> other_key, other_character;

  Calls take_heard() { return notes_.take(); }
  // While it is told of that event.
  void when(std::string event, Notes::Act act) { notes_.when(std::move(event), std::move(act)); }

  STDMETHODIMP QueryInterface(REFIID id, void** answer) override;
  STDMETHODIMP_(ULONG) AddRef() override { return ++references; }
  STDMETHODIMP_(ULONG) Release() override { return --references; }
  STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
  STDMETHODIMP Invoke(DISPID event, REFIID, LCID, WORD, DISPPARAMS* given, VARIANT*, EXCEPINFO*,
                      UINT*) override;

 private:
  Notes notes_;
};

}  // namespace tabulon::client
