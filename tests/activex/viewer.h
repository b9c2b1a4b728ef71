// An advise sink that counts its notifications.
//
//   Viewer viewer;
//   view->SetAdvise(DVASPECT_CONTENT, 0, &viewer);
//   EXPECT_EQ(viewer.view_changes, 1);
#pragma once

#include <windows.h>

#include <ole2.h>

namespace tabulon::client {

class Viewer final : public IAdviseSink {
 public:
  ULONG references = 1;
  int view_changes = 0, closed = 0;

  STDMETHODIMP QueryInterface(REFIID id, void** answer) override {
    const bool known = id == IID_IUnknown || id == IID_IAdviseSink;
    *answer = known ? this : nullptr;
    if (known) AddRef();
    return known ? S_OK : E_NOINTERFACE;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return ++references; }
  STDMETHODIMP_(ULONG) Release() override { return --references; }
  STDMETHODIMP_(void) OnDataChange(FORMATETC*, STGMEDIUM*) override {}
  STDMETHODIMP_(void) OnViewChange(DWORD aspect, LONG) override {
    view_changes += aspect == DVASPECT_CONTENT;
  }
  STDMETHODIMP_(void) OnRename(IMoniker*) override {}
  STDMETHODIMP_(void) OnSave() override {}
  STDMETHODIMP_(void) OnClose() override { ++closed; }
};

}  // namespace tabulon::client
