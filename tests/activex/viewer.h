// An advise sink that counts its notifications.
//
//   Viewer viewer;
//   view->SetAdvise(DVASPECT_CONTENT, 0, &viewer);
//   EXPECT_EQ(viewer.view_changes, 1);
#pragma once

#include "tests/activex/com_double.h"

namespace tabulon::client {

class Viewer final : public Double<IAdviseSink> {
 public:
  int view_changes = 0, closed = 0;

  STDMETHODIMP_(void) OnDataChange(FORMATETC*, STGMEDIUM*) override {}
  STDMETHODIMP_(void) OnViewChange(DWORD aspect, LONG) override {
    view_changes += aspect == DVASPECT_CONTENT;
  }
  STDMETHODIMP_(void) OnRename(IMoniker*) override {}
  STDMETHODIMP_(void) OnSave() override {}
  STDMETHODIMP_(void) OnClose() override { ++closed; }
};

}  // namespace tabulon::client
