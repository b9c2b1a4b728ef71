// COM objects of a test's own: they live on the stack and count their references.
//
//   class Listener final : public DispatchDouble { ... Invoke ... };
//   Listener listener;
//   EXPECT_EQ(listener.references, 1U);
#pragma once

#include <windows.h>

#include <ole2.h>

namespace tabulon::client {

template <class Interface>
class Double : public Interface {
 public:
  ULONG references = 1;

  STDMETHODIMP QueryInterface(REFIID id, void** answer) override {
    const bool known = id == IID_IUnknown || id == __uuidof(Interface) || is_also(id);
    *answer = known ? this : nullptr;
    if (known) AddRef();
    return known ? S_OK : E_NOINTERFACE;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return ++references; }
  STDMETHODIMP_(ULONG) Release() override { return --references; }

 protected:
  // Other interfaces by the same pointer.
  virtual bool is_also(REFIID) const { return false; }
};

// Without types or names: its members are called by their numbers.
class DispatchDouble : public Double<IDispatch> {
 public:
  STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
};

}  // namespace tabulon::client
